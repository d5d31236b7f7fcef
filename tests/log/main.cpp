#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "child.h"
#include "shuffled_tests.h"

int main(int argc, char** argv) {
  Vornik::programPath = argv[0];
  if (argc > 1 && std::string(argv[1]) == "--child") {
    return Vornik::RunChild(std::vector<std::string>(argv + 2, argv + argc));
  }
  Vornik::Testing::InitShuffledTests(argc, argv);
  return RUN_ALL_TESTS();
}
