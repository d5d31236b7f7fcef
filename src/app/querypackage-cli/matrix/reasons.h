// Why a machine does not get a package, in the words that explain has for the filters.
#ifndef VORNIK_CLI_MATRIX_REASONS_H
#define VORNIK_CLI_MATRIX_REASONS_H

#include <string>

#include "explain/filters.h"
#include "model/answer.h"

namespace Vornik::Cli {

// A package without a record is in packs that are not in use only.
inline constexpr char reasonOfAbsence[] = "packNotChosen";

// For each filter that refuses, and each that cannot decide, its name and the reason; of the
// supersede filter the code of the package that replaces this one. Empty for an offered package.
//
//   "platform noEntryMatches, supersede orx_drv_b"
std::string ReasonOf(const PackageContext& package, const PackageAnswer& answer);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MATRIX_REASONS_H
