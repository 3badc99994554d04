#pragma once
// Arrays of plain records from the runtime's allocator, owned until they are handed out.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "trimake/records.h"

namespace zyl::geometry::internal {

struct FreeMemory {
  void operator()(void* memory) const { std::free(memory); }
};

/// Owner of an array of plain records that free() releases. Indices are signed, as the engine's
/// counts are.
template <class T>
class MallocArray : public std::unique_ptr<T[], FreeMemory> {
 public:
  using std::unique_ptr<T[], FreeMemory>::unique_ptr;
  T& operator[](std::ptrdiff_t i) const { return this->get()[i]; }
};

/// `count` records, uninitialised; at least one, so that null is always a failure. Throws
/// OutOfMemory with `message`.
template <class T>
MallocArray<T> NewArray(std::size_t count, const char* message) {
  constexpr std::size_t kMost = PTRDIFF_MAX / sizeof(T);
  void* const memory = count <= kMost ? std::malloc((count + (count == 0)) * sizeof(T)) : nullptr;
  if (memory == nullptr) {
    throw OutOfMemory(message);
  }
  return MallocArray<T>(static_cast<T*>(memory));
}

/// The same, all bytes zero. Large arrays come as untouched zero pages from the system.
template <class T>
MallocArray<T> NewZeroedArray(std::size_t count, const char* message) {
  void* const memory = std::calloc(count + (count == 0), sizeof(T));
  if (memory == nullptr) {
    throw OutOfMemory(message);
  }
  return MallocArray<T>(static_cast<T*>(memory));
}

}  // namespace zyl::geometry::internal
