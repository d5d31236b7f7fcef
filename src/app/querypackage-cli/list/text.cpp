#include <fmt/format.h>

#include <set>

#include "list/output.h"
#include "list/tables.h"
#include "output/columns.h"
#include "output/console_text.h"
#include "output/csv.h"
#include "output/wording.h"

namespace Vornik::Cli {

namespace {

bool Shows(ListPart part, ListPart one) { return part == ListPart::All || part == one; }

Row Cells(const std::vector<std::string>& texts) {
  Row row;
  for (const std::string& text : texts) {
    row.push_back(text.empty() ? Cell{"-", Paint::Faint} : Cell{Printable(text), Paint::None});
  }
  return row;
}

std::string Section(const ListTable& table, bool colour) {
  if (table.rows.empty()) return "";
  std::vector<Row> rows{Cells(table.headings)};
  for (const std::vector<std::string>& texts : table.rows) rows.push_back(Cells(texts));
  return InColumns(rows, colour) + '\n';
}

bool HasUnnamed(const FolderList& list) {
  for (const ListedMachine& listed : list.machines) {
    if (!listed.machine.osIsNamed || !listed.machine.arcIsNamed) return true;
  }
  return false;
}

std::string MachineNotes(const FolderList& list) {
  std::string notes;
  if (HasUnnamed(list)) {
    notes += "\"other\" is every number that the folder does not name for the machine type.\n";
  }
  if (!list.hasAllMachines) {
    notes += fmt::format("The folder names more machines than the first {}.\n", maxMachines);
  }
  std::vector<std::string> invalid;
  for (const PlatformEntry& entry : list.invalidMachines) {
    if (invalid.empty() || invalid.back() != entry.machineType) {
      invalid.push_back(entry.machineType);
    }
  }
  if (!invalid.empty()) {
    notes +=
        "No query can have these machine types, which are not four digits: " + BriefList(invalid) +
        ".\n";
  }
  return notes;
}

std::string PackNotes(const FolderList& list) {
  std::string notes;
  for (const ListedPack& pack : list.packs) {
    if (pack.hasOwnInstance) continue;
    notes += pack.file + " has no instance of its own: its first member is taken for the pack.\n";
  }
  return notes;
}

std::string FileNotes(const FolderList& list) {
  std::string notes;
  for (const Hazard& hazard : list.hazards) notes += Describe(hazard) + ".\n";
  if (!list.notRead.empty()) {
    notes += fmt::format("{} {} no package: {}. \"querypackage-cli lint\" says why.\n",
                         Count(list.notRead.size(), "file"),
                         list.notRead.size() == 1 ? "contributes" : "contribute",
                         BriefList(list.notRead));
  }
  return notes;
}

std::string Lines(const std::string& text) {
  std::string lines;
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1) {
    lines += Printable(text.substr(begin, end - begin)) + '\n';
  }
  return lines;
}

std::string ClosingLine(const FolderList& list) {
  std::set<std::string> codes;
  for (const ListedPackage& package : list.packages) codes.insert(package.code);
  return fmt::format("{}, {}, {} with {} in {} whose {} in \".xml\".\n",
                     Count(list.machines.size(), "machine"), Count(list.packs.size(), "pack"),
                     Count(list.packages.size(), "package descriptor"), Count(codes.size(), "code"),
                     Count(list.files, "file"), list.files == 1 ? "name ends" : "names end");
}

// With the values of the first machine, which every query needs.
std::string QueryLine(const FolderList& list) {
  if (list.machines.empty()) return "";
  const Machine& machine = list.machines.front().machine;
  return fmt::format(
      "To query the first machine: querypackage-cli query FOLDER --machine-type {} --os {} --arch "
      "{}\n",
      machine.machineType, static_cast<std::uint32_t>(machine.osValue),
      static_cast<std::uint32_t>(machine.arcValue));
}

}  // namespace

std::string ListText(const FolderList& list, ListPart part, bool quiet, bool colour) {
  std::string text;
  std::string notes;
  if (Shows(part, ListPart::Machines)) {
    text += Section(MachineTable(list), colour);
    notes += MachineNotes(list);
  }
  if (Shows(part, ListPart::Packs)) {
    text += Section(PackTable(list), colour);
    notes += PackNotes(list);
  }
  if (Shows(part, ListPart::Packages)) text += Section(PackageTable(list), colour);
  if (quiet) return text;
  return text + Lines(notes + FileNotes(list)) + ClosingLine(list) + QueryLine(list);
}

std::string ListCsv(const FolderList& list, ListPart part) {
  const ListTable table = part == ListPart::Machines ? MachineTable(list)
                          : part == ListPart::Packs  ? PackTable(list)
                                                     : PackageTable(list);
  std::string text = CsvLine(table.names);
  for (const std::vector<std::string>& row : table.rows) text += CsvLine(row);
  return text;
}

}  // namespace Vornik::Cli
