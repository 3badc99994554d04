#include <gtest/gtest.h>

#include <cmath>

#include "support/exact.h"
#include "support/seeded.h"
#include "zyl/geometry/geom.h"

namespace {

using namespace zyl::geometry;

struct GeomOrientation : Seeded<13> {
  GeomOrientation() { geom_Init(); }
};

Orientation_e Of(int sign, Orientation_e positive, Orientation_e negative, Orientation_e zero) {
  return sign > 0 ? positive : sign < 0 ? negative : zero;
}

// A circle or a sphere through points that turn neither way is none.
Orientation_e InBall(int turn, int sign) {
  return turn == 0 ? ORIENT_UNDEFINED : Of(turn * sign, ORIENT_INSIDE, ORIENT_OUTSIDE, ORIENT_ON);
}

// Points of a grid of 3 by 3 by 3, which coincide, and lie in line, again and again. In the plane
// their heights do not count.
TEST_F(GeomOrientation, IsThatOfExactArithmeticWithNamesForDegenerateCases) {
  for (int round = 0; round < 20000; ++round) {
    Coord3D p[5];
    for (Coord3D& q : p) {
      q = {Whole(-1, 1), Whole(-1, 1), Whole(-1, 1)};
    }
    const auto& [a, b, c, d, e] = p;
    const bool noLine = a.x == b.x && a.y == b.y, noPlane = (b - a).Cross(c - a) == Coord3D();
    const int turn = exact::Orient2D(&a.x, &b.x, &c.x);
    const int side = exact::Orient3D(&a.x, &b.x, &c.x, &d.x);
    const int circle = exact::InCircle(&a.x, &b.x, &c.x, &d.x);
    const int sphere = exact::InSphere(&a.x, &b.x, &c.x, &d.x, &e.x);
    ASSERT_EQ(geom_Orient2D(a, b, c, 0),
              noLine ? ORIENT_UNDEFINED
                     : Of(turn, ORIENT_COUNTERCLOCKWISE, ORIENT_CLOCKWISE, ORIENT_COLLINEAR));
    ASSERT_EQ(geom_Orient3D(a, b, c, d),
              noPlane ? ORIENT_UNDEFINED : Of(side, ORIENT_BELOW, ORIENT_ABOVE, ORIENT_COPLANAR));
    ASSERT_EQ(geom_InCircle(a, b, c, d), InBall(turn, circle));
    ASSERT_EQ(geom_InSphere(a, b, c, d, e, false), InBall(side, sphere));
    ASSERT_EQ(geom_InSphere(a, b, c, d, e, true), InBall(side * side, sphere)) << "as given";
  }
}

TEST_F(GeomOrientation, ToleranceIsTwiceAnArea) {
  const Coord3D a(0, 0, 0), b(4, 0, 0), c(1, 2, 0);  // twice the area: 8
  EXPECT_EQ(geom_Orient2D(a, b, c, 8), ORIENT_COUNTERCLOCKWISE);
  EXPECT_EQ(geom_Orient2D(b, a, c, 8), ORIENT_CLOCKWISE);
  EXPECT_EQ(geom_Orient2D(a, b, c, std::nextafter(8.0, 9.0)), ORIENT_COLLINEAR);
  EXPECT_EQ(geom_Orient2D(b, a, c, std::nextafter(8.0, 9.0)), ORIENT_COLLINEAR);
  EXPECT_EQ(geom_Orient2D(a, b, Coord3D(3, 0, 0), -1), ORIENT_COLLINEAR);
  EXPECT_EQ(geom_Orient2D(a, b, Coord3D(3, 5e-324, 0), -1), ORIENT_COUNTERCLOCKWISE);
}

// One ulp beside the line y = x, where the determinant in plain doubles is 0.
TEST_F(GeomOrientation, OnlyExactCollinearityCountsAsCollinear) {
  const Coord3D a(12, 12, 0), b(24, 24, 0);
  const double half = 0.5, more = std::nextafter(0.5, 1);
  EXPECT_EQ(geom_Orient2D(a, b, Coord3D(half, half, 0), 0), ORIENT_COLLINEAR);
  EXPECT_EQ(geom_Orient2D(a, b, Coord3D(half, more, 0), 0), ORIENT_COUNTERCLOCKWISE);
  EXPECT_EQ(geom_Orient2D(a, b, Coord3D(more, half, 0), 0), ORIENT_CLOCKWISE);
}

// Multiples of (1, 3, 0) whose differences are rounded: the z of their product is then 2^-51.
TEST_F(GeomOrientation, PointsInLineButForRoundingHaveAPlaneThatHoldsEverything) {
  const double t = std::ldexp(1, -53);
  const Coord3D a(1, 3, 0), b(t, 3 * t, 0), c(2 * t, 6 * t, 0);
  EXPECT_EQ(geom_Orient3D(a, b, c, Coord3D(3, -1, 12)), ORIENT_COPLANAR);
  EXPECT_EQ(geom_Orient3D(a, b, c, Coord3D(0, 0, 5)), ORIENT_COPLANAR);
}

TEST_F(GeomOrientation, NaNIsUndefined) {
  const Coord3D a(0, 0, 0), b(4, 0, 0), c(0, 4, 0), d(0, 0, -4), nan(1, kNaN, 0);
  EXPECT_EQ(geom_Orient2D(a, b, nan, 0), ORIENT_UNDEFINED);
  EXPECT_EQ(geom_Orient2D(nan, b, c, 1e300), ORIENT_UNDEFINED);
  EXPECT_EQ(geom_Orient2D(a, b, c, kNaN), ORIENT_COUNTERCLOCKWISE);
  EXPECT_EQ(geom_Orient3D(a, b, c, nan), ORIENT_UNDEFINED);
  EXPECT_EQ(geom_Orient3D(a, nan, c, d), ORIENT_UNDEFINED);
  EXPECT_EQ(geom_InCircle(a, b, c, nan), ORIENT_UNDEFINED);
  EXPECT_EQ(geom_InSphere(a, b, c, d, nan, false), ORIENT_UNDEFINED);
}

}  // namespace
