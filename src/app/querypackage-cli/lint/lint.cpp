#include "lint/lint.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "lint/checks/checks.h"
#include "lint/folder.h"

namespace Vornik::Cli {

namespace {

bool IsWanted(LintId id, const LintSettings& settings) {
  return settings.ignored.count(id) == 0 && (settings.only.empty() || settings.only.count(id) != 0);
}

bool IsWanted(const std::string& file, const LintSettings& settings) {
  return settings.files.empty() || settings.files.count(file) != 0;
}

std::set<LintId> UnwantedIds(const LintSettings& settings) {
  std::set<LintId> unwanted;
  for (const LintRule& rule : LintRules()) {
    if (!IsWanted(rule.id, settings)) unwanted.insert(rule.id);
  }
  return unwanted;
}

void DropUnwantedFiles(std::vector<LintFinding>& findings, const LintSettings& settings) {
  const auto isUnwanted = [&settings](const LintFinding& finding) {
    return !IsWanted(finding.file, settings) &&
           std::none_of(finding.also.begin(), finding.also.end(),
                        [&](const LintPlace& place) { return IsWanted(place.file, settings); });
  };
  findings.erase(std::remove_if(findings.begin(), findings.end(), isUnwanted), findings.end());
}

// An entry of the baseline that this run could not find is neither known nor fixed.
LintBaseline WantedPart(const LintBaseline& baseline, const LintSettings& settings) {
  LintBaseline wanted;
  for (const auto& [key, count] : baseline) {
    const LintRule* rule = FindLintRule(std::get<0>(key));
    const bool isWantedId = rule == nullptr || IsWanted(rule->id, settings);
    if (isWantedId && IsWanted(std::get<1>(key), settings)) wanted.emplace(key, count);
  }
  return wanted;
}

void ApplyBaseline(LintResult& result) {
  if (!result.settings.baseline) return;
  LintBaseline left = WantedPart(*result.settings.baseline, result.settings);
  result.known = TakeKnown(result.findings, left);
  for (const auto& [key, count] : left) {
    if (count != 0) result.fixed.emplace(key, count);
  }
}

}  // namespace

LintResult Lint(const LintSettings& settings, const ReadingProgress& progress) {
  LintReport report(UnwantedIds(settings));
  const LintFolder folder = ReadLintFolder(settings.folder, settings.target, report, progress);
  for (const auto check :
       {CheckFileNames, CheckProperties, CheckPropertyNames, CheckCodes, CheckPlatforms, CheckReach,
        CheckDriverFiles, CheckVersions, CheckSupersedeLists, CheckRequirements, CheckPacks,
        CheckPackageFiles, CheckFolderContents}) {
    check(folder, report);
  }
  LintResult result{settings, report.Findings(), folder.files.size(), folder.walkFailure};
  DropUnwantedFiles(result.findings, settings);
  ApplyBaseline(result);
  return result;
}

}  // namespace Vornik::Cli
