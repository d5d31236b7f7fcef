// Tables for the parts of the rule. That the whole rule is right on many record sets is tested
// beside this, in supersede_plain_test.cpp.
#include "filters/supersede/supersede.h"

#include <gtest/gtest.h>

#include "filters/supersede/version_ranking.h"
#include "global_locale.h"
#include "unit/filters/supersede/supersede_parts.h"

namespace Vornik::Testing {
namespace {

using SupersedeRecords = SupersedeParts::Records;
using SupersedeMap = std::map<std::string, CodeList>;

constexpr std::uint32_t matched = FilterStatus::Matched;
constexpr std::uint32_t notMatched = FilterStatus::NotMatched;

QueryPackageResult Package(const std::string& code, const std::string& version,
                           const CodeList& driverNames = {}) {
  QueryPackageResult record;
  record.identificationCode = code;
  record.Version = version;
  for (const std::string& name : driverNames) record.driverFiles.push_back({name, "1", ""});
  return record;
}

QueryPackageResult Refused(QueryPackageResult record) {
  record.platformFilterStatus = notMatched;
  return record;
}

SupersedeRecords WithCodes(const CodeList& codes) {
  SupersedeRecords records;
  for (const std::string& code : codes) records.push_back(Package(code, ""));
  return records;
}

// What the rule writes into one record.
struct Outcome {
  std::uint32_t status;
  std::string supersedesId;
  std::string supersededById;

