#include "test_random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <stdexcept>

namespace Vornik::Testing {

namespace {

constexpr unsigned int seedOfCi = 20'261'121;
constexpr unsigned int seeds = 1'000'000'000;

const char* seedVariable = "QUERYPACKAGE_TEST_SEED";
const char* roundsVariable = "QUERYPACKAGE_TEST_ROUNDS";

unsigned int ChooseSeed() {
  const unsigned int otherwise =
      std::getenv("CI") != nullptr ? seedOfCi : std::random_device()() % seeds;
  return NumberInVariable(seedVariable, std::getenv(seedVariable), otherwise);
}

// Not through std::cout, which some tests capture.
void Print(const std::string& line) {
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);
}

// Chosen and printed once.
unsigned int ProgramSeed() {
  static const unsigned int seed = [] {
    const unsigned int chosen = ChooseSeed();
    Print("[   SEED   ] " + std::string(seedVariable) + '=' + std::to_string(chosen));
    return chosen;
  }();
  return seed;
}

unsigned int Percentage() {
  static const unsigned int percentage =
      NumberInVariable(roundsVariable, std::getenv(roundsVariable), 100);
  return percentage;
}

std::string TestName() {
  const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
  if (test == nullptr) throw std::logic_error("TestRandom outside a test");
  return std::string(test->test_suite_name()) + '.' + test->name();
}

std::string ProgramPath() {
#ifdef _WIN32
  return _pgmptr;
#else
  return program_invocation_name;
#endif
}

}  // namespace

// FNV-1a; std::hash differs from one library to the next.
unsigned int SeedOfTest(const std::string& test) {
  std::uint32_t hash = 2'166'136'261U ^ ProgramSeed();
  for (const char c : test) hash = (hash ^ static_cast<unsigned char>(c)) * 16'777'619U;
  return hash;
}

unsigned int NumberInVariable(const char* name, const char* text, unsigned int otherwise) {
  if (text == nullptr) return otherwise;
  const std::string digits(text);
  if (digits.empty() || digits.size() > 9 ||
      digits.find_first_not_of("0123456789") != std::string::npos) {
    throw std::runtime_error(std::string(name) + " is no number: \"" + digits + '"');
  }
  return static_cast<unsigned int>(std::stoul(digits));
}

TestRandom::TestRandom() : TestRandom(SeedOfTest(TestName())) {}

TestRandom::~TestRandom() {
  if (!testing::Test::HasFailure()) return;
  std::string command = std::string(seedVariable) + '=' + std::to_string(ProgramSeed());
  if (Percentage() != 100) {
    command += ' ' + std::string(roundsVariable) + '=' + std::to_string(Percentage());
  }
  Print("Repeat it with\n  " + command + ' ' + ProgramPath() + " --gtest_filter=" + TestName() +
        "\nand add the seed to tests/failed_seeds.txt once it is fixed.");
}

std::size_t TestRandom::Rounds(std::size_t usual) const {
  return std::max<std::size_t>(usual * Percentage() / 100, 1);
}

bool TestRandom::RunsAllRounds() const { return Percentage() >= 100; }

}  // namespace Vornik::Testing
