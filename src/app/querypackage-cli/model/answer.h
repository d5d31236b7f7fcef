// Whether a query offers a package to its host.
#ifndef VORNIK_CLI_MODEL_ANSWER_H
#define VORNIK_CLI_MODEL_ANSWER_H

#include <vector>

#include "QueryPackage.h"
#include "model/query_settings.h"

namespace Vornik::Cli {

enum class Answer {
  Offered,    // every filter that ran matched
  Refused,    // by one or more filters
  Undecided,  // refused by none, but a filter that ran lacks its data
};

struct PackageAnswer {
  Answer answer = Answer::Offered;
  std::vector<FilterId> refusedBy;
  std::vector<FilterId> undecidedBy;
};

PackageAnswer AnswerFor(const QueryPackageResult& record, const QuerySettings& settings);

// In documents: offered, refused, undecided.
const char* NameOf(Answer answer);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_MODEL_ANSWER_H
