#pragma once

// Reads the finished triangulation off the vertex rings into the arrays that leave the engine.

#include "trimake/allocation.h"
#include "trimake/records.h"

namespace zyl::geometry::internal {

/// The triangles of a build: of each the corners, three 1-based vertex numbers, clockwise, and the
/// breakline lists of its edges, null where there is none; edge k joins the corners k and
/// (k + 1) mod 3.
struct TTriangles {
  MallocArray<int> corners;
  MallocArray<const TInfo*> infos;  ///< null if there are no breaklines at all
  std::size_t count;
};

/// What else a build hands to its extraction.
struct TResult {
  const TVertex* verts;  ///< distinct input vertices in sorted order
  int count;
  const TPoint* points;  ///< what the caller gave, which vertices are copied from
  int pointCount;
  double unscale;  ///< leads from the coordinates of the build to those of the caller
};

/// All triangles, in the order of their lowest-numbered corners, read off the rings of the
/// vertices: no half-edge is needed afterwards. Throws OutOfMemory. O(vertices).
TTriangles tri_Collect_Triangles(const TrimakeState& state, const TVertex* verts, int count);

/// Fills the outputs that the state names, and the triangle count. Throws OutOfMemory, and has
/// then written none of them. Without a triangle the arrays of triangles stay null. O(vertices).
void tri_Extract(const TrimakeState& state, const TResult& result, TTriangles triangles,
                 int* outTriangleCount);

}  // namespace zyl::geometry::internal
