// Comparing texts without regard to case. Two rules are in use, and they are not the same one: the
// C library's tolower (C locale, set by setlocale) for property names, and the global C++ locale's
// ctype facet for package ids and versions. Both fold byte by byte, and both are looked up at the
// call, because a host may change either locale between two calls.
//
//   EqualByCLibraryFold("VERSION", "Version")  =>  true in the "C" locale
//   FoldByGlobalLocale("ABC-1")                =>  "abc-1" with the classic locale
#ifndef VORNIK_QUERYPACKAGE_LETTER_CASE_H
#define VORNIK_QUERYPACKAGE_LETTER_CASE_H

#include <string>
#include <string_view>

namespace Vornik {

bool EqualByCLibraryFold(std::string_view a, std::string_view b);

std::string FoldByGlobalLocale(std::string_view text);
bool EqualByGlobalLocaleFold(std::string_view a, std::string_view b);

}  // namespace Vornik

#endif  // VORNIK_QUERYPACKAGE_LETTER_CASE_H
