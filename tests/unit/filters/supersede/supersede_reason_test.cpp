// The reasons of the supersede rule, one table for each of their parts.
#include "filters/supersede/supersede_reason.h"

#include <gtest/gtest.h>

#include "unit/filters/supersede/supersede_parts.h"

namespace Vornik::Testing {
namespace {

using Records = SupersedeParts::Records;
using Lists = SupersedeParts::Lists;
using Indices = std::vector<std::size_t>;

constexpr std::size_t keeps = noRecord;  // in the place of a position

QueryPackageResult Package(const std::string& code, const std::string& version = "",
                           const CodeList& driverNames = {}) {
  QueryPackageResult record;
  record.identificationCode = code;
  record.Version = version;
  for (const std::string& name : driverNames) record.driverFiles.push_back({name, "1", ""});
  return record;
}

QueryPackageResult Refused(QueryPackageResult record) {
  record.platformFilterStatus = FilterStatus::NotMatched;
  return record;
}

TEST(SupersedeReasons, ListsThatNameAndKeepAreGivenInTheOrderOfTheirCodes) {
  using Pairs = std::vector<std::pair<RecordIndex, std::size_t>>;
  struct Case {
    const char* name;
    CodeList codes;
    Lists lists;
    std::vector<Pairs> reasons;  // of each record: owner and position
  };
  const Case cases[] = {
      {"no list", {"a", "b"}, {}, {{}, {}}},
      {"one list", {"a", "b"}, {CodeList{"b"}}, {{{0, keeps}}, {{0, 0}}}},
      {"its position", {"a", "b"}, {CodeList{"none", "B"}}, {{{0, keeps}}, {{0, 1}}}},
      {"named twice", {"a", "b"}, {CodeList{"b", "B"}}, {{{0, keeps}}, {{0, 0}, {0, 1}}}},
      {"itself", {"a"}, {CodeList{"a"}}, {{{0, 0}, {0, keeps}}}},
      {"a chain",
       {"a", "b", "c"},
       {CodeList{"b"}, CodeList{"c"}},
       {{{0, keeps}}, {{0, 0}, {1, keeps}}, {{1, 0}}}},
      {"upper case first",
       {"a", "B"},
       {CodeList{"B"}, CodeList{"a"}},
       {{{1, 0}, {0, keeps}}, {{1, keeps}, {0, 0}}}},
      {"the first record for a code",
       {"x", "X", "y"},
       {std::nullopt, CodeList{"y"}, CodeList{"X"}},
       {{{1, keeps}, {2, 0}}, {}, {{1, 0}, {2, keeps}}}},
      {"the later list of one code",
       {"a", "b", "a"},
       {CodeList{"b"}, std::nullopt, CodeList{"a"}},
       {{{2, 0}, {2, keeps}}, {}, {}}},
  };
  for (const Case& one : cases) {
    Records records;
    for (const std::string& code : one.codes) records.push_back(Package(code));
    const SupersedeParts parts(records, one.lists);
    for (RecordIndex i = 0; i < records.size(); ++i) {
      Pairs reasons;
      for (const ListReason& list : parts.ReasonOf(i).lists) {
        reasons.emplace_back(list.owner, list.position.value_or(keeps));
      }
      EXPECT_EQ(reasons, one.reasons[i]) << one.name << ", record " << i;
    }
  }
}

TEST(SupersedeReasons, RankingHasDriverFilesVersionsAsComparedAndThePlace) {
  const SupersedeParts parts(
      {Package("a", "V2", {"X.sys", "own.sys"}), Package("b", "v10", {"x.SYS"}),
       Package("c", "V2", {"Y.sys", "x.sys"}), Package("d", "1", {"y.sys"})});
  const SupersedeReason reason = parts.ReasonOf(0);
  ASSERT_EQ(reason.rankings.size(), 1U);
  EXPECT_EQ(reason.rankings[0].records, (RecordGroup{3, 1, 2, 0}))
      << "the smaller versions change the order of the equal ones";
  EXPECT_EQ(reason.rankings[0].versions, (CodeList{"1", "v10", "v2", "v2"}));
  EXPECT_EQ(reason.rankings[0].driverFiles, (CodeList{"x.sys", "y.sys"}));
  EXPECT_EQ(reason.rankings[0].place, 3U);
  EXPECT_EQ(parts.ReasonOf(3).rankings.at(0).place, 0U);
}

TEST(SupersedeReasons, EachRankingOfAPackageIsGivenTheDecidingOneLast) {
  const SupersedeParts parts(
      {Package("a", "1", {"x"}), Package("b", "3", {"y"}), Package("c", "2", {"x", "y"})});
  const SupersedeReason reason = parts.ReasonOf(2);
  ASSERT_EQ(reason.rankings.size(), 2U);
  EXPECT_EQ(reason.rankings[0].records, (RecordGroup{0, 2}));
  EXPECT_EQ(reason.rankings[0].place, 1U);
  EXPECT_EQ(reason.rankings[1].records, (RecordGroup{2, 1}));
  EXPECT_EQ(reason.rankings[1].place, 0U);
}

TEST(SupersedeReasons, PackageThatIsRankedForTwoCodesHasItsLastPlace) {
  const SupersedeParts parts({Package("a", "1", {"x"}), Package("A", "9", {"x"})});
  ASSERT_EQ(parts.ReasonOf(0).rankings.size(), 1U);
  EXPECT_EQ(parts.ReasonOf(0).rankings[0].records, (RecordGroup{0, 0}));
  EXPECT_EQ(parts.ReasonOf(0).rankings[0].place, 1U);
  EXPECT_EQ(parts.ReasonOf(0).rankings[0].driverFiles, CodeList{});
  EXPECT_TRUE(parts.ReasonOf(1).rankings.empty());
}

// What a reason says was left out: words, and numbers where there are some.
CodeList LeftOut(const SupersedeReason& reason) {
  CodeList parts;
  if (reason.isRefused) parts.emplace_back("refused");
  if (reason.isExcluded) parts.emplace_back("excluded");
  if (reason.hasNoProperties) parts.emplace_back("no properties");
  const auto add = [&parts](const std::string& words, const auto& numbers) {
    for (const std::size_t number : numbers) parts.push_back(words + " " + std::to_string(number));
  };
  if (reason.listCounted != noRecord) add("list of", Indices{reason.listCounted});
  add("marked", Indices{reason.marked});
  add("unknown", reason.unknownCodes);
  add("refused rival", reason.refusedRivals);
  add("excluded rival", reason.excludedRivals);
  return parts;
}

TEST(SupersedeReasons, WhatIsLeftOutIsGivenWithTheCause) {
  struct Case {
    const char* name;
    Records records;
    Lists lists;
    CodeList excludedIds;
    std::size_t record;
    CodeList leftOut;
  };
  const Case cases[] = {
      {"nothing", {Package("a")}, {}, {}, 0, {"marked 0"}},
      {"refused by the platform filter",
       {Refused(Package("a"))},
       {std::nullopt},
       {},
       0,
       {"refused", "marked 0"}},
      {"no properties", {Package("a")}, {std::nullopt}, {}, 0, {"no properties", "marked 0"}},
      {"excluded by its id", {Package("a")}, {}, {"A"}, 0, {"excluded", "marked 0"}},
      {"listed codes of no record",
       {Package("a"), Package("b")},
       {CodeList{"none", "b", ""}},
       {},
       0,
       {"list of 0", "marked 0", "unknown 0", "unknown 2"}},
      {"a list of such codes is not applied",
       {Package("a")},
       {CodeList{"none"}},
       {},
       0,
       {"marked 0", "unknown 0"}},
      {"a later list of the same code counts",
       {Package("a"), Package("a")},
       {CodeList{"a"}, CodeList{"a"}},
       {},
       0,
       {"list of 1", "marked 0"}},
      {"an earlier record is marked for its code",
       {Package("A"), Package("a")},
       {},
       {},
       1,
       {"marked 0"}},
      {"rivals: refused, excluded, and neither",
       {Package("a", "1", {"x"}), Refused(Package("b", "2", {"X"})), Package("c", "3", {"x"}),
        Package("d", "4", {"y", "X"}), Refused(Package("e", "5", {"y"}))},
       {},
       {"C", "e", "b"},
       0,
       {"marked 0", "refused rival 1", "excluded rival 2"}},
      {"rivals of a package that is left out itself",
       {Refused(Package("a", "1", {"x", "y"})), Package("b", "2", {"y"}),
        Refused(Package("c", "2", {"x"}))},
       {std::nullopt},
       {"a", "b"},
       0,
       {"refused", "excluded", "marked 0", "refused rival 2", "excluded rival 1"}},
  };
  for (const Case& one : cases) {
    const SupersedeParts parts(one.records, one.lists, one.excludedIds);
    EXPECT_EQ(LeftOut(parts.ReasonOf(one.record)), one.leftOut) << one.name;
  }
}

}  // namespace
}  // namespace Vornik::Testing
