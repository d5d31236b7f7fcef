#include "explain/log_lines.h"

#include <array>

#include "log_texts.h"

namespace Vornik::Cli {

namespace {

// What a filter logs, in the order of FilterId.
struct FilterLines {
  bool looksUpProperties;
  const char* matched;  // after the code; null: the verdict is not logged
  const char* notMatched;
};

constexpr std::array<FilterLines, filterCount> filterLines{{
    {false, nullptr, nullptr},
    {true, LogText::platformMatched, LogText::platformNotMatched},
    {false, LogText::kovuMatched, LogText::kovuNotMatched},
    {false, LogText::sepMatched, LogText::sepNotMatched},
    {true, LogText::payloadExistMatched, LogText::payloadExistNotMatched},
    {true, nullptr, nullptr},
    {false, LogText::includeIdMatched, LogText::includeIdNotMatched},
    {false, LogText::excludeIdMatched, LogText::excludeIdNotMatched},
    {true, LogText::updateTypeMatched, LogText::updateTypeNotMatched},
}};

struct ReasonLine {
  const char* reason;  // of a FilterExplanation
  const char* line;
};

constexpr std::array<ReasonLine, 6> reasonLines{{
    {"noMachineTypes", LogText::noMachineTypeList},
    {"noOperatingSystems", LogText::noOsList},
    {"noArchitectures", LogText::noArchitectureList},
    {"noXmlFilename", LogText::noXmlFilename},
    {"noPayload", LogText::noPayload},
    {"noType", LogText::noUpdateType},
}};

}  // namespace

std::vector<std::string> LogLinesOf(const FilterExplanation& explanation, const std::string& code,
                                    std::size_t repeats) {
  if (!explanation.runs) return {};
  if (explanation.filter == FilterId::Duplicate) {
    return std::vector<std::string>(repeats, code + LogText::duplicateDropped);
  }
  const FilterLines& filter = filterLines[static_cast<std::size_t>(explanation.filter)];
  std::vector<std::string> lines;
  if (filter.looksUpProperties && code.empty()) {
    lines = {LogText::codeIsEmpty, LogText::noProperties};
  }
  for (const ReasonLine& each : reasonLines) {
    if (explanation.reason == each.reason) lines.emplace_back(each.line);
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
