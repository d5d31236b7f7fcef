// The columns, the order and the formats of a query's answer.
#include <algorithm>
#include <sstream>

#include "cli_fixture.h"
#include "json_keys.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class QueryOutputTest : public CliTest {
 protected:
  // Offered, refused by the Sep filter, and undecided for its type, as the query has them.
  void WriteThreePackages() {
    WritePackage("a");
    WritePackage("orx_utl_sep");
    folder.Write("z.xml", Descriptor("z")
                              .For("1234", "10", "9")
                              .Set("xmlFilename", "z.xml")
                              .Set("payload", "payload.exe")
                              .Set("Version", "0.9")
                              .Individual());
  }

  Arguments TypedQuery(const Arguments& more) {
    Arguments arguments{"--no-kovu-filter", "--update-type", "1", "--log-level", "0"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
  }

  std::vector<std::string> Lines(const Arguments& more) {
    return LinesOf(Query(TypedQuery(more)).out);
  }
};

std::vector<std::string> WordsOf(const std::string& line) {
  std::istringstream stream(line);
  return {std::istream_iterator<std::string>(stream), std::istream_iterator<std::string>()};
}

TEST_F(QueryOutputTest, OfferedIsYesNoOrUndecided) {
  WriteThreePackages();
  const auto lines = Lines({"--sort", "offered"});
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_THAT(lines[0], EndsWith("  OFFERED"));
  EXPECT_THAT(lines[1], testing::AllOf(StartsWith("a "), EndsWith("  yes")));
  EXPECT_THAT(lines[2], testing::AllOf(StartsWith("z "), EndsWith("  undecided")));
  EXPECT_THAT(lines[3], testing::AllOf(StartsWith("orx_utl_sep "), EndsWith("  no")));
  EXPECT_THAT(lines[5], StartsWith("3 packages: 1 offered, 1 refused, 1 undecided. "));
}

TEST_F(QueryOutputTest, FilterThatIsOffHasNoColumn) {
  WritePackage("a");
  EXPECT_THAT(
      WordsOf(LinesOf(Query({"--no-kovu-filter", "--no-sep-filter"}).out)[0]),
      ElementsAre("CODE", "VERSION", "PACK", "PLATFORM", "PAYLOAD", "SUPERSEDE", "OFFERED"));
  EXPECT_THAT(WordsOf(LinesOf(Query({"--no-kovu-filter", "--update-type", "1"}).out)[0]),
              ElementsAre("CODE", "VERSION", "PACK", "PLATFORM", "SEP", "PAYLOAD", "SUPERSEDE",
                          "TYPE", "OFFERED"));
}

TEST_F(QueryOutputTest, WideTableNamesTheFiltersThatRefuse) {
  WriteThreePackages();
  WritePackage("a-code-that-makes-the-table-wider-than-eighty-characters");
  const auto lines = Lines({"--include", "a", "--include", "z", "--sort", "code"});
  EXPECT_THAT(lines[0], EndsWith("  REFUSED BY    OFFERED"));
  EXPECT_THAT(lines[1], EndsWith("  -             yes"));
  EXPECT_THAT(lines[2], EndsWith("  include       no"));
  EXPECT_THAT(lines[3], EndsWith("  sep, include  no"));
  EXPECT_THAT(lines[4], EndsWith("  none: type    undecided"));
  EXPECT_THAT(lines[0], Not(HasSubstr("PLATFORM")));
}

TEST_F(QueryOutputTest, TableFitsEightyCharactersOrNamesTheFilters) {
  for (std::size_t length = 1; length < 46; length += 3) {
    SCOPED_TRACE(length);
    TempFolder other;
    other.Write("a.xml", Package(std::string(length, 'x')).Individual());
    const Outcome outcome = RunCli({"query", other.Path(), "--machine-type", "1234", "--os", "10",
                                    "--arch", "9", "--log-level", "0"});
    const std::string heading = LinesOf(outcome.out)[0];
    EXPECT_NE(heading.find("PLATFORM") == std::string::npos,
              heading.find("REFUSED BY") == std::string::npos);
    EXPECT_LE(heading.size(), 80U);
  }
}

TEST_F(QueryOutputTest, ColumnsAreThoseThatAreNamed) {
  WriteThreePackages();
  const auto lines = Lines({"--columns", "offered,code,file,type,includeId", "--sort", "code"});
  EXPECT_THAT(WordsOf(lines[0]), ElementsAre("OFFERED", "CODE", "FILE", "TYPE", "INCLUDE"));
  EXPECT_THAT(WordsOf(lines[1]), ElementsAre("yes", "a", "a.xml", "1", "off"));
  EXPECT_THAT(WordsOf(lines[3]), ElementsAre("undecided", "z", "z.xml", "-", "off"));
}

