// What lint writes: text, JSON and SARIF.
#include <algorithm>

#include "json_keys.h"
#include "lint/json.h"
#include "lint/lint_fixture.h"
#include "lint/report.h"
#include "lint/rules.h"
#include "project_file.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class LintOutputTest : public LintTest {
 protected:
  // A finding with a place, and one of a whole file.
  void WriteTwo() {
    text_ = PutValue(SoundText("a"), "type", "x");
    WriteFiles(PackageFiles("a", text_) + LintFiles{{"b.xml", "<a/>"}});
  }

  std::string TypePlace() const { return ValueOf(text_, "type"); }

 private:
  std::string text_;
};

constexpr const char* typeText = "This is no number: \"type\", \"x\", reads as 0.";
constexpr const char* typeRemedy = "Write the update type as a decimal number.";

TEST_F(LintOutputTest, TextHasTwoLinesForEachFindingAndAClosingOne) {
  WriteTwo();
  EXPECT_EQ(Lint().out,
            PathOf("a.xml") + ":" + TypePlace() + ": error: " + typeText +
                " [type-not-number]\n    " + typeRemedy + "\n" + PathOf("b.xml") +
                ": warning: The file holds neither \"ORXQDL_SystemUpdateProduct\" nor "
                "\"SystemUpdateElement\", so it is no descriptor. [no-marker]\n    Give the "
                "INSTANCE the class name of its kind, or move the file away.\n"
                "no-marker: 1 warning\ntype-not-number: 1 error\n"
                "1 error, 1 warning, 0 infos in 2 descriptor files" +
                ReadAs("windows") + ".\n");
}

TEST_F(LintOutputTest, JsonHasItsKeysInOrder) {
  WriteTwo();
  const Json document = LintJson();
  EXPECT_THAT(KeysOf(document),
              ElementsAre("folder", "target", "ignored", "files", "complete", "errors", "warnings",
                          "infos", "findings", "schemaVersion", "only", "selectedFiles", "summary",
                          "known", "fixed"));
  EXPECT_EQ(document["schemaVersion"], 2);
  EXPECT_EQ(document["summary"],
            Json::parse(R"([{"id": "no-marker", "severity": "warning", "count": 1},
                            {"id": "type-not-number", "severity": "error", "count": 1}])"));
  EXPECT_EQ(document["folder"], folder.Path());
  EXPECT_EQ(document["target"], "windows");
  EXPECT_EQ(document["ignored"], Json::array());
  EXPECT_EQ(document["files"], 2);
  EXPECT_EQ(document["complete"], true);
  EXPECT_EQ(document["errors"], 1);
  EXPECT_EQ(document["warnings"], 1);
  EXPECT_EQ(document["infos"], 0);
  ASSERT_EQ(document["findings"].size(), 2U);
  const Json& finding = document["findings"][0];
  const std::string place = TypePlace();
  EXPECT_EQ(finding.dump(), Json({{"id", "type-not-number"},
                                  {"severity", "error"},
                                  {"file", "a.xml"},
                                  {"line", std::stoi(place)},
                                  {"column", std::stoi(place.substr(place.find(':') + 1))},
                                  {"text", typeText},
                                  {"remedy", typeRemedy},
                                  {"code", "a"},
                                  {"also", Json::array()}})
                                .dump());
  EXPECT_EQ(document["findings"][1]["line"], 0);
}

TEST_F(LintOutputTest, CountsAreOfEachSeverity) {
  WriteTwo();
  folder.Write("a.xml", PutValue(SoundText("a"), "type", "1 x"));
  EXPECT_EQ(LintJson()["infos"], 1);
  EXPECT_EQ(LintJson({"--target", "posix"})["target"], "posix");
}

