#include "zyl/geometry/plane.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>

#include "zyl/geometry/matrix4.h"

namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Direction;
using zyl::geometry::Matrix4;
using zyl::geometry::Plane;
using zyl::geometry::Point3D;

constexpr double kPi = 3.141592653589793;
constexpr unsigned kSeed = 33;

using Fields = std::array<double, 4>;

Fields FieldsOf(const Plane& p) { return {p.a, p.b, p.c, p.d}; }

void ExpectNear(const Plane& plane, const Fields& expected, double tolerance = 1e-15) {
  const Fields fields = FieldsOf(plane);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_NEAR(fields[i], expected[i], tolerance) << i;
  }
}

// By reference, because returning a plane may copy and so normalise it.
void SetFields(Plane& plane, const Fields& fields) {
  plane.a = fields[0];
  plane.b = fields[1];
  plane.c = fields[2];
  plane.d = fields[3];
}

class RandomPlanes : public testing::Test {
 protected:
  double Uniform() { return uniform_(random_); }
  Coord3D Point() { return {Uniform(), Uniform(), Uniform()}; }

 private:
  testing::ScopedTrace trace_{__FILE__, __LINE__, kSeed};
  std::mt19937 random_{kSeed};
  std::uniform_real_distribution<double> uniform_{-10, 10};
};

TEST(Plane, ConstructorsBringTheNormalToUnitLength) {
  EXPECT_EQ(FieldsOf(Plane()), (Fields{0, 0, 0, 0}));
  EXPECT_EQ(FieldsOf(Plane(0, 0, 2, -4)), (Fields{0, 0, 1, -2}));
  EXPECT_EQ(FieldsOf(Plane(Direction(0, 3, 4), 10)), (Fields{0, 0.6, 0.8, 2}));
  EXPECT_EQ(FieldsOf(Plane(Direction(0, 0, 2), Coord3D(7, 8, 9))), (Fields{0, 0, 1, -9}));
  EXPECT_EQ(FieldsOf(Plane(Direction(0, 0, 2), Point3D(7, 8, 9))), (Fields{0, 0, 1, -9}));
}

TEST(Plane, CopyConstructionNormalisesAndAssignmentDoesNot) {
  Plane direct;
  SetFields(direct, {0, 0, 2, -4});
  const Plane copy(direct);
  EXPECT_EQ(FieldsOf(copy), (Fields{0, 0, 1, -2}));
  Plane assigned;
  assigned = direct;
  EXPECT_EQ(FieldsOf(assigned), (Fields{0, 0, 2, -4}));
}

TEST(Plane, FacesTheSideFromWhichItsPointsRunCounterclockwise) {
  const Coord3D points[] = {{0, 0, 5}, {4, 0, 5}, {0, 3, 5}};
  EXPECT_EQ(FieldsOf(Plane(points)), (Fields{0, 0, 1, -5}));
  EXPECT_EQ(FieldsOf(Plane(points[0], points[2], points[1])), (Fields{0, 0, -1, 5}));
  const Plane roof(points);
  EXPECT_EQ(roof.Distance(Coord3D(1, 1, 7), false), 2);
  EXPECT_EQ(roof.Distance(Coord3D(1, 1, 1), false), -4);
  EXPECT_EQ(roof.Distance(Coord3D(1, 1, 1), true), 4);
  EXPECT_EQ(roof.Orientation(Coord3D(1, 1, 1)), -4);
}

TEST(Plane, AZeroNormalStaysAndIsReportedByNormalizeAlone) {
  Plane none(0, 0, 0, 5);
  EXPECT_EQ(none.Normalize(), -1);
  EXPECT_EQ(FieldsOf(none), (Fields{0, 0, 0, 5}));
  EXPECT_EQ(none.Distance(Coord3D(1, 2, 3), false), 5);
  EXPECT_EQ(Coord3D(1, 2, 3).Project(none), Coord3D(1, 2, 3));
  EXPECT_EQ(FieldsOf(Plane(Coord3D(1, 1, 1), Coord3D(2, 2, 2), Coord3D(4, 4, 4))),
            (Fields{0, 0, 0, 0}));
  Plane tiny;
  SetFields(tiny, {1e-200, 0, 0, 1});  // its square underflows
  EXPECT_EQ(tiny.Normalize(), -1);
  EXPECT_EQ(tiny.a, 1e-200);
  Plane steep;
  SetFields(steep, {0, 3, 4, 10});
  EXPECT_EQ(steep.Normalize(), 0);
  EXPECT_EQ(FieldsOf(steep), (Fields{0, 0.6, 0.8, 2}));
}

