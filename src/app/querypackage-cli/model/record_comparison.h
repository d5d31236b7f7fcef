// Whether two records are the same.
#ifndef VORNIK_CLI_MODEL_RECORD_COMPARISON_H
#define VORNIK_CLI_MODEL_RECORD_COMPARISON_H

#include "QueryPackage.h"

namespace Vornik::Cli {

// In every member.
bool AreEqual(const QueryPackageResult& a, const QueryPackageResult& b);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_RECORD_COMPARISON_H
