#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/polylines.h"
#include "zyl/geometry/direction.h"

namespace {

using namespace zyl::geometry;
using rings::Closed;
using Points = std::vector<Point3D>;

const Points kSquare = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};

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
  ExpectNear(NormalOf(Points{{0, 0, 0}, {2, 1, 0}, {1, 3, 0}}), {0, 0, 1});
  ExpectNear(NormalOf(Points{{0, 3, 0}, {0, 3, 1}, {1, 3, 1}, {1, 3, 0}}), {0, 1, 0});
  ExpectNear(NormalOf(Points{{-2, 0, 0}, {-2, 1, 0.5}, {-2, 1, 1}, {-2, 0, 1}}), {1, 0, 0});
}

TEST(PolygonNormal, IsThatOfThePlaneOfItsPoints) {
  std::mt19937_64 random(8);
  const auto next = [&] { return Uniform(random, -1, 1); };
  for (int i = 0; i < 200; ++i) {
    const Coord3D u(next(), next(), next()), v(next(), next(), next());
    Coord3D wanted = u.Cross(v);
    if (wanted.Magnitude() < 0.1) {
      continue;
    }
    wanted.Normalise();
    const Coord3D normal = NormalOf(Generate(
        12, [&](int) { return Point3D(Coord3D(450, 6500, 3) + u * next() + v * next()); }));
    EXPECT_NEAR(std::fabs(normal.Dot(wanted)), 1, 1e-9);
    const auto [least, greatest] = std::minmax({normal.x, normal.y, normal.z});
    EXPECT_GT(greatest, -least);
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

// Of a line they are its own points.
TEST(PointNormals, LieToTheLeftAndToTheRightOfTheWay) {
  const double half = std::sqrt(0.5);
  Points left = {{9, 9, 9}}, right;
  Closed(kSquare).GetPointNormals(left, right, 1.0);
  ASSERT_EQ(left.size(), 5u);  // what was there stays
  ASSERT_EQ(right.size(), 4u);
  ExpectNear(left[1], {half, half, 0});
  ExpectNear(right[0], {-half, -half, 0});
  ExpectNear(left[3], {1 - half, 1 - half, 0});

  Polyline3D line(Points{{0, 0, 0}, {1, 1, 0}, {2, 2, 0}});
  left.clear(), right.clear();
  right.emplace_back(5, 0, 0);
  right.shrink_to_fit();
  line.GetPointNormals(left, right, right[0].x);  // which moves while the offset is in use
  right.erase(right.begin());
  EXPECT_TRUE(left == line.GetPointVector() && right == line.GetPointVector());
}

// The upright one stands in y = 0, seen from +y: x to the left, z up.
TEST(IsClockwise, IsSeenAgainstTheNormal) {
  Polyline3D open(Points{{0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}});
  open.Add(0, 0, 0);
  for (Polyline3D ring : {Closed({{0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}}), open,
                          Closed({{0, 0, 0}, {0, 0, 1}, {-1, 0, 1}, {-1, 0, 0}})}) {
    EXPECT_TRUE(ring.IsClockwise());
    ring.Reverse();
    EXPECT_FALSE(ring.IsClockwise());
  }
  EXPECT_FALSE(Polyline3D().IsClockwise());
}

// In x-y, a product of distance and length, which has to be less than the tolerance; a negative one
// stands for 0.01.
TEST(IsPointOnEdge, MeasuresADistanceInSpaceAndACrossProductInXY) {
  const Points bend = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}, road = {{0, 0, 0}, {100, 0, 0}};
  const Polyline3D dot = Closed({{1, 1, 1}, {1, 1, 1}});
  const struct {
    Polyline3D polyline;
    Point3D point;
    double tolerance;
    bool inXY, inSpace;
  } cases[] = {{bend, {0.5, 0, 0}, 1e-6, true, true},
               {bend, {0.5, 0, 0}, 0, false, true},
               {bend, {0.5, 0, 3}, 1e-6, true, false},
               {bend, {0.5, 0.5, 0}, 1e-6, false, false},  // on the closing edge
               {Closed(bend), {0.5, 0.5, 0}, 1e-6, true, true},
               {road, {50, 0.5, 0}, 0.5, false, true},
               {road, {50, 0.5, 0}, 50.5, true, true},
               {road, {-0.5, 0, 0}, 0.5, true, true},  // on the side of the widened box
               {road, {100.5, 0, 0}, 0.5, true, true},
               {dot, {1, 1, 1}, 1, true, false},
               {dot, {1.005, 1, 7}, -1, true, false},
               {dot, {1.02, 1, 7}, -1, false, false},
               {Polyline3D(), {0, 0, 0}, 1, false, false},
               {Polyline3D(Points{{0, 0, 0}, {9e-82, 0, 0}}), {4e-82, 0, 0}, 1e-6, true, true},
               {road, {std::nan(""), 0, 0}, 1, false, true}};
  for (const auto& [polyline, p, tolerance, inXY, inSpace] : cases) {
    EXPECT_EQ(polyline.IsPointOnEdge(p, true, tolerance), inXY) << p.x << ", " << tolerance;
    EXPECT_EQ(polyline.IsPointOnEdge(p, false, tolerance), inSpace) << p.x << ", " << tolerance;
  }
  EXPECT_FALSE(Polyline3D(road).IsPointOnEdge(Point3D(100.75, 0, 0), false, 0.5));
}

}  // namespace
