// The test program's operator new: it counts, fails where a test asks it to, and knows what was
// never freed. For one thread.
#ifndef VORNIK_TESTS_ALLOCATION_FAULTS_H
#define VORNIK_TESTS_ALLOCATION_FAULTS_H

#include <cstddef>

namespace Vornik::Testing {

// Whose code allocates. The parser is TinyXML's.
enum class Allocating { Query, StreamInsertion, Parser };

class AllocatingScope {
 public:
  explicit AllocatingScope(Allocating who);
  ~AllocatingScope();
  AllocatingScope(const AllocatingScope&) = delete;
  AllocatingScope& operator=(const AllocatingScope&) = delete;

 private:
  Allocating before_;
};

enum class AllocationFault { Once, FromThereOn };

struct AllocationReport {
  std::size_t allocations = 0;
  std::size_t failedInInsertion = 0;
  std::size_t failedInParser = 0;
  std::size_t failedElsewhere = 0;

  bool Failed() const { return failedInInsertion + failedInParser + failedElsewhere != 0; }
};

// From here on allocations are watched, and the one with that number, counted from 0, fails.
void WatchAllocations(std::size_t failing, AllocationFault fault);

// Ends the watch; nothing fails any more.
AllocationReport StopWatching();

// While it lives, no allocation counts or fails.
class SparedAllocations {
 public:
  SparedAllocations();
  ~SparedAllocations();
  SparedAllocations(const SparedAllocations&) = delete;
  SparedAllocations& operator=(const SparedAllocations&) = delete;

 private:
  bool before_;
};

// Whether the next allocation fails. A replacement of another function that allocates checks it
// first.
bool NextAllocationFails();

// The blocks that were allocated while allocations were watched and are still there.
struct LostBlocks {
  std::size_t ofParser = 0;
  std::size_t ofOthers = 0;
};

// Counts them and frees them; nobody may free them afterwards.
LostBlocks ReclaimLostBlocks();

}  // namespace Vornik::Testing

#endif  // VORNIK_TESTS_ALLOCATION_FAULTS_H
