#include "version_ranking.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>

#include "letter_case.h"

namespace Vornik {

namespace {

// A folded version up to its first zero byte. Its first bytes, as a number, decide most
// comparisons without a look at the text.
class VersionKey {
 public:
  explicit VersionKey(std::string_view text) : text_(text) {
    for (std::size_t i = 0; i < sizeof first_; ++i) {
      first_ = first_ << 8U | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    }
  }

  bool operator<(const VersionKey& other) const {
    return first_ != other.first_ ? first_ < other.first_ : text_ < other.text_;
  }

 private:
  std::uint64_t first_ = 0;
  std::string_view text_;
};

// The folded versions of records.
class Versions {
 public:
  Versions(const std::vector<QueryPackageResult>& records, const std::vector<RecordPlace>& places) {
    // Its characters must not move while views of them are made.
    texts_.reserve(std::accumulate(places.begin(), places.end(), std::size_t{0},
                                   [&records](std::size_t size, RecordPlace place) {
                                     return size + records[place].Version.size();
                                   }));
    keys_.reserve(places.size());
    const LocaleFold fold;
    for (const RecordPlace place : places) {
      const std::size_t begin = texts_.size();
      fold.Append(records[place].Version, texts_);
      const std::string_view folded = std::string_view(texts_).substr(begin);
      keys_.emplace_back(folded.substr(0, folded.find('\0')));
    }
  }

  const std::vector<VersionKey>& Keys() const { return keys_; }

 private:
  std::string texts_;  // one behind the other
  std::vector<VersionKey> keys_;
};

struct Ranked {
  std::size_t rank;  // among the distinct versions
  RecordPlace place;
};

// In the order of places.
std::vector<Ranked> RanksOf(const std::vector<VersionKey>& keys,
                            const std::vector<RecordPlace>& places) {
  std::vector<std::size_t> order(keys.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(),
            [&keys](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
  std::vector<Ranked> ranked(keys.size());
  std::size_t rank = 0;
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i > 0 && keys[order[i - 1]] < keys[order[i]]) ++rank;
    ranked[order[i]] = {rank, places[order[i]]};
  }
  return ranked;
}

// Where the exchange sort leaves equal ranks depends on every swap that it makes, so it is run as
// it is; but a step ends once it has found the rank that belongs to its place.
void ExchangeSort(std::vector<Ranked>& items) {
  std::vector<std::size_t> sorted;
  sorted.reserve(items.size());
  for (const Ranked& item : items) sorted.push_back(item.rank);
  std::sort(sorted.begin(), sorted.end());
  for (std::size_t p = 0; p < items.size(); ++p) {
    for (std::size_t q = p + 1; items[p].rank != sorted[p]; ++q) {
      if (items[p].rank > items[q].rank) std::swap(items[p], items[q]);
    }
  }
}

bool AreDistinct(const std::vector<Ranked>& items) {
  return std::any_of(items.begin(), items.end(),
                     [&items](const Ranked& item) { return item.rank + 1 == items.size(); });
}

void Sort(std::vector<Ranked>& items) {
  if (!AreDistinct(items)) return ExchangeSort(items);
  std::sort(items.begin(), items.end(),
            [](const Ranked& a, const Ranked& b) { return a.rank < b.rank; });
}

}  // namespace

void RankByVersion(const std::vector<QueryPackageResult>& records,
                   std::vector<RecordPlace>& places) {
  const Versions versions(records, places);
  const std::vector<VersionKey>& keys = versions.Keys();
  if (std::is_sorted(keys.begin(), keys.end())) return;  // nothing to swap
  std::vector<Ranked> ranked = RanksOf(keys, places);
  Sort(ranked);
  std::transform(ranked.begin(), ranked.end(), places.begin(),
                 [](const Ranked& item) { return item.place; });
}

}  // namespace Vornik
