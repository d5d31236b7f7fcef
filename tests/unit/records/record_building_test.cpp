#include "records/record_building.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace Vornik {
namespace {

using Values = std::vector<std::string>;

const std::pair<const char*, std::string QueryPackageResult::*> singles[] = {
    {"identificationCode", &QueryPackageResult::identificationCode},
    {"buildNumber", &QueryPackageResult::buildNumber},
    {"description", &QueryPackageResult::description},
    {"updateSelection", &QueryPackageResult::updateSelection},
    {"rebootRequired", &QueryPackageResult::rebootRequired},
    {"severity", &QueryPackageResult::severity},
    {"category", &QueryPackageResult::category},
    {"payload", &QueryPackageResult::payload},
    {"type", &QueryPackageResult::type},
    {"Version", &QueryPackageResult::Version}};

const std::pair<const char*, Values QueryPackageResult::*> lists[] = {
    {"applicableDeviceId", &QueryPackageResult::applicableDeviceId},
    {"preReq", &QueryPackageResult::preReq},
    {"coReq", &QueryPackageResult::coReq}};

// Every text and list of the record that a descriptor decides, the unset members included.
std::set<std::string> TextsOf(const QueryPackageResult& record) {
  std::set<std::string> texts{record.packageXmlFile, record.kovuXmlFile, record.kovuName,
                              record.supersedesId, record.supersededById};
  for (const auto& [name, member] : singles) texts.insert(record.*member);
  for (const auto& [name, member] : lists) {
    texts.insert((record.*member).begin(), (record.*member).end());
  }
  return texts;
}

TEST(RecordBuilding, EachPropertyFillsTheMemberOfItsName) {
  for (const auto& [name, member] : singles) {
    const QueryPackageResult record = BuildRecord({"", {{name, "", {"one", "two"}}}}, "", "");
    EXPECT_EQ(record.*member, "one") << name;
    EXPECT_EQ(TextsOf(record), (std::set<std::string>{"", "one"})) << name;
  }
  for (const auto& [name, member] : lists) {
    const QueryPackageResult record = BuildRecord({"", {{name, "", {"one", "two"}}}}, "", "");
    EXPECT_EQ(record.*member, (Values{"one", "two"})) << name;
    EXPECT_EQ(TextsOf(record), (std::set<std::string>{"", "one", "two"})) << name;
  }
}

TEST(RecordBuilding, NamesInAnyCaseAndTheLastPropertyDecides) {
  const QueryPackageResult record = BuildRecord({"",
                                                 {{"VERSION", "", {"1.0"}},
                                                  {"version", "", {" 2.0 "}},
                                                  {"Version", "", {}},
                                                  {"preReq", "", {"a"}},
                                                  {"PREREQ", "", {}}}},
                                                "", "");
  EXPECT_EQ(record.Version, " 2.0 ");
  EXPECT_EQ(record.preReq, Values{});
}

TEST(RecordBuilding, FilesAreThoseThatAreGiven) {
  const QueryPackageResult record = BuildRecord({"dir/m.xml", {}}, "dir/pack.xml", "pack");
  EXPECT_EQ(record.packageXmlFile, "dir/m.xml");
  EXPECT_EQ(record.kovuXmlFile, "dir/pack.xml");
  EXPECT_EQ(record.kovuName, "pack");
  EXPECT_EQ(TextsOf(record), (std::set<std::string>{"", "dir/m.xml", "dir/pack.xml", "pack"}));
}

TEST(RecordBuilding, DriverFilesVerdictsAndSupersedeMembersStayAsInANewRecord) {
  const QueryPackageResult record = BuildRecord(
      {"a.xml",
       {{"driverFiles", "", {"a.sys-#1"}}, {"supersede", "", {"x"}}, {"supersedesId", "", {"y"}}}},
      "", "");
  EXPECT_TRUE(record.driverFiles.empty());
  EXPECT_EQ(TextsOf(record), (std::set<std::string>{"", "a.xml"}));
  for (const auto slot :
       {record.platformFilterStatus, record.kovuFilterStatus, record.sepFilterStatus,
        record.payloadExistFilterStatus, record.supersedeFilterStatus, record.includeIdFilterStatus,
        record.excludeIdFilterStatus, record.updateTypeFilterStatus}) {
    EXPECT_EQ(slot, FilterStatus::NotEvaluated);
  }
}

}  // namespace
}  // namespace Vornik
