#include "allocation_faults.h"

#include <cstdlib>
#include <new>

namespace Vornik::Testing {

namespace {

// Stands before every block. Watched blocks form a ring, which also keeps a leak checker from
// reporting them: what may be lost is for the tests to say.
struct alignas(std::max_align_t) Header {
  Header* previous = this;
  Header* next = this;
  Allocating who = Allocating::Query;
};

struct Watch {
  bool on = false;
  bool spared = false;
  std::size_t failing = 0;
  AllocationFault fault = AllocationFault::Once;
  Allocating who = Allocating::Query;
  AllocationReport report;
  Header blocks;
};

// Not destroyed: blocks are freed until the program ends.
Watch& TheWatch() {
  alignas(Watch) static unsigned char storage[sizeof(Watch)];
  static Watch& watch = *new (storage) Watch;
  return watch;
}

void CountFailure(Watch& watch) {
  switch (watch.who) {
    case Allocating::Query:
      ++watch.report.failedElsewhere;
      break;
    case Allocating::StreamInsertion:
      ++watch.report.failedInInsertion;
      break;
    case Allocating::Parser:
      ++watch.report.failedInParser;
      break;
  }
}

void Link(Header* block, Watch& watch) {
  block->who = watch.who;
  block->previous = watch.blocks.previous;
  block->next = &watch.blocks;
  block->previous->next = block;
  watch.blocks.previous = block;
}

void Unlink(Header* block) {
  block->previous->next = block->next;
  block->next->previous = block->previous;
}

}  // namespace

AllocatingScope::AllocatingScope(Allocating who) : before_(TheWatch().who) { TheWatch().who = who; }
AllocatingScope::~AllocatingScope() { TheWatch().who = before_; }

void WatchAllocations(std::size_t failing, AllocationFault fault) {
  Watch& watch = TheWatch();
  watch.report = AllocationReport();
  watch.failing = failing;
  watch.fault = fault;
  watch.on = true;
}

AllocationReport StopWatching() {
  TheWatch().on = false;
  return TheWatch().report;
}

SparedAllocations::SparedAllocations() : before_(TheWatch().spared) { TheWatch().spared = true; }
SparedAllocations::~SparedAllocations() { TheWatch().spared = before_; }

bool NextAllocationFails() {
  Watch& watch = TheWatch();
  if (!watch.on || watch.spared) return false;
  const std::size_t number = watch.report.allocations++;
  const bool fails =
      watch.fault == AllocationFault::Once ? number == watch.failing : number >= watch.failing;
  if (fails) CountFailure(watch);
  return fails;
}

LostBlocks ReclaimLostBlocks() {
  Header& ring = TheWatch().blocks;
  LostBlocks lost;
  while (ring.next != &ring) {
    Header* block = ring.next;
    ++(block->who == Allocating::Parser ? lost.ofParser : lost.ofOthers);
    Unlink(block);
    std::free(block);
  }
  return lost;
}

namespace {

// Null where there is no memory.
void* Allocate(std::size_t size) noexcept {
  Watch& watch = TheWatch();
  void* memory = NextAllocationFails() ? nullptr : std::malloc(sizeof(Header) + size);
  if (memory == nullptr) return nullptr;
  auto* block = new (memory) Header;
  if (watch.on) Link(block, watch);
  return block + 1;
}

void* AllocateOrThrow(std::size_t size) {
  if (void* memory = Allocate(size)) return memory;
  throw std::bad_alloc();
}

void Free(void* memory) noexcept {
  if (memory == nullptr) return;
  Header* block = static_cast<Header*>(memory) - 1;
  Unlink(block);  // one that is not watched is a ring of its own
  std::free(block);
}

}  // namespace

}  // namespace Vornik::Testing

using Vornik::Testing::Allocate;
using Vornik::Testing::AllocateOrThrow;
using Vornik::Testing::Free;

void* operator new(std::size_t size) { return AllocateOrThrow(size); }
void* operator new[](std::size_t size) { return AllocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* memory) noexcept { Free(memory); }
void operator delete[](void* memory) noexcept { Free(memory); }
void operator delete(void* memory, std::size_t) noexcept { Free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { Free(memory); }
