// The table, as it looks in a pipe.
#include <algorithm>
#include <sstream>

#include "cli_fixture.h"
#include "output/cell_width.h"

namespace Vornik::Testing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class TableTest : public CliTest {};

std::vector<std::string> WordsOf(const std::string& line) {
  std::istringstream stream(line);
  return {std::istream_iterator<std::string>(stream), std::istream_iterator<std::string>()};
}

// The line of the table that starts with that text.
std::string LineThatStarts(const std::string& out, const std::string& start) {
  for (const std::string& line : LinesOf(out)) {
    if (line.compare(0, start.size(), start) == 0) return line;
  }
  ADD_FAILURE() << "no line starts with " << start << ":\n" << out;
  return {};
}

// Cells of the terminal before the first occurrence of a whole word.
std::size_t ColumnOf(const std::string& line, const std::string& word) {
  return Cli::CellCount(line.substr(0, (line + " ").find(" " + word + " ")));
}

TEST_F(TableTest, EachPackageHasOneLineWithItsVerdicts) {
  WritePackage("orx_utl_sep_1");
  folder.Write("b.xml", Descriptor("b").Set("Version", "1.2").Individual());
  folder.Write("p.xml", Pack({PackItself("p.xml"), Package("m").Set("xmlFilename", "m.xml")}));
  const Outcome outcome =
      Query({"--no-supersede-filter", "--include", "M", "--exclude", "b", "--update-type", "1",
             "--log-level", "0", "--columns",
             "code,version,pack,platform,kovu,sep,payloadExist,supersede,includeId,excludeId,"
             "updateType,refusedBy,offered"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  const auto lines = LinesOf(outcome.out);
  ASSERT_EQ(lines.size(), 6U) << outcome.out;
  EXPECT_THAT(WordsOf(lines[0]),
              ElementsAre("CODE", "VERSION", "PACK", "PLATFORM", "KOVU", "SEP", "PAYLOAD",
                          "SUPERSEDE", "INCLUDE", "EXCLUDE", "TYPE", "REFUSED", "BY", "OFFERED"));
  EXPECT_THAT(WordsOf(lines[1]), ElementsAre("m", "-", "p", "pass", "pass", "pass", "fail", "off",
                                             "pass", "pass", "pass", "payload", "no"));
  EXPECT_THAT(WordsOf(LineThatStarts(outcome.out, "b ")),
              ElementsAre("b", "1.2", "-", "none", "fail", "pass", "fail", "off", "fail", "fail",
                          "none", "kovu,", "payload,", "include,", "exclude", "no"));
  EXPECT_THAT(WordsOf(LineThatStarts(outcome.out, "orx_utl_sep_1")),
              ElementsAre("orx_utl_sep_1", "-", "-", "pass", "fail", "fail", "pass", "off", "fail",
                          "pass", "pass", "kovu,", "sep,", "include", "no"));
}

TEST_F(TableTest, ClosingLineCountsAndLeavesTheDecisionToTheHost) {
  WritePackage("a");
  const auto closing = [](const Outcome& outcome) { return LinesOf(outcome.out).back(); };
  EXPECT_EQ(closing(Query({"--no-kovu-filter"})),
            "1 package: 1 offered, 0 refused, 0 undecided. Which of them to install is the host's "
            "decision.");
  WritePackage("orx_utl_sep");
  WritePackage("c");
  EXPECT_THAT(closing(Query({"--no-kovu-filter"})),
              StartsWith("3 packages: 2 offered, 1 refused, 0 undecided."));
  EXPECT_THAT(LineThatStarts(Query({"--no-kovu-filter"}).out, "orx_utl_sep"),
              testing::EndsWith("  no"));
  EXPECT_THAT(LineThatStarts(Query({"--no-kovu-filter"}).out, "c "), testing::EndsWith("  yes"));
}

TEST_F(TableTest, LinesFollowTheRecords) {
  for (const char* code : {"d", "b", "a", "c"}) WritePackage(code);
  std::vector<std::string> codes;
  for (const std::string& line : LinesOf(Query().out)) codes.push_back(WordsOf(line).front());
  ASSERT_EQ(codes.size(), 7U);
  EXPECT_EQ(std::vector<std::string>(codes.begin() + 1, codes.end() - 2), CodesOf(QueryJson()));
}

TEST_F(TableTest, ColumnsAreAlignedByCell) {
  const std::vector<std::string> codes{"short", "a-rather-longer-code",
                                       "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F",
                                       "\xE6\x97\xA5\xE6\x9C\xAC", "\xF0\x9F\x98\x80-x"};
  for (std::size_t i = 0; i < codes.size(); ++i) {
    folder.Write(std::to_string(i) + ".xml", Package(codes[i]).Individual());
  }
  const std::string out = Query({"--columns", "code,platform"}).out;
  const std::size_t column = ColumnOf(LinesOf(out).front(), "PLATFORM");
  EXPECT_GT(column, std::string("a-rather-longer-code").size());
  for (const std::string& code : codes) {
    EXPECT_EQ(ColumnOf(LineThatStarts(out, code), "pass"), column) << code;
  }
}

TEST_F(TableTest, VeryLongTextIsWholeAndLeavesTheOtherLinesAsTheyAre) {
  const std::string longCode(500, 'x');
  folder.Write("a.xml", Package(longCode).Individual());
  folder.Write("b.xml", Package("b").Individual());
  const std::string out = Query().out;
  EXPECT_LT(LineThatStarts(out, "b ").size(), 120U);
  EXPECT_THAT(LineThatStarts(out, longCode + "  -  "), testing::EndsWith("  no"));
}

TEST_F(TableTest, PackageWithoutACodeIsNamedSo) {
  folder.Write("a.xml", Descriptor().Set("type", "1").Individual());
  EXPECT_THAT(LineThatStarts(Query({"--log-level", "0"}).out, "(no code)"), HasSubstr("none"));
}

TEST_F(TableTest, NoByteOfADescriptorSteersTheTerminal) {
  const struct {
    const char* name;
    std::string code;
    std::string shown;
  } cases[] = {
      {"escape sequence", "a\x1B[2J", "a\\x1B[2J"},
      {"bell, backspace, delete", "a\x07\x08\x7F", "a\\x07\\x08\\x7F"},
      {"line ends", "a&#10;b&#13;c", "a\\x0Ab\\x0Dc"},
      {"tab", "a&#9;b", "a\\x09b"},
      {"C1 control, UTF-8", "a\xC2\x9B\x32J", "a\\xC2\\x9B2J"},
      {"C1 control, single byte", "a\x9B\x32J", "a\\x9B2J"},
      {"writing direction", "a\xE2\x80\xAEz", "a\\xE2\\x80\\xAEz"},
      {"isolate", "a\xE2\x81\xA6z", "a\\xE2\\x81\\xA6z"},
      {"line separator", "a\xE2\x80\xA8z", "a\\xE2\\x80\\xA8z"},
      {"overlong", "a\xC0\x9Bz", "a\\xC0\\x9Bz"},
      {"overlong in three", "a\xE0\x82\x9Bz", "a\\xE0\\x82\\x9Bz"},
      {"surrogate", "a\xED\xA0\x80z", "a\\xED\\xA0\\x80z"},
      {"beyond Unicode", "a\xF4\x90\x80\x80z", "a\\xF4\\x90\\x80\\x80z"},
      {"cut short", "a\xE2\x82z", "a\\xE2\\x82z"},
      {"letters and signs stay", "letters \xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80",
       "letters \xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.name);
    // Put in unescaped, so that character references reach the parser.
    std::string text = Package("CODE").Set("Version", "CODE").Individual();
    for (std::size_t at = text.find("CODE"); at != std::string::npos;
         at = text.find("CODE", at + one.code.size())) {
      text.replace(at, 4, one.code);
    }
    folder.Write("a.xml", text);
    const Outcome outcome = Query();
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    ASSERT_EQ(LinesOf(outcome.out).size(), 4U) << outcome.out;
    EXPECT_THAT(LinesOf(outcome.out)[1], StartsWith(one.shown + "  " + one.shown + "  "));
    for (const char byte : outcome.out) {
      EXPECT_TRUE(byte == '\n' || static_cast<unsigned char>(byte) >= 0x20U);
    }
  }
}

#ifndef _WIN32
TEST_F(TableTest, NoByteOfAFileNameSteersTheTerminal) {
  const std::string name = "a\x1B[2J.xml";
  folder.Write(name, "<CIM><!-- ORXQDL_SystemUpdateProduct --><INSTANCE A='1'/></CIM>");
  const Outcome outcome = Query();
  EXPECT_EQ(outcome.status, 65);
  EXPECT_THAT(outcome.err, HasSubstr("a\\x1B[2J.xml:1: "));
  EXPECT_THAT(outcome.err, Not(HasSubstr("\x1B")));
}
#endif

TEST_F(TableTest, PipeGetsNoColour) {
  WritePackage("a");
  EXPECT_THAT(Query().out, Not(HasSubstr("\x1B")));
}

}  // namespace
}  // namespace Vornik::Testing
