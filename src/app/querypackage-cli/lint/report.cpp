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

}  // namespace

bool operator<(const LintFinding& a, const LintFinding& b) { return KeyOf(a) < KeyOf(b); }

void LintReport::Add(LintId id, const std::string& file, TextPosition place, std::string text) {
  if (ignored_.count(id) != 0) return;
  LintFinding finding{id, file, place, std::move(text)};
  if (findings_.count(finding) != 0) return;
  Tally& tally = tallies_[{file, id}];
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
  return findings;
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

}  // namespace Vornik::Cli
