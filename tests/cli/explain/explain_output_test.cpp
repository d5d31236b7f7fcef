// What "explain" takes, writes and ends with.
#include "explain/explain_fixture.h"
#include "explain/text.h"
#include "json_keys.h"
#include "unqueryable_folder.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class ExplainOutputTest : public ExplainTest {};

TEST_F(ExplainOutputTest, KeysHaveTheirOrder) {
  folder.Write("p.xml", Pack({PackItself("p.xml"),
                              Package("a").Set("xmlFilename", "a.xml").Set("driverFiles", {"x-#1"}),
                              Package("b")
                                  .Set("xmlFilename", "b.xml")
                                  .Set("driverFiles", {"x-#1"})
                                  .Set("supersede", {"a"})}));
  WritePackage("a");
  const Json document = ExplainJson("a");
  EXPECT_THAT(KeysOf(document),
              ElementsAre("schemaVersion", "query", "returnCode", "records", "packageId", "answer",
                          "folderChanged", "packages", "absence", "absenceWayOut", "warnings"));
  const Json& package = document["packages"][0];
  EXPECT_THAT(KeysOf(package),
              ElementsAre("identificationCode", "answer", "refusedBy", "undecidedBy", "otherCase",
                          "otherSpellings", "source", "filters", "repeats", "supersede", "wayOut"));
  EXPECT_THAT(KeysOf(package["source"]), ElementsAre("file", "isOwn", "text"));
  EXPECT_THAT(KeysOf(package["repeats"][0]),
              ElementsAre("packageXmlFile", "kovuXmlFile", "version"));
  std::vector<std::string> names;
  for (const Json& filter : package["filters"]) {
    names.push_back(filter["filter"]);
    EXPECT_THAT(KeysOf(filter),
                ElementsAre("filter", "slot", "status", "verdict", "runs", "reason", "text", "rule",
                            "file", "properties", "details", "log", "place"));
    EXPECT_NE(filter["rule"], "");
    EXPECT_NE(filter["text"], "");
  }
  EXPECT_THAT(names, ElementsAre("duplicate", "platform", "kovu", "sep", "payloadExist",
                                 "supersede", "includeId", "excludeId", "updateType"));
  const Json& chain = package["supersede"];
  EXPECT_THAT(KeysOf(chain),
              ElementsAre("listedBy", "lists", "listsUnknown", "groups", "leftOutByExcludeList",
                          "leftOutByPlatform", "listOverridden"));
  EXPECT_THAT(KeysOf(chain["listedBy"][0]), ElementsAre("code", "file", "spelling"));
  ASSERT_FALSE(chain["groups"].empty()) << "versions stand in the pack";
  EXPECT_THAT(KeysOf(chain["groups"][0]), ElementsAre("driverFiles", "ranking"));
  EXPECT_THAT(KeysOf(chain["groups"][0]["ranking"][0]),
              ElementsAre("code", "version", "comparedAs", "file", "isThis"));
  EXPECT_THAT(KeysOf(package["wayOut"]),
              ElementsAre("state", "code", "smallest", "searchEnded", "inTheRepository", "machines",
                          "machinesComplete", "repository"));
  const Json& repository = package["wayOut"]["repository"];
  EXPECT_THAT(KeysOf(repository),
              ElementsAre("state", "smallest", "sparing", "searchEnded", "text"));
  EXPECT_THAT(KeysOf(repository["smallest"][0]), ElementsAre("edits", "effects"));
  EXPECT_THAT(KeysOf(repository["smallest"][0]["edits"][0]),
              ElementsAre("kind", "file", "line", "property", "from", "to", "instance", "text"));
  EXPECT_THAT(KeysOf(repository["smallest"][0]["effects"]),
              ElementsAre("withdrawn", "offered", "machines", "complete"));
  EXPECT_THAT(KeysOf(package["wayOut"]["smallest"][0]), ElementsAre("changes", "arguments"));
  EXPECT_THAT(KeysOf(package["wayOut"]["smallest"][0]["changes"][0]),
              ElementsAre("setting", "from", "to", "text"));
  EXPECT_THAT(KeysOf(ExplainJson("p")["absence"][0]),
              ElementsAre("reason", "code", "file", "text", "remedy", "log"));
}

TEST_F(ExplainOutputTest, QueryAndRecordAreThoseOfQuery) {
  WritePackage("a");
  WritePackage("b");
  const Arguments more{"--update-type", "1", "--no-sep-filter", "--exclude", "b"};
  const Json explained = ExplainJson("a", more);
  const Json queried = QueryJson(more);
  EXPECT_EQ(explained["query"], queried["query"]);
  EXPECT_EQ(explained["returnCode"], 0);
  const Json& records = queried["records"];
  EXPECT_NE(std::find(records.begin(), records.end(), explained["records"][0]), records.end());
  EXPECT_EQ(explained["packageId"], "a");
}

