// A query and its outcome as JSON objects.
#ifndef VORNIK_CLI_OUTPUT_QUERY_JSON_H
#define VORNIK_CLI_OUTPUT_QUERY_JSON_H

#include <vector>

#include "QueryPackage.h"
#include "model/query_settings.h"
#include "output/json.h"

namespace Vornik::Cli {

// The settings, those of the filters under the names in their table.
Json SettingsObject(const QuerySettings& settings);

// {"query": ..., "returnCode": ..., "records": [...]}, a record with the members of
// QueryPackageResult by their names and in their order.
Json QueryDocument(const QuerySettings& settings, int returnCode,
                   const std::vector<QueryPackageResult>& records);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_QUERY_JSON_H
