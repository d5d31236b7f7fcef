#include "text_position.h"

namespace Vornik {

namespace {

bool ContinuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

}  // namespace

TextPosition TextPositions::Of(std::size_t offset) {
  for (; reached_ < offset; ++reached_) {
    const char c = text_[reached_];
    const bool isFirstOfTwo =
        c == '\r' && reached_ + 1 < text_.size() && text_[reached_ + 1] == '\n';
    if (c == '\n' || (c == '\r' && !isFirstOfTwo)) {
      ++position_.line;
      position_.column = 1;
    } else if (!ContinuesCharacter(c)) {
      ++position_.column;
    }
  }
  return position_;
}

}  // namespace Vornik
