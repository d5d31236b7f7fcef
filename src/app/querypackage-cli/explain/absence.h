// Why no record of a query has a code.
#ifndef VORNIK_CLI_EXPLAIN_ABSENCE_H
#define VORNIK_CLI_EXPLAIN_ABSENCE_H

#include <string>
#include <vector>

#include "explain/explain.h"

namespace Vornik::Cli {

// Every reason that applies, in the order of the folder; codes and file names are compared without
// regard to case. Empty where nothing in the folder knows the code.
std::vector<AbsenceReason> ExplainAbsence(const EvaluatedQuery& query, const std::string& code);

// The codes with these letters that a pack which is not in use lists among its packages, so that
// other settings may make records of them; each once, the given spelling first.
std::vector<std::string> CodesInOtherPacks(const EvaluatedQuery& query, const std::string& code);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_EXPLAIN_ABSENCE_H
