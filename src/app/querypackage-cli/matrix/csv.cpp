#include "output/csv.h"

#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "matrix/output.h"
#include "model/filter_table.h"

namespace Vornik::Cli {

namespace {

// One line of the only table. Which fields it has depends on its section.
struct CsvRow {
  const char* section = "";
  const MachineKind* kind = nullptr;
  const MatrixMachine* machine = nullptr;
  std::optional<std::uint64_t> count = std::nullopt;
  const std::string* package = nullptr;
  const MatrixCell* cell = nullptr;
  const std::string* reason = nullptr;
};

std::string NamesOf(const std::vector<FilterId>& filters) {
  std::string names;
  for (const FilterId filter : filters) {
    if (!names.empty()) names += ' ';
    names += FilterOf(filter).name;
  }
  return names;
}

const char* const columns[] = {"section", "kind",       "machine",      "machine_type",
                               "os",      "arch",       "count",        "package",
                               "answer",  "refused_by", "undecided_by", "reason"};

std::vector<std::string> FieldsOf(const MachineKind& kind) {
  return {kind.machine.machineType,
          std::to_string(static_cast<std::uint32_t>(kind.machine.osValue)),
          std::to_string(static_cast<std::uint32_t>(kind.machine.arcValue))};
}

std::vector<std::string> FieldsOf(const MatrixCell& cell) {
  return {cell.Name(), NamesOf(cell.RefusedBy()), NamesOf(cell.UndecidedBy())};
}

std::string LineOf(const CsvRow& row) {
  std::vector<std::string> fields{row.section};
  const auto add = [&fields](const std::vector<std::string>& more) {
    fields.insert(fields.end(), more.begin(), more.end());
  };
  fields.push_back(row.kind == nullptr ? "" : row.kind->name);
  fields.push_back(row.machine == nullptr ? "" : AsPlainText(row.machine->name));
  add(row.machine == nullptr ? std::vector<std::string>(3) : FieldsOf(*row.kind));
  fields.push_back(row.count ? std::to_string(*row.count) : "");
  fields.push_back(row.package == nullptr ? "" : AsPlainText(*row.package));
  add(row.cell == nullptr ? std::vector<std::string>(3) : FieldsOf(*row.cell));
  fields.push_back(row.reason == nullptr ? "" : *row.reason);
  return CsvLine(fields);
}

std::string SummaryLines(const MatrixReport& report) {
  const std::vector<MachineKind>& kinds = report.machines.Kinds();
  const std::vector<std::string>& packages = report.matrix.packages;
  std::string lines = CsvLine({std::begin(columns), std::end(columns)});
  for (const MatrixSummary::Nothing& nothing : report.summary.nothing) {
    const MachineKind& kind = kinds[nothing.kind];
    lines += LineOf(
        {"nothing", &kind, nullptr, kind.machines, nullptr, &nothing.commonest.cell, nullptr});
  }
  for (const MatrixSummary::Unreachable& unreachable : report.summary.unreachable) {
    lines += LineOf({"unreachable", nullptr, nullptr, unreachable.commonest.count,
                     &packages[unreachable.package], &unreachable.commonest.cell, nullptr});
  }
  for (const std::size_t package : report.summary.everywhere) {
    lines += LineOf({"everywhere", nullptr, nullptr, report.summary.machines, &packages[package],
                     nullptr, nullptr});
  }
  return lines;
}

std::string CellLines(const MatrixReport& report, std::size_t index) {
  const MachineKind& kind = report.machines.Kinds()[index];
  const KindResult& result = report.matrix.kinds[index];
  std::string lines;
  for (std::size_t i = 0; i < result.cells.size(); ++i) {
    const MatrixCell& cell = result.cells[i];
    if (report.onlyOffered && !cell.IsOffered()) continue;
    const std::string* reason = report.withReasons ? &result.reasons[result.reasonOf[i]] : nullptr;
    lines +=
        LineOf({"cell", &kind, nullptr, std::nullopt, &report.matrix.packages[i], &cell, reason});
  }
  return lines;
}

}  // namespace

void WriteMatrixCsv(const MatrixReport& report, const MatrixSink& sink) {
  if (!sink(SummaryLines(report))) return;
  for (const MatrixMachine& machine : report.machines.Machines()) {
    const MachineKind& kind = report.machines.Kinds()[machine.kind];
    if (!sink(LineOf({"machine", &kind, &machine, machine.count, nullptr, nullptr}))) return;
  }
  for (std::size_t kind = 0; kind < report.matrix.kinds.size(); ++kind) {
    if (!sink(CellLines(report, kind))) return;
  }
}

}  // namespace Vornik::Cli
