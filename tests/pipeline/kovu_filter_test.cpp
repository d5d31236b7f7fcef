// Which records come from a pack.
#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

class KovuFilterTest : public QueryTest {
 protected:
  static QueryPackageResult RecordOfPack(const std::string& code, const std::string& kovuXmlFile,
                                         const std::string& kovuName) {
    QueryPackageResult record = RecordOf(code);
    record.kovuXmlFile = kovuXmlFile;
    record.kovuName = kovuName;
    return record;
  }
};

TEST_F(KovuFilterTest, EmptyVectorGivesNoLine) {
  imp.FilterKovu(results);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(KovuFilterTest, RecordOfAPackIsMatched) {
  results = {RecordOfPack("a", "packs/p.xml", "p")};
  imp.FilterKovu(results);
  EXPECT_EQ(results[0].kovuFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Log(), Lines{"3 a Kovu Filter is matched!"});
}

TEST_F(KovuFilterTest, RecordWithoutAPackIsNotMatched) {
  results = {RecordOf("a")};
  imp.FilterKovu(results);
  EXPECT_EQ(results[0].kovuFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{"3 a Kovu Filter is not matched!"});
}

TEST_F(KovuFilterTest, FileWithoutANameIsNotMatched) {
  results = {RecordOfPack("a", "packs/.xml", "")};
  imp.FilterKovu(results);
  EXPECT_EQ(results[0].kovuFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{"3 a Kovu Filter is not matched!"});
}

TEST_F(KovuFilterTest, NameWithoutAFileIsNotMatched) {
  results = {RecordOfPack("a", "", "p")};
  imp.FilterKovu(results);
  EXPECT_EQ(results[0].kovuFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{"3 a Kovu Filter is not matched!"});
}

TEST_F(KovuFilterTest, OnlyEmptinessIsTested) {
  results = {RecordOfPack("a", " ", " "), RecordOfPack("b", "x.xml", "y"),
             RecordOfPack("c", std::string(1, '\0'), std::string(1, '\0'))};
  imp.FilterKovu(results);
  for (const auto& record : results) EXPECT_EQ(record.kovuFilterStatus, FilterStatus::Matched);
}

TEST_F(KovuFilterTest, RecordsAreJudgedInOrderAndLoseTheirEarlierVerdict) {
  results = {RecordOf("b"), RecordOfPack("a", "p.xml", "p"), RecordOf("")};
  results[0].kovuFilterStatus = FilterStatus::Matched;
  results[1].kovuFilterStatus = FilterStatus::NotMatched;
  imp.FilterKovu(results);
  EXPECT_EQ(Codes(), (Lines{"b", "a", ""}));
  EXPECT_EQ(results[0].kovuFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[1].kovuFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Log(), (Lines{"3 b Kovu Filter is not matched!", "3 a Kovu Filter is matched!",
                          "3  Kovu Filter is not matched!"}));
}

TEST_F(KovuFilterTest, NoPropertiesAreLookedUp) {
  results = {RecordOf(""), RecordOf("unknown")};
  imp.FilterKovu(results);
  EXPECT_EQ(Errors(), Lines{});
  EXPECT_EQ(Warnings(), Lines{});
}

TEST_F(KovuFilterTest, OtherSlotsStay) {
  results = {RecordOf("a")};
  results[0].platformFilterStatus = FilterStatus::Matched;
  imp.FilterKovu(results);
  EXPECT_EQ(results[0].platformFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[0].sepFilterStatus, FilterStatus::NotEvaluated);
}

TEST_F(KovuFilterTest, StatusIsSetAlsoWhenNothingIsLogged) {
  RecordingLog::SetThreshold(2);
  results = {RecordOfPack("a", "p.xml", "p"), RecordOf("b")};
  imp.FilterKovu(results);
  EXPECT_EQ(results[0].kovuFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].kovuFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(KovuFilterTest, QueryMarksMembersOfThePackAlone) {
  folder.Write("pack.xml", Pack({Descriptor()
                                     .Set("xmlFilename", "pack.xml")
                                     .Set("applicableMachineTypes", {"1234"})
                                     .Set("applicableOperatingSystems", {"0"}),
                                 Descriptor("member").Set("xmlFilename", "m.xml")}));
  WriteIndividual("single.xml");
  EXPECT_EQ(Run(), QueryCode::Completed);
  ASSERT_EQ(Codes(), (Lines{"member", "single"}));
  EXPECT_EQ(results[0].kovuFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].kovuFilterStatus, FilterStatus::NotMatched);
}

TEST_F(KovuFilterTest, SwitchedOffFilterLeavesTheSlot) {
  WriteIndividual("a.xml");
  imp.kovuFilter = false;
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(results.at(0).kovuFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(results.at(0).sepFilterStatus, FilterStatus::Matched);
}

}  // namespace
}  // namespace Vornik::Testing
