#include "support/failing_allocator.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);
void* __wrap_malloc(std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size);
void* __wrap_realloc(void* block, std::size_t size);
void __wrap_free(void* block);
}

namespace {

std::atomic<long> chosen{0};  // 0: no failure is planned
std::atomic<bool> laterFailToo{false};
std::atomic<long> allocations{0};
std::atomic<long> liveBlocks{0};
std::atomic<long> liveBytes{0};
std::atomic<long> peakBytes{0};

bool FailsNow() {
  const long number = ++allocations;
  return number == chosen || (laterFailToo && number > chosen);
}

long SizeOf(void* block) { return static_cast<long>(malloc_usable_size(block)); }  // of null: 0

// A peak that another thread reaches at the same moment may be missed.
void* Counted(void* block, long bytesBefore = 0) {
  liveBlocks += block != nullptr && bytesBefore == 0;
  liveBytes += SizeOf(block) - bytesBefore;
  peakBytes = std::max(peakBytes.load(), liveBytes.load());
  return block;
}

}  // namespace

void* __wrap_malloc(std::size_t size) {
  return FailsNow() ? nullptr : Counted(__real_malloc(size));
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
  return FailsNow() ? nullptr : Counted(__real_calloc(count, size));
}

void* __wrap_realloc(void* block, std::size_t size) {
  const long bytesBefore = SizeOf(block);
  return FailsNow() ? nullptr : Counted(__real_realloc(block, size), bytesBefore);
}

void __wrap_free(void* block) {
  liveBlocks -= block != nullptr;
  liveBytes -= SizeOf(block);
  __real_free(block);
}

void* operator new(std::size_t size) {
  void* const block = __wrap_malloc(size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  return block;
}
void operator delete(void* block) noexcept { __wrap_free(block); }
void operator delete(void* block, std::size_t) noexcept { __wrap_free(block); }

// A sanitizer has forms for arrays of its own, which do not end in these.
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete[](void* block) noexcept { operator delete(block); }
void operator delete[](void* block, std::size_t) noexcept { operator delete(block); }

namespace faults {

FailAllocation::FailAllocation(long k, bool andAllLater) {
  allocations = 0;
  chosen = k;
  laterFailToo = andAllLater;
}

bool FailAllocation::End() {
  const bool hasFailed = allocations >= chosen;
  chosen = 0;
  laterFailToo = false;
  return hasFailed;
}

long LiveBlocks() { return liveBlocks; }

long LiveBytes() { return liveBytes; }

long PeakBytes() { return peakBytes; }

void ResetPeak() { peakBytes = liveBytes.load(); }

}  // namespace faults
