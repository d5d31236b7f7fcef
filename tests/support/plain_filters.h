// Rules of filters that look at one package, step by step. Shares no code with the product.
#ifndef VORNIK_TESTS_PLAIN_FILTERS_H
#define VORNIK_TESTS_PLAIN_FILTERS_H

#include "querypackageimp.h"

namespace Vornik::Testing {

// Whether an entry of the three ordered lists, none of which is empty, fits the query's machine.
bool PlainFitsPlatform(const QueryPackageImp& query, const SupXmlProperties& properties);

bool PlainRequestsType(const QueryPackageImp& query, int type);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_PLAIN_FILTERS_H