TEST_F(LintOutputTest, SarifNamesRulesResultsAndPlaces) {
  WriteTwo();
  const Json log = Json::parse(Lint({"--format", "sarif"}).out);
  EXPECT_EQ(log["version"], "2.1.0");
  EXPECT_THAT(log["$schema"].get<std::string>(), HasSubstr("sarif-schema-2.1.0.json"));
  ASSERT_EQ(log["runs"].size(), 1U);
  const Json& run = log["runs"][0];
  EXPECT_EQ(run["columnKind"], "unicodeCodePoints");
  EXPECT_EQ(run["invocations"].dump(), R"([{"executionSuccessful":true}])");
  const Json& driver = run["tool"]["driver"];
  EXPECT_EQ(driver["name"], "querypackage-cli lint");
  ASSERT_EQ(driver["rules"].size(), Cli::LintRules().size());
  const std::string base = run["originalUriBaseIds"]["PACKAGEFOLDER"]["uri"];
  EXPECT_EQ(base.substr(0, 8), "file:///");
  EXPECT_EQ(base.back(), '/');

  ASSERT_EQ(run["results"].size(), 2U);
  const Json& placed = run["results"][0];
  EXPECT_EQ(placed["ruleId"], "type-not-number");
  EXPECT_EQ(placed["level"], "error");
  EXPECT_EQ(placed["message"]["text"], std::string(typeText) + " " + typeRemedy);
  const Json& physical = placed["locations"][0]["physicalLocation"];
  EXPECT_EQ(physical["artifactLocation"]["uri"], "a.xml");
  EXPECT_EQ(physical["artifactLocation"]["uriBaseId"], "PACKAGEFOLDER");
  EXPECT_EQ(physical["region"]["startLine"].dump() + ":" + physical["region"]["startColumn"].dump(),
            TypePlace());
  EXPECT_FALSE(run["results"][1]["locations"][0]["physicalLocation"].contains("region"))
      << "a line of 0 is no line of SARIF";
}

#ifndef _WIN32
// Of the whole document: the members of each object, their types, URIs and levels.
void ExpectValid(const std::string& schema, const std::string& text) {
  const TempFolder work;
  const Outcome outcome =
      RunProgram("/usr/bin/env", {"python3", ProjectFile("tests/cli/validate_json.py"),
                                  ProjectFile(schema), work.Write("document.json", text)});
  EXPECT_EQ(outcome.status, 0) << outcome.out << outcome.err;
}
#else
// Python is no program for Windows here; the document is the same.
void ExpectValid(const std::string& /*schema*/, const std::string& /*text*/) {}
#endif

void ExpectValidSarif(const std::string& text) {
  ExpectValid("tests/cli/lint/sarif.schema.json", text);
}

void ExpectValidJson(const std::string& text) {
  ExpectValid("share/querypackage/schemas/lint.schema.json", text);
}

TEST_F(LintOutputTest, JsonOfEveryFindingIsValid) {
  ExpectValidJson(Lint({"--format", "json"}).out);
  for (const LintCase& one : AllLintCases()) WriteFiles(one.faulty);
  const TempFolder work;
  const std::string baseline = work.Write("baseline.json", "");
  Lint({"--only", "payload-missing", "--write-baseline", baseline});
  boost::filesystem::remove(boost::filesystem::path(folder.Path()) / "payload-missing.xml");
  for (const char* target : {"windows", "posix"}) {
    ExpectValidJson(Lint({"--format", "json", "--target", target}).out);
  }
  const Outcome outcome = Lint({"--format", "json", "--baseline", baseline, "--ignore", "utf-16"});
  ExpectValidSarif(Lint({"--format", "sarif", "--baseline", baseline}).out);
  EXPECT_FALSE(Json::parse(outcome.out)["known"].empty());
  EXPECT_FALSE(Json::parse(outcome.out)["fixed"].empty());
  ExpectValidJson(outcome.out);
}

TEST_F(LintOutputTest, DocumentsSayWhenTheFolderWasNotReadToItsEnd) {
  Cli::LintResult result;
  result.walkFailure = "Input/output error";
  EXPECT_EQ(Json::parse(Cli::LintJson(result))["complete"], false);
  ExpectValidSarif(Cli::LintSarif(result));
  const Json invocations = Json::parse(Cli::LintSarif(result))["runs"][0]["invocations"];
  ASSERT_EQ(invocations.size(), 1U);
  EXPECT_EQ(invocations[0]["executionSuccessful"], false);
  const Json& notifications = invocations[0]["toolExecutionNotifications"];
  ASSERT_EQ(notifications.size(), 1U);
  EXPECT_EQ(notifications[0]["level"], "error");
  EXPECT_EQ(notifications[0]["message"]["text"],
            "The folder could not be read to its end: Input/output error");
}

