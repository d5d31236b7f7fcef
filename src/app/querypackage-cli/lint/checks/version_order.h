// Versions compared as a reader compares them: numbers in them by their value, the rest as text
// without regard to case.
//
//   "9.0", "10.1"  =>  less than 0
//   "1.2", "01.2"  =>  0
//   "1.2b", "1.2A" =>  greater than 0
#ifndef VORNIK_CLI_LINT_CHECKS_VERSION_ORDER_H
#define VORNIK_CLI_LINT_CHECKS_VERSION_ORDER_H

#include <string>

namespace Vornik::Cli {

int CompareAsNumbers(const std::string& a, const std::string& b);

// Whether a version is numbers that are joined by a separator each. Any other one may be meant to
// be compared as text.
//
//   "10", "10.1", "10-1_2"          =>  true
//   "", "AB12X", "1.2b", "v2", "1."  =>  false
bool IsNumbersOnly(const std::string& version);

}  // namespace Vornik::Cli

#endif  // VORNIK_CLI_LINT_CHECKS_VERSION_ORDER_H
