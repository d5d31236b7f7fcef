// Which log records are written, and where.
#include <algorithm>
#include <filesystem>

#include "cli_fixture.h"

namespace Vornik::Testing {
namespace {

using testing::HasSubstr;

class LogTest : public CliTest {
 protected:
  // One error, one warning, and progress.
  void WriteNoisyFolder() {
    folder.Write("notes.xml", "<a/>");
    folder.Write("a.xml", Package("a").Set("driverFiles", {"unparsed"}).Individual());
  }
};

std::size_t CountOf(const std::string& text, const std::string& word) {
  const auto lines = LinesOf(text);
  return static_cast<std::size_t>(
      std::count_if(lines.begin(), lines.end(), [&word](const std::string& line) {
        return line.find(" " + word + " src/module/querypackage/querypackageimp.cpp:") !=
               std::string::npos;
      }));
}

TEST_F(LogTest, LevelChoosesTheRecords) {
  WriteNoisyFolder();
  const struct {
    Arguments arguments;
    std::size_t errors;
    std::size_t warnings;
    bool progress;
  } cases[] = {
      {{"--log-level", "0"}, 0, 0, false}, {{}, 1, 0, false},
      {{"--log-level", "1"}, 1, 0, false}, {{"--log-level", "2"}, 1, 1, false},
      {{"--log-level", "3"}, 1, 1, true},
  };
  for (const auto& one : cases) {
    Arguments arguments{"--no-payload-exist-filter"};
    arguments.insert(arguments.end(), one.arguments.begin(), one.arguments.end());
    const Outcome outcome = Query(arguments);
    SCOPED_TRACE(testing::PrintToString(one.arguments) + outcome.err);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(CountOf(outcome.err, "error"), one.errors);
    EXPECT_EQ(CountOf(outcome.err, "warning"), one.warnings);
    EXPECT_EQ(CountOf(outcome.err, "progress") > 0, one.progress);
    EXPECT_EQ(CountOf(outcome.out, "error"), 0U);
  }
}

TEST_F(LogTest, FileTakesTheRecordsAndIsAppendedTo) {
  WriteNoisyFolder();
  TempFolder logs;
  const std::string file = logs.Path() + "/query.log";
  for (std::size_t run = 1; run <= 2; ++run) {
    const Outcome outcome =
        Query({"--no-payload-exist-filter", "--log-level", "2", "--log-file", file});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const std::string text = ReadFile(file);
    EXPECT_EQ(CountOf(text, "error"), run);
    EXPECT_EQ(CountOf(text, "warning"), run);
    EXPECT_THAT(text, HasSubstr("notes.xml is not a valid ORX xml"));
  }
}

TEST_F(LogTest, FileInTheFolderOfThePackagesIsRefused) {
  WritePackage("a");
  std::filesystem::create_directory(folder.Path() + "/sub");
  for (const std::string& file : {folder.Path() + "/query.log", folder.Path() + "/sub/query.log",
                                  folder.Path() + "/sub/../query.log", PathOf("a.xml")}) {
    const Outcome outcome = Query({"--log-file", file});
    EXPECT_EQ(outcome.status, 64) << file;
    EXPECT_THAT(outcome.err, HasSubstr("(it is in the folder of the packages)")) << file;
  }
  EXPECT_THAT(CodesOf(QueryJson()), testing::ElementsAre("a"));
}

TEST_F(LogTest, NoFolderIsCreatedForAFile) {
  WritePackage("a");
  TempFolder logs;
  const Outcome outcome = Query({"--log-file", logs.Path() + "/new/query.log"});
  EXPECT_EQ(outcome.status, 64);
  EXPECT_THAT(outcome.err, HasSubstr("(its folder does not exist)"));
  const Outcome later = Query({"--log-file", logs.Path() + "/new"});
  EXPECT_EQ(later.status, 0) << "there is no folder by that name";
}

TEST_F(LogTest, WhatToDoGoesToStandardErrorEvenWithAFile) {
  TempFolder logs;
  const Outcome outcome = Query({"--log-file", logs.Path() + "/query.log"});
  EXPECT_EQ(outcome.status, 4);
  ASSERT_EQ(LinesOf(outcome.err).size(), 1U);
  EXPECT_THAT(outcome.err, testing::StartsWith("querypackage-cli: "));
  EXPECT_THAT(ReadFile(logs.Path() + "/query.log"),
              HasSubstr("There is not any valid xml package in " + InLogLine(folder.Path())));
}

#ifdef __linux__
TEST_F(LogTest, RecordsThatAreLostAreCounted) {
  WriteNoisyFolder();
  const Outcome outcome = Query({"--log-file", "/dev/full"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.err,
              testing::StartsWith("querypackage-cli: log records that could not be written: "));
}
#endif

}  // namespace
}  // namespace Vornik::Testing
