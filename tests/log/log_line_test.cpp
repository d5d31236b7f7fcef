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
  EXPECT_EQ(Escape(GetParam().text, LineEscape::ControlBytes), GetParam().escaped);
}

TEST_P(LogEscape, GivesTheSameLineOnATerminal) {
  EXPECT_EQ(Escape(GetParam().text, LineEscape::TerminalControls), GetParam().escaped);
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

TEST(LogTerminalEscape, EscapesWideControlsAndDirectionMarks) {
  const EscapeCase cases[] = {
      {"FirstControl", "a\xC2\x80z", "a\\xC2\\x80z"},
      {"SequenceIntroducer",
       "\xC2\x9B"
       "2J",
       "\\xC2\\x9B"
       "2J"},
      {"LastControl", "\xC2\x9F", "\\xC2\\x9F"},
      {"ArabicMark", "\xD8\x9C", "\\xD8\\x9C"},
      {"Marks", "\xE2\x80\x8E\xE2\x80\x8F", "\\xE2\\x80\\x8E\\xE2\\x80\\x8F"},
      {"Separator", "\xE2\x80\xA8", "\\xE2\\x80\\xA8"},
      {"Override", "\xE2\x80\xAE", "\\xE2\\x80\\xAE"},
      {"Isolate", "\xE2\x81\xA6", "\\xE2\\x81\\xA6"}};
  for (const EscapeCase& one : cases) {
    EXPECT_EQ(Escape(one.text, LineEscape::TerminalControls), one.escaped) << one.name;
    EXPECT_EQ(Escape(one.text, LineEscape::ControlBytes), one.text) << one.name;
  }
}

TEST(LogTerminalEscape, LeavesTheirNeighboursAlone) {
  for (const char* text : {"\xC2\xA0", "\xE2\x80\x8D", "\xE2\x80\xAF", "\xE2\x81\xA5",
                           "\xF0\x9F\x98\x80", "\xC2", "\x9B", "\xE2\x80"}) {
    EXPECT_EQ(Escape(text, LineEscape::TerminalControls), text);
  }
}

TEST(LogLineText, NamesLevelFileAndLine) {
  EXPECT_EQ(LogLine({1, "src/a.cpp", 7, "no folder"}, LineEscape::ControlBytes),
            "error src/a.cpp:7: no folder");
  EXPECT_EQ(LogLine({2, "src/a.cpp", 7, "no value"}, LineEscape::ControlBytes),
            "warning src/a.cpp:7: no value");
  EXPECT_EQ(LogLine({3, "src/a.cpp", 7, "Check - Start"}, LineEscape::ControlBytes),
            "progress src/a.cpp:7: Check - Start");
}

TEST(LogLineText, GivesTheNumberOfAnyOtherLevel) {
  EXPECT_EQ(LogLine({0, "a.cpp", 7, "x"}, LineEscape::ControlBytes), "level0 a.cpp:7: x");
  EXPECT_EQ(LogLine({4, "a.cpp", 7, "x"}, LineEscape::ControlBytes), "level4 a.cpp:7: x");
  EXPECT_EQ(LogLine({4294967295u, "a.cpp", 7, "x"}, LineEscape::ControlBytes),
            "level4294967295 a.cpp:7: x");
}

TEST(LogLineText, EscapesFileAndText) {
  EXPECT_EQ(LogLine({1, "src\\a\n.cpp", 7, "x\n"}, LineEscape::ControlBytes),
            "error src\\\\a\\n.cpp:7: x\\n");
}

TEST(LogLineText, EscapesFileAndTextForATerminal) {
  EXPECT_EQ(LogLine({1, "\xC2\x9B.cpp", 7, "\xE2\x80\xAEx"}, LineEscape::TerminalControls),
            "error \\xC2\\x9B.cpp:7: \\xE2\\x80\\xAEx");
}

TEST(LogLineText, TakesEmptyPartsAndNegativeLines) {
  EXPECT_EQ(LogLine({1, "", -1, ""}, LineEscape::ControlBytes), "error :-1: ");
}

}  // namespace
}  // namespace Vornik
