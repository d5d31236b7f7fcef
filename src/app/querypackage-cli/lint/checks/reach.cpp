#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <string>

#include "filters/platform.h"
#include "lint/checks/checks.h"
#include "model/literals.h"
#include "output/wording.h"
#include "records/pack_selection.h"

namespace Vornik::Cli {

namespace {

using MachineTypes = std::set<std::string>;

MachineTypes TypesOfPacks(const LintFolder& folder) {
  MachineTypes types;
  for (const LintPack& pack : folder.packs) {
    if (pack.members.empty()) continue;
    const auto listed = ParseApplicableMachineTypes(
        pack.members.front().Values(PropertyName::applicableMachineTypes));
    types.insert(listed.begin(), listed.end());
  }
  return types;
}

}  // namespace

void CheckReach(const LintFolder& folder, LintReport& report) {
  const MachineTypes types = TypesOfPacks(folder);
  if (types.empty()) return;
  const std::string list = BriefList({types.begin(), types.end()});
  for (const LintPackage* package : AllPackages(folder)) {
    const auto entries = ReadPlatformEntries(package->Properties());
    const bool isReached = std::any_of(
        entries.begin(), entries.end(),
        [&types](const PlatformEntry& entry) { return types.count(entry.machineType) != 0; });
    if (entries.empty() || isReached) continue;
    report.Add(LintId::PackageUnreachable, package->File(),
               package->PlaceOfProperty(PropertyName::orderedMachineTypeList),
               fmt::format("No machine type of a pack is among those of {}: the packs list {}.",
                           CodeText(package->Code()), list));
  }
}

}  // namespace Vornik::Cli
