// The identification codes of a query's records.
//
//   codes of the records: "a", "B", "A", "B"
//   FirstCaseInsensitiveMatch("b")  =>  1
//   FirstCaseInsensitiveMatch(2)    =>  0, the first match for the code of record 2
//   FirstWithSameCode(2)            =>  2
//   FirstWithSameCode(3)            =>  1
#ifndef VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_CODE_INDEX_H
#define VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_CODE_INDEX_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "text/letter_case.h"

namespace Vornik {

// The index of a record among the records of a query.
using RecordIndex = std::size_t;
inline constexpr RecordIndex noRecord = static_cast<RecordIndex>(-1);

class CodeIndex {
 public:
  CodeIndex(const std::vector<QueryPackageResult>& records, const LocaleFold& fold);

  // The first record whose code is equal without regard to case; noRecord if none is.
  RecordIndex FirstCaseInsensitiveMatch(const std::string& code) const;
  RecordIndex FirstCaseInsensitiveMatch(RecordIndex record) const { return firstMatch_[record]; }

  // The first record with exactly the same code.
  RecordIndex FirstWithSameCode(RecordIndex record) const { return firstSame_[record]; }

 private:
  LocaleFold fold_;
  std::map<std::string, RecordIndex> firstByFoldedCode_;
  std::vector<RecordIndex> firstMatch_;
  std::vector<RecordIndex> firstSame_;
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_SUPERSEDE_CODE_INDEX_H
