// Divides a fuzzer's input. The format is text wherever possible, so that seeds are written and
// findings read with an editor; libFuzzer's own FuzzedDataProvider comes only with Clang.
#ifndef VORNIK_FUZZ_FUZZ_INPUT_H
#define VORNIK_FUZZ_FUZZ_INPUT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Vornik::Fuzzing {

inline std::string_view BytesOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

//   "a\n--\nb\n--\n" at "\n--\n"  =>  {"a", "b", ""}
//   ""                            =>  {""}
std::vector<std::string> Parts(std::string_view input, std::string_view separator);

// Choices among a few, one byte each; after the last byte always the first. '0' is the first of 2,
// 3, 4, 6, 8, 12 or 16, '1' the second, and so on.
class Choices {
 public:
  explicit Choices(std::string_view bytes) : bytes_(bytes) {}

  // 0 to n - 1; n is not 0.
  std::size_t Below(std::size_t n);

  bool Yes() { return Below(2) != 0; }

  template <typename Value>
  Value Of(const std::vector<Value>& values) {
    return values[Below(values.size())];
  }

  // Up to most values, repeats included.
  template <typename Value>
  std::vector<Value> Some(const std::vector<Value>& values, std::size_t most) {
    std::vector<Value> chosen;
    for (std::size_t left = Below(most + 1); left != 0; --left) chosen.push_back(Of(values));
    return chosen;
  }

 private:
  std::string_view bytes_;
};

}  // namespace Vornik::Fuzzing

#endif  // VORNIK_FUZZ_FUZZ_INPUT_H
