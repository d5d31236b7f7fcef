// The ranking against the exchange sort that it replaces: every way in which up to nine versions
// can be smaller, equal and greater.
#include "filters/supersede/version_ranking.h"

#include <gtest/gtest.h>

#include <numeric>
#include <utility>

namespace Vornik::Testing {
namespace {

using Indices = std::vector<std::size_t>;
using Versions = std::vector<std::string>;

Indices ExchangeSorted(const Versions& versions) {
  Indices places(versions.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  for (std::size_t p = 0; p < places.size(); ++p) {
    for (std::size_t q = p + 1; q < places.size(); ++q) {
      if (versions[places[p]] > versions[places[q]]) std::swap(places[p], places[q]);
    }
  }
  return places;
}

// Calls check for each sequence of the first letters, as many as are said, each at least once.
template <typename Check>
class WeakOrders {
 public:
  WeakOrders(std::size_t length, std::size_t letters, Check check)
      : versions_(length, "a"), used_(letters), unused_(letters), check_(check) {}

  void Run(std::size_t next = 0) {
    if (versions_.size() - next < unused_) return;
    if (next == versions_.size()) return check_(versions_);
    for (std::size_t i = 0; i < used_.size(); ++i) {
      if (used_[i]++ == 0) --unused_;
      versions_[next][0] = static_cast<char>('a' + i);
      Run(next + 1);
      if (--used_[i] == 0) ++unused_;
    }
  }

 private:
  Versions versions_;
  std::vector<int> used_;
  std::size_t unused_;
  Check check_;
};

// How many weak orders there are; the test fails at the first that is ranked otherwise.
std::size_t CompareWeakOrders(std::size_t length) {
  std::size_t count = 0;
  for (std::size_t letters = length == 0 ? 0 : 1; letters <= length; ++letters) {
    const auto compare = [&](const Versions& versions) {
      ++count;
      if (testing::Test::HasFailure()) return;
      if (RankVersions(versions) != ExchangeSorted(versions)) {
        ADD_FAILURE() << testing::PrintToString(versions);
      }
    };
    WeakOrders<decltype(compare)>(length, letters, compare).Run();
  }
  return count;
}

TEST(VersionRanking, LeavesTheOrderOfTheExchangeSort) {
  const std::size_t counts[] = {1, 1, 3, 13, 75, 541, 4683, 47293, 545835, 7087261};
#ifdef NDEBUG
  const std::size_t longest = 9;
#else
  const std::size_t longest = 7;  // the longer ones take minutes in builds that check more
#endif
  for (std::size_t length = 0; length <= longest; ++length) {
    EXPECT_EQ(CompareWeakOrders(length), counts[length]) << length;
  }
}

TEST(VersionRanking, ManyVersionsInTheWorstOrderOfTheExchangeSortAreRankedAtOnce) {
  // The sort would swap ten thousand million times.
  constexpr std::size_t half = 100'000;
  Versions versions(half, "2");
  versions.resize(2 * half, "1");
  const Indices ranking = RankVersions(versions);
  EXPECT_EQ(ranking.front(), half);
  EXPECT_EQ(ranking[half - 1], 2 * half - 1);
  EXPECT_EQ(ranking[half], 0U) << "each of the greater ones has moved half times";
  EXPECT_EQ(ranking.back(), half - 1);
}

}  // namespace
}  // namespace Vornik::Testing
