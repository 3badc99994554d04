#pragma once

// Points tagged with the polygon they belong to: grouped, triangulated and asked what lies inside,
// or measured. Plain records from malloc; nothing here throws, and no state is shared.

namespace zyl::geometry::internal {

struct tri_Polygon;

/// A point of a polygon set.
struct PolygonSetPoint {
  int polygonId;  ///< the caller's
  double x;
  double y;
  double z;
  int reserved;
  int polygonIndex;  ///< of the polygon it belongs to, once grouped; -1 before
  int reserved2;
  int reserved3;
};

/// Polygons, each a longest run of consecutive points with the same id; its points are its vertices
/// in order. An id that comes again after another one begins a further polygon.
struct PolygonSet {
  int pointCount;
  int capacity;  ///< of `points`
  PolygonSetPoint* points;
  int polygonCount;   ///< 0 until grouped
  int* polygonStart;  ///< index of the first point of each polygon; null until grouped
  int* polygonAux;    ///< reserved, -1 for each polygon; null until grouped
  int triangulationCount;
  tri_Polygon** triangulations;  ///< one a polygon, null where there is none
  int firstPolygonId;  ///< if the ids of the polygons count up from it, else or until grouped -1
};

/// A set with room for `capacity` points, or for 500 if that is less than 1. Null if there is no
/// memory for it.
PolygonSet* PolygonSet_Create(int capacity);

/// The set of a single query about so many vertices, with room for ten times as many: what is never
/// written to takes address space rather than memory. Null if there is no memory for it.
PolygonSet* PolygonSet_CreateFor(unsigned int vertices);

/// Releases the set and all it holds; null is ignored.
void PolygonSet_Free(PolygonSet* set);

/// Deleter for a std::unique_ptr.
struct PolygonSetRelease {
  void operator()(PolygonSet* set) const { PolygonSet_Free(set); }
};

/// Appends a point and discards the grouping. Returns 0, or 1 if memory runs out, with all points
/// so far kept.
int PolygonSet_AddPoint(PolygonSet* set, int polygonId, double x, double y, double z);

/// Finds the polygons. If memory runs out, or if there are no points, the set stays ungrouped.
void PolygonSet_Group(PolygonSet* set);

/// Groups the points and triangulates each polygon anew. A polygon that cannot be triangulated, for
/// whatever reason, has none; tri_Triangulate_Polygon lists the reasons.
void PolygonSet_Triangulate(PolygonSet* set);

/// Releases the triangulations.
void PolygonSet_FreeTriangulations(PolygonSet* set);

/// Index of the first point of the (first) polygon with this id, or -1; the number of the polygon
/// goes to `polygonIndexOut`, which is -1 if there is none or the set is not grouped. Constant time
/// if the ids of a grouped set are consecutive.
int PolygonSet_FindPolygon(const PolygonSet* set, int polygonId, int* polygonIndexOut);

/// 1 if the point lies in the polygon or on its boundary, else 0; 0 also if there is no such
/// polygon or it has no triangulation.
int PolygonSet_IsPointInside(PolygonSet* set, int polygonId, double x, double y, double z);

/// Area of the polygon in x-y, positive if it runs clockwise. A polygon whose last point does not
/// repeat the first lacks the contribution of the edge between them. 0 if there is no such polygon.
double PolygonSet_SignedArea(const PolygonSet* set, int polygonId);

/// 1 if the signed area is positive, else 0.
int PolygonSet_IsClockwise(const PolygonSet* set, int polygonId);

}  // namespace zyl::geometry::internal
