#include "inspection/text_position.h"

#include <gtest/gtest.h>

#include <string_view>

namespace Vornik {
namespace {

TEST(TextPositions, CountLinesAndCharactersFromOne) {
  const struct {
    std::string_view text;
    std::size_t offset;
    int line;
    int column;
  } cases[] = {
      {"", 0, 1, 1},
      {"ab", 0, 1, 1},
      {"ab", 2, 1, 3},
      {"ab\ncd", 2, 1, 3},
      {"ab\ncd", 3, 2, 1},
      {"ab\ncd", 4, 2, 2},
      {"a\r\nb", 2, 1, 3},
      {"a\r\nb", 3, 2, 1},
      {"a\r\n", 3, 2, 1},
      {"\r\nb", 2, 2, 1},
      {std::string_view("a\r\n", 2), 2, 2, 1},  // what follows belongs to another text
      {"a\rb", 2, 2, 1},
      {"a\r\rb", 3, 3, 1},
      {"a\n\rb", 3, 3, 1},
      {"a\r", 2, 2, 1},
      {"\n\n\n", 3, 4, 1},
      {"a\tb", 2, 1, 3},
      {"\xC3\xA9x", 2, 1, 2},
      {"\xC3\xA9x", 3, 1, 3},
      {"\xF0\x9F\x98\x80x", 4, 1, 2},
  };
  for (const auto& one : cases) {
    const TextPosition position = TextPositions(one.text).Of(one.offset);
    SCOPED_TRACE(testing::PrintToString(one.text) + " " + std::to_string(one.offset));
    EXPECT_EQ(position.line, one.line);
    EXPECT_EQ(position.column, one.column);
  }
}

TEST(TextPositions, AnswerOneAfterTheOtherAsOneByOne) {
  constexpr std::string_view text = "a\r\nb\xC3\xA9\r\rcd\n\ne";
  TextPositions inOrder(text);
  for (std::size_t offset = 0; offset <= text.size(); ++offset) {
    const TextPosition alone = TextPositions(text).Of(offset);
    for (int again = 0; again < 2; ++again) {
      const TextPosition position = inOrder.Of(offset);
      EXPECT_EQ(position.line, alone.line) << offset;
      EXPECT_EQ(position.column, alone.column) << offset;
    }
  }
}

}  // namespace
}  // namespace Vornik
