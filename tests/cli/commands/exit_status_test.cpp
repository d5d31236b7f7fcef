// How the program ends, and what it says where.
#include <boost/filesystem/operations.hpp>

#include "cli_fixture.h"
#include "sanitizers.h"
#include "unqueryable_folder.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace Vornik::Testing {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class ExitStatusTest : public CliTest {
 protected:
  // Each parameter that the check refuses, with what the library's log and the program say.
  struct Refusal {
    Arguments arguments;
    std::string echo;
    std::string text;
  };

  std::vector<Refusal> Refusals() {
    const std::string file = folder.Write("file", "");
    const auto query = [](const std::string& path, const char* machineType) {
      return Arguments{"query", path, "--machine-type", machineType, "--os", "10", "--arch", "9"};
    };
    Arguments bothLists = QueryArguments({"--include", "x", "--exclude", "x"});
    return {
        {query("", "1234"), "xml package folder is not set",
         "FOLDER is empty; give the path of an existing folder"},
        {query(file, "1234"), "xml package folder: " + file + " is not valid folder",
         '"' + file + "\" is not a folder; give the path of an existing one as FOLDER"},
        {query(folder.Path(), ""), "MachineType is not set",
         "\"\" is not a machine type; give four decimal digits to --machine-type"},
        {query(folder.Path(), "12a4"), "MachineType is invalid",
         "\"12a4\" is not a machine type; give four decimal digits to --machine-type"},
        {bothLists, "x is in both IncludePackageIDs and ExcludePackageIDs",
         "\"x\" is both included and excluded; give it to either --include or --exclude"},
    };
  }
};

TEST_F(ExitStatusTest, RefusedParametersEndWith2AndOneLine) {
  for (const Refusal& refusal : Refusals()) {
    const Outcome outcome = RunCli(refusal.arguments);
    SCOPED_TRACE(refusal.echo);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "querypackage-cli: the query was refused: " + refusal.text + '\n');
  }
}

TEST_F(ExitStatusTest, RefusedParametersAreLoggedWhereALogIsAskedFor) {
  for (Refusal& refusal : Refusals()) {
    SCOPED_TRACE(refusal.echo);
    refusal.arguments.insert(refusal.arguments.end(), {"--log-level", "1"});
    const auto lines = LinesOf(RunCli(refusal.arguments).err);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_THAT(lines[0], EndsWith(": " + InLogLine(refusal.echo)));
  }
}

TEST_F(ExitStatusTest, RefusedParametersHaveADocument) {
  for (Refusal& refusal : Refusals()) {
    refusal.arguments.insert(refusal.arguments.end(), {"--format", "json"});
    const Outcome outcome = RunCli(refusal.arguments);
    SCOPED_TRACE(refusal.echo);
    EXPECT_EQ(outcome.status, 2);
    const Json document = Json::parse(outcome.out, nullptr, false);
    ASSERT_FALSE(document.is_discarded()) << outcome.out;
    EXPECT_EQ(document["returnCode"], 2);
    EXPECT_EQ(document["records"], Json::array());
    EXPECT_EQ(LinesOf(outcome.err).size(), 1U) << outcome.err;
  }
}

