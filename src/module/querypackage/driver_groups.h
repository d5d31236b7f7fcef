// Which packages of a query deliver driver files of the same name.
#ifndef VORNIK_QUERYPACKAGE_DRIVER_GROUPS_H
#define VORNIK_QUERYPACKAGE_DRIVER_GROUPS_H

#include <vector>

#include "record_codes.h"

namespace Vornik {

// Codes of one group, each once and stood for by the first record that bears it, in the order in
// which they were met.
using DriverGroup = std::vector<RecordPlace>;

// A group is anchored on its earlier records: records that the platform filter refused take no
// part, and two groups are never merged.
std::vector<DriverGroup> GroupByDriverFile(const std::vector<QueryPackageResult>& records,
                                           const RecordCodes& codes);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_DRIVER_GROUPS_H
