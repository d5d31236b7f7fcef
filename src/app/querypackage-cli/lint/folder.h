// A package folder read as a query on the target reads it, by the library's rules, with the places
// of what is in it. Files are in order of their names, so that two looks at a folder agree.
#ifndef VORNIK_CLI_LINT_FOLDER_H
#define VORNIK_CLI_LINT_FOLDER_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "lint/package.h"
#include "lint/report.h"
#include "lint/target.h"
#include "model/reading_progress.h"

namespace Vornik::Cli {

struct LintPack {
  std::string file;
  std::vector<LintPackage> members;  // in the library's order: own instances first
  std::size_t ownInstances = 0;

  // Without an own instance: the index of the member that is meant as such, because only the case
  // of its "xmlFilename" is wrong, or else because it alone has the pack's class.
  std::optional<std::size_t> misnamedOwn;

  // The instance that is meant as the pack's own; the first member if none is. Only where there is
  // a member.
  const LintPackage& MeantOwn() const { return members[misnamedOwn.value_or(0)]; }

  // For each member whether it is meant to be a package, whatever the library makes of it: the
  // first member of a pack without an own instance is lost, and an instance without a name beside
  // the pack's own is taken for the pack.
  std::vector<bool> isPackage;
};

struct LintFolder {
  static constexpr char ownName[] = ".";  // in a finding about the folder as a whole

  std::string path;
  LintTarget target = LintTarget::Windows;
  std::vector<std::string> files;  // names of all entries that end in ".xml"
  std::vector<LintPackage> individuals;
  std::vector<LintPack> packs;
  std::optional<std::string> walkFailure;  // why the listing ended early
};

// Also reports what is wrong with a file or a document as a whole.
LintFolder ReadLintFolder(const std::string& path, LintTarget target, LintReport& report,
                          const ReadingProgress& progress);

// All that are meant to be packages, those of packs first.
std::vector<const LintPackage*> AllPackages(const LintFolder& folder);

// The same without those whose code an earlier one has, exactly, and those without a code: what a
// query's filters find by the codes.
std::vector<const LintPackage*> PackagesByCode(const LintFolder& folder);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_FOLDER_H
