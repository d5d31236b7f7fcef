#include "lint/baseline.h"

#include <iterator>
#include <utility>

#include "lint/rules.h"
#include "output/console_text.h"
#include "output/json.h"

namespace Vornik::Cli {

namespace {

constexpr int baselineVersion = 1;

Json EntryObject(const LintBaseline::value_type& entry) {
  const auto& [id, file, code] = entry.first;
  return {{"id", id}, {"file", file}, {"code", code}, {"count", entry.second}};
}

bool IsEntry(const Json& entry) {
  if (!entry.is_object() || entry.size() != 4) return false;
  for (const char* name : {"id", "file", "code"}) {
    if (!entry.contains(name) || !entry[name].is_string()) return false;
  }
  return entry.contains("count") && entry["count"].is_number_unsigned();
}

// A file's name and a code may be any bytes.
std::string AsInJson(const std::string& text) {
  return IsUtf8(text) ? text : Json::parse(JsonText(text)).get<std::string>();
}

}  // namespace

FindingKey KeyOf(const LintFinding& finding) {
  return {RuleOf(finding.id).name, AsInJson(finding.file), AsInJson(finding.code)};
}

LintBaseline BaselineOf(const std::vector<LintFinding>& findings) {
  LintBaseline baseline;
  for (const LintFinding& finding : findings) ++baseline[KeyOf(finding)];
  return baseline;
}

std::string BaselineText(const LintBaseline& baseline) {
  return JsonText(
      {{"schemaVersion", baselineVersion}, {"findings", ArrayOf(baseline, EntryObject)}});
}

std::optional<LintBaseline> ParseBaseline(const std::string& text, std::string& reason) {
  const Json document = Json::parse(text, nullptr, false);
  if (document.is_discarded() || !document.is_object()) {
    reason = "it is no JSON object";
    return std::nullopt;
  }
  if (!document.contains("schemaVersion") || document["schemaVersion"] != baselineVersion) {
    reason = "its \"schemaVersion\" is not 1";
    return std::nullopt;
  }
  if (!document.contains("findings") || !document["findings"].is_array()) {
    reason = "it has no array \"findings\"";
    return std::nullopt;
  }
  LintBaseline baseline;
  for (const Json& entry : document["findings"]) {
    if (!IsEntry(entry)) {
      reason = "a finding in it is not an object of \"id\", \"file\", \"code\" and \"count\"";
      return std::nullopt;
    }
    baseline[{entry["id"], entry["file"], entry["code"]}] += entry["count"].get<std::size_t>();
  }
  return baseline;
}

std::vector<LintFinding> TakeKnown(std::vector<LintFinding>& findings, LintBaseline& left) {
  std::vector<LintFinding> known;
  std::vector<LintFinding> others;
  for (LintFinding& finding : findings) {
    const auto entry = left.find(KeyOf(finding));
    const bool isKnown = entry != left.end() && entry->second != 0;
    if (isKnown) --entry->second;
    (isKnown ? known : others).push_back(std::move(finding));
  }
  findings = std::move(others);
  return known;
}

}  // namespace Vornik::Cli
