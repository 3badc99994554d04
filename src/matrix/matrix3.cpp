#include "zyl/geometry/matrix3.h"

#include <cmath>

#include "matrix/cofactors.h"
#include "zyl/geometry/matrix4.h"

namespace zyl::geometry {

// Constant-initialised, so that other translation units' initialisers may use it.
constexpr Matrix3 Matrix3::Identity{};

Matrix3::Matrix3(const Matrix4& a) {
  for (int r = 0; r < 3; ++r) {
    for (int c = 0; c < 3; ++c) {
      m[r][c] = a.m[r][c];
    }
  }
}

void Matrix3::Rotate(double angle) {
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  for (int c = 0; c < 3; ++c) {
    const double first = m[0][c];
    const double second = m[1][c];
    m[0][c] = cosine * first - sine * second;
    m[1][c] = sine * first + cosine * second;
  }
}

void Matrix3::Translate(double tx, double ty) {
  for (int c = 0; c < 3; ++c) {
    m[0][c] += tx * m[2][c];
    m[1][c] += ty * m[2][c];
  }
}

void Matrix3::Scale(double s) {
  for (auto& row : m) {
    row[0] *= s;
    row[1] *= s;
  }
}

double Matrix3::Cofactor(int r, int c) const { return Adjoint()[c][r]; }

Matrix3 Matrix3::Adjoint() const {
  return internal::Adjugate<Matrix3>(internal::Minors<3>(m), 1.0);
}

Matrix3 Matrix3::Inverse() const { return internal::Inverse<Matrix3>(m); }

}  // namespace zyl::geometry
