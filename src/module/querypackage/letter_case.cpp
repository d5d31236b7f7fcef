#include "letter_case.h"

#include <algorithm>
#include <cctype>
#include <locale>

namespace Vornik {

namespace {

int CLibraryFold(char c) { return std::tolower(static_cast<unsigned char>(c)); }

}  // namespace

bool EqualByCLibraryFold(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return x == y || CLibraryFold(x) == CLibraryFold(y);
         });
}

std::string FoldByGlobalLocale(std::string_view text) {
  const std::locale global;
  const auto& letters = std::use_facet<std::ctype<char>>(global);
  std::string folded(text);
  // Character by character: a facet of the host's may override just that operation.
  std::transform(folded.begin(), folded.end(), folded.begin(),
                 [&letters](char c) { return letters.tolower(c); });
  return folded;
}

bool EqualByGlobalLocaleFold(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  const std::locale global;
  const auto& letters = std::use_facet<std::ctype<char>>(global);
  return std::equal(a.begin(), a.end(), b.begin(), [&letters](char x, char y) {
    return letters.tolower(x) == letters.tolower(y);
  });
}

}  // namespace Vornik
