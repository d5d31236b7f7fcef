#include "supersede_reason.h"

#include <algorithm>
#include <set>

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
  const RecordIndex code = supersedence.codes.FirstWithSameCode(record);
  for (const AppliedList& list : supersedence.lists) {
    for (const ListedCode& listed : list.codes) {
      if (listed.record == record) reason.lists.push_back({list.owner, listed.position});
    }
    if (list.kept == record) reason.lists.push_back({list.owner, std::nullopt});
    if (supersedence.codes.FirstWithSameCode(list.owner) == code) reason.listCounted = list.owner;
  }
}

void AddRankings(RecordIndex record, const Supersedence& supersedence, const SupersedeInput& input,
                 SupersedeReason& reason) {
  for (const RecordGroup& ranking : supersedence.rankings) {
    const auto last = std::find(ranking.rbegin(), ranking.rend(), record);
    if (last == ranking.rend()) continue;
    reason.rankings.push_back({ranking, static_cast<std::size_t>(ranking.rend() - last) - 1,
                               ComparedVersions(input.records, ranking, input.fold),
                               SharedDriverFiles(ranking, supersedence.byFile)});
  }
}

void AddRivals(RecordIndex record, const Supersedence& supersedence, const SupersedeInput& input,
               SupersedeReason& reason) {
  std::set<RecordIndex> rivals;
  for (const std::size_t file : supersedence.byFile.files[record]) {
    const auto& all = supersedence.byFile.records[file];
    rivals.insert(all.begin(), all.end());
  }
  rivals.erase(record);
  for (const RecordIndex i : rivals) {
    if (!IsNotRefused(input.records[i])) {
      reason.refusedRivals.push_back(i);
    } else if (supersedence.isExcluded[i]) {
      reason.excludedRivals.push_back(i);
    }
  }
}

}  // namespace

SupersedeReason ReasonFor(RecordIndex record, const Supersedence& supersedence,
                          const SupersedeInput& input) {
  SupersedeReason reason{};
  reason.isRefused = !IsNotRefused(input.records[record]);
  reason.isExcluded = supersedence.isExcluded[record];
  reason.hasNoProperties = !reason.isRefused && !input.lists[record];
  reason.marked = supersedence.codes.FirstCaseInsensitiveMatch(record);
  const CodeList list = input.lists[record].value_or(CodeList());
  for (std::size_t k = 0; k < list.size(); ++k) {
    const RecordIndex found = supersedence.codes.FirstCaseInsensitiveMatch(list[k]);
    if (found == noRecord) reason.unknownCodes.push_back(k);
  }
  AddLists(record, supersedence, reason);
  AddRankings(record, supersedence, input, reason);
  AddRivals(record, supersedence, input, reason);
  return reason;
}

}  // namespace Vornik
