// What a number's text reads as, and whether that is what it says.
//
//   "10", " 10 "       =>  Exact
//   "10 (64-bit)"      =>  TrailingText
//   "x64", ""          =>  NotNumber
//   "4294967306", "-1" =>  OutOfRange, for an operating system
#ifndef VORNIK_CLI_LINT_CHECKS_NUMBERS_H
#define VORNIK_CLI_LINT_CHECKS_NUMBERS_H

#include <cstdint>
#include <string>

namespace Vornik::Cli {

enum class NumberReading { Exact, TrailingText, NotNumber, OutOfRange };

// A code of an operating system or architecture: 0 to 4294967295.
NumberReading ReadCodeText(const std::string& text);

// An update type: -2147483648 to 2147483647.
NumberReading ReadTypeText(const std::string& text);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_CHECKS_NUMBERS_H
