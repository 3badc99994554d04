#include "zyl/geometry/matrix4.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Coord4D;
using zyl::geometry::Matrix4;
using zyl::geometry::Point3D;

constexpr double kPi = 3.141592653589793;

void ExpectNear(const Coord3D& a, const Coord3D& b) {
  EXPECT_NEAR(a.Distance(b), 0, 1e-15) << a.x << ' ' << a.y << ' ' << a.z;
}

TEST(Matrix4, AnArrayIsReadTransposedAndAPointerIsNot) {
  double a[4][4] = {};
  a[0][3] = 7;
  EXPECT_EQ(Matrix4(a)[3][0], 7);
  EXPECT_EQ(Matrix4(a)[0][3], 0);
  EXPECT_EQ(Matrix4(a[0])[0][3], 7);
  Matrix4 own(a);
  own.Create(own.m);
  EXPECT_EQ(own[0][3], 7);
}

TEST(Matrix4, SetColumnWritesARowAndGetColumnReadsAColumn) {
  Matrix4 m;
  m.SetColumn(1, Coord4D(5, 6, 7, 8));
  EXPECT_TRUE(m[1][0] == 5 && m[1][1] == 6 && m[1][2] == 7 && m[1][3] == 8);
  const Coord4D column = m.GetColumn(1);
  EXPECT_TRUE(column.x == 0 && column.y == 6 && column.z == 0 && column.w == 0);
}

TEST(Matrix4, PointsAreTranslatedAndNotDividedByTheLastRow) {
  Matrix4 m;
  m.Translate(Coord3D(10, 20, 30));
  m.SetColumn(3, Coord4D(5, 6, 7, 8));  // the last row
  EXPECT_EQ(m * Coord3D(1, 2, 3), Coord3D(11, 22, 33));
  EXPECT_EQ(m * Point3D(1, 2, 3), Point3D(11, 22, 33));
  // From the left, 1e16 + 1 loses the 1.
  m.SetColumn(0, Coord4D(1e16, 1, -1e16, 3));
  EXPECT_EQ((m * Coord3D(1, 1, 1)).x, 3);
}

TEST(Matrix4, RotationsAreRightHanded) {
  Matrix4 x;
  x.RotateX(kPi / 2);
  ExpectNear(x * Coord3D(0, 1, 0), Coord3D(0, 0, 1));
  Matrix4 y;
  y.RotateY(kPi / 2);
  ExpectNear(y * Coord3D(0, 0, 1), Coord3D(1, 0, 0));
  Matrix4 z;
  z.RotateZ(kPi / 2);
  ExpectNear(z * Coord3D(1, 0, 0), Coord3D(0, 1, 0));
  Matrix4 all;
  all.Rotate(kPi / 2, kPi / 2, kPi / 2);
  EXPECT_EQ(all, z * y * x);
}

TEST(Matrix4, BuildersActAfterWhatIsAlreadyThere) {
  Matrix4 m;
  m.Translate(1, 2, 3);
  m.RotateZ(kPi / 2);
  ExpectNear(m * Coord3D(0, 0, 0), Coord3D(-2, 1, 3));
  m.SetIdentity();
  m.Translate(5, 0, 0);
  m.Scale(2);
  EXPECT_EQ(m * Coord3D(1, 1, 1), Coord3D(12, 2, 2));
  m.Scale(1, 3, 5);
  EXPECT_EQ(m * Coord3D(1, 1, 1), Coord3D(12, 6, 10));
}

// Where the last row is not (0, 0, 0, 1), Translate adds multiples of it.
TEST(Matrix4, TranslateIsTheProductWithATranslation) {
  double values[16];
  for (int i = 0; i < 16; ++i) {
    values[i] = (i * 7) % 11 - 5;
  }
  Matrix4 translation;
  translation.Translate(2, 3, 4);
  EXPECT_EQ(translation.GetColumn(3).y, 3);
  Matrix4 m(values);
  m.Translate(2, 3, 4);
  EXPECT_EQ(m, translation * Matrix4(values));
}

TEST(Matrix4, TurnsAboutAnAxisOfAnyLength) {
  Matrix4 z;
  z.RotateZ(0.7);
  Matrix4 m;
  m.Rotate(0.7, Coord3D(0, 0, 8));
  EXPECT_EQ(m, z);
  // A third of a turn about the diagonal exchanges the axes in a ring.
  m.SetIdentity();
  m.Translate(1, 2, 3);
  m.Rotate(2 * kPi / 3, Coord3D(5, 5, 5));
  EXPECT_NEAR((m * Coord3D(0, 0, 0)).Distance(Coord3D(3, 1, 2)), 0, 4e-15);
  // Generic: the axis stays, lengths and handedness too.
  m.SetIdentity();
  const Coord3D axis(1, -2, 0.5);
  m.Rotate(1.1, axis);
  EXPECT_NEAR((m * axis).Distance(axis), 0, 1e-15);
  EXPECT_NEAR(m.Det(), 1, 1e-15);
  EXPECT_NEAR((m * Coord3D(2, 1, 0)).Angle(Coord3D(2, 1, 0)), 1.1, 1e-15);  // perpendicular to it
  EXPECT_GT(Coord3D(2, 1, 0).Cross(m * Coord3D(2, 1, 0)).Dot(axis), 0);
  m.Rotate(1.0, Coord3D());
  EXPECT_TRUE(std::isnan(m[0][0]));
}

TEST(Matrix4, InverseOfATranslationIsTheOppositeOne) {
  Matrix4 there;
  there.Translate(1, 2, 3);
  Matrix4 back;
  back.Translate(-1, -2, -3);
  EXPECT_EQ(there.Inverse(), back);
}

TEST(Matrix4, ToStringPrintsToTheStandardOutput) {
  Matrix4 m;
  m[0][1] = 1.0 / 3;
  m[1][3] = -1e-20;
  testing::internal::CaptureStdout();
  m.ToString();
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "1  0.333333  0  0  \n"
            "0  1  0  -1e-20  \n"
            "0  0  1  0  \n"
            "0  0  0  1  \n");
}

}  // namespace
