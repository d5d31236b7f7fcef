// An explanation as a JSON document for a program.
#ifndef VORNIK_CLI_EXPLAIN_JSON_H
#define VORNIK_CLI_EXPLAIN_JSON_H

#include <string>
#include <vector>

#include "explain/explanation.h"

namespace Vornik::Cli {

// The document of "query" with only the explained records, followed by further keys; ASCII only,
// and ended by a line feed.
std::string ExplanationJson(const Explanation& explanation);

// An object whose "explanations" are these documents.
std::string ExplanationsJson(const std::vector<Explanation>& explanations);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_JSON_H
