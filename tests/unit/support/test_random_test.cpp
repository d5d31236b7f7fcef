#include "test_random.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace Vornik::Testing {
namespace {

TEST(TestRandom, VariableIsANumber) {
  EXPECT_EQ(NumberInVariable("V", nullptr, 7), 7U);
  EXPECT_EQ(NumberInVariable("V", "0", 7), 0U);
  EXPECT_EQ(NumberInVariable("V", "999999999", 7), 999'999'999U);
  for (const char* text : {"", " 1", "-1", "1a", "1000000000"}) {
    EXPECT_THROW(NumberInVariable("V", text, 7), std::runtime_error) << text;
  }
}

TEST(TestRandom, SameTestHasTheSameValues) {
  TestRandom first;
  TestRandom second;
  EXPECT_EQ(first.Seed(), second.Seed());
  for (int i = 0; i < 100; ++i) ASSERT_EQ(first.Below(1'000), second.Below(1'000));
}

TEST(TestRandom, SeedDependsOnTheTest) {
  EXPECT_EQ(TestRandom().Seed(), SeedOfTest("TestRandom.SeedDependsOnTheTest"));
  EXPECT_NE(TestRandom().Seed(), SeedOfTest("TestRandom.SeedDependsOnTheTest2"));
}

TEST(TestRandom, RunsOneRoundAtLeast) {
  EXPECT_EQ(TestRandom().Rounds(0), 1U);
  EXPECT_GE(TestRandom().Rounds(1'000), 1U);
}

}  // namespace
}  // namespace Vornik::Testing
