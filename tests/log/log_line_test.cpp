#include "log_line.h"

#include <gtest/gtest.h>

namespace Vornik {
namespace {

using namespace std::string_literals;

struct EscapeCase {
  const char* name;
  std::string text;
  std::string escaped;
};
void PrintTo(const EscapeCase& escapeCase, std::ostream* stream) { *stream << escapeCase.name; }

class LogEscape : public testing::TestWithParam<EscapeCase> {};

TEST_P(LogEscape, GivesOneLine) {
  EXPECT_EQ(EscapeControlBytes(GetParam().text), GetParam().escaped);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LogEscape,
    testing::Values(
        EscapeCase{"Empty", "", ""},  //
        EscapeCase{"Plain", " Platform Filter is matched!", " Platform Filter is matched!"},
        EscapeCase{"LineFeedAtTheEnd", "repo does not exist\n", "repo does not exist\\n"},
        EscapeCase{"LineFeedInside", "a\nb", "a\\nb"},          //
        EscapeCase{"LineFeedsOnly", "\n\n", "\\n\\n"},          //
        EscapeCase{"CarriageReturn", "a\r\nb", "a\\x0D\\nb"},   //
        EscapeCase{"Tab", "a\tb", "a\\x09b"},                   //
        EscapeCase{"Nul", "a\0b"s, "a\\x00b"},                  //
        EscapeCase{"TerminalSequence", "\x1B[2J", "\\x1B[2J"},  //
        EscapeCase{"LastControlByte", "\x1F", "\\x1F"},         //
        EscapeCase{"Blank", " ", " "},                          //
        EscapeCase{"Tilde", "~", "~"},                          //
        EscapeCase{"Delete", "\x7F", "\\x7F"},                  //
        EscapeCase{"FirstHighByte", "\x80", "\x80"},            //
        EscapeCase{"LastHighByte", "\xFF", "\xFF"},             //
        EscapeCase{"Utf8", "\xC3\xA4\xE2\x82\xAC", "\xC3\xA4\xE2\x82\xAC"},
        EscapeCase{"Backslash", "C:\\new\\x41", "C:\\\\new\\\\x41"},  //
        EscapeCase{"BackslashAtTheEnd", "C:\\", "C:\\\\"},            //
        EscapeCase{"BackslashBeforeLineFeed", "\\\n", "\\\\\\n"}),
    [](const auto& param) { return std::string(param.param.name); });

TEST(LogLineText, NamesLevelFileAndLine) {
  EXPECT_EQ(LogLine({1, "src/a.cpp", 7, "no folder"}), "error src/a.cpp:7: no folder");
  EXPECT_EQ(LogLine({2, "src/a.cpp", 7, "no value"}), "warning src/a.cpp:7: no value");
  EXPECT_EQ(LogLine({3, "src/a.cpp", 7, "Check - Start"}), "progress src/a.cpp:7: Check - Start");
}

TEST(LogLineText, GivesTheNumberOfAnyOtherLevel) {
  EXPECT_EQ(LogLine({0, "a.cpp", 7, "x"}), "level0 a.cpp:7: x");
  EXPECT_EQ(LogLine({4, "a.cpp", 7, "x"}), "level4 a.cpp:7: x");
  EXPECT_EQ(LogLine({4294967295u, "a.cpp", 7, "x"}), "level4294967295 a.cpp:7: x");
}

TEST(LogLineText, EscapesFileAndText) {
  EXPECT_EQ(LogLine({1, "src\\a\n.cpp", 7, "x\n"}), "error src\\\\a\\n.cpp:7: x\\n");
}

TEST(LogLineText, TakesEmptyPartsAndNegativeLines) {
  EXPECT_EQ(LogLine({1, "", -1, ""}), "error :-1: ");
}

}  // namespace
}  // namespace Vornik
