#include "output/query_json.h"

#include "query/output.h"

namespace Vornik::Cli {

namespace {

Json PackObject(const PackSummary& pack) {
  if (pack.file.empty()) return nullptr;
  return {{"file", pack.file}, {"version", pack.version}};
}

Json HazardObject(const Hazard& hazard) {
  return {{"file", hazard.file}, {"line", hazard.line}, {"text", Describe(hazard)}};
}

Json DocumentOf(const QuerySettings& settings, const Json& returnCode,
                const std::vector<ResultRow>& rows) {
  const auto record = [](const ResultRow& row) { return RecordObject(*row.record); };
  const auto answer = [](const ResultRow& row) { return NameOf(row.answer.answer); };
  Json document = QueryDocument(settings, returnCode, ArrayOf(rows, record));
  document["answers"] = ArrayOf(rows, answer);
  return document;
}

}  // namespace

std::string QueryJsonLines(const QueryAnswer& answer, const QueryView& view) {
  std::string lines;
  for (const ResultRow& row : RowsOf(answer, view)) {
    Json record = RecordObject(*row.record);
    record["answer"] = NameOf(row.answer.answer);
    lines += JsonLine(record);
  }
  return lines;
}

std::string QueryJson(const QueryAnswer& answer, const QueryView& view) {
  Json document = DocumentOf(answer.settings, answer.returnCode, RowsOf(answer, view));
  document["pack"] = PackObject(answer.pack);
  document["packText"] = TextOf(answer.pack, answer.settings);
  document["warnings"] = answer.warnings;
  document["hazard"] = nullptr;
  return JsonText(document);
}

std::string HazardJson(const QuerySettings& settings, const Hazard& hazard) {
  Json document = DocumentOf(settings, nullptr, {});
  document["pack"] = nullptr;
  document["packText"] = "";
  document["warnings"] = Json::array();
  document["hazard"] = HazardObject(hazard);
  return JsonText(document);
}

}  // namespace Vornik::Cli
