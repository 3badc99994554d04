#include "zyl/geometry/coord.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Point3D;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kPi = 3.141592653589793;

TEST(Coord3D, IsThreeDoublesThatMayBeCopiedAsBytes) {
  static_assert(std::is_trivially_copyable_v<Coord3D> && std::is_standard_layout_v<Coord3D>);
  static_assert(std::is_trivially_copyable_v<Point3D> && sizeof(Point3D) == sizeof(Coord3D));
  double values[3] = {1, 2, 3};
  EXPECT_EQ(Coord3D(values), Coord3D(1, 2, 3));
  EXPECT_EQ(Coord3D(Point3D(1, 2, 3)), Coord3D(1, 2, 3));
  Coord3D all;
  EXPECT_EQ(&(all = 7.0), &all);
  EXPECT_EQ(all, Coord3D(7, 7, 7));
}

TEST(Coord3D, EqualityHasNoTolerance) {
  EXPECT_TRUE(Coord3D(1, 2, 3) == Coord3D(1, 2, 3));
  EXPECT_TRUE(Coord3D(1, 2, 3) != Coord3D(1, 2, std::nextafter(3.0, 4.0)));
  EXPECT_TRUE(Coord3D(0.0, 0, 0) == Coord3D(-0.0, 0, 0));
  const Coord3D nan(1, kNaN, 3);
  EXPECT_FALSE(nan == nan);
  EXPECT_TRUE(nan != nan);
  EXPECT_TRUE(Point3D(1, 2, kNaN) != Point3D(1, 2, kNaN));
}

TEST(Coord3D, IsOrderedByZThenYThenX) {
  EXPECT_LT(Coord3D(5, 0, 1), Coord3D(0, 0, 2));
  EXPECT_LT(Coord3D(5, 0, 1), Coord3D(0, 1, 1));
  EXPECT_FALSE(Coord3D(0, 1, 1) < Coord3D(5, 0, 1));
  EXPECT_LT(Coord3D(1, 1, 1), Coord3D(2, 1, 1));
  EXPECT_FALSE(Coord3D(1, 1, 1) < Coord3D(1, 1, 1));
  EXPECT_FALSE(Coord3D(0, 0, kNaN) < Coord3D(1, 1, 1));
}

TEST(Coord3D, ArithmeticWorksByComponent) {
  const Coord3D a(1, 2, 3);
  const Coord3D b(4, -5, 6);
  EXPECT_EQ(a * b, Coord3D(4, -10, 18));
  EXPECT_EQ(a * 2.0, Coord3D(2, 4, 6));
  EXPECT_EQ(a + b, Coord3D(5, -3, 9));
  EXPECT_EQ(a - b, Coord3D(-3, 7, -3));
  EXPECT_TRUE(std::signbit((-Coord3D(0.0, 1, 1)).x));
  Coord3D c = a;
  c += b;
  c -= Coord3D(1, 1, 1);
  c *= 2.0;
  EXPECT_EQ(c, Coord3D(8, -8, 16));
  c[1] = 5;
  EXPECT_EQ(c[0] + c[1] + c[2], 29);
}

TEST(Coord3D, MeasuresVectors) {
  EXPECT_EQ(Coord3D(1, 2, 3).Dot(Coord3D(4, -5, 6)), 12);
  EXPECT_EQ(Coord3D(1, 2, 3).Cross(Coord3D(4, -5, 6)), Coord3D(27, 6, -13));
  EXPECT_EQ(Coord3D(2, 3, 6).Magnitude(), 7);
  EXPECT_EQ(Coord3D(1, 1, 1).Distance(Coord3D(3, 4, 7)), 7);
  EXPECT_EQ(Coord3D(1, 1, 1).SquaredDistance(Coord3D(3, 4, 7)), 49);
}

TEST(Coord3D, NormaliseOfTheZeroVectorIsNaN) {
  Coord3D v(0, 3, 4);
  v.Normalise();
  EXPECT_EQ(v, Coord3D(0, 0.6, 0.8));
  Coord3D zero;
  zero.Normalise();
  EXPECT_TRUE(std::isnan(zero.x) && std::isnan(zero.y) && std::isnan(zero.z));
}

TEST(Coord3D, AnglesDoNotDependOnLength) {
  EXPECT_DOUBLE_EQ(Coord3D(1, 0, 0).Angle(Coord3D(0, 3, 0)), kPi / 2);
  EXPECT_DOUBLE_EQ(Coord3D(1, 0, 0).Angle(Coord3D(-7, 0, 0)), kPi);
  EXPECT_TRUE(std::isnan(Coord3D(1, 0, 0).Angle(Coord3D())));
}

TEST(Coord3D, ParallelExcludesOppositeAndZeroVectors) {
  EXPECT_TRUE(Coord3D::Parallel(Coord3D(1, 0, 0), Coord3D(2, 0.01, 0), 0.1));
  EXPECT_FALSE(Coord3D::Parallel(Coord3D(1, 0, 0), Coord3D(-1, 0, 0), 0.1));
  EXPECT_FALSE(Coord3D::Parallel(Coord3D(), Coord3D(1, 0, 0), 4.0));
  EXPECT_FALSE(Coord3D::Parallel(Coord3D(1, 0, 0), Coord3D(1, 0, 0), 0.0));  // strict
}

TEST(Coord3D, MaximumAndMinimumTakeTheArgumentWhereAValueIsNaN) {
  EXPECT_EQ(Coord3D(1, 5, kNaN).maximum(Coord3D(2, 3, 4)), Coord3D(2, 5, 4));
  EXPECT_EQ(Coord3D(1, 5, kNaN).minimum(Coord3D(2, 3, 4)), Coord3D(1, 3, 4));
  EXPECT_TRUE(std::isnan(Coord3D(1, 5, 6).maximum(Coord3D(kNaN, 3, 4)).x));
}

TEST(Coord3D, RotatesRightHandedAboutAnAxisThroughAPoint) {
  const Coord3D up(0, 0, 1);
  EXPECT_NEAR(Coord3D(1, 0, 0).Rotate(Coord3D(1, 1, 0), up, kPi / 2).Distance(Coord3D(2, 1, 0)), 0,
              1e-15);
}

TEST(Coord3D, RotateStretchesAlongAnAxisThatIsNotOfUnitLength) {
  EXPECT_EQ(Coord3D(0, 0, 5).Rotate(Coord3D(), Coord3D(0, 0, 1), 1), Coord3D(0, 0, 5));
  EXPECT_EQ(Coord3D(0, 0, 5).Rotate(Coord3D(), Coord3D(0, 0, 2), 1), Coord3D(0, 0, 20));
  EXPECT_TRUE(std::isnan(Coord3D(1, 2, 3).Rotate(Coord3D(), Coord3D(), 1).x));
}

}  // namespace
