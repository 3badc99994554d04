#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "zyl/geometry/geom.h"

namespace {

using namespace zyl::geometry;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class GeomOrientation : public ::testing::Test {
 protected:
  void SetUp() override { geom_Init(); }
};

TEST_F(GeomOrientation, InThePlaneIgnoresHeight) {
  const Coord3D a(0, 0, 7), b(1, 0, -3), c(0, 1, 1e9);
  EXPECT_EQ(geom_Orient2D(a, b, c, 0), ORIENT_COUNTERCLOCKWISE);
  EXPECT_EQ(geom_Orient2D(b, a, c, 0), ORIENT_CLOCKWISE);
  EXPECT_EQ(geom_Orient2D(a, Coord3D(0, 0, 8), c, 0), ORIENT_UNDEFINED);
  EXPECT_EQ(geom_Orient2D(a, Coord3D(0, 0, 8), a, 0), ORIENT_UNDEFINED);
  EXPECT_EQ(geom_Orient2D(a, b, Coord3D(0, 0, 1), 0), ORIENT_COLLINEAR);
  EXPECT_EQ(geom_Orient2D(a, b, Coord3D(1, 0, 1), 0), ORIENT_COLLINEAR);
}

TEST_F(GeomOrientation, ToleranceIsTwiceAnArea) {
  const Coord3D a(0, 0, 0), b(4, 0, 0), c(1, 2, 0);  // twice the area: 8
  EXPECT_EQ(geom_Orient2D(a, b, c, 8), ORIENT_COUNTERCLOCKWISE);
  EXPECT_EQ(geom_Orient2D(b, a, c, 8), ORIENT_CLOCKWISE);
  EXPECT_EQ(geom_Orient2D(a, b, c, std::nextafter(8.0, 9.0)), ORIENT_COLLINEAR);
  EXPECT_EQ(geom_Orient2D(b, a, c, std::nextafter(8.0, 9.0)), ORIENT_COLLINEAR);
  const Coord3D on(3, 0, 0);
  EXPECT_EQ(geom_Orient2D(a, b, on, -1), ORIENT_COLLINEAR);
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

TEST_F(GeomOrientation, BelowAPlaneIsWhereItsPointsRunClockwise) {
  const Coord3D a(0, 0, 0), b(1, 0, 0), c(0, 1, 0);
  EXPECT_EQ(geom_Orient3D(a, b, c, Coord3D(0, 0, -1)), ORIENT_BELOW);
  EXPECT_EQ(geom_Orient3D(a, b, c, Coord3D(0, 0, 1)), ORIENT_ABOVE);
  EXPECT_EQ(geom_Orient3D(a, c, b, Coord3D(0, 0, 1)), ORIENT_BELOW);
  EXPECT_EQ(geom_Orient3D(a, b, c, Coord3D(100, -7, 0)), ORIENT_COPLANAR);
  EXPECT_EQ(geom_Orient3D(a, b, c, Coord3D(100, -7, 5e-324)), ORIENT_ABOVE);
}

TEST_F(GeomOrientation, PointsInLineHaveNoPlaneOrOneThatHoldsEverything) {
  const Coord3D d(3, -1, 12);
  EXPECT_EQ(geom_Orient3D(Coord3D(0, 0, 0), Coord3D(1, 1, 1), Coord3D(3, 3, 3), d),
            ORIENT_UNDEFINED);
  EXPECT_EQ(geom_Orient3D(d, d, Coord3D(1, 1, 1), Coord3D(2, 2, 2)), ORIENT_UNDEFINED);

  // Multiples of (1, 3, 0) whose differences are rounded: the z of their product is then 2^-51.
  const double t = std::ldexp(1, -53);
  const Coord3D a(1, 3, 0), b(t, 3 * t, 0), c(2 * t, 6 * t, 0);
  EXPECT_EQ(geom_Orient3D(a, b, c, d), ORIENT_COPLANAR);
  EXPECT_EQ(geom_Orient3D(a, b, c, Coord3D(0, 0, 5)), ORIENT_COPLANAR);
}

TEST_F(GeomOrientation, CircleDoesNotDependOnTheTurnOfItsPoints) {
  const Coord3D a(5, 0, 0), b(3, 4, 1), c(-5, 0, 2);
  const Coord3D on(0, -5, 3), inside(0, -4.9, 3), outside(0, std::nextafter(-5, -6), 3);
  for (bool reversed : {false, true}) {
    const Coord3D& first = reversed ? c : a;
    const Coord3D& last = reversed ? a : c;
    EXPECT_EQ(geom_InCircle(first, b, last, on), ORIENT_ON);
    EXPECT_EQ(geom_InCircle(first, b, last, inside), ORIENT_INSIDE);
    EXPECT_EQ(geom_InCircle(first, b, last, outside), ORIENT_OUTSIDE);
  }
  EXPECT_EQ(geom_InCircle(a, c, Coord3D(0, 0, 0), b), ORIENT_UNDEFINED);
  EXPECT_EQ(geom_InCircle(a, a, c, b), ORIENT_UNDEFINED);
}

TEST_F(GeomOrientation, SphereDependsOnOrderOnlyAsGiven) {
  const Coord3D a(3, 0, 0), b(0, 3, 0), c(0, 0, 3), below(-3, 0, 0);
  const Coord3D centre(0, 0, 0), on(2, 2, 1), outside(2, 2, std::nextafter(1, 2));
  for (const bool asGiven : {false, true}) {
    const auto in = [&](const Coord3D& first, const Coord3D& second, const Coord3D& p) {
      return geom_InSphere(a, first, second, below, p, asGiven);
    };
    EXPECT_EQ(in(b, c, centre), ORIENT_INSIDE);
    EXPECT_EQ(in(b, c, outside), ORIENT_OUTSIDE);
    EXPECT_EQ(in(c, b, centre), asGiven ? ORIENT_OUTSIDE : ORIENT_INSIDE);
    EXPECT_EQ(in(c, b, outside), asGiven ? ORIENT_INSIDE : ORIENT_OUTSIDE);
    EXPECT_TRUE(in(b, c, on) == ORIENT_ON && in(c, b, on) == ORIENT_ON);
    EXPECT_EQ(in(a, c, centre), ORIENT_UNDEFINED);
    EXPECT_EQ(geom_InSphere(a, b, c, Coord3D(1, 1, 1), centre, asGiven), ORIENT_UNDEFINED);
  }
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
