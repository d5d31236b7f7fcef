#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "filters/platform.h"
#include "lint/checks/checks.h"
#include "lint/checks/pack_lists.h"
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

class ReachChecks {
 public:
  ReachChecks(const LintFolder& folder, LintReport& report)
      : folder_(folder), report_(report), types_(TypesOfPacks(folder)), lists_(folder) {}

  void Check() {
    if (folder_.packs.empty()) return;
    for (const LintPackage& package : folder_.individuals) CheckListed(package);
    for (const LintPackage* package : AllPackages(folder_)) CheckPlatforms(*package);
  }

 private:
  void CheckListed(const LintPackage& package) {
    if (package.Code().empty() || !lists_.Listing(package.Code()).empty()) return;
    report_.Add(LintId::PackageUnlisted, package,
                package.PlaceOfValue(PropertyName::identificationCode),
                fmt::format("No pack of the folder lists {}, so the Kovu filter refuses it.",
                            QuotedBriefly(package.Code())));
  }

  void CheckPlatforms(const LintPackage& package) {
    const auto entries = ReadPlatformEntries(package.Properties());
    const bool isReached = std::any_of(
        entries.begin(), entries.end(),
        [this](const PlatformEntry& entry) { return types_.count(entry.machineType) != 0; });
    if (entries.empty() || types_.empty()) return;
    if (isReached) {
      CheckPacksOf(package, entries);
      return;
    }
    AddOnPlatforms(
        LintId::PackageUnreachable, package,
        fmt::format("No machine type of a pack is among those of {}: the packs list {}.",
                    CodeText(package.Code()), BriefList({types_.begin(), types_.end()})));
  }

  void CheckPacksOf(const LintPackage& package, const std::vector<PlatformEntry>& entries) {
    const Packs& packs = lists_.Listing(package.Code());
    if (packs.empty()) return;
    for (const LintPack* pack : packs) {
      if (std::any_of(entries.begin(), entries.end(),
                      [&](const PlatformEntry& entry) { return AppliesTo(*pack, entry); })) {
        return;
      }
    }
    std::vector<std::string> files;
    for (const LintPack* pack : packs) files.push_back(pack->file);
    AddOnPlatforms(
        LintId::PackageListedElsewhere, package,
        fmt::format("{} is for none of the machines of {}: {}.", CodeText(package.Code()),
                    files.size() == 1 ? "the only pack that lists it" : "the packs that list it",
                    BriefList(files)));
  }

  // Whether a machine can have the entry's codes and use the pack.
  bool AppliesTo(const LintPack& pack, const PlatformEntry& entry) {
    const auto [known, isNew] =
        applies_.try_emplace({&pack, entry.machineType, entry.osValue}, false);
    if (isNew) {
      const SupXmlProperties& level = pack.members.front().Properties();
      const bool hasSystems =
          !GetPropertyValues(PropertyName::applicableOperatingSystems, level).empty();
      known->second = hasSystems &&
                      EvaluatePack(level, entry.machineType, entry.osValue) == PackVerdict::Applies;
    }
    return known->second;
  }

  void AddOnPlatforms(LintId id, const LintPackage& package, std::string text) {
    report_.Add(id, package, package.PlaceOfProperty(PropertyName::orderedMachineTypeList),
                std::move(text));
  }

  const LintFolder& folder_;
  LintReport& report_;
  MachineTypes types_;
  PackLists lists_;
  std::map<std::tuple<const LintPack*, std::string, OsValue>, bool> applies_;
};

}  // namespace

void CheckReach(const LintFolder& folder, LintReport& report) {
  ReachChecks(folder, report).Check();
}

}  // namespace Vornik::Cli
