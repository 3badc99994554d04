#pragma once

// Distinct points of an input, sorted by x then y.

#include "trimake/allocation.h"
#include "trimake/records.h"

namespace zyl::geometry::internal {

/// Position of an input point. A sort over indices would fetch two points from all over the input
/// for every comparison.
struct TSortedPoint {
  double x;
  double y;
  int index;
};

/// The points sorted by x, then y, then index; finite ones only. O(n log n), near O(n) where x is
/// spread evenly. Throws OutOfMemory with `message`.
MallocArray<TSortedPoint> tri_Sort_Points(int n, const TPoint* points, const char* message);

/// Moves the distinct points to the front and returns their number. A point is the same as the
/// last distinct one if no more than 1e-8 apart from it; with others it is not compared.
/// Unless null, indexMap receives for each input index that of the distinct point.
int tri_Merge_Duplicates(int n, TSortedPoint* sorted, int* indexMap);

}  // namespace zyl::geometry::internal
