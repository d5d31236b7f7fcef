// The 27 members of a record: one list of them for every test that walks or compares records.
#ifndef VORNIK_TESTS_RECORD_MEMBERS_H
#define VORNIK_TESTS_RECORD_MEMBERS_H

#include <array>
#include <cstddef>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "QueryPackage.h"

namespace Vornik::Testing {

// In the order of their declaration.
inline constexpr std::array<const char*, 27> recordMemberNames = {"packageXmlFile",
                                                                  "identificationCode",
                                                                  "driverFiles",
                                                                  "buildNumber",
                                                                  "description",
                                                                  "updateSelection",
                                                                  "rebootRequired",
                                                                  "severity",
                                                                  "category",
                                                                  "payload",
                                                                  "type",
                                                                  "Version",
                                                                  "applicableDeviceId",
                                                                  "preReq",
                                                                  "coReq",
                                                                  "kovuXmlFile",
                                                                  "kovuName",
                                                                  "supersedesId",
                                                                  "supersededById",
                                                                  "platformFilterStatus",
                                                                  "kovuFilterStatus",
                                                                  "sepFilterStatus",
                                                                  "payloadExistFilterStatus",
                                                                  "supersedeFilterStatus",
                                                                  "includeIdFilterStatus",
                                                                  "excludeIdFilterStatus",
                                                                  "updateTypeFilterStatus"};

// References to all members; a record with more or fewer of them does not compile.
template <typename Record>
auto TieRecordMembers(Record& record) {
  auto& [packageXmlFile, identificationCode, driverFiles, buildNumber, description, updateSelection,
         rebootRequired, severity, category, payload, type, version, applicableDeviceId, preReq,
         coReq, kovuXmlFile, kovuName, supersedesId, supersededById, platform, kovu, sep,
         payloadExist, supersede, includeId, excludeId, updateType] = record;
  return std::tie(packageXmlFile, identificationCode, driverFiles, buildNumber, description,
                  updateSelection, rebootRequired, severity, category, payload, type, version,
                  applicableDeviceId, preReq, coReq, kovuXmlFile, kovuName, supersedesId,
                  supersededById, platform, kovu, sep, payloadExist, supersede, includeId,
                  excludeId, updateType);
}

// Calls visit(name, member) for each member, in the order of their declaration.
template <typename Record, typename Visit>
void ForEachRecordMember(Record& record, const Visit& visit) {
  std::apply(
      [&visit](auto&... member) {
        std::size_t next = 0;
        (visit(recordMemberNames[next++], member), ...);
      },
      TieRecordMembers(record));
}

// A line for each member.
std::string DescribeRecord(const QueryPackageResult& record);

// Empty when the two are equal; otherwise the first pair of records that differ.
std::string FirstDifference(const std::vector<QueryPackageResult>& records,
                            const std::vector<QueryPackageResult>& expected);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_RECORD_MEMBERS_H
