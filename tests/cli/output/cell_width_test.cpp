// Columns of texts whose characters take no cell or two.
#include "output/cell_width.h"

#include <gtest/gtest.h>

#include "output/columns.h"

namespace Vornik::Testing {
namespace {

TEST(CellWidthTest, LettersTakeOneCell) {
  for (const std::uint32_t code : {0x20U, 0x41U, 0x7EU, 0xE9U, 0x2FFU, 0x416U, 0x5D0U, 0x3040U,
                                   0xFF61U, 0x303FU, 0x1F3F1U, 0xFFFDU}) {
    EXPECT_EQ(Cli::CellWidth(code), 1U) << std::hex << code;
  }
}

TEST(CellWidthTest, MarksThatCombineTakeNone) {
  for (const std::uint32_t code :
       {0x300U, 0x36FU, 0x5BDU, 0x200DU, 0x302AU, 0x3099U, 0xFE0FU, 0xE01EFU}) {
    EXPECT_EQ(Cli::CellWidth(code), 0U) << std::hex << code;
  }
}

TEST(CellWidthTest, CharactersOfEastAsiaTakeTwo) {
  for (const std::uint32_t code : {0x1100U, 0x115FU, 0x3042U, 0x30A2U, 0x4E00U, 0x6587U, 0xAC00U,
                                   0xD7A3U, 0xFF21U, 0x1F600U, 0x20000U, 0x3FFFDU}) {
    EXPECT_EQ(Cli::CellWidth(code), 2U) << std::hex << code;
  }
}

TEST(CellWidthTest, TextHasTheCellsOfItsCharacters) {
  EXPECT_EQ(Cli::CellCount(""), 0U);
  EXPECT_EQ(Cli::CellCount("a\xC3\xA9"), 2U);
  EXPECT_EQ(Cli::CellCount("e\xCC\x81"), 1U);
  EXPECT_EQ(Cli::CellCount("\xE6\x96\x87x"), 3U);
}

TEST(CellWidthTest, ColumnsBeginAtTheSameCell) {
  const std::vector<Cli::Row> rows{
      {{"\xE6\x96\x87\xE6\x96\x87"}, {"x"}}, {{"abc"}, {"x"}}, {{"e\xCC\x81"}, {"x"}}};
  EXPECT_EQ(Cli::InColumns(rows, false),
            "\xE6\x96\x87\xE6\x96\x87  x\n"
            "abc   x\n"
            "e\xCC\x81     x\n");
  EXPECT_EQ(Cli::WidthInColumns(rows), 7U);
}

}  // namespace
}  // namespace Vornik::Testing
