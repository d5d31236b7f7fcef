#include "pack_choice.h"

#include <gtest/gtest.h>

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

TEST(JudgePack, Cases) {
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
    EXPECT_EQ(JudgePack(pack, c.machineType, static_cast<OsValue>(c.os)), c.verdict);
  }
}

std::int32_t Choose(const List& versions) {
  PackChooser chooser;
  std::int32_t index = 0;
  for (const std::string& version : versions) {
    chooser.Offer(index++, {{"Version", "", {version}}});
  }
  return chooser.Chosen();
}

TEST(PackChooser, Cases) {
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

TEST(PackChooser, VersionsAreFoldedByTheGlobalLocale) {
  EXPECT_EQ(Choose({"", "x", "X"}), 1);
  const Testing::GlobalLocaleGuard guard(std::locale(std::locale(), new Testing::FoldsOnlyXToY));
  EXPECT_EQ(Choose({"", "x", "X"}), 2) << "X is a y here";
  EXPECT_EQ(Choose({"", "a", "B"}), 1) << "other letters keep their case here";
}

TEST(PackLevelProperties, ComeFromTheFirstMember) {
  EXPECT_TRUE(PackLevelProperties({"p.xml", {}}).empty());
  const KovuPackEntry pack{"p.xml", {{"a", {{"x", "", {}}}}, {"b", {}}}};
  EXPECT_EQ(PackLevelProperties(pack).size(), 1U);
}

}  // namespace
}  // namespace Vornik
