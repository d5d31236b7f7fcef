// Comparing texts without regard to case. Two rules are in use, and they are not the same one: the
// C library's tolower (C locale, set by setlocale) for property names, and the global C++ locale's
// ctype facet for package ids and versions. Both fold byte by byte. A host may change either
// locale: functions use the locale in force at the call, the classes the one that they sampled.
//
//   EqualByCLibraryFold("VERSION", "Version")  =>  true in the "C" locale
//   FoldByGlobalLocale("ABC-1")                =>  "abc-1" with the classic locale
#ifndef VORNIK_QUERYPACKAGE_TEXT_LETTER_CASE_H
#define VORNIK_QUERYPACKAGE_TEXT_LETTER_CASE_H

#include <array>
#include <string>
#include <string_view>

namespace Vornik {

// What each byte folds to.
using ByteFold = std::array<char, 256>;

// The C library's fold of the present C locale.
ByteFold CLibraryFold();

bool EqualByCLibraryFold(std::string_view a, std::string_view b);

// The fold of the global locale, sampled once, for many texts.
class LocaleFold {
 public:
  LocaleFold();

  std::string operator()(std::string_view text) const;

 private:
  ByteFold table_{};
};

// The same for one text.
std::string FoldByGlobalLocale(std::string_view text);
bool EqualByGlobalLocaleFold(std::string_view a, std::string_view b);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_TEXT_LETTER_CASE_H
