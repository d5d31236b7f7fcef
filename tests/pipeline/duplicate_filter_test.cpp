// The duplicate filter as a stage. Its rule has tests of its own.
#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

using DuplicateFilterTest = QueryTest;

TEST_F(DuplicateFilterTest, EmptyVectorStaysEmpty) {
  imp.FilterDuplicate(results);
  EXPECT_TRUE(results.empty());
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(DuplicateFilterTest, VectorWithoutDuplicatesStaysAsItIs) {
  results = {RecordOf("b"), RecordOf("a"), RecordOf("c")};
  imp.FilterDuplicate(results);
  EXPECT_EQ(Codes(), (Lines{"b", "a", "c"}));
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(DuplicateFilterTest, LaterRecordOfOneCodeIsDroppedAndNamed) {
  results = {RecordOf("A"), RecordOf("B"), RecordOf("A")};
  results[0].Version = "1";
  results[2].Version = "2";
  results[2].packageXmlFile = "other.xml";
  imp.FilterDuplicate(results);
  EXPECT_EQ(Codes(), (Lines{"A", "B"}));
  EXPECT_EQ(results[0].Version, "1");
  EXPECT_EQ(results[0].packageXmlFile, "");
  EXPECT_EQ(Log(), Lines{"3 A is filtered in FilterDuplicate"});
}

TEST_F(DuplicateFilterTest, CodesThatDifferInCaseAreNoDuplicates) {
  results = {RecordOf("abc"), RecordOf("ABC")};
  imp.FilterDuplicate(results);
  EXPECT_EQ(Codes(), (Lines{"abc", "ABC"}));
}

TEST_F(DuplicateFilterTest, RecordsWithoutACodeAreDuplicatesOfTheFirst) {
  results = {RecordOf(""), RecordOf(""), RecordOf("a"), RecordOf("")};
  imp.FilterDuplicate(results);
  EXPECT_EQ(Codes(), (Lines{"", "a"}));
  const std::string line = "3  is filtered in FilterDuplicate";
  EXPECT_EQ(Log(), (Lines{line, line}));
}

TEST_F(DuplicateFilterTest, SurvivorTakesOverThePackOfALaterDuplicate) {
  results = {RecordOf("A"), RecordOf("A"), RecordOf("A")};
  results[0].Version = "1";
  results[1].kovuName = "pack_a";
  results[1].kovuXmlFile = "pack_a.xml";
  results[2].kovuName = "pack_b";
  imp.FilterDuplicate(results);
  ASSERT_EQ(results.size(), 1U);
  EXPECT_EQ(results[0].Version, "1");
  EXPECT_EQ(results[0].kovuName, "pack_a");
  EXPECT_EQ(results[0].kovuXmlFile, "pack_a.xml");
}

TEST_F(DuplicateFilterTest, PackWithoutANameIsNotTakenOver) {
  results = {RecordOf("A"), RecordOf("A")};
  results[1].kovuXmlFile = ".xml";
  imp.FilterDuplicate(results);
  ASSERT_EQ(results.size(), 1U);
  EXPECT_EQ(results[0].kovuXmlFile, "");
}

TEST_F(DuplicateFilterTest, SurvivorOfAPackKeepsItsOwn) {
  results = {RecordOf("A"), RecordOf("A")};
  results[0].kovuName = "pack_a";
  results[1].kovuName = "pack_b";
  imp.FilterDuplicate(results);
  EXPECT_EQ(results.at(0).kovuName, "pack_a");
}

TEST_F(DuplicateFilterTest, VerdictsStayWithTheirRecords) {
  results = {RecordOf("A"), RecordOf("A"), RecordOf("B")};
  results[2].sepFilterStatus = FilterStatus::NotMatched;
  imp.FilterDuplicate(results);
  ASSERT_EQ(results.size(), 2U);
  EXPECT_EQ(results[1].sepFilterStatus, FilterStatus::NotMatched);
}

TEST_F(DuplicateFilterTest, PackMemberHidesTheIndividualDescriptorOfItsCode) {
  folder.Write("pack.xml", Pack({Descriptor("own")
                                     .Set("xmlFilename", "pack.xml")
                                     .Set("applicableMachineTypes", {"1234"})
                                     .Set("applicableOperatingSystems", {"10"}),
                                 Descriptor("A").Set("xmlFilename", "a.xml").Set("Version", "1")}));
  folder.Write("a.xml", Descriptor("A").Set("Version", "2").Individual());
  EXPECT_EQ(Run(), QueryCode::Completed);
  ASSERT_EQ(results.size(), 1U);
  EXPECT_EQ(results[0].Version, "1");
  EXPECT_EQ(results[0].kovuName, "pack");
}

}  // namespace
}  // namespace Vornik::Testing
