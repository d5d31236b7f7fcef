#include "lint/lint.h"

#include "lint/checks/checks.h"
#include "lint/folder.h"

namespace Vornik::Cli {

LintResult Lint(const LintSettings& settings) {
  LintReport report(settings.ignored);
  const LintFolder folder = ReadLintFolder(settings.folder, settings.target, report);
  for (const auto check :
       {CheckFileNames, CheckProperties, CheckCodes, CheckPlatforms, CheckReach, CheckDriverFiles,
        CheckVersions, CheckSupersedeLists, CheckPacks, CheckPackageFiles}) {
    check(folder, report);
  }
  return {settings, report.Findings(), folder.files.size(), folder.walkFailure};
}

}  // namespace Vornik::Cli
