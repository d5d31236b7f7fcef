// Global C++ locales of the tests' own, put back when the guard goes.
#ifndef VORNIK_TESTS_GLOBAL_LOCALE_H
#define VORNIK_TESTS_GLOBAL_LOCALE_H

#include <algorithm>
#include <array>
#include <locale>

namespace Vornik::Testing {

class GlobalLocaleGuard {
 public:
  explicit GlobalLocaleGuard(const std::locale& locale) : before_(std::locale::global(locale)) {}
  ~GlobalLocaleGuard() { std::locale::global(before_); }
  GlobalLocaleGuard(const GlobalLocaleGuard&) = delete;
  GlobalLocaleGuard& operator=(const GlobalLocaleGuard&) = delete;

 private:
  std::locale before_;
};

// Folds 'X' to 'y', one character at a time, and leaves all other letters as they are.
class FoldsOnlyXToY : public std::ctype<char> {
 protected:
  char do_tolower(char c) const override { return c == 'X' ? 'y' : c; }
};

// Calls the letters a to f digits, and '9' none.
class HexLettersAreDigits : public std::ctype<char> {
 public:
  HexLettersAreDigits() : std::ctype<char>(Table()) {}

 private:
  static const mask* Table() {
    static const auto table = [] {
      std::array<mask, table_size> masks{};
      std::copy_n(classic_table(), table_size, masks.begin());
      for (unsigned char c = 'a'; c <= 'f'; ++c) masks[c] = static_cast<mask>(masks[c] | digit);
      masks['9'] = static_cast<mask>(masks['9'] & ~digit);
      return masks;
    }();
    return table.data();
  }
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_GLOBAL_LOCALE_H
