// The smallest enclosing circle of any points has to come to an end; of points with small integer
// coordinates it has to be the smallest one, as trying all pairs and triples finds it.

#include <algorithm>
#include <cmath>
#include <vector>

#include "input.h"
#include "zyl/geometry/coord.h"
#include "zyl/geometry/enclosing_circle.h"
#include "zyl/geometry/polyline3d.h"

namespace {

using namespace zyl::geometry;

constexpr int kMostPoints = 14;  // all triples are tried

struct Disc {
  long double x;
  long double y;
  long double radius;
};

long double DistanceFrom(const Disc& disc, const Point3D& p) {
  return std::hypot(p.x - disc.x, p.y - disc.y);
}

bool Holds(const Disc& disc, const std::vector<Point3D>& points) {
  return std::all_of(points.begin(), points.end(), [&](const Point3D& p) {
    return DistanceFrom(disc, p) <= disc.radius * (1 + 1e-15L) + 1e-15L;
  });
}

Disc Through(const Point3D& p, const Point3D& q) {
  Disc disc{(p.x + q.x) / 2.0L, (p.y + q.y) / 2.0L, 0};
  disc.radius = DistanceFrom(disc, p);
  return disc;
}

Disc Through(const Point3D& a, const Point3D& b, const Point3D& c) {
  const long double bx = b.x - a.x;
  const long double by = b.y - a.y;
  const long double cx = c.x - a.x;
  const long double cy = c.y - a.y;
  const long double d = 2 * (bx * cy - by * cx);
  const long double b2 = bx * bx + by * by;
  const long double c2 = cx * cx + cy * cy;
  Disc disc{a.x + (cy * b2 - by * c2) / d, a.y + (bx * c2 - cx * b2) / d, 0};
  disc.radius = DistanceFrom(disc, a);
  return disc;
}

// Radius of the smallest disc that holds all points: one through two or three of them.
long double SmallestRadius(const std::vector<Point3D>& points) {
  long double smallest = INFINITY;
  const auto consider = [&](const Disc& disc) {
    if (disc.radius < smallest && Holds(disc, points)) {
      smallest = disc.radius;
    }
  };
  for (const Point3D& p : points) {
    for (const Point3D& q : points) {
      consider(Through(p, q));
      for (const Point3D& r : points) {
        consider(Through(p, q, r));
      }
    }
  }
  return smallest;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const bool isSmall = input.Byte() % 2 == 0;
  input.DrawKind();
  const std::size_t most = isSmall ? kMostPoints : 400;
  std::vector<Point3D> points;
  while (input.Left() > 0 && points.size() < most) {
    const double x = isSmall ? input.SmallInteger() : input.Coordinate();
    const double y = isSmall ? input.SmallInteger() : input.Coordinate();
    points.emplace_back(x, y, 0.0);
  }
  const EncCircle circle = SmallestEnclosingCircle(points);
  if (isSmall && !points.empty()) {
    FUZZ_CHECK(std::fabs(circle.radius - static_cast<double>(SmallestRadius(points))) <= 1e-9);
    const Disc disc{circle.x, circle.y, circle.radius + 1e-9};
    FUZZ_CHECK(Holds(disc, points));
  }
  return 0;
}
