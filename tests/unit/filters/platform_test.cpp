#include "filters/platform.h"

#include <gtest/gtest.h>

namespace Vornik {
namespace {

using List = std::vector<std::string>;

struct Case {
  List machineTypes;
  List systems;
  List architectures;
  std::uint32_t os;
  std::uint32_t arch;
  const char* machineType;
  PlatformVerdict verdict;
  std::size_t entry;
};

constexpr auto matched = PlatformVerdict::Matched;
constexpr auto notMatched = PlatformVerdict::NotMatched;

TEST(PlatformRules, MatchEntryByEntry) {
  const Case cases[] = {
      {{"1234"}, {"10"}, {"9"}, 10, 9, "1234", matched, 0},
      {{"1234", "1234"}, {"10", "11"}, {"9", "0"}, 11, 5, "1234", matched, 1},
      {{"1234", "1234"}, {"10", "10"}, {"9", "9"}, 10, 9, "1234", matched, 0},
      {{"1234"}, {"10"}, {"9"}, 11, 9, "1234", notMatched, 0},
      {{"1234"}, {"10"}, {"9"}, 10, 8, "1234", notMatched, 0},
      {{"1234"}, {"10"}, {"9"}, 10, 9, "1235", notMatched, 0},
      {{"1234"}, {"0"}, {"9"}, 5, 9, "1234", matched, 0},
      {{"1234"}, {"10"}, {"0"}, 10, 5, "1234", matched, 0},
      {{"1234"}, {"10"}, {"9"}, 0, 0, "1234", matched, 0},
      {{"1234"}, {"x"}, {""}, 5, 6, "1234", matched, 0},
      {{"1234"}, {" 10 or so"}, {"+9."}, 10, 9, "1234", matched, 0},
      {{"1234"}, {"-1"}, {"9"}, 0xFFFFFFFFU, 9, "1234", matched, 0},
      {{"1234"}, {"4294967295"}, {"9"}, 0xFFFFFFFFU, 9, "1234", matched, 0},
      {{"1234"}, {"2147483648"}, {"9"}, 0x80000000U, 9, "1234", matched, 0},
      {{"1234"}, {"4294967306"}, {"9"}, 10, 9, "1234", matched, 0},
      {{""}, {"10"}, {"9"}, 10, 9, "", matched, 0},
      {{"1234"}, {"10"}, {"9"}, 10, 9, "", notMatched, 0},
      {{}, {}, {}, 10, 9, "1234", PlatformVerdict::NoMachineTypes, 0},
      {{"1234"}, {}, {}, 10, 9, "1234", PlatformVerdict::NoOperatingSystems, 0},
      {{"1234"}, {"10"}, {}, 10, 9, "1234", PlatformVerdict::NoArchitectures, 0},
  };
  int number = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(number++);
    const SupXmlProperties properties{{"ORDEREDMACHINETYPELIST", "", c.machineTypes},
                                      {"orderedoslist", "", c.systems},
                                      {"orderedOSArchitectureList", "", c.architectures}};
    const PlatformResult judgement = EvaluatePlatform(properties, static_cast<OsValue>(c.os),
                                                      static_cast<ArcValue>(c.arch), c.machineType);
    EXPECT_EQ(judgement.verdict, c.verdict);
    if (c.verdict == matched) {
      EXPECT_EQ(judgement.entry, c.entry);
    }
  }
}

}  // namespace
}  // namespace Vornik
