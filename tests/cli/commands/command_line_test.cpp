// What the command line takes and refuses.
#include "QueryPackage.h"
#include "cli_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class CommandLineTest : public CliTest {};

TEST_F(CommandLineTest, HelpNamesEveryOptionAndExitStatus) {
  for (const Arguments& arguments : {Arguments{"--help"}, {"-h"}, {"query", "--help"}}) {
    const Outcome outcome = RunCli(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    for (const char* part : {"FOLDER",
                             "--machine-type",
                             "--os",
                             "--arch",
                             "--update-type",
                             "--include",
                             "--exclude",
                             "--no-kovu-filter",
                             "--no-sep-filter",
                             "--no-payload-exist-filter",
                             "--no-supersede-filter",
                             "--format",
                             "--log-level",
                             "--log-file",
                             "--trust",
                             "--help",
                             "\n  0 ",
                             "\n  2 ",
                             "\n  3 ",
                             "\n  4 ",
                             "\n  64 ",
                             "\n  65 ",
                             "\n  70 ",
                             "\n  74 ",
                             "NO_COLOR",
                             "Examples:\n  querypackage-cli query "}) {
      EXPECT_THAT(outcome.out, HasSubstr(part)) << arguments.back();
    }
  }
  EXPECT_THAT(RunCli({"--help"}).out, HasSubstr("--version"));
}

TEST_F(CommandLineTest, EachSubcommandHasItsOwnHelp) {
  const struct {
    const char* subcommand;
    std::vector<const char*> statuses;
    const char* foreign;  // which another subcommand has
  } cases[] = {
      {"list", {"0", "2", "3", "4", "64", "70", "74"}, "\n  65 "},
      {"query", {"0", "2", "3", "4", "64", "65", "70", "74"}, "\n  71 "},
      {"matrix", {"0", "1", "2", "3", "4", "64", "65", "70", "74"}, "\n  71 "},
      {"explain", {"0", "1", "2", "3", "64", "65", "70", "71", "74"}, "\n  4 "},
      {"lint", {"0", "1", "2", "3", "64", "70", "74"}, "\n  65 "},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.subcommand);
    const std::string help = RunCli({one.subcommand, "--help"}).out;
    EXPECT_EQ(RunCli({"help", one.subcommand}).out, help);
    EXPECT_THAT(help, HasSubstr("Usage: querypackage-cli " + std::string(one.subcommand) + ' '));
    for (const char* status : one.statuses) {
      EXPECT_THAT(help, HasSubstr("\n  " + std::string(status) + "  "));
    }
    EXPECT_THAT(help, testing::Not(HasSubstr(one.foreign)));
    const auto lines = LinesOf(help.substr(help.find("\nExamples:\n") + 1));
    ASSERT_EQ(lines.size(), 3U) << help;
    const std::string start = "  querypackage-cli " + std::string(one.subcommand) + ' ';
    EXPECT_THAT(lines[1], StartsWith(start));
    EXPECT_THAT(lines[2], StartsWith(start));
  }
  EXPECT_EQ(RunCli({"help"}).out, RunCli({"--help"}).out);
}

