// Members of Coord3D and Direction that take matrices. They stand here rather than beside the
// vectors, which know nothing of matrices.

#include <cmath>

#include "zyl/geometry/coord.h"
#include "zyl/geometry/direction.h"
#include "zyl/geometry/matrix3.h"
#include "zyl/geometry/matrix4.h"

namespace zyl::geometry {

namespace {

struct Turn {
  double cosine;
  double sine;
};

// The turn that brings (across, up) onto the positive second axis; none if it has no length.
Turn TurnUp(double across, double up) {
  const double squared = across * across + up * up;
  if (squared > 0.0) {
    const double length = std::sqrt(squared);
    return {up / length, across / length};
  }
  return {1.0, 0.0};
}

}  // namespace

double Coord3D::SquaredDistance(const Coord3D& b, const Matrix3& m) {
  return (m * (*this - b)).MagnitudeSquared();
}

// First about Y, into the half-plane of x = 0 and z >= 0, then about X. SetColumn writes rows.
void Coord3D::GetZUpTransform(Matrix4& toZUp, Matrix4& fromZUp) const {
  const auto [c1, s1] = TurnUp(x, z);
  const double height = x * s1 + z * c1;
  const auto [c2, s2] = TurnUp(y, height);

  toZUp.SetColumn(0, {c1, 0.0, -s1, 0.0});
  toZUp.SetColumn(1, {-s2 * s1, c2, -s2 * c1, 0.0});
  toZUp.SetColumn(2, {s1 * c2, s2, c1 * c2, 0.0});
  toZUp.SetColumn(3, {0.0, 0.0, 0.0, 1.0});
  fromZUp = toZUp;
  fromZUp.Transpose();
}

void Direction::GetZUpTransform(Matrix4& toZUp, Matrix4& fromZUp) const {
  Coord3D(x, y, z).GetZUpTransform(toZUp, fromZUp);
}

}  // namespace zyl::geometry
