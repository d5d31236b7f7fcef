#include "letter_case.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <locale>

namespace Vornik {

namespace {

char FoldByCLibrary(char c) {
  return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

}  // namespace

ByteFold CLibraryFold() {
  ByteFold fold;
  for (std::size_t byte = 0; byte < fold.size(); ++byte) {
    fold[byte] = FoldByCLibrary(static_cast<char>(byte));
  }
  return fold;
}

bool EqualByCLibraryFold(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return x == y || FoldByCLibrary(x) == FoldByCLibrary(y);
         });
}

LocaleFold::LocaleFold() {
  const std::locale global;
  const auto& letters = std::use_facet<std::ctype<char>>(global);
  for (std::size_t byte = 0; byte < table_.size(); ++byte) {
    table_[byte] = letters.tolower(static_cast<char>(byte));
  }
}

std::string LocaleFold::operator()(std::string_view text) const {
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(),
                 [this](char c) { return table_[static_cast<unsigned char>(c)]; });
  return folded;
}

// Character by character, as LocaleFold: a facet of the host's may override just that operation.
std::string FoldByGlobalLocale(std::string_view text) {
  const std::locale global;
  const auto& letters = std::use_facet<std::ctype<char>>(global);
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(),
                 [&letters](char c) { return letters.tolower(c); });
  return folded;
}

bool EqualByGlobalLocaleFold(std::string_view a, std::string_view b) {
  return a.size() == b.size() && FoldByGlobalLocale(a) == FoldByGlobalLocale(b);
}

}  // namespace Vornik
