// The answer of a query as a person or a program reads it.
#ifndef VORNIK_CLI_QUERY_OUTPUT_H
#define VORNIK_CLI_QUERY_OUTPUT_H

#include <string>
#include <vector>

#include "model/hazard_check.h"
#include "query/columns.h"
#include "query/pack_summary.h"

namespace Vornik::Cli {

// What a user chose of the rows and columns.
struct QueryView {
  std::vector<std::string> columns;  // names; empty: the usual ones
  std::string sortBy;                // a column's name; empty: the order of the records
  bool onlyOffered = false;
};

struct QueryAnswer {
  const QuerySettings& settings;
  int returnCode = QueryCode::Completed;
  const std::vector<QueryPackageResult>& records;
  PackSummary pack;
  std::vector<std::string> warnings;  // sentences without a full stop
};

// The chosen rows, in their order.
std::vector<ResultRow> RowsOf(const QueryAnswer& answer, const QueryView& view);

// Lines, and unless quiet the pack and a closing line with the counts of all records. Texts of
// descriptors go through Printable. Without chosen columns it fits 80 characters, if the texts
// allow that.
std::string QueryTable(const QueryAnswer& answer, const QueryView& view, bool quiet, bool colour);
std::string QueryCsv(const QueryAnswer& answer, const QueryView& view);

// A record in each line, with its answer as the last member.
std::string QueryJsonLines(const QueryAnswer& answer, const QueryView& view);
std::string QueryJson(const QueryAnswer& answer, const QueryView& view);

// What to do where the folder has no package for the machine: one line.
std::string NoResultsAdvice(const QueryAnswer& answer);

// Of a query that was not run.
std::string HazardJson(const QuerySettings& settings, const Hazard& hazard);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_QUERY_OUTPUT_H