TEST_F(RandomPlanes, HoldTheThreePointsTheyWereBuiltThrough) {
  for (int i = 0; i < 200; ++i) {
    const Coord3D p[] = {Point(), Point(), Point()};
    const Plane plane(p);
    ASSERT_NEAR(plane.Normal().Magnitude(), 1, 1e-15);
    for (const Coord3D& q : p) {
      ASSERT_NEAR(plane.Distance(q, true), 0, 1e-13);
    }
    ASSERT_GT(plane.Normal().Dot((p[1] - p[0]).Cross(p[2] - p[0])), 0);
  }
}

TEST(Plane, DipsToTheRightOfItsStrike) {
  ExpectNear(Plane(Coord3D(), 0, kPi / 6), {0.5, 0, std::sqrt(0.75), 0});
  ExpectNear(Plane(Coord3D(1, 2, 3), Coord3D(1, 9, 77), kPi / 2), {1, 0, 0, -1});
  EXPECT_EQ(FieldsOf(Plane(Coord3D(1, 2, 3), Coord3D(5, 5, 5), 0)), (Fields{0, 0, 1, -3}));
}

// The normal leans by the dip towards the bearing strike + 90°.
TEST(Plane, StrikeAndDipGiveTheNormalOfTheCompass) {
  const Coord3D p(3, -4, 5);
  for (int strike = 0; strike < 360; strike += 15) {
    for (int dip = 0; dip < 90; dip += 10) {
      const double toDip = (strike + 90) * kPi / 180;
      const double angle = dip * kPi / 180;
      const Coord3D normal(std::sin(angle) * std::sin(toDip), std::sin(angle) * std::cos(toDip),
                           std::cos(angle));
      ExpectNear(Plane(p, strike * kPi / 180, angle),
                 {normal.x, normal.y, normal.z, -normal.Dot(p)}, 1e-14);
    }
  }
}

TEST(Plane, ADipWithoutAHorizontalLineHasNoNormal) {
  const Plane none(Coord3D(1, 2, 3), Coord3D(1, 2, 9), 0.5);
  EXPECT_EQ(FieldsOf(none), (Fields{0, 0, 0, 0}));
}

TEST(Plane, MovesAndReverses) {
  Plane plane(0, 0, 1, -2);
  plane.Move(3);
  EXPECT_EQ(FieldsOf(plane), (Fields{0, 0, 1, -5}));
  plane.Reverse();
  EXPECT_EQ(FieldsOf(plane), (Fields{0, 0, -1, 5}));
}

TEST(Plane, IntersectGivesTheCommonLine) {
  Direction direction;
  Point3D point;
  ASSERT_TRUE(Plane(0, 0, 1, 0).Intersect(Plane(1, 0, 0, -1), direction, point));
  EXPECT_EQ(Coord3D(direction.x, direction.y, direction.z), Coord3D(0, 1, 0));
  EXPECT_EQ(point, Point3D(1, 0, 0));
  ASSERT_TRUE(Plane(1, 0, 0, -1).Intersect(Plane(0, 0, 1, 0), direction, point));
  EXPECT_EQ(direction.y, -1);
}

TEST(Plane, IntersectLeavesItsOutputsWherePlanesAreNearlyParallel) {
  Direction direction(7, 7, 7);
  Point3D point(8, 8, 8);
  const Plane level(0, 0, 1, 0);
  EXPECT_FALSE(level.Intersect(Plane(0, 0, 1, -1), direction, point));
  Plane tilted;
  SetFields(tilted, {0.99e-5, 0, 1, 0});
  EXPECT_FALSE(level.Intersect(tilted, direction, point));
  EXPECT_EQ(direction.x, 7);
  EXPECT_EQ(point, Point3D(8, 8, 8));
  SetFields(tilted, {1e-5, 0, 1, 0});  // the bound itself is not below it
  EXPECT_TRUE(level.Intersect(tilted, direction, point));
}

