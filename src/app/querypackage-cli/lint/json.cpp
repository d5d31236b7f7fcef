#include "lint/json.h"

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <nlohmann/json.hpp>
#include <string_view>

#include "QueryPackage.h"

namespace Vornik::Cli {

namespace {

using Json = nlohmann::ordered_json;

// Only ASCII; bytes that are not UTF-8 become U+FFFD.
std::string TextOf(const Json& document) {
  constexpr int indent = 2;
  constexpr bool asciiOnly = true;
  return document.dump(indent, ' ', asciiOnly, Json::error_handler_t::replace) + '\n';
}

Json FindingObject(const LintFinding& finding) {
  const LintRule& rule = RuleOf(finding.id);
  return {{"id", rule.name},
          {"severity", NameOf(rule.severity)},
          {"file", finding.file},
          {"line", finding.place.line},
          {"column", finding.place.column},
          {"text", finding.text},
          {"remedy", rule.remedy}};
}

Json IgnoredNames(const LintResult& result) {
  Json names = Json::array();
  for (const LintId id : result.settings.ignored) names.push_back(RuleOf(id).name);
  return names;
}

bool StandsInUri(char c) {
  constexpr std::string_view plain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  return plain.find(c) != std::string_view::npos;
}

std::string UriOf(std::string_view path) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string uri;
  for (const char c : path) {
    if (StandsInUri(c)) {
      uri += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    uri += '%';
    uri += digits[byte >> 4U];
    uri += digits[byte & 0xFU];
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

Json SarifRules() {
  Json rules = Json::array();
  for (const LintRule& rule : LintRules()) {
    rules.push_back({{"id", rule.name},
                     {"shortDescription", {{"text", rule.what}}},
                     {"help", {{"text", rule.remedy}}},
                     {"defaultConfiguration", {{"level", LevelOf(rule.severity)}}}});
  }
  return rules;
}

Json SarifLocation(const LintFinding& finding) {
  Json physical{
      {"artifactLocation", {{"uri", UriOf(finding.file)}, {"uriBaseId", "PACKAGEFOLDER"}}}};
  if (finding.place.line > 0) {
    physical["region"] = {{"startLine", finding.place.line}, {"startColumn", finding.place.column}};
  }
  return {{"physicalLocation", std::move(physical)}};
}

Json SarifResult(const LintFinding& finding) {
  const LintRule& rule = RuleOf(finding.id);
  return {{"ruleId", rule.name},
          {"ruleIndex", static_cast<int>(finding.id)},
          {"level", LevelOf(rule.severity)},
          {"message", {{"text", finding.text + ' ' + rule.remedy}}},
          {"locations", Json::array({SarifLocation(finding)})}};
}

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
  Json findings = Json::array();
  for (const LintFinding& finding : result.findings) findings.push_back(FindingObject(finding));
  const LintCounts counts = CountBySeverity(result.findings);
  return TextOf({{"folder", result.settings.folder},
                 {"target", NameOf(result.settings.target)},
                 {"ignored", IgnoredNames(result)},
                 {"files", result.files},
                 {"complete", !result.walkFailure},
                 {"errors", counts.errors},
                 {"warnings", counts.warnings},
                 {"infos", counts.infos},
                 {"findings", std::move(findings)}});
}

std::string LintSarif(const LintResult& result) {
  Json results = Json::array();
  for (const LintFinding& finding : result.findings) results.push_back(SarifResult(finding));
  const Json driver{{"name", "querypackage-cli lint"},
                    {"version", QUERYPACKAGE_VERSION_STRING},
                    {"rules", SarifRules()}};
  const Json run{
      {"tool", {{"driver", driver}}},
      {"invocations", Json::array({SarifInvocation(result)})},
      {"originalUriBaseIds", {{"PACKAGEFOLDER", {{"uri", FolderUri(result.settings.folder)}}}}},
      {"columnKind", "unicodeCodePoints"},
      {"results", std::move(results)}};
  return TextOf({{"$schema",
                  "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/"
                  "sarif-schema-2.1.0.json"},
                 {"version", "2.1.0"},
                 {"runs", Json::array({run})}});
}

}  // namespace Vornik::Cli
