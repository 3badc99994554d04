#pragma once

// A polygon, triangulated in its own plane with every triangle marked as inside or outside. Point
// location (location.h) reads it.

#include "trimake/local_frame.h"
#include "trimake/records.h"

namespace zyl::geometry::internal {

/// Triangulated polygon. Made by tri_Triangulate_Polygon; the arrays come from malloc.
struct tri_Polygon {
  int triangleCount;
  int vertexCount;
  TPoint* vertices;     ///< in local coordinates, z = 0
  int* triangles;       ///< three 1-based vertex numbers a triangle, clockwise
  TEdgeInfo* edgeInfo;  ///< three a triangle: boundary segments along edge k, corner k to k + 1
  int* neighbours;      ///< three 1-based triangle numbers a triangle, across edge k, or 0
  int* inside;          ///< 1 inside the polygon, 0 outside, -1 not reached
  TMatrix toLocal;
  int lastTriangle;   ///< where the next location starts
  int boundaryCount;  ///< points in `boundary`
  TPoint* boundary;   ///< closed chains, local, where the triangles cannot be relied on; else null
};

/// Triangulates the polygon that the points outline.
///
/// A point with flag 0 is joined to the one before it, any other begins a further chain; each chain
/// is closed if it does not end where it began. Boundaries may cross, touch and run over each
/// other: inside is what an odd number of them separates from far away. The plane is the best-fit
/// plane of the points, or has the given normal if that is not null.
///
/// Returns null if count < 1, if fewer than three points are distinct in that plane or all are on
/// one line, if a coordinate is NaN or infinite, if the triangulation fails, or if memory runs out.
/// `error` is set to 0 in every case. Never throws. O(n log n) if few segments cross or overlap.
tri_Polygon* tri_Triangulate_Polygon(int count, const TPoint* points, const double* normal,
                                     int* error);

/// Releases the polygon and its arrays; null is ignored.
void tri_Free_Polygon(tri_Polygon* polygon);

}  // namespace zyl::geometry::internal
