// A C locale in which tolower('I') is not 'i': Turkish in a single-byte encoding, compiled for the
// test. tolower('I') is the dotless letter 0xFD there, and tolower(0xDD) is 'i'. Put back when the
// guard goes. POSIX only.
#ifndef VORNIK_TESTS_TURKISH_C_LOCALE_H
#define VORNIK_TESTS_TURKISH_C_LOCALE_H

#include <cctype>
#include <chrono>
#include <clocale>
#include <cstdlib>
#include <string>

#include "child_process.h"
#include "temp_folder.h"

namespace Vornik::Testing {

class TurkishCLocale {
 public:
  TurkishCLocale() {
    const auto outcome = RunChild("/usr/bin/localedef",
                                  {"-i", "tr_TR", "-f", "ISO-8859-9", folder_.Path() + "/" + name},
                                  std::chrono::minutes(1));
    compiled_ = outcome.ended && outcome.exitStatus == 0;
  }
  ~TurkishCLocale() {
    std::setlocale(LC_CTYPE, before_.c_str());
    unsetenv("LOCPATH");
  }
  TurkishCLocale(const TurkishCLocale&) = delete;
  TurkishCLocale& operator=(const TurkishCLocale&) = delete;

  // Whether the locale could be made the process's, and folds as it should.
  bool Set() const {
    return compiled_ && setenv("LOCPATH", folder_.Path().c_str(), 1) == 0 &&
           std::setlocale(LC_CTYPE, name) != nullptr && Folded('I') == 0xFD && Folded(0xDD) == 'i';
  }

 private:
  // Volatile, because a compiler may fold the case of a constant without asking the locale.
  static int Folded(int byte) {
    const volatile int unknown = byte;
    return std::tolower(unknown);
  }

  static constexpr const char* name = "tr_TR.ISO-8859-9";

  TempFolder folder_;
  std::string before_ = std::setlocale(LC_CTYPE, nullptr);
  bool compiled_ = false;
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_TURKISH_C_LOCALE_H
