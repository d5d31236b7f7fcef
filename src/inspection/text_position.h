// Line and column of a place in a text, as an editor shows them.
//
//   offset 4 of "ab\ncd"    =>  line 2, column 2
//   offset 3 of "a\r\nb"    =>  line 2, column 1
//   offset 3 of "\xC3\xA9x"  =>  line 1, column 3
#ifndef VORNIK_INSPECTION_TEXT_POSITION_H
#define VORNIK_INSPECTION_TEXT_POSITION_H

#include <cstddef>
#include <string_view>

namespace Vornik {

// Both are counted from 1; 0 where the place is not known. A column is a character of UTF-8.
struct TextPosition {
  int line = 0;
  int column = 0;
};

// Answers for offsets that do not decrease. A line ends with LF, CR LF or CR.
class TextPositions {
 public:
  explicit TextPositions(std::string_view text) : text_(text) {}

  // offset: not after the text's end.
  TextPosition Of(std::size_t offset);

 private:
  std::string_view text_;
  std::size_t reached_ = 0;
  TextPosition position_{1, 1};
};

}  // namespace Vornik

#endif  // VORNIK_INSPECTION_TEXT_POSITION_H
