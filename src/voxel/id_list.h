#pragma once

// The identifiers of one voxel.

#include <cstdint>
#include <utility>

namespace zyl::geometry::internal {

// Set of 64-bit identifiers that is written far more often than read.
//
// One pointer, null until the first insertion, to a block of identifiers in the order in which they
// came. Duplicates are looked for only when the block is full: it is then sorted, and doubled
// unless half of it came free. So an insertion is mostly a single store, O(log n) in the mean for
// any order of arrival, and a block has room for at most four times its distinct identifiers (and
// for two at least). Reading changes nothing.
class IdList {
 public:
  IdList() = default;
  IdList(const IdList& other);
  IdList& operator=(IdList other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  ~IdList();

  // If memory runs out, the list is as it was.
  void Insert(std::int64_t id) {
    if (block_ == nullptr || block_->count == block_->capacity) {
      MakeRoom();
    } else if (block_->count != 0 && end()[-1] == id) {
      return;
    }
    Ids()[block_->count++] = id;
  }
  // Brings the identifiers into ascending order, each once.
  void Sort();
  // Keeps the block.
  void Clear();

  // In no particular order, and any of them more than once, unless just sorted.
  const std::int64_t* begin() const { return block_ == nullptr ? nullptr : Ids(); }
  const std::int64_t* end() const { return block_ == nullptr ? nullptr : Ids() + block_->count; }

 private:
  struct alignas(std::int64_t) Block {
    std::uint32_t count;
    std::uint32_t capacity;
    // The identifiers follow.
  };

  static Block* Allocate(std::uint32_t capacity);
  void MakeRoom();
  std::int64_t* Ids() const { return reinterpret_cast<std::int64_t*>(block_ + 1); }

  Block* block_ = nullptr;
};

}  // namespace zyl::geometry::internal
