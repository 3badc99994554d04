#include "trimake/location.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>

#include "predicates/predicates.h"
#include "trimake/orientation.h"
#include "trimake/scan.h"

namespace zyl::geometry::internal {
namespace {

const TPoint& Corner(const tri_Polygon& polygon, int triangle, int k) {
  return polygon.vertices[polygon.triangles[3 * triangle + k] - 1];
}

// Edge k runs from corner k to this one.
int NextCorner(int k) { return k == 2 ? 0 : k + 1; }

// Whether the query point lies strictly on the outer, left-hand side of edge k. False if the
// predicate overflows.
bool IsBeyond(const tri_Polygon& polygon, int triangle, int k, const double* query) {
  return orient2d(&Corner(polygon, triangle, k).x, &Corner(polygon, triangle, NextCorner(k)).x,
                  query) > 0;
}

bool IsInRange(double value, std::initializer_list<double> ends) {
  const auto [least, greatest] = std::minmax(ends);
  return least <= value && value <= greatest;
}

// Whether the query point lies in the bounding box of the triangle. If it is beyond none of the
// edges this only fails where the triangle has no area, so that the point may be on its line far
// away, and where the predicate overflows.
bool IsInBox(const tri_Polygon& polygon, int triangle, const double* query) {
  const TPoint& a = Corner(polygon, triangle, 0);
  const TPoint& b = Corner(polygon, triangle, 1);
  const TPoint& c = Corner(polygon, triangle, 2);
  return IsInRange(query[0], {a.x, b.x, c.x}) && IsInRange(query[1], {a.y, b.y, c.y});
}

// The answer of a walk by looking at every triangle.
TWalk SearchAll(const tri_Polygon& polygon, const double* query) {
  for (int t = 0; t < polygon.triangleCount; ++t) {
    if (IsInBox(polygon, t, query) && !IsBeyond(polygon, t, 0, query) &&
        !IsBeyond(polygon, t, 1, query) && !IsBeyond(polygon, t, 2, query)) {
      return {t, false, true};
    }
  }
  return {0, true, true};
}

TWalk FindTriangle(const tri_Polygon& polygon, const double* query) {
  const TWalk walk = tri_Walk(polygon, query, polygon.lastTriangle);
  if (walk.finished && (walk.outside || IsInBox(polygon, walk.triangle, query))) {
    return walk;
  }
  return SearchAll(polygon, query);
}

struct Offset {
  double x;
  double y;
};

Offset Difference(const double* to, const double* from) {
  return {to[0] - from[0], to[1] - from[1]};
}

double Dot(const Offset& a, const Offset& b) { return a.x * b.x + a.y * b.y; }

bool IsOnEdge(const double* a, const double* b, const double* query) {
  return IsInRange(query[0], {a[0], b[0]}) && IsInRange(query[1], {a[1], b[1]}) &&
         orient2d(a, b, query) == 0;
}

// Exactly on the edge from a to b, or within a tolerance of it. That distance is a difference of
// rounded squares, which also comes out as 0 or less some way beside the edge: where there is no
// tolerance it is not asked. An edge of no length has nothing near it.
bool IsNearEdge(const double* a, const double* b, const double* query, double tolerance2) {
  if (IsOnEdge(a, b, query)) {
    return true;
  }
  const Offset e = Difference(b, a);
  const Offset w = Difference(query, a);
  const double u = Dot(w, e) / Dot(e, e);
  return tolerance2 > 0 && 0 <= u && u <= 1 && tolerance2 >= Dot(w, w) - u * Dot(w, e);
}

bool IsNearBoundary(const tri_Polygon& polygon, int triangle, const double* query,
                    double tolerance) {
  const double tolerance2 = tolerance * tolerance;
  for (int k = 0; k < 3; ++k) {
    const Offset w = Difference(&Corner(polygon, triangle, k).x, query);
    if (tolerance2 >= Dot(w, w)) {
      return true;
    }
  }
  for (int k = 0; k < 3; ++k) {
    if (IsBoundary(polygon.edgeInfo[3 * triangle + k]) &&
        IsNearEdge(&Corner(polygon, triangle, k).x, &Corner(polygon, triangle, NextCorner(k)).x,
                   query, tolerance2)) {
      return true;
    }
  }
  return false;
}

// Whether the edge from a to b crosses the ray that runs from the query point to the right. Just
// one end has to be above the ray, so that a corner on it counts once for each edge that rises from
// it.
bool CrossesRay(const double* a, const double* b, const double* query) {
  const bool rises = b[1] > query[1];
  if (rises == (a[1] > query[1])) {
    return false;
  }
  return rises ? orient2d(a, b, query) > 0 : orient2d(a, b, query) < 0;
}

bool AreInLine(const double* a, const double* b, const double* c) { return orient2d(a, b, c) == 0; }

// The answer from the boundary alone, without the triangles: inside is what an odd number of edges
// separates from far away. O(boundary).
int LocateByCrossings(const tri_Polygon& polygon, const double* query, double tolerance) {
  const double tolerance2 = tolerance * tolerance;
  bool inside = false;
  TEdgesAtPoint atQuery(&AreInLine);
  for (int i = 0; i < polygon.boundaryCount; ++i) {
    const double* const b = &polygon.boundary[i].x;
    const Offset w = Difference(b, query);
    if (tolerance2 >= Dot(w, w)) {
      return kOnBoundary;
    }
    if (polygon.boundary[i].flag != 0) {
      continue;
    }
    const double* const a = &polygon.boundary[i - 1].x;
    if (IsNearEdge(a, b, query, tolerance2)) {
      atQuery.Add(a, b);
    }
    inside = inside != CrossesRay(a, b, query);
  }
  if (atQuery.AreBoundary()) {
    return kOnBoundary;
  }
  return inside ? kInside : kOutside;
}

// Where the line through a local point along a world direction meets the plane.
void SlideIntoPlane(const TMatrix& m, const double* d, double* q) {
  double x = m[0] * d[0] + m[4] * d[1] + m[8] * d[2];
  double y = m[1] * d[0] + m[5] * d[1] + m[9] * d[2];
  double z = m[2] * d[0] + m[6] * d[1] + m[10] * d[2];
  const double length = std::sqrt(x * x + y * y + z * z);
  if (length == 0) {
    return;
  }
  x /= length;
  y /= length;
  z /= length;
  if (z == 0) {
    return;
  }
  const double s = -q[2] / z;
  q[0] += s * x;
  q[1] += s * y;
}

}  // namespace

TWalk tri_Walk(const tri_Polygon& polygon, const double* query, int start) {
  constexpr int kOrder[3] = {2, 0, 1};
  int t = start;
  for (int steps = 0; steps < polygon.triangleCount; ++steps) {
    bool outside = false;
    int next = -1;
    for (int i = 0; i < 3 && next < 0; ++i) {
      if (IsBeyond(polygon, t, kOrder[i], query)) {
        next = polygon.neighbours[3 * t + kOrder[i]] - 1;
        outside = outside || next < 0;
      }
    }
    if (next < 0) {
      return {t, outside, true};
    }
    t = next;
  }
  return {t, false, false};
}

int tri_Locate_Point(tri_Polygon* polygon, const double* point, const double* direction,
                     double tolerance) {
  const TMatrix& m = polygon->toLocal;
  double query[3];
  for (std::size_t j = 0; j < 3; ++j) {
    query[j] = m[j] * point[0] + m[4 + j] * point[1] + m[8 + j] * point[2] + m[12 + j];
  }
  if (direction != nullptr) {
    SlideIntoPlane(m, direction, query);
  }
  if (!std::isfinite(query[0]) || !std::isfinite(query[1])) {
    return kOutside;
  }
  if (polygon->boundary != nullptr) {
    return LocateByCrossings(*polygon, query, tolerance);
  }
  const TWalk found = FindTriangle(*polygon, query);
  polygon->lastTriangle = found.triangle;
  if (IsNearBoundary(*polygon, found.triangle, query, tolerance)) {
    return kOnBoundary;
  }
  return !found.outside && polygon->inside[found.triangle] != 0 ? kInside : kOutside;
}

bool tri_Are_In_Line(const double* a, const double* b, const double* c) {
  const double zx[3][2] = {{a[2], a[0]}, {b[2], b[0]}, {c[2], c[0]}};
  return orient2d(a, b, c) == 0 && orient2d(a + 1, b + 1, c + 1) == 0 &&
         orient2d(zx[0], zx[1], zx[2]) == 0;
}

}  // namespace zyl::geometry::internal
