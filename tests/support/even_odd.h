#pragma once

// Where a point lies relative to a ring in the plane, by the even-odd rule and exact arithmetic.

#include <algorithm>
#include <vector>

#include "support/exact.h"

namespace exact {

using Point2 = std::array<double, 2>;
using Ring2 = std::vector<Point2>;  // the last point is joined to the first

enum class Place { kOutside, kBoundary, kInside };

inline bool IsOnSegment(const Point2& a, const Point2& b, const Point2& q) {
  const auto [left, right] = std::minmax(a[0], b[0]);
  const auto [bottom, top] = std::minmax(a[1], b[1]);
  return left <= q[0] && q[0] <= right && bottom <= q[1] && q[1] <= top &&
         Orient2D(a.data(), b.data(), q.data()) == 0;
}

/// Whether the two segments cross at one point that is an end of neither.
inline bool CrossProperly(const Point2& a, const Point2& b, const Point2& c, const Point2& d) {
  const int cSide = Orient2D(a.data(), b.data(), c.data());
  const int dSide = Orient2D(a.data(), b.data(), d.data());
  const int aSide = Orient2D(c.data(), d.data(), a.data());
  const int bSide = Orient2D(c.data(), d.data(), b.data());
  return cSide * dSide < 0 && aSide * bSide < 0;
}

/// On the boundary is a vertex, where two edges cross, and what lies on an odd number of edges: a
/// piece that the ring runs along twice separates nothing from nothing. Everything else is inside
/// if a ray from it to the right crosses an odd number of edges, those with just one end above the
/// ray.
inline Place EvenOdd(const Ring2& ring, const Point2& q) {
  bool inside = false;
  bool onEdge = false;
  const Point2* last[2] = {nullptr, nullptr};  // the last edge that holds q
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point2& a = ring[i];
    const Point2& b = ring[(i + 1) % ring.size()];
    if (a == q) {
      return Place::kBoundary;
    }
    if (IsOnSegment(a, b, q)) {
      if (last[0] != nullptr && CrossProperly(*last[0], *last[1], a, b)) {
        return Place::kBoundary;
      }
      last[0] = &a;
      last[1] = &b;
      onEdge = !onEdge;
    } else if ((a[1] > q[1]) != (b[1] > q[1])) {
      const bool upward = b[1] > a[1];
      const int side = Orient2D(a.data(), b.data(), q.data());
      inside = inside != (upward ? side > 0 : side < 0);
    }
  }
  return onEdge ? Place::kBoundary : inside ? Place::kInside : Place::kOutside;
}

/// Whether not all points of the ring are on one line.
inline bool HasArea(const Ring2& ring) {
  for (std::size_t i = 0; i < ring.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (Orient2D(ring[0].data(), ring[j].data(), ring[i].data()) != 0) {
        return true;
      }
    }
  }
  return false;
}

/// Whether q is on an edge that another one crosses. Where boundaries cross, a polygon has a corner
/// that is rounded, and both edges run through it: the oracle does not know of that.
inline bool IsOnCrossedEdge(const Ring2& ring, const Point2& q) {
  const std::size_t n = ring.size();
  for (std::size_t i = 0; i < n; ++i) {
    const Point2 &a = ring[i], &b = ring[(i + 1) % n];
    for (std::size_t j = 0; IsOnSegment(a, b, q) && j < n; ++j) {
      if (CrossProperly(a, b, ring[j], ring[(j + 1) % n])) {
        return true;
      }
    }
  }
  return false;
}

}  // namespace exact
