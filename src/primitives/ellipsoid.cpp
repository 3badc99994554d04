#include "zyl/geometry/ellipsoid.h"

#include <cmath>
#include <cstdio>

namespace zyl::geometry {

namespace {

constexpr double kDegree = 0.017453292519943295;  // π/180
constexpr double kSmallestRadius = 1e-6;          // in the units of the coordinates
constexpr double kSmallestRatio = 1e-6;           // of the major radius

struct Angle {
  double sine;
  double cosine;
  explicit Angle(double radians) : sine(std::sin(radians)), cosine(std::cos(radians)) {}
};

// Bearing in degrees to the angle from +X towards +Y, between -180° and 180° for a full circle.
double Azimuth(double bearing) {
  const double quarter = bearing >= 0.0 && bearing < 270.0 ? 90.0 : 450.0;
  return (quarter - bearing) * kDegree;
}

// How much an axis is stretched; a NaN ratio counts as the smallest.
double Stretch(double ratio) { return 1.0 / (ratio > kSmallestRatio ? ratio : kSmallestRatio); }

}  // namespace

Ellipsoid::Ellipsoid(const Coord3D& radii_, const Coord3D& angles_)
    : radii(radii_), angles(angles_) {
  if (radii.x < kSmallestRadius) {
    std::fprintf(stderr, " ** Caution: major radius reset to %f.\n", kSmallestRadius);
    radii.x = kSmallestRadius;
  }
  ratios = {1.0 / radii.x, radii.y / radii.x, radii.z / radii.x};

  const auto [sinA, cosA] = Angle(Azimuth(angles.x));
  const auto [sinD, cosD] = Angle(angles.y * -1.0 * kDegree);  // downwards
  const auto [sinT, cosT] = Angle(angles.z * -kDegree);
  const double stretch2 = Stretch(ratios.y);
  const double stretch3 = Stretch(ratios.z);
  matrix.SetColumn(0, {cosD * cosA, cosD * sinA, -sinD});  // SetColumn writes rows
  matrix.SetColumn(1, {(sinT * sinD * cosA - cosT * sinA) * stretch2,
                       (sinT * sinD * sinA + cosT * cosA) * stretch2, cosD * sinT * stretch2});
  matrix.SetColumn(2, {(cosT * sinD * cosA + sinT * sinA) * stretch3,
                       (cosT * sinD * sinA - sinT * cosA) * stretch3, cosT * cosD * stretch3});
}

}  // namespace zyl::geometry
