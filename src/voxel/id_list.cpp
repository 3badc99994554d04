#include "voxel/id_list.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <new>

namespace zyl::geometry::internal {

namespace {

constexpr std::uint32_t kFirstCapacity = 2;

}  // namespace

IdList::IdList(const IdList& other) {
  if (other.begin() != other.end()) {
    block_ = Allocate(std::max(other.block_->count, kFirstCapacity));
    block_->count = other.block_->count;
    std::copy(other.begin(), other.end(), Ids());
  }
}

IdList::~IdList() { ::operator delete(block_); }

void IdList::Sort() {
  if (block_ != nullptr) {
    std::int64_t* const ids = Ids();
    std::sort(ids, ids + block_->count);
    block_->count = static_cast<std::uint32_t>(std::unique(ids, ids + block_->count) - ids);
  }
}

void IdList::Clear() {
  if (block_ != nullptr) {
    block_->count = 0;
  }
}

IdList::Block* IdList::Allocate(std::uint32_t capacity) {
  constexpr std::size_t kMost =
      (std::numeric_limits<std::size_t>::max() - sizeof(Block)) / sizeof(std::int64_t);
  if (std::size_t{capacity} > kMost) {
    throw std::bad_alloc();
  }
  void* const memory = ::operator new(sizeof(Block) + capacity * sizeof(std::int64_t));
  return new (memory) Block{0, capacity};
}

void IdList::MakeRoom() {
  if (block_ == nullptr) {
    block_ = Allocate(kFirstCapacity);
    return;
  }
  Sort();
  if (block_->count <= block_->capacity / 2) {
    return;
  }
  if (block_->capacity > std::numeric_limits<std::uint32_t>::max() / 2) {
    throw std::bad_alloc();
  }
  Block* const full = block_;
  block_ = Allocate(full->capacity * 2);
  block_->count = full->count;
  const std::int64_t* const ids = reinterpret_cast<const std::int64_t*>(full + 1);
  std::copy(ids, ids + full->count, Ids());
  ::operator delete(full);
}

}  // namespace zyl::geometry::internal
