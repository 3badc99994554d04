#include "zyl/geometry/ellipsoid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "support/seeded.h"

namespace {

using namespace zyl::geometry;

constexpr double kDegree = kPi / 180;

// Builds an ellipsoid and returns what it wrote to the standard error stream.
std::string Complaint(Ellipsoid& out, const Coord3D& radii) {
  testing::internal::CaptureStderr();
  out = Ellipsoid(radii, Coord3D());
  return testing::internal::GetCapturedStderr();
}

using Ellipsoids = Seeded<36>;

// The axes by compass and by turning: the semi-major one starts level, to the left of the major.
TEST_F(Ellipsoids, StretchAlongTheirAxesIntoASphere) {
  for (int i = 0; i < 300; ++i) {
    const Coord3D angles = Point() * Coord3D(36, 9, 36);
    const Ellipsoid e(Coord3D(10, 4, 2.5), angles);
    const double b = angles.x * kDegree, p = angles.y * kDegree;
    const Coord3D major(std::cos(p) * std::sin(b), std::cos(p) * std::cos(b), std::sin(p));
    const Coord3D semiMajor =
        Coord3D(-std::cos(b), std::sin(b), 0).Rotate(Coord3D(), major, -angles.z * kDegree);
    const Coord3D minor = major.Cross(semiMajor);
    ASSERT_NEAR((e.matrix * (major * 10)).Distance(Coord3D(10, 0, 0)), 0, 1e-13);
    ASSERT_NEAR((e.matrix * (semiMajor * 4)).Distance(Coord3D(0, 10, 0)), 0, 1e-13);
    ASSERT_NEAR((e.matrix * (minor * 2.5)).Distance(Coord3D(0, 0, 10)), 0, 1e-13);
  }
  const Ellipsoid search(Coord3D(10, 5, 2), Coord3D(90, 0, 0));
  EXPECT_EQ(search.ratios, Coord3D(0.1, 0.5, 0.2));
  Coord3D centre(100, 200, 50);
  EXPECT_NEAR(centre.SquaredDistance(Coord3D(108, 200, 50), search.matrix), 64, 1e-12);
}

// From 270° on, and below 0°, the azimuth is taken a whole turn later: computed sines tell.
TEST(Ellipsoid, BearingsPastWestCountDownFromTheOtherSide) {
  for (const auto& [bearing, azimuth] :
       {std::pair{0, 90}, {269, -179}, {270, 180}, {300, 150}, {-90, 540}}) {
    const Ellipsoid e(Coord3D(1, 1, 1), Coord3D(bearing, 0, 0));
    EXPECT_EQ(e.matrix[0][1], std::sin(azimuth * kDegree)) << bearing;
  }
}

TEST(Ellipsoid, RaisesASmallMajorRadiusAloudAndTheOthersWithinTheMatrixOnly) {
  Ellipsoid e;
  EXPECT_TRUE(e.radii == Coord3D() && e.ratios == Coord3D() && e.matrix.IsIdentity());
  EXPECT_EQ(Complaint(e, Coord3D(0, 1, 1)), " ** Caution: major radius reset to 0.000001.\n");
  EXPECT_EQ(e.radii, Coord3D(1e-6, 1, 1));
  EXPECT_EQ(e.ratios, Coord3D(1 / 1e-6, 1 / 1e-6, 1 / 1e-6));
  EXPECT_EQ(Complaint(e, Coord3D(1e-6, 1, 1)), "");  // strictly below
  EXPECT_EQ(Complaint(e, Coord3D(std::numeric_limits<double>::quiet_NaN(), 1, 1)), "");
  EXPECT_EQ(Complaint(e, Coord3D(10, std::nan(""), -1)), "");
  EXPECT_EQ(e.ratios.z, -0.1);
  EXPECT_NEAR(e.matrix[1][0], -1e6, 1e-9);
  EXPECT_NEAR(e.matrix[2][2], 1e6, 1e-9);
}

}  // namespace