TEST_F(RandomPlanes, MeetInALineThatLiesInBoth) {
  for (int i = 0; i < 200; ++i) {
    const Plane one(Direction(Point()), Uniform());
    const Plane other(Direction(Point()), Uniform());
    Direction direction;
    Point3D point;
    ASSERT_TRUE(one.Intersect(other, direction, point));
    const double sine = one.Normal().Cross(other.Normal()).Magnitude();
    ASSERT_NEAR(one.Distance(point, true), 0, 1e-14 / sine);
    ASSERT_NEAR(other.Distance(point, true), 0, 1e-14 / sine);
    ASSERT_NEAR(direction.Dot(Coord3D(point)), 0, 1e-13 / sine);  // nearest the origin
    ASSERT_NEAR(direction.Dot(direction), 1, 1e-15);
    ASSERT_NEAR(direction.Dot(one.Normal()), 0, 1e-15 / sine);
    ASSERT_GT(direction.Dot(one.Normal().Cross(other.Normal())), 0);
  }
}

TEST_F(RandomPlanes, ProjectDropsAPointAlongTheNormal) {
  EXPECT_EQ(Coord3D(3, 4, 10).Project(Plane(0, 0, 1, -2)), Coord3D(3, 4, 2));
  for (int i = 0; i < 200; ++i) {
    const Plane plane(Direction(Point()), Point());
    const Coord3D p = Point();
    const Coord3D foot = p.Project(plane);
    ASSERT_NEAR(plane.Distance(foot, true), 0, 1e-14);
    ASSERT_NEAR((p - foot).Distance(plane.Normal() * plane.Distance(p, false)), 0, 2e-14);
  }
}

TEST(Plane, IsCarriedByAMatrix) {
  const Plane level(0, 0, 1, -5);
  Matrix4 lift;
  lift.Translate(0, 0, 1);
  ExpectNear(lift * level, {0, 0, 1, -6});
  Matrix4 turn;
  turn.RotateX(kPi / 2);
  ExpectNear(turn * level, {0, -1, 0, -5});
}

// A motion with uniform scaling takes the plane to the plane through the images of three points.
TEST_F(RandomPlanes, AreCarriedLikeTheirPoints) {
  for (int i = 0; i < 200; ++i) {
    Coord3D p[] = {Point(), Point(), Point()};
    const Plane plane(p);
    Matrix4 m;
    m.Rotate(Uniform(), Uniform(), Uniform());
    m.Translate(Point());
    m.Scale(2.5);
    const Plane carried = m * plane;
    for (Coord3D& q : p) {
      q = m * q;
    }
    const Plane expected(p);
    ExpectNear(carried, FieldsOf(expected), 1e-11);
  }
}

TEST(Plane, AMatrixThatFlattensTheNormalLeavesNone) {
  Matrix4 flat;
  flat.Scale(1, 1, 0);
  EXPECT_EQ(FieldsOf(flat * Plane(0, 0, 1, -5)), (Fields{0, 0, 0, 0}));
  // A shear carries the normal as a direction, not the plane: (0, 0, 1) becomes (1, 0, 1)/√2.
  Matrix4 shear;
  shear[0][2] = 1;
  ExpectNear(shear * Plane(0, 0, 1, 0), {std::sqrt(0.5), 0, std::sqrt(0.5), 0});
}

TEST(Plane, TurnsItsNormalUp) {
  Matrix4 toZUp;
  Matrix4 fromZUp;
  Plane(0, -1, 0, 7).GetZUpTransform(toZUp, fromZUp);
  EXPECT_EQ(toZUp * Coord3D(0, -1, 0), Coord3D(0, 0, 1));
  EXPECT_EQ(fromZUp * Coord3D(0, 0, 1), Coord3D(0, -1, 0));
}

}  // namespace
