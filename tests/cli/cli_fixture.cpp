#include "cli_fixture.h"

#include <algorithm>

#include <boost/filesystem/path.hpp>
#include <stdexcept>

namespace Vornik::Testing {

Cli::QuerySettings SettingsFor(const std::string& folder) {
  Cli::QuerySettings settings;
  settings.folder = folder;
  settings.machineType = "1234";
  settings.osValue = static_cast<OsValue>(10);
  settings.arcValue = static_cast<ArcValue>(9);
  return settings;
}

void ExpectUsageError(const Arguments& arguments, const std::string& says) {
  const Outcome outcome = RunCli(arguments);
  SCOPED_TRACE(testing::PrintToString(arguments));
  EXPECT_EQ(outcome.status, 64);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(LinesOf(outcome.err).size(), 1U);
  EXPECT_THAT(outcome.err, testing::StartsWith("querypackage-cli: "));
  EXPECT_THAT(outcome.err, testing::HasSubstr(says));
  EXPECT_THAT(outcome.err, testing::EndsWith("see \"querypackage-cli --help\"\n"));
}

Arguments CliTest::QueryArguments(const Arguments& more) {
  Arguments arguments{"query", folder.Path(), "--machine-type", "1234",
                      "--os",  "10",          "--arch",         "9"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return arguments;
}

Outcome CliTest::Query(const Arguments& more, const Variables& variables) {
  return RunCli(QueryArguments(more), variables);
}

Json CliTest::QueryJson(const Arguments& more, int code) {
  Arguments arguments{"--format", "json"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  const Outcome outcome = Query(arguments);
  EXPECT_EQ(outcome.status, code) << outcome.err;
  Json document = Json::parse(outcome.out, nullptr, false);
  if (document.is_discarded()) throw std::runtime_error("no JSON document: " + outcome.out);
  EXPECT_EQ(document["returnCode"], code);
  return document;
}

void CliTest::WritePackage(const std::string& code) {
  folder.Write(code + ".xml", Package(code).Set("xmlFilename", code + ".xml").Individual());
  folder.Write("payload.exe", "x");
}

std::string CliTest::PathOf(const std::string& name) const {
  constexpr char separator = static_cast<char>(boost::filesystem::path::preferred_separator);
  return folder.Path() + separator + name;
}

Descriptor Package(const std::string& code) {
  return Descriptor(code).For("1234", "10", "9").Set("payload", "payload.exe").Set("type", "1");
}

Descriptor PackItself(const std::string& fileName, const std::string& version) {
  return Descriptor("pack")
      .Set("xmlFilename", fileName)
      .Set("Version", version)
      .Set("applicableMachineTypes", {"1234"})
      .Set("applicableOperatingSystems", {"0"});
}

std::string InLogLine(std::string text) {
  for (std::size_t at = 0; (at = text.find('\\', at)) != std::string::npos; at += 2) {
    text.insert(at, 1, '\\');
  }
  return text;
}

std::vector<std::string> CodesOf(const Json& document) {
  std::vector<std::string> codes;
  for (const Json& record : document.at("records")) {
    codes.push_back(record.at("identificationCode").get<std::string>());
  }
  return codes;
}

std::string LineOf(const std::string& text, const std::string& word, int n) {
  std::size_t at = 0;
  for (std::size_t from = 0; n > 0; --n, from = at + 1) at = text.find(word, from);
  const auto end = text.begin() + static_cast<std::ptrdiff_t>(at);
  return std::to_string(std::count(text.begin(), end, '\n') + 1);
}

}  // namespace Vornik::Testing
