#pragma once

// Orientation tests as the triangulator reads them, on vertices and points alike.
//
// Signs are exact. A coordinate that overflows a predicate gives NaN, which is neither clockwise,
// counterclockwise nor outside: callers have to end whichever way each test answers.

#include "predicates/predicates.h"
#include "trimake/records.h"

namespace zyl::geometry::internal {

/// Side of a point relative to a directed line; the values are compared by callers.
enum TSide { kOnLine = 0, kLeft = 1, kRight = 2 };

inline const double* Position(const TVertex* v) { return v->xy; }
inline const double* Position(const TPoint* p) { return &p->x; }

/// Whether a, b, c turn counterclockwise.
template <class A, class B, class C>
bool ccw(const A* a, const B* b, const C* c) {
  return orient2d(Position(a), Position(b), Position(c)) > 0;
}

/// Whether a, b, c turn clockwise.
template <class A, class B, class C>
bool cw(const A* a, const B* b, const C* c) {
  return orient2d(Position(a), Position(b), Position(c)) < 0;
}

/// kLeft if a, b, c turn counterclockwise, kRight if clockwise, kOnLine if neither.
template <class A, class B, class C>
TSide side(const A* a, const B* b, const C* c) {
  const double turn = orient2d(Position(a), Position(b), Position(c));
  return turn > 0 ? kLeft : turn < 0 ? kRight : kOnLine;
}

/// Whether d is on or outside the circle through a, b, c, which turn counterclockwise.
inline bool notInside(const TVertex* a, const TVertex* b, const TVertex* c, const TVertex* d) {
  return incircle(a->xy, b->xy, c->xy, d->xy) <= 0;
}

}  // namespace zyl::geometry::internal
