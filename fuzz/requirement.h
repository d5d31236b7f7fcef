// What a fuzz target requires of the library; if it is not true, the process aborts and the fuzzer
// keeps the input.
#ifndef VORNIK_FUZZ_REQUIREMENT_H
#define VORNIK_FUZZ_REQUIREMENT_H

#include <string_view>

namespace Vornik::Fuzzing {

// Prints what was expected, and aborts.
[[noreturn]] void Fail(std::string_view expected, std::string_view details = {});

inline void Require(bool holds, std::string_view expected) {
  if (!holds) Fail(expected);
}

}  // namespace Vornik::Fuzzing

#endif  // VORNIK_FUZZ_REQUIREMENT_H
