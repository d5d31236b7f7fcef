#include "records/pack_selection.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/global_locale.h"

namespace Vornik {
namespace {

using List = std::vector<std::string>;

TEST(ParseApplicableMachineTypes, NothingIsDropped) {
  EXPECT_EQ(ParseApplicableMachineTypes({"Desk 3 [1234]", "5678", "", "x []"}),
            (List{"1234", "5678", "", ""}));
  EXPECT_EQ(ParseApplicableMachineTypes({}), List{});
}

struct Case {
  List machineTypes;
  List systems;
  const char* machineType;
  std::uint32_t os;
  PackVerdict verdict;
};

TEST(EvaluatePack, ComparesMachineTypesAndThenSystems) {
  constexpr auto applies = PackVerdict::Applies;
  constexpr auto otherMachine = PackVerdict::OtherMachineType;
  constexpr auto otherSystem = PackVerdict::OtherOperatingSystem;
  const Case cases[] = {
      {{"Desk [1234]"}, {"10"}, "1234", 10, applies},
      {{"5678", "1234"}, {"11", "10"}, "1234", 10, applies},
      {{"Desk [12AB]"}, {"10"}, "12ab", 10, otherMachine},
      {{"Desk [1234 ]"}, {"10"}, "1234", 10, otherMachine},
      {{"Desk 1234"}, {"10"}, "1234", 10, otherMachine},
      {{"1234"}, {"11"}, "1234", 10, otherSystem},
      {{"1234"}, {"0"}, "1234", 10, applies},
      {{"1234"}, {"11", "all"}, "1234", 10, applies},
      {{"1234"}, {"11", ""}, "1234", 10, applies},
      {{"1234"}, {"4294967295"}, "1234", 0xFFFFFFFFU, applies},
      {{}, {"10"}, "1234", 10, PackVerdict::NoMachineTypes},
      {{"1234"}, {}, "1234", 10, PackVerdict::NoOperatingSystems},
      {{"9999"}, {}, "1234", 10, otherMachine},
      {{"1234"}, {}, "1234", 0, applies},
      {{}, {"10"}, "", 10, applies},
      {{}, {}, "", 0, applies},
  };
  int number = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(number++);
    const SupXmlProperties pack{{"ApplicableMachineTypes", "", c.machineTypes},
                                {"applicableoperatingsystems", "", c.systems}};
    EXPECT_EQ(EvaluatePack(pack, c.machineType, static_cast<OsValue>(c.os)), c.verdict);
  }
}

SupXmlProperties PackWith(const std::string& version) { return {{"Version", "", {version}}}; }

std::vector<SupXmlProperties> PacksOf(const List& versions) {
  std::vector<SupXmlProperties> packs(versions.size());
  std::transform(versions.begin(), versions.end(), packs.begin(), PackWith);
  return packs;
}

// The results borrow from the packs.
std::vector<PackResult> ResultsOf(const std::vector<SupXmlProperties>& packs) {
  std::vector<const SupXmlProperties*> pointers;
  for (const SupXmlProperties& pack : packs) pointers.push_back(&pack);
  return ChoosePack(pointers);
}

// The index of the chosen one; -1 if there is none.
std::int32_t Choose(const List& versions) {
  const auto chosen = ChosenPack(ResultsOf(PacksOf(versions)));
  return chosen ? static_cast<std::int32_t>(*chosen) : -1;
}

TEST(ChoosePack, ComparesVersionsFromTheSecondPackOn) {
  const std::pair<List, std::int32_t> cases[] = {
      {{}, -1},
      {{"1"}, 0},
      {{"2.0", "1.0", "1.5"}, 2},
      {{"1.0", "2.0", "1.5"}, 1},
      {{"9", ""}, 0},
      {{"9", "", "1"}, 2},
      {{"9", "1", "1"}, 1},
      {{"", "9.0", "10.1"}, 1},
      {{"", "1", "1.0"}, 2},
      {{"", "1.0", "1"}, 1},
      {{"", "a", "B"}, 2},
      {{"", "A", "a"}, 1},
      {{"", "z", "\xE4"}, 2},
  };
  for (const auto& [versions, chosen] : cases) {
    EXPECT_EQ(Choose(versions), chosen) << testing::PrintToString(versions);
  }
}

TEST(ChoosePack, VersionsAreFoldedByTheGlobalLocale) {
  EXPECT_EQ(Choose({"", "x", "X"}), 1);
  const Testing::GlobalLocaleGuard guard(std::locale(std::locale(), new Testing::FoldsOnlyXToY));
  EXPECT_EQ(Choose({"", "x", "X"}), 2) << "X is a y here";
  EXPECT_EQ(Choose({"", "a", "B"}), 1) << "other letters keep their case here";
}

TEST(ChoosePack, SaysWhyTheOthersAreNotChosen) {
  const auto packs = PacksOf({"2.0", "1.0", "1.5", "1.45", ""});
  const auto results = ResultsOf(packs);
  EXPECT_EQ(results[0].rival, 1U);
  EXPECT_TRUE(results[0].displaced);
  EXPECT_EQ(results[0].ownVersion, std::nullopt) << "the first version is never read";
  EXPECT_EQ(results[0].rivalVersion, "1.0");
  EXPECT_EQ(results[1].rival, 2U);
  EXPECT_TRUE(results[1].displaced);
  EXPECT_EQ(results[1].ownVersion, "1.0");
  EXPECT_EQ(results[1].rivalVersion, "1.5");
  EXPECT_TRUE(results[2].chosen);
  EXPECT_EQ(results[2].rival, std::nullopt);
  for (const std::size_t i : {3U, 4U}) {
    EXPECT_EQ(results[i].rival, 2U);
    EXPECT_FALSE(results[i].displaced);
    EXPECT_EQ(results[i].rivalVersion, "1.5");
  }
  EXPECT_EQ(results[3].ownVersion, "1.45");
  EXPECT_EQ(results[4].ownVersion, "");
}

TEST(ChoosePack, PackWithoutAVersionDoesNotDisplaceTheFirst) {
  const auto packs = PacksOf({"1.0", ""});
  const auto results = ResultsOf(packs);
  EXPECT_TRUE(results[0].chosen);
  EXPECT_EQ(results[1].rival, 0U);
  EXPECT_FALSE(results[1].displaced);
  EXPECT_EQ(results[1].ownVersion, "");
  EXPECT_EQ(results[1].rivalVersion, std::nullopt) << "the first version is never read";
}

TEST(EvaluatePacks, PacksThatDoNotApplyAreNotConsidered) {
  const auto pack = [](const std::string& machineType, const std::string& version) {
    return KovuPackEntry{"p.xml",
                         {{"p.xml",
                           {{"applicableMachineTypes", "", {machineType}},
                            {"applicableOperatingSystems", "", {"0"}},
                            {"Version", "", {version}}}}}};
  };
  const auto results =
      EvaluatePacks({{"none.xml", {}}, pack("1234", "9"), pack("5678", "8"), pack("1234", "1")},
                    "1234", static_cast<OsValue>(10));
  EXPECT_EQ(results[0].verdict, PackVerdict::NoMachineTypes);
  EXPECT_EQ(results[1].verdict, PackVerdict::Applies);
  EXPECT_EQ(results[1].rival, 3U);
  EXPECT_EQ(results[2].verdict, PackVerdict::OtherMachineType);
  EXPECT_EQ(results[2].rival, std::nullopt);
  EXPECT_EQ(ChosenPack(results), 3U);
  EXPECT_EQ(ChosenPack(EvaluatePacks({pack("5678", "8")}, "1234", OsValue::NotSet)), std::nullopt);
}

// Every pack but the chosen one lost to one that applies, and the chosen one is that of the rule's
// own words.
TEST(ChoosePack, SameAsAPlainWalk) {
  const List versions{"", "1", "10", "2", "B", "a"};
  for (std::size_t seed = 0; seed < 216; ++seed) {
    const List some{versions[seed % 6], versions[seed / 6 % 6], versions[seed / 36 % 6]};
    std::size_t chosen = 0;
    std::string chosenVersion;
    for (std::size_t i = 1; i < some.size(); ++i) {
      if (FoldByGlobalLocale(some[i]) <= FoldByGlobalLocale(chosenVersion)) continue;
      chosen = i;
      chosenVersion = some[i];
    }
    const auto results = ResultsOf(PacksOf(some));
    for (std::size_t i = 0; i < results.size(); ++i) {
      EXPECT_EQ(results[i].chosen, i == chosen) << testing::PrintToString(some);
      EXPECT_NE(results[i].rival.has_value(), i == chosen) << testing::PrintToString(some);
    }
  }
}

TEST(PackLevelProperties, ComeFromTheFirstMember) {
  EXPECT_TRUE(PackLevelProperties({"p.xml", {}}).empty());
  const KovuPackEntry pack{"p.xml", {{"a", {{"x", "", {}}}}, {"b", {}}}};
  EXPECT_EQ(PackLevelProperties(pack).size(), 1U);
}

}  // namespace
}  // namespace Vornik
