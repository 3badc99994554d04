// What vectors do with matrices: the Z-up pair, the distance under a metric, and rotation.

#include <gtest/gtest.h>

#include "support/seeded.h"
#include "zyl/geometry/coord.h"
#include "zyl/geometry/direction.h"
#include "zyl/geometry/matrix3.h"
#include "zyl/geometry/matrix4.h"

namespace {

using namespace zyl::geometry;

using VectorTransforms = Seeded<12>;

TEST_F(VectorTransforms, ZUpOfTheAxesAndOfNothing) {
  Matrix4 to = Matrix4::Identity * 7.0;  // nothing of what was there may remain
  Matrix4 from = to;
  Coord3D().GetZUpTransform(to, from);
  EXPECT_TRUE(to.IsIdentity() && from.IsIdentity());
  Coord3D(1, 0, 0).GetZUpTransform(to, from);
  EXPECT_EQ(to * Coord3D(1, 0, 0), Coord3D(0, 0, 1));
  EXPECT_EQ(from * Coord3D(0, 0, 1), Coord3D(1, 0, 0));
  Direction(0, -3, 0).GetZUpTransform(to, from);
  EXPECT_EQ(to * Coord3D(0, -3, 0), Coord3D(0, 0, 3));
}

// First about Y and then about X: the image of +X stays level in Y.
TEST_F(VectorTransforms, ZUpIsARotationAboutYAndThenX) {
  for (int i = 0; i < 500; ++i) {
    const Coord3D v = Point();
    Matrix4 to, from;
    v.GetZUpTransform(to, from);
    ASSERT_NEAR((to * v).Distance(Coord3D(0, 0, v.Magnitude())), 0, 1e-14);
    ASSERT_NEAR((from * (to * Coord3D(1, 2, 3))).Distance(Coord3D(1, 2, 3)), 0, 4e-15);
    ASSERT_NEAR(to.Det(), 1, 1e-15);
    ASSERT_EQ((from * Coord3D(1, 0, 0)).y, 0);
    to.Transpose();
    ASSERT_EQ(from, to);
  }
}

TEST_F(VectorTransforms, SquaredDistanceUnderAMatrixMeasuresTheMappedDifference) {
  const double m[9] = {2, 1, 0, 0, 1, 0, 0, 0, 1};  // rows, not columns: (2·2 − 1)² + 1 + 9
  EXPECT_EQ(Coord3D(3, 1, 1).SquaredDistance(Coord3D(1, 2, 4), Matrix3(m)), 19);
}

// Rodrigues' formula and the turned frame have nothing in common but the result.
TEST_F(VectorTransforms, RotateAgreesWithTheMatrixOfTheSameTurn) {
  for (int i = 0; i < 500; ++i) {
    Coord3D axis = Point();
    if (i % 2 == 0) {
      axis.x *= 0.01;  // close to Z, where another frame is taken
      axis.y *= 0.01;
    }
    axis.Normalise();
    const Coord3D pivot = Point();
    Coord3D p = Point();
    Matrix4 turn;
    turn.Translate(-pivot);
    turn.Rotate(0.1 * i, axis);
    turn.Translate(pivot);
    ASSERT_NEAR(p.Rotate(pivot, axis, 0.1 * i).Distance(turn * p), 0, 3e-14);
  }
}

}  // namespace
