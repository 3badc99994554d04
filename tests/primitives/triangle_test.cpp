#include "zyl/geometry/triangle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

#include "support/exact.h"
#include "support/wide_distance.h"
#include "zyl/geometry/geom.h"
#include "zyl/geometry/plane.h"
#include "zyl/geometry/segment.h"

namespace {

using zyl::geometry::Bounds3D;
using zyl::geometry::Coord3D;
using zyl::geometry::Plane;
using zyl::geometry::Point3D;
using zyl::geometry::Segment;
using zyl::geometry::Triangle;

static_assert(std::is_trivially_copyable_v<Triangle> && sizeof(Triangle) == 9 * sizeof(double));

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr unsigned kSeed = 35;

struct Nearest {
  Coord3D point;
  double distance;
};

template <typename Target>
Nearest NearestTo(Triangle triangle, const Target& target) {
  Nearest nearest;
  nearest.point = triangle.GetNearestPoint(target, nearest.distance);
  EXPECT_TRUE(triangle.Distance(target) == nearest.distance || std::isnan(nearest.distance));
  return nearest;
}

// The right triangle of side 4 in the plane z = 0, or moved.
Triangle Corner(double dx = 0, double dy = 0, double dz = 0) {
  return {Point3D(dx, dy, dz), Point3D(4 + dx, dy, dz), Point3D(dx, 4 + dy, dz)};
}

class TriangleQueries : public testing::Test {
 protected:
  TriangleQueries() { geom_Init(); }

  // Whole numbers, few enough that many cases are degenerate.
  Coord3D Point() { return {Coordinate(), Coordinate(), Coordinate()}; }
  Triangle Any() { return {Point3D(Point()), Point3D(Point()), Point3D(Point())}; }

 private:
  double Coordinate() { return coordinate_(random_); }

