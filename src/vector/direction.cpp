#include "zyl/geometry/direction.h"

#include <cmath>

namespace zyl::geometry {

void Direction::SetDirectionByBearingDegrees(double bearing, double inclination) {
  constexpr double kPi = 3.141592653589793;
  const double azimuth = ((90.0 - bearing) * kPi) / 180.0;  // from +X towards +Y
  const double zenith = ((90.0 - inclination) * kPi) / 180.0;
  x = std::cos(azimuth) * std::sin(zenith);
  y = std::sin(azimuth) * std::sin(zenith);
  z = std::cos(zenith);
}

void Direction::Normalize() {
  if (x == 0.0 && y == 0.0 && z == 0.0) {
    return;
  }
  const double magnitude = std::sqrt(x * x + y * y + z * z);
  if (magnitude == 0.0) {  // the squares underflowed
    return;
  }
  *this /= magnitude;
}

}  // namespace zyl::geometry
