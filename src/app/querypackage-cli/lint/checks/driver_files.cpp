#include <fmt/format.h>

#include "lint/checks/checks.h"
#include "model/literals.h"
#include "output/wording.h"
#include "records/driver_files.h"

namespace Vornik::Cli {

namespace {

constexpr const char* filesName = PropertyName::driverFiles;
constexpr const char* classesName = PropertyName::driverFilesClassification;

void CheckValues(const LintPackage& package, LintReport& report) {
  const auto values = package.Values(filesName);
  const auto places = package.PlacesOfEntries(filesName);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto file = ParseDriverFileValue(values[i]);
    if (file && !file->first.empty() && !file->second.empty()) continue;
    report.Add(LintId::DriverFileUnparsed, package, places[i],
               fmt::format("The driver file {} is not a name, \"{}\" and a version, so it is "
                           "dropped.",
                           QuotedBriefly(values[i]), driverFileSeparator));
  }
}

void CheckClassifications(const LintPackage& package, LintReport& report) {
  const std::size_t files = package.Values(filesName).size();
  const std::size_t classes = package.Values(classesName).size();
  if (ReadDriverFiles(package.Properties()).unclassifiedIndex) {
    report.Add(LintId::ClassificationsMissing, package, package.PlaceOfProperty(classesName),
               fmt::format("The package has {} for {}, which ends the process that queries it.",
                           Count(classes, "classification"), Count(files, "driver file")));
  } else if (files != 0 && classes > files) {
    report.Add(LintId::ClassificationsSurplus, package, package.PlacesOfEntries(classesName)[files],
               fmt::format("The package has {} for {}; the surplus ones are ignored.",
                           Count(classes, "classification"), Count(files, "driver file")));
  }
}

void CheckPackage(const LintPackage& package, LintReport& report) {
  CheckValues(package, report);
  CheckClassifications(package, report);
}

}  // namespace

void CheckDriverFiles(const LintFolder& folder, LintReport& report) {
  for (const LintPackage* package : AllPackages(folder)) CheckPackage(*package, report);
  for (const LintPack& pack : folder.packs) {
    // If the pack has another own instance, a query makes a package of it and reads its driver
    // files.
    for (std::size_t i = 1; i < pack.ownInstances; ++i) CheckPackage(pack.members[i], report);
  }
}

}  // namespace Vornik::Cli
