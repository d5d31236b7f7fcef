#include "driver_groups.h"

#include <algorithm>
#include <utility>

namespace Vornik {

namespace {

constexpr std::size_t noGroup = static_cast<std::size_t>(-1);

// Goes over the records in order and finds for each the first group with its code. The records that
// an anchor adds are not visited: each driver file knows the first group to which its later records
// were added.
class GroupFinder {
 public:
  GroupFinder(const std::vector<bool>& takesPart, const CodeIndex& codes,
              const RecordsByDriverFile& byFile)
      : takesPart_(takesPart),
        codes_(codes),
        byFile_(byFile),
        lastRecord_(byFile.records.size(), 0),
        groupOfFile_(byFile.records.size(), noGroup),
        groupOfCode_(takesPart.size(), noGroup),
        nextWithSameCode_(takesPart.size(), noRecord) {
    for (std::size_t file = 0; file < byFile.records.size(); ++file) {
      for (const RecordIndex i : byFile.records[file]) {
        if (takesPart[i]) lastRecord_[file] = i;
      }
    }
    std::vector<RecordIndex> next(takesPart.size(), noRecord);
    for (RecordIndex i = takesPart.size(); i-- > 0;) {
      if (takesPart[i]) nextWithSameCode_[i] = std::exchange(next[codes.FirstWithSameCode(i)], i);
    }
  }

  std::vector<RecordGroup> Run() {
    for (RecordIndex i = 0; i < takesPart_.size(); ++i) {
      if (takesPart_[i]) Add(i);
    }
    return std::move(groups_);
  }

 private:
  void Add(RecordIndex i) {
    std::size_t& groupOfCode = groupOfCode_[codes_.FirstWithSameCode(i)];
    groupOfCode = std::min(groupOfCode, FirstGroupOf(i));
    if (!HasLaterRelative(i)) return;
    // Earlier records may have added later ones with this code already. A query has none.
    for (RecordIndex j = nextWithSameCode_[i]; j != noRecord; j = nextWithSameCode_[j]) {
      groupOfCode = std::min(groupOfCode, FirstGroupOf(j));
    }
    if (groupOfCode == noGroup) {
      groupOfCode = groups_.size();
      groups_.emplace_back();
    }
    groups_[groupOfCode].push_back(i);
    for (const std::size_t file : byFile_.files[i]) {
      groupOfFile_[file] = std::min(groupOfFile_[file], groupOfCode);
    }
  }

  // To which the records so far have added this later one.
  std::size_t FirstGroupOf(RecordIndex i) const {
    std::size_t group = noGroup;
    for (const std::size_t file : byFile_.files[i]) group = std::min(group, groupOfFile_[file]);
    return group;
  }

  bool HasLaterRelative(RecordIndex i) const {
    const auto& files = byFile_.files[i];
    return std::any_of(files.begin(), files.end(),
                       [this, i](std::size_t file) { return lastRecord_[file] > i; });
  }

  const std::vector<bool>& takesPart_;
  const CodeIndex& codes_;
  const RecordsByDriverFile& byFile_;
  std::vector<RecordIndex> lastRecord_;  // that takes part, of each driver file
  std::vector<std::size_t> groupOfFile_;
  std::vector<std::size_t> groupOfCode_;  // by the first record with the code
  std::vector<RecordIndex> nextWithSameCode_;
  std::vector<RecordGroup> groups_;
};

}  // namespace

RecordsByDriverFile::RecordsByDriverFile(const std::vector<QueryPackageResult>& all,
                                         const LocaleFold& fold)
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

std::vector<RecordGroup> FindGroups(const std::vector<bool>& takesPart, const CodeIndex& codes,
                                    const RecordsByDriverFile& byFile) {
  return GroupFinder(takesPart, codes, byFile).Run();
}

GroupMembers::GroupMembers(const std::vector<bool>& takesPart, const CodeIndex& codes,
                           const RecordsByDriverFile& byFile)
    : takesPart_(takesPart),
      codes_(codes),
      byFile_(byFile),
      fileSeen_(byFile.records.size(), 0),
      codeSeen_(takesPart.size(), 0) {}

RecordGroup GroupMembers::Of(const RecordGroup& anchors) {
  ++call_;
  RecordGroup group;
  RecordGroup added{anchors.front()};
  for (const RecordIndex anchor : anchors) {
    AddLater(anchor, added);
    for (const RecordIndex j : added) {
      const RecordIndex code = codes_.FirstWithSameCode(j);
      if (std::exchange(codeSeen_[code], call_) != call_) group.push_back(code);
    }
    added.clear();
  }
  return group;
}

// In their order, and without the driver files of earlier anchors, which have added more.
void GroupMembers::AddLater(RecordIndex anchor, RecordGroup& added) {
  std::size_t files = 0;
  for (const std::size_t file : byFile_.files[anchor]) {
    if (std::exchange(fileSeen_[file], call_) == call_) continue;
    const auto& all = byFile_.records[file];
    for (auto j = std::upper_bound(all.begin(), all.end(), anchor); j != all.end(); ++j) {
      if (takesPart_[*j]) added.push_back(*j);
    }
    ++files;
  }
  if (files > 1) std::sort(added.begin(), added.end());
}

}  // namespace Vornik
