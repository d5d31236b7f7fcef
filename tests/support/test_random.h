// The random values of one test. Create it in the test's own body:
//
//   TestRandom pick;
//   for (std::size_t left = pick.Rounds(5'000); left != 0; --left) ...
//
// QUERYPACKAGE_TEST_SEED sets the seed of the program. Without it the seed is always the same where
// CI is set, and a fresh one elsewhere. QUERYPACKAGE_TEST_ROUNDS is a percentage of the rounds.
// The seed is printed, and a test that fails prints the command that repeats it.
#ifndef VORNIK_TESTS_TEST_RANDOM_H
#define VORNIK_TESTS_TEST_RANDOM_H

#include <cstddef>
#include <string>

#include "random_pick.h"

namespace Vornik::Testing {

class TestRandom : public RandomPick {
 public:
  TestRandom();
  ~TestRandom();
  TestRandom(const TestRandom&) = delete;
  TestRandom& operator=(const TestRandom&) = delete;

  // Follows from the program's seed and the name of the test, so that no two tests have the same.
  unsigned int Seed() const { return seed_; }

  // So many rounds, or the percentage of them that is set; at least one.
  std::size_t Rounds(std::size_t usual) const;

  // Whether a test runs so often that it can check how frequent its cases are.
  bool RunsAllRounds() const;

 private:
  explicit TestRandom(unsigned int seed) : RandomPick(seed), seed_(seed) {}

  unsigned int seed_;
};

// The seed that the test with that name has in this program.
unsigned int SeedOfTest(const std::string& test);

// The number in an environment variable's text, null for none. Throws std::runtime_error where the
// text is not a number of at most nine digits.
unsigned int NumberInVariable(const char* name, const char* text, unsigned int otherwise);

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_TEST_RANDOM_H