TEST_F(ExplainOutputTest, TextHasAHeadlineABlockForEachFilterAndTheWayOut) {
  folder.Write("a.xml", Package("a").Set("Version", "2").Set("xmlFilename", "a.xml").Individual());
  const Outcome outcome = Explain("a", {"--no-kovu-filter", "--verbose"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  const auto lines = LinesOf(outcome.out);
  EXPECT_EQ(lines.front(), "a, version 2: REFUSED by payloadExist");
  EXPECT_EQ(lines[1], "  Descriptor: " + PathOf("a.xml"));
  for (const char* begin : {"  pass duplicate ", "  pass platform ", "  off  kovu ", "  pass sep ",
                            "  fail payloadExist ", "  pass supersede ", "  off  includeId ",
                            "  off  excludeId ", "  off  updateType "}) {
    EXPECT_THAT(lines, testing::Contains(StartsWith(begin)));
  }
  EXPECT_THAT(outcome.out, HasSubstr("        Rule: The names in \"xmlFilename\" and"));
  EXPECT_THAT(outcome.out, HasSubstr("        Read: payload: \"payload.exe\"\n"));
  EXPECT_THAT(outcome.out, HasSubstr("        In:   " + PathOf("a.xml") + "\n"));
  EXPECT_THAT(outcome.out, HasSubstr("        Log:  a PayloadExist Filter is not matched!\n"));
  EXPECT_THAT(outcome.out, HasSubstr("\nThe smallest change of the query that makes every filter "
                                     "match \"a\":\n  add --no-payload-exist-filter\n"
                                     "  In the repository: " +
                                     PathOf("payload.exe") + " is no regular file"));
  EXPECT_EQ(outcome.out.find('\x1b'), std::string::npos) << "no colour outside a terminal";
}

TEST(ExplanationTextTest, VerdictsAreColouredOnATerminal) {
  Cli::Explanation explanation;
  Cli::PackageExplanation& package = explanation.packages.emplace_back();
  package.answer = Cli::Answer::Refused;
  package.refusedBy = {Cli::FilterId::Sep};
  Cli::FilterExplanation& filter = package.filters.emplace_back();
  filter.filter = Cli::FilterId::Sep;
  filter.status = FilterStatus::Matched;
  EXPECT_THAT(Cli::ExplanationText(explanation, Cli::TextDetail::Full, true),
              testing::AllOf(StartsWith("(no code): \x1b[31mREFUSED\x1b[0m by sep\n"),
                             HasSubstr("\x1b[32mpass\x1b[0m sep")));
  EXPECT_EQ(Cli::ExplanationText(explanation, Cli::TextDetail::Full, false).find('\x1b'),
            std::string::npos);
}

TEST_F(ExplainOutputTest, TextOfTheOtherAnswers) {
  WritePackage("a");
  folder.Write("b.xml", Descriptor("b").Individual());
  folder.Write("c.XML", Package("c").Individual());
  EXPECT_THAT(Explain("a", {"--no-kovu-filter", "--verbose"}).out, StartsWith("a: OFFERED\n"));
  EXPECT_THAT(Explain("a", {"--no-kovu-filter", "--verbose"}).out,
              testing::EndsWith("\nEvery filter that runs matches: nothing has to change.\n"));
  EXPECT_THAT(Explain("b", {"--no-kovu-filter", "--no-payload-exist-filter", "--verbose"}).out,
              StartsWith("b: UNDECIDED: no verdict of platform\n"));
  EXPECT_THAT(Explain("b", {"--verbose"}).out,
              StartsWith("b: REFUSED by kovu, payloadExist; no verdict of platform\n"));
  EXPECT_THAT(Explain("b", {"--verbose"}).out,
              HasSubstr("\nNo other settings of the query make every filter match.\n"
                        "  In the repository: "));
  const std::string absent = Explain("c", {"--verbose"}).out;
  EXPECT_THAT(absent, StartsWith("c: NO PACKAGE\n"));
  EXPECT_THAT(absent, HasSubstr("        Do:   rename the file"));
  EXPECT_THAT(Explain("A").out, HasSubstr("\n  Asked for was \"A\", which has the same letters in "
                                          "another case.\n"));
}

TEST_F(ExplainOutputTest, ControlBytesOfDescriptorsAreEscaped) {
  const std::string code = "a\x1b[31m\x07";
  folder.Write("a.xml", Package(code)
                            .Set("Version", "\x1b]0;v\x07")
                            .Set("supersede", {"\x1b[2J"})
                            .For("\x1b[H", "10", "9")
                            .Individual());
  const Outcome outcome = Explain(code);
  EXPECT_EQ(outcome.status, 0);
  for (const char byte : outcome.out) EXPECT_TRUE(byte == '\n' || byte >= ' ') << outcome.out;
  EXPECT_THAT(outcome.out, StartsWith("a\\x1B[31m\\x07, version \\x1B]0;v\\x07: REFUSED"));
  const Outcome unknown = Explain("\x1b[2J");
  EXPECT_EQ(unknown.status, 1);
  EXPECT_EQ((unknown.out + unknown.err).find('\x1b'), std::string::npos);
}

TEST_F(ExplainOutputTest, BytesThatAreNotUtf8DoNotBreakTheDocument) {
  folder.Write("a.xml", Package("a").Set("description", "\xFF").Individual());
  EXPECT_EQ(ExplainJson("a")["records"][0]["description"], "\xEF\xBF\xBD");
#ifndef _WIN32  // where a command line is UTF-16 and cannot name such a package
  folder.Write("a.xml", Package("a\xFF").Individual());
  EXPECT_EQ(ExplainJson("a\xFF")["records"][0]["identificationCode"], "a\xEF\xBF\xBD");
#endif
}

TEST_F(ExplainOutputTest, IdIsTakenAsItStandsAndOnce) {
  for (const char* id : {"{}", "[x,y]", "-dash", "a b"}) {
    folder.Write("a.xml", Package(id).Individual());
    EXPECT_EQ(ExplainJson(id)["packages"][0]["identificationCode"], id);
  }
  for (const Arguments& arguments :
       {QueryArguments(), QueryArguments({"--package", "a", "--package", "b"}),
        QueryArguments({"--package"})}) {
    Arguments explain = arguments;
    explain.front() = "explain";
    const Outcome outcome = RunCli(explain);
    EXPECT_EQ(outcome.status, 64);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("--package"));
  }
  EXPECT_EQ(Query({"--package", "a"}).status, 64) << "not an option of query";
}

TEST_F(ExplainOutputTest, HelpNamesTheOptionAndTheStatus) {
  const Outcome outcome = RunCli({"explain", "--help"});
  EXPECT_EQ(outcome.status, 0);
  for (const char* part : {"--package", "--machine-type", "--trust", "\n  1 ", "explain"}) {
    EXPECT_THAT(outcome.out, HasSubstr(part));
  }
}

TEST_F(ExplainOutputTest, RefusedParametersEndAsInQuery) {
  for (const char* format : {"table", "json"}) {
    const Outcome outcome =
        RunCli({"explain", folder.Path(), "--machine-type", "12a4", "--os", "10", "--arch", "9",
                "--package", "a", "--log-level", "0", "--format", format});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, RunCli({"query", folder.Path(), "--machine-type", "12a4", "--os", "10",
                                   "--arch", "9"})
                               .err);
    if (format == std::string("table")) {
      EXPECT_EQ(outcome.out, "");
    } else {
      const Json document = Json::parse(outcome.out);
      EXPECT_EQ(document["answer"], "notRun");
      EXPECT_EQ(document["returnCode"], 2);
    }
  }
}

