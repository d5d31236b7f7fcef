// The smallest example host does what its first line says.
#include <algorithm>

#include "cli_fixture.h"

namespace Vornik::Testing {
namespace {

class MinimalHostTest : public CliTest {};

TEST_F(MinimalHostTest, PrintsTheCodesThatNoFilterRefused) {
  for (const char* code : {"a", "orx_utl_sep", "b"}) WritePackage(code);
  const Outcome outcome = RunProgram(MINIMAL_HOST, {folder.Path(), "1234"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  auto codes = LinesOf(outcome.out);
  std::sort(codes.begin(), codes.end());
  EXPECT_THAT(codes, testing::ElementsAre("a", "b"));
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
