// Whether a package's update type is one of those asked for. 99 on either side meets everything.
//
//   "type" "3", asked for {1, 3}  =>  Matched
//   "type" "99", asked for {1}    =>  Matched
//   "type" "x", asked for {1}     =>  NotMatched (it reads as 0)
#ifndef VORNIK_QUERYPACKAGE_FILTERS_UPDATE_TYPE_H
#define VORNIK_QUERYPACKAGE_FILTERS_UPDATE_TYPE_H

#include <vector>

#include "QueryPackage.h"
#include "model/properties.h"

namespace Vornik {

enum class UpdateTypeVerdict {
  Matched,
  NotMatched,
  NoType,  // "type" is missing or empty
};

UpdateTypeVerdict EvaluateUpdateType(const SupXmlProperties& properties,
                                     const std::vector<UpdateType>& requested);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_UPDATE_TYPE_H
