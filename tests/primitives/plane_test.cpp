#include "zyl/geometry/plane.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "support/seeded.h"
#include "zyl/geometry/matrix4.h"

namespace {

using namespace zyl::geometry;

using Fields = std::array<double, 4>;

Fields FieldsOf(const Plane& p) { return {p.a, p.b, p.c, p.d}; }

void ExpectNear(const Plane& plane, const Fields& expected, double tolerance) {
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_NEAR(FieldsOf(plane)[i], expected[i], tolerance) << i;
  }
}

using RandomPlanes = Seeded<33>;

TEST(Plane, ConstructorsBringTheNormalToUnitLength) {
  const Coord3D points[] = {{0, 0, 5}, {4, 0, 5}, {0, 3, 5}};
  EXPECT_EQ(FieldsOf(Plane(0, 0, 2, -4)), (Fields{0, 0, 1, -2}));
  EXPECT_EQ(FieldsOf(Plane(Direction(0, 3, 4), 10)), (Fields{0, 0.6, 0.8, 2}));
  EXPECT_EQ(FieldsOf(Plane(Direction(0, 0, 2), Coord3D(7, 8, 9))), (Fields{0, 0, 1, -9}));
  EXPECT_EQ(FieldsOf(Plane(Direction(0, 0, 2), Point3D(7, 8, 9))), (Fields{0, 0, 1, -9}));
  EXPECT_EQ(FieldsOf(Plane(points)), (Fields{0, 0, 1, -5}));
  EXPECT_EQ(FieldsOf(Plane(points[0], points[2], points[1])), (Fields{0, 0, -1, 5}));
}

TEST(Plane, AZeroNormalStaysAndIsReportedByNormalizeAlone) {
  Plane plane(Coord3D(1, 1, 1), Coord3D(2, 2, 2), Coord3D(4, 4, 4));  // in line
  EXPECT_EQ(FieldsOf(plane), (Fields{0, 0, 0, 0}));
  EXPECT_EQ(plane.Normalize(), -1);
  EXPECT_EQ(Coord3D(1, 2, 3).Project(plane), Coord3D(1, 2, 3));
  plane.c = 2;
  EXPECT_EQ(plane.Normalize(), 0);
}

TEST(Plane, MovesAndReversesAndMeasuresFromItsPositiveSide) {
  Plane plane(2, -1, 2, 12);  // normal (2/3, -1/3, 2/3), d = 4
  const Coord3D p(1, 2, 3);
  plane.Move(3);
  EXPECT_DOUBLE_EQ(plane.Distance(p, false), 3);
  plane.Reverse();
  ExpectNear(plane, {-2 / 3.0, 1 / 3.0, -2 / 3.0, -1}, 1e-15);
  EXPECT_DOUBLE_EQ(plane.Orientation(p), -3);
  EXPECT_DOUBLE_EQ(plane.Distance(p, true), 3);
  Matrix4 toZUp, fromZUp;
  plane.GetZUpTransform(toZUp, fromZUp);
  EXPECT_NEAR((toZUp * plane.Normal()).Distance(Coord3D(0, 0, 1)), 0, 1e-15);
}

// The normal leans by the dip towards the bearing strike + 90°.
TEST(Plane, StrikeAndDipGiveTheNormalOfTheCompass) {
  const Coord3D p(3, -4, 5);
  for (int strike = 0; strike < 360; strike += 15) {
    for (int dip = 0; dip <= 90; dip += 10) {
      const double toDip = (strike + 90) * kPi / 180;
      const double angle = dip * kPi / 180;
      const Coord3D normal(std::sin(angle) * std::sin(toDip), std::sin(angle) * std::cos(toDip),
                           std::cos(angle));
      ExpectNear(Plane(p, strike * kPi / 180, angle),
                 {normal.x, normal.y, normal.z, -normal.Dot(p)}, 1e-14);
    }
  }
  const Plane level(Coord3D(1, 2, 3), Coord3D(5, 5, 77), 0);  // heights are not compared
  EXPECT_EQ(FieldsOf(level), (Fields{0, 0, 1, -3}));
  const Plane none(Coord3D(1, 2, 3), Coord3D(1, 2, 9), 0.5);
  EXPECT_EQ(FieldsOf(none), (Fields{0, 0, 0, 0}));
}

TEST(Plane, IntersectLeavesItsOutputsWherePlanesAreNearlyParallel) {
  Direction direction(7, 7, 7);
  Point3D point(8, 8, 8);
  const Plane level(0, 0, 1, 0);
  Plane tilted = level;
  tilted.a = 0.99e-5;
  EXPECT_FALSE(level.Intersect(tilted, direction, point));
  EXPECT_EQ(direction.x, 7);
  EXPECT_EQ(point, Point3D(8, 8, 8));
  tilted.a = 1e-5;  // the bound itself is not below it
  EXPECT_TRUE(level.Intersect(tilted, direction, point));
}

TEST_F(RandomPlanes, MeetInALineAndTakeProjections) {
  for (int i = 0; i < 200; ++i) {
    const Plane one(Direction(Point()), Point());
    const Plane other(Direction(Point()), Point());
    Direction direction;
    Point3D point;
    ASSERT_TRUE(one.Intersect(other, direction, point));
    const Coord3D line = one.Normal().Cross(other.Normal());
    const double sine = line.Magnitude();
    ASSERT_NEAR(direction.Dot(line), sine, 1e-15);
    ASSERT_NEAR(one.Distance(point, true), 0, 2e-14 / sine);
    ASSERT_NEAR(other.Distance(point, true), 0, 2e-14 / sine);
    ASSERT_NEAR(direction.Dot(Coord3D(point)), 0, 1e-13 / sine);  // nearest the origin
    const Coord3D p = Point();
    const Coord3D foot = p.Project(one);
    ASSERT_NEAR(one.Distance(foot, true), 0, 4e-14);
    ASSERT_NEAR((p - foot).Distance(one.Normal() * one.Distance(p, false)), 0, 4e-14);
  }
}

// A motion with uniform scaling takes the plane to the plane through the images of three points.
TEST_F(RandomPlanes, AreCarriedLikeTheirPoints) {
  for (int i = 0; i < 200; ++i) {
    const Coord3D p[] = {Point(), Point(), Point()};
    Matrix4 m;
    m.Rotate(i, Point());
    m.Translate(Point());
    m.Scale(2.5);
    ExpectNear(m * Plane(p), FieldsOf(Plane(m * p[0], m * p[1], m * p[2])), 1e-11);
  }
}

// A shear carries the normal as a direction, not the plane; a flattened normal is none.
TEST(Plane, OtherMapsCarryTheNormalAsADirection) {
  Matrix4 m;
  m[0][2] = 1;
  ExpectNear(m * Plane(0, 0, 1, 0), {std::sqrt(0.5), 0, std::sqrt(0.5), 0}, 1e-15);
  m.SetIdentity();
  m.Scale(1, 1, 0);
  EXPECT_EQ(FieldsOf(m * Plane(0, 0, 1, -5)), (Fields{0, 0, 0, 0}));
}

}  // namespace
