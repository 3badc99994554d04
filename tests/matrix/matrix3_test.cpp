#include "zyl/geometry/matrix3.h"

#include <gtest/gtest.h>

#include <cmath>

#include "zyl/geometry/matrix4.h"

namespace {

using zyl::geometry::Coord2D;
using zyl::geometry::Coord3D;
using zyl::geometry::Matrix3;
using zyl::geometry::Matrix4;

constexpr double kPi = 3.141592653589793;
constexpr double kValues[9] = {1, 2, 3, 4, 5, 6, 7, 8, 10};

void ExpectImage(const Matrix3& m, const Coord2D& p, const Coord2D& expected) {
  const Coord2D image = m * p;
  EXPECT_NEAR(image.x, expected.x, 1e-15);
  EXPECT_NEAR(image.y, expected.y, 1e-15);
}

TEST(Matrix3, TakesTheLinearPartOfAMatrix4) {
  Matrix4 a;
  a.Translate(7, 8, 9);
  EXPECT_TRUE(Matrix3(a).IsIdentity());
  a[3][0] = 5;
  a[0][2] = 6;
  a[2][1] = 4;
  const double linear[9] = {1, 0, 6, 0, 1, 0, 0, 4, 1};
  EXPECT_EQ(Matrix3(a), Matrix3(linear));
}

TEST(Matrix3, SetColumnWritesARowAndGetColumnReadsAColumn) {
  Matrix3 m(kValues);
  m.SetColumn(1, Coord3D(-1, -2, -3));
  EXPECT_EQ(Coord3D(m[1]), Coord3D(-1, -2, -3));
  EXPECT_EQ(m.GetColumn(1), Coord3D(2, -2, 8));
}

TEST(Matrix3, MapsSpaceLinearlyAndThePlaneAffinely) {
  const Matrix3 m(kValues);
  EXPECT_EQ(m * Coord3D(1, 10, 100), Coord3D(321, 654, 1087));
  ExpectImage(m, Coord2D(10, 100), Coord2D(213, 546));
  EXPECT_EQ(m.Cofactor(0, 1), 2);
  EXPECT_EQ(m.Det(), -3);
}

TEST(Matrix3, RotateAndTranslateActAfterWhatIsAlreadyThere) {
  Matrix3 m;
  m.Translate(1, 0);
  m.Rotate(kPi / 2);
  ExpectImage(m, Coord2D(0, 0), Coord2D(0, 1));
  m.SetIdentity();
  m.Rotate(kPi / 2);
  m.Translate(Coord2D(1, 0));
  ExpectImage(m, Coord2D(0, 0), Coord2D(1, 0));
  ExpectImage(m, Coord2D(1, 0), Coord2D(1, 1));
}

TEST(Matrix3, ScaleActsBeforeWhatIsAlreadyThere) {
  Matrix3 m;
  m.Translate(3, 4);
  m.Scale(2);
  ExpectImage(m, Coord2D(1, 1), Coord2D(5, 6));
}

// With a last row of its own, each builder still is a product with its elementary matrix.
TEST(Matrix3, BuildersAreProductsOnTheirSide) {
  Matrix3 translation;
  translation.Translate(2, 3);
  Matrix3 scaling;
  scaling.Scale(4);
  Matrix3 rotation;
  rotation.Rotate(0.5);
  const Matrix3 m(kValues);
  Matrix3 built = m;
  built.Translate(2, 3);
  EXPECT_EQ(built, translation * m);
  built = m;
  built.Scale(4);
  EXPECT_EQ(built, m * scaling);
  built = m;
  built.Rotate(0.5);
  EXPECT_EQ(built, rotation * m);
  EXPECT_EQ(built[2][0], 7);
}

}  // namespace