TEST_F(ExitStatusTest, FolderWithoutPackagesEndsWith4) {
  const Outcome outcome = Query({"--log-level", "0"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(LinesOf(outcome.err).size(), 1U);
  EXPECT_THAT(outcome.err, StartsWith("querypackage-cli: the folder has no package"));
  EXPECT_EQ(QueryJson({}, 4)["records"], Json::array());
}

TEST_F(ExitStatusTest, PackForAnotherMachineAloneEndsWith4) {
  folder.Write("p.xml", Pack({PackItself("p.xml").Set("applicableMachineTypes", {"5678"}),
                              Package("a").Set("xmlFilename", "a.xml")}));
  EXPECT_EQ(QueryJson({}, 4)["records"], Json::array());
}

TEST_F(ExitStatusTest, LogFileThatCannotBeOpenedEndsWith64) {
  WritePackage("a");
  for (const std::string& file : {folder.Path(), std::string()}) {
    const Outcome outcome = Query({"--log-file", file});
    EXPECT_EQ(outcome.status, 64);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(LinesOf(outcome.err).size(), 1U);
    EXPECT_THAT(outcome.err, HasSubstr("the log file \"" + file + "\" cannot be opened"));
    EXPECT_THAT(outcome.err, EndsWith("give another --log-file\n"));
  }
}

TEST_F(ExitStatusTest, ExceptionEndsWith70AndIsNamed) {
  for (const char* format : {"table", "json"}) {
    const Outcome outcome = RunCli({"query", UnqueryableFolder(), "--machine-type", "1234", "--os",
                                    "10", "--arch", "9", "--format", format});
    EXPECT_EQ(outcome.status, 70);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(LinesOf(outcome.err).size(), 1U);
    EXPECT_THAT(outcome.err, StartsWith("querypackage-cli: the query ended with an exception, "
                                        "boost::filesystem::filesystem_error: "));
    EXPECT_THAT(outcome.err, HasSubstr(UnqueryableFolder()));
  }
}

#ifdef __linux__
// A process that has ended but is not waited for: its network folder is there, and cannot be
// listed.
class EndedProcess {
 public:
  EndedProcess() : id_(fork()) {
    if (id_ == 0) _exit(0);
    siginfo_t info;
    waitid(P_PID, static_cast<id_t>(id_), &info, WEXITED | WNOWAIT);
  }
  ~EndedProcess() { waitpid(id_, nullptr, 0); }
  EndedProcess(const EndedProcess&) = delete;
  EndedProcess& operator=(const EndedProcess&) = delete;

  std::string NetworkFolder() const { return "/proc/" + std::to_string(id_) + "/net"; }

 private:
  pid_t id_;
};

TEST_F(ExitStatusTest, FolderThatCannotBeListedEndsWith3) {
  const EndedProcess process;
  const Arguments arguments{
      "query", process.NetworkFolder(), "--machine-type", "1234", "--os", "10", "--arch", "9"};
  const Outcome outcome = RunCli(arguments);
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.out, "");
  const auto lines = LinesOf(outcome.err);
  ASSERT_EQ(lines.size(), 2U) << outcome.err;
  EXPECT_THAT(lines[0], HasSubstr("boost::filesystem::directory_iterator"));
  EXPECT_THAT(lines[1], StartsWith("querypackage-cli: the folder could not be read"));

  Arguments withJson = arguments;
  withJson.insert(withJson.end(), {"--format", "json"});
  const Json document = Json::parse(RunCli(withJson).out);
  EXPECT_EQ(document["returnCode"], 3);
  EXPECT_EQ(document["records"], Json::array());
}

// Runs the program with its standard streams redirected by the shell.
Outcome RunRedirected(const std::string& redirection, const Arguments& arguments) {
  Arguments all{"-c", redirection + "; exec \"$0\" \"$@\"", CliPath()};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return RunProgram("/bin/sh", all);
}

TEST_F(ExitStatusTest, HelpAndVersionThatAreLostEndWith74) {
  for (const char* redirection : {"exec > /dev/full", "exec >&-", "exec <&- >&-"}) {
    for (const char* option : {"--help", "--version"}) {
      const Outcome outcome = RunRedirected(redirection, {option});
      EXPECT_EQ(outcome.status, 74) << redirection << option;
      EXPECT_EQ(outcome.err, "querypackage-cli: standard output could not be written\n");
    }
  }
}

TEST_F(ExitStatusTest, NoFileTakesTheNumberOfAClosedStandardStream) {
  WritePackage("a");
  const TempFolder logs;
  const std::string log = logs.Path() + "/log.txt";
  const Arguments arguments = QueryArguments({"--log-file", log, "--log-level", "3"});
  for (const char* redirection : {"exec >&-", "exec <&- >&-", "exec <&- >&- 2>&-"}) {
    EXPECT_EQ(RunRedirected(redirection, arguments).status, 74) << redirection;
    const std::string text = ReadFile(log);
    EXPECT_THAT(text, HasSubstr("End"));
    EXPECT_THAT(text, testing::Not(HasSubstr("pass")));
    EXPECT_THAT(text, testing::Not(HasSubstr("querypackage-cli:")));
    boost::filesystem::remove(log);
  }
}

TEST_F(ExitStatusTest, LoopOfLinksAsTheFolderEndsWith2) {
  const std::string loop = folder.Path() + "/loop";
  boost::filesystem::create_symlink(loop, loop);
  for (const std::string command : {"query", "explain", "lint"}) {
    Arguments arguments{command, loop};
    if (command != "lint") {
      arguments.insert(arguments.end(), {"--machine-type", "1234", "--os", "10", "--arch", "9"});
    }
    if (command == "explain") arguments.insert(arguments.end(), {"--package", "a"});
    const Outcome outcome = RunCli(arguments);
    EXPECT_EQ(outcome.status, 2) << command;
    EXPECT_EQ(outcome.err, "querypackage-cli: \"" + loop +
                               "\" is no folder: give the folder of the descriptors as FOLDER\n");
  }
}

#ifndef QUERYPACKAGE_TEST_SANITIZED  // UndefinedBehaviorSanitizer needs a pipe for each new type
// The limit leaves room for the folder's listing, which is open while the query reads.
TEST_F(ExitStatusTest, RunningOutOfFileDescriptorsIsReportedAsThat) {
  WritePackage("a");
  const Outcome outcome =
      RunRedirected("exec 3>&-; ulimit -n 4", QueryArguments({"--trust", "--log-level", "1"}));
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.err, HasSubstr("Too many open files"));
}
#endif

TEST_F(ExitStatusTest, OutputThatIsLostEndsWith74) {
  WritePackage("a");
  Arguments arguments{"-c", "exec \"$0\" \"$@\" > /dev/full", CliPath()};
  for (const std::string& argument : QueryArguments()) arguments.push_back(argument);
  const Outcome outcome = RunProgram("/bin/sh", arguments);
  EXPECT_EQ(outcome.status, 74);
  EXPECT_THAT(outcome.err, StartsWith("querypackage-cli: standard output"));
}
#endif

}  // namespace
}  // namespace Vornik::Testing
