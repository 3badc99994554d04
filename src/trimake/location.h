#pragma once

// Where a point lies relative to a triangulated polygon.

#include "trimake/polygon.h"

namespace zyl::geometry::internal {

/// Results of tri_Locate_Point; callers compare the values.
constexpr int kInside = 1;
constexpr int kOnBoundary = 0;
constexpr int kOutside = -1;

/// Where a walk came to its end.
struct TWalk {
  int triangle;   ///< holds the query point, unless `outside` is set
  bool outside;   ///< the query point lies beyond a hull edge of the triangle
  bool finished;  ///< false: given up after as many steps as there are triangles
};

/// Walks from triangle `start` towards the query point (x, y, local), leaving each triangle across
/// the first edge that has the point beyond it.
///
/// The edges are looked at in the order C→A, A→B, B→C of the corners, A being the lowest-numbered.
/// On a Delaunay triangulation any order arrives; where constraints keep edges that are not
/// Delaunay, a walk may come round in a circle (O. Devillers, S. Pion and M. Teillaud, "Walking in
/// a triangulation", 2002). A→B, B→C, C→A does so on rings like pinwheels, this order only on
/// worse.
TWalk tri_Walk(const tri_Polygon& polygon, const double* query, int start);

/// kInside, kOnBoundary or kOutside for a point in space, projected into the polygon's plane along
/// `direction`, or at right angles if that is null, zero or lies in the plane.
///
/// On the boundary is what lies exactly on a boundary edge or a vertex of the triangle that holds
/// the point, or within `tolerance`, if that is not 0, of one. A point with a coordinate that is
/// NaN or infinite is outside.
///
/// Where triangles are turned over or their marks contradict each other, crossings of the boundary
/// are counted instead, exactly. Remembers the triangle for the next call, and so must not run on
/// several threads for one polygon. Allocates nothing. O(triangles between the last point and this
/// one) and, if the walk gives up, O(triangles); O(boundary) where crossings are counted.
int tri_Locate_Point(tri_Polygon* polygon, const double* point, const double* direction,
                     double tolerance);

/// The edges of a boundary that hold one point, and whether they make that a point of the boundary:
/// they do where two of them cross, and else if their number is odd, for an edge that the boundary
/// runs along twice is none. Keeps the addresses of the last edge's ends.
class TEdgesAtPoint {
 public:
  using InLine = bool(const double* a, const double* b, const double* c);

  explicit TEdgesAtPoint(InLine* areInLine) : areInLine_(areInLine) {}

  void Add(const double* a, const double* b) {
    areCrossing_ =
        areCrossing_ || (a_ != nullptr && !(areInLine_(a_, b_, a) && areInLine_(a_, b_, b)));
    isOdd_ = !isOdd_;
    a_ = a;
    b_ = b;
  }

  bool AreBoundary() const { return areCrossing_ || isOdd_; }

 private:
  InLine* areInLine_;
  const double* a_ = nullptr;
  const double* b_ = nullptr;
  bool areCrossing_ = false;
  bool isOdd_ = false;
};

/// Whether three points in space are in line, exactly: they are if their shadows along all three
/// axes are. False if a predicate overflows. Needs a triangulation to have been built before, which
/// makes the predicates exact.
bool tri_Are_In_Line(const double* a, const double* b, const double* c);

}  // namespace zyl::geometry::internal
