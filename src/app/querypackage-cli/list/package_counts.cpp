#include "list/package_counts.h"

#include <map>
#include <set>
#include <string>

#include "model/literals.h"
#include "records/pack_selection.h"

namespace Vornik::Cli {

namespace {

class PackageCounter {
 public:
  PackageCounter(const Repository& repository, std::vector<ListedMachine>& machines)
      : repository_(repository), machines_(machines) {
    for (const PackageXmlEntry& entry : repository.packageXmlEntries()) {
      individuals_.insert(CodeOf(entry));
    }
    const auto& packs = repository.kovuPackEntries();
    for (std::size_t pack = 0; pack < packs.size(); ++pack) AddPack(packs[pack], pack);
    for (std::size_t i = 0; i < machines.size(); ++i) {
      machines[i].pack = PackFor(machines[i].machine);
      byType_[machines[i].machine.machineType].push_back(i);
    }
  }

  void Count() {
    for (const std::string& code : CodesOf(repository_)) CountCode(code);
  }

 private:
  void AddPack(const KovuPackEntry& pack, std::size_t index) {
    for (std::size_t i = 1; i < pack.members.size(); ++i) {
      packsOf_[CodeOf(pack.members[i])].insert(index);
    }
    for (const std::string& type : ParseApplicableMachineTypes(
             GetPropertyValues(PropertyName::applicableMachineTypes, PackLevelProperties(pack)))) {
      packsFor_[type].insert(index);
    }
  }

  std::optional<std::size_t> PackFor(const Machine& machine) {
    std::vector<std::size_t> indices;
    std::vector<const SupXmlProperties*> applying;
    for (const std::size_t index : packsFor_[machine.machineType]) {
      const SupXmlProperties& own = PackLevelProperties(repository_.kovuPackEntries()[index]);
      if (EvaluatePack(own, machine.machineType, machine.osValue) != PackVerdict::Applies) continue;
      indices.push_back(index);
      applying.push_back(&own);
    }
    const std::optional<std::size_t> chosen = ChosenPack(ChoosePack(applying));
    if (!chosen) return std::nullopt;
    return indices[*chosen];
  }

  void CountCode(const std::string& code) {
    std::map<std::string, Platforms> entries;
    for (const PlatformEntry& entry : ReadPlatformEntries(*repository_.Find(code))) {
      entries[entry.machineType].emplace(entry.osValue, entry.arcValue);
    }
    const std::set<std::size_t>& packs = packsOf_[code];
    const bool isIndividual = individuals_.count(code) != 0;
    for (const auto& [machineType, listed] : entries) {
      for (const std::size_t i : byType_[machineType]) {
        auto& [machine, packages, pack] = machines_[i];
        if (!isIndividual && (!pack || packs.count(*pack) == 0)) continue;
        if (Match(listed, machine.osValue, machine.arcValue)) ++packages;
      }
    }
  }

  const Repository& repository_;
  std::vector<ListedMachine>& machines_;
  std::set<std::string> individuals_;
  std::map<std::string, std::set<std::size_t>> packsOf_;   // by code
  std::map<std::string, std::set<std::size_t>> packsFor_;  // by machine type
  std::map<std::string, std::vector<std::size_t>> byType_;
};

}  // namespace

void CountPackages(const Repository& repository, std::vector<ListedMachine>& machines) {
  PackageCounter(repository, machines).Count();
}

}  // namespace Vornik::Cli
