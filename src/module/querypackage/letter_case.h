// Comparing texts without regard to case. Two rules are in use, and they are not the same one: the
// C library's tolower (C locale, set by setlocale) for property names, and the global C++ locale's
// ctype facet for package ids and versions. Both fold byte by byte, and both are looked up at the
// call, because a host may change either locale between two calls.
//
//   EqualByCLibraryFold("VERSION", "Version")  =>  true in the "C" locale
//   FoldByGlobalLocale("ABC-1")                =>  "abc-1" with the classic locale
#ifndef VORNIK_QUERYPACKAGE_LETTER_CASE_H
#define VORNIK_QUERYPACKAGE_LETTER_CASE_H

#include <array>
#include <locale>
#include <string>
#include <string_view>

namespace Vornik {

bool EqualByCLibraryFold(std::string_view a, std::string_view b);

// One locale's fold, each byte asked for once, for many texts.
class LocaleFold {
 public:
  explicit LocaleFold(const std::locale& locale = std::locale());

  std::string operator()(std::string_view text) const;
  void Append(std::string_view text, std::string& folded) const;

 private:
  std::array<char, 256> table_{};
};

std::string FoldByGlobalLocale(std::string_view text);
bool EqualByGlobalLocaleFold(std::string_view a, std::string_view b);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_LETTER_CASE_H
