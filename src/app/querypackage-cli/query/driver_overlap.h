// Packages that share driver files with some of each other only, so that their rankings depend on
// the order in which the system lists the folder.
//
//   a {x}, b {x, y}, c {y}, in this order  =>  one ranking, {a, b, c}
//   a, c, b                                =>  two rankings, {a, b} and {c, b}
#ifndef VORNIK_CLI_QUERY_DRIVER_OVERLAP_H
#define VORNIK_CLI_QUERY_DRIVER_OVERLAP_H

#include <vector>

#include "QueryPackage.h"
#include "model/query_settings.h"
#include "query/warnings.h"

namespace Vornik::Cli {

// Each warning has been found by evaluating two orders. Of up to five individual descriptors every
// order is tried; of more, those in which one of them comes first or last. Groups of more than 200
// packages are not looked at. Packages of which equal versions are warned of have no second
// warning.
OrderWarnings WarnOfDriverOverlap(const QuerySettings& settings,
                                  const std::vector<QueryPackageResult>& records);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_QUERY_DRIVER_OVERLAP_H
