#pragma once

// Distances of points, segments and triangles in long double: the oracle for nearest points.
//
// Point to segment is the clamped foot. The rest is searched: the distance to a straight set is a
// convex function of where a point, or a chord of the triangle, stands, and its least value is
// narrowed down by thirds. Slow, sure, and unlike the library, which solves equations.

#include <algorithm>
#include <cmath>

#include "zyl/geometry/segment.h"
#include "zyl/geometry/triangle.h"

namespace wide {

struct Point {
  long double x, y, z;
  Point(long double x_, long double y_, long double z_) : x(x_), y(y_), z(z_) {}
  Point(const zyl::geometry::Coord3D& c) : Point(c.x, c.y, c.z) {}
  Point(const zyl::geometry::Point3D& p) : Point(p.x, p.y, p.z) {}
};

struct Segment {
  Point start, end;
  Segment(const Point& start_, const Point& end_) : start(start_), end(end_) {}
  Segment(const zyl::geometry::Segment& s) : Segment(s.start, s.end) {}
};

inline Point Between(const Point& a, const Point& b, long double t) {
  return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y), a.z + t * (b.z - a.z)};
}

inline long double Dot(const Point& from, const Point& a, const Point& b) {
  return (a.x - from.x) * (b.x - from.x) + (a.y - from.y) * (b.y - from.y) +
         (a.z - from.z) * (b.z - from.z);
}

inline double Distance(const Point& a, const Point& b) {
  return static_cast<double>(std::sqrt(Dot(a, b, b)));
}

inline double Distance(const Point& p, const Segment& s) {
  const long double squaredLength = Dot(s.start, s.end, s.end);
  const long double t = squaredLength > 0 ? Dot(s.start, p, s.end) / squaredLength : 0;
  return Distance(p, Between(s.start, s.end, std::clamp(t, 0.0L, 1.0L)));
}

/// Least value of a convex function between 0 and 1.
template <typename Function>
double Least(Function f) {
  long double low = 0;
  long double high = 1;
  for (int i = 0; i < 100; ++i) {
    const long double third = (high - low) / 3;
    if (f(low + third) < f(high - third)) {
      high -= third;
    } else {
      low += third;
    }
  }
  return f(low);
}

inline double Distance(const Segment& one, const Segment& other) {
  return Least([&](long double t) { return Distance(Between(one.start, one.end, t), other); });
}

/// From a point or a segment: by way of the chords parallel to p1→p2.
template <typename From>
double Distance(const From& from, const zyl::geometry::Triangle& triangle) {
  return Least([&](long double t) {
    return Distance(
        from, Segment(Between(triangle.p0, triangle.p1, t), Between(triangle.p0, triangle.p2, t)));
  });
}

}  // namespace wide
