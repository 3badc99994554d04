// What vectors do with matrices: the Z-up pair and the distance under a metric.

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "zyl/geometry/coord.h"
#include "zyl/geometry/direction.h"
#include "zyl/geometry/matrix3.h"
#include "zyl/geometry/matrix4.h"

namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Direction;
using zyl::geometry::Matrix3;
using zyl::geometry::Matrix4;

struct ZUpPair {
  Matrix4 to = Matrix4::Identity * 7.0;  // nothing of what was there may remain
  Matrix4 from = Matrix4::Identity * 7.0;
  explicit ZUpPair(const Coord3D& v) { v.GetZUpTransform(to, from); }
};

TEST(GetZUpTransform, BringsTheVectorOntoTheZAxisAndBack) {
  const ZUpPair x(Coord3D(1, 0, 0));
  EXPECT_EQ(x.to * Coord3D(1, 0, 0), Coord3D(0, 0, 1));
  EXPECT_EQ(x.from * Coord3D(0, 0, 1), Coord3D(1, 0, 0));
  EXPECT_EQ(ZUpPair(Coord3D(0, -3, 0)).to * Coord3D(0, -3, 0), Coord3D(0, 0, 3));
  EXPECT_EQ(ZUpPair(Coord3D(0, 0, -3)).to * Coord3D(0, 0, -3), Coord3D(0, 0, 3));
}

TEST(GetZUpTransform, OfAVectorWithoutLengthIsTheIdentity) {
  EXPECT_TRUE(ZUpPair(Coord3D()).to.IsIdentity());
  EXPECT_TRUE(ZUpPair(Coord3D()).from.IsIdentity());
  EXPECT_TRUE(ZUpPair(Coord3D(1e-200, 1e-200, 1e-200)).to.IsIdentity());  // squares underflow
}

// The horizontal axis of the new frame stays horizontal in the world: no roll.
TEST(GetZUpTransform, IsARotationAboutYAndThenX) {
  constexpr unsigned kSeed = 12;
  SCOPED_TRACE(kSeed);
  std::mt19937 random(kSeed);
  std::uniform_real_distribution<double> uniform(-10, 10);
  for (int i = 0; i < 500; ++i) {
    const Coord3D v(uniform(random), uniform(random), uniform(random));
    const ZUpPair pair(v);
    const Coord3D up = pair.to * v;
    ASSERT_NEAR(up.Distance(Coord3D(0, 0, v.Magnitude())), 0, 1e-14);
    ASSERT_NEAR(pair.to.Det(), 1, 1e-15);
    Matrix4 transpose;
    pair.to.TransposeTo(transpose);
    ASSERT_EQ(pair.from, transpose);
    const Matrix4 product = pair.to * pair.from;
    for (int k = 0; k < 16; ++k) {
      ASSERT_NEAR(product[k / 4][k % 4], k % 5 == 0, 1e-15);
    }
    ASSERT_EQ((pair.from * Coord3D(1, 0, 0)).y, 0);

    Matrix4 to;
    Matrix4 from;
    Direction(v).GetZUpTransform(to, from);
    ASSERT_TRUE(to == pair.to && from == pair.from);
  }
}

TEST(SquaredDistance, UnderAMatrixMeasuresTheMappedDifference) {
  Coord3D origin;
  Matrix3 m;
  m[0][0] = 2;
  EXPECT_EQ(origin.SquaredDistance(Coord3D(1, 1, 1), m), 6);
  EXPECT_EQ(Coord3D(3, 1, 1).SquaredDistance(Coord3D(1, 2, 4), m), 26);
  EXPECT_EQ(Coord3D(3, 1, 1).SquaredDistance(Coord3D(1, 2, 4), Matrix3::Identity), 14);
  m[0][1] = 1;  // rows, not columns, are taken: (2·2 − 1)² + 1 + 9
  EXPECT_EQ(Coord3D(3, 1, 1).SquaredDistance(Coord3D(1, 2, 4), m), 19);
}

// Two independent ways to turn a point about an axis.
TEST(Rotate, AgreesWithTheMatrixOfTheSameTurn) {
  constexpr unsigned kSeed = 13;
  SCOPED_TRACE(kSeed);
  std::mt19937 random(kSeed);
  std::uniform_real_distribution<double> uniform(-1, 1);
  for (int i = 0; i < 500; ++i) {
    Coord3D axis(uniform(random), uniform(random), uniform(random));
    if (i % 2 == 0) {
      axis.x *= 0.01;  // close to Z, where another frame is taken
      axis.y *= 0.01;
    }
    axis.Normalise();
    const Coord3D pivot(uniform(random) * 9, uniform(random) * 9, uniform(random) * 9);
    Coord3D p(uniform(random) * 9, uniform(random) * 9, uniform(random) * 9);
    const double angle = uniform(random) * 7;
    Matrix4 turn;
    turn.Translate(-pivot);
    turn.Rotate(angle, axis);
    turn.Translate(pivot);
    ASSERT_NEAR(p.Rotate(pivot, axis, angle).Distance(turn * p), 0, 2e-14);
  }
}

}  // namespace
