#include "support/failing_allocator.h"

#include <malloc.h>

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

std::atomic<long> untilFailure{0};  // 0: no failure is planned
std::atomic<bool> laterFailToo{false};
std::atomic<bool> failed{false};
std::atomic<long> liveBlocks{0};
std::atomic<long> liveBytes{0};
std::atomic<long> bytesBefore{0};
std::atomic<long> peakBytes{0};

bool FailsNow() {
  if (failed) {
    return laterFailToo;
  }
  if (untilFailure == 0 || --untilFailure != 0) {
    return false;
  }
  failed = true;
  return true;
}

long SizeOf(void* block) { return static_cast<long>(malloc_usable_size(block)); }

// A peak that another thread reaches at the same moment may be missed.
void AddBytes(long bytes) {
  liveBytes += bytes;
  if (liveBytes > peakBytes) {
    peakBytes = liveBytes.load();
  }
}

void* Counted(void* block) {
  if (block != nullptr) {
    ++liveBlocks;
    AddBytes(SizeOf(block));
  }
  return block;
}

void* New(std::size_t size) {
  void* const block = __wrap_malloc(size == 0 ? 1 : size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
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
  if (FailsNow()) {
    return nullptr;
  }
  if (block == nullptr) {
    return Counted(__real_malloc(size));
  }
  const long before = SizeOf(block);
  void* const moved = __real_realloc(block, size);
  if (moved != nullptr) {
    AddBytes(SizeOf(moved) - before);
  }
  return moved;
}

void __wrap_free(void* block) {
  if (block != nullptr) {
    --liveBlocks;
    liveBytes -= SizeOf(block);
  }
  __real_free(block);
}

void* operator new(std::size_t size) { return New(size); }
void* operator new[](std::size_t size) { return New(size); }
void operator delete(void* block) noexcept { __wrap_free(block); }
void operator delete[](void* block) noexcept { __wrap_free(block); }
void operator delete(void* block, std::size_t) noexcept { __wrap_free(block); }
void operator delete[](void* block, std::size_t) noexcept { __wrap_free(block); }

namespace faults {

FailAllocation::FailAllocation(long k, bool andAllLater) {
  laterFailToo = andAllLater;
  failed = false;
  untilFailure = k;
}

FailAllocation::~FailAllocation() {
  untilFailure = 0;
  failed = false;
  laterFailToo = false;
}

bool FailAllocation::HasFailed() const { return failed; }

long LiveBlocks() { return liveBlocks; }

void ResetPeak() {
  bytesBefore = liveBytes.load();
  peakBytes = liveBytes.load();
}

long PeakBytes() { return peakBytes - bytesBefore; }

}  // namespace faults
