#include "console_text.h"

#include <algorithm>
#include <cstdint>

namespace Vornik::Cli {

namespace {

struct Character {
  std::size_t length;  // bytes; 0: not UTF-8
  std::uint32_t code;
};

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// The length that the first byte of a character announces, and what it gives to the code.
Character ReadLead(unsigned char lead) {
  if (lead < 0x80U) return {1, lead};
  if (lead >= 0xC2U && lead < 0xE0U) return {2, lead & 0x1FU};
  if (lead >= 0xE0U && lead < 0xF0U) return {3, lead & 0x0FU};
  if (lead >= 0xF0U && lead < 0xF5U) return {4, lead & 0x07U};
  return {0, 0};
}

bool IsScalarValue(const Character& character) {
  const std::uint32_t code = character.code;
  const bool overlong =
      (character.length == 3 && code < 0x800U) || (character.length == 4 && code < 0x10000U);
  const bool surrogate = code >= 0xD800U && code <= 0xDFFFU;
  return !overlong && !surrogate && code <= 0x10FFFFU;
}

// The character at the front of text, which is not empty.
Character ReadCharacter(std::string_view text) {
  Character character = ReadLead(static_cast<unsigned char>(text.front()));
  if (character.length == 0 || character.length > text.size()) return {0, 0};
  for (const char byte : text.substr(1, character.length - 1)) {
    if (!IsContinuation(byte)) return {0, 0};
    character.code = character.code << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  return IsScalarValue(character) ? character : Character{0, 0};
}

bool Between(std::uint32_t code, std::uint32_t first, std::uint32_t last) {
  return first <= code && code <= last;
}

bool SteersTerminal(std::uint32_t code) {
  const bool control = code < 0x20U || Between(code, 0x7FU, 0x9FU);
  const bool separator = Between(code, 0x2028U, 0x2029U);
  const bool direction = code == 0x061CU || Between(code, 0x200EU, 0x200FU) ||
                         Between(code, 0x202AU, 0x202EU) || Between(code, 0x2066U, 0x2069U);
  return control || separator || direction;
}

void AppendEscaped(std::string& out, std::string_view bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  for (const char byte : bytes) {
    const unsigned int value = static_cast<unsigned char>(byte);
    out += "\\x";
    out += digits[value >> 4U];
    out += digits[value & 0xFU];
  }
}

}  // namespace

std::string Printable(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const Character character = ReadCharacter(text);
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
    const std::size_t length = ReadCharacter(text).length;
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::size_t CharacterCount(std::string_view printable) {
  return static_cast<std::size_t>(std::count_if(printable.begin(), printable.end(),
                                                [](char byte) { return !IsContinuation(byte); }));
}

}  // namespace Vornik::Cli
