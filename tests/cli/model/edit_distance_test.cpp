// The distance of two texts, and the names closest to one.
#include "model/edit_distance.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "test_random.h"

namespace Vornik::Testing {
namespace {

using Cli::EditDistance;
using Cli::NearestNames;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(EditDistanceTest, CountsEachKindOfChange) {
  const struct {
    const char* a;
    const char* b;
    std::size_t distance;
  } cases[] = {
      {"", "", 0},
      {"same", "same", 0},
      {"", "abc", 3},
      {"color", "colour", 1},
      {"colour", "color", 1},
      {"cat", "cut", 1},
      {"kovu", "kvou", 1},
      {"ab", "ba", 1},
      {"kitten", "sitting", 3},
      {"Case", "case", 1},
      {"abcd", "badc", 2},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(EditDistance(one.a, one.b, 10), one.distance) << one.a << ' ' << one.b;
    EXPECT_EQ(EditDistance(one.b, one.a, 10), one.distance) << one.a << ' ' << one.b;
  }
}

// By the definition, without rows and without a limit.
std::size_t PlainDistance(const std::string& a, const std::string& b) {
  if (a.empty() || b.empty()) return std::max(a.size(), b.size());
  const std::string restA = a.substr(1);
  const std::string restB = b.substr(1);
  std::size_t least = PlainDistance(restA, restB) + (a[0] == b[0] ? 0 : 1);
  least = std::min({least, PlainDistance(restA, b) + 1, PlainDistance(a, restB) + 1});
  if (a.size() > 1 && b.size() > 1 && a[0] == b[1] && a[1] == b[0]) {
    least = std::min(least, PlainDistance(a.substr(2), b.substr(2)) + 1);
  }
  return least;
}

TEST(EditDistanceTest, IsTheLeastNumberOfChangesUpToTheLimit) {
  TestRandom pick;
  const auto text = [&pick] {
    std::string made;
    for (std::size_t left = pick.Below(7); left != 0; --left) made += "abc"[pick.Below(3)];
    return made;
  };
  for (std::size_t left = pick.Rounds(300); left != 0; --left) {
    const std::string a = text();
    const std::string b = text();
    const std::size_t limit = pick.Below(8);
    ASSERT_EQ(EditDistance(a, b, limit), std::min(PlainDistance(a, b), limit + 1))
        << a << ' ' << b << ' ' << limit;
  }
}

TEST(EditDistanceTest, NearestNamesAreTheClosestOnes) {
  EXPECT_THAT(NearestNames("qery", {"query", "explain", "lint"}), ElementsAre("query"));
  EXPECT_THAT(NearestNames("orx_drv_a", {"orx_drv_b", "orx_drv", "orx_drv_c"}),
              ElementsAre("orx_drv_b", "orx_drv_c"));
  EXPECT_THAT(NearestNames("QUERYX", {"query"}), ElementsAre("query"));
  EXPECT_THAT(NearestNames("b", {"a", "c", "d", "e"}), ElementsAre("a", "c", "d"));
}

TEST(EditDistanceTest, NothingIsNearWhatIsFarAway) {
  EXPECT_THAT(NearestNames("enquire", {"query", "explain"}), IsEmpty());
  EXPECT_THAT(NearestNames("ab", {"xy"}), IsEmpty());
  EXPECT_THAT(NearestNames("", {"xy"}), IsEmpty());
}

}  // namespace
}  // namespace Vornik::Testing
