// Puts the explanation of one package id together, from a query that has run and its evaluation.
#ifndef VORNIK_CLI_EXPLAIN_EXPLAIN_H
#define VORNIK_CLI_EXPLAIN_EXPLAIN_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "explain/explanation.h"
#include "model/library_run.h"
#include "model/property_places.h"
#include "model/query_model.h"
#include "model/query_settings.h"
#include "remedy/remedy_finder.h"

namespace Vornik::Cli {

// Whether payload files changed between a query and its evaluation.
bool HavePayloadsChanged(const std::vector<QueryPackageResult>& records,
                         const std::vector<QueryPackageResult>& evaluated);

// A query with its evaluation, which is of the folder as it was read before the query.
struct EvaluatedQuery {
  const QuerySettings& settings;
  const LibraryRun& run;
  QueryModel& model;
  const Evaluation& evaluation;
  bool folderChanged = HavePayloadsChanged(run.records, evaluation.records);

  // What they find out about the folder serves all packages that are explained.
  std::unique_ptr<PropertyPlaces> places = std::make_unique<PropertyPlaces>();
  std::unique_ptr<RemedyFinder> remedies = std::make_unique<RemedyFinder>(model, settings, *places);
};

// The first record in which the evaluation disagrees with the query, for a person. None: they
// agree, or the query had no records to give. Payload files are looked up by both, and may change
// in between: that is no disagreement.
std::optional<std::string> FindDisagreement(const EvaluatedQuery& query);

// A query that was refused or that could not read the folder is not explained: the packages and the
// absence stay empty.
Explanation Explain(const EvaluatedQuery& query, const std::string& packageId);

// The same for one of the query's records, at the cost of what it is connected with.
Explanation ExplainRecord(const EvaluatedQuery& query, std::size_t record);

// Whether the query came as far as its records, even if there are none.
bool IsExplained(int returnCode);

// What an explanation says of its id. Absent: the folder has it, but the query gives no package for
// it; one that differs in case is another package, where a pack that is not in use lists the id.
// Unknown: the folder has nothing of that name.
enum class Conclusion { NotRun, Offered, Refused, Undecided, Absent, Unknown };

Conclusion ConclusionOf(const Explanation& explanation);

// Whether there is something to say about the id.
bool IsKnown(const Explanation& explanation);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_EXPLAIN_H
