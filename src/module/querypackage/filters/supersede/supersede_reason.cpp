#include "supersede_reason.h"

#include <algorithm>

#include "version_ranking.h"

namespace Vornik {

namespace {

std::vector<std::string> SharedDriverFiles(const RecordGroup& ranking,
                                           const RecordsByDriverFile& byFile) {
  const std::set<RecordIndex> ranked(ranking.begin(), ranking.end());
  std::vector<std::string> shared;
  for (const auto& [name, file] : byFile.numbers) {
    const auto& all = byFile.records[file];
    const auto isRanked = [&](RecordIndex i) { return ranked.count(i) != 0; };
    if (std::count_if(all.begin(), all.end(), isRanked) > 1) shared.push_back(name);
  }
  return shared;
}

void AddLists(RecordIndex record, const Supersedence& supersedence, SupersedeReason& reason) {
  for (const auto& [code, list] : supersedence.lists) {
    for (const ListedCode& listed : list.codes) {
      if (listed.record == record) reason.lists.push_back({list.owner, listed.position});
    }
    if (list.kept == record) reason.lists.push_back({list.owner, std::nullopt});
  }
}

void AddRankings(RecordIndex record, const Supersedence& supersedence, const SupersedeInput& input,
                 SupersedeReason& reason) {
  ForEachRanking(supersedence, [&](const RecordGroup& ranking) {
    const auto last = std::find(ranking.rbegin(), ranking.rend(), record);
    if (last == ranking.rend()) return;
    const auto place = static_cast<std::size_t>(ranking.rend() - last) - 1;
    reason.rankings.push_back(
        {ranking, place, {}, SharedDriverFiles(ranking, supersedence.byFile)});
    for (const RecordIndex i : ranking) {
      reason.rankings.back().versions.push_back(ComparedVersion(input.records[i], input.fold));
    }
  });
}

void AddRivals(RecordIndex record, const Supersedence& supersedence, const SupersedeInput& input,
               SupersedeReason& reason) {
  for (const std::size_t file : supersedence.byFile.files[record]) {
    for (const RecordIndex i : supersedence.byFile.records[file]) {
      if (i == record) continue;
      if (!IsNotRefused(input.records[i])) {
        reason.refusedRivals.insert(i);
      } else if (supersedence.excludedIds.Contains(input.records[i].identificationCode)) {
        reason.excludedRivals.insert(i);
      }
    }
  }
}

}  // namespace

SupersedeReason ReasonFor(RecordIndex record, const Supersedence& supersedence,
                          const SupersedeInput& input) {
  const CodeIndex& codes = supersedence.codes;
  const std::string& code = input.records[record].identificationCode;
  SupersedeReason reason;
  reason.isRefused = !IsNotRefused(input.records[record]);
  reason.isExcluded = supersedence.excludedIds.Contains(code);
  reason.hasNoProperties = !reason.isRefused && !input.lists[record];
  reason.marked = codes.FirstCaseInsensitiveMatch(record);
  const auto counted = supersedence.lists.find(code);
  if (counted != supersedence.lists.end()) reason.listCounted = counted->second.owner;
  const CodeList list = input.lists[record].value_or(CodeList());
  for (std::size_t k = 0; k < list.size(); ++k) {
    if (codes.FirstCaseInsensitiveMatch(list[k]) == noRecord) reason.unknownCodes.push_back(k);
  }
  AddLists(record, supersedence, reason);
  AddRankings(record, supersedence, input, reason);
  AddRivals(record, supersedence, input, reason);
  return reason;
}

}  // namespace Vornik
