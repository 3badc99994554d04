#include "zyl/geometry/coord.h"

#include <cmath>

namespace zyl::geometry {

namespace {

// A vector perpendicular to the axis, of any length. Which one stands here is part of the last bits
// of every rotation. The bound keeps it from vanishing beside an axis close to Z.
Coord3D Perpendicular(const Coord3D& axis) {
  constexpr double kCloseToZ = 0.1;
  if (std::fabs(axis.x) < kCloseToZ && std::fabs(axis.y) < kCloseToZ) {
    return {axis.z, 0.0, -axis.x};
  }
  return {axis.y, -axis.x, 0.0};
}

}  // namespace

double Coord3D::Angle(const Coord3D& b) const {
  Coord3D unitA = *this;
  Coord3D unitB = b;
  unitA.Normalise();
  unitB.Normalise();
  return std::acos(unitA.Dot(unitB));
}

bool Coord3D::Parallel(const Coord3D& a, const Coord3D& b, double tolerance) {
  return tolerance > std::fabs(a.Angle(b));
}

// In the frame (u, v, axis) at the origin of the rotation, u and v turn and the height stays.
Coord3D Coord3D::Rotate(const Coord3D& origin, const Coord3D& axis, double angle) {
  const Coord3D offset = *this - origin;
  Coord3D u = Perpendicular(axis);
  Coord3D v = axis.Cross(u);
  u.Normalise();
  v.Normalise();
  const double p = u.Dot(offset);
  const double q = v.Dot(offset);
  const double height = axis.Dot(offset);

  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const double turnedP = c * p - s * q;
  const double turnedQ = s * p + c * q;
  return origin + u * turnedP + v * turnedQ + axis * height;
}

}  // namespace zyl::geometry
