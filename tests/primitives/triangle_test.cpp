#include "zyl/geometry/triangle.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/exact.h"
#include "support/nearest.h"
#include "support/seeded.h"
#include "support/wide_distance.h"
#include "zyl/geometry/geom.h"
#include "zyl/geometry/plane.h"
#include "zyl/geometry/segment.h"

namespace {

using namespace zyl::geometry;

// The right triangle of side 4 in the plane z = 0, or moved.
Triangle Corner(double dx = 0, double dy = 0, double dz = 0) {
  return {Point3D(dx, dy, dz), Point3D(4 + dx, dy, dz), Point3D(dx, 4 + dy, dz)};
}

struct Triangles : Seeded<35> {
  Triangles() { geom_Init(); }

  Triangle Any() { return {Point3D(WholePoint()), Point3D(WholePoint()), Point3D(WholePoint())}; }
};

TEST_F(Triangles, HaveTheExtentAndThePlaneOfTheirVertices) {
  const Triangle triangle{Point3D(0, 5, -1), Point3D(3, -2, 4), Point3D(1, 1, 1)};
  EXPECT_EQ(Extent(triangle.GetExtent()), Extent(0, -2, -1, 3, 5, 4));
  EXPECT_EQ(Plane(Corner(1, 1, 5)).Normal(), Coord3D(0, 0, 1));
  EXPECT_EQ(Plane(Corner(1, 1, 5)).d, -5);
}

// In most tilted planes the vertex is not its own projection, and the edge that starts there
// answers NaN.
TEST_F(Triangles, AreAtDistanceZeroFromTheirVertices) {
  for (int i = 0; i < 500; ++i) {
    const Triangle triangle = Any();
    for (const Coord3D vertex : {triangle.p0, triangle.p1, triangle.p2}) {
      const Nearest nearest = NearestTo(triangle, vertex);
      ASSERT_EQ(nearest.point, vertex);
      ASSERT_EQ(nearest.distance, 0);
    }
  }
}

// A search takes some milliseconds, the more so from a segment. Beside an edge the distance goes
// through an angle, which holds half of the digits; the point does not.
TEST_F(Triangles, HaveTheNearestPointsOfASearch) {
  for (int i = 0; i < 500; ++i) {
    const Triangle triangle = Any();
    const Segment segment(WholePoint(), WholePoint());
    if (Plane(triangle).Normal() == Coord3D() || segment.Length() == 0) {
      continue;
    }
    const Nearest toPoint = NearestTo(triangle, segment.start);
    const double expected = wide::Distance(segment.start, triangle);
    ASSERT_NEAR(toPoint.distance, expected, 3e-7);
    ASSERT_NEAR(toPoint.point.Distance(segment.start), expected, 1e-12);
    ASSERT_NEAR(wide::Distance(toPoint.point, triangle), 0, 1e-12);
    if (i < 50) {
      const Nearest toSegment = NearestTo(triangle, segment);
      ASSERT_NEAR(toSegment.distance, wide::Distance(segment, triangle), 3e-7);
      ASSERT_NEAR(wide::Distance(toSegment.point, wide::Segment(segment)), toSegment.distance,
                  3e-7);
      ASSERT_NEAR(wide::Distance(toSegment.point, triangle), 0, 1e-12);
    }
  }
}

TEST_F(Triangles, AreMetAtTheirBordersAndByEndsButNotInTheirPlane) {
  const auto meets = [](const Coord3D& a, const Coord3D& b) {
    const bool met = Corner().Intersect(Segment(a, b));
    EXPECT_TRUE(!met || Corner().Distance(Segment(a, b)) == 0);
    return met;
  };
  EXPECT_TRUE(meets(Coord3D(1, 1, -1), Coord3D(1, 1, 1)));
  EXPECT_TRUE(meets(Coord3D(2, 2, -1), Coord3D(2, 2, 1))) << "edge";
  EXPECT_TRUE(meets(Coord3D(4, 0, -1), Coord3D(4, 0, 1))) << "vertex";
  EXPECT_TRUE(meets(Coord3D(1, 1, 1), Coord3D(1, 1, 0))) << "end";
  EXPECT_FALSE(meets(Coord3D(-1, 1, 0), Coord3D(9, 1, 0))) << "in the plane";
  EXPECT_FALSE(meets(Coord3D(1, 1, 0), Coord3D(1, 1, 0))) << "no length";
}

// 1 or 0, or -1 where the segment touches the plane or an edge and rounding may decide.
int ExactlyPasses(const Segment& s, const Coord3D (&v)[3]) {
  const auto side = [](const Coord3D& a, const Coord3D& b, const Coord3D& c, const Coord3D& d) {
    return exact::Orient3D(&a.x, &b.x, &c.x, &d.x);
  };
  const int ends = side(v[0], v[1], v[2], s.start) * side(v[0], v[1], v[2], s.end);
  if (ends >= 0) {
    return ends == 0 ? -1 : 0;
  }
  const int round[] = {side(s.start, s.end, v[0], v[1]), side(s.start, s.end, v[1], v[2]),
                       side(s.start, s.end, v[2], v[0])};
  const int sum = round[0] + round[1] + round[2];
  return round[0] * round[1] * round[2] == 0 ? -1 : sum == 3 || sum == -3;
}

TEST_F(Triangles, MeetAsExactSignsTell) {
  int touching = 0;
  for (int i = 0; i < 1000; ++i) {
    Triangle pair[2] = {Any(), Any()};
    bool any = false, certain = true;
    for (int k = 0; k < 6; ++k) {
      Triangle& face = pair[k % 2];
      const Triangle& other = pair[1 - k % 2];
      const Coord3D v[3] = {face.p0, face.p1, face.p2}, w[3] = {other.p0, other.p1, other.p2};
      const Segment edge(w[k / 2], w[(k / 2 + 1) % 3]);
      const int passes = ExactlyPasses(edge, v);
      ASSERT_TRUE(passes < 0 || face.Intersect(edge) == (passes == 1));
      any |= passes == 1;
      certain &= passes >= 0;
    }
    ASSERT_TRUE(!certain || pair[0].IsTouching(pair[1]) == any);
    touching += certain && any;
  }
  EXPECT_GT(touching, 100);
}

TEST_F(Triangles, WithoutAreaAreMetByNothingAndStillHaveNearestPoints) {
  Triangle flat{Point3D(0, 0, 0), Point3D(4, 0, 0), Point3D(2, 0, 0)};
  EXPECT_FALSE(flat.Intersect(Segment(Coord3D(1, 0, -1), Coord3D(1, 0, 1))));
  EXPECT_NEAR(flat.Distance(Coord3D(3, 2, 0)), 2, 4e-15);
  flat.p2 = flat.p1;
  EXPECT_NEAR(flat.Distance(Coord3D(3, 2, 0)), 2, 4e-15);
  flat.p1 = flat.p2 = flat.p0;
  EXPECT_EQ(flat.Distance(Coord3D(0, 3, 4)), 5);
}

TEST_F(Triangles, AnswerNaNWithNaN) {
  EXPECT_TRUE(std::isnan(Corner().Distance(Coord3D(1, kNaN, 5))));
  EXPECT_TRUE(std::isnan(Corner(kNaN).Distance(Coord3D(1, 1, 5))));
  EXPECT_FALSE(Corner().Intersect(Segment(Coord3D(1, 1, kNaN), Coord3D(1, kNaN, 1))));
  EXPECT_FALSE(Corner().IsTouching(Corner(0, 0, kNaN)));
}

}  // namespace
