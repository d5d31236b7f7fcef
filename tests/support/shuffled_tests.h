// What a test program's main calls in place of testing::InitGoogleTest.
#ifndef VORNIK_TESTS_SHUFFLED_TESTS_H
#define VORNIK_TESTS_SHUFFLED_TESTS_H

#include <gtest/gtest.h>

#include <cstdlib>

namespace Vornik::Testing {

inline void InitShuffledTests(int& argc, char** argv) {
  if (std::getenv("GTEST_SHUFFLE") == nullptr) GTEST_FLAG_SET(shuffle, true);
  testing::InitGoogleTest(&argc, argv);
}

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_SHUFFLED_TESTS_H
