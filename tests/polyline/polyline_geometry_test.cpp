#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "zyl/geometry/direction.h"
#include "zyl/geometry/polyline3d.h"

namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Direction;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;
using Points = std::vector<Point3D>;

const Points kSquare = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};

Polyline3D Closed(const Points& points) {
  Polyline3D polyline(points);
  polyline.SetClosed(true);
  return polyline;
}

Coord3D NormalOf(const Polyline3D& polyline) {
  Direction normal(7, 8, 9);
  polyline.GetPolygonNormal(normal);
  return {normal.x, normal.y, normal.z};
}

void ExpectNear(const Coord3D& value, const Coord3D& wanted) {
  EXPECT_LE(value.Distance(wanted), 1e-14) << value.x << ", " << value.y << ", " << value.z;
}

TEST(PolygonNormal, PointsUpTheLargestAxisWhicheverWayThePointsRun) {
  Polyline3D square(kSquare);
  ExpectNear(NormalOf(square), {0, 0, 1});
  square.Reverse();
  ExpectNear(NormalOf(square), {0, 0, 1});
  ExpectNear(NormalOf(Points{{0, 3, 0}, {0, 3, 1}, {1, 3, 1}, {1, 3, 0}}), {0, 1, 0});
  ExpectNear(NormalOf(Points{{-2, 0, 0}, {-2, 1, 0.5}, {-2, 1, 1}, {-2, 0, 1}}), {1, 0, 0});
}

TEST(PolygonNormal, IsThatOfThePlaneOfItsPoints) {
  std::mt19937_64 random(8);
  std::uniform_real_distribution<double> uniform(-1, 1);
  for (int i = 0; i < 200; ++i) {
    const Coord3D u(uniform(random), uniform(random), uniform(random));
    const Coord3D v(uniform(random), uniform(random), uniform(random));
    Coord3D wanted = u.Cross(v);
    if (wanted.Magnitude() < 0.1) {
      continue;
    }
    wanted.Normalise();
    Points points;
    for (int k = 0; k < 12; ++k) {
      const Coord3D p = Coord3D(450, 6500, 3) + u * uniform(random) + v * uniform(random);
      points.emplace_back(p);
    }
    const Coord3D normal = NormalOf(points);
    EXPECT_NEAR(std::fabs(normal.Dot(wanted)), 1, 1e-9);
    const double largest = std::fabs(normal.x) >= std::fabs(normal.y)   ? normal.x
                           : std::fabs(normal.y) >= std::fabs(normal.z) ? normal.y
                                                                        : normal.z;
    EXPECT_TRUE(largest > 0 || std::fabs(normal.z) > std::fabs(largest));
  }
}

TEST(PolygonNormal, IsLeftAloneWhereTheGateSeesALine) {
  const Coord3D untouched(7, 8, 9);
  EXPECT_EQ(NormalOf(Points{{0, 0, 0}, {1, 0, 0}}), untouched);
  EXPECT_EQ(NormalOf(Points{{0, 0, 0}, {1, 1, 0}, {2, 2, 0}, {5, 5, 0}}), untouched);
  // A triangle all right, but its first two points share x, and its third the height of the first.
  EXPECT_EQ(NormalOf(Points{{0, 0, 0}, {0, 0, 1}, {0, 1, 0}}), untouched);
  EXPECT_NE(NormalOf(Points{{0, 0, 0}, {1, 1, 0}, {2, 2, 1e-6}, {0, 1, 5}}), untouched);
}

TEST(PointNormals, LieToTheLeftAndToTheRightOfTheWay) {
  const double half = std::sqrt(0.5);
  Points left = {{9, 9, 9}};
  Points right;
  Polyline3D square = Closed(kSquare);
  square.GetPointNormals(left, right, 1.0);
  ASSERT_EQ(left.size(), 5u);  // what was there stays
  ASSERT_EQ(right.size(), 4u);
  ExpectNear(left[1], {half, half, 0});
  ExpectNear(right[0], {-half, -half, 0});
  ExpectNear(left[3], {1 - half, 1 - half, 0});
}

