#pragma once

// Reads the finished triangulation off the vertex rings into the arrays that leave the engine.

#include "trimake/records.h"

namespace zyl::geometry::internal {

/// What a build hands to its extraction.
struct TResult {
  const TVertex* verts;  ///< distinct input vertices in sorted order
  int count;
  const TPoint* points;  ///< what the caller gave, which vertices are copied from
  int pointCount;
  double unscale;  ///< leads from the coordinates of the build to those of the caller
};

/// Fills the outputs that the state names, and the triangle count. Throws OutOfMemory, and has
/// then written none of them. Without a triangle the arrays of triangles stay null. O(vertices).
void tri_Extract(const TrimakeState& state, const TResult& result, int* outTriangleCount);

}  // namespace zyl::geometry::internal
