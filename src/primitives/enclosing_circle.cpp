#include "zyl/geometry/enclosing_circle.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "zyl/geometry/polyline3d.h"

namespace zyl::geometry {

namespace {

constexpr double kMaxDouble = std::numeric_limits<double>::max();
// Distance from the centre, in radii, up to which a point counts as covered.
constexpr double kCovered = 1.00000000001;

double Distance(const Coord2D& p, const Coord2D& q) {
  const double dx = q.x - p.x;
  const double dy = q.y - p.y;
  return std::sqrt(dy * dy + dx * dx);
}

double DistanceFromCentre(const EncCircle& circle, const Coord2D& p) {
  return Distance(Coord2D(circle.x, circle.y), p);
}

EncCircle CircleOfTwo(const Coord2D& p, const Coord2D& q) {
  return {(p.x + q.x) * 0.5, (p.y + q.y) * 0.5, Distance(p, q) * 0.5};
}

// The smallest circle that contains the three: over the longest side, unless the triangle is acute.
EncCircle CircleOfThree(const Coord2D& a, const Coord2D& b, const Coord2D& c) {
  const double ab = Distance(a, b);
  const double ac = Distance(a, c);
  const double bc = Distance(b, c);
  const double ab2 = ab * ab;
  const double ac2 = ac * ac;
  const double bc2 = bc * bc;
  if (ac == 0.0 || ab == 0.0 || bc2 >= ab2 + ac2) {
    return CircleOfTwo(b, c);
  }
  if (ac2 >= ab2 + bc2) {
    return CircleOfTwo(a, c);
  }
  if (ab2 >= ac2 + bc2) {
    return CircleOfTwo(a, b);
  }
  const Coord2D toB(b.x - a.x, b.y - a.y);
  const Coord2D toC(c.x - a.x, c.y - a.y);
  const double d = 2.0 * (toC.y * toB.x - toC.x * toB.y);
  EncCircle circle;
  circle.x = a.x + (toC.y * ab2 - toB.y * ac2) / d;
  circle.y = a.y + (toB.x * ac2 - toC.x * ab2) / d;
  circle.radius = DistanceFromCentre(circle, a);
  return circle;
}

// Four of the points, one of which every round replaces.
using Support = std::array<const Point3D*, 4>;

// The first of those of smallest x, of largest x, of smallest y and of largest y.
Support ExtremePoints(const std::vector<Point3D>& points) {
  Support support;
  support.fill(points.data());
  double minX = kMaxDouble;
  double maxX = -kMaxDouble;
  double minY = kMaxDouble;
  double maxY = -kMaxDouble;
  for (const Point3D& p : points) {
    if (p.x < minX) {
      minX = p.x;
      support[0] = &p;
    }
    if (p.x > maxX) {
      maxX = p.x;
      support[1] = &p;
    }
    if (p.y < minY) {
      minY = p.y;
      support[2] = &p;
    }
    if (p.y > maxY) {
      maxY = p.y;
      support[3] = &p;
    }
  }
  return support;
}

// By what the circle of four points is told from those of three of them.
enum class Choice {
  kLargest,       // which it is, but a point a little outside may not show in the radius
  kLeastOutside,  // the fourth point is not outside
};

// Circle of the support. `spare` becomes the index of the point that it is not made from.
EncCircle CircleOfFour(const Support& support, Choice choice, std::size_t& spare) {
  std::array<Coord2D, 4> s;
  for (std::size_t i = 0; i < s.size(); ++i) {
    s[i] = {support[i]->x, support[i]->y};
  }
  const std::array<EncCircle, 4> without = {
      CircleOfThree(s[1], s[2], s[3]), CircleOfThree(s[0], s[2], s[3]),
      CircleOfThree(s[0], s[1], s[3]), CircleOfThree(s[0], s[1], s[2])};
  spare = 0;
  double best = choice == Choice::kLargest ? 0.0 : -kMaxDouble;
  for (std::size_t i = 0; i < s.size(); ++i) {
    const double merit = choice == Choice::kLargest
                             ? without[i].radius
                             : without[i].radius - DistanceFromCentre(without[i], s[i]);
    if (merit > best) {
      best = merit;
      spare = i;
    }
  }
  return without[spare];
}

struct Farthest {
  const Point3D* point = nullptr;
  double distance = -kMaxDouble;
};

// The first of the points farthest from the centre. Distances that are NaN do not count. A root is
// taken only where the square beats all before it; squares that differ may have the same root, and
// then the first stays.
Farthest FindFarthest(const std::vector<Point3D>& points, const EncCircle& circle) {
  Farthest farthest;
  double largestSquare = -1.0;
  for (const Point3D& p : points) {
    const double dx = p.x - circle.x;
    const double dy = p.y - circle.y;
    const double square = dy * dy + dx * dx;
    if (square > largestSquare) {
      largestSquare = square;
      const double distance = std::sqrt(square);
      if (distance > farthest.distance) {
        farthest = {&p, distance};
      }
    }
  }
  return farthest;
}

struct Attempt {
  EncCircle circle;
  double outside = std::numeric_limits<double>::quiet_NaN();  // how far, of the farthest point
  bool covers = false;
};

// Puts the point farthest outside in the place of the spare one, until none is outside.
//
// The exact circle grows with every round, so that no support comes twice. Where rounding hides the
// growth one may; it would then come again for ever, and the circle that left the least outside is
// returned. The supports of rounds 1, 2, 4, 8... are kept to be compared with (R. P. Brent, An
// improved Monte Carlo factorization algorithm, 1980), but nearly always it is the very last one
// that comes again: the point farthest outside is the spare one itself.
Attempt Enclose(const std::vector<Point3D>& points, Choice choice, Support& support) {
  Attempt best;
  Support kept = support;
  for (unsigned int round = 1;; ++round) {
    std::size_t spare = 0;
    const EncCircle circle = CircleOfFour(support, choice, spare);
    const Farthest farthest = FindFarthest(points, circle);
    const double outside = farthest.distance - circle.radius;
    if (!(farthest.distance > circle.radius * kCovered)) {
      return {circle, outside, true};
    }
    if (!(outside >= best.outside)) {
      best = {circle, outside, false};
    }
    Support next = support;
    next[spare] = farthest.point;
    if (next == support || next == kept) {
      return best;
    }
    if ((round & (round - 1)) == 0) {
      kept = support;
    }
    support = next;
  }
}

// The largest circle is found at once for almost all points. Two things may hold up the search. Far
// from the origin no centre can be written down so finely that its circle covers its own support;
// then the answer is as good as the coordinates allow. But a point outside by up to the square root
// of the precision also adds nothing to the radius that can be seen; the other choice takes it in.
EncCircle CircleOfMany(const std::vector<Point3D>& points) {
  Support support = ExtremePoints(points);
  const Attempt largest = Enclose(points, Choice::kLargest, support);
  if (largest.covers) {
    return largest.circle;
  }
  const Attempt leastOutside = Enclose(points, Choice::kLeastOutside, support);
  return leastOutside.outside < largest.outside ? leastOutside.circle : largest.circle;
}

}  // namespace

EncCircle SmallestEnclosingCircle(const std::vector<Point3D>& points) {
  const auto at = [&points](std::size_t i) { return Coord2D(points[i].x, points[i].y); };
  switch (points.size()) {
    case 0:
      return {};
    case 1:
      return {points[0].x, points[0].y, 0.0};
    case 2:
      return CircleOfTwo(at(0), at(1));
    case 3:
      return CircleOfThree(at(0), at(1), at(2));
    default:
      return CircleOfMany(points);
  }
}

EncCircle SmallestEnclosingCircle(const Polyline3D& polyline) {
  return SmallestEnclosingCircle(polyline.GetPointVector());
}

EncCircle SmallestEnclosingCircle(unsigned int count, double* const x, double* const y,
                                  double* const z) {
  return SmallestEnclosingCircle(Polyline3D(count, x, y, z));
}

EncCircle SmallestEnclosingCircle(unsigned int count, const Point3D* const points) {
  return SmallestEnclosingCircle(Polyline3D(count, points));
}

}  // namespace zyl::geometry
