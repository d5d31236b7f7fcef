#include "driver_groups.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <set>
#include <utility>

namespace Vornik {

namespace {

constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

}  // namespace

RecordsByDriverFile::RecordsByDriverFile(const std::vector<QueryPackageResult>& all,
                                         const LocaleFold& fold)
    : files(all.size()) {
  for (RecordIndex i = 0; i < all.size(); ++i) {
    for (const auto& file : all[i].driverFiles) Add(fold(file.name), i);
  }
}

void RecordsByDriverFile::Add(const std::string& foldedName, RecordIndex record) {
  const std::size_t file = numbers.try_emplace(foldedName, numbers.size()).first->second;
  if (file == records.size()) records.emplace_back();
  if (!records[file].empty() && records[file].back() == record) return;
  records[file].push_back(record);
  files[record].push_back(file);
}

bool IsNotRefused(const QueryPackageResult& record) {
  return record.platformFilterStatus != FilterStatus::NotMatched;
}

std::vector<RecordGroup> GroupByDriverFile(const std::vector<QueryPackageResult>& records,
                                           const CodeIndex& codes,
                                           const RecordsByDriverFile& byFile) {
  std::vector<RecordGroup> groups;
  std::vector<std::size_t> firstGroup(records.size(), none);  // with each code
  // The group to which the later records of each driver file were added last. They need not be
  // added to it again; and since it is then a group of each of them, only an earlier one can
  // follow.
  std::vector<std::size_t> addedTo(byFile.records.size(), none);
  for (RecordIndex i = 0; i < records.size(); ++i) {
    if (!IsNotRefused(records[i])) continue;
    const std::size_t group = std::min(firstGroup[codes.FirstWithSameCode(i)], groups.size());
    std::set<RecordIndex> added;
    for (const std::size_t file : byFile.files[i]) {
      if (std::exchange(addedTo[file], group) == group) continue;
      const std::vector<RecordIndex>& all = byFile.records[file];
      std::copy_if(std::upper_bound(all.begin(), all.end(), i), all.end(),
                   std::inserter(added, added.end()),
                   [&](RecordIndex later) { return IsNotRefused(records[later]); });
    }
    if (added.empty()) continue;
    if (group == groups.size()) {
      groups.emplace_back();
      added.insert(i);
    }
    for (const RecordIndex j : added) {
      const RecordIndex code = codes.FirstWithSameCode(j);
      groups[group].push_back(code);
      firstGroup[code] = std::min(firstGroup[code], group);
    }
  }
  return groups;
}

std::vector<RecordGroup> CleanGroups(const std::vector<RecordGroup>& groups,
                                     const std::vector<bool>& isExcluded) {
  std::vector<RecordGroup> cleaned;
  std::vector<std::size_t> lastGroup(isExcluded.size(), none);  // in which each code was seen
  for (std::size_t i = 0; i < groups.size(); ++i) {
    RecordGroup group;
    for (const RecordIndex code : groups[i]) {
      if (!isExcluded[code] && std::exchange(lastGroup[code], i) != i) group.push_back(code);
    }
    if (group.size() >= 2) cleaned.push_back(std::move(group));
  }
  return cleaned;
}

}  // namespace Vornik
