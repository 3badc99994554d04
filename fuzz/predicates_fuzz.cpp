// The four predicates against exact arithmetic, on any five points whose determinants neither
// overflow nor underflow; on all others they only have to answer.

#include <cmath>

#include "input.h"
#include "predicates/predicates.h"
#include "support/exact.h"

namespace {

using namespace zyl::geometry::internal;

// Whether products of `degree` coordinates, down to the last bit of each, are doubles' business:
// the coordinate is 0 or lies within these powers of two.
bool IsTame(const double (&points)[5][3], int degree) {
  const int highest = 1000 / degree;
  const int lowest = -1000 / degree + 54;
  for (const auto& point : points) {
    for (const double value : point) {
      if (value != 0 &&
          (!std::isfinite(value) || std::ilogb(value) > highest || std::ilogb(value) < lowest)) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace

void fuzz::Run(Input& input) {
  using exact::SignOf;
  exactinit();
  input.DrawKind();
  double p[5][3];
  for (auto& point : p) {
    for (double& value : point) {
      value = input.Coordinate();
    }
  }
  const double side2 = orient2d(p[0], p[1], p[2]);
  const double side3 = orient3d(p[0], p[1], p[2], p[3]);
  const double circle = incircle(p[0], p[1], p[2], p[3]);
  const double sphere = insphere(p[0], p[1], p[2], p[3], p[4]);
  FUZZ_CHECK(!IsTame(p, 2) || SignOf(side2) == exact::Orient2D(p[0], p[1], p[2]));
  FUZZ_CHECK(!IsTame(p, 3) || SignOf(side3) == exact::Orient3D(p[0], p[1], p[2], p[3]));
  FUZZ_CHECK(!IsTame(p, 4) || SignOf(circle) == exact::InCircle(p[0], p[1], p[2], p[3]));
  FUZZ_CHECK(!IsTame(p, 5) || SignOf(sphere) == exact::InSphere(p[0], p[1], p[2], p[3], p[4]));
}
