// The smallest example host does what its first line says.
#include <gmock/gmock.h>

#include <algorithm>

#include "cli_fixture.h"

namespace Vornik::Testing {
namespace {

class MinimalHostTest : public CliTest {};

TEST_F(MinimalHostTest, PrintsTheCodesThatEveryFilterMatches) {
  for (const char* code : {"a", "orx_utl_sep", "b"}) WritePackage(code);
  const Outcome outcome = RunProgram(MINIMAL_HOST, {folder.Path(), "1234"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  auto codes = LinesOf(outcome.out);
  std::sort(codes.begin(), codes.end());
  EXPECT_THAT(codes, testing::ElementsAre("a", "b"));
}

TEST_F(MinimalHostTest, APackageWithoutAVerdictIsNotPrinted) {
  WritePackage("a");
  folder.Write("b.xml", Package("b")
                            .Set("xmlFilename", "b.xml")
                            .Set("orderedOSList", std::vector<std::string>())
                            .Individual());
  const Outcome outcome = RunProgram(MINIMAL_HOST, {folder.Path(), "1234"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "a\n");
  EXPECT_THAT(outcome.err, testing::HasSubstr("b: its descriptor lacks data\n"));
}

TEST_F(MinimalHostTest, AFolderThatCannotBeQueriedIsReported) {
  const Outcome outcome = RunProgram(MINIMAL_HOST, {std::string(5'000, 'x'), "1234"});
#ifdef _WIN32
  EXPECT_EQ(outcome.status, 2);
#else
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, testing::HasSubstr("File name too long"));
#endif
}

TEST_F(MinimalHostTest, ReturnsTheCodeOfTheQuery) {
  EXPECT_EQ(RunProgram(MINIMAL_HOST, {folder.Path(), "123"}).status, 2);
  EXPECT_EQ(RunProgram(MINIMAL_HOST, {folder.Path(), "1234"}).status, 4);
}

TEST_F(MinimalHostTest, WrongNumberOfArgumentsIsRefused) {
  const Outcome outcome = RunProgram(MINIMAL_HOST, {folder.Path()});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "Usage: minimal-host FOLDER MACHINE-TYPE\n");
}

}  // namespace
}  // namespace Vornik::Testing
