#include "filters/platform.h"

#include <gtest/gtest.h>

#include "plain_properties.h"
#include "test_random.h"

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
    const PlatformResult result = EvaluatePlatform(properties, static_cast<OsValue>(c.os),
                                                   static_cast<ArcValue>(c.arch), c.machineType);
    EXPECT_EQ(result.verdict, c.verdict);
    if (c.verdict == matched) {
      EXPECT_EQ(result.entry, c.entry);
    }
  }
}

SupXmlProperties ListsOf(List machineTypes, List systems, List architectures) {
  return {{"orderedMachineTypeList", "", std::move(machineTypes)},
          {"orderedOSList", "", std::move(systems)},
          {"orderedOSArchitectureList", "", std::move(architectures)}};
}

// Which of the three fit: a letter for each that does.
std::string Letters(const PlatformFit& fit) {
  return std::string(fit.machineType ? "m" : "") + (fit.osValue ? "o" : "") +
         (fit.arcValue ? "a" : "");
}

List LettersOfEntries(const SupXmlProperties& properties, OsValue os, ArcValue arc,
                      const std::string& machineType) {
  List letters;
  for (const PlatformFit& fit : EvaluatePlatformEntries(properties, os, arc, machineType)) {
    letters.push_back(Letters(fit));
  }
  return letters;
}

TEST(PlatformRules, EachEntryHasWhatFitsOfIt) {
  const SupXmlProperties properties =
      ListsOf({"1234", "1234", "1235", "1234", "1234 "}, {"10", "11", "0", "11", "10", "10"},
              {"9", "9", "8", "8", "0"});
  EXPECT_EQ(
      LettersOfEntries(properties, static_cast<OsValue>(10), static_cast<ArcValue>(9), "1234"),
      (List{"moa", "ma", "o", "m", "oa"}));
  EXPECT_EQ(LettersOfEntries(properties, OsValue::NotSet, ArcValue::NotSet, "1235"),
            (List{"oa", "oa", "moa", "oa", "oa"}));
}

TEST(PlatformRules, EntriesEndWithTheShortestList) {
  const auto count = [](List machineTypes, List systems, List architectures) {
    return ReadPlatformEntries(
               ListsOf(std::move(machineTypes), std::move(systems), std::move(architectures)))
        .size();
  };
  EXPECT_EQ(count({"1", "2"}, {"1", "2", "3"}, {"1", "2", "3"}), 2U);
  EXPECT_EQ(count({"1", "2", "3"}, {"1"}, {"1", "2", "3"}), 1U);
  EXPECT_EQ(count({"1", "2", "3"}, {"1", "2", "3"}, {"1", "2"}), 2U);
  EXPECT_EQ(count({"1"}, {}, {"1"}), 0U);
  EXPECT_TRUE(ReadPlatformEntries({}).empty());
}

TEST(PlatformRules, EntriesHaveTheirNumbersAsTheyAreRead) {
  const auto entries = ReadPlatformEntries(ListsOf({"a ", "b"}, {" 10 x", "x"}, {"-1", "0"}));
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0].machineType, "a ");
  EXPECT_EQ(static_cast<std::uint32_t>(entries[0].osValue), 10U);
  EXPECT_EQ(static_cast<std::uint32_t>(entries[0].arcValue), 0xFFFFFFFFU);
  EXPECT_EQ(entries[1].osValue, OsValue::NotSet);
  EXPECT_EQ(entries[1].arcValue, ArcValue::NotSet);
}

// The rule step by step. Shares no code with the product.
struct PlainPlatform {
  std::string verdict;
  List entries;
};

bool PlainFits(const std::string& listed, std::uint32_t target) {
  const auto number = static_cast<std::uint32_t>(Testing::PlainNumber(listed));
  return number == 0 || target == 0 || number == target;
}

PlainPlatform PlainEvaluation(const SupXmlProperties& properties, std::uint32_t os,
                              std::uint32_t arc, const std::string& machineType) {
  const List types = Testing::PlainValues("orderedMachineTypeList", properties);
  const List systems = Testing::PlainValues("orderedOSList", properties);
  const List architectures = Testing::PlainValues("orderedOSArchitectureList", properties);
  PlainPlatform plain;
  for (std::size_t i = 0; i < types.size() && i < systems.size() && i < architectures.size(); ++i) {
    std::string letters;
    if (types[i] == machineType) letters += 'm';
    if (PlainFits(systems[i], os)) letters += 'o';
    if (PlainFits(architectures[i], arc)) letters += 'a';
    if (letters == "moa" && plain.verdict.empty())
      plain.verdict = "matched at " + std::to_string(i);
    plain.entries.push_back(letters);
  }
  if (plain.verdict.empty()) plain.verdict = "not matched";
  if (architectures.empty()) plain.verdict = "no architectures";
  if (systems.empty()) plain.verdict = "no operating systems";
  if (types.empty()) plain.verdict = "no machine types";
  return plain;
}

std::string TextOf(const PlatformResult& result) {
  switch (result.verdict) {
    case PlatformVerdict::Matched:
      return "matched at " + std::to_string(result.entry);
    case PlatformVerdict::NotMatched:
      return "not matched";
    case PlatformVerdict::NoMachineTypes:
      return "no machine types";
    case PlatformVerdict::NoOperatingSystems:
      return "no operating systems";
    case PlatformVerdict::NoArchitectures:
      return "no architectures";
  }
  return "";
}

SupXmlProperties RandomProperties(Testing::RandomPick& pick) {
  const List types{"1234", "1235", "", "1234 ", "12345"};
  const List numbers{"0", "9", "10", " 10x", "x", "", "-1", "4294967295", "4294967306", "+9"};
  SupXmlProperties properties =
      ListsOf(pick.Some(types, 5), pick.Some(numbers, 5), pick.Some(numbers, 5));
  if (pick.OneIn(8)) properties.erase(properties.begin() + static_cast<int>(pick.Below(3)));
  if (pick.OneIn(4)) properties.push_back({"ORDEREDOSLIST", "", pick.Some(numbers, 4)});
  return properties;
}

TEST(PlatformRules, AgreeWithThePlainRule) {
  Testing::TestRandom pick;
  const std::size_t rounds = pick.Rounds(10'000);
  const std::vector<std::uint32_t> targets{0, 1, 9, 10, 0xFFFFFFFFU};
  std::size_t matches = 0;
  for (std::size_t round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    const SupXmlProperties properties = RandomProperties(pick);
    const std::uint32_t os = pick.Of(targets);
    const std::uint32_t arc = pick.Of(targets);
    const std::string machineType = pick.Of(List{"1234", "1235", ""});
    const PlainPlatform plain = PlainEvaluation(properties, os, arc, machineType);
    const auto osValue = static_cast<OsValue>(os);
    const auto arcValue = static_cast<ArcValue>(arc);
    ASSERT_EQ(TextOf(EvaluatePlatform(properties, osValue, arcValue, machineType)), plain.verdict);
    ASSERT_EQ(LettersOfEntries(properties, osValue, arcValue, machineType), plain.entries);
    if (plain.verdict.rfind("matched", 0) == 0) ++matches;
  }
  if (pick.RunsAllRounds()) {
    EXPECT_GT(matches, rounds / 40);
  }
}

}  // namespace
}  // namespace Vornik
