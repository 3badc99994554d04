#include "zyl/geometry/transformation.h"

#include <algorithm>

#include "zyl/geometry/matrix4.h"

namespace zyl::geometry {

// The destructors stand here so that the virtual tables are compiled once.
Transformation::~Transformation() = default;
Transformation3D::~Transformation3D() = default;

Transformation3D::Transformation3D(double* coefficients) { std::copy_n(coefficients, 16, k); }

Coord3D Transformation3D::transform(const Coord3D& p) const {
  return {k[0] * p.x + k[4] * p.y + k[8] * p.z + k[12],
          k[1] * p.x + k[5] * p.y + k[9] * p.z + k[13],
          k[2] * p.x + k[6] * p.y + k[10] * p.z + k[14]};
}

Coord3D Transformation3D::inverse_transform(const Coord3D& p) const {
  Matrix4 map(k);
  map.Transpose();
  map.SetColumn(3, {0.0, 0.0, 0.0, 1.0});  // the last row: that of k has no say
  return map.Inverse() * p;
}

void Transformation3D::AsCoefficients(double* out) const { std::copy_n(k, 16, out); }

}  // namespace zyl::geometry
