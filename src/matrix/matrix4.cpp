#include "zyl/geometry/matrix4.h"

#include <cmath>
#include <iostream>

#include "matrix/cofactors.h"
#include "zyl/geometry/transformation.h"

namespace zyl::geometry {

namespace {

// Rotation of the plane of the axes `from` and `to`, which turns the first towards the second.
Matrix4 AxisRotation(double angle, int from, int to) {
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  Matrix4 rotation;
  rotation.m[from][from] = cosine;
  rotation.m[from][to] = -sine;
  rotation.m[to][from] = sine;
  rotation.m[to][to] = cosine;
  return rotation;
}

}  // namespace

// Constant-initialised, so that other translation units' initialisers may use it.
constexpr Matrix4 Matrix4::Identity{};

Matrix4::Matrix4(const Transformation3D& t) {
  t.AsCoefficients(*this);
  Transpose();
}

void Matrix4::RotateX(double angle) { *this = AxisRotation(angle, 1, 2) * *this; }

void Matrix4::RotateY(double angle) { *this = AxisRotation(angle, 2, 0) * *this; }

void Matrix4::RotateZ(double angle) { *this = AxisRotation(angle, 0, 1) * *this; }

void Matrix4::Rotate(double angleX, double angleY, double angleZ) {
  RotateX(angleX);
  RotateY(angleY);
  RotateZ(angleZ);
}

// Rodrigues' rotation formula.
void Matrix4::Rotate(double angle, const Coord3D& axis) {
  Coord3D u = axis;
  u.Normalise();
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  const double t = 1.0 - c;

  Matrix4 rotation;  // SetColumn writes its rows
  rotation.SetColumn(0, {t * u.x * u.x + c, t * u.x * u.y - s * u.z, t * u.x * u.z + s * u.y, 0.0});
  rotation.SetColumn(1, {t * u.x * u.y + s * u.z, t * u.y * u.y + c, t * u.y * u.z - s * u.x, 0.0});
  rotation.SetColumn(2, {t * u.x * u.z - s * u.y, t * u.y * u.z + s * u.x, t * u.z * u.z + c, 0.0});
  *this = rotation * *this;
}

void Matrix4::Scale(double sx, double sy, double sz) {
  for (int c = 0; c < 4; ++c) {
    m[0][c] *= sx;
    m[1][c] *= sy;
    m[2][c] *= sz;
  }
}

void Matrix4::Translate(double tx, double ty, double tz) {
  for (int c = 0; c < 4; ++c) {
    m[0][c] += tx * m[3][c];
    m[1][c] += ty * m[3][c];
    m[2][c] += tz * m[3][c];
  }
}

double Matrix4::Cofactor(int r, int c) const { return Adjoint()[c][r]; }

double Matrix4::Det() const { return internal::Expand(m, internal::Minors<4>(m)); }

Matrix4 Matrix4::Adjoint() const {
  return internal::Adjugate<Matrix4>(internal::Minors<4>(m), 1.0);
}

Matrix4 Matrix4::Inverse() const { return internal::Inverse<Matrix4>(m); }

void Matrix4::ToString() const {
  for (const auto& row : m) {
    for (const double element : row) {
      std::cout << element << "  ";
    }
    std::cout << std::endl;
  }
}

}  // namespace zyl::geometry
