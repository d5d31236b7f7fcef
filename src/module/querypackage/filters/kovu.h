// Whether a record comes from a pack: its pack's path and name are both set. Their contents do not
// matter.
//
//   "p.xml", "p"  =>  true
//   "p.xml", ""   =>  false
#ifndef VORNIK_QUERYPACKAGE_FILTERS_KOVU_H
#define VORNIK_QUERYPACKAGE_FILTERS_KOVU_H

#include "QueryPackage.h"

namespace Vornik {

inline bool IsFromPack(const QueryPackageResult& record) {
  return !record.kovuXmlFile.empty() && !record.kovuName.empty();
}

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_KOVU_H
