// Points, vectors and directions.

#include <gtest/gtest.h>

#include <cmath>

#include "support/generate.h"
#include "zyl/geometry/coord.h"
#include "zyl/geometry/direction.h"

namespace {

using namespace zyl::geometry;

TEST(Coord3D, IsMadeOfAnArrayAPointOrOneNumber) {
  double values[3] = {1, 2, 3};
  EXPECT_EQ(Coord3D(values), Coord3D(1, 2, 3));
  EXPECT_EQ(Coord3D(Point3D(1, 2, 3)), Coord3D(1, 2, 3));
  Coord3D all;
  EXPECT_EQ(&(all = 7.0), &all);
  all[1] = 5;
  EXPECT_EQ(all, Coord3D(7, 5, 7));
}

TEST(Coord3D, EqualityHasNoTolerance) {
  const Coord3D p(3, 3, 3);
  for (int axis = 0; axis < 3; ++axis) {
    for (const double other : {std::nextafter(3.0, 4.0), kNaN}) {
      Coord3D q = p;
      q[axis] = other;
      EXPECT_TRUE(p != q && !(p == q) && Point3D(p) != Point3D(q) && !(Point3D(p) == Point3D(q)));
    }
  }
  EXPECT_EQ(Coord3D(0, 0, 0), Coord3D(-0.0, -0.0, -0.0));
}

TEST(Coord3D, IsOrderedByZThenYThenX) {
  const Coord3D ascending[] = {{9, 9, 1}, {9, 1, 2}, {1, 2, 2}, {2, 2, 2}};
  for (const Coord3D& a : ascending) {
    for (const Coord3D& b : ascending) {
      EXPECT_EQ(a < b, &a < &b);
    }
  }
  EXPECT_FALSE(Coord3D(0, 0, kNaN) < Coord3D(1, 1, 1));
}

template <class Vector>
bool Same(const Vector& a, const Vector& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z;
}

template <class Vector>
class Arithmetic : public testing::Test {};
using Vectors = testing::Types<Coord3D, Direction>;
TYPED_TEST_SUITE(Arithmetic, Vectors, );

TYPED_TEST(Arithmetic, WorksByComponent) {
  const TypeParam a(1, 2, 3), b(4, -5, 6);
  EXPECT_TRUE(Same(TypeParam(), TypeParam(0, 0, 0)));
  EXPECT_TRUE(Same(a + b, TypeParam(5, -3, 9)));
  EXPECT_TRUE(Same(a - b, TypeParam(-3, 7, -3)));
  EXPECT_TRUE(Same(a * 2.0, TypeParam(2, 4, 6)));
  EXPECT_TRUE(Same(-a, TypeParam(-1, -2, -3)));
  EXPECT_TRUE(std::signbit((-TypeParam(0.0, 1, 1)).x));
  EXPECT_TRUE(Same(a.Cross(b), TypeParam(27, 6, -13)));
  EXPECT_EQ(a.Dot(b), 12);
  TypeParam c = a;
  c += b;
  c -= TypeParam(1, 1, 1);
  c *= 2.0;
  EXPECT_TRUE(Same(c, TypeParam(8, -8, 16)));
  EXPECT_EQ(c[0] + c[1] * c[2], -120);
}

TEST(Coord3D, MeasuresVectors) {
  EXPECT_EQ(Coord3D(1, 2, 3) * Coord3D(4, -5, 6), Coord3D(4, -10, 18));
  EXPECT_EQ(Coord3D(2, 3, 6).Magnitude(), 7);
  EXPECT_EQ(Coord3D(1, 1, 1).Distance(Coord3D(3, 4, 7)), 7);
  EXPECT_EQ(Coord3D(1, 1, 1).SquaredDistance(Coord3D(3, 4, 7)), 49);
  Coord3D v(0, 3, 4);
  v.Normalise();
  EXPECT_EQ(v, Coord3D(0, 0.6, 0.8));
}

TEST(Coord3D, AnglesDoNotDependOnLengthAndParallelIsStrict) {
  const Coord3D x(1, 0, 0), zero;
  EXPECT_DOUBLE_EQ(x.Angle(Coord3D(0, 3, 0)), kPi / 2);
  EXPECT_DOUBLE_EQ(x.Angle(Coord3D(-7, 0, 0)), kPi);
  EXPECT_TRUE(std::isnan(x.Angle(zero)));
  EXPECT_TRUE(Coord3D::Parallel(x, Coord3D(2, 0.01, 0), 0.1));
  EXPECT_FALSE(Coord3D::Parallel(x, x, 0.0) || Coord3D::Parallel(zero, x, 4.0));
}

TEST(Coord3D, MaximumAndMinimumTakeTheArgumentWhereAValueIsNaN) {
  EXPECT_EQ(Coord3D(1, 5, kNaN).maximum(Coord3D(2, 3, 4)), Coord3D(2, 5, 4));
  EXPECT_EQ(Coord3D(1, 5, kNaN).minimum(Coord3D(2, 3, 4)), Coord3D(1, 3, 4));
  EXPECT_TRUE(std::isnan(Coord3D(1, 5, 6).maximum(Coord3D(kNaN, 3, 4)).x));
}

TEST(Direction, IsMadeOfTwoPointsDividedAndReadByComponent) {
  Direction d(Coord3D(1, 2, 3), Coord3D(2, 4, 6));
  EXPECT_TRUE(Same(d, Direction(1, 2, 3)));
  EXPECT_TRUE(Same(d / 4.0, Direction(0.25, 0.5, 0.75)));
  EXPECT_TRUE(std::isinf((d / 0.0).x));
  EXPECT_EQ(d.Dot(Coord3D(4, -5, 6)), 12);
  d /= 2.0;
  EXPECT_TRUE(Same(d, Direction(0.5, 1, 1.5)));
  d.SetDirection(7, 8, 9);
  EXPECT_EQ(d.GetXDirection() + d.GetYDirection() * d.GetZDirection(), 79);
}

TEST(Direction, NormalizeLeavesWhatHasNoLength) {
  const auto normalized = [](Direction d) {
    d.Normalize();
    return d;
  };
  EXPECT_TRUE(Same(normalized({0, 3, 4}), Direction(0, 0.6, 0.8)));
  EXPECT_TRUE(Same(normalized({-5, 0, 0}), Direction(-1, 0, 0)));
  EXPECT_TRUE(Same(normalized({1e-200, 0, 0}), Direction(1e-200, 0, 0))) << "its square underflows";
}

TEST(Direction, BearingsRunClockwiseFromNorthAndInclinationsUp) {
  const double half = std::sqrt(0.5);
  const auto expect = [](double bearing, double inclination, const Coord3D& expected) {
    Direction d(7, 7, 7);
    d.SetDirectionByBearingDegrees(bearing, inclination);
    EXPECT_NEAR(Coord3D(d.x, d.y, d.z).Distance(expected), 0, 3e-16) << bearing;
  };
  expect(0, 0, {0, 1, 0});
  expect(90, 0, {1, 0, 0});
  expect(0, 90, {0, 0, 1});
  expect(180, -45, {0, -half, -half});
  expect(-45, 0, {-half, half, 0});
}

}  // namespace
