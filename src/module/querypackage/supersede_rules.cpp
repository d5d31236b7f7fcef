#include "supersede_rules.h"

#include <algorithm>
#include <utility>

#include "driver_groups.h"
#include "id_rules.h"
#include "record_codes.h"
#include "version_ranking.h"

namespace Vornik {

namespace {

// A listed code that a record bears.
struct ListedCode {
  const std::string* code;
  RecordPlace found;
};

// What the lists come to, by record, each a piece of one sequence.
class SupersedeLists {
 public:
  // Without the codes that no record bears.
  SupersedeLists(const ListPointers& lists, RecordCodes& codes) {
    end_.reserve(lists.size());
    for (const CodeList* list : lists) {
      if (list != nullptr) Append(*list, codes);
      end_.push_back(listed_.size());
    }
  }

  std::size_t Count() const { return end_.size(); }
  const ListedCode* Begin(RecordPlace record) const {
    return listed_.data() + (record == 0 ? 0 : end_[record - 1]);
  }
  const ListedCode* End(RecordPlace record) const { return listed_.data() + end_[record]; }
  bool IsEmpty(RecordPlace record) const { return Begin(record) == End(record); }

 private:
  void Append(const CodeList& list, RecordCodes& codes) {
    for (const std::string& code : list) {
      const RecordPlace found = codes.Find(code);
      if (found != noRecord) listed_.push_back({&code, found});
    }
  }

  std::vector<ListedCode> listed_;
  std::vector<std::size_t> end_;
};

ListPointers PointersTo(const std::vector<CodeList>& lists) {
  ListPointers pointers(lists.size());
  std::transform(lists.begin(), lists.end(), pointers.begin(),
                 [](const CodeList& list) { return &list; });
  return pointers;
}

// The records whose list counts, in byte order of their codes: of two records of one code the later
// one.
std::vector<RecordPlace> Superseding(const SupersedeRecords& records, const RecordCodes& codes,
                                     const SupersedeLists& lists) {
  std::vector<RecordPlace> lastOfSame(records.size(), noRecord);
  for (RecordPlace i = 0; i < lists.Count(); ++i) {
    if (!lists.IsEmpty(i)) lastOfSame[codes.FirstOfSame(i)] = i;
  }
  lastOfSame.erase(std::remove(lastOfSame.begin(), lastOfSame.end(), noRecord), lastOfSame.end());
  const auto byCode = [&records](RecordPlace a, RecordPlace b) {
    return records[a].identificationCode < records[b].identificationCode;
  };
  if (!std::is_sorted(lastOfSame.begin(), lastOfSame.end(), byCode)) {
    std::sort(lastOfSame.begin(), lastOfSame.end(), byCode);
  }
  return lastOfSame;
}

void ApplyLists(SupersedeRecords& records, const RecordCodes& codes, const SupersedeLists& lists) {
  for (const RecordPlace record : Superseding(records, codes, lists)) {
    std::for_each(lists.Begin(record), lists.End(record), [&](const ListedCode& listed) {
      records[listed.found].supersededById = records[record].identificationCode;
      records[listed.found].supersedeFilterStatus = FilterStatus::NotMatched;
    });
    QueryPackageResult& superseding = records[codes.FindFor(record)];
    superseding.supersedesId = *lists.Begin(record)->code;
    superseding.supersedeFilterStatus = FilterStatus::Matched;
  }
}

void ApplyRanking(SupersedeRecords& records, const std::vector<RecordPlace>& ranked) {
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

std::vector<DriverGroup> RankedGroups(const SupersedeRecords& records, const RecordCodes& codes,
                                      const std::vector<std::string>& excludedIds) {
  std::vector<DriverGroup> groups = GroupByDriverFile(records, codes);
  if (!excludedIds.empty()) {
    IdSet excluded(excludedIds);
    for (DriverGroup& group : groups) {
      group.erase(std::remove_if(group.begin(), group.end(),
                                 [&](RecordPlace place) {
                                   return excluded.Contains(records[place].identificationCode);
                                 }),
                  group.end());
    }
  }
  groups.erase(std::remove_if(groups.begin(), groups.end(),
                              [](const DriverGroup& group) { return group.size() < 2; }),
               groups.end());
  return groups;
}

std::vector<CodeList> CodesOf(const SupersedeRecords& records,
                              const std::vector<DriverGroup>& groups) {
  std::vector<CodeList> codes;
  codes.reserve(groups.size());
  for (const DriverGroup& group : groups) {
    CodeList& list = codes.emplace_back();
    list.reserve(group.size());
    for (const RecordPlace place : group) list.push_back(records[place].identificationCode);
  }
  return codes;
}

}  // namespace

SupersedeMap MapExplicitLists(const SupersedeRecords& records, const std::vector<CodeList>& lists) {
  RecordCodes codes(records);
  const SupersedeLists listed(PointersTo(lists), codes);
  SupersedeMap map;
  for (const RecordPlace record : Superseding(records, codes, listed)) {
    CodeList& list = map[records[record].identificationCode];
    std::for_each(listed.Begin(record), listed.End(record),
                  [&list](const ListedCode& one) { list.push_back(*one.code); });
  }
  return map;
}

std::vector<CodeList> GroupByDriverFile(const SupersedeRecords& records) {
  return CodesOf(records, GroupByDriverFile(records, RecordCodes(records)));
}

std::vector<CodeList> RankedGroups(const SupersedeRecords& records,
                                   const std::vector<std::string>& excludedIds) {
  return CodesOf(records, RankedGroups(records, RecordCodes(records), excludedIds));
}

std::vector<std::size_t> RankByVersion(const SupersedeRecords& records, const CodeList& group) {
  RecordCodes codes(records);
  std::vector<RecordPlace> places;
  for (const std::string& code : group) {
    const RecordPlace found = codes.Find(code);
    if (found != noRecord) places.push_back(found);
  }
  if (places.size() < 2) return {};
  RankByVersion(records, places);
  return places;
}

void ResolveSupersedence(SupersedeRecords& records, const ListPointers& lists,
                         const std::vector<std::string>& excludedIds) {
  for (QueryPackageResult& record : records) record.supersedeFilterStatus = FilterStatus::Matched;
  RecordCodes codes(records);
  ApplyLists(records, codes, SupersedeLists(lists, codes));
  for (DriverGroup& group : RankedGroups(records, codes, excludedIds)) {
    for (RecordPlace& place : group) place = codes.FindFor(place);
    RankByVersion(records, group);
    ApplyRanking(records, group);
  }
}

void ResolveSupersedence(SupersedeRecords& records, const std::vector<CodeList>& lists,
                         const std::vector<std::string>& excludedIds) {
  ResolveSupersedence(records, PointersTo(lists), excludedIds);
}

}  // namespace Vornik
