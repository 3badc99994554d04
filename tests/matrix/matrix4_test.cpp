#include "zyl/geometry/matrix4.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace zyl::geometry;

constexpr double kPi = 3.141592653589793;

void ExpectNear(const Coord3D& a, const Coord3D& b) {
  EXPECT_NEAR(a.Distance(b), 0, 4e-15) << a.x << ' ' << a.y << ' ' << a.z;
}

TEST(Matrix4, IsCreatedTransposedFromItsOwnStorageToo) {
  Matrix4 m;
  m[0][3] = 7;
  m.Create(m.m);
  EXPECT_EQ(m[3][0], 7);
}

TEST(Matrix4, PointsAreTranslatedAndNotDividedByTheLastRow) {
  Matrix4 m;
  m.Translate(Coord3D(10, 20, 30));
  m.SetColumn(3, Coord4D(5, 6, 7, 8));  // the last row
  EXPECT_EQ(m * Coord3D(1, 2, 3), Coord3D(11, 22, 33));
  EXPECT_EQ(m * Point3D(1, 2, 3), Point3D(11, 22, 33));
  m.SetColumn(0, Coord4D(1e16, 1, -1e16, 3));  // from the left, 1e16 + 1 loses the 1
  EXPECT_EQ((m * Coord3D(1, 1, 1)).x, 3);
}

TEST(Matrix4, RotationsAreRightHanded) {
  Matrix4 x;
  Matrix4 y;
  Matrix4 z;
  x.RotateX(kPi / 2);
  y.RotateY(kPi / 2);
  z.RotateZ(kPi / 2);
  ExpectNear(x * Coord3D(0, 1, 0), Coord3D(0, 0, 1));
  ExpectNear(y * Coord3D(0, 0, 1), Coord3D(1, 0, 0));
  ExpectNear(z * Coord3D(1, 0, 0), Coord3D(0, 1, 0));
  Matrix4 all;
  all.Rotate(kPi / 2, kPi / 2, kPi / 2);
  EXPECT_EQ(all, z * y * x);
}

// A third of a turn about the diagonal exchanges the axes in a ring.
TEST(Matrix4, TurnsAboutAnAxisOfAnyLength) {
  Matrix4 m;
  m.Rotate(2 * kPi / 3, Coord3D(5, 5, 5));
  ExpectNear(m * Coord3D(1, 2, 3), Coord3D(3, 1, 2));
  m.Rotate(1.0, Coord3D());
  EXPECT_TRUE(std::isnan(m[0][0]));
}

TEST(Matrix4, BuildersActAfterWhatIsAlreadyThere) {
  Matrix4 m;
  m.Translate(5, 7, 9);
  m.Scale(2);
  m.Scale(1, 3, 5);
  EXPECT_EQ(m * Coord3D(1, 1, 1), Coord3D(12, 48, 100));
  m.SetColumn(3, Coord4D(1, 0, 0, 1));  // a last row of its own is what Translate adds
  m.Translate(10, 20, 30);
  EXPECT_EQ(m * Coord3D(1, 0, 0), Coord3D(32, 82, 150));
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