// What no schema can check: rules and results fit together.
void ExpectSoundSarif(const Json& log) {
  const Json& rules = log["runs"][0]["tool"]["driver"]["rules"];
  std::set<std::string> ids;
  for (const Json& rule : rules) {
    EXPECT_TRUE(ids.insert(rule["id"]).second);
  }
  for (const Json& result : log["runs"][0]["results"]) {
    const Json& rule = rules.at(result["ruleIndex"].get<std::size_t>());
    EXPECT_EQ(rule["id"], result["ruleId"]);
    EXPECT_EQ(rule["defaultConfiguration"]["level"], result["level"]);
  }
}

TEST_F(LintOutputTest, SarifOfEveryFindingIsSound) {
  for (const LintCase& one : AllLintCases()) WriteFiles(one.faulty);
  for (const char* target : {"windows", "posix"}) {
    const std::string text = Lint({"--format", "sarif", "--target", target}).out;
    ExpectValidSarif(text);
    const Json log = Json::parse(text);
    EXPECT_GE(log["runs"][0]["results"].size(), 50U);
    ExpectSoundSarif(log);
  }
}

TEST_F(LintOutputTest, FindingsAreOrderedByFileLineColumnAndId) {
  for (const LintCase& one : AllLintCases()) WriteFiles(one.faulty);
  const Json document = LintJson();
  const auto key = [](const Json& finding) {
    return std::make_tuple(finding["file"].get<std::string>(), finding["line"].get<int>(),
                           finding["column"].get<int>(), finding["id"].get<std::string>());
  };
  const Json& findings = document["findings"];
  for (std::size_t i = 1; i < findings.size(); ++i) {
    EXPECT_LE(key(findings[i - 1]), key(findings[i]));
  }
  EXPECT_EQ(document, LintJson());
}

#ifndef _WIN32
TEST_F(LintOutputTest, NamesAndTextsCannotSteerATerminal) {
  const std::string name = "x\x1b[31m\n.xml";
  folder.Write(name, PutValue(SoundText("a"), "type", "\xE2\x80\xAE\xFF"));
  const std::string out = Lint().out;
  EXPECT_THAT(out, HasSubstr("x\\x1B[31m\\x0A.xml"));
  EXPECT_THAT(out, HasSubstr("\\xE2\\x80\\xAE\\xFF"));
  EXPECT_THAT(out, Not(HasSubstr("\x1b")));
  const Outcome json = Lint({"--format", "json"});
  EXPECT_TRUE(std::all_of(json.out.begin(), json.out.end(),
                          [](char c) { return static_cast<unsigned char>(c) < 0x80U; }));
  EXPECT_EQ(Json::parse(json.out)["findings"][0]["file"], name);
  const std::string sarif = Lint({"--format", "sarif"}).out;
  ExpectValidSarif(sarif);
  const Json log = Json::parse(sarif);
  EXPECT_EQ(
      log["runs"][0]["results"][0]["locations"][0]["physicalLocation"]["artifactLocation"]["uri"],
      "x%1B%5B31m%0A.xml");
}
#endif

TEST_F(LintOutputTest, ManyFindingsOfAFileAreCounted) {
  std::string values;
  for (std::size_t i = 0; i < Cli::LintReport::mostPerFile + 20; ++i) values += "<VALUE/>\n";
  const std::string list = "<VALUE.ARRAY><VALUE>10</VALUE>" + values + "</VALUE.ARRAY>";
  WriteFiles(PackageFiles("a", Put(SoundText("a"), "orderedOSList", list)) +
             PackageFiles("b", Put(SoundText("b"), "description",
                                   "<VALUE>" + std::string(120, '&') + "</VALUE>")));
  const Json document = LintJson();
  EXPECT_EQ(PlacesIn(document, "value-empty").size(), 100U);
  EXPECT_EQ(PlacesIn(document, "ampersand-lost").size(), 100U);
  std::vector<std::string> last;
  for (const Json& finding : document["findings"]) {
    if (finding["text"].get<std::string>().find(" more of these") != std::string::npos) {
      last.push_back(finding["text"]);
    }
  }
  EXPECT_THAT(last, ElementsAre(testing::EndsWith("(There are 20 more of these in the file.)"),
                                testing::EndsWith("(There are 20 more of these in the file.)")));
}

}  // namespace
}  // namespace Vornik::Testing
