// The groups of packages that deliver driver files with the same name.
//
//   a {x}, b {x, y}, c {y}  =>  {a, b}, {b, c}: groups are built from each package on, not merged
//
// Groups overlap: together they can have as many members as the square of the packages' number. So
// a group is kept as the packages that it is built from, its anchors, and its members are gathered
// when they are needed, one group at a time.
#ifndef VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_DRIVER_GROUPS_H
#define VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_DRIVER_GROUPS_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "code_index.h"
#include "text/letter_case.h"

namespace Vornik {

// Which records deliver which driver files. Each driver file has a number.
struct RecordsByDriverFile {
  RecordsByDriverFile(const std::vector<QueryPackageResult>& all, const LocaleFold& fold);

  std::map<std::string, std::size_t> numbers;     // by folded name
  std::vector<std::vector<RecordIndex>> records;  // that deliver each, in order, each once
  std::vector<std::vector<std::size_t>> files;    // of each record
};

using RecordGroup = std::vector<RecordIndex>;

// For each group its anchors, in order. The members are the first anchor, and the later records
// that share a driver file with one of the anchors.
//
// takesPart: of each record, whether it is not refused.
std::vector<RecordGroup> FindGroups(const std::vector<bool>& takesPart, const CodeIndex& codes,
                                    const RecordsByDriverFile& byFile);

// Gathers the members of groups. What it is made with is borrowed.
class GroupMembers {
 public:
  GroupMembers(const std::vector<bool>& takesPart, const CodeIndex& codes,
               const RecordsByDriverFile& byFile);

  // Codes, each once and as the first record with exactly that code.
  RecordGroup Of(const RecordGroup& anchors);

 private:
  void AddLater(RecordIndex anchor, RecordGroup& added);

  const std::vector<bool>& takesPart_;
  const CodeIndex& codes_;
  const RecordsByDriverFile& byFile_;
  // The group for which each driver file and each code was seen last, by the number of calls.
  std::size_t call_ = 0;
  std::vector<std::size_t> fileSeen_;
  std::vector<std::size_t> codeSeen_;
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_DRIVER_GROUPS_H
