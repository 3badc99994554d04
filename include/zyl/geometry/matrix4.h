#pragma once

/// @file
/// 4 × 4 matrix for affine maps of space.
///
/// What stands inline here follows the caller's compiler flags, as in coord.h.

#include "zyl/geometry/coord.h"
#include "zyl/geometry/export.h"
#include "zyl/geometry/square_matrix.h"

namespace zyl::geometry {

class Plane;
class Transformation3D;

/// @addtogroup matrices
/// @{

/// 4 × 4 matrix acting on column vectors; its fourth column holds the translation.
///
/// Element access, comparison and the arithmetic of matrices come from internal::SquareMatrix. The
/// transform builders compose on the left: each applies its motion after those already there.
/// Angles are radians, rotations right-handed. The last row, (0, 0, 0, 1) in an affine map, is
/// never used on points, which are not divided by a homogeneous coordinate.
///
///     Matrix4 m;                       // identity
///     m.Translate(1, 2, 3);
///     m.RotateZ(3.141592653589793 / 2);
///     m * Coord3D(0, 0, 0);            // (-2, 1, 3): moved first, then turned
class ZYL_GEOMETRY_API Matrix4 : public internal::SquareMatrix<Matrix4, 4> {
 public:
  /// Thrown where an inverse is asked of a matrix whose determinant is exactly 0.
  struct NonInvertableException {};

  /// Ones on the diagonal, zeros elsewhere; set before any code runs.
  static const Matrix4 Identity;

  /// Identity.
  constexpr Matrix4() = default;
  /// Reads the array transposed: m[r][c] = a[c][r].
  Matrix4(const double (&a)[4][4]) { Create(a); }
  /// Reads sixteen values row by row: m[r][c] = p[4·r + c], not transposed.
  constexpr Matrix4(const double* const p) : SquareMatrix(p) {}
  /// Maps points exactly as t does.
  Matrix4(const Transformation3D& t);
  /// A Matrix3 has only nine doubles to point to.
  Matrix4(const Matrix3&) = delete;

  /// Reads the array transposed, as the constructor does. `a` may be this matrix's own storage.
  void Create(const double (&a)[4][4]) {
    *this = Matrix4(a[0]);
    Transpose();
  }

  /// Column c: element r is m[r][c].
  Coord4D GetColumn(int c) const { return {m[0][c], m[1][c], m[2][c], m[3][c]}; }
  /// Writes *row* i, despite its name and unlike GetColumn.
  void SetColumn(int i, const Coord4D& v) {
    m[i][0] = v.x;
    m[i][1] = v.y;
    m[i][2] = v.z;
    m[i][3] = v.w;
  }

  using SquareMatrix::operator*;
  /// @name Images
  /// @{

  /// The image of a point, translation included.
  Coord3D operator*(const Coord3D& p) const {
    return {m[0][0] * p.x + m[0][1] * p.y + m[0][2] * p.z + m[0][3],
            m[1][0] * p.x + m[1][1] * p.y + m[1][2] * p.z + m[1][3],
            m[2][0] * p.x + m[2][1] * p.y + m[2][2] * p.z + m[2][3]};
  }
  Point3D operator*(const Point3D& p) const { return Point3D(*this * Coord3D(p)); }
  /// @}

  /// The plane carried along, its normal as a direction: exact for rotations, translations and
  /// uniform scaling. Under other maps the result is not the image of the plane; where the map
  /// collapses the normal, it has none.
  Plane operator*(const Plane& plane) const;

  /// @name Turns about the axes
  /// @{

  /// Turns y towards z, z towards x, or x towards y.
  void RotateX(double angle);
  void RotateY(double angle);
  void RotateZ(double angle);
  /// @}

  /// RotateX, then RotateY, then RotateZ.
  void Rotate(double angleX, double angleY, double angleZ);
  /// Turns about a direction of any length through the origin; a zero one gives NaN.
  void Rotate(double angle, const Coord3D& axis);

  /// Scales about the origin, the translation included.
  void Scale(double sx, double sy, double sz);
  /// Scales alike in all directions.
  void Scale(double s) { Scale(s, s, s); }

  /// Moves by a vector.
  void Translate(double tx, double ty, double tz);
  /// Moves by a vector.
  void Translate(const Coord3D& t) { Translate(t.x, t.y, t.z); }

  /// Writes the transpose to `out`, which has to be another matrix than this.
  void TransposeTo(Matrix4& out) const { CopyTransposedTo(out); }

  /// Determinant of the minor without row r and column c, negated where r + c is odd.
  double Cofactor(int r, int c) const;
  /// Determinant, expanded along the first column.
  double Det() const;
  /// The adjugate: the transpose of the matrix of cofactors.
  Matrix4 Adjoint() const;
  /// Adjoint divided by Det. Throws NonInvertableException if Det is exactly 0; a nearly singular
  /// matrix is inverted without a warning.
  Matrix4 Inverse() const;
  /// Replaces this by its inverse; where that throws, this stays as it was.
  void Invert() { *this = Inverse(); }

  /// Prints the matrix, despite its name: four lines to the standard output, in the number format
  /// std::cout has, two spaces after each element.
  void ToString() const;
};

/// @}

}  // namespace zyl::geometry
