#include "allocation/counted_allocations.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

Vornik::Testing::CountedAllocations counted;

void* Allocate(std::size_t size) {
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  const std::size_t bytes = malloc_usable_size(memory);
  counted.now += bytes;
  counted.ever += bytes;
  counted.most = std::max(counted.most, counted.now);
  ++counted.calls;
  return memory;
}

void Free(void* memory) noexcept {
  if (memory != nullptr) counted.now -= malloc_usable_size(memory);
  std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size);
}
void operator delete(void* memory) noexcept { Free(memory); }
void operator delete[](void* memory) noexcept { Free(memory); }
void operator delete(void* memory, std::size_t) noexcept { Free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { Free(memory); }

namespace Vornik::Testing {

CountedAllocations& Counted() { return counted; }

}  // namespace Vornik::Testing
