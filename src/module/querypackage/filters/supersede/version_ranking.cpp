#include "version_ranking.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <numeric>

namespace Vornik {

namespace {

using Indices = std::vector<std::size_t>;

// How many of the numbers added so far are below a limit, in logarithmic time: a Fenwick tree.
class CountBelow {
 public:
  explicit CountBelow(std::size_t end) : counts_(end + 1) {}

  void Add(std::size_t number) {
    for (std::size_t i = number + 1; i < counts_.size(); i += i & (~i + 1)) ++counts_[i];
  }

  std::size_t operator()(std::size_t limit) const {
    std::size_t count = 0;
    for (std::size_t i = limit; i != 0; i &= i - 1) count += counts_[i];
    return count;
  }

 private:
  std::vector<std::size_t> counts_;
};

void Rotate(std::deque<std::size_t>& queue, std::size_t steps) {
  if (queue.empty()) return;
  for (steps %= queue.size(); steps != 0; --steps) {
    queue.push_back(queue.front());
    queue.pop_front();
  }
}

// The order of equal versions, given by ascending index. Each pass of the sort moves the smallest
// version that is left to the front, and the first of the equal ones, if it is before that one, to
// the place of the next smaller version: to the end of the equal ones before that place. So they
// are a queue: from left to right, an equal version joins it, and each smaller version moves its
// front to its end.
void OrderEqual(Indices::iterator begin, Indices::iterator end, std::size_t smallerCount,
                const CountBelow& smallerBefore) {
  std::deque<std::size_t> queue;
  std::size_t passed = 0;
  for (auto equal = begin; equal != end; ++equal) {
    const std::size_t before = smallerBefore(*equal);
    Rotate(queue, before - passed);
    passed = before;
    queue.push_back(*equal);
  }
  Rotate(queue, smallerCount - passed);
  std::copy(queue.begin(), queue.end(), begin);
}

}  // namespace

std::vector<std::string> ComparedVersions(const std::vector<QueryPackageResult>& records,
                                          const std::vector<RecordIndex>& group,
                                          const LocaleFold& fold) {
  std::vector<std::string> versions;
  versions.reserve(group.size());
  for (const RecordIndex i : group) versions.push_back(fold(records[i].Version).c_str());
  return versions;
}

std::vector<std::size_t> RankVersions(const std::vector<std::string>& versions) {
  Indices order(versions.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  const auto isLess = [&](std::size_t a, std::size_t b) { return versions[a] < versions[b]; };
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    const int compared = versions[a].compare(versions[b]);
    return compared != 0 ? compared < 0 : a < b;
  });

  CountBelow smallerBefore(order.size());
  for (auto begin = order.begin(); begin != order.end();) {
    const auto end = std::find_if(begin, order.end(), [&](auto i) { return isLess(*begin, i); });
    OrderEqual(begin, end, static_cast<std::size_t>(begin - order.begin()), smallerBefore);
    std::for_each(begin, end, [&](std::size_t i) { smallerBefore.Add(i); });
    begin = end;
  }
  return order;
}

}  // namespace Vornik
