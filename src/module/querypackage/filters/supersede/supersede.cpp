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

std::vector<bool> OfEach(const Records& records,
                         const std::function<bool(const QueryPackageResult&)>& rule) {
  std::vector<bool> answers(records.size());
  std::transform(records.begin(), records.end(), answers.begin(), rule);
  return answers;
}

std::vector<std::size_t> NumberedVersions(const SupersedeInput& input) {
  std::vector<std::string> versions;
  versions.reserve(input.records.size());
  for (const QueryPackageResult& record : input.records) {
    versions.push_back(ComparedVersion(record, input.fold));
  }
  return NumberVersions(versions);
}

RecordGroup Ranked(RecordGroup group, const Supersedence& supersedence) {
  std::vector<std::size_t> versions;
  versions.reserve(group.size());
  for (RecordIndex& record : group) {
    record = supersedence.codes.FirstCaseInsensitiveMatch(record);
    versions.push_back(supersedence.versions[record]);
  }
  RecordGroup ranking;
  ranking.reserve(group.size());
  for (const std::size_t k : RankNumbers(versions)) ranking.push_back(group[k]);
  return ranking;
}

}  // namespace

RecordGroup CleanGroup(RecordGroup codes, const std::vector<bool>& isExcluded) {
  codes.erase(std::remove_if(codes.begin(), codes.end(),
                             [&isExcluded](RecordIndex code) { return isExcluded[code]; }),
              codes.end());
  return codes;
}

Supersedence ResolveSupersedence(const SupersedeInput& input) {
  const auto& records = input.records;
  Supersedence result{CodeIndex(records, input.fold), RecordsByDriverFile(records, input.fold),
                      IdSet(input.excludedIds)};
  result.lists = FindLists(input, result.codes);
  result.takesPart = OfEach(records, IsNotRefused);
  result.isExcluded = OfEach(records, [&result](const QueryPackageResult& record) {
    return result.excludedIds.Contains(record.identificationCode);
  });
  result.versions = NumberedVersions(input);
  result.groups = FindGroups(result.takesPart, result.codes, result.byFile);
  return result;
}

void ForEachRanking(const Supersedence& supersedence, const VisitRanking& visit) {
  GroupMembers members(supersedence.takesPart, supersedence.codes, supersedence.byFile);
  for (const RecordGroup& anchors : supersedence.groups) {
    RecordGroup group = CleanGroup(members.Of(anchors), supersedence.isExcluded);
    if (group.size() >= 2) visit(Ranked(std::move(group), supersedence));
  }
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
  ForEachRanking(supersedence, [&](const RecordGroup& ranking) {
    for (std::size_t k = 0; k < ranking.size(); ++k) {
      SupersedeVerdict& verdict = verdicts[ranking[k]];
      verdict.isSuperseded = k + 1 != ranking.size();
      if (k != 0) verdict.supersedesId = codeOf(ranking[k - 1]);
      if (verdict.isSuperseded) verdict.supersededById = codeOf(ranking[k + 1]);
    }
  });
  return verdicts;
}

void WriteVerdict(const SupersedeVerdict& verdict, QueryPackageResult& record) {
  record.supersedeFilterStatus =
      verdict.isSuperseded ? FilterStatus::NotMatched : FilterStatus::Matched;
  if (verdict.supersedesId != nullptr) record.supersedesId = *verdict.supersedesId;
  if (verdict.supersededById != nullptr) record.supersededById = *verdict.supersededById;
}

}  // namespace Vornik
