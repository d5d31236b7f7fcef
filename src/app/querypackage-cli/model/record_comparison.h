// Whether two records are the same.
#ifndef VORNIK_CLI_MODEL_RECORD_COMPARISON_H
#define VORNIK_CLI_MODEL_RECORD_COMPARISON_H

#include <vector>

#include "QueryPackage.h"

namespace Vornik::Cli {

// In every member.
bool AreEqual(const QueryPackageResult& a, const QueryPackageResult& b);
bool AreEqual(const std::vector<QueryPackageResult>& a, const std::vector<QueryPackageResult>& b);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_RECORD_COMPARISON_H
