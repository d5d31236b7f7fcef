// The ids that explain is asked for, patterns resolved.
#ifndef VORNIK_CLI_EXPLAIN_PACKAGE_IDS_H
#define VORNIK_CLI_EXPLAIN_PACKAGE_IDS_H

#include <string>
#include <string_view>
#include <vector>

#include "explain/explain.h"

namespace Vornik::Cli {

// Whether the id has a * or a ?.
bool IsPattern(const std::string& id);

// * matches any text, ? one byte. Case matters.
//
//   "orx_*", "orx_a"  =>  true
bool MatchesPattern(std::string_view pattern, std::string_view text);

// The codes of the query's packages, and of members of packs that are not in use, that are most
// like an id.
std::vector<std::string> NearestCodes(const EvaluatedQuery& query, const std::string& id);

// The codes of the query's packages, and of members of packs that are not in use, that each pattern
// matches, in this order and each once. An id without * and ?, one that is a code as it stands, and
// a pattern that matches nothing stay as they are.
std::vector<std::string> ResolveIds(const EvaluatedQuery& query,
                                    const std::vector<std::string>& asked);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_PACKAGE_IDS_H
