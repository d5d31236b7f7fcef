// The order of packages by their versions.
#ifndef VORNIK_QUERYPACKAGE_VERSION_RANKING_H
#define VORNIK_QUERYPACKAGE_VERSION_RANKING_H

#include <vector>

#include "record_codes.h"

namespace Vornik {

// Brings records, by their places, into ascending order of their versions: folded by the global
// locale, then compared as C strings, so that 10 stands before 9. Equal versions come to stand
// where an exchange sort leaves them.
void RankByVersion(const std::vector<QueryPackageResult>& records,
                   std::vector<RecordPlace>& places);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_VERSION_RANKING_H
