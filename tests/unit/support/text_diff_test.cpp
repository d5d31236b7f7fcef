#include "text_diff.h"

#include <gtest/gtest.h>

namespace Vornik::Testing {
namespace {

TEST(TextDiff, IsEmptyForEqualTexts) {
  EXPECT_EQ(TextDiff("", ""), "");
  EXPECT_EQ(TextDiff("a\nb\n", "a\nb\n"), "");
}

TEST(TextDiff, ShowsAChangeWithThreeLinesOfContext) {
  EXPECT_EQ(TextDiff("1\n2\n3\n4\nold\n6\n7\n8\n9\n", "1\n2\n3\n4\nnew\n6\n7\n8\n9\n"),
            "@@ -2 +2 @@\n 2\n 3\n 4\n-old\n+new\n 6\n 7\n 8\n");
}

TEST(TextDiff, ShowsDistantChangesApart) {
  EXPECT_EQ(TextDiff("a\n1\n2\n3\n4\n5\n6\n7\nb\n", "1\n2\n3\n4\n5\n6\n7\nb\nc\n"),
            "@@ -1 +1 @@\n-a\n 1\n 2\n 3\n@@ -7 +6 @@\n 6\n 7\n b\n+c\n");
}

TEST(TextDiff, ShowsAMissingLineFeed) {
  EXPECT_EQ(TextDiff("a\n", "a"), "@@ -1 +1 @@\n-a\n+a (no line feed)\n");
}

}  // namespace
}  // namespace Vornik::Testing
