#pragma once

// The two triangles beside an edge.

#include "trimake/orientation.h"

namespace zyl::geometry::internal {

/// The corners, counterclockwise, around the half-edge `edge` from `left` to `right`.
///
///         right
///        /  |  \       Seen along the edge, `beyond` is to the left and `before` to the right: a
///    beyond |  before  segment across the edge from its right enters by `before`. At the border
///        \  |  /       of the triangulation, and beside a hole that a damaged ring has, one of
///          left        the triangles is none.
struct TQuadrilateral {
  TEdge* edge;
  TVertex* left;
  TVertex* before;
  TVertex* right;
  TVertex* beyond;

  explicit TQuadrilateral(TEdge* e)
      : edge(e),
        left(e->twin->dest),
        before(e->prev->dest),
        right(e->dest),
        beyond(e->next->dest) {}

  /// Whether both triangles are there, going by the rings at the ends of the edge.
  bool IsWhole() const {
    return edge->twin->prev->dest == beyond && edge->twin->next->dest == before;
  }

  /// Whether the other diagonal would make two counterclockwise triangles.
  bool IsConvex() const { return ccw(beyond, left, before) && ccw(beyond, before, right); }

  /// Whether w would make four counterclockwise triangles with the sides.
  bool IsSeenFrom(const TPoint& w) const {
    return ccw(&w, left, before) && ccw(&w, before, right) && ccw(&w, right, beyond) &&
           ccw(&w, beyond, left);
  }
};

}  // namespace zyl::geometry::internal
