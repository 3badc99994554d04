#include "zyl/geometry/direction.h"

#include <cmath>

namespace zyl::geometry {

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
