// The characters of UTF-8 texts, and which of them a terminal obeys instead of showing.
#ifndef VORNIK_LOG_UTF8_CHARACTERS_H
#define VORNIK_LOG_UTF8_CHARACTERS_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Vornik {

struct Utf8Character {
  std::size_t length = 0;  // in bytes; 0: the text does not begin with a UTF-8 character
  std::uint32_t code = 0;
};

inline bool IsUtf8Continuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// The length that a character's first byte announces, and that byte's part of the code.
inline Utf8Character ReadUtf8Lead(unsigned char lead) {
  if (lead < 0x80U) return {1, lead};
  if (lead >= 0xC2U && lead < 0xE0U) return {2, lead & 0x1FU};
  if (lead >= 0xE0U && lead < 0xF0U) return {3, lead & 0x0FU};
  if (lead >= 0xF0U && lead < 0xF5U) return {4, lead & 0x07U};
  return {};
}

inline bool IsUnicodeScalar(const Utf8Character& character) {
  const std::uint32_t code = character.code;
  const bool overlong =
      (character.length == 3 && code < 0x800U) || (character.length == 4 && code < 0x10000U);
  const bool surrogate = code >= 0xD800U && code <= 0xDFFFU;
  return !overlong && !surrogate && code <= 0x10FFFFU;
}

// The first character of text, which is not empty.
//
//   "a..."             =>  {1, 'a'}
//   "\xC3\xA9..."      =>  {2, U+00E9}
//   "\xE9...", "\xC3"  =>  length 0
inline Utf8Character FirstUtf8Character(std::string_view text) {
  Utf8Character character = ReadUtf8Lead(static_cast<unsigned char>(text.front()));
  if (character.length == 0 || character.length > text.size()) return {};
  for (const char byte : text.substr(1, character.length - 1)) {
    if (!IsUtf8Continuation(byte)) return {};
    character.code = character.code << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  return IsUnicodeScalar(character) ? character : Utf8Character();
}

// Control characters, line and paragraph separators, and marks that change the writing direction.
inline bool SteersTerminal(std::uint32_t code) {
  const auto isBetween = [code](std::uint32_t first, std::uint32_t last) {
    return first <= code && code <= last;
  };
  const bool control = code < 0x20U || isBetween(0x7FU, 0x9FU);
  const bool separator = isBetween(0x2028U, 0x2029U);
  const bool direction = code == 0x061CU || isBetween(0x200EU, 0x200FU) ||
                         isBetween(0x202AU, 0x202EU) || isBetween(0x2066U, 0x2069U);
  return control || separator || direction;
}

}  // namespace Vornik

#endif  // VORNIK_LOG_UTF8_CHARACTERS_H
