#include "zyl/geometry/coord.h"

#include <cmath>

namespace zyl::geometry {

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

}  // namespace zyl::geometry
