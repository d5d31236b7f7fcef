// The groups of findings about a folder that is read, a function each.
#ifndef VORNIK_CLI_LINT_CHECKS_CHECKS_H
#define VORNIK_CLI_LINT_CHECKS_CHECKS_H

#include "lint/folder.h"
#include "lint/report.h"

namespace Vornik::Cli {

// Names of the folder's files, and files that are ignored because of their names.
void CheckFileNames(const LintFolder& folder, LintReport& report);

// Properties that are missing, repeated or incomplete.
void CheckProperties(const LintFolder& folder, LintReport& report);

// Names of properties that are nearly those of others.
void CheckPropertyNames(const LintFolder& folder, LintReport& report);

// Identification codes that conflict.
void CheckCodes(const LintFolder& folder, LintReport& report);

// The ordered lists, the packs' lists and "type".
void CheckPlatforms(const LintFolder& folder, LintReport& report);

// Packages that no machine of any pack gets.
void CheckReach(const LintFolder& folder, LintReport& report);

// Driver files and their classifications.
void CheckDriverFiles(const LintFolder& folder, LintReport& report);

// Versions within the families of driver files.
void CheckVersions(const LintFolder& folder, LintReport& report);

// The lists of superseded packages.
void CheckSupersedeLists(const LintFolder& folder, LintReport& report);

// The lists of required packages.
void CheckRequirements(const LintFolder& folder, LintReport& report);

// Packs: their own instances, and where they apply.
void CheckPacks(const LintFolder& folder, LintReport& report);

// The files that "xmlFilename" and "payload" name.
void CheckPackageFiles(const LintFolder& folder, LintReport& report);

// A folder without descriptors, and files that no descriptor names.
void CheckFolderContents(const LintFolder& folder, LintReport& report);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_CHECKS_CHECKS_H
