#include "records/driver_files.h"

#include <gtest/gtest.h>

#include "text/bracketed_text.h"

namespace Vornik {
namespace {

using List = std::vector<std::string>;

TEST(BracketedText, IsBetweenTheFirstBracketsOfEachKind) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"1234", "1234"},
      {"Desk [1234]", "1234"},
      {"[1234]", "1234"},
      {"a [] b", ""},
      {"[ 12 ]", " 12 "},
      {"]1234[", "]1234["},
      {"[1234", "[1234"},
      {"1234]", "1234]"},
      {"[a][b]", "a"},
      {"[[a]]", "[a"},
      {"a]b[c]", "a]b[c]"},
      {"[", "["},
      {"]", "]"},
      {"[]", ""},
  };
  for (const auto& [text, extracted] : cases) EXPECT_EQ(ExtractBracketed(text), extracted) << text;
}

TEST(SplitString, DropsEmptyTokensAndLeadingSeparators) {
  struct Case {
    const char* text;
    List tokens;
  };
  const Case cases[] = {
      {"a-#b", {"a", "b"}},
      {"-#a-#b", {"a", "b"}},
      {"#-#-##--a-#b", {"a", "b"}},
      {"a-#-#b", {"a", "b"}},
      {"a-#-#-#b-#", {"a", "b"}},
      {"a#b", {"a#b"}},
      {"a-b", {"a-b"}},
      {"a#-b", {"a#-b"}},
      {"a--#b", {"a-", "b"}},
      {"a-##b", {"a", "#b"}},
      {"a-#b-", {"a", "b-"}},
      {"-", {}},
      {"-#-#", {}},
      {"##--", {}},
      {"a-#", {"a"}},
      {" -# ", {" ", " "}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    List tokens{"old"};
    EXPECT_EQ(SplitString(c.text, "-#", tokens), c.tokens.size());
    EXPECT_EQ(tokens, c.tokens);
  }
}

TEST(SplitString, EmptyTextOrSeparatorLeavesTheTokensUntouched) {
  List tokens{"old"};
  EXPECT_EQ(SplitString("", "-#", tokens), 0U);
  EXPECT_EQ(SplitString("a", "", tokens), 0U);
  EXPECT_EQ(tokens, List{"old"});
}

TEST(ParseDriverFileValue, Parses) {
  struct Case {
    const char* value;
    const char* name;
    const char* version;
  };
  for (const Case& c : {Case{"", "", ""}, Case{"abc.sys-#1.2", "abc.sys", "1.2"},
                        Case{"-#abc.sys-#1.2", "abc.sys", "1.2"},
                        Case{"abc.sys-#-#1.2", "abc.sys", "1.2"}, Case{"a b-# ", "a b", " "}}) {
    const auto file = ParseDriverFileValue(c.value);
    ASSERT_TRUE(file) << c.value;
    EXPECT_EQ(file->first, c.name);
    EXPECT_EQ(file->second, c.version);
  }
}

TEST(ParseDriverFileValue, Rejects) {
  for (const char* value : {"abc.sys#1.2", "abc.sys", "a-#b-#c", "-#", "-", "abc.sys-#", "-#1.2"}) {
    EXPECT_FALSE(ParseDriverFileValue(value)) << value;
  }
}

SupXmlProperties Properties(const List& files, const List& classifications) {
  return {{"driverFiles", "", files}, {"driverFilesClassification", "", classifications}};
}

TEST(ReadDriverFiles, ClassificationStandsAtTheIndexOfItsValue) {
  const auto reading =
      ReadDriverFiles(Properties({"a-#1", "bad", "", "b-#2"}, {"p", "q", "r", "s"}));
  EXPECT_EQ(reading.unparsedValues, 1U);
  EXPECT_FALSE(reading.unclassifiedIndex);
  ASSERT_EQ(reading.files.size(), 2U);
  EXPECT_EQ(reading.files[0].classification, "p");
  EXPECT_EQ(reading.files[1].name, "b");
  EXPECT_EQ(reading.files[1].version, "2");
  EXPECT_EQ(reading.files[1].classification, "s");
}

TEST(ReadDriverFiles, NoClassificationsLeaveThemEmpty) {
  const auto reading = ReadDriverFiles(Properties({"a-#1"}, {}));
  ASSERT_EQ(reading.files.size(), 1U);
  EXPECT_EQ(reading.files[0].classification, "");
}

TEST(ReadDriverFiles, SurplusClassificationsAreIgnored) {
  const auto reading = ReadDriverFiles(Properties({"a-#1"}, {"p", "q"}));
  EXPECT_FALSE(reading.unclassifiedIndex);
  EXPECT_EQ(reading.files.size(), 1U);
}

TEST(ReadDriverFiles, FewerClassificationsEndTheReading) {
  const auto reading = ReadDriverFiles(Properties({"a-#1", "b-#2", "bad"}, {"p"}));
  EXPECT_EQ(reading.unclassifiedIndex, 1U);
  EXPECT_EQ(reading.unparsedValues, 0U);
}

TEST(ReadDriverFiles, ValueThatDoesNotParseCountsBeforeItsMissingClassification) {
  const auto reading = ReadDriverFiles(Properties({"a-#1", "bad", "bad"}, {"p"}));
  EXPECT_EQ(reading.unclassifiedIndex, 1U);
  EXPECT_EQ(reading.unparsedValues, 1U);
}

TEST(ReadDriverFiles, EmptyValueNeedsItsClassificationToo) {
  EXPECT_EQ(ReadDriverFiles(Properties({"a-#1", ""}, {"p"})).unclassifiedIndex, 1U);
}

struct FallbackCase {
  const char* category;
  const char* version;
  const char* storedVersion;  // null: nothing is stored
};

TEST(ReadDriverFiles, FallbackIsCategoryAndVersion) {
  for (const FallbackCase& c :
       {FallbackCase{"Audio", "Six [6.0]", "6.0"}, FallbackCase{"Audio", "6.0", "6.0"},
        FallbackCase{"Audio", "", nullptr}, FallbackCase{"", "6.0", nullptr},
        FallbackCase{"Audio", "Six []", nullptr}}) {
    SCOPED_TRACE(c.version);
    const auto reading = ReadDriverFiles({{"driverFiles", "", {}},
                                          {"driverFilesClassification", "", {"p"}},
                                          {"category", "", {c.category}},
                                          {"Version", "", {c.version}}});
    EXPECT_EQ(reading.unparsedValues, 0U);
    ASSERT_EQ(reading.files.size(), c.storedVersion == nullptr ? 0U : 1U);
    if (c.storedVersion == nullptr) continue;
    EXPECT_EQ(reading.files[0].name, "Audio");
    EXPECT_EQ(reading.files[0].version, c.storedVersion);
    EXPECT_EQ(reading.files[0].classification, "");
  }
}

TEST(ReadDriverFiles, FallbackIsNotUsedWhereValuesFailToParse) {
  const auto reading = ReadDriverFiles(
      {{"driverFiles", "", {"bad"}}, {"category", "", {"Audio"}}, {"Version", "", {"1"}}});
  EXPECT_TRUE(reading.files.empty());
  EXPECT_EQ(reading.unparsedValues, 1U);
}

}  // namespace
}  // namespace Vornik
