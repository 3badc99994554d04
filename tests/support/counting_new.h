#pragma once

// Replaces the global operator new: counts what lives on the heap and can be told to run out.
//
// Included by one file of a test program. Not for tests of several threads.

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>

namespace heap {

constexpr long kUnlimited = std::numeric_limits<long>::max();

inline long liveBlocks = 0;
inline long liveBytes = 0;
/// Allocations that still succeed; the ones after them throw std::bad_alloc.
inline long remaining = kUnlimited;

/// Lets `remaining` allocations succeed until the end of the scope.
struct Limit {
  explicit Limit(long allocations) { remaining = allocations; }
  ~Limit() { remaining = kUnlimited; }
};

constexpr std::size_t kHeader = alignof(std::max_align_t);

}  // namespace heap

void* operator new(std::size_t size) {
  char* const memory = heap::remaining > 0 && size < std::numeric_limits<std::size_t>::max() / 2
                           ? static_cast<char*>(std::malloc(heap::kHeader + size))
                           : nullptr;
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  if (heap::remaining != heap::kUnlimited) {
    --heap::remaining;
  }
  ++heap::liveBlocks;
  heap::liveBytes += static_cast<long>(size);
  *reinterpret_cast<std::size_t*>(memory) = size;
  return memory + heap::kHeader;
}

void operator delete(void* block) noexcept {
  if (block != nullptr) {
    char* const memory = static_cast<char*>(block) - heap::kHeader;
    --heap::liveBlocks;
    heap::liveBytes -= static_cast<long>(*reinterpret_cast<std::size_t*>(memory));
    std::free(memory);
  }
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

// The sanitizers bring array forms of their own, which would pass the others by.
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete[](void* block) noexcept { operator delete(block); }
void operator delete[](void* block, std::size_t) noexcept { operator delete(block); }
