// How the answer of a query is shown: the options of "query" that change no verdict.
#ifndef VORNIK_CLI_COMMANDS_QUERY_VIEW_OPTIONS_H
#define VORNIK_CLI_COMMANDS_QUERY_VIEW_OPTIONS_H

#include "query/output.h"

namespace CLI {
class App;
}

namespace Vornik::Cli {

enum class QueryFormat { Table, Json, JsonLines, Csv };

struct QueryViewOptions {
  QueryFormat format = QueryFormat::Table;
  QueryView view;
};

void AddQueryView(CLI::App& command, QueryViewOptions& options);

// Throws the parser's error where options contradict each other.
void CheckView(const QueryViewOptions& options);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_COMMANDS_QUERY_VIEW_OPTIONS_H