TEST_F(CommandLineTest, VersionIsThatOfTheHeader) {
  const Outcome outcome = RunCli({"--version"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "querypackage " QUERYPACKAGE_VERSION_STRING "\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(CommandLineTest, WrongOrIncompleteLinesAreRefused) {
  const Arguments platform{"--machine-type", "1234", "--os", "10", "--arch", "9"};
  const auto query = [&](const Arguments& more) {
    Arguments arguments{"query"};
    arguments.insert(arguments.end(), platform.begin(), platform.end());
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
  };
  const struct {
    Arguments arguments;
    const char* says;
  } cases[] = {
      {{}, "subcommand"},
      {{"enquire"}, "\"enquire\" is not a subcommand (list, query, matrix, explain, lint, check);"},
      {{"qeury"},
       "\"qeury\" is not a subcommand (list, query, matrix, explain, lint, check); did you mean "
       "\"query\"?"},
      {{"help", "explian"}, "did you mean \"explain\"?"},
      {{"--os", "10"}, "\"--os\" has to follow a subcommand"},
      {{"--versoin"}, "did you mean \"--version\"?"},
      {query({"folder", "--no-kovu"}), "\"--no-kovu\" is not an option of query;"},
      {{"query", "folder", "--machine-typ", "1234", "--os", "10", "--arch", "9"},
       "\"--machine-typ\" is not an option of query; did you mean \"--machine-type\"?"},
      {{"query", "folder", "--machine_type=1234", "--os", "10", "--arch", "9"},
       "\"--machine_type\" is not an option of query; did you mean \"--machine-type\"?"},
      {query({"folder", "other"}), "\"other\" is one argument too many for query"},
      {{"list", "folder", "--formt", "csv"}, "did you mean \"--format\"?"},
      {{"query", "folder", "--machine-type", "1234", "--os", "ten", "--arch", "9"},
       "\"ten\" is not a whole number from 1 to 4294967295"},
      {{"query", "folder", "--machine-type", "1234", "--os", "0", "--arch", "9"},
       "\"0\" is not a whole number from 1 to 4294967295"},
      {{"query", "folder", "--machine-type", "1234", "--os", "10", "--arch", "0"},
       "--arch: \"0\" is not a whole number from 1 to 4294967295"},
      {query({}), "FOLDER"},
      {query({"folder", "other"}), "other"},
      {query({"folder", "--wrong"}), "--wrong"},
      {query({"folder", "--no-kovu"}), "--no-kovu"},
      {query({"folder", "--os", "11"}), "--os"},
      {query({"folder", "--format", "xml"}), "--format"},
      {query({"folder", "--format", "JSON"}), "--format"},
      {query({"folder", "--log-level", "4"}), "--log-level"},
      {query({"folder", "--log-level", "-1"}), "--log-level"},
      {query({"folder", "--log-level", "all"}), "--log-level"},
      {query({"folder", "--log-file"}), "--log-file"},
      {query({"folder", "--include"}), "--include"},
      {query({"folder", "--update-type", "2147483648"}), "--update-type"},
      {query({"folder", "--update-type", "-2147483649"}), "--update-type"},
      {query({"folder", "--update-type", "1x"}), "--update-type"},
      {query({"folder", "--update-type", ""}), "--update-type"},
      {{"query", "folder", "--os", "10", "--arch", "9"}, "--machine-type"},
      {{"query", "folder", "--machine-type", "1234", "--arch", "9"}, "--os"},
      {{"query", "folder", "--machine-type", "1234", "--os", "10"}, "--arch"},
      {{"query", "folder", "--machine-type", "1234", "--os", "4294967296", "--arch", "9"}, "--os"},
      {{"query", "folder", "--machine-type", "1234", "--os", "-1", "--arch", "9"}, "--os"},
      {{"query", "folder", "--machine-type", "1234", "--os", "0x10", "--arch", "9"}, "--os"},
      {{"query", "folder", "--machine-type", "1234", "--os", " 10", "--arch", "9"}, "--os"},
      {{"query", "folder", "--machine-type", "1234", "--os", "10", "--arch", "+9"}, "--arch"},
      {{"query", "folder", "--machine-type", "1234", "--os", "10", "--arch", "4294967296"},
       "--arch"},
  };
  for (const auto& one : cases) ExpectUsageError(one.arguments, one.says);
}

TEST_F(CommandLineTest, NumbersReachTheirLimits) {
  WritePackage("a");
  const Json query =
      Json::parse(RunCli({"query", folder.Path(), "--machine-type", "0123", "--os", "4294967295",
                          "--arch", "010", "--update-type", "-2147483648", "--update-type",
                          "2147483647", "--update-type=99", "--format", "json"})
                      .out)["query"];
  EXPECT_EQ(query["machineType"], "0123");
  EXPECT_EQ(query["osValue"], 4294967295U);
  EXPECT_EQ(query["arcValue"], 10U) << "a leading zero makes no octal number";
  EXPECT_EQ(query["updateTypes"], Json({-2147483648LL, 2147483647, 99}));
}

TEST_F(CommandLineTest, IdsAreTakenAsTheyStandAndOneByOne) {
  WritePackage("a");
  const Arguments ids{"{}", "[x,y]", "x,y", "-dash", "--os", "a b", ""};
  Arguments arguments{"query", "--format", "json"};
  for (const std::string& id : ids) arguments.insert(arguments.end(), {"--include", id});
  arguments.insert(arguments.end(), {"--exclude", "other", folder.Path(), "--machine-type", "1234",
                                     "--os", "10", "--arch", "9"});
  const Outcome outcome = RunCli(arguments);
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  const Json query = Json::parse(outcome.out)["query"];
  EXPECT_EQ(query["includePackageIds"], Json(ids));
  EXPECT_EQ(query["excludePackageIds"], Json({"other"}));
  EXPECT_EQ(query["folder"], folder.Path());
}

TEST_F(CommandLineTest, EverySwitchTurnsItsFilterOffAndNoOther) {
  WritePackage("a");
  const struct {
    const char* option;
    const char* setting;
    const char* slot;
  } switches[] = {
      {"--no-kovu-filter", "kovuFilter", "kovuFilterStatus"},
      {"--no-sep-filter", "sepFilter", "sepFilterStatus"},
      {"--no-payload-exist-filter", "payloadExistFilter", "payloadExistFilterStatus"},
      {"--no-supersede-filter", "supersedeFilter", "supersedeFilterStatus"},
  };
  for (const auto& given : switches) {
    const Json document = QueryJson({given.option});
    for (const auto& one : switches) {
      const bool on = &one != &given;
      EXPECT_EQ(document["query"][one.setting], on) << given.option;
      EXPECT_EQ(document["records"][0][one.slot] != 0, on) << given.option << " " << one.slot;
    }
  }
}

TEST_F(CommandLineTest, IdsAndUpdateTypesReachTheirFilters) {
  WritePackage("a");
  WritePackage("b");
  const Json document = QueryJson({"--include", "A", "--exclude", "B", "--update-type", "2"});
  ASSERT_EQ(document["records"].size(), 2U);
  for (const Json& record : document["records"]) {
    const bool isA = record["identificationCode"] == "a";
    EXPECT_EQ(record["includeIdFilterStatus"], isA ? 1 : 2);
    EXPECT_EQ(record["excludeIdFilterStatus"], isA ? 1 : 2);
    EXPECT_EQ(record["updateTypeFilterStatus"], 2);
  }
  EXPECT_EQ(QueryJson({"--update-type", "1"})["records"][0]["updateTypeFilterStatus"], 1);
}

TEST_F(CommandLineTest, FolderThatLooksLikeAnOptionFollowsTwoDashes) {
  const Outcome outcome = RunCli(
      {"query", "--machine-type", "1234", "--os", "10", "--arch", "9", "--", "--no-such-folder"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("\"--no-such-folder\" is not a folder"));
}

}  // namespace
}  // namespace Vornik::Testing
