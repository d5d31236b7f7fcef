// The filters that hold the records against the host's lists of package ids.
#include "global_locale.h"
#include "query_fixture.h"

namespace Vornik::Testing {
namespace {

class IdFilterTest : public QueryTest {
 protected:
  std::uint32_t Include(const std::string& code) {
    Judge(code, &QueryPackageImp::FilterIncludeId);
    return results[0].includeIdFilterStatus;
  }

  std::uint32_t Exclude(const std::string& code) {
    Judge(code, &QueryPackageImp::FilterExcludeId);
    return results[0].excludeIdFilterStatus;
  }

 private:
  void Judge(const std::string& code, void (QueryPackageImp::*filter)(QueryPackageImp::Results&)) {
    RecordingLog::Reset();
    results = {RecordOf(code)};
    (imp.*filter)(results);
  }
};

using IncludeIdFilterTest = IdFilterTest;
using ExcludeIdFilterTest = IdFilterTest;

TEST_F(IncludeIdFilterTest, EmptyVectorGivesNoLine) {
  imp.includePackageIds = {"a"};
  imp.FilterIncludeId(results);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(IncludeIdFilterTest, EmptyListIsReportedAndMatchesNothing) {
  results = {RecordOf("a"), RecordOf("")};
  imp.FilterIncludeId(results);
  EXPECT_EQ(results[0].includeIdFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[1].includeIdFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(Log(),
            (Lines{"1 ERROR: IncludePackageIDs is empty!", "3 a IncludeId Filter is not matched!",
                   "3  IncludeId Filter is not matched!"}));
}

TEST_F(IncludeIdFilterTest, EmptyListIsReportedForAnEmptyVectorToo) {
  imp.FilterIncludeId(results);
  EXPECT_EQ(Log(), Lines{"1 ERROR: IncludePackageIDs is empty!"});
}

TEST_F(IncludeIdFilterTest, ListedCodeIsMatchedInAnyCase) {
  imp.includePackageIds = {"abc"};
  EXPECT_EQ(Include("abc"), FilterStatus::Matched);
  EXPECT_EQ(Log(), Lines{"3 abc IncludeId Filter is matched!"});
  EXPECT_EQ(Include("ABC"), FilterStatus::Matched);
  EXPECT_EQ(Log(), Lines{"3 ABC IncludeId Filter is matched!"});
}

TEST_F(IncludeIdFilterTest, OtherCodeIsNotMatched) {
  imp.includePackageIds = {"abc"};
  for (const std::string code : {"abcd", "ab", "", "abc ", " abc"}) {
    EXPECT_EQ(Include(code), FilterStatus::NotMatched);
    EXPECT_EQ(Log(), Lines{"3 " + code + " IncludeId Filter is not matched!"});
  }
}

TEST_F(IncludeIdFilterTest, EmptyCodeIsMatchedByAnEmptyEntryAlone) {
  imp.includePackageIds = {"a"};
  EXPECT_EQ(Include(""), FilterStatus::NotMatched);
  imp.includePackageIds = {"a", ""};
  EXPECT_EQ(Include(""), FilterStatus::Matched);
  EXPECT_EQ(Log(), Lines{"3  IncludeId Filter is matched!"});
}

TEST_F(ExcludeIdFilterTest, EmptyVectorGivesNoLine) {
  imp.excludePackageIds = {"a"};
  imp.FilterExcludeId(results);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(ExcludeIdFilterTest, EmptyListIsReportedAndMatchesEverything) {
  results = {RecordOf("a"), RecordOf("")};
  imp.FilterExcludeId(results);
  EXPECT_EQ(results[0].excludeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].excludeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Log(), (Lines{"1 ERROR: ExcludePackageIDs is empty!",
                          "3 a ExcludeId Filter is matched!", "3  ExcludeId Filter is matched!"}));
}

TEST_F(ExcludeIdFilterTest, EmptyListIsReportedForAnEmptyVectorToo) {
  imp.FilterExcludeId(results);
  EXPECT_EQ(Log(), Lines{"1 ERROR: ExcludePackageIDs is empty!"});
}

TEST_F(ExcludeIdFilterTest, ListedCodeIsNotMatchedInAnyCase) {
  imp.excludePackageIds = {"abc"};
  EXPECT_EQ(Exclude("Abc"), FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{"3 Abc ExcludeId Filter is not matched!"});
}

TEST_F(ExcludeIdFilterTest, EveryOtherCodeIsMatched) {
  imp.excludePackageIds = {"abc"};
  for (const std::string code : {"abcd", "ab", "", "abc ", " abc"}) {
    EXPECT_EQ(Exclude(code), FilterStatus::Matched);
    EXPECT_EQ(Log(), Lines{"3 " + code + " ExcludeId Filter is matched!"});
  }
}

TEST_F(ExcludeIdFilterTest, EmptyCodeIsExcludedByAnEmptyEntryAlone) {
  imp.excludePackageIds = {"a", ""};
  EXPECT_EQ(Exclude(""), FilterStatus::NotMatched);
}

TEST_F(IdFilterTest, CodeInBothListsIsIncludedAndExcluded) {
  imp.includePackageIds = {"a"};
  imp.excludePackageIds = {"a"};
  results = {RecordOf("a")};
  imp.FilterIncludeId(results);
  imp.FilterExcludeId(results);
  EXPECT_EQ(results[0].includeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[0].excludeIdFilterStatus, FilterStatus::NotMatched);
}

TEST_F(IdFilterTest, QueryAcceptsACodeInBothListsWhenItIsSpelledDifferently) {
  WriteIndividual("a.xml");
  imp.includePackageIds = {"a"};
  imp.excludePackageIds = {"A"};
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(results.at(0).includeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results.at(0).excludeIdFilterStatus, FilterStatus::NotMatched);
}

TEST_F(IdFilterTest, QueryWithoutListsLeavesTheSlots) {
  WriteIndividual("a.xml");
  EXPECT_EQ(Run(), QueryCode::Completed);
  EXPECT_EQ(results.at(0).includeIdFilterStatus, FilterStatus::NotEvaluated);
  EXPECT_EQ(results.at(0).excludeIdFilterStatus, FilterStatus::NotEvaluated);
}

TEST_F(IdFilterTest, RecordsAreJudgedInOrderAndLoseTheirEarlierVerdict) {
  imp.includePackageIds = imp.excludePackageIds = {"b"};
  results = {RecordOf("B"), RecordOf("a"), RecordOf("b")};
  for (auto& record : results) {
    record.includeIdFilterStatus = FilterStatus::NotMatched;
    record.excludeIdFilterStatus = FilterStatus::NotMatched;
  }
  imp.FilterIncludeId(results);
  imp.FilterExcludeId(results);
  EXPECT_EQ(Codes(), (Lines{"B", "a", "b"}));
  EXPECT_EQ(results[0].includeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].includeIdFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[0].excludeIdFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[1].excludeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(Log(),
            (Lines{"3 B IncludeId Filter is matched!", "3 a IncludeId Filter is not matched!",
                   "3 b IncludeId Filter is matched!", "3 B ExcludeId Filter is not matched!",
                   "3 a ExcludeId Filter is matched!", "3 b ExcludeId Filter is not matched!"}));
}

TEST_F(IdFilterTest, EachFilterWritesItsOwnSlotAlone) {
  imp.includePackageIds = imp.excludePackageIds = {"a"};
  Include("a");
  EXPECT_EQ(results[0].excludeIdFilterStatus, FilterStatus::NotEvaluated);
  Exclude("a");
  EXPECT_EQ(results[0].includeIdFilterStatus, FilterStatus::NotEvaluated);
}

TEST_F(IdFilterTest, NoPropertiesAreLookedUp) {
  imp.includePackageIds = imp.excludePackageIds = {"x"};
  Include("");
  EXPECT_EQ(Log().size(), 1U);
  Exclude("");
  EXPECT_EQ(Log().size(), 1U);
}

TEST_F(IdFilterTest, StatusIsSetAlsoWhenNothingIsLogged) {
  imp.includePackageIds = {"a"};
  imp.excludePackageIds = {"b"};
  results = {RecordOf("a"), RecordOf("b")};
  RecordingLog::SetThreshold(2);
  imp.FilterIncludeId(results);
  imp.FilterExcludeId(results);
  EXPECT_EQ(results[0].includeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].includeIdFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[0].excludeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].excludeIdFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(Log(), Lines{});
}

TEST_F(IdFilterTest, LocaleIsTheOneInForceWhenTheFilterBegins) {
  const GlobalLocaleGuard guard(std::locale::classic());
  imp.includePackageIds = {"aX"};
  results = {RecordOf("ax"), RecordOf("ay"), RecordOf("ax")};
  RecordingLog::OnRecord([](const LogEntry&) {
    std::locale::global(std::locale(std::locale::classic(), new FoldsOnlyXToY));
  });
  imp.FilterIncludeId(results);
  EXPECT_EQ(results[0].includeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[1].includeIdFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[2].includeIdFilterStatus, FilterStatus::Matched);
  imp.FilterIncludeId(results);
  EXPECT_EQ(results[0].includeIdFilterStatus, FilterStatus::NotMatched);
  EXPECT_EQ(results[1].includeIdFilterStatus, FilterStatus::Matched);
  EXPECT_EQ(results[2].includeIdFilterStatus, FilterStatus::NotMatched);
}

TEST_F(IdFilterTest, ListIsTheOneThatIsSetNow) {
  results = {RecordOf("abc"), RecordOf(""), RecordOf("def")};
  imp.includePackageIds = {"ABC", ""};
  imp.excludePackageIds = {"DEF"};
  imp.FilterIncludeId(results);
  imp.FilterExcludeId(results);
  const auto statuses = [this](std::uint32_t QueryPackageResult::*slot) {
    return std::vector<std::uint32_t>{results[0].*slot, results[1].*slot, results[2].*slot};
  };
  const std::uint32_t matched = FilterStatus::Matched;
  const std::uint32_t notMatched = FilterStatus::NotMatched;
  EXPECT_EQ(statuses(&QueryPackageResult::includeIdFilterStatus),
            (std::vector<std::uint32_t>{matched, matched, notMatched}));
  EXPECT_EQ(statuses(&QueryPackageResult::excludeIdFilterStatus),
            (std::vector<std::uint32_t>{matched, matched, notMatched}));
  imp.includePackageIds = {"x"};
  imp.FilterIncludeId(results);
  EXPECT_EQ(statuses(&QueryPackageResult::includeIdFilterStatus),
            (std::vector<std::uint32_t>{notMatched, notMatched, notMatched}));
}

}  // namespace
}  // namespace Vornik::Testing
