#pragma once

// Divide-and-conquer construction of the Delaunay triangulation of sorted vertices.
//
// L. Guibas and J. Stolfi, "Primitives for the manipulation of general subdivisions and the
// computation of Voronoi diagrams", 1985, with a ring of half-edges per vertex in place of their
// quad-edges, as D. T. Lee and B. J. Schachter, "Two algorithms for constructing a Delaunay
// triangulation", 1980, hold it.

#include "trimake/records.h"

namespace zyl::geometry::internal {

/// Vertices that follow each other in the sorted order.
struct TRun {
  TVertex* verts;
  int count;
};

/// Edge from one run to the next.
struct TSeam {
  TVertex* left;
  TVertex* right;
};

/// Triangulates the run of n >= 2 distinct vertices, sorted by x then y. Rings they have are
/// forgotten; the half-edges come from the free list.
/// Returns 0; or -1, with rings that are whole but no triangulation, if tangents, merges or the
/// free list do not work out. On exact predicates they do. Throws OutOfMemory from a retry.
/// O(n log n), of stack depth log n; allocates nothing unless a half has to be retried.
int tri_Divide_Conquer(TrimakeState& state, int n, TVertex* verts);

/// Builds a failed run once more on coordinates turned about its centre, by up to ten angles, and
/// puts the coordinates back. The state's retry depth limits how often a build may try.
/// Returns 0 or -1. Throws OutOfMemory.
int tri_Retry_Rotated(TrimakeState& state, int n, TVertex* verts);

/// Lower and upper common tangent of two neighbouring hulls. Return 0 and fill `seam`, or -1.
int tri_Lower_Tangent(const TRun& left, const TRun& right, TSeam& seam);
int tri_Upper_Tangent(const TRun& left, const TRun& right, TSeam& seam);

/// Sews two runs together from the lower tangent to the upper. Returns 0 or -1.
int tri_Merge(TrimakeState& state, const TRun& left, const TRun& right, const TSeam& lower,
              const TSeam& upper);

}  // namespace zyl::geometry::internal
