#include "lint/report.h"

#include <fmt/format.h>

#include <string_view>
#include <tuple>

namespace Vornik::Cli {

namespace {

auto KeyOf(const LintFinding& finding) {
  return std::make_tuple(std::string_view(finding.file), finding.place.line, finding.place.column,
                         std::string_view(RuleOf(finding.id).name), std::string_view(finding.text));
}

// The first one of each fault of a package, with the places of those in other files.
std::vector<LintFinding> Merged(std::vector<LintFinding> findings) {
  std::vector<LintFinding> merged;
  std::map<std::tuple<LintId, std::string, std::string>, std::size_t> firstOfFault;
  for (LintFinding& finding : findings) {
    if (!finding.code.empty()) {
      const auto [known, isNew] =
          firstOfFault.try_emplace({finding.id, finding.code, finding.text}, merged.size());
      LintFinding* const first = isNew ? nullptr : &merged[known->second];
      if (first != nullptr && first->file != finding.file) {
        first->also.push_back({std::move(finding.file), finding.place});
        continue;
      }
    }
    merged.push_back(std::move(finding));
  }
  return merged;
}

}  // namespace

bool operator<(const LintFinding& a, const LintFinding& b) { return KeyOf(a) < KeyOf(b); }

void LintReport::Add(LintId id, const std::string& file, TextPosition place, std::string text) {
  Add({id, file, place, std::move(text), {}});
}

void LintReport::Add(LintId id, const LintPackage& package, TextPosition place, std::string text) {
  Add({id, package.File(), place, std::move(text), package.Code()});
}

void LintReport::Add(LintFinding finding) {
  if (ignored_.count(finding.id) != 0 || findings_.count(finding) != 0) return;
  Tally& tally = tallies_[{finding.file, finding.id}];
  if (tally.kept == mostPerFile) {
    ++tally.more;
    return;
  }
  ++tally.kept;
  findings_.insert(std::move(finding));
}

void LintReport::AddUnplaced(LintId id, const std::string& file, std::size_t count) {
  if (count != 0 && ignored_.count(id) == 0) tallies_[{file, id}].more += count;
}

std::vector<LintFinding> LintReport::Findings() const {
  std::vector<LintFinding> findings(findings_.begin(), findings_.end());
  std::map<Key, LintFinding*> last;
  for (LintFinding& finding : findings) last[{finding.file, finding.id}] = &finding;
  for (const auto& [key, finding] : last) {
    const std::size_t more = tallies_.at(key).more;
    if (more != 0) finding->text += fmt::format(" (There are {} more of these in the file.)", more);
  }
  return Merged(std::move(findings));
}

LintCounts CountBySeverity(const std::vector<LintFinding>& findings) {
  LintCounts counts;
  for (const LintFinding& finding : findings) {
    switch (RuleOf(finding.id).severity) {
      case Severity::Error:
        ++counts.errors;
        break;
      case Severity::Warning:
        ++counts.warnings;
        break;
      case Severity::Info:
        ++counts.infos;
        break;
    }
  }
  return counts;
}

std::map<LintId, std::size_t> CountById(const std::vector<LintFinding>& findings) {
  std::map<LintId, std::size_t> counts;
  for (const LintFinding& finding : findings) ++counts[finding.id];
  return counts;
}

}  // namespace Vornik::Cli