  testing::ScopedTrace trace_{__FILE__, __LINE__, kSeed};
  std::mt19937 random_{kSeed};
  std::uniform_int_distribution<int> coordinate_{-5, 5};
};

TEST_F(TriangleQueries, ExtentIsTheBoxOfTheVertices) {
  const Triangle triangle{Point3D(0, 5, -1), Point3D(3, -2, 4), Point3D(1, 1, 1)};
  const Bounds3D box = triangle.GetExtent();
  EXPECT_EQ(box.min, Coord3D(0, -2, -1));
  EXPECT_EQ(box.max, Coord3D(3, 5, 4));
}

TEST_F(TriangleQueries, PlaneFollowsTheOrderOfTheVertices) {
  EXPECT_EQ(Plane(Corner(1, 1, 5)).Normal(), Coord3D(0, 0, 1));
  EXPECT_EQ(Plane(Corner(1, 1, 5)).d, -5);
  const Triangle reversed{Corner().p0, Corner().p2, Corner().p1};
  EXPECT_EQ(Plane(reversed).Normal(), Coord3D(0, 0, -1));
}

TEST_F(TriangleQueries, NearestPointIsWithinOrOnAnEdge) {
  const Nearest above = NearestTo(Corner(), Coord3D(1, 1, 5));
  EXPECT_EQ(above.point, Coord3D(1, 1, 0));
  EXPECT_EQ(above.distance, 5);
  const Nearest overEdge = NearestTo(Corner(), Coord3D(2, 2, 3));
  EXPECT_EQ(overEdge.point, Coord3D(2, 2, 0));
  EXPECT_EQ(overEdge.distance, 3);
  const Nearest beside = NearestTo(Corner(), Coord3D(5, -1, 0));
  EXPECT_EQ(beside.point, Coord3D(4, 0, 0));
  EXPECT_EQ(beside.distance, std::sqrt(2.0));
}

// In most tilted planes the vertex is not its own projection, and the edge that starts there
// answers NaN.
TEST_F(TriangleQueries, AVertexIsAtDistanceZeroInAnyPlane) {
  for (int i = 0; i < 500; ++i) {
    const Triangle triangle = Any();
    for (const Point3D& vertex : {triangle.p0, triangle.p1, triangle.p2}) {
      const Nearest nearest = NearestTo(triangle, Coord3D(vertex));
      ASSERT_EQ(nearest.point, Coord3D(vertex));
      ASSERT_EQ(nearest.distance, 0);
    }
  }
}

bool HasArea(const Triangle& t) {
  const Coord3D p0(t.p0);
  return (Coord3D(t.p1) - p0).Cross(Coord3D(t.p2) - p0) != Coord3D();
}

TEST_F(TriangleQueries, NearestPointsAgreeWithASearch) {
  for (int i = 0; i < 1000; ++i) {
    const Triangle triangle = Any();
    const Coord3D p = Point();
    if (!HasArea(triangle)) {
      continue;
    }
    const Nearest nearest = NearestTo(triangle, p);
    const double expected = wide::Distance(p, triangle);
    ASSERT_NEAR(nearest.distance, expected, 3e-7);  // beside an edge it goes through an angle
    ASSERT_NEAR(nearest.point.Distance(p), expected, 1e-12);
    ASSERT_NEAR(wide::Distance(nearest.point, triangle), 0, 1e-12);
  }
}

TEST_F(TriangleQueries, NearestPointsToSegmentsAgreeWithASearch) {
  for (int i = 0; i < 60; ++i) {
    const Triangle triangle = Any();
    const Segment segment(Point(), Point());
    if (!HasArea(triangle) || segment.Length() == 0) {
      continue;
    }
    const Nearest nearest = NearestTo(triangle, segment);
    ASSERT_NEAR(nearest.distance, wide::Distance(segment, triangle), 3e-7);
    ASSERT_NEAR(wide::Distance(nearest.point, wide::Segment(segment)), nearest.distance, 3e-7);
    ASSERT_NEAR(wide::Distance(nearest.point, triangle), 0, 1e-12);
  }
}

TEST_F(TriangleQueries, ASegmentThatPassesThroughIsAtDistanceZero) {
  const Segment through(Coord3D(1, 1, -1), Coord3D(1, 1, 1));
  EXPECT_TRUE(Corner().Intersect(through));
  EXPECT_EQ(NearestTo(Corner(), through).point, Coord3D(1, 1, 0));
  EXPECT_EQ(NearestTo(Corner(), through).distance, 0);
  const Segment above(Coord3D(1, 1, 1), Coord3D(1, 1, 2));
  EXPECT_FALSE(Corner().Intersect(above));
  EXPECT_EQ(NearestTo(Corner(), above).point, Coord3D(1, 1, 0));
  EXPECT_EQ(NearestTo(Corner(), above).distance, 1);
}

TEST_F(TriangleQueries, IntersectIncludesBordersAndEndsAndExcludesThePlane) {
  EXPECT_TRUE(Corner().Intersect(Segment(Coord3D(2, 2, -1), Coord3D(2, 2, 1))));   // edge
  EXPECT_TRUE(Corner().Intersect(Segment(Coord3D(4, 0, -1), Coord3D(4, 0, 1))));   // vertex
  EXPECT_TRUE(Corner().Intersect(Segment(Coord3D(1, 1, 1), Coord3D(1, 1, 0))));    // end
  EXPECT_FALSE(Corner().Intersect(Segment(Coord3D(3, 3, -1), Coord3D(3, 3, 1))));  // outside
  EXPECT_FALSE(Corner().Intersect(Segment(Coord3D(-1, 1, 0), Coord3D(9, 1, 0))));  // in the plane
  EXPECT_FALSE(Corner().Intersect(Segment(Coord3D(1, 1, 0), Coord3D(1, 1, 0))));   // no length
}

// 1 or 0, or -1 where the segment touches the plane or an edge and rounding may decide.
int ExactlyPasses(const Segment& s, const Triangle& t) {
  const auto side = [](const Coord3D& a, const Coord3D& b, const Coord3D& c, const Coord3D& d) {
    return exact::Orient3D(&a.x, &b.x, &c.x, &d.x);
  };
  const Coord3D v[3] = {t.p0, t.p1, t.p2};
  const int start = side(v[0], v[1], v[2], s.start);
  const int end = side(v[0], v[1], v[2], s.end);
  if (start == 0 || end == 0) {
    return -1;
  }
  if (start == end) {
    return 0;
  }
  int sum = 0;
  for (int i = 0; i < 3; ++i) {
    const int around = side(s.start, s.end, v[i], v[(i + 1) % 3]);
    if (around == 0) {
      return -1;
    }
    sum += around;
  }
  return sum == 3 || sum == -3;
}

TEST_F(TriangleQueries, IntersectAgreesWithExactSigns) {
  int passing = 0;
  for (int i = 0; i < 3000; ++i) {
    Triangle triangle = Any();
    const Segment segment(Point(), Point());
    const int expected = ExactlyPasses(segment, triangle);
    if (expected >= 0) {
      ASSERT_EQ(triangle.Intersect(segment), expected == 1);
      passing += expected;
    }
  }
  EXPECT_GT(passing, 100);
}

TEST_F(TriangleQueries, TouchingAgreesWithExactSigns) {
  int touching = 0;
  for (int i = 0; i < 1000; ++i) {
    Triangle one = Any();
    Triangle other = Any();
    int least = 1;
    int greatest = -1;
    const auto tryEdges = [&](const Triangle& edges, const Triangle& face) {
      const Coord3D v[3] = {edges.p0, edges.p1, edges.p2};
      for (int k = 0; k < 3; ++k) {
        const int passes = ExactlyPasses(Segment(v[k], v[(k + 1) % 3]), face);
        least = std::min(least, passes);
        greatest = std::max(greatest, passes);
      }
    };
    tryEdges(one, other);
    tryEdges(other, one);
    if (least >= 0) {
      ASSERT_EQ(one.IsTouching(other), greatest == 1);
      ASSERT_EQ(other.IsTouching(one), greatest == 1);
      touching += greatest;
    }
  }
  EXPECT_GT(touching, 100);
}

TEST_F(TriangleQueries, TrianglesOfOnePlaneDoNotTouch) {
  EXPECT_FALSE(Corner().IsTouching(Corner(1, 1, 0)));
  EXPECT_FALSE(Corner().IsTouching(Corner()));
  Triangle link{Point3D(1, 1, -1), Point3D(1, 1, 1), Point3D(-9, -9, 0)};
  EXPECT_TRUE(Corner().IsTouching(link));
  EXPECT_TRUE(link.IsTouching(Corner()));
}

TEST_F(TriangleQueries, ATriangleWithoutAreaIsMetByNothingAndStillHasNearestPoints) {
  const Triangle flat{Point3D(0, 0, 0), Point3D(4, 0, 0), Point3D(2, 0, 0)};
  EXPECT_FALSE(Triangle(flat).Intersect(Segment(Coord3D(1, 0, -1), Coord3D(1, 0, 1))));
  EXPECT_NEAR(NearestTo(flat, Coord3D(3, 2, 0)).distance, 2, 1e-15);
  const Triangle twice{Point3D(0, 0, 0), Point3D(0, 0, 0), Point3D(4, 0, 0)};
  EXPECT_NEAR(NearestTo(twice, Coord3D(3, 2, 0)).distance, 2, 1e-15);
  const Triangle dot{Point3D(1, 1, 1), Point3D(1, 1, 1), Point3D(1, 1, 1)};
  EXPECT_EQ(NearestTo(dot, Coord3D(1, 4, 5)).point, Coord3D(1, 1, 1));
  EXPECT_EQ(NearestTo(dot, Coord3D(1, 4, 5)).distance, 5);
}

TEST_F(TriangleQueries, NaNGivesNaN) {
  EXPECT_TRUE(std::isnan(NearestTo(Corner(), Coord3D(1, kNaN, 5)).distance));
  EXPECT_TRUE(std::isnan(NearestTo(Corner(kNaN), Coord3D(1, 1, 5)).distance));
  const Segment segment(Coord3D(1, 1, kNaN), Coord3D(1, kNaN, 1));
  EXPECT_FALSE(Corner().Intersect(segment));
  EXPECT_TRUE(std::isnan(NearestTo(Corner(), segment).distance));
  EXPECT_FALSE(Corner().IsTouching(Corner(0, 0, kNaN)));
}

}  // namespace
