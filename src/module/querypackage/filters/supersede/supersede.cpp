#include "supersede.h"

#include <algorithm>
#include <utility>

#include "version_ranking.h"

namespace Vornik {

namespace {

// Step 2. Of two records with the same code the later list counts.
ListsInOrder FindLists(const SupersedeInput& input, const CodeIndex& codes) {
  ListsInOrder lists;
  for (RecordIndex i = 0; i < input.records.size(); ++i) {
    if (!input.lists[i]) continue;
    AppliedList list{i, codes.FirstCaseInsensitiveMatch(i), {}};
    for (std::size_t position = 0; position < input.lists[i]->size(); ++position) {
      const RecordIndex record = codes.FirstCaseInsensitiveMatch((*input.lists[i])[position]);
      if (record != noRecord) list.codes.push_back({position, record});
    }
    if (!list.codes.empty()) lists[input.records[i].identificationCode] = std::move(list);
  }
  return lists;
}

// Step 6: the records for a group's codes, by ascending version.
RecordGroup Ranked(RecordGroup group, const SupersedeInput& input, const CodeIndex& codes) {
  std::vector<std::string> versions;
  for (RecordIndex& record : group) {
    record = codes.FirstCaseInsensitiveMatch(record);
    versions.push_back(ComparedVersion(input.records[record], input.fold));
  }
  RecordGroup ranking;
  for (const std::size_t k : RankVersions(versions)) ranking.push_back(group[k]);
  return ranking;
}

}  // namespace

RecordsByDriverFile::RecordsByDriverFile(const Records& all, const LocaleFold& fold)
    : files(all.size()) {
  for (RecordIndex i = 0; i < all.size(); ++i) {
    for (const auto& file : all[i].driverFiles) {
      const std::size_t number = numbers.try_emplace(fold(file.name), numbers.size()).first->second;
      records.resize(numbers.size());
      if (!records[number].empty() && records[number].back() == i) continue;
      records[number].push_back(i);
      files[i].push_back(number);
    }
  }
}

RecordGroups GroupByDriverFile(const Records& records, const CodeIndex& codes,
                               const RecordsByDriverFile& byFile) {
  RecordGroups groups;
  // The first group with each code, and the one to which the later records of each driver file were
  // added last, as once is enough. There are fewer groups than records.
  std::vector<std::size_t> firstGroup(records.size(), records.size());
  std::vector<std::size_t> addedTo(byFile.records.size(), records.size());
  for (RecordIndex i = 0; i < records.size(); ++i) {
    if (!IsNotRefused(records[i])) continue;
    const std::size_t group = std::min(firstGroup[codes.FirstWithSameCode(i)], groups.size());
    std::vector<RecordIndex> added;
    for (const std::size_t file : byFile.files[i]) {
      if (std::exchange(addedTo[file], group) == group) continue;
      for (const RecordIndex later : byFile.records[file]) {
        if (later > i && IsNotRefused(records[later])) added.push_back(later);
      }
    }
    if (added.empty()) continue;
    if (group == groups.size()) {
      groups.emplace_back();
      added.push_back(i);
    }
    std::sort(added.begin(), added.end());
    for (const RecordIndex j : added) {
      const RecordIndex code = codes.FirstWithSameCode(j);
      groups[group].push_back(code);
      firstGroup[code] = std::min(firstGroup[code], group);
    }
  }
  return groups;
}

RecordGroups CleanGroups(const RecordGroups& groups, const Records& records,
                         const IdSet& excludedIds) {
  RecordGroups cleaned;
  // The group in which each code was seen last.
  std::vector<std::size_t> lastGroup(records.size(), groups.size());
  for (std::size_t i = 0; i < groups.size(); ++i) {
    RecordGroup group;
    for (const RecordIndex code : groups[i]) {
      if (std::exchange(lastGroup[code], i) == i) continue;
      if (!excludedIds.Contains(records[code].identificationCode)) group.push_back(code);
    }
    if (group.size() >= 2) cleaned.push_back(std::move(group));
  }
  return cleaned;
}

Supersedence ResolveSupersedence(const SupersedeInput& input) {
  const auto& records = input.records;
  Supersedence result{CodeIndex(records, input.fold), RecordsByDriverFile(records, input.fold),
                      IdSet(input.excludedIds)};
  result.lists = FindLists(input, result.codes);
  const auto groups = GroupByDriverFile(records, result.codes, result.byFile);
  for (RecordGroup& group : CleanGroups(groups, records, result.excludedIds)) {
    result.rankings.push_back(Ranked(std::move(group), input, result.codes));
  }
  return result;
}

std::vector<SupersedeVerdict> ApplySupersedence(const Supersedence& supersedence,
                                                const SupersedeInput& input) {
  const auto codeOf = [&](RecordIndex i) { return &input.records[i].identificationCode; };
  std::vector<SupersedeVerdict> verdicts(input.records.size());
  for (const auto& [code, list] : supersedence.lists) {
    for (const ListedCode& listed : list.codes) {
      verdicts[listed.record].isSuperseded = true;
      verdicts[listed.record].supersededById = codeOf(list.owner);
    }
    verdicts[list.kept].isSuperseded = false;
    verdicts[list.kept].supersedesId = &(*input.lists[list.owner])[list.codes.front().position];
  }
  for (const RecordGroup& ranking : supersedence.rankings) {
    for (std::size_t k = 0; k < ranking.size(); ++k) {
      SupersedeVerdict& verdict = verdicts[ranking[k]];
      verdict.isSuperseded = k + 1 != ranking.size();
      if (k != 0) verdict.supersedesId = codeOf(ranking[k - 1]);
      if (verdict.isSuperseded) verdict.supersededById = codeOf(ranking[k + 1]);
    }
  }
  return verdicts;
}

void WriteVerdict(const SupersedeVerdict& verdict, QueryPackageResult& record) {
  record.supersedeFilterStatus =
      verdict.isSuperseded ? FilterStatus::NotMatched : FilterStatus::Matched;
  if (verdict.supersedesId != nullptr) record.supersedesId = *verdict.supersedesId;
  if (verdict.supersededById != nullptr) record.supersededById = *verdict.supersededById;
}

}  // namespace Vornik
