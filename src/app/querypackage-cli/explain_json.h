// An explanation as a JSON document for a program.
#ifndef VORNIK_CLI_EXPLAIN_JSON_H
#define VORNIK_CLI_EXPLAIN_JSON_H

#include <string>

#include "explanation.h"

namespace Vornik::Cli {

// The document of "query" with the explained records alone, and further keys behind; ASCII only,
// and ended by a line feed.
std::string ExplanationJson(const Explanation& explanation);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_JSON_H
