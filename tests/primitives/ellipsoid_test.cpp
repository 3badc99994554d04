#include "zyl/geometry/ellipsoid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <type_traits>

namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Ellipsoid;
using zyl::geometry::Matrix3;

constexpr double kDegree = 0.017453292519943295;

static_assert(std::is_trivially_copyable_v<Ellipsoid>);
static_assert(sizeof(Ellipsoid) == 18 * sizeof(double));

Coord3D Row(const Matrix3& m, int r) { return {m[r][0], m[r][1], m[r][2]}; }

// Builds an ellipsoid and returns what it wrote to the standard error stream.
std::string Complaint(Ellipsoid& out, const Coord3D& radii) {
  testing::internal::CaptureStderr();
  out = Ellipsoid(radii, Coord3D());
  return testing::internal::GetCapturedStderr();
}

TEST(Ellipsoid, DefaultHasNoSizeAndMeasuresAsTheCrowFlies) {
  const Ellipsoid none;
  EXPECT_TRUE(none.radii == Coord3D() && none.ratios == Coord3D() && none.angles == Coord3D());
  EXPECT_TRUE(none.matrix.IsIdentity());
}

TEST(Ellipsoid, PointsNorthAtZeroAndBecomesASphere) {
  const Ellipsoid e(Coord3D(10, 5, 2), Coord3D());
  EXPECT_EQ(e.ratios, Coord3D(0.1, 0.5, 0.2));
  const Coord3D rows[] = {{0, 1, 0}, {-2, 0, 0}, {0, 0, 5}};
  for (int r = 0; r < 3; ++r) {
    EXPECT_NEAR(Row(e.matrix, r).Distance(rows[r]), 0, 1e-15) << r;
  }
  for (const Coord3D& surface : {Coord3D(0, 10, 0), Coord3D(-5, 0, 0), Coord3D(0, 0, 2)}) {
    EXPECT_NEAR((e.matrix * surface).Magnitude(), 10, 1e-14);
  }
}

TEST(Ellipsoid, MetricTellsWhatLiesInside) {
  const Ellipsoid search(Coord3D(10, 5, 2), Coord3D(90, 0, 0));
  Coord3D centre(100, 200, 50);
  EXPECT_NEAR(centre.SquaredDistance(Coord3D(108, 200, 50), search.matrix), 64, 1e-12);
  EXPECT_NEAR(centre.SquaredDistance(Coord3D(100, 206, 50), search.matrix), 144, 1e-12);
}

// The axes by compass and by turning: the semi-major one starts horizontal, left of the major.
TEST(Ellipsoid, AxesFollowBearingInclinationAndTurn) {
  constexpr unsigned kSeed = 36;
  SCOPED_TRACE(kSeed);
  std::mt19937 random(kSeed);
  std::uniform_int_distribution<int> degrees(-360, 360);
  for (int i = 0; i < 300; ++i) {
    const Coord3D angles(degrees(random), degrees(random) / 4, degrees(random));
    const Coord3D radii(10, 4, 2.5);
    const Ellipsoid e(radii, angles);
    const double b = angles.x * kDegree;
    const double p = angles.y * kDegree;
    const Coord3D major(std::cos(p) * std::sin(b), std::cos(p) * std::cos(b), std::sin(p));
    const Coord3D semiMajor =
        Coord3D(-std::cos(b), std::sin(b), 0).Rotate(Coord3D(), major, -angles.z * kDegree);
    const Coord3D minor = major.Cross(semiMajor);
    ASSERT_NEAR(Row(e.matrix, 0).Distance(major), 0, 4e-15);
    ASSERT_NEAR(Row(e.matrix, 1).Distance(semiMajor * (radii.x / radii.y)), 0, 1e-14);
    ASSERT_NEAR(Row(e.matrix, 2).Distance(minor * (radii.x / radii.z)), 0, 2e-14);

    Coord3D centre(3, 4, 5);
    const Coord3D surface = centre + major * (10 * 0.6) - minor * (2.5 * 0.8);
    ASSERT_NEAR(centre.SquaredDistance(surface, e.matrix), 100, 1e-12);
  }
}

// From 270° on the azimuth is taken a whole turn later: 180°, whose computed sine is just above 0.
TEST(Ellipsoid, BearingsPastWestCountDownFromTheOtherSide) {
  const auto northing = [](double bearing) {
    return Ellipsoid(Coord3D(1, 1, 1), Coord3D(bearing, 0, 0)).matrix[0][1];
  };
  EXPECT_EQ(northing(270), std::sin(180 * kDegree));
  EXPECT_EQ(northing(-90), std::sin(540 * kDegree));
  EXPECT_EQ(northing(300), std::sin(150 * kDegree));
  EXPECT_EQ(northing(0), std::sin(90 * kDegree));
}

TEST(Ellipsoid, RaisesAMajorRadiusBelowAMillionthAndSaysSo) {
  Ellipsoid e;
  EXPECT_EQ(Complaint(e, Coord3D(0, 1, 1)), " ** Caution: major radius reset to 0.000001.\n");
  EXPECT_EQ(e.radii, Coord3D(1e-6, 1, 1));
  EXPECT_EQ(e.ratios, Coord3D(1 / 1e-6, 1 / 1e-6, 1 / 1e-6));
  EXPECT_EQ(Complaint(e, Coord3D(1e-6, 1, 1)), "");  // strictly below
  EXPECT_NE(Complaint(e, Coord3D(-3, 1, 1)), "");
  EXPECT_EQ(Complaint(e, Coord3D(std::numeric_limits<double>::quiet_NaN(), 1, 1)), "");
}

TEST(Ellipsoid, LimitsTheOtherRadiiWithinTheMatrixOnly) {
  Ellipsoid e;
  EXPECT_EQ(Complaint(e, Coord3D(10, 0, -1)), "");
  EXPECT_EQ(e.ratios, Coord3D(0.1, 0, -0.1));
  EXPECT_NEAR(e.matrix[1][0], -1e6, 1e-9);
  EXPECT_NEAR(e.matrix[2][2], 1e6, 1e-9);
  Complaint(e, Coord3D(10, std::nan(""), 10));
  EXPECT_NEAR(e.matrix[1][0], -1e6, 1e-9);
}

}  // namespace
