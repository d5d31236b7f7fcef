// A query and its outcome as JSON objects.
#ifndef VORNIK_CLI_OUTPUT_QUERY_JSON_H
#define VORNIK_CLI_OUTPUT_QUERY_JSON_H

#include "QueryPackage.h"
#include "model/query_settings.h"
#include "output/json.h"

namespace Vornik::Cli {

// Of the documents of "query" and "explain".
inline constexpr int querySchemaVersion = 2;

// The settings, those of the filters under the names in their table.
Json SettingsObject(const QuerySettings& settings);

// The members of QueryPackageResult by their names and in their order.
Json RecordObject(const QueryPackageResult& record);

// {"schemaVersion": ..., "query": ..., "returnCode": ..., "records": [...]}: what the documents of
// "query" and "explain" begin with. A document without "schemaVersion" has version 1. returnCode:
// null where the query did not run.
Json QueryDocument(const QuerySettings& settings, const Json& returnCode, Json records);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_OUTPUT_QUERY_JSON_H
