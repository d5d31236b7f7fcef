// The supersede rule against its plain version on random record sets.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "filters/supersede/version_ranking.h"
#include "global_locale.h"
#include "plain_supersede.h"
#include "random_pick.h"
#include "test_random.h"
#include "unit/filters/supersede/supersede_parts.h"

namespace Vornik::Testing {
namespace {

// Folds letters and digits in a way of its own, one of them to a zero byte.
class FoldsOddly : public std::ctype<char> {
 protected:
  char do_tolower(char c) const override {
    switch (c) {
      case 'A':
        return 'b';
      case 'X':
        return 'y';
      case '1':
        return '9';
      case 'Q':
        return '\0';
      default:
        return c;
    }
  }
};

// What the records of one set are made of.
struct Pools {
  PlainCodes codes;
  PlainCodes versions;
  PlainCodes driverNames;
  PlainCodes listed;
  std::size_t mostRecords;
  std::size_t mostDriverFiles;
};

std::string Zero(const std::string& before, const std::string& after) {
  return before + std::string(1, '\0') + after;
}

Pools SmallPools() {
  return {{"", "a", "A", "b", "B", "c", "ab", "AB", "x", "X", "y", "\xC3\xA4", Zero("a", "b")},
          {"",
           "1",
           "1.1",
           "1.10",
           "1.9",
           "10",
           "9",
           "a",
           "A",
           "b",
           Zero("1", "a"),
           Zero("1", "b"),
           "1.10.0",
           "\x80",
           "\xFF",
           "X",
           "x",
           "y",
           "Q",
           Zero("", "9"),
           "1Q2",
           "1Q1"},
          {"", "x", "X", "y", "net.sys", "NET.SYS", "net", "\xE9", Zero("x", "1"), "1", "9"},
          {"", "a", "A", "b", "B", "c", "C", "ab", "aB", "x", "X", "y", "Y", "unknown", "a ", "aa"},
          9,
          3};
}

struct Set {
  PlainRecords records;
  std::vector<PlainCodes> lists;
  std::set<std::size_t> withoutProperties;
  PlainCodes excludedIds;
};

class Sets {
 public:
  Sets(unsigned int seed, Pools pools) : pick_(seed), pools_(std::move(pools)) {}

  Set Next() {
    Set set;
    set.records.resize(pick_.Below(pools_.mostRecords + 1));
    for (QueryPackageResult& record : set.records) Fill(record);
    if (pick_.OneIn(8)) MakeCodesDiffer(set.records);
    set.lists.resize(set.records.size());
    pick_.OneIn(6) ? MakeRing(set) : MakeLists(set);
    for (std::size_t i = 0; i < set.lists.size(); ++i) {
      if (set.lists[i].empty() && pick_.OneIn(5)) set.withoutProperties.insert(i);
    }
    if (pick_.OneIn(3)) set.excludedIds = pick_.Some(pools_.listed, 4);
    return set;
  }

 private:
  void Fill(QueryPackageResult& record) {
    record.identificationCode = pick_.Of(pools_.codes);
    record.Version = pick_.Of(pools_.versions);
    record.description = "kept";
    for (const std::string& name : pick_.Some(pools_.driverNames, pools_.mostDriverFiles)) {
      record.driverFiles.push_back({name, "1", ""});
    }
    record.platformFilterStatus = static_cast<std::uint32_t>(pick_.Below(3));
    if (pick_.OneIn(2)) record.platformFilterStatus = FilterStatus::Matched;
    if (pick_.OneIn(10)) {
      record.supersedeFilterStatus = static_cast<std::uint32_t>(pick_.Below(3));
      record.supersedesId = "before";
      record.supersededById = "behind";
    }
  }

  static void MakeCodesDiffer(PlainRecords& records) {
    for (std::size_t i = 0; i < records.size(); ++i) {
      records[i].identificationCode = "p" + std::to_string(i);
    }
  }

  // A refused record has no list, as the stage hands them over.
  void MakeLists(Set& set) {
    for (std::size_t i = 0; i < set.records.size(); ++i) {
      if (set.records[i].platformFilterStatus == FilterStatus::NotMatched) continue;
      if (!pick_.OneIn(3)) continue;
      set.lists[i] = pick_.Some(pools_.listed, 4);
      if (pick_.OneIn(3)) set.lists[i].push_back(set.records[i].identificationCode);
      if (pick_.OneIn(2)) set.lists[i].push_back(pick_.Of(set.records).identificationCode);
    }
  }

