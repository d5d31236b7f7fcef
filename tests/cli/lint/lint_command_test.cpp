// The command line of lint: options, exit statuses and what is said where.
#include "lint/lint_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class LintCommandTest : public LintTest {
 protected:
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

TEST_F(LintCommandTest, ErrorFailsWhereNoWarningIs) {
  WriteError();
  EXPECT_EQ(Lint({"--fail-on", "warning"}).status, 1);
}

TEST_F(LintCommandTest, FailureComesWithALineOnStandardError) {
  WriteError();
  WriteWarning();
  for (const char* format : {"text", "json", "sarif"}) {
    EXPECT_EQ(Lint({"--format", format}).err,
              "querypackage-cli: the folder has 1 error, 1 warning, 0 infos: mend them, or leave "
              "out a finding with --ignore\n");
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
  EXPECT_EQ(outcome.out, "0 errors, 0 warnings, 0 infos in 2 descriptor files.\n");
  EXPECT_EQ(LintJson({"--ignore", "payload-missing"})["ignored"], Json::array({"payload-missing"}));
}

TEST_F(LintCommandTest, WrongOrIncompleteLinesAreRefused) {
  const struct {
    Arguments arguments;
    const char* says;
  } cases[] = {
      {{"lint"}, "FOLDER"},
      {{"lint", "a", "b"}, "b"},
      {{"lint", "a", "--format", "table"}, "--format"},
      {{"lint", "a", "--target", "dos"}, "--target"},
      {{"lint", "a", "--fail-on", "info"}, "--fail-on"},
      {{"lint", "a", "--ignore", "no-such-id"}, "\"no-such-id\" is not the id of a finding"},
      {{"lint", "a", "--ignore", ""}, "--ignore"},
      {{"lint", "a", "--ignore", "[utf-16]"}, "--ignore"},
      {{"lint", "a", "--ignore"}, "--ignore"},
      {{"lint", "--explain", "UTF-16"}, "\"UTF-16\" is not the id of a finding"},
      {{"lint", "--explain", "{}"}, "is not the id of a finding"},
      {{"lint", "--explain"}, "--explain"},
      {{"lint", "a", "--os", "10"}, "--os"},
  };
  for (const auto& one : cases) {
    const Outcome outcome = RunCli(one.arguments);
    SCOPED_TRACE(testing::PrintToString(one.arguments));
    EXPECT_EQ(outcome.status, 64);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(LinesOf(outcome.err).size(), 1U);
    EXPECT_THAT(outcome.err, StartsWith("querypackage-cli: "));
    EXPECT_THAT(outcome.err, HasSubstr(one.says));
    EXPECT_THAT(outcome.err, EndsWith("see \"querypackage-cli --help\"\n"));
  }
}

TEST_F(LintCommandTest, HelpNamesEveryOption) {
  const std::string help = RunCli({"lint", "--help"}).out;
  for (const char* part : {"FOLDER", "--format", "--target", "--fail-on", "--ignore", "--explain",
                           "sarif", "windows", "posix", "\n  1 "}) {
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
