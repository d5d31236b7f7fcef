#include "lint/json.h"

#include <fmt/format.h>

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "QueryPackage.h"
#include "lint/baseline.h"
#include "output/json.h"

namespace Vornik::Cli {

namespace {

constexpr int schemaVersion = 2;

// The description of the findings; each one's name follows as the fragment.
constexpr const char* documentation = "urn:querypackage:docs:lint";

Json PlaceObject(const LintPlace& place) {
  return {{"file", place.file}, {"line", place.place.line}, {"column", place.place.column}};
}

Json FindingObject(const LintFinding& finding) {
  const LintRule& rule = RuleOf(finding.id);
  return {{"id", rule.name},
          {"severity", NameOf(rule.severity)},
          {"file", finding.file},
          {"line", finding.place.line},
          {"column", finding.place.column},
          {"text", finding.text},
          {"remedy", rule.remedy},
          {"code", finding.code},
          {"also", ArrayOf(finding.also, PlaceObject)}};
}

Json IdCountObject(const std::pair<const LintId, std::size_t>& one) {
  const LintRule& rule = RuleOf(one.first);
  return {{"id", rule.name}, {"severity", NameOf(rule.severity)}, {"count", one.second}};
}

Json FixedObject(const LintBaseline::value_type& entry) {
  const auto& [id, file, code] = entry.first;
  return {{"id", id}, {"file", file}, {"code", code}, {"count", entry.second}};
}

bool IsPlainInUri(char c) {
  constexpr std::string_view plain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  return plain.find(c) != std::string_view::npos;
}

std::string UriOf(std::string_view path) {
  std::string uri;
  for (const char c : path) {
    if (IsPlainInUri(c)) {
      uri += c;
    } else {
      uri += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
  }
  return uri;
}

// Ends with a slash, as the base of other URIs has to.
std::string FolderUri(const std::string& folder) {
  boost::system::error_code failed;
  const auto absolute = boost::filesystem::canonical(folder, failed);
  std::string path = failed ? folder : absolute.generic_string();
  if (path.empty() || path.front() != '/') path.insert(path.begin(), '/');
  if (path.back() != '/') path += '/';
  return "file://" + UriOf(path);
}

const char* LevelOf(Severity severity) {
  return severity == Severity::Info ? "note" : NameOf(severity);
}

Json SarifRule(const LintRule& rule) {
  return {{"id", rule.name},
          {"shortDescription", {{"text", rule.what}}},
          {"help", {{"text", rule.remedy}}},
          {"helpUri", fmt::format("{}#{}", documentation, rule.name)},
          {"defaultConfiguration", {{"level", LevelOf(rule.severity)}}}};
}

Json SarifLocation(const LintPlace& place) {
  Json physical{{"artifactLocation", {{"uri", UriOf(place.file)}, {"uriBaseId", "PACKAGEFOLDER"}}}};
  if (place.place.line > 0) {
    physical["region"] = {{"startLine", place.place.line}, {"startColumn", place.place.column}};
  }
  return {{"physicalLocation", std::move(physical)}};
}

// FNV-1a of 64 bits, in hexadecimal digits.
std::string HashOf(std::string_view text) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  return fmt::format("{:016x}", hash);
}

// Makes results. The fingerprint of one is that of its id, its file, its package's code and its
// number among those that are alike in these, so that it outlasts a change of other lines.
class SarifResults {
 public:
  enum class Known { No, Yes };

  void Add(const std::vector<LintFinding>& findings, Known known) {
    for (const LintFinding& finding : findings) Add(finding, known);
  }

  Json Take() { return std::move(results_); }

 private:
  void Add(const LintFinding& finding, Known known) {
    const LintRule& rule = RuleOf(finding.id);
    Json result{{"ruleId", rule.name},
                {"ruleIndex", static_cast<int>(finding.id)},
                {"level", LevelOf(rule.severity)},
                {"message", {{"text", finding.text + ' ' + rule.remedy}}},
                {"locations", Json::array({SarifLocation({finding.file, finding.place})})},
                {"partialFingerprints", {{"idFileCode/v1", FingerprintOf(finding)}}}};
    if (!finding.also.empty()) result["relatedLocations"] = ArrayOf(finding.also, SarifLocation);
    if (known == Known::Yes) result["suppressions"] = Json::array({{{"kind", "external"}}});
    results_.push_back(std::move(result));
  }

  std::string FingerprintOf(const LintFinding& finding) {
    const FindingKey key = KeyOf(finding);
    const auto& [id, file, code] = key;
    const std::size_t number = ++numbers_[key];
    return HashOf(fmt::format("{}\n{}\n{}\n{}", id, file, code, number));
  }

  Json results_ = Json::array();
  LintBaseline numbers_;
};

Json SarifInvocation(const LintResult& result) {
  Json invocation{{"executionSuccessful", !result.walkFailure}};
  if (result.walkFailure) {
    const std::string text = "The folder could not be read to its end: " + *result.walkFailure;
    const Json notification{{"level", "error"}, {"message", {{"text", text}}}};
    invocation["toolExecutionNotifications"] = Json::array({notification});
  }
  return invocation;
}

}  // namespace

std::string LintJson(const LintResult& result) {
  const LintCounts counts = CountBySeverity(result.findings);
  const auto nameOf = [](LintId id) { return RuleOf(id).name; };
  return JsonText({{"folder", result.settings.folder},
                   {"target", NameOf(result.settings.target)},
                   {"ignored", ArrayOf(result.settings.ignored, nameOf)},
                   {"files", result.files},
                   {"complete", !result.walkFailure},
                   {"errors", counts.errors},
                   {"warnings", counts.warnings},
                   {"infos", counts.infos},
                   {"findings", ArrayOf(result.findings, FindingObject)},
                   {"schemaVersion", schemaVersion},
                   {"only", ArrayOf(result.settings.only, nameOf)},
                   {"selectedFiles", result.settings.files},
                   {"summary", ArrayOf(CountById(result.findings), IdCountObject)},
                   {"known", ArrayOf(result.known, FindingObject)},
                   {"fixed", ArrayOf(result.fixed, FixedObject)}});
}

std::string LintSarif(const LintResult& result) {
  const Json driver{{"name", "querypackage-cli lint"},
                    {"version", QUERYPACKAGE_VERSION_STRING},
                    {"rules", ArrayOf(LintRules(), SarifRule)}};
  SarifResults results;
  results.Add(result.known, SarifResults::Known::Yes);
  results.Add(result.findings, SarifResults::Known::No);
  const Json run{
      {"tool", {{"driver", driver}}},
      {"invocations", Json::array({SarifInvocation(result)})},
      {"originalUriBaseIds", {{"PACKAGEFOLDER", {{"uri", FolderUri(result.settings.folder)}}}}},
      {"columnKind", "unicodeCodePoints"},
      {"results", results.Take()}};
  return JsonText({{"$schema",
                    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/"
                    "sarif-schema-2.1.0.json"},
                   {"version", "2.1.0"},
                   {"runs", Json::array({run})}});
}

}  // namespace Vornik::Cli