  void MakeRing(Set& set) {
    for (std::size_t i = 0; i < set.records.size(); ++i) {
      QueryPackageResult& record = set.records[i];
      record.platformFilterStatus = FilterStatus::Matched;
      set.lists[i] = {set.records[(i + 1) % set.records.size()].identificationCode};
    }
  }

  RandomPick pick_;
  Pools pools_;
};

void ExpectSame(const PlainRecords& product, const PlainRecords& plain) {
  ASSERT_EQ(product.size(), plain.size());
  for (std::size_t i = 0; i < plain.size(); ++i) {
    ASSERT_EQ(product[i].supersedeFilterStatus, plain[i].supersedeFilterStatus) << i;
    ASSERT_EQ(product[i].supersedesId, plain[i].supersedesId) << i;
    ASSERT_EQ(product[i].supersededById, plain[i].supersededById) << i;
    ASSERT_EQ(product[i].identificationCode, plain[i].identificationCode) << i;
    ASSERT_EQ(product[i].Version, plain[i].Version) << i;
    ASSERT_EQ(product[i].description, plain[i].description) << i;
    ASSERT_EQ(product[i].driverFiles.size(), plain[i].driverFiles.size()) << i;
    ASSERT_EQ(product[i].platformFilterStatus, plain[i].platformFilterStatus) << i;
  }
}

SupersedeParts::Lists ListsOf(const Set& set) {
  SupersedeParts::Lists lists(set.lists.begin(), set.lists.end());
  for (std::size_t i = 0; i < lists.size(); ++i) {
    // As the stage reads them.
    if (set.records[i].platformFilterStatus == FilterStatus::NotMatched) lists[i].reset();
    if (set.withoutProperties.count(i) != 0) lists[i].reset();
  }
  return lists;
}

// How often the sets of a test led to what the rule is about.
struct Tally {
  std::size_t superseded = 0;
  std::size_t kept = 0;
  std::size_t ranked = 0;
  std::size_t mapped = 0;
  std::size_t reasons = 0;
};

void CompareWhole(const Set& set, Tally& tally) {
  PlainRecords plain = set.records;
  PlainSupersede(plain, set.lists, set.excludedIds);
  const SupersedeParts product(set.records, ListsOf(set), set.excludedIds);
  ASSERT_NO_FATAL_FAILURE(ExpectSame(product.Resolved(), plain));
  for (const QueryPackageResult& record : plain) {
    ++(record.supersedeFilterStatus == FilterStatus::NotMatched ? tally.superseded : tally.kept);
  }
}

PlainCodes EachOnce(const PlainCodes& codes) {
  PlainCodes once;
  for (const std::string& code : codes) {
    if (std::find(once.begin(), once.end(), code) == once.end()) once.push_back(code);
  }
  return once;
}

void CompareGroups(const Set& set) {
  std::vector<PlainCodes> groups = PlainGroups(set.records);
  std::transform(groups.begin(), groups.end(), groups.begin(), EachOnce);
  ASSERT_EQ(SupersedeParts(set.records).Groups(), groups);
}

void CompareRankings(const Set& set, Tally& tally) {
  const SupersedeParts product(set.records, {}, set.excludedIds);
  const auto ranked = PlainRankedGroups(set.records, set.excludedIds);
  ASSERT_EQ(product.RankedGroups(), ranked);
  const std::vector<RecordGroup> rankings = product.Rankings();
  ASSERT_EQ(rankings.size(), ranked.size());
  tally.ranked += ranked.size();
  for (std::size_t i = 0; i < ranked.size(); ++i) {
    PlainCodes codes;
    PlainCodes versions;
    for (const std::size_t index : rankings[i]) {
      codes.push_back(set.records.at(index).identificationCode);
      versions.push_back(set.records.at(index).Version);
    }
    PlainCodes plainCodes;
    PlainCodes plainVersions;
    for (const QueryPackageResult& copy : PlainRanking(set.records, ranked[i])) {
      plainCodes.push_back(copy.identificationCode);
      plainVersions.push_back(copy.Version);
    }
    ASSERT_EQ(codes, plainCodes);
    ASSERT_EQ(versions, plainVersions);
  }
}

void CompareMap(const Set& set, Tally& tally) {
  const auto map = PlainMap(set.records, set.lists);
  ASSERT_EQ(SupersedeParts(set.records, ListsOf(set)).Map(), map);
  tally.mapped += map.size();
}

// What two reasons are compared by: one line for each of their parts.
PlainCodes LinesOf(const SupersedeReason& reason) {
  PlainReasonLines lines;
  for (const ListReason& list : reason.lists) lines.List(list.owner, list.position);
  for (const RankingReason& ranking : reason.rankings) {
    lines.Ranking(ranking.records, ranking.place, ranking.versions, ranking.driverFiles);
  }
  if (reason.isRefused) lines.Say("refused");
  if (reason.isExcluded) lines.Say("excluded");
  if (reason.hasNoProperties) lines.Say("no properties");
  if (reason.listCounted != noRecord) lines.Say("list counted", reason.listCounted);
  lines.Say("marked", reason.marked);
  for (const std::size_t position : reason.unknownCodes) lines.Say("unknown", position);
  for (const std::size_t i : reason.refusedRivals) lines.Say("refused rival", i);
  for (const std::size_t i : reason.excludedRivals) lines.Say("excluded rival", i);
  return lines.Take();
}

void CompareReasons(const Set& set, Tally& tally) {
  const SupersedeParts product(set.records, ListsOf(set), set.excludedIds);
  for (std::size_t i = 0; i < set.records.size(); ++i) {
    const PlainCodes plain =
        PlainReason(set.records, set.lists, set.withoutProperties, set.excludedIds, i);
    ASSERT_EQ(LinesOf(product.ReasonOf(i)), plain) << i;
    tally.reasons += plain.size() - 1;
  }
}

void ExpectEnough(const Tally& tally, std::size_t least) {
  EXPECT_GT(tally.superseded, least);
  EXPECT_GT(tally.kept, least);
}

void CompareManyWhole(const Pools& pools, std::size_t usualRounds) {
  const TestRandom test;
  const std::size_t rounds = test.Rounds(usualRounds);
  Sets sets(test.Seed(), pools);
  Tally tally;
  for (std::size_t round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    ASSERT_NO_FATAL_FAILURE(CompareWhole(sets.Next(), tally));
  }
  if (test.RunsAllRounds()) ExpectEnough(tally, rounds / 2);
}

TEST(SupersedePlain, WholeRuleOnSmallSets) { CompareManyWhole(SmallPools(), 50'000); }

TEST(SupersedePlain, WholeRuleOnFurtherSmallSets) { CompareManyWhole(SmallPools(), 50'000); }

TEST(SupersedePlain, WholeRuleWithFewCodesAndNames) {
  Pools pools = SmallPools();
  pools.codes = {"a", "A", "b", "c", "d"};
  pools.driverNames = {"x", "X", "y"};
  pools.versions = {"1", "2", "10"};
  pools.listed = {"a", "B", "c", "d", "e"};
  CompareManyWhole(pools, 20'000);
}

TEST(SupersedePlain, WholeRuleUnderALocaleOfTheHosts) {
  const GlobalLocaleGuard guard(std::locale(std::locale::classic(), new FoldsOddly));
  CompareManyWhole(SmallPools(), 20'000);
}

TEST(SupersedePlain, PartsOfTheRule) {
  const TestRandom test;
  const std::size_t rounds = test.Rounds(20'000);
  Sets sets(test.Seed(), SmallPools());
  Tally tally;
  for (std::size_t round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    const Set set = sets.Next();
    ASSERT_NO_FATAL_FAILURE(CompareMap(set, tally));
    ASSERT_NO_FATAL_FAILURE(CompareGroups(set));
    ASSERT_NO_FATAL_FAILURE(CompareRankings(set, tally));
  }
  if (!test.RunsAllRounds()) return;
  EXPECT_GT(tally.mapped, rounds / 2);
  EXPECT_GT(tally.ranked, rounds / 2);
}

TEST(SupersedePlain, Reasons) {
  const TestRandom test;
  const std::size_t rounds = test.Rounds(4'000);
  Sets sets(test.Seed(), SmallPools());
  Tally tally;
  for (std::size_t round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    ASSERT_NO_FATAL_FAILURE(CompareReasons(sets.Next(), tally));
  }
  if (!test.RunsAllRounds()) return;
  EXPECT_GT(tally.reasons, rounds);
}

// Packages p0, p1, ... that all deliver the driver file "common", some of them others as well.
PlainRecords Family(RandomPick& pick, std::size_t size, const PlainCodes& versions) {
  PlainRecords records(size);
  for (std::size_t i = 0; i < size; ++i) {
    records[i].identificationCode = (pick.OneIn(2) ? "p" : "P") + std::to_string(i);
    records[i].Version = pick.Of(versions);
    records[i].driverFiles = {{pick.OneIn(2) ? "common" : "COMMON", "1", ""}};
    if (pick.OneIn(9)) records[i].driverFiles.push_back({"n" + std::to_string(i % 5), "1", ""});
    if (pick.OneIn(9)) records[i].driverFiles.erase(records[i].driverFiles.begin());
    if (pick.OneIn(9)) records[i].platformFilterStatus = FilterStatus::NotMatched;
  }
  return records;
}

// Sizes around those at which an ordinary sort changes its way of working.
void CompareFamilies(const PlainCodes& versions) {
  TestRandom pick;
  Tally tally;
  for (const std::size_t size : {2U, 15U, 16U, 17U, 33U, 64U, 100U}) {
    SCOPED_TRACE(size);
    Set set;
    set.records = Family(pick, size, versions);
    set.lists.resize(size);
    ASSERT_NO_FATAL_FAILURE(CompareWhole(set, tally));
    set.excludedIds = {"P0", "p7", "p14", "none"};
    ASSERT_NO_FATAL_FAILURE(CompareWhole(set, tally));
    ASSERT_NO_FATAL_FAILURE(CompareGroups(set));
    ASSERT_NO_FATAL_FAILURE(CompareRankings(set, tally));
  }
  Set set;
  set.records = Family(pick, 300, versions);
  set.lists.resize(set.records.size());
  ASSERT_NO_FATAL_FAILURE(CompareWhole(set, tally));
  EXPECT_GT(tally.superseded, 500U);
}

TEST(SupersedePlain, LargeFamilyOfEqualVersions) { CompareFamilies({"1.0"}); }

TEST(SupersedePlain, LargeFamilyOfTwoVersions) { CompareFamilies({"2", "1"}); }

TEST(SupersedePlain, LargeFamilyOfTenVersions) {
  CompareFamilies({"1", "2", "3", "10", "1.1", "a", "A", "", "1.10", "\x80"});
}

TEST(SupersedePlain, LargeFamilyOfManyVersions) {
  PlainCodes versions;
  for (int i = 0; i < 1'000; ++i) versions.push_back(std::to_string(i));
  CompareFamilies(versions);
}

TEST(SupersedePlain, LargeSetsOfManyGroups) {
  Pools pools = SmallPools();
  pools.codes.clear();
  pools.driverNames.clear();
  for (int i = 0; i < 60; ++i) {
    pools.codes.push_back("p" + std::to_string(i));
    pools.driverNames.push_back("n" + std::to_string(i));
  }
  pools.codes.push_back("P7");
  pools.listed = pools.codes;
  pools.mostRecords = 80;
  const TestRandom test;
  const std::size_t rounds = test.Rounds(60);
  Sets sets(test.Seed(), pools);
  Tally tally;
  for (std::size_t round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    ASSERT_NO_FATAL_FAILURE(CompareWhole(sets.Next(), tally));
  }
  if (test.RunsAllRounds()) ExpectEnough(tally, 300);
}

// Rankings alone: groups of packages with codes of their own, so that sizes can be large.
TEST(SupersedePlain, RankingsOfLargeGroups) {
  TestRandom pick;
  const std::size_t rounds = pick.Rounds(300);
  for (std::size_t round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    PlainRecords records(2 + pick.Below(60));
    PlainCodes group;
    PlainCodes compared;
    PlainCodes versions;
    for (std::size_t left = 1 + pick.Below(12); left != 0; --left) {
      versions.push_back(std::to_string(pick.Below(40)));
    }
    for (std::size_t i = 0; i < records.size(); ++i) {
      records[i].identificationCode = std::to_string(i);
      records[i].Version = pick.Of(versions);
      group.push_back(std::to_string(i));
      compared.push_back(ComparedVersion(records[i], LocaleFold()));
    }
    PlainCodes plain;
    for (const auto& copy : PlainRanking(records, group)) plain.push_back(copy.identificationCode);
    PlainCodes product;
    for (const std::size_t index : RankVersions(compared)) product.push_back(std::to_string(index));
    ASSERT_EQ(product, plain);
  }
}

}  // namespace
}  // namespace Vornik::Testing
