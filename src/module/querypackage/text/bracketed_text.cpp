#include "bracketed_text.h"

namespace Vornik {

std::string ExtractBracketed(const std::string& text) {
  const auto open = text.find('[');
  const auto close = text.find(']');
  if (close == std::string::npos || close < open) return text;
  return text.substr(open + 1, close - open - 1);
}

}  // namespace Vornik
