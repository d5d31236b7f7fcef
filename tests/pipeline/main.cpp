// Runs the tests on a stack of 1 MiB, what Windows gives a thread unless it is asked for more:
// nothing that a folder holds may make a query need a deeper one.
#include <gtest/gtest.h>

#include "sanitizers.h"
#include "shuffled_tests.h"

#ifndef _WIN32

#include <pthread.h>

#include <cstddef>

namespace {

// Sanitizers put more into each frame.
#ifdef QUERYPACKAGE_TEST_SANITIZED
constexpr std::size_t stackBytes = std::size_t{4} << 20;
#else
constexpr std::size_t stackBytes = std::size_t{1} << 20;
#endif

void* RunTests(void* status) {
  *static_cast<int*>(status) = RUN_ALL_TESTS();
  return nullptr;
}

int RunTestsOnSmallStack() {
  int status = 1;
  pthread_attr_t attributes;
  pthread_t thread{};
  pthread_attr_init(&attributes);
  const bool started = pthread_attr_setstacksize(&attributes, stackBytes) == 0 &&
                       pthread_create(&thread, &attributes, &RunTests, &status) == 0;
  if (started) pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  return status;
}

}  // namespace

#else

// The linker is told the size of the first thread's stack.
static int RunTestsOnSmallStack() { return RUN_ALL_TESTS(); }

#endif

int main(int argc, char** argv) {
  Vornik::Testing::InitShuffledTests(argc, argv);
  return RunTestsOnSmallStack();
}
