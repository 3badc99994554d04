#include "zyl/geometry/coord.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "zyl/geometry/direction.h"

namespace {

using namespace zyl::geometry;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kPi = 3.141592653589793;

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

template <class Vector>
class Arithmetic : public testing::Test {};
using Vectors = testing::Types<Coord3D, Direction>;
TYPED_TEST_SUITE(Arithmetic, Vectors, );

TYPED_TEST(Arithmetic, WorksByComponent) {
  const auto same = [](const TypeParam& v, double x, double y, double z) {
    return v.x == x && v.y == y && v.z == z;
  };
  const TypeParam a(1, 2, 3);
  const TypeParam b(4, -5, 6);
  EXPECT_TRUE(same(a + b, 5, -3, 9));
  EXPECT_TRUE(same(a - b, -3, 7, -3));
  EXPECT_TRUE(same(a * 2.0, 2, 4, 6));
  EXPECT_TRUE(std::signbit((-TypeParam(0.0, 1, 1)).x));
  EXPECT_TRUE(same(a.Cross(b), 27, 6, -13));
  EXPECT_EQ(a.Dot(b), 12);
  TypeParam c = a;
  c += b;
  c -= TypeParam(1, 1, 1);
  c *= 2.0;
  EXPECT_TRUE(same(c, 8, -8, 16));
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

TEST(Coord3D, AnglesDoNotDependOnLength) {
  EXPECT_DOUBLE_EQ(Coord3D(1, 0, 0).Angle(Coord3D(0, 3, 0)), kPi / 2);
  EXPECT_DOUBLE_EQ(Coord3D(1, 0, 0).Angle(Coord3D(-7, 0, 0)), kPi);
  EXPECT_TRUE(std::isnan(Coord3D(1, 0, 0).Angle(Coord3D())));
}

TEST(Coord3D, ParallelIsStrictAndExcludesTheZeroVector) {
  EXPECT_TRUE(Coord3D::Parallel(Coord3D(1, 0, 0), Coord3D(2, 0.01, 0), 0.1));
  EXPECT_FALSE(Coord3D::Parallel(Coord3D(), Coord3D(1, 0, 0), 4.0));
  EXPECT_FALSE(Coord3D::Parallel(Coord3D(1, 0, 0), Coord3D(1, 0, 0), 0.0));  // strict
}

TEST(Coord3D, MaximumAndMinimumTakeTheArgumentWhereAValueIsNaN) {
  EXPECT_EQ(Coord3D(1, 5, kNaN).maximum(Coord3D(2, 3, 4)), Coord3D(2, 5, 4));
  EXPECT_EQ(Coord3D(1, 5, kNaN).minimum(Coord3D(2, 3, 4)), Coord3D(1, 3, 4));
  EXPECT_TRUE(std::isnan(Coord3D(1, 5, 6).maximum(Coord3D(kNaN, 3, 4)).x));
}

}  // namespace
