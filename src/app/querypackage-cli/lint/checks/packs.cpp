#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "lint/checks/checks.h"
#include "model/literals.h"
#include "output/wording.h"
#include "records/pack_selection.h"
#include "text/decimal.h"

namespace Vornik::Cli {

namespace {

constexpr std::array<const char*, 2> packLists{PropertyName::applicableMachineTypes,
                                               PropertyName::applicableOperatingSystems};

void CheckOwnInstance(const LintPack& pack, LintReport& report) {
  if (pack.members.empty() || pack.ownInstances == 1) return;
  const LintPackage& first = pack.members.front();
  if (pack.ownInstances == 0) {
    report.Add(LintId::PackOwnMissing, pack.file, first.Place(),
               fmt::format("No INSTANCE has the \"{}\" {}, so this one, {}, is taken for the pack "
                           "and lost.",
                           PropertyName::xmlFilename, Quoted(pack.file), CodeText(first.Code())));
    return;
  }
  for (std::size_t i = 1; i < pack.ownInstances; ++i) {
    report.Add(LintId::PackOwnRepeated, pack.file, pack.members[i].Place(),
               fmt::format("The pack has {} instances of its own; the last one, of line {}, is "
                           "taken for the pack, and this one becomes a package.",
                           pack.ownInstances, first.Place().line));
  }
}

void CheckLists(const LintPack& pack, LintReport& report) {
  if (pack.members.empty()) return;
  const LintPackage& own = pack.members.front();
  for (const char* list : packLists) {
    if (!own.Values(list).empty()) continue;
    report.Add(LintId::PackListMissing, pack.file, own.PlaceOfProperty(list),
               fmt::format("\"{}\" is missing or empty, so the pack never applies.", list));
  }
}

struct PackReach {
  const LintPack* pack;
  std::set<std::uint32_t> systems;
};

// Packs that apply to the same machines.
using Rivals = std::vector<const PackReach*>;

std::string VersionOf(const PackReach& reach) {
  return reach.pack->members.front().Value(PropertyName::Version);
}

bool AppliesTo(const PackReach& reach, std::uint32_t system) {
  return reach.systems.count(anyCode) != 0 || reach.systems.count(system) != 0;
}

// The pack that is chosen if the folder lists them in this order.
const PackReach* ChosenOf(const Rivals& rivals) {
  std::vector<const SupXmlProperties*> packs;
  for (const PackReach* rival : rivals) packs.push_back(&rival->pack->members.front().Properties());
  return rivals.at(ChosenPack(ChoosePack(packs)).value());
}

// After a pack whose version is not read, each of theirs is, and so the greatest one is chosen.
const PackReach* GreatestOf(Rivals rivals) {
  rivals.insert(rivals.begin(), rivals.front());
  return ChosenOf(rivals);
}

// What the choice among them does. The order of a folder's listing is not known. It matters where
// it gives the pack with the greatest version first: that version is then never read.
std::string ChoiceText(Rivals rivals) {
  const PackReach* greatest = GreatestOf(rivals);
  const auto place = std::find(rivals.begin(), rivals.end(), greatest);
  std::rotate(place, place + 1, rivals.end());
  const std::string& usual = ChosenOf(rivals)->pack->file;
  std::rotate(rivals.begin(), rivals.end() - 1, rivals.end());
  const std::string& whenFirst = ChosenOf(rivals)->pack->file;
  if (usual == whenFirst) return fmt::format("{} is used", usual);
  return fmt::format("{} is used, or {} if the folder's listing gives {} first", usual, whenFirst,
                     greatest->pack->file);
}

class Competitions {
 public:
  Competitions(const LintFolder& folder, LintReport& report) : report_(report) {
    reaches_.reserve(folder.packs.size());
    for (const LintPack& pack : folder.packs) AddPack(pack);
  }

  void Check() {
    for (const auto& [machineType, packs] : byMachineType_) {
      if (packs.size() > 1) CheckMachineType(machineType, packs);
    }
  }

 private:
  void AddPack(const LintPack& pack) {
    if (pack.members.empty()) return;
    const LintPackage& own = pack.members.front();
    PackReach reach{&pack, {}};
    for (const std::string& system : own.Values(PropertyName::applicableOperatingSystems)) {
      reach.systems.insert(static_cast<std::uint32_t>(ParseDecimal(system)));
    }
    if (reach.systems.empty()) return;
    reaches_.push_back(std::move(reach));
    for (const std::string& type :
         ParseApplicableMachineTypes(own.Values(PropertyName::applicableMachineTypes))) {
      auto& packs = byMachineType_[type];
      if (packs.empty() || packs.back() != &reaches_.back()) packs.push_back(&reaches_.back());
    }
  }

  void CheckMachineType(const std::string& machineType, const Rivals& packs) {
    std::set<std::uint32_t> systems;
    for (const PackReach* reach : packs)
      systems.insert(reach->systems.begin(), reach->systems.end());
    for (const std::uint32_t system : systems) {
      Rivals rivals;
      std::copy_if(packs.begin(), packs.end(), std::back_inserter(rivals),
                   [system](const PackReach* reach) { return AppliesTo(*reach, system); });
      if (rivals.size() > 1 && known_.insert(rivals).second) Report(machineType, system, rivals);
    }
  }

  void Report(const std::string& machineType, std::uint32_t system, const Rivals& rivals) {
    std::vector<std::string> texts;
    for (const PackReach* reach : rivals) {
      texts.push_back(reach->pack->file + " (" + QuotedBriefly(VersionOf(*reach)) + ")");
    }
    const LintPackage& first = rivals.front()->pack->members.front();
    report_.Add(LintId::PacksCompete, first.File(),
                first.PlaceOfProperty(PropertyName::applicableMachineTypes),
                fmt::format("{} packs apply to machine type {} under {}: {}. Of these, {}.",
                            rivals.size(), QuotedBriefly(machineType),
                            system == anyCode ? "any operating system"
                                              : fmt::format("operating system {}", system),
                            fmt::join(texts, ", "), ChoiceText(rivals)));
  }

  LintReport& report_;
  std::vector<PackReach> reaches_;  // never moves
  std::map<std::string, Rivals> byMachineType_;
  std::set<Rivals> known_;
};

}  // namespace

void CheckPacks(const LintFolder& folder, LintReport& report) {
  for (const LintPack& pack : folder.packs) {
    CheckOwnInstance(pack, report);
    CheckLists(pack, report);
  }
  Competitions(folder, report).Check();
}

}  // namespace Vornik::Cli
