// Comparing records in all their members.
#ifndef VORNIK_TESTS_RECORD_MEMBERS_H
#define VORNIK_TESTS_RECORD_MEMBERS_H

#include <string>
#include <vector>

#include "QueryPackage.h"

namespace Vornik::Testing {

// All 27 members, a line each.
std::string DescribeRecord(const QueryPackageResult& record);

// Empty when the two are equal; otherwise what differs first.
std::string FirstDifference(const std::vector<QueryPackageResult>& records,
                            const std::vector<QueryPackageResult>& expected);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_RECORD_MEMBERS_H
