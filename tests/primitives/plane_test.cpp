#include "zyl/geometry/plane.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "support/seeded.h"
#include "zyl/geometry/matrix4.h"

namespace {

using namespace zyl::geometry;

constexpr double kPi = 3.141592653589793;

using Fields = std::array<double, 4>;

Fields FieldsOf(const Plane& p) { return {p.a, p.b, p.c, p.d}; }

// By reference, because returning a plane may copy and so normalise it.
void SetFields(Plane& plane, const Fields& fields) {
  plane.a = fields[0];
  plane.b = fields[1];
  plane.c = fields[2];
  plane.d = fields[3];
}

void ExpectNear(const Plane& plane, const Fields& expected, double tolerance) {
  const Fields fields = FieldsOf(plane);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_NEAR(fields[i], expected[i], tolerance) << i;
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
  Plane none(0, 0, 0, 5);
  EXPECT_EQ(none.Normalize(), -1);
  EXPECT_EQ(Coord3D(1, 2, 3).Project(none), Coord3D(1, 2, 3));
  const Plane collinear(Coord3D(1, 1, 1), Coord3D(2, 2, 2), Coord3D(4, 4, 4));
  EXPECT_EQ(FieldsOf(collinear), (Fields{0, 0, 0, 0}));
  SetFields(none, {0, 3, 4, 10});
  EXPECT_EQ(none.Normalize(), 0);
}

TEST(Plane, MovesAndReversesAndMeasuresFromItsPositiveSide) {
  Plane plane(0, 0, 1, -2);
  plane.Move(3);
  EXPECT_EQ(FieldsOf(plane), (Fields{0, 0, 1, -5}));
  EXPECT_EQ(plane.Distance(Coord3D(1, 1, 1), false), -4);
  EXPECT_EQ(plane.Distance(Coord3D(1, 1, 1), true), 4);
  plane.Reverse();
  EXPECT_EQ(FieldsOf(plane), (Fields{0, 0, -1, 5}));
  EXPECT_EQ(plane.Orientation(Coord3D(1, 1, 1)), 4);
  Matrix4 toZUp;
  Matrix4 fromZUp;
  plane.GetZUpTransform(toZUp, fromZUp);
  EXPECT_EQ(toZUp * Coord3D(0, 0, -1), Coord3D(0, 0, 1));
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
  Plane tilted;
  SetFields(tilted, {0.99e-5, 0, 1, 0});
  EXPECT_FALSE(level.Intersect(tilted, direction, point));
  EXPECT_EQ(direction.x, 7);
  EXPECT_EQ(point, Point3D(8, 8, 8));
  SetFields(tilted, {1e-5, 0, 1, 0});  // the bound itself is not below it
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
    const Plane carried = m * Plane(p);
    ExpectNear(carried, FieldsOf(Plane(m * p[0], m * p[1], m * p[2])), 1e-11);
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
