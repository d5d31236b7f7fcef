#include "lint/text.h"

#include <fmt/format.h>

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

std::string PlaceText(const LintFinding& finding, const std::string& folder) {
  std::string path = Printable(PathInFolder(folder, finding.file));
  if (finding.place.line == 0) return path;
  return fmt::format("{}:{}:{}", path, finding.place.line, finding.place.column);
}

}  // namespace

std::string LintText(const LintResult& result, bool colour) {
  std::string out;
  for (const LintFinding& finding : result.findings) {
    const LintRule& rule = RuleOf(finding.id);
    out += fmt::format("{}: {}: {} [{}]\n    {}\n", PlaceText(finding, result.settings.folder),
                       Painted(NameOf(rule.severity), PaintOf(rule.severity), colour),
                       Printable(finding.text), rule.name, rule.remedy);
  }
  return out + fmt::format("{} in {}.\n", CountsText(CountBySeverity(result.findings)),
                           Count(result.files, "descriptor file"));
}

std::string RuleText(const LintRule& rule) {
  return fmt::format("{}: {}\n{}\n{}\n", rule.name, NameOf(rule.severity), rule.what, rule.remedy);
}

std::string CountsText(const LintCounts& counts) {
  return fmt::format("{}, {}, {}", Count(counts.errors, "error"), Count(counts.warnings, "warning"),
                     Count(counts.infos, "info"));
}

}  // namespace Vornik::Cli
