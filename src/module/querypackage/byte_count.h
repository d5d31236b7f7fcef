// How often a byte stands in a text.
#ifndef VORNIK_QUERYPACKAGE_BYTE_COUNT_H
#define VORNIK_QUERYPACKAGE_BYTE_COUNT_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Vornik {

// In blocks whose count fits in one byte, so that compilers count many bytes at once.
inline std::size_t CountByte(char wanted, std::string_view text) {
  std::size_t count = 0;
  while (!text.empty()) {
    const std::string_view block = text.substr(0, UINT8_MAX);
    std::uint8_t found = 0;
    for (const char c : block) found = static_cast<std::uint8_t>(found + (c == wanted ? 1 : 0));
    count += found;
    text.remove_prefix(block.size());
  }
  return count;
}

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_BYTE_COUNT_H
