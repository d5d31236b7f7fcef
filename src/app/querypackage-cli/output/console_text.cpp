#include "output/console_text.h"

#include <fmt/format.h>
#include <utf8_characters.h>

#include <algorithm>

namespace Vornik::Cli {

namespace {

void AppendEscaped(std::string& out, std::string_view bytes) {
  for (const char byte : bytes) out += fmt::format("\\x{:02X}", static_cast<unsigned char>(byte));
}

}  // namespace

std::string Printable(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const Utf8Character character = FirstUtf8Character(text);
    const std::string_view bytes = text.substr(0, std::max<std::size_t>(character.length, 1));
    if (character.length == 0 || SteersTerminal(character.code)) {
      AppendEscaped(out, bytes);
    } else {
      out += bytes;
    }
    text.remove_prefix(bytes.size());
  }
  return out;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = FirstUtf8Character(text).length;
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

}  // namespace Vornik::Cli
