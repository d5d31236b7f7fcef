#include "model/machines.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "model/literals.h"
#include "model/query_parameters.h"
#include "records/pack_selection.h"
#include "text/decimal.h"

namespace Vornik::Cli {

namespace {

template <typename Code>
struct Axis {
  Code value;
  bool isNamed;
};

template <typename Code>
void AddNamed(Code code, std::set<Code>& named) {
  if (code != Code::NotSet) named.insert(code);
}

template <typename Code>
Code SmallestUnnamed(const std::set<Code>& named) {
  std::uint32_t code = 1;
  while (named.count(static_cast<Code>(code)) != 0) ++code;
  return static_cast<Code>(code);
}

// The named codes, and one that is not named. preferred: NotSet for none.
template <typename Code>
std::vector<Axis<Code>> AxisOf(const std::set<Code>& named, Code preferred) {
  std::vector<Axis<Code>> axis;
  axis.reserve(named.size() + 1);
  for (const Code code : named) axis.push_back({code, true});
  const bool usesPreferred = preferred != Code::NotSet && named.count(preferred) == 0;
  axis.push_back({usesPreferred ? preferred : SmallestUnnamed(named), false});
  return axis;
}

}  // namespace

bool Match(const Platforms& platforms, OsValue osValue, ArcValue arcValue) {
  constexpr OsValue anyOs = OsValue::NotSet;
  constexpr ArcValue anyArc = ArcValue::NotSet;
  return platforms.count({osValue, arcValue}) != 0 || platforms.count({anyOs, arcValue}) != 0 ||
         platforms.count({osValue, anyArc}) != 0 || platforms.count({anyOs, anyArc}) != 0;
}

std::string CodeOf(const PackageXmlEntry& entry) {
  return GetPropertyValue(PropertyName::identificationCode, entry.properties);
}

std::vector<std::string> CodesOf(const Repository& repository) {
  std::set<std::string> codes;
  const auto add = [&codes](const PackageXmlEntry& entry) { codes.insert(CodeOf(entry)); };
  for (const KovuPackEntry& pack : repository.kovuPackEntries()) {
    if (!pack.members.empty()) std::for_each(pack.members.begin() + 1, pack.members.end(), add);
  }
  const auto& individuals = repository.packageXmlEntries();
  std::for_each(individuals.begin(), individuals.end(), add);
  codes.erase("");
  return {std::make_move_iterator(codes.begin()), std::make_move_iterator(codes.end())};
}

NamedMachines::NamedMachines(const Repository& repository) {
  for (const std::string& code : CodesOf(repository)) AddEntries(*repository.Find(code));
  for (const KovuPackEntry& pack : repository.kovuPackEntries()) AddSystemsOf(pack);
}

FolderMachines NamedMachines::All() const {
  FolderMachines folder;
  for (const auto& [machineType, osValue, arcValue] : invalid_) {
    folder.invalid.push_back({machineType, osValue, arcValue});
  }
  folder.isComplete = std::all_of(types_.begin(), types_.end(), [&](const auto& type) {
    return AddMachines(type.first, type.second.entries, {}, folder.machines);
  });
  return folder;
}

FolderMachines NamedMachines::MatchedBy(const SupXmlProperties& package,
                                        const Machine& preferred) const {
  std::map<std::string, Platforms> types;
  for (const PlatformEntry& entry : ReadPlatformEntries(package)) {
    if (IsMachineType(entry.machineType)) {
      types[entry.machineType].emplace(entry.osValue, entry.arcValue);
    }
  }
  FolderMachines matched;
  matched.isComplete = std::all_of(types.begin(), types.end(), [&](const auto& type) {
    return AddMachines(type.first, type.second, preferred, matched.machines);
  });
  return matched;
}

void NamedMachines::AddEntries(const SupXmlProperties& package) {
  for (const PlatformEntry& entry : ReadPlatformEntries(package)) {
    if (!IsMachineType(entry.machineType)) {
      invalid_.emplace(entry.machineType, entry.osValue, entry.arcValue);
      continue;
    }
    Codes& codes = types_[entry.machineType];
    codes.entries.emplace(entry.osValue, entry.arcValue);
    AddNamed(entry.osValue, codes.systems);
    AddNamed(entry.arcValue, codes.architectures);
  }
}

void NamedMachines::AddSystemsOf(const KovuPackEntry& pack) {
  const SupXmlProperties& own = PackLevelProperties(pack);
  const auto systems = GetPropertyValues(PropertyName::applicableOperatingSystems, own);
  for (const std::string& type :
       ParseApplicableMachineTypes(GetPropertyValues(PropertyName::applicableMachineTypes, own))) {
    const auto known = types_.find(type);
    if (known == types_.end()) continue;
    for (const std::string& system : systems) {
      AddNamed(static_cast<OsValue>(ParseDecimal(system)), known->second.systems);
    }
  }
}

bool NamedMachines::AddMachines(const std::string& type, const Platforms& entries,
                                const Machine& preferred, std::vector<Machine>& machines) const {
  const auto known = types_.find(type);
  if (known == types_.end()) return true;
  const auto architectures = AxisOf(known->second.architectures, preferred.arcValue);
  for (const Axis<OsValue>& system : AxisOf(known->second.systems, preferred.osValue)) {
    for (const Axis<ArcValue>& architecture : architectures) {
      if (!Match(entries, system.value, architecture.value)) continue;
      if (machines.size() == maxMachines) return false;
      machines.push_back(
          {type, system.value, architecture.value, system.isNamed, architecture.isNamed});
    }
  }
  return true;
}

}  // namespace Vornik::Cli
