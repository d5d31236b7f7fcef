#include "text/letter_case.h"

#include <gtest/gtest.h>

#include <cctype>
#include <clocale>
#include <locale>
#include <string>
#include <utility>

#include "global_locale.h"
#include "model/properties.h"

#ifndef _WIN32
#include "turkish_c_locale.h"
#endif

namespace Vornik {
namespace {

using namespace std::string_literals;
using Testing::FoldsOnlyXToY;
using Testing::GlobalLocaleGuard;

// A facet with both operations, as most facets have them: the other case for every letter of ASCII.
class SwapsCase : public std::ctype<char> {
 protected:
  char do_tolower(char c) const override {
    const auto byte = static_cast<unsigned char>(c);
    return static_cast<char>(byte < 128 && std::isalpha(byte) != 0 ? byte ^ 0x20U : byte);
  }
  const char* do_tolower(char* begin, const char* end) const override {
    for (; begin != end; ++begin) *begin = do_tolower(*begin);
    return end;
  }
};

// Leaves no byte as it is, the zero byte neither.
class FlipsBits : public std::ctype<char> {
 protected:
  char do_tolower(char c) const override { return static_cast<char>(c ^ 0x55); }
};

TEST(FoldByGlobalLocale, ClassicLocale) {
  const GlobalLocaleGuard guard(std::locale::classic());
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"ABC-1", "abc-1"},
      {"abc", "abc"},
      {"AZ[\\]az@`", "az[\\]az@`"},
      {"\xC3\x89\xC0", "\xC3\x89\xC0"},
      {"A\0B"s, "a\0b"s},
  };
  for (const auto& [text, folded] : cases) {
    EXPECT_EQ(FoldByGlobalLocale(text), folded) << text;
    EXPECT_TRUE(EqualByGlobalLocaleFold(text, folded)) << text;
  }
  EXPECT_FALSE(EqualByGlobalLocaleFold("a", "ab"));
  EXPECT_FALSE(EqualByGlobalLocaleFold("ab", "ac"));
  EXPECT_FALSE(EqualByGlobalLocaleFold("A\0B"s, "a\0c"s));
}

TEST(FoldByGlobalLocale, FollowsAFacetThatOverridesOneOperation) {
  const GlobalLocaleGuard guard(std::locale(std::locale::classic(), new FoldsOnlyXToY));
  EXPECT_EQ(FoldByGlobalLocale("XyAx"), "yyAx");
  EXPECT_TRUE(EqualByGlobalLocaleFold("X", "y"));
  EXPECT_FALSE(EqualByGlobalLocaleFold("X", "x"));
  EXPECT_FALSE(EqualByGlobalLocaleFold("A", "a"));
}

TEST(LocaleFold, FoldsEveryByteAsTheLocaleDoes) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const std::locale locales[] = {std::locale::classic(),
                                 std::locale(std::locale::classic(), new FoldsOnlyXToY),
                                 std::locale(std::locale::classic(), new SwapsCase),
                                 std::locale(std::locale::classic(), new FlipsBits)};
  for (const std::locale& locale : locales) {
    const GlobalLocaleGuard guard(locale);
    EXPECT_EQ(LocaleFold()(bytes), FoldByGlobalLocale(bytes));
  }
}

TEST(FoldByGlobalLocale, FollowsAFacetOfBothOperations) {
  const GlobalLocaleGuard guard(std::locale(std::locale::classic(), new SwapsCase));
  EXPECT_EQ(FoldByGlobalLocale("aB1"), "Ab1");
  EXPECT_TRUE(EqualByGlobalLocaleFold("aB", "aB"));
  EXPECT_FALSE(EqualByGlobalLocaleFold("a", "A"));
}

TEST(FoldByGlobalLocale, LooksTheLocaleUpAtEveryCall) {
  const GlobalLocaleGuard classic(std::locale::classic());
  EXPECT_EQ(FoldByGlobalLocale("X"), "x");
  {
    const GlobalLocaleGuard guard(std::locale(std::locale::classic(), new FoldsOnlyXToY));
    EXPECT_EQ(FoldByGlobalLocale("X"), "y");
  }
  EXPECT_EQ(FoldByGlobalLocale("X"), "x");
}

TEST(CLibraryFold, CLocale) {
  struct Case {
    std::string a;
    std::string b;
    bool equal;
  };
  const Case cases[] = {
      {"", "", true},
      {"VERSION", "Version", true},
      {"a", "ab", false},
      {"ab", "a", false},
      {"a-1", "A-1", true},
      {"[", "{", false},
      {"@", "`", false},
      {"\xC3\x89", "\xC3\xA9", false},
      {"\xFF", "\xFF", true},
      {"A\0B"s, "a\0b"s, true},
      {"A\0B"s, "a\0c"s, false},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(EqualByCLibraryFold(c.a, c.b), c.equal) << c.a << " " << c.b;
  }
}

TEST(CLibraryFold, DoesNotFollowTheGlobalLocalesFacet) {
  const GlobalLocaleGuard guard(std::locale(std::locale::classic(), new FoldsOnlyXToY));
  EXPECT_FALSE(EqualByCLibraryFold("X", "y"));
  EXPECT_TRUE(EqualByCLibraryFold("A", "a"));
}

#ifndef _WIN32

TEST(TurkishCLocale, DecidesPropertyNames) {
  const Testing::TurkishCLocale locale;
  ASSERT_TRUE(locale.Set());
  EXPECT_FALSE(EqualByCLibraryFold("VERSION", "Version"));
  EXPECT_TRUE(EqualByCLibraryFold("VERS\xDDON", "Version"));
  EXPECT_TRUE(EqualByCLibraryFold("VERSION", "VERS\xFDON"));
  EXPECT_TRUE(EqualByCLibraryFold("VERSION", "VERSION"));
  EXPECT_TRUE(EqualByCLibraryFold("TYPE", "type"));

  const SupXmlProperties properties{{"DESCRIPTION", "", {"capital"}}, {"TYPE", "", {"9"}}};
  EXPECT_EQ(GetPropertyValue("description", properties), "");
  EXPECT_EQ(GetPropertyValue("type", properties), "9");
}

TEST(TurkishCLocale, DoesNotDecideIds) {
  const Testing::TurkishCLocale locale;
  ASSERT_TRUE(locale.Set());
  const GlobalLocaleGuard guard(std::locale::classic());
  EXPECT_EQ(FoldByGlobalLocale("I"), "i");
  EXPECT_FALSE(EqualByGlobalLocaleFold("\xDD", "i"));
}

#else

// No C locale of this system folds a letter of ASCII otherwise than the first one.
TEST(CLibraryFold, FollowsTheCLibrarysLocale) {
  EXPECT_FALSE(EqualByCLibraryFold("\xC4", "\xE4"));
  ASSERT_NE(std::setlocale(LC_CTYPE, ".1252"), nullptr);
  const bool equal = EqualByCLibraryFold("\xC4", "\xE4");
  std::setlocale(LC_CTYPE, "C");
  EXPECT_TRUE(equal);
  EXPECT_FALSE(EqualByCLibraryFold("\xC4", "\xE4"));
}

#endif

}  // namespace
}  // namespace Vornik
