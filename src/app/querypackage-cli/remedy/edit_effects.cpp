#include "remedy/edit_effects.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "model/filter_table.h"

namespace Vornik::Cli {

namespace {

// Records that may be evaluated for one remedy.
constexpr std::size_t maxRecords = 100'000;

using Codes = std::set<std::string>;

Codes OfferedBy(EditedFolder& folder, const QuerySettings& settings) {
  Codes codes;
  for (const QueryPackageResult& record : folder.Model().Evaluate(settings).records) {
    if (IsMatchedByAll(record, settings)) codes.insert(record.identificationCode);
  }
  return codes;
}

std::vector<std::string> Without(const Codes& codes, const Codes& others) {
  std::vector<std::string> left;
  std::set_difference(codes.begin(), codes.end(), others.begin(), others.end(),
                      std::back_inserter(left));
  return left;
}

OfferChanges ChangesBetween(const Codes& before, const Codes& after) {
  return {Without(before, after), Without(after, before)};
}

bool IsOf(const QuerySettings& settings, const Machine& machine) {
  return machine.machineType == settings.machineType && machine.osValue == settings.osValue &&
         machine.arcValue == settings.arcValue;
}

std::size_t InstancesOf(const FolderCopy& folder) {
  std::size_t instances = folder.individuals.size();
  for (const CopiedPack& pack : folder.packs) instances += pack.members.size();
  return instances;
}

}  // namespace

bool EditEffects::Withdraws() const {
  return !changes.withdrawn.empty() ||
         std::any_of(machines.begin(), machines.end(),
                     [](const MachineChanges& each) { return !each.changes.withdrawn.empty(); });
}

EditEffects EffectsOf(const Edits& edits, const FolderCopy& folder,
                      const std::vector<Machine>& machines, const QuerySettings& settings,
                      const std::string& code, FileStates& files) {
  EditedFolder before(folder, {}, settings.folder, files);
  EditedFolder after(folder, edits, settings.folder, files);
  const auto changesFor = [&](const QuerySettings& query) {
    return ChangesBetween(OfferedBy(before, query), OfferedBy(after, query));
  };
  EditEffects effects;
  effects.changes = changesFor(settings);
  auto& offered = effects.changes.offered;
  offered.erase(std::remove(offered.begin(), offered.end(), code), offered.end());
  std::size_t left = maxRecords / (InstancesOf(folder) + 1);
  for (const Machine& machine : machines) {
    if (IsOf(settings, machine)) continue;
    if (left-- == 0) {
      effects.isComplete = false;
      break;
    }
    QuerySettings query = settings;
    query.machineType = machine.machineType;
    query.osValue = machine.osValue;
    query.arcValue = machine.arcValue;
    OfferChanges changes = changesFor(query);
    if (!changes.IsEmpty()) effects.machines.push_back({machine, std::move(changes)});
  }
  return effects;
}

}  // namespace Vornik::Cli
