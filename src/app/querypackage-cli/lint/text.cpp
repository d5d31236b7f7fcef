#include "lint/text.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "lint/folder.h"
#include "output/console_text.h"
#include "output/paint.h"
#include "output/wording.h"
#include "text/paths.h"

namespace Vornik::Cli {

namespace {

Paint PaintOf(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return Paint::Bad;
    case Severity::Warning:
      return Paint::Warning;
    case Severity::Info:
      break;
  }
  return Paint::Faint;
}

std::string PlaceText(const LintPlace& place, const std::string& folder) {
  if (place.file == LintFolder::ownName) return Printable(folder);
  std::string path = Printable(PathInFolder(folder, place.file));
  if (place.place.line == 0) return path;
  return fmt::format("{}:{}:{}", path, place.place.line, place.place.column);
}

// The line about a finding's other places; empty if it has none.
std::string AlsoText(const LintFinding& finding, const std::string& folder) {
  constexpr std::size_t maxShown = 3;
  const std::size_t shown = std::min(finding.also.size(), maxShown);
  if (shown == 0) return "";
  std::vector<std::string> places;
  for (std::size_t i = 0; i < shown; ++i) places.push_back(PlaceText(finding.also[i], folder));
  std::string text = fmt::format("    Also in {}", fmt::join(places, ", "));
  if (shown < finding.also.size()) {
    text += fmt::format(" and {}", Count(finding.also.size() - shown, "other file"));
  }
  return text + "\n";
}

std::string SummaryText(const LintResult& result) {
  std::string text;
  for (const auto& [id, count] : CountById(result.findings)) {
    const LintRule& rule = RuleOf(id);
    text += fmt::format("{}: {}\n", rule.name, Count(count, NameOf(rule.severity)));
  }
  return text;
}

std::string BaselineText(const LintResult& result) {
  std::string text;
  if (!result.known.empty()) {
    text += fmt::format("Known from the baseline: {}.\n", Count(result.known.size(), "finding"));
  }
  for (const auto& [key, count] : result.fixed) {
    const auto& [id, file, code] = key;
    text += Printable(fmt::format("No longer there, remove from the baseline: {} of {} in {}{}.",
                                  Count(count, "finding"), id, file,
                                  code.empty() ? "" : " for " + QuotedBriefly(code))) +
            "\n";
  }
  return text;
}

// Names the target where it is not the system on which lint runs.
std::string TargetText(LintTarget target) {
  if (target == nativeTarget) return "";
  return target == LintTarget::Windows ? ", read as on Windows" : ", read as on POSIX";
}

}  // namespace

std::string LintText(const LintResult& result, bool quiet, bool colour) {
  std::string out;
  for (const LintFinding& finding : result.findings) {
    const LintRule& rule = RuleOf(finding.id);
    out += fmt::format("{}: {}: {} [{}]\n    {}\n",
                       PlaceText({finding.file, finding.place}, result.settings.folder),
                       Painted(NameOf(rule.severity), PaintOf(rule.severity), colour),
                       Printable(finding.text), rule.name, rule.remedy);
    out += AlsoText(finding, result.settings.folder);
  }
  if (quiet) return out;
  return out + SummaryText(result) + BaselineText(result) +
         fmt::format("{} in {}{}.\n", CountsText(CountBySeverity(result.findings)),
                     Count(result.files, "descriptor file"), TargetText(result.settings.target));
}

std::string RuleText(const LintRule& rule) {
  return fmt::format("{}: {}\n{}\n{}\n", rule.name, NameOf(rule.severity), rule.what, rule.remedy);
}

std::string CountsText(const LintCounts& counts) {
  return fmt::format("{}, {}, {}", Count(counts.errors, "error"), Count(counts.warnings, "warning"),
                     Count(counts.infos, "info"));
}

}  // namespace Vornik::Cli
