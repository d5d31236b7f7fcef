#include "supersede_rules.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>
#include <numeric>
#include <set>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "id_rules.h"
#include "letter_case.h"

namespace Vornik {

namespace {

constexpr std::size_t notFound = std::numeric_limits<std::size_t>::max();

// The first record of each code, without regard to case.
class RecordIndex {
 public:
  explicit RecordIndex(const SupersedeRecords& records) {
    firstByFoldedCode_.reserve(records.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
      firstByFoldedCode_.try_emplace(fold_(records[i].identificationCode), i);
    }
  }

  std::size_t Find(const std::string& code) const {
    const auto found = firstByFoldedCode_.find(fold_(code));
    return found == firstByFoldedCode_.end() ? notFound : found->second;
  }

 private:
  LocaleFold fold_;
  std::unordered_map<std::string, std::size_t> firstByFoldedCode_;
};

bool TakesPart(const QueryPackageResult& record) {
  return record.platformFilterStatus != FilterStatus::NotMatched;
}

// The records that take part, by the folded name of a driver file that they deliver.
class DriverFamilies {
 public:
  explicit DriverFamilies(const SupersedeRecords& records) : familiesOf_(records.size()) {
    const LocaleFold fold;
    std::unordered_map<std::string, std::size_t> familyByName;
    familyByName.reserve(records.size());
    members_.reserve(records.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
      if (!TakesPart(records[i])) continue;
      for (const auto& file : records[i].driverFiles) {
        const std::size_t family =
            familyByName.try_emplace(fold(file.name), familyByName.size()).first->second;
        if (family == members_.size()) members_.emplace_back();
        if (!members_[family].empty() && members_[family].back() == i) continue;
        members_[family].push_back(i);
        familiesOf_[i].push_back(family);
      }
    }
  }

  const std::vector<std::size_t>& FamiliesOf(std::size_t record) const {
    return familiesOf_[record];
  }

  bool HasMemberAfter(std::size_t family, std::size_t record) const {
    return members_[family].back() > record;
  }

  // The members behind a record, of several families, in record order, each once.
  std::vector<std::size_t> MembersAfter(const std::vector<std::size_t>& families,
                                        std::size_t record) const {
    std::vector<std::size_t> after;
    for (const std::size_t family : families) {
      const auto& members = members_[family];
      after.insert(after.end(), std::upper_bound(members.begin(), members.end(), record),
                   members.end());
    }
    if (families.size() > 1) {
      std::sort(after.begin(), after.end());
      after.erase(std::unique(after.begin(), after.end()), after.end());
    }
    return after;
  }

 private:
  std::vector<std::vector<std::size_t>> members_;
  std::vector<std::vector<std::size_t>> familiesOf_;
};

// Groups of codes, each code once a group, and the first group of each code.
class CodeGroups {
 public:
  std::size_t FirstGroupOf(const std::string& code) const {
    const auto found = firstGroup_.find(code);
    return found == firstGroup_.end() ? notFound : found->second;
  }

  std::size_t Open(const std::string& code) {
    groups_.emplace_back();
    members_.emplace_back();
    Add(groups_.size() - 1, code);
    return groups_.size() - 1;
  }

  void Add(std::size_t group, const std::string& code) {
    if (!members_[group].insert(code).second) return;
    groups_[group].push_back(code);
    const auto [first, isNew] = firstGroup_.try_emplace(code, group);
    if (!isNew) first->second = std::min(first->second, group);
  }

  std::vector<CodeList> Take() { return std::move(groups_); }