TEST_F(QueryOutputTest, WrongColumnsAreNamed) {
  WritePackage("a");
  for (const char* option : {"--columns", "--sort"}) {
    const Outcome outcome = Query({option, "offerd"});
    EXPECT_EQ(outcome.status, 64);
    EXPECT_THAT(outcome.err, HasSubstr(option));
    EXPECT_THAT(outcome.err, HasSubstr("\"offerd\" is not a column; did you mean \"offered\"?"));
  }
  EXPECT_THAT(Query({"--sort", "?"}).err, HasSubstr("code, version, type, pack, file, platform"));
  EXPECT_EQ(Query({"--columns", ""}).status, 64);
  EXPECT_EQ(Query({"--columns", "code,"}).status, 0);
  EXPECT_EQ(Query({"--columns", "code", "--format", "json"}).status, 64);
  EXPECT_EQ(Query({"--columns", "code", "--format", "jsonl"}).status, 64);
}

TEST_F(QueryOutputTest, SortKeepsEqualOnesInTheirOrder) {
  for (const char* code : {"d", "b", "a", "c"}) WritePackage(code);
  EXPECT_EQ(CodesOf(QueryJson({"--sort", "version"})), CodesOf(QueryJson()));
  EXPECT_THAT(CodesOf(QueryJson({"--sort", "code"})), ElementsAre("a", "b", "c", "d"));
}

TEST_F(QueryOutputTest, OfferedLeavesOutTheOthersEverywhere) {
  WriteThreePackages();
  const auto lines = Lines({"--offered"});
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_THAT(lines[1], StartsWith("a "));
  EXPECT_THAT(lines[3], StartsWith("3 packages: 1 offered, 1 refused, 1 undecided. "));
  const Json document = QueryJson(TypedQuery({"--offered"}));
  EXPECT_THAT(CodesOf(document), ElementsAre("a"));
  EXPECT_EQ(document["answers"], Json({"offered"}));
  EXPECT_EQ(Lines({"--offered", "--format", "jsonl"}).size(), 1U);
  EXPECT_EQ(Lines({"--offered", "--format", "csv"}).size(), 2U);
}

TEST_F(QueryOutputTest, AnswersAreInTheOrderOfTheRecords) {
  WriteThreePackages();
  const Json document = QueryJson(TypedQuery({"--sort", "code"}));
  EXPECT_THAT(CodesOf(document), ElementsAre("a", "orx_utl_sep", "z"));
  EXPECT_EQ(document["answers"], Json({"offered", "refused", "undecided"}));
}

TEST_F(QueryOutputTest, JsonLinesHasARecordInEachLine) {
  WriteThreePackages();
  const Json records = QueryJson(TypedQuery({"--sort", "code"}))["records"];
  const auto lines = Lines({"--format", "jsonl", "--sort", "code"});
  ASSERT_EQ(lines.size(), 3U);
  const char* answers[] = {"offered", "refused", "undecided"};
  for (std::size_t i = 0; i != 3; ++i) {
    Json line = Json::parse(lines[i]);
    EXPECT_EQ(line["answer"], answers[i]);
    line.erase("answer");
    EXPECT_EQ(line, records[i]);
  }
}

TEST_F(QueryOutputTest, CsvHasTheNamesOfTheColumnsAndTextsAsTheyAre) {
  folder.Write("a.xml", Package("a, \"b\"").Set("Version", "\xC2\x9B").Individual());
  EXPECT_EQ(Query({"--format", "csv", "--no-kovu-filter", "--no-payload-exist-filter"}).out,
            "code,version,pack,platform,sep,supersede,offered\n"
            "\"a, \"\"b\"\"\",\xC2\x9B,,pass,pass,pass,yes\n");
  EXPECT_EQ(Query({"--format", "csv", "--columns", "file,refusedBy"}).out,
            "file,refusedBy\na.xml,\"kovu, payload\"\n");
}

TEST_F(QueryOutputTest, OtherFormatsPrintNothingWithoutAResult) {
  for (const char* format : {"table", "csv", "jsonl"}) {
    const Outcome outcome = Query({"--format", format});
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.out, "");
  }
}

TEST_F(QueryOutputTest, QuietPrintsTheResultAlone) {
  WritePackage("a");
  const Outcome outcome = Query({"--quiet", "--include", "b"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(LinesOf(outcome.out).size(), 2U);
  EXPECT_EQ(outcome.err, "");
}

TEST_F(QueryOutputTest, HazardHasADocument) {
  folder.Write(
      "hangs.xml",
      "<CIM><!-- ORXQDL_SystemUpdateProduct -->\n<INSTANCE NAME='x' CLASSNAME='c'/></CIM>");
  const Outcome outcome = Query({"--format", "json"});
  EXPECT_EQ(outcome.status, 65);
  const Json document = Json::parse(outcome.out);
  EXPECT_THAT(KeysOf(document), ElementsAre("schemaVersion", "query", "returnCode", "records",
                                            "answers", "pack", "packText", "warnings", "hazard"));
  EXPECT_EQ(document["returnCode"], Json());
  EXPECT_EQ(document["records"], Json::array());
  EXPECT_EQ(document["hazard"]["file"], PathOf("hangs.xml"));
  EXPECT_EQ(document["hazard"]["line"], 2);
  EXPECT_EQ(LinesOf(outcome.err).size(), 1U);
  EXPECT_THAT(outcome.err, HasSubstr(document["hazard"]["text"].get<std::string>()));
}

}  // namespace
}  // namespace Vornik::Testing