  bool operator==(const Outcome& other) const {
    return status == other.status && supersedesId == other.supersedesId &&
           supersededById == other.supersededById;
  }
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  return out << "{" << outcome.status << ", supersedes \"" << outcome.supersedesId << "\", by \""
             << outcome.supersededById << "\"}";
}

using Outcomes = std::vector<Outcome>;

SupersedeParts::Lists ListsOf(const std::vector<CodeList>& lists) {
  return {lists.begin(), lists.end()};
}

Outcomes Resolve(const SupersedeRecords& records, const std::vector<CodeList>& lists = {},
                 const CodeList& excludedIds = {}) {
  Outcomes outcomes;
  for (const auto& record : SupersedeParts(records, ListsOf(lists), excludedIds).Resolved()) {
    outcomes.push_back({record.supersedeFilterStatus, record.supersedesId, record.supersededById});
  }
  return outcomes;
}

std::string Zero(const std::string& before, const std::string& after) {
  return before + std::string(1, '\0') + after;
}

TEST(SupersedeRules, ExplicitListsAreMappedByCode) {
  struct Case {
    const char* name;
    CodeList codes;
    std::vector<CodeList> lists;
    SupersedeMap map;
  };
  const Case cases[] = {
      {"no record", {}, {}, {}},
      {"no list", {"a", "b"}, {{}, {}}, {}},
      {"one listed code", {"a", "b"}, {{"b"}, {}}, {{"a", {"b"}}}},
      {"order and repeats stay",
       {"a", "b", "c"},
       {{"c", "b", "c"}, {}, {}},
       {{"a", {"c", "b", "c"}}}},
      {"itself", {"a"}, {{"a"}}, {{"a", {"a"}}}},
      {"unknown codes go", {"a", "b"}, {{"x", "b", "y"}, {}}, {{"a", {"b"}}}},
      {"nothing known is left", {"a", "b"}, {{"x", "y"}, {}}, {}},
      {"found without regard to case, kept as it is listed",
       {"a", "b"},
       {{"B", "b"}, {}},
       {{"a", {"B", "b"}}}},
      {"the later list of one code counts", {"a", "b", "a"}, {{"b"}, {}, {"a"}}, {{"a", {"a"}}}},
      {"an empty list replaces none", {"a", "b", "a"}, {{"b"}, {}, {}}, {{"a", {"b"}}}},
      {"a list of unknown codes replaces none",
       {"a", "b", "a"},
       {{"b"}, {}, {"x"}},
       {{"a", {"b"}}}},
      {"codes of two cases are two keys", {"a", "A"}, {{"A"}, {"a"}}, {{"A", {"a"}}, {"a", {"A"}}}},
      {"a listed empty code", {"a", ""}, {{""}, {}}, {{"a", {""}}}},
      {"a prefix is another code", {"a", "ab"}, {{"abc", "b", "a "}, {}}, {}},
  };
  for (const Case& one : cases) {
    const SupersedeParts parts(WithCodes(one.codes), ListsOf(one.lists));
    EXPECT_EQ(parts.Map(), one.map) << one.name;
  }
}

TEST(SupersedeRules, MapIsInByteOrder) {
  const SupersedeParts parts(WithCodes({"\xC3", "b", "B", "a", ""}),
                             ListsOf({{"a"}, {"a"}, {"a"}, {"a"}, {"a"}}));
  EXPECT_EQ(parts.KeysInOrder(), (CodeList{"", "B", "a", "b", "\xC3"}));
}

TEST(SupersedeRules, DriverFilesOfOneNameMakeAGroup) {
  struct Case {
    const char* name;
    SupersedeRecords records;
    std::vector<CodeList> groups;
  };
  const Case cases[] = {
      {"no record", {}, {}},
      {"one record", {Package("a", "1", {"x"})}, {}},
      {"two of one name", {Package("a", "1", {"x"}), Package("b", "1", {"x"})}, {{"a", "b"}}},
      {"two of two names", {Package("a", "1", {"x"}), Package("b", "1", {"y"})}, {}},
      {"no driver files", {Package("a", "1"), Package("b", "1")}, {}},
      {"only one has driver files", {Package("a", "1"), Package("b", "1", {"x"})}, {}},
      {"names in two cases",
       {Package("a", "1", {"X.SYS"}), Package("b", "1", {"x.sys"})},
       {{"a", "b"}}},
      {"a name that is a prefix", {Package("a", "1", {"x"}), Package("b", "1", {"x.sys"})}, {}},
      {"any of several names",
       {Package("a", "1", {"w", "x"}), Package("b", "1", {"y", "z", "X"})},
       {{"a", "b"}}},
      {"three of one name",
       {Package("a", "1", {"x"}), Package("b", "1", {"x"}), Package("c", "1", {"x"})},
       {{"a", "b", "c"}}},
      {"two groups",
       {Package("a", "1", {"x"}), Package("b", "1", {"y"}), Package("c", "1", {"y"}),
        Package("d", "1", {"x"})},
       {{"a", "d"}, {"b", "c"}}},
      {"a later anchor joins the group that holds it",
       {Package("a", "1", {"x"}), Package("b", "1", {"x", "y"}), Package("c", "1", {"y"})},
       {{"a", "b", "c"}}},
      {"groups that meet later are not merged",
       {Package("a", "1", {"x"}), Package("b", "1", {"y"}), Package("c", "1", {"x", "y"})},
       {{"a", "c"}, {"b", "c"}}},
      {"an anchor in two groups extends the first",
       {Package("a", "1", {"x"}), Package("b", "1", {"y"}), Package("c", "1", {"x", "y", "z"}),
        Package("d", "1", {"z"})},
       {{"a", "c", "d"}, {"b", "c"}}},
      {"the earlier record is refused",
       {Refused(Package("a", "1", {"x"})), Package("b", "1", {"x"})},
       {}},
      {"the later record is refused",
       {Package("a", "1", {"x"}), Refused(Package("b", "1", {"x"}))},
       {}},
      {"a refused record between",
       {Package("a", "1", {"x"}), Refused(Package("b", "1", {"x"})), Package("c", "1", {"x"})},
       {{"a", "c"}}},
      {"codes in two cases are two codes",
       {Package("a", "1", {"x"}), Package("A", "1", {"x"}), Package("b", "1", {"x"})},
       {{"a", "A", "b"}}},
      {"a code of two records stands once",
       {Package("a", "1", {"x"}), Package("b", "1", {"x"}), Package("a", "1", {"x"})},
       {{"a", "b"}}},
      {"empty codes are codes", {Package("", "1", {"x"}), Package("b", "1", {"x"})}, {{"", "b"}}},
      {"codes of several names are met in the order of the records",
       {Package("a", "1", {"x", "y"}), Package("b", "1", {"y"}), Package("c", "1", {"x"})},
       {{"a", "b", "c"}}},
      {"a code of two groups is met by each once",
       {Package("a", "1", {"x"}), Package("b", "1", {"y"}), Package("c", "1", {"x", "z"}),
        Package("d", "1", {"x", "y", "z"})},
       {{"a", "c", "d"}, {"b", "d"}}},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(SupersedeParts(one.records).Groups(), one.groups) << one.name;
  }
}

TEST(SupersedeRules, RecordsThatThePlatformFilterDidNotJudgeFormGroups) {
  SupersedeRecords records = {Package("a", "1", {"x"}), Package("b", "2", {"x"})};
  records[1].platformFilterStatus = matched;
  EXPECT_EQ(SupersedeParts(records).Groups(), (std::vector<CodeList>{{"a", "b"}}));
}

TEST(SupersedeRules, ExcludedCodesLeaveTheirGroups) {
  const SupersedeRecords records = {Package("a", "1", {"x"}), Package("b", "1", {"x"}),
                                    Package("c", "1", {"x"}), Package("d", "1", {"y"}),
                                    Package("e", "1", {"y"})};
  struct Case {
    const char* name;
    CodeList excludedIds;
    std::vector<CodeList> groups;
  };
  const Case cases[] = {
      {"none", {}, {{"a", "b", "c"}, {"d", "e"}}},
      {"the first", {"a"}, {{"b", "c"}, {"d", "e"}}},
      {"the middle one", {"b"}, {{"a", "c"}, {"d", "e"}}},
      {"in another case", {"C"}, {{"a", "b"}, {"d", "e"}}},
      {"a group of one is none", {"b", "a"}, {{"d", "e"}}},
      {"all", {"a", "b", "c", "d", "e"}, {}},
      {"part of a code", {"", "aa", "a "}, {{"a", "b", "c"}, {"d", "e"}}},
      {"unknown codes", {"z"}, {{"a", "b", "c"}, {"d", "e"}}},
  };
  for (const Case& one : cases) {
    const SupersedeParts parts(records, {}, one.excludedIds);
    EXPECT_EQ(parts.RankedGroups(), one.groups) << one.name;
  }
}

TEST(SupersedeRules, GroupOfOneRepeatedCodeIsNotRanked) {
  const SupersedeParts parts({Package("a", "1", {"x"}), Package("a", "2", {"x"})});
  EXPECT_EQ(parts.RankedGroups(), std::vector<CodeList>{});
}

TEST(SupersedeRules, VersionsRankAsText) {
  using Ranking = std::vector<std::size_t>;
  struct Case {
    const char* name;
    std::vector<std::string> versions;
    Ranking ranking;
  };
  const Case cases[] = {
      {"ascending", {"1", "2", "3"}, {0, 1, 2}},
      {"descending", {"3", "2", "1"}, {2, 1, 0}},
      {"10 stands before 9", {"9", "10"}, {1, 0}},
      {"1.10 stands before 1.9", {"1.9", "1.10"}, {1, 0}},
      {"a prefix stands first", {"1.0.0", "1.0", "1"}, {2, 1, 0}},
      {"nothing stands first", {"0", ""}, {1, 0}},
      {"case does not count", {"B", "a", "C"}, {1, 0, 2}},
      {"versions that differ in case alone are equal", {"a", "A"}, {0, 1}},
      {"the first character counts most", {"1.0.0.02", "2.0.0.01"}, {0, 1}},
      {"the ninth character counts", {"10.0.0.12", "10.0.0.11", "10.0.0.1"}, {2, 1, 0}},
      {"bytes are unsigned", {"\xC3", "z", "\x80"}, {1, 2, 0}},
      {"a byte stays out of the one before it", {"c\x01", "b\xFF"}, {1, 0}},
      {"a version ends where it ends", {"1", "5", "12"}, {0, 2, 1}},
      {"a version ends at its zero byte", {Zero("1", "9"), Zero("1", "1")}, {0, 1}},
      {"and at the first of two", {Zero(Zero("1", "9"), ""), Zero(Zero("1", "1"), "")}, {0, 1}},
      {"behind a zero byte nothing counts", {Zero("2", ""), Zero("1", "9"), "1.1"}, {1, 2, 0}},
      {"all equal", {"1", "1", "1"}, {0, 1, 2}},
      {"the exchange reorders equal versions", {"2", "2", "1"}, {2, 1, 0}},
      {"and again", {"3", "2", "3", "1"}, {3, 1, 2, 0}},
  };
  for (const Case& one : cases) {
    std::vector<std::string> compared;
    for (const std::string& version : one.versions) {
      compared.push_back(ComparedVersion(Package("code", version), LocaleFold()));
    }
    EXPECT_EQ(RankVersions(compared), one.ranking) << one.name;
  }
}

TEST(SupersedeRules, FewerThanTwoVersionsHaveOneOrder) {
  EXPECT_EQ(RankVersions({}), std::vector<std::size_t>{});
  EXPECT_EQ(RankVersions({"1"}), std::vector<std::size_t>{0});
}

TEST(SupersedeRules, CodeRanksTheFirstRecordThatItFinds) {
  const SupersedeParts parts({Package("a", "5", {"x"}), Package("B", "2"), Package("A", "1", {"x"}),
                              Package("b", "9", {"x"})});
  EXPECT_EQ(parts.Rankings(), (std::vector<RecordGroup>{{1, 0, 0}}))
      << "a matches two codes, and B matches b";
}

TEST(SupersedeRules, PackageThatListsItselfIsKept) {
  EXPECT_EQ(Resolve({Package("a", "1")}, {{"a"}}), (Outcomes{{matched, "a", "a"}}));
}

TEST(SupersedeRules, DriverFileNamesThatDifferInCaseFormAGroup) {
  EXPECT_EQ(Resolve({Package("a", "1", {"NET.sys"}), Package("b", "2", {"net.SYS"})}),
            (Outcomes{{notMatched, "", "b"}, {matched, "a", ""}}));
}

TEST(SupersedeRules, Version19IsKeptBefore110) {
  EXPECT_EQ(Resolve({Package("a", "1.10", {"x"}), Package("b", "1.9", {"x"})}),
            (Outcomes{{notMatched, "", "b"}, {matched, "a", ""}}));
  EXPECT_EQ(Resolve({Package("a", "1.9", {"x"}), Package("b", "1.10", {"x"})}),
            (Outcomes{{matched, "b", ""}, {notMatched, "", "a"}}));
}

TEST(SupersedeRules, MiddleOneOfThreeIsExcluded) {
  const SupersedeRecords records = {Package("a", "1", {"x"}), Package("b", "2", {"x"}),
                                    Package("c", "3", {"x"})};
  EXPECT_EQ(Resolve(records),
            (Outcomes{{notMatched, "", "b"}, {notMatched, "a", "c"}, {matched, "b", ""}}));
  EXPECT_EQ(Resolve(records, {}, {"B"}),
            (Outcomes{{notMatched, "", "c"}, {matched, "", ""}, {matched, "a", ""}}));
}

TEST(SupersedeRules, LastOfEqualVersionsIsKept) {
  EXPECT_EQ(Resolve({Package("a", "1", {"x"}), Package("b", "1", {"x"}), Package("c", "1", {"x"})}),
            (Outcomes{{notMatched, "", "b"}, {notMatched, "a", "c"}, {matched, "b", ""}}));
}

TEST(SupersedeRules, ExchangeDecidesWhichOfSomeEqualVersionsIsKept) {
  EXPECT_EQ(Resolve({Package("a", "2", {"x"}), Package("b", "2", {"x"}), Package("c", "1", {"x"})}),
            (Outcomes{{matched, "b", ""}, {notMatched, "c", "a"}, {notMatched, "", "b"}}));
}

TEST(SupersedeRules, SinglePackageIsKept) {
  EXPECT_EQ(Resolve({Package("a", "1", {"x"})}), (Outcomes{{matched, "", ""}}));
}

TEST(SupersedeRules, NoRecordsHaveNoOutcomes) { EXPECT_EQ(Resolve({}), Outcomes{}); }

TEST(SupersedeRules, EveryRecordIsKeptAtFirstAndOldIdsStay) {
  SupersedeRecords records = {Package("a", "1"), Refused(Package("b", "1"))};
  records[0].supersedeFilterStatus = notMatched;
  records[0].supersedesId = "old";
  records[1].supersededById = "older";
  EXPECT_EQ(Resolve(records), (Outcomes{{matched, "old", ""}, {matched, "", "older"}}));
}

TEST(SupersedeRules, ListedPackagesAreSuperseded) {
  EXPECT_EQ(Resolve({Package("a", "1"), Package("b", "1"), Package("c", "1")}, {{"c", "B"}}),
            (Outcomes{{matched, "c", ""}, {notMatched, "", "a"}, {notMatched, "", "a"}}));
}

TEST(SupersedeRules, UnknownCodesOfAListAreIgnored) {
  EXPECT_EQ(Resolve({Package("a", "1"), Package("b", "1")}, {{"x", "b"}}),
            (Outcomes{{matched, "b", ""}, {notMatched, "", "a"}}));
  EXPECT_EQ(Resolve({Package("a", "1")}, {{"x"}}), (Outcomes{{matched, "", ""}}));
}

TEST(SupersedeRules, LastEntryInKeyOrderDecidesAChain) {
  EXPECT_EQ(Resolve({Package("a", "1"), Package("b", "1"), Package("c", "1")}, {{"b"}, {"c"}, {}}),
            (Outcomes{{matched, "b", ""}, {matched, "c", "a"}, {notMatched, "", "b"}}))
      << "b supersedes after it was superseded";
  EXPECT_EQ(Resolve({Package("a", "1"), Package("b", "1"), Package("c", "1")}, {{}, {"a"}, {"b"}}),
            (Outcomes{{notMatched, "", "b"}, {notMatched, "a", "c"}, {matched, "b", ""}}))
      << "b is superseded after it superseded";
}

TEST(SupersedeRules, LastEntryInKeyOrderDecidesARing) {
  EXPECT_EQ(Resolve({Package("b", "1"), Package("a", "1")}, {{"a"}, {"b"}}),
            (Outcomes{{matched, "a", "a"}, {notMatched, "b", "b"}}));
}

TEST(SupersedeRules, UpperCaseKeysAreAppliedBeforeLowerCaseOnes) {
  EXPECT_EQ(Resolve({Package("a", "1"), Package("B", "1")}, {{"B"}, {"a"}}),
            (Outcomes{{matched, "B", "B"}, {notMatched, "a", "a"}}));
}

TEST(SupersedeRules, FirstRecordOfACodeIsTheOneThatIsMarked) {
  EXPECT_EQ(Resolve({Package("X", "1"), Package("x", "1"), Package("a", "1")}, {{}, {}, {"x"}}),
            (Outcomes{{notMatched, "", "a"}, {matched, "", ""}, {matched, "x", ""}}));
}

TEST(SupersedeRules, RefusedPackageCanBeSuperseded) {
  EXPECT_EQ(Resolve({Package("a", "1"), Refused(Package("b", "1"))}, {{"b"}}),
            (Outcomes{{matched, "b", ""}, {notMatched, "", "a"}}));
}

TEST(SupersedeRules, RefusedPackageIsMarkedInAGroupThatFindsItByCode) {
  EXPECT_EQ(
      Resolve({Refused(Package("A", "7", {})), Package("a", "1", {"x"}), Package("b", "2", {"x"})}),
      (Outcomes{{matched, "b", ""}, {matched, "", ""}, {notMatched, "", "A"}}));
}

TEST(SupersedeRules, GroupOverridesAList) {
  EXPECT_EQ(Resolve({Package("a", "1", {"x"}), Package("b", "2", {"x"})}, {{"b"}}),
            (Outcomes{{notMatched, "b", "b"}, {matched, "a", "a"}}));
}

TEST(SupersedeRules, LaterGroupOverridesAnEarlierOne) {
  EXPECT_EQ(
      Resolve({Package("a", "1", {"x"}), Package("b", "3", {"y"}), Package("c", "2", {"x", "y"})}),
      (Outcomes{{notMatched, "", "c"}, {matched, "c", ""}, {notMatched, "a", "b"}}))
      << "c is highest beside a and superseded beside b";
}

TEST(SupersedeRules, ExcludedPackageStillSupersedesByItsList) {
  EXPECT_EQ(Resolve({Package("a", "1"), Package("b", "1")}, {{"b"}}, {"a", "b"}),
            (Outcomes{{matched, "b", ""}, {notMatched, "", "a"}}));
}

TEST(SupersedeRules, TwoCodesOfOneRecordRankItTwice) {
  EXPECT_EQ(Resolve({Package("a", "1", {"x"}), Package("A", "9", {"x"})}),
            (Outcomes{{matched, "a", "a"}, {matched, "", ""}}));
}

TEST(SupersedeRules, GlobalLocaleFoldsCodesNamesAndVersions) {
  const GlobalLocaleGuard guard(std::locale(std::locale::classic(), new FoldsOnlyXToY));
  EXPECT_EQ(Resolve({Package("X", "1"), Package("a", "1")}, {{}, {"y"}}),
            (Outcomes{{notMatched, "", "a"}, {matched, "y", ""}}));
  EXPECT_EQ(Resolve({Package("a", "1", {"X"}), Package("b", "2", {"y"})}),
            (Outcomes{{notMatched, "", "b"}, {matched, "a", ""}}));
  EXPECT_EQ(Resolve({Package("a", "1", {"n"}), Package("b", "2", {"N"})}),
            (Outcomes{{matched, "", ""}, {matched, "", ""}}))
      << "this locale folds no other letter";
  EXPECT_EQ(Resolve({Package("a", "X", {"x"}), Package("b", "x", {"x"})}),
            (Outcomes{{matched, "b", ""}, {notMatched, "", "a"}}))
      << "X ranks as y";
  EXPECT_EQ(Resolve({Package("X", "1", {"x"}), Package("b", "2", {"x"})}, {}, {"y"}),
            (Outcomes{{matched, "", ""}, {matched, "", ""}}));
}

}  // namespace
}  // namespace Vornik::Testing
