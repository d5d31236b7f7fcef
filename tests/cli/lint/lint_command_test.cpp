// The command line of lint: options, exit statuses and what is said where.
#include <boost/filesystem/operations.hpp>

#include "lint/lint_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class LintCommandTest : public LintTest {
 protected:
  Json RunJson(Arguments arguments) {
    arguments.insert(arguments.end(), {"--format", "json"});
    return Json::parse(RunCli(arguments).out);
  }

  // One error: the payload is missing.
  void WriteError() { folder.Write("a.xml", SoundText("a")); }

  // One warning: the description loses an ampersand.
  void WriteWarning() {
    WriteFiles(PackageFiles("b", Put(SoundText("b"), "description", "<VALUE>R&D</VALUE>")));
  }

  // One info: a type with words after it.
  void WriteInfo() {
    WriteFiles(PackageFiles("c", PutValue(SoundText("c"), "type", "1 (driver)")));
  }
};

TEST_F(LintCommandTest, SeverityDecidesTheExitStatus) {
  WriteInfo();
  EXPECT_EQ(Lint().status, 0);
  EXPECT_EQ(Lint({"--fail-on", "warning"}).status, 0);
  WriteWarning();
  EXPECT_EQ(Lint().status, 0);
  EXPECT_EQ(Lint({"--fail-on", "error"}).status, 0);
  EXPECT_EQ(Lint({"--fail-on", "warning"}).status, 1);
  WriteError();
  EXPECT_EQ(Lint().status, 1);
  EXPECT_EQ(Lint({"--fail-on", "error"}).status, 1);
  EXPECT_EQ(Lint({"--fail-on", "warning"}).status, 1);
}

