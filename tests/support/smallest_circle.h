#pragma once

// The smallest circle round a few points, in x-y, by trying all pairs and triples in rational
// arithmetic (GMP).

#include <gmpxx.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "zyl/geometry/coord.h"

namespace exact {

using zyl::geometry::Point3D;

struct Circle {
  mpq_class x, y, squaredRadius;
};

inline mpq_class SquaredDistance(const Circle& c, const Point3D& p) {
  const mpq_class dx = p.x - c.x, dy = p.y - c.y;
  return dx * dx + dy * dy;
}

/// Over a and b if c is one of them or in line with them.
inline Circle Through(const Point3D& a, const Point3D& b, const Point3D& c) {
  const mpq_class bx = mpq_class(b.x) - a.x, by = mpq_class(b.y) - a.y;
  const mpq_class cx = mpq_class(c.x) - a.x, cy = mpq_class(c.y) - a.y;
  const mpq_class d = 2 * (bx * cy - by * cx);
  Circle circle{(mpq_class(a.x) + b.x) / 2, (mpq_class(a.y) + b.y) / 2, 0};
  if (d != 0) {
    const mpq_class b2 = bx * bx + by * by, c2 = cx * cx + cy * cy;
    circle.x = a.x + (cy * b2 - by * c2) / d;
    circle.y = a.y + (bx * c2 - cx * b2) / d;
  }
  circle.squaredRadius = SquaredDistance(circle, a);
  return circle;
}

/// Of the circles through two or three of the points, the radius of the smallest that holds all.
inline double SmallestRadius(const std::vector<Point3D>& points) {
  mpq_class smallest = -1;
  for (auto a = points.begin(); a != points.end(); ++a) {
    for (auto b = points.begin(); b <= a; ++b) {
      for (auto c = points.begin(); c <= b; ++c) {
        const Circle circle = Through(*a, *b, *c);
        if ((smallest < 0 || circle.squaredRadius < smallest) &&
            std::all_of(points.begin(), points.end(), [&circle](const Point3D& p) {
              return SquaredDistance(circle, p) <= circle.squaredRadius;
            })) {
          smallest = circle.squaredRadius;
        }
      }
    }
  }
  return std::sqrt(smallest.get_d());
}

}  // namespace exact
