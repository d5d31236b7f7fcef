#ifndef VORNIK_TESTS_REPEAT_H
#define VORNIK_TESTS_REPEAT_H

#include <cstddef>
#include <string>

namespace Vornik::Testing {

// ("ab", 3) => "ababab"
inline std::string Repeat(const std::string& text, std::size_t times) {
  std::string repeated;
  repeated.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) repeated += text;
  return repeated;
}

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_REPEAT_H
