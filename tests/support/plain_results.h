// Building the records of a query, step by step. Shares no code with the product.
#ifndef VORNIK_TESTS_PLAIN_RESULTS_H
#define VORNIK_TESTS_PLAIN_RESULTS_H

#include "plain_log.h"
#include "plain_supersede.h"
#include "querypackageimp.h"

namespace Vornik::Testing {

// The index of the pack that is chosen, or -1.
int PlainPackChoice(const QueryPackageImp& query, PlainLog& log);

// Each package has either no classification or at least one per driver file. False: there is
// nothing to go on with.
bool PlainBuild(const QueryPackageImp& query, PlainRecords& records, PlainLog& log);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_RESULTS_H
