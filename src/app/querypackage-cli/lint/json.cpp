#include "lint/json.h"

#include <fmt/format.h>

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <string_view>

#include "QueryPackage.h"
#include "output/json.h"

namespace Vornik::Cli {

namespace {

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
          {"defaultConfiguration", {{"level", LevelOf(rule.severity)}}}};
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
  const LintCounts counts = CountBySeverity(result.findings);
  return JsonText(
      {{"folder", result.settings.folder},
       {"target", NameOf(result.settings.target)},
       {"ignored", ArrayOf(result.settings.ignored, [](LintId id) { return RuleOf(id).name; })},
       {"files", result.files},
       {"complete", !result.walkFailure},
       {"errors", counts.errors},
       {"warnings", counts.warnings},
       {"infos", counts.infos},
       {"findings", ArrayOf(result.findings, FindingObject)}});
}

std::string LintSarif(const LintResult& result) {
  const Json driver{{"name", "querypackage-cli lint"},
                    {"version", QUERYPACKAGE_VERSION_STRING},
                    {"rules", ArrayOf(LintRules(), SarifRule)}};
  const Json run{
      {"tool", {{"driver", driver}}},
      {"invocations", Json::array({SarifInvocation(result)})},
      {"originalUriBaseIds", {{"PACKAGEFOLDER", {{"uri", FolderUri(result.settings.folder)}}}}},
      {"columnKind", "unicodeCodePoints"},
      {"results", ArrayOf(result.findings, SarifResult)}};
  return JsonText({{"$schema",
                    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/"
                    "sarif-schema-2.1.0.json"},
                   {"version", "2.1.0"},
                   {"runs", Json::array({run})}});
}

}  // namespace Vornik::Cli
