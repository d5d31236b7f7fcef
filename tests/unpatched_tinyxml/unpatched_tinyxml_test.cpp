// The library's loader passes unpatched TinyXML nothing on which it would fail.
#include <gtest/gtest.h>

#include "child_process.h"

namespace Vornik::Testing {
namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

// More than any of these programs needs on any machine; it only keeps a failure from lasting.
constexpr auto mostTime = 10min;

ChildOutcome Unpatched(const Lines& arguments, std::chrono::milliseconds limit = mostTime) {
  return RunChild(UNPATCHED_XML_PROBE, arguments, limit);
}

ChildOutcome Patched(const Lines& arguments) {
  return RunChild(PATCHED_XML_PROBE, arguments, mostTime);
}

void ExpectDone(const ChildOutcome& outcome) {
  ASSERT_TRUE(outcome.ended);
  EXPECT_FALSE(outcome.aborted);
  EXPECT_EQ(outcome.exitStatus, 0);
  ASSERT_FALSE(outcome.lines.empty());
  EXPECT_EQ(outcome.lines.back(), "done");
}

TEST(UnpatchedTinyXml, CountsColumnsForEverByItself) {
  const ChildOutcome outcome = Unpatched({"direct", "loop"}, 3s);
  EXPECT_FALSE(outcome.ended);
  EXPECT_EQ(outcome.lines, Lines{});
  ExpectDone(Patched({"direct", "loop"}));
}

TEST(UnpatchedTinyXml, FailsAnAssertionByItself) {
  const ChildOutcome outcome = Unpatched({"direct", "assertion"});
  EXPECT_TRUE(outcome.ended);
  EXPECT_TRUE(outcome.aborted) << outcome.exitStatus;
  EXPECT_EQ(outcome.lines, Lines{});
  ExpectDone(Patched({"direct", "assertion"}));
}

TEST(UnpatchedTinyXml, DoesNeitherInTheLoader) {
  ExpectDone(Unpatched({"loader", "loop"}));
  ExpectDone(Unpatched({"loader", "assertion"}));
}

TEST(UnpatchedTinyXml, GivesTheSameAnswersInTheLoader) {
  const ChildOutcome unpatched = Unpatched({"answers"});
  const ChildOutcome patched = Patched({"answers"});
  ExpectDone(unpatched);
  ExpectDone(patched);
  ASSERT_EQ(unpatched.lines.size(), patched.lines.size());
  EXPECT_GT(patched.lines.size(), 80'000U);
  for (std::size_t i = 0; i < patched.lines.size(); ++i) {
    ASSERT_EQ(unpatched.lines[i], patched.lines[i]) << "answer " << i;
  }
}

}  // namespace
}  // namespace Vornik::Testing