TEST_F(ExplainOutputTest, HazardIsRefusedAsInQuery) {
  WritePackage("a");
  folder.Write("p.xml", "<CIM><!-- ORXQDL_SystemUpdateProduct -->\n<INSTANCE A='1'/>\n</CIM>\n");
  const Outcome outcome = Explain("a");
  EXPECT_EQ(outcome.status, 65);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, HasSubstr(PathOf("p.xml") + ":2: "));
}

TEST_F(ExplainOutputTest, LogGoesWhereTheUserWantsIt) {
  WritePackage("a");
  folder.Write("notes.xml", "<a/>");
  const std::string record = "notes.xml is not a valid ORX xml";
  EXPECT_EQ(Explain("a", {"--log-level", "0"}).err, "");
  EXPECT_EQ(Explain("a").err, "");
  const Outcome errors = Explain("a", {"--log-level", "1"});
  EXPECT_EQ(LinesOf(errors.err).size(), 1U);
  EXPECT_THAT(errors.err, HasSubstr(" error src/module/querypackage/querypackageimp.cpp:"));
  EXPECT_THAT(errors.err, HasSubstr(record));
  EXPECT_THAT(Explain("a", {"--log-level", "3"}).err, HasSubstr("a Sep Filter is matched!"));

  TempFolder logs;
  const std::string file = logs.Path() + "/explain.log";
  EXPECT_EQ(Explain("a", {"--log-level", "1", "--log-file", file}).err, "");
  const std::string text = ReadFile(file);
  EXPECT_EQ(LinesOf(text).size(), 1U);
  EXPECT_THAT(text, HasSubstr(record));
  EXPECT_EQ(Explain("a", {"--log-file", logs.Path()}).status, 64);
}

TEST_F(ExplainOutputTest, ExceptionEndsWith70) {
  const Outcome outcome = RunCli({"explain", UnqueryableFolder(), "--machine-type", "1234", "--os",
                                  "10", "--arch", "9", "--package", "a"});
  EXPECT_EQ(outcome.status, 70);
  EXPECT_THAT(outcome.err, StartsWith("querypackage-cli: the query ended with an exception, "));
}

}  // namespace
}  // namespace Vornik::Testing
