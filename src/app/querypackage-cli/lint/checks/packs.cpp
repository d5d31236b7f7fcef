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
#include "text/letter_case.h"

namespace Vornik::Cli {

namespace {

constexpr std::array<const char*, 2> packLists{PropertyName::applicableMachineTypes,
                                               PropertyName::applicableOperatingSystems};

void ReportMissingOwn(const LintPack& pack, LintReport& report) {
  const LintPackage& first = pack.members.front();
  const LintPackage& own = pack.MeantOwn();
  const std::string name = own.Value(PropertyName::xmlFilename);
  std::string text =
      fmt::format("No INSTANCE has the \"{}\" {}", PropertyName::xmlFilename, Quoted(pack.file));
  if (EqualByGlobalLocaleFold(name, pack.file)) {
    text += fmt::format(" (this one has {}, which differs in case)", Quoted(name));
  }
  if (&own != &first) {
    text += fmt::format(
        ", so this one becomes a package, and the first one, {}, is taken for the "
        "pack and lost.",
        CodeText(first.Code()));
  } else {
    text += fmt::format(", so this one, {}, is taken for the pack{}.", CodeText(first.Code()),
                        pack.misnamedOwn ? ", because it is the first" : " and lost");
  }
  report.Add(LintId::PackOwnMissing, pack.file, own.Place(), text);
}

void CheckOwnInstance(const LintPack& pack, LintReport& report) {
  if (pack.members.empty() || pack.ownInstances == 1) return;
  const LintPackage& first = pack.members.front();
  if (pack.ownInstances == 0) {
    ReportMissingOwn(pack, report);
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
  if (&pack.MeantOwn() != &own) return;  // the lists of the one meant are not read
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

const SupXmlProperties& LevelOf(const PackReach& reach) {
  return reach.pack->members.front().Properties();
}

// Whether a pack displaces a choice of that version: the first pack considered is chosen without
// its version being read, so the choice is considered twice.
bool Displaces(const SupXmlProperties& pack, const SupXmlProperties& choice) {
  return ChosenPack(ChoosePack({&choice, &choice, &pack})) == 2U;
}

// Those with the greatest version; none if none of them has a version.
Rivals GreatestOf(const Rivals& rivals) {
  Rivals greatest;
  for (const PackReach* rival : rivals) {
    if (greatest.empty() || Displaces(LevelOf(*rival), LevelOf(*greatest.front()))) {
      greatest = {rival};
    } else if (!Displaces(LevelOf(*greatest.front()), LevelOf(*rival))) {
      greatest.push_back(rival);
    }
  }
  const bool hasVersion = !greatest.empty() && Displaces(LevelOf(*greatest.front()), {});
  return hasVersion ? greatest : Rivals();
}

std::string FilesOf(const Rivals& rivals) {
  std::vector<std::string> files;
  for (const PackReach* rival : rivals) files.push_back(rival->pack->file);
  return fmt::format("{}", fmt::join(files, ", "));
}

// What the choice among them does. The order of a folder's listing is not known. It matters where
// versions are equal, and where a pack with the greatest version comes first: its version is then
// never read.
std::string ChoiceText(const Rivals& rivals) {
  const Rivals greatest = GreatestOf(rivals);
  if (greatest.empty()) return "the one that the folder's listing has first is used";
  const std::string files = FilesOf(greatest);
  if (greatest.size() > 1) {
    return fmt::format("one of {} is used; the folder's listing decides which", files);
  }
  Rivals others = rivals;
  others.erase(std::find(others.begin(), others.end(), greatest.front()));
  const Rivals next = GreatestOf(others);
  if (next.empty()) return fmt::format("{} is used", files);
  const std::string whenFirst =
      next.size() == 1 ? FilesOf(next) : fmt::format("one of {}", FilesOf(next));
  return fmt::format("{} is used, or {} if the folder's listing has {} first", files, whenFirst,
                     files);
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
    std::vector<LintPlace> places;
    for (const PackReach* reach : rivals) {
      const LintPackage& own = reach->pack->members.front();
      places.push_back({own.File(), own.PlaceOfProperty(PropertyName::applicableMachineTypes)});
    }
    LintFinding finding{LintId::PacksCompete, places[0].file, places[0].place, "", ""};
    finding.also.assign(places.begin() + 1, places.end());
    finding.text = fmt::format(
        "{} packs apply to machine type {} under {}: {}. Of these, {}.", rivals.size(),
        QuotedBriefly(machineType),
        system == anyCode ? "any operating system" : fmt::format("operating system {}", system),
        fmt::join(texts, ", "), ChoiceText(rivals));
    report_.Add(std::move(finding));
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
