// Which records repeat another one's identification code, exactly.
//
//   codes A, B, A                  =>  record 2 repeats record 0
//   A without a pack, A of a pack  =>  record 1 repeats record 0, which takes over its pack
#ifndef VORNIK_QUERYPACKAGE_FILTERS_DUPLICATE_H
#define VORNIK_QUERYPACKAGE_FILTERS_DUPLICATE_H

#include <cstddef>
#include <vector>

#include "QueryPackage.h"

namespace Vornik {

struct Duplicate {
  std::size_t index;   // of the record that repeats
  std::size_t kept;    // of the first record with its code
  bool transfersPack;  // the kept record has no pack yet, and takes this one's
};

// In the order of the records.
std::vector<Duplicate> FindDuplicates(const std::vector<QueryPackageResult>& records);

// Hands packs over and drops the repeats; the others keep their order.
void RemoveDuplicates(std::vector<QueryPackageResult>& records,
                      const std::vector<Duplicate>& duplicates);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_DUPLICATE_H
