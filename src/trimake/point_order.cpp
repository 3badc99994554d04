#include "trimake/point_order.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zyl::geometry::internal {
namespace {

// Squared distance up to which two points are one vertex.
constexpr double kDuplicate2 = 1e-16;

// Points of one position keep their order of input, so that the result does not depend on how it
// was sorted.
struct ComesBefore {
  bool operator()(const TSortedPoint& a, const TSortedPoint& b) const {
    if (a.x != b.x) {
      return a.x < b.x;
    }
    return a.y != b.y ? a.y < b.y : a.index < b.index;
  }
};

// Slabs of equal width between the extremes of x. Rounding does not exchange two x, so that slabs
// follow each other as their points do.
class Slabs {
 public:
  Slabs(int n, const TPoint* points) {
    const auto byX = [](const TPoint& a, const TPoint& b) { return a.x < b.x; };
    const auto extremes = std::minmax_element(points, points + n, byX);
    lowest_ = extremes.first->x;
    const double slabs = n / kPointsPerSlab;
    const double perUnit = slabs / (extremes.second->x - lowest_);
    if (slabs > 1 && std::isnormal(perUnit)) {
      perUnit_ = perUnit;
      last_ = static_cast<int>(slabs) - 1;
    }
  }

  int Count() const { return last_ + 1; }

  int Of(double x) const {
    return last_ == 0 ? 0 : std::min(static_cast<int>((x - lowest_) * perUnit_), last_);
  }

 private:
  static constexpr int kPointsPerSlab = 4;

  double lowest_;
  double perUnit_ = 0;
  int last_ = 0;  // 0, for a single slab, also where x has no extent or one that overflows
};

}  // namespace

// Distributes the points over slabs, each of them behind those of the slabs before, and sorts the
// slabs. Even points leave a handful to each; should all fall into one, this is a plain sort.
MallocArray<TSortedPoint> tri_Sort_Points(int n, const TPoint* points, const char* message) {
  const Slabs slabs(n, points);
  const int count = slabs.Count();
  MallocArray<TSortedPoint> sorted = NewArray<TSortedPoint>(static_cast<std::size_t>(n), message);
  const MallocArray<int> next = NewZeroedArray<int>(static_cast<std::size_t>(count), message);

  for (int i = 0; i < n; ++i) {
    ++next[slabs.Of(points[i].x)];
  }
  int begin = 0;
  for (int s = 0; s < count; ++s) {
    begin += std::exchange(next[s], begin);
  }
  for (int i = 0; i < n; ++i) {
    sorted[next[slabs.Of(points[i].x)]++] = {points[i].x, points[i].y, i};
  }
  begin = 0;
  for (int s = 0; s < count; ++s) {
    std::sort(sorted.get() + begin, sorted.get() + next[s], ComesBefore());
    begin = next[s];
  }
  return sorted;
}

int tri_Merge_Duplicates(int n, TSortedPoint* sorted, int* indexMap) {
  int last = 0;
  for (int i = 0; i < n; ++i) {
    const double dx = sorted[i].x - sorted[last].x;
    const double dy = sorted[i].y - sorted[last].y;
    if (dx * dx + dy * dy > kDuplicate2) {
      sorted[++last] = sorted[i];
    }
    if (indexMap != nullptr) {
      indexMap[sorted[i].index] = sorted[last].index;
    }
  }
  return last + 1;
}

}  // namespace zyl::geometry::internal
