// Whether an identification code names a Sep package: it contains one of the Sep ids anywhere, in
// exactly that case.
//
//   "orx_utl_sep", "x_orx_utl_tsep_2"  =>  true
//   "ORX_UTL_SEP", ""                  =>  false
#ifndef VORNIK_QUERYPACKAGE_FILTERS_SEP_H
#define VORNIK_QUERYPACKAGE_FILTERS_SEP_H

#include <string>

#include "model/literals.h"

namespace Vornik {

inline bool IsSepCode(const std::string& code) {
  return code.find(SepId::tsep) != std::string::npos || code.find(SepId::sep) != std::string::npos;
}

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_FILTERS_SEP_H