TEST(PointNormals, OfALineAreItsOwnPoints) {
  Polyline3D line(Points{{0, 0, 0}, {1, 1, 0}, {2, 2, 0}});
  Points left;
  Points right;
  line.GetPointNormals(left, right, 5.0);
  EXPECT_TRUE(left == line.GetPointVector() && right == line.GetPointVector());
}

TEST(IsClockwise, IsSeenAgainstTheNormal) {
  const Points clockwise = {{0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}};
  Polyline3D ring = Closed(clockwise);
  EXPECT_TRUE(ring.IsClockwise());
  ring.Reverse();
  EXPECT_FALSE(ring.IsClockwise());
  Polyline3D open(clockwise);
  open.Add(0, 0, 0);
  EXPECT_TRUE(open.IsClockwise());
  open.Reverse();
  EXPECT_FALSE(open.IsClockwise());
  EXPECT_FALSE(Polyline3D().IsClockwise());

  // Upright in y = 0, seen from +y: x to the left, z up.
  Polyline3D upright = Closed({{0, 0, 0}, {0, 0, 1}, {-1, 0, 1}, {-1, 0, 0}});
  EXPECT_TRUE(upright.IsClockwise());
  upright.Reverse();
  EXPECT_FALSE(upright.IsClockwise());
}

TEST(IsPointOnEdge, MeasuresADistanceInSpaceAndACrossProductInXY) {
  const Polyline3D bend(Points{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
  const Point3D onFirst(0.5, 0, 0);
  EXPECT_TRUE(bend.IsPointOnEdge(onFirst, true, 1e-6));
  EXPECT_TRUE(bend.IsPointOnEdge(onFirst, false, 1e-6));
  EXPECT_TRUE(bend.IsPointOnEdge(onFirst, false, 0.0));
  EXPECT_FALSE(bend.IsPointOnEdge(onFirst, true, 0.0));  // strict
  EXPECT_TRUE(bend.IsPointOnEdge(Point3D(0.5, 0, 3), true, 1e-6));
  EXPECT_FALSE(bend.IsPointOnEdge(Point3D(0.5, 0, 3), false, 1e-6));

  const Polyline3D road(Points{{0, 0, 0}, {100, 0, 0}});
  EXPECT_TRUE(road.IsPointOnEdge(Point3D(50, 0.5, 0), false, 0.5));
  EXPECT_FALSE(road.IsPointOnEdge(Point3D(50, 0.5, 0), true, 0.5));
  EXPECT_TRUE(road.IsPointOnEdge(Point3D(50, 0.5, 0), true, 50.5));
  EXPECT_FALSE(road.IsPointOnEdge(Point3D(100.75, 0, 0), false, 0.5));
}

TEST(IsPointOnEdge, SeesTheClosingEdgeOfClosedPolylinesAlone) {
  Polyline3D bend(Points{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
  const Point3D onClosing(0.5, 0.5, 0);
  EXPECT_FALSE(bend.IsPointOnEdge(onClosing, true, 1e-6));
  EXPECT_FALSE(bend.IsPointOnEdge(onClosing, false, 1e-6));
  bend.SetClosed(true);
  EXPECT_TRUE(bend.IsPointOnEdge(onClosing, true, 1e-6));
  EXPECT_TRUE(bend.IsPointOnEdge(onClosing, false, 1e-6));
}

TEST(IsPointOnEdge, HasAnAnswerForOddInput) {
  const Polyline3D dot = Closed({{1, 1, 1}, {1, 1, 1}});
  EXPECT_FALSE(dot.IsPointOnEdge(Point3D(1, 1, 1), false, 1.0));
  EXPECT_TRUE(dot.IsPointOnEdge(Point3D(1.005, 1, 7), true, -1.0));  // stands for 0.01
  EXPECT_FALSE(dot.IsPointOnEdge(Point3D(1.02, 1, 7), true, -1.0));
  EXPECT_FALSE(Polyline3D().IsPointOnEdge(Point3D(), false, 1.0));
  const Polyline3D edge(Points{{0, 0, 0}, {1, 0, 0}});
  EXPECT_FALSE(edge.IsPointOnEdge(Point3D(NAN, 0, 0), false, 1.0));
  EXPECT_FALSE(edge.IsPointOnEdge(Point3D(NAN, 0, 0), true, 1.0));
}

}  // namespace
