#include "model/machines.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <set>
#include <tuple>
#include <utility>

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

// What the folder names for one machine type.
struct NamedCodes {
  Platforms entries;
  std::set<OsValue> systems;  // without 0, as the next one
  std::set<ArcValue> architectures;
};

using CodesByType = std::map<std::string, NamedCodes>;

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

// The named codes, and one that is not named.
template <typename Code>
std::vector<Axis<Code>> AxisOf(const std::set<Code>& named) {
  std::vector<Axis<Code>> axis;
  axis.reserve(named.size() + 1);
  for (const Code code : named) axis.push_back({code, true});
  axis.push_back({SmallestUnnamed(named), false});
  return axis;
}

void AddEntries(const SupXmlProperties& properties, CodesByType& types,
                std::set<std::tuple<std::string, OsValue, ArcValue>>& invalid) {
  for (const PlatformEntry& entry : ReadPlatformEntries(properties)) {
    if (!IsMachineType(entry.machineType)) {
      invalid.emplace(entry.machineType, entry.osValue, entry.arcValue);
      continue;
    }
    NamedCodes& codes = types[entry.machineType];
    codes.entries.emplace(entry.osValue, entry.arcValue);
    AddNamed(entry.osValue, codes.systems);
    AddNamed(entry.arcValue, codes.architectures);
  }
}

void AddSystemsOfPacks(const Repository& repository, CodesByType& types) {
  for (const KovuPackEntry& pack : repository.kovuPackEntries()) {
    const SupXmlProperties& own = PackLevelProperties(pack);
    const auto systems = GetPropertyValues(PropertyName::applicableOperatingSystems, own);
    for (const std::string& type : ParseApplicableMachineTypes(
             GetPropertyValues(PropertyName::applicableMachineTypes, own))) {
      const auto known = types.find(type);
      if (known == types.end()) continue;
      for (const std::string& system : systems) {
        AddNamed(static_cast<OsValue>(ParseDecimal(system)), known->second.systems);
      }
    }
  }
}

// Whether all of them could be added.
bool AddMachines(const std::string& type, const NamedCodes& codes,
                 std::vector<FolderMachine>& machines) {
  const auto architectures = AxisOf(codes.architectures);
  for (const Axis<OsValue>& system : AxisOf(codes.systems)) {
    for (const Axis<ArcValue>& architecture : architectures) {
      if (!Match(codes.entries, system.value, architecture.value)) continue;
      if (machines.size() == maxMachines) return false;
      machines.push_back(
          {type, system.value, architecture.value, system.isNamed, architecture.isNamed});
    }
  }
  return true;
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

FolderMachines MachinesOf(const Repository& repository) {
  CodesByType types;
  std::set<std::tuple<std::string, OsValue, ArcValue>> invalid;
  for (const std::string& code : CodesOf(repository)) {
    AddEntries(*repository.Find(code), types, invalid);
  }
  AddSystemsOfPacks(repository, types);

  FolderMachines folder;
  for (const auto& [machineType, osValue, arcValue] : invalid) {
    folder.invalid.push_back({machineType, osValue, arcValue});
  }
  folder.isComplete = std::all_of(types.begin(), types.end(), [&folder](const auto& type) {
    return AddMachines(type.first, type.second, folder.machines);
  });
  return folder;
}

}  // namespace Vornik::Cli