 private:
  std::vector<CodeList> groups_;
  std::vector<std::unordered_set<std::string_view>> members_;
  std::unordered_map<std::string_view, std::size_t> firstGroup_;
};

// Each version's place among the distinct ones, so that the sort compares numbers.
std::vector<std::size_t> RanksOf(const std::vector<std::string>& versions) {
  const auto less = [&versions](std::size_t a, std::size_t b) {
    return std::strcmp(versions[a].c_str(), versions[b].c_str()) < 0;
  };
  std::vector<std::size_t> order(versions.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(), less);
  std::vector<std::size_t> ranks(versions.size());
  for (std::size_t i = 1; i < order.size(); ++i) {
    ranks[order[i]] = ranks[order[i - 1]] + (less(order[i - 1], order[i]) ? 1U : 0U);
  }
  return ranks;
}

// Where the exchange sort leaves equal ranks depends on every swap that it makes, so it is run as
// it is, unless there is nothing to swap or nothing equal.
void ExchangeSort(std::vector<std::size_t>& items, const std::vector<std::size_t>& ranks) {
  const auto ranksLess = [&ranks](std::size_t a, std::size_t b) { return ranks[a] < ranks[b]; };
  if (std::is_sorted(items.begin(), items.end(), ranksLess)) return;
  const std::size_t highest = *std::max_element(ranks.begin(), ranks.end());
  if (highest + 1 == items.size()) {
    std::sort(items.begin(), items.end(), ranksLess);
    return;
  }
  for (std::size_t p = 0; p < items.size(); ++p) {
    for (std::size_t q = p + 1; q < items.size(); ++q) {
      if (ranks[items[p]] > ranks[items[q]]) std::swap(items[p], items[q]);
    }
  }
}

void ApplyMap(SupersedeRecords& records, const RecordIndex& index, const SupersedeMap& map) {
  for (const auto& [key, listed] : map) {
    for (const std::string& code : listed) {
      const std::size_t superseded = index.Find(code);
      if (superseded == notFound) continue;
      records[superseded].supersededById = key;
      records[superseded].supersedeFilterStatus = FilterStatus::NotMatched;
    }
    const std::size_t superseding = index.Find(key);
    if (superseding == notFound) continue;
    records[superseding].supersedesId = listed.front();
    records[superseding].supersedeFilterStatus = FilterStatus::Matched;
  }
}

void ApplyRanking(SupersedeRecords& records, const std::vector<std::size_t>& ranked) {
  for (std::size_t k = 0; k < ranked.size(); ++k) {
    QueryPackageResult& record = records[ranked[k]];
    if (k > 0) record.supersedesId = records[ranked[k - 1]].identificationCode;
    if (k + 1 < ranked.size()) {
      record.supersededById = records[ranked[k + 1]].identificationCode;
      record.supersedeFilterStatus = FilterStatus::NotMatched;
    } else {
      record.supersedeFilterStatus = FilterStatus::Matched;
    }
  }
}

std::vector<std::size_t> RankByVersion(const SupersedeRecords& records, const RecordIndex& index,
                                       const CodeList& group) {
  const LocaleFold fold;
  std::vector<std::size_t> found;
  std::vector<std::string> versions;
  found.reserve(group.size());
  versions.reserve(group.size());
  for (const std::string& code : group) {
    const std::size_t record = index.Find(code);
    if (record == notFound) continue;
    found.push_back(record);
    versions.push_back(fold(records[record].Version));
  }
  if (found.size() < 2) return {};
  std::vector<std::size_t> places(found.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  ExchangeSort(places, RanksOf(versions));
  std::transform(places.begin(), places.end(), places.begin(),
                 [&found](std::size_t place) { return found[place]; });
  return places;
}

SupersedeMap MapExplicitLists(const SupersedeRecords& records, const RecordIndex& index,
                              const std::vector<CodeList>& lists) {
  SupersedeMap map;
  for (std::size_t i = 0; i < lists.size(); ++i) {
    CodeList kept;
    std::copy_if(lists[i].begin(), lists[i].end(), std::back_inserter(kept),
                 [&index](const std::string& code) { return index.Find(code) != notFound; });
    if (!kept.empty()) map[records[i].identificationCode] = std::move(kept);
  }
  return map;
}

}  // namespace

SupersedeMap MapExplicitLists(const SupersedeRecords& records, const std::vector<CodeList>& lists) {
  return MapExplicitLists(records, RecordIndex(records), lists);
}

std::vector<CodeList> GroupByDriverFile(const SupersedeRecords& records) {
  const DriverFamilies families(records);
  CodeGroups groups;
  // What a family's earlier member has put into a group, its later members need not put there
  // again.
  std::set<std::pair<std::size_t, std::size_t>> done;
  for (std::size_t i = 0; i < records.size(); ++i) {
    std::vector<std::size_t> related = families.FamiliesOf(i);
    related.erase(std::remove_if(related.begin(), related.end(),
                                 [&](auto family) { return !families.HasMemberAfter(family, i); }),
                  related.end());
    if (related.empty()) continue;
    const std::string& code = records[i].identificationCode;
    std::size_t group = groups.FirstGroupOf(code);
    if (group == notFound) group = groups.Open(code);
    related.erase(std::remove_if(related.begin(), related.end(),
                                 [&](auto family) { return !done.emplace(family, group).second; }),
                  related.end());
    for (const std::size_t j : families.MembersAfter(related, i)) {
      groups.Add(group, records[j].identificationCode);
    }
  }
  return groups.Take();
}

std::vector<CodeList> RankedGroups(const SupersedeRecords& records,
                                   const std::vector<std::string>& excludedIds) {
  IdSet excluded(excludedIds);
  std::vector<CodeList> ranked;
  for (CodeList& group : GroupByDriverFile(records)) {
    group.erase(std::remove_if(group.begin(), group.end(),
                               [&](const std::string& code) { return excluded.Contains(code); }),
                group.end());
    if (group.size() >= 2) ranked.push_back(std::move(group));
  }
  return ranked;
}

std::vector<std::size_t> RankByVersion(const SupersedeRecords& records, const CodeList& group) {
  return RankByVersion(records, RecordIndex(records), group);
}

void ResolveSupersedence(SupersedeRecords& records, const std::vector<CodeList>& lists,
                         const std::vector<std::string>& excludedIds) {
  for (QueryPackageResult& record : records) record.supersedeFilterStatus = FilterStatus::Matched;
  const RecordIndex index(records);
  ApplyMap(records, index, MapExplicitLists(records, index, lists));
  for (const CodeList& group : RankedGroups(records, excludedIds)) {
    ApplyRanking(records, RankByVersion(records, index, group));
  }
}

}  // namespace Vornik
