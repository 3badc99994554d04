#pragma once

// Makes chosen allocations of this program fail, and counts all of them. A program that links
// failing_allocator.cpp has operator new replaced, and needs the linker's --wrap for malloc,
// calloc, realloc and free (zyl_fail_allocations in tests/CMakeLists.txt adds both).

namespace faults {

/// While it lives, the k-th allocation from its construction on fails (k counts from 1), and all
/// later ones too if `andAllLater` is set. One at a time.
class FailAllocation {
 public:
  FailAllocation(long k, bool andAllLater);
  ~FailAllocation();
  FailAllocation(const FailAllocation&) = delete;
  FailAllocation& operator=(const FailAllocation&) = delete;

  /// Whether it has come to that.
  bool HasFailed() const;
};

/// Blocks allocated and not yet released by this program.
long LiveBlocks();

/// Starts a new count of PeakBytes from what is allocated now.
void ResetPeak();

/// Most bytes allocated at once since ResetPeak, beyond those allocated then.
long PeakBytes();

}  // namespace faults
