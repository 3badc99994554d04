#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <set>

#include "zyl/geometry/geom.h"
#include "zyl/geometry/plane.h"
#include "zyl/geometry/segment.h"

namespace {

using namespace zyl::geometry;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class GeomIntersection : public ::testing::Test {
 protected:
  void SetUp() override { geom_Init(); }
};

bool SamePoint(const Intersection& i, double x, double y) {
  return i.point.x == x && i.point.y == y;
}

// How two edges between integer points meet, from the parameters s and t at which their lines do:
// no orientation test and no box. Parameters are fractions of `whole`.
struct Meeting {
  Intersection2D_e how = INTERSECT2D_NONE;
  double x = 0, y = 0;  // where, if in one point
};

struct IntegerPoint {
  int x, y;
};

int Cross(IntegerPoint u, IntegerPoint v) { return u.x * v.y - u.y * v.x; }
int Dot(IntegerPoint u, IntegerPoint v) { return u.x * v.x + u.y * v.y; }
IntegerPoint operator-(IntegerPoint p, IntegerPoint q) { return {p.x - q.x, p.y - q.y}; }

Meeting AlongOneLine(IntegerPoint a, IntegerPoint b, IntegerPoint c, IntegerPoint d) {
  const int whole = Dot(b - a, b - a);
  const int atC = Dot(c - a, b - a), atD = Dot(d - a, b - a);
  const int low = std::max(0, std::min(atC, atD)), high = std::min(whole, std::max(atC, atD));
  if (low > high) {
    return {};
  }
  if (low == high) {
    return low == 0 ? Meeting{INTERSECT2D_SHARED_FIRST_START, 1.0 * a.x, 1.0 * a.y}
                    : Meeting{INTERSECT2D_SHARED_FIRST_END, 1.0 * b.x, 1.0 * b.y};
  }
  const bool all = low == 0 && high == whole;
  const bool allOfSecond = low == std::min(atC, atD) && high == std::max(atC, atD);
  return {all           ? INTERSECT2D_FIRST_ON_SECOND
          : allOfSecond ? INTERSECT2D_SECOND_ON_FIRST
                        : INTERSECT2D_OVERLAP};
}

Meeting HowTheyMeet(IntegerPoint a, IntegerPoint b, IntegerPoint c, IntegerPoint d) {
  const IntegerPoint u = b - a, v = d - c, w = c - a;
  if (Dot(u, u) == 0 || Dot(v, v) == 0) {
    return {};
  }
  int whole = Cross(u, v);
  if (whole == 0) {
    return Cross(u, w) == 0 ? AlongOneLine(a, b, c, d) : Meeting{};
  }
  const int sign = whole > 0 ? 1 : -1;
  const int s = sign * Cross(w, v), t = sign * Cross(w, u);
  whole *= sign;
  if (s < 0 || s > whole || t < 0 || t > whole) {
    return {};
  }
  const bool atStart = s == 0, atEnd = s == whole, atC = t == 0, atD = t == whole;
  const Intersection2D_e how =
      atStart ? (atC || atD ? INTERSECT2D_SHARED_FIRST_START : INTERSECT2D_FIRST_START)
      : atEnd ? (atC || atD ? INTERSECT2D_SHARED_FIRST_END : INTERSECT2D_FIRST_END)
      : atC   ? INTERSECT2D_SECOND_START
      : atD   ? INTERSECT2D_SECOND_END
              : INTERSECT2D_CROSSING;
  return {how, a.x + u.x * (1.0 * s / whole), a.y + u.y * (1.0 * s / whole)};
}

bool IsOnePoint(Intersection2D_e how) {
  return how == INTERSECT2D_CROSSING ||
         (how >= INTERSECT2D_FIRST_START && how <= INTERSECT2D_SHARED_FIRST_END);
}

// All 390625 pairs of edges on a grid of 5 by 5, those without length among them.
TEST_F(GeomIntersection, EveryPairOfEdgesOnAGridIsClassified) {
  const Intersection untouched(-7, -7, -7, -7);
  std::set<Intersection2D_e> seen;
  for (int pair = 0; pair < 390625; ++pair) {
    IntegerPoint p[4];
    Coord3D q[4];
    for (int i = 0, rest = pair; i < 4; ++i, rest /= 25) {
      p[i] = {rest % 5, rest / 5 % 5};
      q[i] = Coord3D(p[i].x, p[i].y, i * 100);
    }
    const Meeting expected = HowTheyMeet(p[0], p[1], p[2], p[3]);
    Intersection out = untouched;
    ASSERT_EQ(geom_EdgeIntersectEdge2D(q[0], q[1], q[2], q[3], out, 0), expected.how) << pair;
    if (expected.how == INTERSECT2D_CROSSING) {
      ASSERT_NEAR(out.point.x, expected.x, 2e-15) << pair;
      ASSERT_NEAR(out.point.y, expected.y, 2e-15) << pair;
    } else if (IsOnePoint(expected.how)) {
      ASSERT_TRUE(SamePoint(out, expected.x, expected.y)) << pair;
    } else {
      ASSERT_TRUE(SamePoint(out, -7, -7)) << pair;
    }
    ASSERT_TRUE(out.point.z == -7 && out.parameter == -7) << pair;
    seen.insert(expected.how);
  }
  EXPECT_EQ(seen.size(), 11u);  // all but INTERSECT2D_UNDEFINED
}

TEST_F(GeomIntersection, CrossingPointIsTheSameBitsHoweverEdgesAreGiven) {
  constexpr std::uint64_t kSeed = 5;
  std::mt19937_64 rng(kSeed);
  std::uniform_real_distribution<double> offset(-1, 1);
  int crossings = 0;
  for (int round = 0; round < 20000; ++round) {
    Coord3D p[4];
    for (Coord3D& q : p) {
      // Some share x, so that y decides the order of their ends.
      q = Coord3D(450000 + std::round(4 * offset(rng)), 6500000 + offset(rng), 0);
    }
    Intersection first;
    if (geom_EdgeIntersectEdge2D(p[0], p[1], p[2], p[3], first, 0) != INTERSECT2D_CROSSING) {
      continue;
    }
    ++crossings;
    for (int order = 0; order < 8; ++order) {
      const Coord3D* e = order & 4 ? p + 2 : p;
      const Coord3D* f = order & 4 ? p : p + 2;
      const int i = order & 1, j = order >> 1 & 1;
      Intersection out;
      ASSERT_EQ(geom_EdgeIntersectEdge2D(e[i], e[1 - i], f[j], f[1 - j], out, 0),
                INTERSECT2D_CROSSING);
      ASSERT_TRUE(SamePoint(out, first.point.x, first.point.y)) << round << ", seed " << kSeed;
    }
  }
  EXPECT_GT(crossings, 2000);
}

// The edges cross, by a hair: their slopes are 1 - 2^-52 and 1 - 2^-53. The products of their
// differences both round to 1.
TEST_F(GeomIntersection, CrossingOfEdgesThatRoundToParallelIsUndefined) {
  const double u = std::ldexp(1, -53);
  const Coord3D a(0, 0, 0), b(1 + 2 * u, 1, 0), c(0, -u / 4, 0), d(1, 1 - u, 0);
  Intersection out(-7, -7, -7, -7);
  EXPECT_EQ(geom_EdgeIntersectEdge2D(a, b, c, d, out, 0), INTERSECT2D_UNDEFINED);
  EXPECT_TRUE(SamePoint(out, -7, -7));
}

TEST_F(GeomIntersection, ToleranceAdmitsEndsAHairOffTheOtherEdge) {
  const Coord3D a(1, 1 + 1e-9, 0), b(0, 2, 0), c(0, 0, 0), d(2, 2, 0);
  Intersection out;
  EXPECT_EQ(geom_EdgeIntersectEdge2D(a, b, c, d, out, 0), INTERSECT2D_NONE);
  EXPECT_EQ(geom_EdgeIntersectEdge2D(a, b, c, d, out, 1e-8), INTERSECT2D_FIRST_START);
  EXPECT_TRUE(SamePoint(out, 1, 1 + 1e-9));

  // A level edge has a box without height, which such an end is outside of.
  const Coord3D hair(1, -1e-9, 0), end(2, 0, 0);
  EXPECT_EQ(geom_EdgeIntersectEdge2D(hair, b, c, end, out, 0), INTERSECT2D_CROSSING);
  EXPECT_EQ(geom_EdgeIntersectEdge2D(hair, b, c, end, out, 1e-8), INTERSECT2D_NONE);
}

TEST_F(GeomIntersection, NaNMeetsNothing) {
  const Coord3D a(0, 0, 0), b(2, 2, 0), c(0, 2, 0), d(2, 0, 0), nan(kNaN, 0, 0);
  Intersection out;
  EXPECT_EQ(geom_EdgeIntersectEdge2D(nan, b, c, d, out, 1e300), INTERSECT2D_NONE);
  EXPECT_EQ(geom_EdgeIntersectEdge2D(a, b, c, nan, out, 0), INTERSECT2D_NONE);
  EXPECT_EQ(geom_PointInside3Points(nan, a, b, c), ORIENT_OUTSIDE);
  EXPECT_EQ(geom_PointInside3Points(d, a, nan, c), ORIENT_OUTSIDE);
}

// Twice the signed areas that p makes with the edges: none negative, or none positive, within.
Orientation_e PlaceInTriangle(IntegerPoint p, IntegerPoint a, IntegerPoint b, IntegerPoint c) {
  for (const IntegerPoint& corner : {a, b, c}) {
    if (corner.x == p.x && corner.y == p.y) {
      return ORIENT_ON_VERTEX;
    }
  }
  const int area = Cross(b - a, c - a);
  const int parts[] = {Cross(b - a, p - a), Cross(c - b, p - b), Cross(a - c, p - c)};
  if (area == 0 || std::any_of(parts, parts + 3, [&](int part) { return part * area < 0; })) {
    return ORIENT_OUTSIDE;
  }
  return parts[0] * parts[1] * parts[2] == 0 ? ORIENT_ON_EDGE : ORIENT_INSIDE;
}

// All triangles and points on a grid of 4 by 4, seen along each axis.
TEST_F(GeomIntersection, PointsArePlacedInEveryTriangleOnAGrid) {
  const Plane along[3] = {Plane(1, 0, 0, 0), Plane(0.1, -0.9, 0.3, 5), Plane(0, 0, -1, 0)};
  for (int all = 0; all < 65536; ++all) {
    IntegerPoint p[4];
    Coord3D q[3][4];
    for (int i = 0, rest = all; i < 4; ++i, rest /= 16) {
      p[i] = {rest % 4, rest / 4 % 4};
      const double u = p[i].x, v = p[i].y, height = (i * 37) % 11;
      q[0][i] = Coord3D(height, u, v);
      q[1][i] = Coord3D(u, height, v);
      q[2][i] = Coord3D(u, v, height);
    }
    const Orientation_e expected = PlaceInTriangle(p[0], p[1], p[2], p[3]);
    for (int axis = 0; axis < 3; ++axis) {
      const Coord3D* t = q[axis];
      ASSERT_EQ(geom_PointInside3Points(t[0], along[axis], t[1], t[2], t[3]), expected) << all;
      ASSERT_EQ(geom_PointInside3Points(t[0], along[axis], t + 1), expected) << all;
    }
  }
}

TEST_F(GeomIntersection, PlaneOfTheTriangleItselfChoosesTheView) {
  const Coord3D wall[3] = {Coord3D(5, 0, 0), Coord3D(5, 4, 0), Coord3D(5, 0, 4)};
  EXPECT_EQ(geom_PointInside3Points(Coord3D(90, 1, 1), wall), ORIENT_INSIDE);
  EXPECT_EQ(geom_PointInside3Points(Coord3D(90, 2, 2), wall[0], wall[2], wall[1]), ORIENT_ON_EDGE);
  EXPECT_EQ(geom_PointInside3Points(Coord3D(5, 3, 3), wall), ORIENT_OUTSIDE);
}

// Without z the view along x wins a tie; with z, the view along z.
TEST_F(GeomIntersection, TiesBetweenAxesAreSettled) {
  const Coord3D a(0, 0, 0), b(-4, 4, 0), c(0, 0, 4);
  Plane upright(1, 1, 0, 0);
  EXPECT_EQ(geom_PointInside3Points(Coord3D(99, 1, 1), upright, a, b, c), ORIENT_INSIDE);
  EXPECT_EQ(geom_PointInside3Points(Coord3D(-1, 99, 1), upright, a, b, c), ORIENT_OUTSIDE);
  const Coord3D d(4, 0, 9), e(0, 4, -9);
  Plane diagonal(1, 1, 1, 0);
  EXPECT_EQ(geom_PointInside3Points(Coord3D(1, 1, 99), diagonal, a, d, e), ORIENT_INSIDE);

  Coord3D p(1, 2, 3);
  geom_TransformTo2D(upright, p);
  EXPECT_EQ(p, Coord3D(1, 2, 3));
}

TEST_F(GeomIntersection, CoordinateAlongTheNormalGoesLast) {
  const Coord3D p(1, 2, 3);
  Coord3D out;
  geom_TransformTo2D(p, Plane(-2, 1, 1, 0), out);
  EXPECT_EQ(out, Coord3D(2, 3, 1));
  geom_TransformTo2D(p, Plane(1, -2, 1, 0), out);
  EXPECT_EQ(out, Coord3D(1, 3, 2));
  geom_TransformTo2D(p, Plane(1, 1, -2, 0), out);
  EXPECT_EQ(out, p);
  Coord3D q = p;
  geom_TransformTo2D(q, Plane(1, 0, 0, 0), q);
  EXPECT_EQ(q, Coord3D(2, 3, 1));
  geom_TransformTo2D(Plane(0, 1, 0, 0), q);
  EXPECT_EQ(q, Coord3D(2, 1, 3));
}

TEST_F(GeomIntersection, RayHitsThePlaneOfItsLine) {
  const Coord3D plane[3] = {Coord3D(0, 0, 5), Coord3D(1, 0, 5), Coord3D(0, 1, 5)};
  const Ray down(Coord3D(1, 2, 8), Direction(0, 0, -2));
  Intersection out;
  EXPECT_EQ(geom_RayHitPlane(down, plane, out), 0);
  EXPECT_EQ(out.point, Coord3D(1, 2, 5));
  EXPECT_EQ(out.parameter, 3);
  EXPECT_EQ(geom_RayHitPlane(down, plane[0], plane[1], plane[2], out), 0);
  EXPECT_EQ(out.parameter, 3);

  out = Intersection(-7, -7, -7, -7);
  const Ray level(Coord3D(1, 2, 5), Direction(3, 4, 0));
  EXPECT_EQ(geom_RayHitPlane(level, Plane(0, 0, 1, -5), out), -1);
  EXPECT_EQ(out.parameter, -1);
  EXPECT_EQ(out.point, Coord3D(-7, -7, -7));
}

TEST_F(GeomIntersection, SegmentHitsPlaneUpToBothEnds) {
  const Plane plane(0, 0, 1, -5);
  Intersection out;
  const auto hit = [&](const Coord3D& start, const Coord3D& end) {
    out = Intersection(-7, -7, -7, -7);
    return geom_SegmentHitPlane(Segment(start, end), plane, out);
  };
  EXPECT_EQ(hit(Coord3D(0, 0, 1), Coord3D(0, 3, 5)), 0);
  EXPECT_EQ(out.point, Coord3D(0, 3, 5));
  EXPECT_EQ(out.parameter, 5) << "the length of the segment";
  EXPECT_EQ(hit(Coord3D(1, 1, 5), Coord3D(1, 1, 9)), 0);
  EXPECT_EQ(out.point, Coord3D(1, 1, 5));
  EXPECT_EQ(out.parameter, 0);

  const Coord3D above(0, 0, 7), level(3, 4, 7), onPlane(2, 2, 5), alsoOn(3, 3, 5);
  EXPECT_EQ(hit(Coord3D(0, 0, 9), above), -1) << "stops short";
  EXPECT_EQ(hit(above, Coord3D(0, 0, 9)), -1) << "leads away";
  EXPECT_EQ(hit(above, level), -1) << "parallel";
  EXPECT_EQ(hit(onPlane, alsoOn), -1) << "in the plane";
  EXPECT_EQ(hit(onPlane, onPlane), -1) << "no length";
  EXPECT_EQ(out.parameter, -1);
  EXPECT_EQ(out.point, Coord3D(-7, -7, -7));
}

}  // namespace
