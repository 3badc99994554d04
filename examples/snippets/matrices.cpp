// Matrices and transformations.

#include <cassert>
#include <cmath>

#include "zyl/geometry/geometry.h"

using zyl::geometry::Coord2D;
using zyl::geometry::Coord3D;
using zyl::geometry::Matrix3;
using zyl::geometry::Matrix4;
using zyl::geometry::Transformation3D;

namespace {

bool Near(const Coord3D& a, const Coord3D& b) { return a.Distance(b) < 1e-9; }

void Motions() {
  //! [motions]
  // Calls read in the order of the motions: first the shift, then the turn about the origin.
  const double quarter = std::acos(0.0);
  Matrix4 motion;
  motion.Translate(1, 2, 3);
  motion.RotateZ(quarter);

  assert(Near(motion * Coord3D(0, 0, 0), Coord3D(-2, 1, 3)));
  //! [motions]
}

void Inverse() {
  //! [inverse]
  Matrix4 motion;
  motion.Rotate(0.1, 0.2, 0.3);
  motion.Translate(10, 20, 30);
  const Coord3D p(1, 2, 3);
  assert(Near(motion.Inverse() * (motion * p), p));

  Matrix4 flat;
  flat.Scale(1, 1, 0);  // every height is lost
  bool refused = false;
  try {
    flat.Invert();
  } catch (const Matrix4::NonInvertableException&) {
    refused = true;
  }
  assert(refused);
  //! [inverse]
}

void Planar() {
  //! [planar]
  // A 3 x 3 matrix is a motion of the plane, and acts on Coord2D.
  const double quarter = std::acos(0.0);
  Matrix3 sheet;
  sheet.Rotate(quarter);
  sheet.Translate(10, 0);
  const Coord2D p = sheet * Coord2D(1, 0);

  assert(std::abs(p.x - 10) < 1e-9 && std::abs(p.y - 1) < 1e-9);
  //! [planar]
}

void Coefficients() {
  //! [transformation]
  // Sixteen coefficients, column by column: the last column, a shift, comes last.
  double k[16] = {1,  0,  0,  0,  //
                  0,  1,  0,  0,  //
                  0,  0,  1,  0,  //
                  10, 20, 30, 1};
  const Transformation3D shift(k);

  assert(shift.transform(Coord3D(1, 2, 3)) == Coord3D(11, 22, 33));
  assert(shift.inverse_transform(Coord3D(11, 22, 33)) == Coord3D(1, 2, 3));
  assert(Matrix4(shift)[0][3] == 10);  // row 0 of the same map
  //! [transformation]
}

}  // namespace

int main() {
  Motions();
  Inverse();
  Planar();
  Coefficients();
}
