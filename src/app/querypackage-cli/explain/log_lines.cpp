#include "explain/log_lines.h"

#include "log_texts.h"

namespace Vornik::Cli {

std::vector<std::string> LogLinesOf(const FilterExplanation& explanation, const std::string& code,
                                    std::size_t repeats) {
  if (!explanation.runs) return {};
  if (explanation.filter == FilterId::Duplicate) {
    return std::vector<std::string>(repeats, code + LogText::duplicateDropped);
  }
  const FilterLines& filter = FilterOf(explanation.filter).lines;
  std::vector<std::string> lines;
  if (filter.noProperties != nullptr && code.empty()) {
    lines = {LogText::codeIsEmpty, filter.noProperties};
  }
  for (const ReasonLine& error : filter.errors) {
    if (error.reason != nullptr && explanation.reason == error.reason) {
      lines.emplace_back(error.line);
    }
  }
  const char* verdict = nullptr;
  if (explanation.status == FilterStatus::Matched) verdict = filter.matched;
  if (explanation.status == FilterStatus::NotMatched) verdict = filter.notMatched;
  if (verdict != nullptr) lines.push_back(code + verdict);
  return lines;
}

std::vector<std::string> LogLinesOf(const RepositoryFile& file) {
  const bool isPack = file.reading.kind == DescriptorKind::Pack;
  if (file.reading.kind == DescriptorKind::Neither) return {file.name + LogText::notValidXml};
  switch (file.reading.fault) {
    case DescriptorFault::NoRoot:
      return {isPack ? LogText::loadKovuRootFailed : LogText::loadPackageRootFailed};
    case DescriptorFault::NoProperties:
      return {LogText::getPackagePropertiesFailed};
    case DescriptorFault::NoInstances:
      return {LogText::noUpdateElements};
    default:
      return {(isPack ? LogText::loadKovuFailed : LogText::loadPackageFailed) + file.path};
  }
}

}  // namespace Vornik::Cli