TEST_F(LintCommandTest, InfoFailsAndNeverDoesNot) {
  WriteInfo();
  EXPECT_EQ(Lint({"--fail-on", "info"}).status, 1);
  WriteError();
  EXPECT_EQ(Lint({"--fail-on", "info"}).status, 1);
  const Outcome outcome = Lint({"--fail-on", "never"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, HasSubstr("[payload-missing]"));
}

TEST_F(LintCommandTest, QuietTextHasTheFindingsAlone) {
  WriteError();
  const std::string whole = Lint().out;
  const Outcome outcome = Lint({"--quiet"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(LinesOf(outcome.out).size(), 2U) << outcome.out;
  EXPECT_THAT(whole, StartsWith(outcome.out));
  EXPECT_EQ(LinesOf(outcome.err).size(), 1U) << "what to do is no note";
  EXPECT_EQ(Lint({"--quiet", "--ignore", "payload-missing"}).out, "");
  EXPECT_EQ(Lint({"--quiet", "--format", "json"}).out, Lint({"--format", "json"}).out);

  const std::string baseline = folder.Path() + ".baseline";
  EXPECT_EQ(Lint({"--quiet", "--write-baseline", baseline}).status, 0);
  EXPECT_EQ(Lint({"--quiet", "--baseline", baseline}).out, "");
  boost::filesystem::remove(baseline);
}

TEST_F(LintCommandTest, HelpNamesTheFilesInItsExitStatuses) {
  const std::string statuses = RunCli({"help", "lint"}).out;
  for (const char* part : {"  2   FOLDER is not a folder, or a FILE is not in it.",
                           "the file of --baseline cannot be read",
                           "the file of --write-baseline, could not be written"}) {
    EXPECT_THAT(statuses, HasSubstr(part));
  }
}

TEST_F(LintCommandTest, OnlyTheNamedFindingsAreReportedAndCounted) {
  WriteError();
  WriteWarning();
  WriteInfo();
  EXPECT_EQ(IdsIn(LintJson({"--only", "ampersand-lost", "--only", "number-trailing-text"})),
            (std::set<std::string>{"ampersand-lost", "number-trailing-text"}));
  EXPECT_EQ(Lint({"--only", "ampersand-lost"}).status, 0);
  EXPECT_EQ(Lint({"--only", "payload-missing"}).status, 1);
  EXPECT_EQ(Lint({"--only", "payload-missing", "--ignore", "payload-missing"}).status, 0);
  EXPECT_EQ(LintJson({"--only", "payload-missing"})["only"], Json::array({"payload-missing"}));
}

TEST_F(LintCommandTest, FilesSelectTheirFindingsOfTheWholeFolder) {
  WriteError();
  WriteWarning();
  for (const std::string& file : {std::string("b.xml"), std::string("./b.xml"), PathOf("b.xml")}) {
    const Json document = RunJson({"lint", folder.Path(), file});
    EXPECT_EQ(IdsIn(document), std::set<std::string>{"ampersand-lost"}) << file;
    EXPECT_EQ(document["files"], 2) << "the folder is read whole";
    EXPECT_EQ(document["selectedFiles"], Json::array({"b.xml"}));
  }
  EXPECT_EQ(RunCli({"lint", folder.Path(), "b.xml"}).status, 0);
  EXPECT_EQ(RunCli({"lint", folder.Path(), "b.xml", "a.xml"}).status, 1);
  const Outcome outcome = RunCli({"lint", folder.Path(), "gone.xml"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "querypackage-cli: \"gone.xml\" is no file of \"" + folder.Path() +
                             "\": give files of the folder after it\n");
}

// A file selects what its package has in common with its other descriptions.
TEST_F(LintCommandTest, FileSelectsAFindingThatItSharesWithAnother) {
  folder.Write("m.xml", SoundText("m"));
  folder.Write("p.xml", PackText({OwnInstance("p.xml"), SoundInstance("m")}));
  for (const char* file : {"m.xml", "p.xml"}) {
    EXPECT_EQ(IdsIn(RunJson({"lint", folder.Path(), file})),
              std::set<std::string>{"payload-missing"});
  }
}

TEST_F(LintCommandTest, ErrorFailsWhereNoWarningIs) {
  WriteError();
  EXPECT_EQ(Lint({"--fail-on", "warning"}).status, 1);
}

TEST_F(LintCommandTest, FailureComesWithALineOnStandardError) {
  WriteError();
  WriteWarning();
  for (const char* format : {"text", "json", "sarif"}) {
    EXPECT_EQ(Lint({"--format", format}).err,
              "querypackage-cli: the folder has 1 error, 1 warning, 0 infos: fix them, or omit a "
              "finding with --ignore\n");
  }
}

TEST_F(LintCommandTest, IgnoredFindingsAreLeftOutAndDoNotCount) {
  WriteError();
  WriteWarning();
  EXPECT_EQ(IdsIn(LintJson({"--ignore", "payload-missing"})),
            std::set<std::string>{"ampersand-lost"});
  const Outcome outcome =
      Lint({"--ignore", "payload-missing", "--ignore", "ampersand-lost", "--fail-on", "warning"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "0 errors, 0 warnings, 0 infos in 2 descriptor files" + ReadAs("windows") + ".\n");
  EXPECT_EQ(LintJson({"--ignore", "payload-missing"})["ignored"], Json::array({"payload-missing"}));
}

TEST_F(LintCommandTest, WrongOrIncompleteLinesAreRefused) {
  const struct {
    Arguments arguments;
    const char* says;
  } cases[] = {
      {{"lint"}, "FOLDER"},
      {{"lint", "a", "--format", "table"}, "--format"},
      {{"lint", "a", "--target", "dos"}, "--target"},
      {{"lint", "a", "--fail-on", "note"}, "--fail-on"},
      {{"lint", "a", "--only", "no-such-id"}, "\"no-such-id\" is not the id of a finding"},
      {{"lint", "a", "--baseline"}, "--baseline"},
      {{"lint", "a", "--ignore", "no-such-id"}, "\"no-such-id\" is not the id of a finding"},
      {{"lint", "a", "--ignore", ""}, "--ignore"},
      {{"lint", "a", "--ignore", "[utf-16]"}, "--ignore"},
      {{"lint", "a", "--ignore"}, "--ignore"},
      {{"lint", "--explain", "UTF-16"}, "\"UTF-16\" is not the id of a finding"},
      {{"lint", "--explain", "{}"}, "is not the id of a finding"},
      {{"lint", "--explain"}, "--explain"},
      {{"lint", "a", "--os", "10"}, "--os"},
  };
  for (const auto& one : cases) ExpectUsageError(one.arguments, one.says);
}

TEST_F(LintCommandTest, HelpNamesEveryOption) {
  const std::string help = RunCli({"lint", "--help"}).out;
  for (const char* part :
       {"FOLDER", "--format", "--target", "--fail-on", "--ignore", "--explain", "FILE", "--only",
        "--baseline", "--write-baseline", "never", "sarif", "windows", "posix", "\n  1 "}) {
    EXPECT_THAT(help, HasSubstr(part));
  }
}

TEST_F(LintCommandTest, WhatIsNoFolderEndsWith2) {
  for (const std::string& path :
       {folder.Write("file", ""), folder.Path() + "/gone", std::string()}) {
    const Outcome outcome = RunCli({"lint", "--", path});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "querypackage-cli: \"" + path +
                               "\" is no folder: give the folder of the descriptors as FOLDER\n");
  }
}

TEST_F(LintCommandTest, ExplainNeedsNoFolderAndReadsNone) {
  WriteError();
  const Outcome outcome = RunCli({"lint", "--explain", "payload-missing"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, StartsWith("payload-missing: error\nThe payload is no regular file"));
  EXPECT_EQ(Lint({"--explain", "payload-missing"}).out, outcome.out);
}

#ifdef __linux__
TEST_F(LintCommandTest, OutputThatIsLostEndsWith74) {
  WriteError();
  const Outcome outcome = RunProgram(
      "/bin/sh", {"-c", "exec \"$0\" \"$@\" > /dev/full", CliPath(), "lint", folder.Path()});
  EXPECT_EQ(outcome.status, 74);
  EXPECT_THAT(outcome.err, StartsWith("querypackage-cli: standard output"));
}
#endif

}  // namespace
}  // namespace Vornik::Testing
