#include "lint/checks/blanks.h"

#include <algorithm>
#include <array>

namespace Vornik::Cli {

namespace {

// No-break space, the spaces of U+2000, narrow no-break, mathematical and ideographic space, and
// the two that have no width.
constexpr std::array<std::string_view, 17> unicodeBlanks{
    "\xC2\xA0",     "\xE2\x80\x80", "\xE2\x80\x81", "\xE2\x80\x82", "\xE2\x80\x83", "\xE2\x80\x84",
    "\xE2\x80\x85", "\xE2\x80\x86", "\xE2\x80\x87", "\xE2\x80\x88", "\xE2\x80\x89", "\xE2\x80\x8A",
    "\xE2\x80\x8B", "\xE2\x80\xAF", "\xE2\x81\x9F", "\xE3\x80\x80", "\xEF\xBB\xBF"};

constexpr std::string_view asciiBlanks = " \t\n\v\f\r";

std::size_t BlankAtFront(std::string_view text) {
  if (text.empty()) return 0;
  if (asciiBlanks.find(text.front()) != std::string_view::npos) return 1;
  const auto* found = std::find_if(
      unicodeBlanks.begin(), unicodeBlanks.end(),
      [text](std::string_view blank) { return text.substr(0, blank.size()) == blank; });
  return found == unicodeBlanks.end() ? 0 : found->size();
}

std::size_t BlankAtBack(std::string_view text) {
  if (text.empty()) return 0;
  if (asciiBlanks.find(text.back()) != std::string_view::npos) return 1;
  const auto* found =
      std::find_if(unicodeBlanks.begin(), unicodeBlanks.end(), [text](std::string_view blank) {
        return text.size() >= blank.size() && text.substr(text.size() - blank.size()) == blank;
      });
  return found == unicodeBlanks.end() ? 0 : found->size();
}

}  // namespace

bool HasBlankAround(std::string_view text) {
  return BlankAtFront(text) != 0 || BlankAtBack(text) != 0;
}

std::string_view WithoutBlanksAround(std::string_view text) {
  while (const std::size_t length = BlankAtFront(text)) text.remove_prefix(length);
  while (const std::size_t length = BlankAtBack(text)) text.remove_suffix(length);
  return text;
}

}  // namespace Vornik::Cli
