// The identification codes of a query's records, as numbers that can be compared in place of texts.
#ifndef VORNIK_QUERYPACKAGE_RECORD_CODES_H
#define VORNIK_QUERYPACKAGE_RECORD_CODES_H

#include <cstddef>
#include <limits>
#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "QueryPackage.h"
#include "letter_case.h"

namespace Vornik {

// A record's place among the records of a query.
using RecordPlace = std::size_t;
inline constexpr RecordPlace noRecord = std::numeric_limits<RecordPlace>::max();

// The records are read by the constructor only; case is folded by the global locale of that moment.
class RecordCodes {
 public:
  explicit RecordCodes(const std::vector<QueryPackageResult>& records);

  // The first record whose code equals this one without regard to case; noRecord if none does.
  RecordPlace Find(const std::string& code);

  // The same for the code of a record.
  RecordPlace FindFor(RecordPlace record) const { return found_[record]; }

  // The first record of exactly the same code.
  RecordPlace FirstOfSame(RecordPlace record) const { return firstOfSame_[record]; }

 private:
  LocaleFold fold_;
  std::string foldedCodes_;                     // one behind the other
  std::pmr::monotonic_buffer_resource memory_;  // of the map: its parts stand side by side
  std::pmr::unordered_map<std::string_view, RecordPlace> firstByFoldedCode_{&memory_};
  std::vector<RecordPlace> found_;
  std::vector<RecordPlace> firstOfSame_;
  std::string foldedCode_;
};

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_RECORD_CODES_H
