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

/// Asks the system to back what a fresh block holds of whole huge pages by such pages: to touch
/// hundreds of megabytes for the first time in pages of the usual size takes a good part of a
/// build. Does nothing where the system knows no huge pages.
void UseHugePages(void* memory, std::size_t size);

/// `count` records, uninitialised; at least one, so that null is always a failure.
template <class T>
MallocArray<T> TryNewArray(std::size_t count) {
  constexpr std::size_t kMost = PTRDIFF_MAX / sizeof(T);
  const std::size_t size = (count + (count == 0)) * sizeof(T);
  void* const memory = count <= kMost ? std::malloc(size) : nullptr;
  if (memory != nullptr) {
    UseHugePages(memory, size);
  }
  return MallocArray<T>(static_cast<T*>(memory));
}

/// The same. Throws OutOfMemory with `message`.
template <class T>
MallocArray<T> NewArray(std::size_t count, const char* message) {
  MallocArray<T> array = TryNewArray<T>(count);
  if (array == nullptr) {
    throw OutOfMemory(message);
  }
  return array;
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

/// Changes the number of records, which may move them. Throws OutOfMemory with `message`, and then
/// leaves the array as it was.
template <class T>
void Resize(MallocArray<T>& array, std::size_t count, const char* message) {
  constexpr std::size_t kMost = PTRDIFF_MAX / sizeof(T);
  const std::size_t size = (count + (count == 0)) * sizeof(T);
  void* const resized = count <= kMost ? std::realloc(array.get(), size) : nullptr;
  if (resized == nullptr) {
    throw OutOfMemory(message);
  }
  static_cast<void>(array.release());
  array.reset(static_cast<T*>(resized));
}

}  // namespace zyl::geometry::internal
