#include "output/json.h"

#include <utility>

#include "matrix/output.h"
#include "model/filter_table.h"
#include "output/query_json.h"

namespace Vornik::Cli {

namespace {

constexpr int schemaVersion = 1;

Json NamesOf(const std::vector<FilterId>& filters) {
  return ArrayOf(filters, [](FilterId filter) { return FilterOf(filter).name; });
}

void AddCell(const MatrixCell& cell, Json& object) {
  object["answer"] = cell.Name();
  object["refusedBy"] = NamesOf(cell.RefusedBy());
  object["undecidedBy"] = NamesOf(cell.UndecidedBy());
}

Json SettingsWithoutMachine(const QuerySettings& settings) {
  Json object = SettingsObject(settings);
  for (const char* key : {"machineType", "osValue", "arcValue"}) object.erase(key);
  return object;
}

Json SummaryObject(const MatrixReport& report) {
  const MatrixSummary& summary = report.summary;
  const std::vector<std::string>& packages = report.matrix.packages;
  const auto nothing = [&](const MatrixSummary::Nothing& one) {
    const MachineKind& kind = report.machines.Kinds()[one.kind];
    Json object{{"kind", kind.name},
                {"machines", kind.machines},
                {"returnCode", report.matrix.kinds[one.kind].returnCode},
                {"packages", one.commonest.count}};
    AddCell(one.commonest.cell, object);
    return object;
  };
  const auto unreachable = [&](const MatrixSummary::Unreachable& one) {
    Json object{{"identificationCode", packages[one.package]}, {"machines", one.commonest.count}};
    AddCell(one.commonest.cell, object);
    return object;
  };
  return {{"machines", summary.machines},
          {"kinds", report.machines.Kinds().size()},
          {"packages", packages.size()},
          {"nothing", ArrayOf(summary.nothing, nothing)},
          {"unreachable", ArrayOf(summary.unreachable, unreachable)},
          {"everywhere", ArrayOf(summary.everywhere,
                                 [&packages](std::size_t package) { return packages[package]; })}};
}

Json MachineObject(const MatrixReport& report, const MatrixMachine& machine) {
  return {{"name", machine.name},
          {"count", machine.count},
          {"kind", report.machines.Kinds()[machine.kind].name}};
}

Json KindObject(const MatrixReport& report, std::size_t index) {
  const MachineKind& kind = report.machines.Kinds()[index];
  const KindResult& result = report.matrix.kinds[index];
  Json packages = Json::array();
  for (std::size_t i = 0; i < result.cells.size(); ++i) {
    if (report.onlyOffered && !result.cells[i].IsOffered()) continue;
    Json& package = packages.emplace_back(Json{{"identificationCode", report.matrix.packages[i]}});
    AddCell(result.cells[i], package);
    if (report.withReasons) package["reason"] = result.reasons[result.reasonOf[i]];
  }
  Json object{{"kind", kind.name},
              {"machineType", kind.machine.machineType},
              {"osValue", static_cast<std::uint32_t>(kind.machine.osValue)},
              {"arcValue", static_cast<std::uint32_t>(kind.machine.arcValue)},
              {"machines", kind.machines},
              {"returnCode", result.returnCode},
              {"packages", std::move(packages)}};
  if (report.withRecords) object["records"] = ArrayOf(result.records, RecordObject);
  return object;
}

Json WithSection(const char* section, const Json& object) {
  Json line{{"section", section}};
  line.update(object);
  return line;
}

// The items of an array, each on a line of its own. False: nothing more is wanted.
template <typename MakeItem>
bool WriteItems(std::size_t count, const MatrixSink& sink, MakeItem make) {
  for (std::size_t i = 0; i < count; ++i) {
    std::string line = JsonLine(make(i));
    line.insert(line.size() - 1, i + 1 == count ? "" : ",");
    if (!sink(line)) return false;
  }
  return true;
}

}  // namespace

// Written as it goes: a tree of all cells would need a multiple of the document's memory.
void WriteMatrixJson(const MatrixReport& report, const MatrixSink& sink) {
  const std::vector<MatrixMachine>& machines = report.machines.Machines();
  std::string head = "{\"schemaVersion\":" + std::to_string(schemaVersion) + ",\n\"query\":";
  head += JsonLine(SettingsWithoutMachine(report.settings));
  head += ",\"summary\":" + JsonLine(SummaryObject(report)) + ",\"machines\":[\n";
  if (!sink(head)) return;
  if (!WriteItems(machines.size(), sink,
                  [&](std::size_t i) { return MachineObject(report, machines[i]); })) {
    return;
  }
  if (!sink("],\"kinds\":[\n")) return;
  if (!WriteItems(report.matrix.kinds.size(), sink,
                  [&](std::size_t i) { return KindObject(report, i); })) {
    return;
  }
  sink("]}\n");
}

void WriteMatrixJsonLines(const MatrixReport& report, const MatrixSink& sink) {
  const Json summary = {{"schemaVersion", schemaVersion},
                        {"query", SettingsWithoutMachine(report.settings)},
                        {"summary", SummaryObject(report)}};
  if (!sink(JsonLine(WithSection("summary", summary)))) return;
  for (const MatrixMachine& machine : report.machines.Machines()) {
    if (!sink(JsonLine(WithSection("machine", MachineObject(report, machine))))) return;
  }
  for (std::size_t kind = 0; kind < report.matrix.kinds.size(); ++kind) {
    if (!sink(JsonLine(WithSection("kind", KindObject(report, kind))))) return;
  }
}

}  // namespace Vornik::Cli
