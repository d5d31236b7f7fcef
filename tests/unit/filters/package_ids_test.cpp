#include "filters/package_ids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "global_locale.h"
#include "plain_supersede.h"
#include "test_random.h"

namespace Vornik::Testing {
namespace {

using Ids = std::vector<std::string>;

bool IsListed(const Ids& ids, const std::string& code) { return IdSet(ids).Contains(code); }

std::string Zero(const std::string& before, const std::string& after) {
  return before + std::string(1, '\0') + after;
}

TEST(IdRules, CodesAreComparedWholeAndWithoutRegardToCase) {
  struct Case {
    Ids ids;
    std::string code;
    bool listed;
  };
  const Case cases[] = {
      {{"abc"}, "abc", true},
      {{"abc"}, "ABC", true},
      {{"abc"}, "Abc", true},
      {{"ABC"}, "abc", true},
      {{"x", "y", "abc"}, "aBc", true},
      {{"abc", "ABC", "abc"}, "abC", true},
      {{"orx_drv_net-1.2"}, "ORX_DRV_NET-1.2", true},
      {{""}, "", true},
      {{"a", ""}, "", true},
      {{Zero("a", "b")}, Zero("A", "B"), true},
      {{"\xC3\xA4"}, "\xC3\xA4", true},
  };
  for (const Case& one : cases) EXPECT_EQ(IsListed(one.ids, one.code), one.listed) << one.code;
}

TEST(IdRules, WhatIsNotListed) {
  struct Case {
    Ids ids;
    std::string code;
  };
  const Case cases[] = {
      {{}, ""},
      {{}, "abc"},
      {{"abc"}, ""},
      {{"abc"}, "abcd"},
      {{"abc"}, "ab"},
      {{"abc"}, "bc"},
      {{"abc"}, "abc "},
      {{"abc"}, " abc"},
      {{"abc "}, "abc"},
      {{" "}, ""},
      {{"ab", "c"}, "abc"},
      {{"abc"}, "ab\xE7"},
      {{"abc"}, Zero("abc", "")},
      {{Zero("a", "b")}, "a"},
      {{Zero("a", "b")}, Zero("a", "c")},
      {{"a*"}, "abc"},
      {{"[1"}, "{1"},
      {{"@"}, "`"},
      {{"\xC4"}, "\xE4"},
  };
  for (const Case& one : cases) EXPECT_FALSE(IsListed(one.ids, one.code)) << one.code;
}

// Lists and codes in which equal, nearly equal and different ones are all frequent.
struct Question {
  Ids ids;
  std::string code;
};

std::string RandomCode(RandomPick& pick) {
  static const std::vector<char> letters = {'a', 'A', 'b', 'B', 'X', 'y', ' ', '\0', '\xE4'};
  std::string code;
  for (std::size_t left = pick.Below(4); left != 0; --left) code += pick.Of(letters);
  return code;
}

Question RandomQuestion(RandomPick& pick) {
  Question question;
  for (std::size_t left = pick.Below(6); left != 0; --left) {
    question.ids.push_back(RandomCode(pick));
  }
  question.code = RandomCode(pick);
  return question;
}

void CompareMany(std::size_t usualRounds) {
  Testing::TestRandom pick;
  const std::size_t rounds = pick.Rounds(usualRounds);
  std::size_t listed = 0;
  for (std::size_t round = 0; round < rounds; ++round) {
    const Question question = RandomQuestion(pick);
    const bool plain = PlainIsListed(question.ids, question.code);
    ASSERT_EQ(IsListed(question.ids, question.code), plain) << round;
    listed += plain ? 1U : 0U;
  }
  if (!pick.RunsAllRounds()) return;
  EXPECT_GT(listed, rounds / 20);
  EXPECT_LT(listed, rounds / 2);
}

TEST(IdRules, SameAsThePlainRuleOnRandomLists) { CompareMany(100'000); }

TEST(IdRules, SameAsThePlainRuleUnderALocaleOfTheHosts) {
  const GlobalLocaleGuard guard(std::locale(std::locale::classic(), new FoldsOnlyXToY));
  CompareMany(50'000);
}

// The upper half of a hash, by which the set tells ids apart before it looks at their text.
std::size_t UpperHalf(const std::string& id) {
  return std::hash<std::string_view>()(id) >> (sizeof(std::size_t) * 4);
}

TEST(IdRules, IdsOfTheSameUpperHalfOfTheHashAreToldApart) {
  std::vector<std::pair<std::size_t, std::string>> ids;
  for (int i = 0; i < 500'000; ++i) {
    std::string id = std::to_string(i);
    const std::size_t half = UpperHalf(id);
    ids.emplace_back(half, std::move(id));
  }
  std::sort(ids.begin(), ids.end());
  int pairs = 0;
  for (std::size_t i = 1; i < ids.size(); ++i) {
    if (ids[i].first != ids[i - 1].first) continue;
    EXPECT_FALSE(IsListed({ids[i].second}, ids[i - 1].second));
    EXPECT_FALSE(IsListed({ids[i - 1].second}, ids[i].second));
    ++pairs;
  }
  EXPECT_GT(pairs, 0);
}

TEST(IdRules, GlobalLocaleFolds) {
  const GlobalLocaleGuard guard(std::locale(std::locale::classic(), new FoldsOnlyXToY));
  EXPECT_TRUE(IsListed({"aX"}, "ay"));
  EXPECT_TRUE(IsListed({"ay"}, "aX"));
  EXPECT_FALSE(IsListed({"ax"}, "aX"));
  EXPECT_FALSE(IsListed({"A"}, "a"));
}

TEST(IdRules, LocaleIsTheOneInForceWhenTheSetIsMade) {
  const Ids ids = {"aX", "B"};
  const IdSet set(ids);
  const GlobalLocaleGuard guard(std::locale(std::locale::classic(), new FoldsOnlyXToY));
  EXPECT_TRUE(set.Contains("ax"));
  EXPECT_TRUE(set.Contains("b"));
  EXPECT_FALSE(set.Contains("ay"));
  const IdSet later(ids);
  EXPECT_TRUE(later.Contains("ay"));
  EXPECT_FALSE(later.Contains("ax"));
  EXPECT_FALSE(later.Contains("b"));
}

TEST(IdRules, ListOfLaterQuestionsIsNotDisturbedByEarlierOnes) {
  const Ids ids = {"a", "c"};
  IdSet set(ids);
  EXPECT_FALSE(set.Contains("b"));
  EXPECT_TRUE(set.Contains("a"));
  EXPECT_FALSE(set.Contains("b"));
  EXPECT_TRUE(set.Contains("C"));
}

}  // namespace
}  // namespace Vornik::Testing
