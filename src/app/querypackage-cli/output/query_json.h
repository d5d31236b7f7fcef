// The outcome of a query as a JSON document for a program.
#ifndef VORNIK_CLI_OUTPUT_JSON_OUTPUT_H
#define VORNIK_CLI_OUTPUT_JSON_OUTPUT_H

#include <string>
#include <vector>

#include "QueryPackage.h"
#include "commands/options.h"

namespace Vornik::Cli {

// {"query": ..., "returnCode": ..., "records": [...]}, a record with the members of
// QueryPackageResult by their names and in their order. ASCII only; bytes of a text that are not
// UTF-8 become U+FFFD. Ends with a line feed.
std::string JsonDocument(const QuerySettings& query, int returnCode,
                         const std::vector<QueryPackageResult>& records);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_JSON_OUTPUT_H
