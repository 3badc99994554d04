#pragma once

// Delaunay triangulation of points in the x-y plane, with breaklines: the entry of the engine, its
// driver and its one setting.

#include "trimake/records.h"

namespace zyl::geometry::internal {

/// Result codes of tri_Triangulate; callers compare the values.
constexpr int kTriangulated = 0;
constexpr int kNotTriangulated = -1;  // too few distinct points, no memory, or not constructible
constexpr int kNotANumber = -3;       // an x or a y is NaN

/// Switches the messages to standard output off (non-zero) or on, for the calling thread.
void tri_SetQuiet(int on);

/// Delaunay triangulation of the distinct x-y positions of n points, with the segments from every
/// point of flag 0 to its predecessor forced in as edges.
///
/// Points at most 1e-8 apart are one vertex. Every output may be null and is then not produced;
/// the others are zero or null unless the result is 0. The caller frees each array with free().
///
/// - outVertices: the vertices, sorted by x then y, and behind them those made where breaklines
///   cross.
/// - outTriangles: three 1-based vertex numbers a triangle, clockwise (y pointing up).
/// - outEdgeInfo: three TEdgeInfo a triangle, with the lists of segments behind them.
/// - outNeighbours: three 1-based triangle numbers a triangle, across edge k, or 0; needs
///   outTriangles and outTriangleCount.
///
/// Returns 0, also for n < 3, which produces nothing; -1 if fewer than three points are distinct,
/// a coordinate is infinite, the construction fails or memory runs out (reported on standard
/// error, even when quiet); -3 if an x or a y is NaN. Never throws. A breakline that cannot be
/// inserted is reported on standard output and does not change the result. If all points lie on
/// one line there is no triangle, and the result is 0.
int tri_Triangulate(int n, const TPoint* points, int* outTriangleCount, int* outVertexCount,
                    TPoint** outVertices, int** outTriangles, void** outEdgeInfo,
                    int** outNeighbours, double nearTolerance, double relativeTolerance);

/// The driver behind tri_Triangulate: takes the other outputs from the state of the thread.
int tri_Create_Delaunay(int n, const TPoint* points, int* outTriangleCount, double nearTolerance,
                        double relativeTolerance);

}  // namespace zyl::geometry::internal
