#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <random>
#include <set>

#include "support/generate.h"
#include "zyl/geometry/geom.h"
#include "zyl/geometry/plane.h"
#include "zyl/geometry/segment.h"

namespace {

using namespace zyl::geometry;

struct GeomIntersection : testing::Test {
  GeomIntersection() { geom_Init(); }
};

bool SamePoint(const Intersection& i, double x, double y) {
  return i.point.x == x && i.point.y == y;
}

// Twice the area between two vectors in the plane, as all of the oracles here are.
double Cross(const Coord3D& u, const Coord3D& v) { return u.x * v.y - u.y * v.x; }

// How two edges between integer points meet, from the parameters s and t at which their lines do:
// no orientation test and no box. Parameters are fractions of `whole`.
Intersection2D_e HowTheyMeetAlongOneLine(const Coord3D (&p)[4]) {
  const Coord3D first = p[1] - p[0];
  const double whole = first.Dot(first), atC = first.Dot(p[2] - p[0]), atD = first.Dot(p[3] - p[0]);
  const double low = std::max(0.0, std::min(atC, atD)), high = std::min(whole, std::max(atC, atD));
  if (low >= high) {
    return low > high ? INTERSECT2D_NONE
           : low == 0 ? INTERSECT2D_SHARED_FIRST_START
                      : INTERSECT2D_SHARED_FIRST_END;
  }
  const bool allOfFirst = high - low == whole, allOfSecond = high - low == std::fabs(atC - atD);
  return allOfFirst    ? INTERSECT2D_FIRST_ON_SECOND
         : allOfSecond ? INTERSECT2D_SECOND_ON_FIRST
                       : INTERSECT2D_OVERLAP;
}

Intersection2D_e HowTheyMeet(const Coord3D (&p)[4]) {
  const Coord3D u = p[1] - p[0], v = p[3] - p[2], w = p[2] - p[0];
  if (u == Coord3D() || v == Coord3D()) {
    return INTERSECT2D_NONE;
  }
  const double whole = std::fabs(Cross(u, v)), sign = Cross(u, v) > 0 ? 1 : -1;
  if (whole == 0) {
    return Cross(u, w) == 0 ? HowTheyMeetAlongOneLine(p) : INTERSECT2D_NONE;
  }
  const double s = sign * Cross(w, v), t = sign * Cross(w, u);
  if (s < 0 || s > whole || t < 0 || t > whole) {
    return INTERSECT2D_NONE;
  }
  const bool shared = t == 0 || t == whole;
  return s == 0       ? shared ? INTERSECT2D_SHARED_FIRST_START : INTERSECT2D_FIRST_START
         : s == whole ? shared ? INTERSECT2D_SHARED_FIRST_END : INTERSECT2D_FIRST_END
         : t == 0     ? INTERSECT2D_SECOND_START
         : t == whole ? INTERSECT2D_SECOND_END
                      : INTERSECT2D_CROSSING;
}

// All 390625 pairs of edges on a grid of 5 by 5, those without length among them.
TEST_F(GeomIntersection, EveryPairOfEdgesOnAGridIsClassified) {
  const std::map<Intersection2D_e, int> endWhereTheyMeet = {
      {INTERSECT2D_FIRST_START, 0},  {INTERSECT2D_SHARED_FIRST_START, 0},
      {INTERSECT2D_FIRST_END, 1},    {INTERSECT2D_SHARED_FIRST_END, 1},
      {INTERSECT2D_SECOND_START, 2}, {INTERSECT2D_SECOND_END, 3}};
  std::set<Intersection2D_e> seen;
  for (int pair = 0; pair < 390625; ++pair) {
    SCOPED_TRACE(pair);
    Coord3D p[4], q[4];
    for (int i = 0, rest = pair; i < 4; ++i, rest /= 25) {
      p[i] = Coord3D(rest % 5, rest / 5 % 5, 0);
      q[i] = p[i] + Coord3D(0, 0, i * 100);  // heights do not count
    }
    const Intersection2D_e expected = HowTheyMeet(p);
    seen.insert(expected);
    Intersection out(-7, -7, -7, -7);
    ASSERT_EQ(geom_EdgeIntersectEdge2D(q[0], q[1], q[2], q[3], out, 0), expected);
    ASSERT_TRUE(out.point.z == -7 && out.parameter == -7);
    if (expected == INTERSECT2D_CROSSING) {
      ASSERT_NEAR(Cross(out.point - p[0], p[1] - p[0]), 0, 1e-14);
      ASSERT_NEAR(Cross(out.point - p[2], p[3] - p[2]), 0, 1e-14);
    } else {
      const auto end = endWhereTheyMeet.find(expected);
      const Coord3D where = end == endWhereTheyMeet.end() ? Coord3D(-7, -7, 0) : p[end->second];
      ASSERT_TRUE(SamePoint(out, where.x, where.y));
    }
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
    int crosses = 0;
    std::set<Coord3D> points;
    for (int order = 0; order < 8; ++order) {
      const Coord3D* e = order & 4 ? p + 2 : p;
      const Coord3D* f = order & 4 ? p : p + 2;
      const int i = order & 1, j = order >> 1 & 1;
      Intersection out;
      crosses +=
          geom_EdgeIntersectEdge2D(e[i], e[1 - i], f[j], f[1 - j], out, 0) == INTERSECT2D_CROSSING;
      points.insert(out.point);
    }
    ASSERT_TRUE(points.size() == 1 && crosses % 8 == 0) << round << ", seed " << kSeed;
    crossings += crosses / 8;
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

// The areas that p makes with the edges: none negative, or none positive, within.
Orientation_e PlaceInTriangle(const Coord3D (&p)[4]) {
  if (p[0] == p[1] || p[0] == p[2] || p[0] == p[3]) {
    return ORIENT_ON_VERTEX;
  }
  const Coord3D a = p[1] - p[0], b = p[2] - p[0], c = p[3] - p[0];
  const auto [low, high] = std::minmax({Cross(a, b), Cross(b, c), Cross(c, a)});
  if (Cross(b - a, c - a) == 0 || (low < 0 && high > 0)) {
    return ORIENT_OUTSIDE;
  }
  return Cross(a, b) * Cross(b, c) * Cross(c, a) == 0 ? ORIENT_ON_EDGE : ORIENT_INSIDE;
}

// All triangles and points on a grid of 4 by 4, seen along each axis.
TEST_F(GeomIntersection, PointsArePlacedInEveryTriangleOnAGrid) {
  const Plane along[3] = {Plane(1, 0, 0, 0), Plane(0.1, -0.9, 0.3, 5), Plane(0, 0, -1, 0)};
  for (int all = 0; all < 65536; ++all) {
    Coord3D p[4], q[3][4];
    for (int i = 0, rest = all; i < 4; ++i, rest /= 16) {
      const double u = rest % 4, v = rest / 4 % 4, height = (i * 37) % 11;
      p[i] = Coord3D(u, v, 0);
      q[0][i] = Coord3D(height, u, v);
      q[1][i] = Coord3D(u, height, v);
      q[2][i] = Coord3D(u, v, height);
    }
    const Orientation_e expected = PlaceInTriangle(p);
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
  const Coord3D a(0, 0, 0), b(-4, 4, 0), c(0, 0, 4), d(4, 0, 9), e(0, 4, -9);
  const Plane upright(1, 1, 0, 0), diagonal(1, 1, 1, 0);
  EXPECT_EQ(geom_PointInside3Points(Coord3D(99, 1, 1), upright, a, b, c), ORIENT_INSIDE);
  EXPECT_EQ(geom_PointInside3Points(Coord3D(-1, 99, 1), upright, a, b, c), ORIENT_OUTSIDE);
  EXPECT_EQ(geom_PointInside3Points(Coord3D(1, 1, 99), diagonal, a, d, e), ORIENT_INSIDE);
}

TEST_F(GeomIntersection, CoordinateAlongTheNormalGoesLast) {
  const auto transformed = [](const Plane& plane) {
    const Coord3D p(1, 2, 3);
    Coord3D out, inPlace = p;
    geom_TransformTo2D(p, plane, out);
    geom_TransformTo2D(plane, inPlace);
    EXPECT_EQ(inPlace, out);
    return out;
  };
  EXPECT_EQ(transformed(Plane(-2, 1, 1, 0)), Coord3D(2, 3, 1));
  EXPECT_EQ(transformed(Plane(1, -2, 1, 0)), Coord3D(1, 3, 2));
  EXPECT_EQ(transformed(Plane(1, 1, -2, 0)), Coord3D(1, 2, 3));
  EXPECT_EQ(transformed(Plane(1, 1, 0, 0)), Coord3D(1, 2, 3)) << "a tie";
}

TEST_F(GeomIntersection, RayHitsThePlaneOfItsLine) {
  const Coord3D plane[3] = {Coord3D(0, 0, 5), Coord3D(1, 0, 5), Coord3D(0, 1, 5)};
  const Ray down(Coord3D(1, 2, 8), Direction(0, 0, -2)),
      level(Coord3D(1, 2, 5), Direction(3, 4, 0));
  Intersection out;
  EXPECT_EQ(geom_RayHitPlane(down, plane, out), 0);
  EXPECT_EQ(out.parameter, 3);
  EXPECT_EQ(geom_RayHitPlane(level, plane, out), -1);
  EXPECT_EQ(out.parameter, -1);
  EXPECT_EQ(geom_RayHitPlane(down, plane[0], plane[1], plane[2], out), 0);
  EXPECT_EQ(out.parameter, 3);
  EXPECT_EQ(out.point, Coord3D(1, 2, 5));
}

TEST_F(GeomIntersection, SegmentHitsPlaneUpToBothEnds) {
  Intersection out;
  const auto hit = [&out](const Coord3D& start, const Coord3D& end) {
    out = Intersection(-7, -7, -7, -7);
    return geom_SegmentHitPlane(Segment(start, end), Plane(0, 0, 1, -5), out);
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
