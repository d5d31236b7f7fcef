// The update-type filter as a stage. Its rule has tests of its own.
#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

constexpr char noProperties[] = "1 ERROR: Couldn't find correct SupXmlProperties";

class UpdateTypeFilterTest : public QueryTest {
 protected:
  void Request(const std::vector<int>& numbers) {
    imp.updateTypes.clear();
    for (const int number : numbers) imp.updateTypes.push_back(static_cast<UpdateType>(number));
  }

  // Judges one package of those properties; its verdict is the slot's value.
  std::uint32_t Judge(const Descriptor& descriptor) {
    Load({{"a.xml", descriptor.Properties()}});
    results = {RecordOf("a")};
    RecordingLog::Reset();
    imp.FilterUpdateType(results);
    return results.at(0).updateTypeFilterStatus;
  }

  std::uint32_t JudgeType(const std::string& type) {
    return Judge(Descriptor("a").Set("type", type));
  }
};

TEST_F(UpdateTypeFilterTest, EmptyVectorGivesNoLine) {
  Request({1});
  imp.FilterUpdateType(results);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(UpdateTypeFilterTest, EmptyRequestIsReportedForAnEmptyVectorToo) {
  imp.FilterUpdateType(results);
  EXPECT_EQ(Log(), Lines{"1 ERROR: UpdateType is not set!"});
}

TEST_F(UpdateTypeFilterTest, EmptyRequestIsReportedOnceAndMatchesNothing) {
  Load({{"1.xml", Descriptor("a").Set("type", "1").Properties()},
        {"2.xml", Descriptor("b").Set("type", "99").Properties()},
        {"3.xml", Descriptor("c").Properties()}});
  results = {RecordOf("a"), RecordOf("b"), RecordOf("c"), RecordOf("unknown")};
  imp.FilterUpdateType(results);
  EXPECT_EQ(results[0].updateTypeFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[1].updateTypeFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[2].updateTypeFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(results[3].updateTypeFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(Log(),
            (Lines{"1 ERROR: UpdateType is not set!", "3 a UpdateType Filter is not matched!",
                   "3 b UpdateType Filter is not matched!", "1 ERROR: Couldn't find update type!",
                   noProperties}));
}

TEST_F(UpdateTypeFilterTest, RequestedTypeIsMatched) {
  Request({1, 3});
  EXPECT_EQ(JudgeType("3"), FilterStatus::Matched);
  EXPECT_EQ(Log(), Lines{"3 a UpdateType Filter is matched!"});
}

TEST_F(UpdateTypeFilterTest, OtherTypeIsNotMatched) {
  Request({1, 3});
  EXPECT_EQ(JudgeType("2"), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{"3 a UpdateType Filter is not matched!"});
}

TEST_F(UpdateTypeFilterTest, RequestForAnyTypeMatchesEveryPackageThatHasOne) {
  imp.updateTypes = {UpdateType::Any};
  for (const char* type : {"1", "99", "0", "x", "-1"}) {
    EXPECT_EQ(JudgeType(type), FilterStatus::Matched) << type;
  }
  EXPECT_EQ(JudgeType(""), FilterStatus::NotEvaluated);
}

TEST_F(UpdateTypeFilterTest, PackageOfAnyTypeMeetsEveryRequest) {
  for (const int requested : {1, 0, -1, 99, 77}) {
    Request({requested});
    EXPECT_EQ(JudgeType("99"), FilterStatus::Matched) << requested;
  }
}

TEST_F(UpdateTypeFilterTest, LeadingNumberOfTheTypeCounts) {
  Request({3});
  EXPECT_EQ(JudgeType("  3"), FilterStatus::Matched);
  EXPECT_EQ(JudgeType("3rd"), FilterStatus::Matched);
  EXPECT_EQ(JudgeType("x3"), FilterStatus::NotMatched);
  Request({0});
  EXPECT_EQ(JudgeType("x3"), FilterStatus::Matched);
}

TEST_F(UpdateTypeFilterTest, RepeatsInTheRequestChangeNothing) {
  Request({3, 3, 3});
  EXPECT_EQ(JudgeType("3"), FilterStatus::Matched);
  EXPECT_EQ(Log(), Lines{"3 a UpdateType Filter is matched!"});
  EXPECT_EQ(JudgeType("2"), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{"3 a UpdateType Filter is not matched!"});
}

TEST_F(UpdateTypeFilterTest, PackageWithoutATypeIsReportedAndStaysNotEvaluated) {
  Request({1});
  EXPECT_EQ(Judge(Descriptor("a")), FilterStatus::NotEvaluated);
  EXPECT_EQ(Log(), Lines{"1 ERROR: Couldn't find update type!"});
  EXPECT_EQ(JudgeType(""), FilterStatus::NotEvaluated);
  EXPECT_EQ(Log(), Lines{"1 ERROR: Couldn't find update type!"});
}

TEST_F(UpdateTypeFilterTest, RecordWithoutPropertiesIsReportedAndStaysNotEvaluated) {
  Request({99});
  results = {RecordOf("unknown")};
  results[0].type = "1";
  imp.FilterUpdateType(results);
  EXPECT_EQ(results[0].updateTypeFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(Log(), Lines{noProperties});
}

TEST_F(UpdateTypeFilterTest, RecordWithoutACodeWarnsAndStaysNotEvaluated) {
  Request({99});
  Load({{"x.xml", Descriptor("").Set("type", "1").Properties()}});
  results = {RecordOf("")};
  imp.FilterUpdateType(results);
  EXPECT_EQ(results[0].updateTypeFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(Log(), (Lines{"2 Package IdentificationCode is empty", noProperties}));
}

TEST_F(UpdateTypeFilterTest, ErrorsLeaveAnEarlierVerdictAsItWas) {
  Request({1});
  Load({{"x.xml", Descriptor("untyped").Properties()}});
  results = {RecordOf("unknown"), RecordOf("untyped")};
  results[0].updateTypeFilterStatus = FilterStatus::Matched;
  results[1].updateTypeFilterStatus = FilterStatus::NotMatched;
  imp.FilterUpdateType(results);
  EXPECT_EQ(results[0].updateTypeFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].updateTypeFilterStatus, FilterStatus::NotMatched);
}

TEST_F(UpdateTypeFilterTest, RecordsOwnTypeIsNotLookedAt) {
  Request({1});
  Load({{"x.xml", Descriptor("a").Set("type", "2").Properties()}});
  results = {RecordOf("a")};
  results[0].type = "1";
  imp.FilterUpdateType(results);
  EXPECT_EQ(results[0].updateTypeFilterStatus, FilterStatus::NotMatched);
}

TEST_F(UpdateTypeFilterTest, RecordsOfOneCodeShareTheFirstPropertySet) {
  Request({1});
  Load({{"1.xml", Descriptor("a").Set("type", "1").Properties()},
        {"2.xml", Descriptor("a").Set("type", "2").Properties()}});
  results = {RecordOf("a"), RecordOf("a")};
  imp.FilterUpdateType(results);
  EXPECT_EQ(results[0].updateTypeFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].updateTypeFilterStatus, FilterStatus::Matched);
}

TEST_F(UpdateTypeFilterTest, RecordsAreJudgedInOrder) {
  Request({1});
  Load({{"1.xml", Descriptor("a").Set("type", "1").Properties()},
        {"2.xml", Descriptor("b").Set("type", "2").Properties()}});
  results = {RecordOf("b"), RecordOf("unknown"), RecordOf("a")};
  imp.FilterUpdateType(results);
  EXPECT_EQ(Codes(), (Lines{"b", "unknown", "a"}));
  EXPECT_EQ(Log(), (Lines{"3 b UpdateType Filter is not matched!", noProperties,
                          "3 a UpdateType Filter is matched!"}));
}

TEST_F(UpdateTypeFilterTest, StatusIsSetAlsoWhenNothingIsLogged) {
  Request({1});
  Load({{"1.xml", Descriptor("a").Set("type", "1").Properties()}});
  results = {RecordOf("a")};
  RecordingLog::SetThreshold(0);
  imp.FilterUpdateType(results);
  EXPECT_EQ(results[0].updateTypeFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(UpdateTypeFilterTest, QueryWithoutARequestLeavesTheSlot) {
  WriteIndividual("a.xml", Descriptor().Set("type", "1"));
  Request({1});
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(results.at(0).updateTypeFilterStatus, FilterStatus::Matched);
  Request({});
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(results.at(0).updateTypeFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(Log().back(), "3 UpdateType Filter Ignored!");
}

}  // namespace
}  // namespace Vornik::Testing
