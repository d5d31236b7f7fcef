#include "supersede.h"

#include <map>
#include <string_view>
#include <utility>

#include "filters/package_ids.h"
#include "version_ranking.h"

namespace Vornik {

namespace {

// Of two records with the same code the later list counts.
std::vector<AppliedList> ListsInOrder(const SupersedeInput& input, const CodeIndex& codes) {
  std::map<std::string_view, AppliedList> byCode;
  for (RecordIndex i = 0; i < input.records.size(); ++i) {
    if (!input.lists[i]) continue;
    AppliedList list{i, codes.FirstCaseInsensitiveMatch(i), {}};
    for (std::size_t position = 0; position < input.lists[i]->size(); ++position) {
      const RecordIndex record = codes.FirstCaseInsensitiveMatch((*input.lists[i])[position]);
      if (record != noRecord) list.codes.push_back({position, record});
    }
    if (list.codes.empty()) continue;
    byCode.insert_or_assign(input.records[i].identificationCode, std::move(list));
  }
  std::vector<AppliedList> inOrder;
  inOrder.reserve(byCode.size());
  for (auto& [code, list] : byCode) inOrder.push_back(std::move(list));
  return inOrder;
}

std::vector<bool> AreExcluded(const SupersedeInput& input) {
  std::vector<bool> areExcluded(input.records.size());
  if (input.excludedIds.empty()) return areExcluded;
  IdSet excluded(input.excludedIds);
  for (RecordIndex i = 0; i < input.records.size(); ++i) {
    areExcluded[i] = excluded.Contains(input.records[i].identificationCode);
  }
  return areExcluded;
}

RecordGroup Ranked(RecordGroup group, const SupersedeInput& input, const CodeIndex& codes) {
  for (RecordIndex& code : group) code = codes.FirstCaseInsensitiveMatch(code);
  RecordGroup ranking;
  for (const std::size_t k : RankVersions(ComparedVersions(input.records, group, input.fold))) {
    ranking.push_back(group[k]);
  }
  return ranking;
}

}  // namespace

Supersedence ResolveSupersedence(const SupersedeInput& input) {
  Supersedence result{CodeIndex(input.records, input.fold),
                      RecordsByDriverFile(input.records, input.fold),
                      AreExcluded(input),
                      {},
                      {}};
  result.lists = ListsInOrder(input, result.codes);
  const auto groups = GroupByDriverFile(input.records, result.codes, result.byFile);
  for (RecordGroup& group : CleanGroups(groups, result.isExcluded)) {
    result.rankings.push_back(Ranked(std::move(group), input, result.codes));
  }
  return result;
}

std::vector<SupersedeVerdict> ApplySupersedence(const Supersedence& supersedence,
                                                const SupersedeInput& input) {
  const auto codeOf = [&](RecordIndex i) { return &input.records[i].identificationCode; };
  std::vector<SupersedeVerdict> verdicts(input.records.size());
  for (const AppliedList& list : supersedence.lists) {
    for (const ListedCode& code : list.codes) {
      verdicts[code.record].supersededById = codeOf(list.owner);
      verdicts[code.record].isSuperseded = true;
    }
    verdicts[list.kept].supersedesId = &(*input.lists[list.owner])[list.codes.front().position];
    verdicts[list.kept].isSuperseded = false;
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
