#pragma once

// Which triangle lies across each edge of each triangle, from the list of corners alone.

#include <cassert>
#include <cstddef>

namespace zyl::geometry::internal {

/// View of an array that somebody else owns; an index beyond its size is a fault of ours.
template <typename T>
class PagedVector {
 public:
  PagedVector(T* elements, std::size_t size) : elements_(elements), size_(size) {}
  virtual ~PagedVector() = default;

  T& operator[](std::size_t i) const {
    assert(i < size_);
    return elements_[i];
  }
  std::size_t Size() const { return size_; }

 private:
  T* elements_;
  std::size_t size_;
};

/// Writes to neighbours[3t + k] the 1-based number of the triangle across edge k of triangle t,
/// which joins its corners k and (k + 1) mod 3, or 0 if there is none or more than one.
///
/// `triangles` holds three 1-based vertex numbers a triangle, in any order. Returns the largest
/// vertex number, negated if three triangles or more share an edge; 0 if there are no triangles or
/// there is no memory for the keys, and `neighbours` is then left as it was.
/// O(t log t), close to O(t) if few vertices have many edges; 48 bytes of scratch a triangle.
int tri_Build_Adjacency(int triangleCount, const int* triangles, int* neighbours);

}  // namespace zyl::geometry::internal
