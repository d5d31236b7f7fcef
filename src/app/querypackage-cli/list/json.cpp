#include "output/json.h"

#include "list/output.h"

namespace Vornik::Cli {

namespace {

constexpr int schemaVersion = 1;

Json MachineObject(const FolderList& list, const ListedMachine& listed) {
  const Machine& machine = listed.machine;
  return {{"machineType", machine.machineType},
          {"osValue", static_cast<std::uint32_t>(machine.osValue)},
          {"osIsNamed", machine.osIsNamed},
          {"arcValue", static_cast<std::uint32_t>(machine.arcValue)},
          {"arcIsNamed", machine.arcIsNamed},
          {"packages", listed.packages},
          {"pack", listed.pack ? Json(list.packs[*listed.pack].file) : Json()}};
}

Json InvalidMachineObject(const PlatformEntry& entry) {
  return {{"machineType", entry.machineType},
          {"osValue", static_cast<std::uint32_t>(entry.osValue)},
          {"arcValue", static_cast<std::uint32_t>(entry.arcValue)}};
}

Json PackObject(const ListedPack& pack) {
  return {{"file", pack.file},
          {"version", pack.version},
          {"machineTypes", pack.machineTypes},
          {"operatingSystems", pack.systems},
          {"hasOwnInstance", pack.hasOwnInstance},
          {"members", pack.members}};
}

Json PackageObject(const ListedPackage& package) {
  return {{"identificationCode", package.code},
          {"version", package.version},
          {"type", package.type},
          {"file", package.file}};
}

Json HazardObject(const Hazard& hazard) {
  return {{"file", hazard.file}, {"line", hazard.line}, {"text", Describe(hazard)}};
}

}  // namespace

std::string ListJson(const FolderList& list) {
  const auto machine = [&list](const ListedMachine& one) { return MachineObject(list, one); };
  return JsonText({{"schemaVersion", schemaVersion},
                   {"folder", list.folder},
                   {"files", list.files},
                   {"filesNotRead", list.notRead},
                   {"complete", !list.walkFailure},
                   {"machines", ArrayOf(list.machines, machine)},
                   {"machinesComplete", list.hasAllMachines},
                   {"invalidMachines", ArrayOf(list.invalidMachines, InvalidMachineObject)},
                   {"packs", ArrayOf(list.packs, PackObject)},
                   {"packages", ArrayOf(list.packages, PackageObject)},
                   {"hazards", ArrayOf(list.hazards, HazardObject)}});
}

}  // namespace Vornik::Cli
