// Runs the tests of a program in a random order, whose seed GoogleTest prints: a test that needs
// another one to run first fails soon. --gtest_random_seed=<seed> repeats an order,
// --gtest_shuffle=0 or GTEST_SHUFFLE=0 keeps that of the source.
#include <gtest/gtest.h>

#include "shuffled_tests.h"

int main(int argc, char** argv) {
  Vornik::Testing::InitShuffledTests(argc, argv);
  return RUN_ALL_TESTS();
}
