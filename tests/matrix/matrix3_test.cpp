#include "zyl/geometry/matrix3.h"

#include <gtest/gtest.h>

#include <cmath>

#include "zyl/geometry/matrix4.h"

namespace {

using namespace zyl::geometry;

constexpr double kValues[9] = {1, 2, 3, 4, 5, 6, 7, 8, 10};

TEST(Matrix3, TakesTheLinearPartOfAMatrix4) {
  Matrix4 a;
  a.Translate(7, 8, 9);
  a[3][0] = 5;
  EXPECT_TRUE(Matrix3(a).IsIdentity());
  a[1][2] = 6;
  EXPECT_EQ(Matrix3(a)[1][2], 6);
}

TEST(Matrix3, MapsSpaceLinearlyAndThePlaneAffinely) {
  const Matrix3 m(kValues);
  EXPECT_EQ(m * Coord3D(1, 10, 100), Coord3D(321, 654, 1087));
  const Coord2D image = m * Coord2D(10, 100);
  EXPECT_TRUE(image.x == 213 && image.y == 546);
}

// The matrix has a last row of its own; each builder still is a product with an elementary matrix.
TEST(Matrix3, RotateAndTranslateActAfterWhatIsThereAndScaleBefore) {
  const double sine = std::sin(0.5);
  const double cosine = std::cos(0.5);
  const double rotation[9] = {cosine, -sine, 0, sine, cosine, 0, 0, 0, 1};
  const double translation[9] = {1, 0, 2, 0, 1, 3, 0, 0, 1};
  const double scaling[9] = {4, 0, 0, 0, 4, 0, 0, 0, 1};
  Matrix3 m(kValues);
  m.Rotate(0.5);
  EXPECT_EQ(m, Matrix3(rotation) * Matrix3(kValues));
  m = Matrix3(kValues);
  m.Translate(Coord2D(2, 3));
  EXPECT_EQ(m, Matrix3(translation) * Matrix3(kValues));
  m = Matrix3(kValues);
  m.Scale(4);
  EXPECT_EQ(m, Matrix3(kValues) * Matrix3(scaling));
}

}  // namespace
