#pragma once

#include <gtest/gtest.h>

#include <new>

// Makes chosen allocations of this program fail, and counts all of them. A program that links
// failing_allocator.cpp has operator new replaced, and needs the linker's --wrap for malloc,
// calloc, realloc and free (zyl_fail_allocations in tests/CMakeLists.txt adds both).

namespace faults {

/// While it lives, the k-th allocation from its construction on fails (k counts from 1), and all
/// later ones too if `andAllLater` is set. One at a time.
class FailAllocation {
 public:
  FailAllocation(long k, bool andAllLater);
  ~FailAllocation() { End(); }
  FailAllocation(const FailAllocation&) = delete;
  FailAllocation& operator=(const FailAllocation&) = delete;

  /// From here on none fails any more. Returns whether one has.
  bool End();
};

/// Blocks, and bytes, that this program has allocated and not yet released.
long LiveBlocks();
long LiveBytes();

/// The most bytes at once since ResetPeak.
long PeakBytes();
void ResetPeak();

/// Calls attempt(k, all), which is to make its k-th allocation fail, and all later ones too if
/// `all` is set, for k = 1, 2, ... until it returns that nothing failed. Nothing may leak. Returns
/// the number of allocations.
template <class Attempt>
long ForEveryAllocation(Attempt attempt) {
  long count = 0;
  for (const bool all : {false, true}) {
    const long before = LiveBlocks();
    for (count = 0; attempt(count + 1, all); ++count) {
      EXPECT_EQ(LiveBlocks(), before) << "allocation " << count + 1;
    }
  }
  return count;
}

/// Whether the action throws std::bad_alloc if its allocations fail so.
template <class Action>
bool RunsOutOfMemory(long k, bool andAllLater, Action action) {
  try {
    const FailAllocation failure(k, andAllLater);
    action();
  } catch (const std::bad_alloc&) {
    return true;
  }
  return false;
}

}  // namespace faults
