// The small rules of lint, as tables.
#include <gtest/gtest.h>

#include "lint/checks/blanks.h"
#include "lint/checks/numbers.h"
#include "lint/checks/rings.h"
#include "lint/checks/version_order.h"
#include "lint/target.h"
#include "output/wording.h"
#include "records/driver_files.h"
#include "test_random.h"

namespace Vornik::Cli {
namespace {

TEST(LintVersionOrder, ComparesNumbersByValueAndTheRestAsText) {
  const struct {
    const char* less;
    const char* greater;
  } cases[] = {
      {"9.0", "10.1"},
      {"1.9", "1.10"},
      {"1.2", "1.2.0"},
      {"1.2a", "1.2B"},
      {"1.99999999999999999999999", "1.100000000000000000000000"},
      {"", "1"},
      {"1", "1a"},
      {"v2", "v10"},
      {"2.5-rc1", "2.5-rc2"},
  };
  for (const auto& one : cases) {
    EXPECT_LT(CompareAsNumbers(one.less, one.greater), 0) << one.less << " " << one.greater;
    EXPECT_GT(CompareAsNumbers(one.greater, one.less), 0) << one.less << " " << one.greater;
  }
  EXPECT_EQ(CompareAsNumbers("1.02", "1.2"), 0);
  EXPECT_EQ(CompareAsNumbers("1.0B", "1.0b"), 0);
  EXPECT_EQ(CompareAsNumbers("", ""), 0);
}

TEST(LintBlanks, AreAsciiAndUnicodeBlanksAtEitherEnd) {
  for (const char* text : {" a", "a\t", "\n", "a\xC2\xA0",
                           "\xE3\x80\x80"
                           "a",
                           "a\xE2\x80\x8B",
                           "\xEF\xBB\xBF"
                           "a"}) {
    EXPECT_TRUE(HasBlankAround(text)) << text;
  }
  for (const char* text : {"", "a", "a b",
                           "a\xC2\xA0"
                           "b",
                           "\xA0", "\xC3\xA0"}) {
    EXPECT_FALSE(HasBlankAround(text)) << text;
  }
  EXPECT_EQ(WithoutBlanksAround(" \xC2\xA0 a b\t\xE2\x80\x89 "), "a b");
  EXPECT_EQ(WithoutBlanksAround(" \xC2\xA0"), "");
}

TEST(LintNumbers, AreJudgedByWhatTheyReadAs) {
  const struct {
    const char* text;
    NumberReading code;
    NumberReading type;
  } cases[] = {
      {"0", NumberReading::Exact, NumberReading::Exact},
      {" 10 ", NumberReading::Exact, NumberReading::Exact},
      {"+7", NumberReading::Exact, NumberReading::Exact},
      {"2147483647", NumberReading::Exact, NumberReading::Exact},
      {"2147483648", NumberReading::Exact, NumberReading::OutOfRange},
      {"4294967295", NumberReading::Exact, NumberReading::OutOfRange},
      {"4294967296", NumberReading::OutOfRange, NumberReading::OutOfRange},
      {"-1", NumberReading::OutOfRange, NumberReading::Exact},
      {"-2147483648", NumberReading::OutOfRange, NumberReading::Exact},
      {"-2147483649", NumberReading::OutOfRange, NumberReading::OutOfRange},
      {"9223372036854775807", NumberReading::OutOfRange, NumberReading::OutOfRange},
      {"9223372036854775808", NumberReading::OutOfRange, NumberReading::OutOfRange},
      {"-9223372036854775809", NumberReading::OutOfRange, NumberReading::OutOfRange},
      {"10x", NumberReading::TrailingText, NumberReading::TrailingText},
      {"10 x", NumberReading::TrailingText, NumberReading::TrailingText},
      {"0x10", NumberReading::TrailingText, NumberReading::TrailingText},
      {"", NumberReading::NotNumber, NumberReading::NotNumber},
      {" ", NumberReading::NotNumber, NumberReading::NotNumber},
      {"-", NumberReading::NotNumber, NumberReading::NotNumber},
      {"x10", NumberReading::NotNumber, NumberReading::NotNumber},
      {"\xC2\xA0"
       "10",
       NumberReading::NotNumber, NumberReading::NotNumber},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(ReadCodeText(one.text), one.code) << one.text;
    EXPECT_EQ(ReadTypeText(one.text), one.type) << one.text;
  }
}

TEST(LintNames, AreDividedAtTheTargetsSeparators) {
  using Parts = std::vector<std::string>;
  EXPECT_EQ(NameParts("a\\b/c", LintTarget::Windows), (Parts{"a", "b", "c"}));
  EXPECT_EQ(NameParts("a\\b/c", LintTarget::Posix), (Parts{"a\\b", "c"}));
  EXPECT_EQ(NameParts("/a//./b/", LintTarget::Posix), (Parts{"a", "b"}));
  EXPECT_EQ(NameParts("", LintTarget::Posix), Parts());
  EXPECT_EQ(NameParts("..", LintTarget::Posix), Parts{".."});
}

TEST(LintNames, LeadOutsideWhereTheyClimbAboveTheirStart) {
  EXPECT_TRUE(LeadsOutside({".."}));
  EXPECT_TRUE(LeadsOutside({"a", "..", "..", "b"}));
  EXPECT_FALSE(LeadsOutside({"a", "..", "b"}));
  EXPECT_FALSE(LeadsOutside({}));
}

TEST(LintNames, LoseThePartThatIsLeftAgain) {
  using Parts = std::vector<std::string>;
  EXPECT_EQ(WithoutParents({"a", "..", "b"}), Parts{"b"});
  EXPECT_EQ(WithoutParents({"a", "b", "..", "..", "c"}), Parts{"c"});
  EXPECT_EQ(WithoutParents({"..", "..", "a"}), (Parts{"..", "..", "a"}));
  EXPECT_EQ(WithoutParents({"a", ".."}), Parts());
}

TEST(LintNames, AreTheSameFileByTheirKey) {
  EXPECT_EQ(NameKey({"A", "b"}, LintTarget::Windows), NameKey({"a", "B"}, LintTarget::Windows));
  EXPECT_NE(NameKey({"A"}, LintTarget::Posix), NameKey({"a"}, LintTarget::Posix));
  EXPECT_EQ(NameKey({"x", "..", "a"}, LintTarget::Posix), NameKey({"a"}, LintTarget::Posix));
  EXPECT_NE(NameKey({"..", "a"}, LintTarget::Posix), NameKey({"a"}, LintTarget::Posix));
}

TEST(LintNames, AreFaultyWhereTheTargetCannotHoldThem) {
  for (const std::string name :
       {"a<b", "a>b", "a:b", "a\"b", "a|b", "a?b", "a*b", "a\tb", "a.", "a ", "a./b", "con",
        "NUL.txt", "x/Lpt9.tar.gz", "com0", "conin$"}) {
    EXPECT_NE(NameFault(name, LintTarget::Windows), "") << name;
    EXPECT_EQ(NameFault(name, LintTarget::Posix), "") << name;
  }
  for (const std::string name : {"a b", ".a", "..", "../a", "a\\b", "console", "com10", "com",
                                 "xnul", "nulx.txt", "a.con"}) {
    EXPECT_EQ(NameFault(name, LintTarget::Windows), "") << name;
  }
  for (const LintTarget target : {LintTarget::Windows, LintTarget::Posix}) {
    EXPECT_EQ(NameFault("a/" + std::string(255, 'x'), target), "");
    EXPECT_NE(NameFault("a/" + std::string(256, 'x'), target), "");
  }
}

TEST(LintNames, AreDoubtfulWhereTheEncodingMayNotHoldThem) {
  EXPECT_EQ(EncodingFault("plain-1.exe", LintTarget::Windows), "");
  EXPECT_NE(EncodingFault("\xC3\xA9", LintTarget::Windows), "");
  EXPECT_EQ(EncodingFault("\xC3\xA9", LintTarget::Posix), "");
  for (const char* bytes : {"\xE9", "a\xC3", "\xED\xA0\x80", "\xC0\xAF", "\xF5\x80\x80\x80"}) {
    EXPECT_NE(EncodingFault(bytes, LintTarget::Posix), "") << bytes;
  }
}

// Whether a node leads to another one, step by step.
bool Leads(const Graph& graph, std::size_t from, std::size_t to) {
  std::vector<bool> seen(graph.size());
  std::vector<std::size_t> open{from};
  while (!open.empty()) {
    const std::size_t node = open.back();
    open.pop_back();
    for (const std::size_t next : graph[node]) {
      if (next == to) return true;
      if (!seen[next]) open.push_back(next);
      seen[next] = true;
    }
  }
  return false;
}

std::vector<std::vector<std::size_t>> PlainRings(const Graph& graph) {
  std::vector<std::vector<std::size_t>> rings;
  std::vector<bool> known(graph.size());
  for (std::size_t node = 0; node < graph.size(); ++node) {
    if (known[node]) continue;
    std::vector<std::size_t> ring{node};
    for (std::size_t other = node + 1; other < graph.size(); ++other) {
      if (Leads(graph, node, other) && Leads(graph, other, node)) ring.push_back(other);
    }
    for (const std::size_t member : ring) known[member] = true;
    if (ring.size() > 1) rings.push_back(ring);
  }
  return rings;
}

TEST(LintRings, AreThoseOfThePlainSearch) {
  Testing::TestRandom pick;
  const std::size_t rounds = pick.Rounds(2'000);
  std::size_t withRings = 0;
  for (std::size_t round = 0; round < rounds; ++round) {
    Graph graph(pick.Below(9));
    for (auto& targets : graph) {
      for (std::size_t edges = pick.Below(3); edges > 0; --edges) {
        targets.push_back(pick.Below(graph.size()));
      }
    }
    const auto rings = PlainRings(graph);
    EXPECT_EQ(FindRings(graph), rings);
    if (!rings.empty()) ++withRings;
  }
  if (pick.RunsAllRounds()) {
    EXPECT_GT(withRings, rounds / 4);
  }
}

TEST(LintRings, TakeNoStackOfTheirOwn) {
  constexpr std::size_t length = 500'000;
  Graph graph(length);
  for (std::size_t i = 0; i < length; ++i) graph[i] = {(i + 1) % length};
  const auto rings = FindRings(graph);
  ASSERT_EQ(rings.size(), 1U);
  EXPECT_EQ(rings.front().size(), length);
}

TEST(LintWording, LongTextsAreQuotedBriefly) {
  EXPECT_EQ(QuotedBriefly(std::string(80, 'x')), '"' + std::string(80, 'x') + '"');
  EXPECT_EQ(QuotedBriefly(std::string(81, 'x')), '"' + std::string(80, 'x') + "...\"");
  EXPECT_EQ(QuotedBriefly(std::string(79, 'x') + "\xC3\xA9"), '"' + std::string(79, 'x') + "...\"");
}

}  // namespace
}  // namespace Vornik::Cli
