// Random values for tests, the same on every system: only the engine's own numbers are used.
#ifndef VORNIK_TESTS_RANDOM_PICK_H
#define VORNIK_TESTS_RANDOM_PICK_H

#include <cstddef>
#include <random>
#include <vector>

namespace Vornik::Testing {

class RandomPick {
 public:
  explicit RandomPick(unsigned int seed) : engine_(seed) {}

  // 0 to n - 1; n is not 0.
  std::size_t Below(std::size_t n) { return engine_() % n; }

  // True once in n times.
  bool OneIn(std::size_t n) { return Below(n) == 0; }

  template <typename Value>
  const Value& Of(const std::vector<Value>& values) {
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
  std::mt19937 engine_;
};

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_RANDOM_PICK_H
