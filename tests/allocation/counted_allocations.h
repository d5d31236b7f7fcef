// An operator new that counts what the whole program allocates, with a function of the GNU C
// library. A program that is linked with counted_allocations.cpp has it.
#ifndef VORNIK_TESTS_COUNTED_ALLOCATIONS_H
#define VORNIK_TESTS_COUNTED_ALLOCATIONS_H

#include <cstddef>

namespace Vornik::Testing {

struct CountedAllocations {
  std::size_t now = 0;    // bytes
  std::size_t most = 0;   // bytes at one time
  std::size_t ever = 0;   // bytes in all
  std::size_t calls = 0;  // of operator new
};

// May be reset by the caller. Of one thread.
CountedAllocations& Counted();

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_COUNTED_ALLOCATIONS_H
