#include "list/tables.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace Vornik::Cli {

namespace {

template <typename Code>
std::string CodeText(Code code, bool isNamed) {
  return isNamed ? std::to_string(static_cast<std::uint32_t>(code)) : "other";
}

std::string SystemsText(const std::vector<std::uint32_t>& systems) {
  std::vector<std::string> texts;
  texts.reserve(systems.size());
  for (const std::uint32_t system : systems) {
    texts.push_back(system == 0 ? "any" : std::to_string(system));
  }
  return fmt::format("{}", fmt::join(texts, " "));
}

}  // namespace

ListTable MachineTable(const FolderList& list) {
  ListTable table{{"MACHINE TYPE", "OS", "ARCH", "PACKAGES", "PACK"},
                  {"machineType", "osValue", "arcValue", "packages", "pack"},
                  {}};
  for (const ListedMachine& listed : list.machines) {
    const Machine& machine = listed.machine;
    table.rows.push_back({machine.machineType, CodeText(machine.osValue, machine.osIsNamed),
                          CodeText(machine.arcValue, machine.arcIsNamed),
                          std::to_string(listed.packages),
                          listed.pack ? list.packs[*listed.pack].file : ""});
  }
  return table;
}

ListTable PackTable(const FolderList& list) {
  ListTable table{{"PACK", "VERSION", "MEMBERS", "MACHINE TYPES", "OS"},
                  {"file", "version", "members", "machineTypes", "operatingSystems"},
                  {}};
  for (const ListedPack& pack : list.packs) {
    table.rows.push_back({pack.file, pack.version, std::to_string(pack.members.size()),
                          fmt::format("{}", fmt::join(pack.machineTypes, " ")),
                          SystemsText(pack.systems)});
  }
  return table;
}

ListTable PackageTable(const FolderList& list) {
  ListTable table{
      {"CODE", "VERSION", "TYPE", "FILE"}, {"identificationCode", "version", "type", "file"}, {}};
  for (const ListedPackage& package : list.packages) {
    table.rows.push_back({package.code, package.version, package.type, package.file});
  }
  return table;
}

}  // namespace Vornik::Cli
