#include "version_ranking.h"

#include <algorithm>
#include <deque>
#include <map>
#include <string_view>
#include <utility>

namespace Vornik {

namespace {

using Indices = std::vector<std::size_t>;

// A Fenwick tree: how many of the numbers added so far are below a limit, in logarithmic time.
void AddTo(Indices& tree, std::size_t number) {
  for (std::size_t i = number + 1; i < tree.size(); i += i & (~i + 1)) ++tree[i];
}

std::size_t CountBelow(std::size_t limit, const Indices& tree) {
  std::size_t count = 0;
  for (std::size_t i = limit; i != 0; i &= i - 1) count += tree[i];
  return count;
}

// The order of equal versions, given by ascending index. The sort leaves the same order as if each
// version in turn were inserted among those before it, which are sorted: it takes the place of the
// first greater one, that one the place of the first one greater than itself, and so on. Of each
// run of equal versions the first thus moves to the run's end. So they are a queue: an equal
// version joins it, and each smaller one moves its front to its end.
void OrderEqual(Indices& equal, std::size_t smallerCount, const Indices& smaller) {
  std::deque<std::size_t> queue;
  std::size_t inserted = 0;
  const auto insertSmaller = [&](std::size_t count) {
    std::size_t steps = queue.empty() ? 0 : (count - inserted) % queue.size();
    for (; steps != 0; --steps) {
      queue.push_back(queue.front());
      queue.pop_front();
    }
    inserted = count;
  };
  for (const std::size_t i : equal) {
    insertSmaller(CountBelow(i, smaller));
    queue.push_back(i);
  }
  insertSmaller(smallerCount);
  equal.assign(queue.begin(), queue.end());
}

}  // namespace

std::string ComparedVersion(const QueryPackageResult& record, const LocaleFold& fold) {
  const std::string folded = fold(record.Version);
  return folded.substr(0, folded.find('\0'));
}

std::vector<std::size_t> NumberVersions(const std::vector<std::string>& versions) {
  std::map<std::string_view, std::size_t> numbers;
  for (const std::string& version : versions) numbers.try_emplace(version, 0);
  std::size_t next = 0;
  for (auto& [version, number] : numbers) number = next++;
  Indices numbered;
  numbered.reserve(versions.size());
  for (const std::string& version : versions) numbered.push_back(numbers[version]);
  return numbered;
}

std::vector<std::size_t> RankNumbers(const std::vector<std::size_t>& versions) {
  std::vector<std::pair<std::size_t, std::size_t>> places;  // version and index
  places.reserve(versions.size());
  for (std::size_t i = 0; i < versions.size(); ++i) places.emplace_back(versions[i], i);
  std::sort(places.begin(), places.end());

  Indices order;
  order.reserve(versions.size());
  Indices smaller(versions.size());  // the tree of the indices of smaller versions
  std::size_t counted = 0;           // how many of them are in it: as many as were needed
  for (auto begin = places.begin(); begin != places.end();) {
    auto end = std::find_if(begin, places.end(),
                            [begin](const auto& place) { return place.first != begin->first; });
    if (end - begin == 1) {
      order.push_back(begin->second);
      ++begin;
      continue;
    }
    Indices equal;
    for (; begin != end; ++begin) equal.push_back(begin->second);
    for (; counted < order.size(); ++counted) AddTo(smaller, order[counted]);
    OrderEqual(equal, order.size(), smaller);
    order.insert(order.end(), equal.begin(), equal.end());
  }
  return order;
}

std::vector<std::size_t> RankVersions(const std::vector<std::string>& versions) {
  return RankNumbers(NumberVersions(versions));
}

}  // namespace Vornik
