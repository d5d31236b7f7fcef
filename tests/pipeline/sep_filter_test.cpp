// The Sep filter lets pass what is no Sep package.
#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

using SepFilterTest = QueryTest;

TEST_F(SepFilterTest, EmptyVectorGivesNoLine) {
  imp.FilterSep(results);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(SepFilterTest, VerdictAndLineOfEveryCode) {
  struct Case {
    const char* code;
    std::uint32_t status;
    const char* line;
  };
  const Case cases[] = {
      {"orx_drv_net", FilterStatus::Matched, "3 orx_drv_net Sep Filter is matched!"},
      {"orx_utl_sep", FilterStatus::NotMatched, "3 orx_utl_sep Sep Filter is not matched!"},
      {"orx_utl_tsep", FilterStatus::NotMatched, "3 orx_utl_tsep Sep Filter is not matched!"},
      {"x_orx_utl_sep_2", FilterStatus::NotMatched, "3 x_orx_utl_sep_2 Sep Filter is not matched!"},
      {"x_orx_utl_tsep_2", FilterStatus::NotMatched,
       "3 x_orx_utl_tsep_2 Sep Filter is not matched!"},
      {"orx_utl_tsep_orx_utl_sep", FilterStatus::NotMatched,
       "3 orx_utl_tsep_orx_utl_sep Sep Filter is not matched!"},
      {"ORX_UTL_SEP", FilterStatus::Matched, "3 ORX_UTL_SEP Sep Filter is matched!"},
      {"orx_utl_TSEP", FilterStatus::Matched, "3 orx_utl_TSEP Sep Filter is matched!"},
      {"orx_utl_se", FilterStatus::Matched, "3 orx_utl_se Sep Filter is matched!"},
      {"", FilterStatus::Matched, "3  Sep Filter is matched!"},
      {" ", FilterStatus::Matched, "3   Sep Filter is matched!"},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.code);
    RecordingLog::Reset();
    results = {RecordOf(one.code)};
    imp.FilterSep(results);
    EXPECT_EQ(results[0].sepFilterStatus, one.status);
    EXPECT_EQ(Log(), Lines{one.line});
  }
}

TEST_F(SepFilterTest, RecordsAreJudgedInOrderAndLoseTheirEarlierVerdict) {
  results = {RecordOf("orx_utl_sep"), RecordOf("a")};
  results[0].sepFilterStatus = FilterStatus::Matched;
  results[1].sepFilterStatus = FilterStatus::NotMatched;
  imp.FilterSep(results);
  EXPECT_EQ(results[0].sepFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[1].sepFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Log(),
            (Lines{"3 orx_utl_sep Sep Filter is not matched!", "3 a Sep Filter is matched!"}));
}

TEST_F(SepFilterTest, OnlyTheCodeIsLookedAt) {
  results = {RecordOf("a")};
  results[0].packageXmlFile = "orx_utl_sep.xml";
  results[0].payload = "orx_utl_tsep.exe";
  results[0].category = results[0].kovuName = "orx_utl_sep";
  imp.FilterSep(results);
  EXPECT_EQ(results[0].sepFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[0].kovuFilterStatus, FilterStatus::NotEvaluated);
}

TEST_F(SepFilterTest, StatusIsSetAlsoWhenNothingIsLogged) {
  RecordingLog::SetThreshold(2);
  results = {RecordOf("orx_utl_sep"), RecordOf("a")};
  imp.FilterSep(results);
  EXPECT_EQ(results[0].sepFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[1].sepFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(SepFilterTest, SwitchedOffFilterLeavesTheSlot) {
  WriteIndividual("orx_utl_sep.xml");
  imp.sepFilter = false;
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(results.at(0).sepFilterStatus, FilterStatus::NotEvaluated);
  imp.sepFilter = true;
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(results.at(0).sepFilterStatus, FilterStatus::NotMatched);
}

}  // namespace
}  // namespace Vornik::Testing
