#include "driver_groups.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "letter_case.h"

namespace Vornik {

namespace {

constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

// Pairs of numbers below two counts. Most left numbers have one partner, which needs no look-up.
class PairSet {
 public:
  explicit PairSet(std::size_t leftCount) : firstPartner_(leftCount, none) {}

  // False if the pair is there already.
  bool Insert(std::size_t left, std::size_t right) {
    std::size_t& first = firstPartner_[left];
    if (first == right) return false;
    if (first != none) return others_.emplace(left, right).second;
    first = right;
    return true;
  }

 private:
  std::vector<std::size_t> firstPartner_;
  std::set<std::pair<std::size_t, std::size_t>> others_;
};

bool TakesPart(const QueryPackageResult& record) {
  return record.platformFilterStatus != FilterStatus::NotMatched;
}

// The records that take part, by the folded name of a driver file that they deliver.
class DriverFamilies {
 public:
  explicit DriverFamilies(const std::vector<QueryPackageResult>& records) {
    const LocaleFold fold;
    std::unordered_map<std::string, std::size_t> familyByName;
    std::string name;
    end_.reserve(records.size());
    for (RecordPlace i = 0; i < records.size(); ++i) {
      if (TakesPart(records[i])) {
        for (const auto& file : records[i].driverFiles) {
          name.clear();
          fold.Append(file.name, name);
          Join(familyByName.try_emplace(name, familyByName.size()).first->second, i);
        }
      }
      end_.push_back(families_.size());
    }
  }

  std::size_t Count() const { return members_.size(); }

  // Replaces related by the families of a record that have a later member.
  void FindRelated(RecordPlace record, std::vector<std::size_t>& related) const {
    related.clear();
    for (std::size_t k = record == 0 ? 0 : end_[record - 1]; k < end_[record]; ++k) {
      if (members_[families_[k]].back() > record) related.push_back(families_[k]);
    }
  }

  // Replaces after by the families' members behind a record, in record order, each once.
  void FindMembersAfter(RecordPlace record, const std::vector<std::size_t>& families,
                        std::vector<RecordPlace>& after) const {
    after.clear();
    for (const std::size_t family : families) {
      const auto& members = members_[family];
      after.insert(after.end(), std::upper_bound(members.begin(), members.end(), record),
                   members.end());
    }
    if (families.size() < 2) return;
    std::sort(after.begin(), after.end());
    after.erase(std::unique(after.begin(), after.end()), after.end());
  }

 private:
  void Join(std::size_t family, RecordPlace record) {
    if (family == members_.size()) members_.emplace_back();
    if (!members_[family].empty() && members_[family].back() == record) return;
    members_[family].push_back(record);
    families_.push_back(family);
  }

  std::vector<std::vector<RecordPlace>> members_;
  std::vector<std::size_t> families_;  // of all records, one behind the other
  std::vector<std::size_t> end_;       // where each record's families end
};

// Groups, each code once a group, and the first group of each code.
class Groups {
 public:
  explicit Groups(std::size_t codeCount) : contents_(codeCount), firstGroup_(codeCount, none) {}

  // Opened with the code if there is none.
  std::size_t FirstGroupOf(RecordPlace code) {
    if (firstGroup_[code] == none) {
      groups_.emplace_back();
      Add(groups_.size() - 1, code);
    }
    return firstGroup_[code];
  }

  void Add(std::size_t group, RecordPlace code) {
    if (!contents_.Insert(code, group)) return;
    groups_[group].push_back(code);
    firstGroup_[code] = std::min(firstGroup_[code], group);
  }

  std::vector<DriverGroup> Take() { return std::move(groups_); }

 private:
  std::vector<DriverGroup> groups_;
  PairSet contents_;
  std::vector<std::size_t> firstGroup_;
};

}  // namespace

std::vector<DriverGroup> GroupByDriverFile(const std::vector<QueryPackageResult>& records,
                                           const RecordCodes& codes) {
  const DriverFamilies families(records);
  Groups groups(records.size());
  // What a family's earlier member has put into a group, its later members need not put there
  // again.
  PairSet done(families.Count());
  std::vector<std::size_t> related;
  std::vector<RecordPlace> after;
  for (RecordPlace i = 0; i < records.size(); ++i) {
    families.FindRelated(i, related);
    if (related.empty()) continue;
    const std::size_t group = groups.FirstGroupOf(codes.FirstOfSame(i));
    related.erase(std::remove_if(related.begin(), related.end(),
                                 [&](auto family) { return !done.Insert(family, group); }),
                  related.end());
    families.FindMembersAfter(i, related, after);
    for (const RecordPlace j : after) groups.Add(group, codes.FirstOfSame(j));
  }
  return groups.Take();
}

}  // namespace Vornik
