// The columns of a query's table, by the names that --columns and --sort take.
#ifndef VORNIK_CLI_QUERY_COLUMNS_H
#define VORNIK_CLI_QUERY_COLUMNS_H

#include <functional>
#include <string>
#include <vector>

#include "QueryPackage.h"
#include "model/answer.h"
#include "output/columns.h"

namespace Vornik::Cli {

// A record with what the query makes of it.
struct ResultRow {
  const QueryPackageResult* record = nullptr;
  PackageAnswer answer;
};

struct ResultColumn {
  std::string name;
  std::string heading;
  const char* ifEmpty;                             // in a table
  std::function<Cell(const ResultRow& row)> cell;  // its text is not escaped
};

// Of the query: every column there is.
std::vector<ResultColumn> AllColumns(const QuerySettings& settings);

// Those that a table or a CSV document has without --columns: filters that are off have none.
// narrow: one column names the filters that refuse, in place of a column for each, and the pack has
// none.
std::vector<ResultColumn> UsualColumns(const QuerySettings& settings, bool narrow);

// The names of all columns, for help and messages.
std::vector<std::string> ColumnNames();

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_QUERY_COLUMNS_H
