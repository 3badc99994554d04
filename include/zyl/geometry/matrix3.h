#pragma once

/// @file
/// 3 × 3 matrix for linear maps of space and affine maps of the plane.
///
/// What stands inline here follows the caller's compiler flags, as in coord.h.

#include "zyl/geometry/coord.h"
#include "zyl/geometry/export.h"
#include "zyl/geometry/square_matrix.h"

namespace zyl::geometry {

/// @addtogroup matrices
/// @{

/// 3 × 3 matrix acting on column vectors: on a Coord3D as a linear map, on a Coord2D as an affine
/// map of the plane whose translation is the third column.
///
/// Element access, comparison and the arithmetic of matrices come from internal::SquareMatrix.
/// Rotate and Translate compose on the left, after what is already there; Scale composes on the
/// right, before it, unlike Matrix4::Scale. The last row, (0, 0, 1) in an affine map, is not used
/// on a Coord2D, which is not divided by a homogeneous coordinate.
///
///     Matrix3 m;                // identity
///     m.Translate(3, 4);
///     m.Scale(2);
///     m * Coord2D(1, 1);        // (5, 6): scaled first, the translation as it was
class ZYL_GEOMETRY_API Matrix3 : public internal::SquareMatrix<Matrix3, 3> {
 public:
  /// Thrown where an inverse is asked of a matrix whose determinant is exactly 0.
  struct NonInvertableException {};

  /// Ones on the diagonal, zeros elsewhere; set before any code runs.
  static const Matrix3 Identity;

  /// Identity.
  constexpr Matrix3() = default;
  /// Reads nine values row by row: m[r][c] = p[3·r + c].
  constexpr Matrix3(const double* const p) : SquareMatrix(p) {}
  /// The linear part of an affine map of space: its translation and last row are dropped.
  Matrix3(const Matrix4& a);

  /// Column c: element r is m[r][c].
  Coord3D GetColumn(int c) const { return {m[0][c], m[1][c], m[2][c]}; }
  /// Writes *row* i, despite its name and unlike GetColumn.
  void SetColumn(int i, const Coord3D& v) {
    m[i][0] = v.x;
    m[i][1] = v.y;
    m[i][2] = v.z;
  }

  using SquareMatrix::operator*;
  /// The image of a vector of space.
  Coord3D operator*(const Coord3D& v) const {
    return {m[0][0] * v.x + m[0][1] * v.y + m[0][2] * v.z,
            m[1][0] * v.x + m[1][1] * v.y + m[1][2] * v.z,
            m[2][0] * v.x + m[2][1] * v.y + m[2][2] * v.z};
  }
  /// The image of a point of the plane, translation included.
  Coord2D operator*(const Coord2D& p) const {
    return {m[0][0] * p.x + m[0][1] * p.y + m[0][2], m[1][0] * p.x + m[1][1] * p.y + m[1][2]};
  }

  /// Turns the plane about the origin by `angle` radians, counterclockwise.
  void Rotate(double angle);
  /// Moves the plane by a vector.
  void Translate(double tx, double ty);
  /// Moves the plane by a vector.
  void Translate(const Coord2D& t) { Translate(t.x, t.y); }
  /// Scales what the existing map is applied to: the translation stays as it is.
  void Scale(double s);

  /// Writes the transpose to `out`, which has to be another matrix than this. Not const, although
  /// it changes nothing here.
  void TransposeTo(Matrix3& out) { CopyTransposedTo(out); }

  /// Determinant of the minor without row r and column c, negated where r + c is odd.
  double Cofactor(int r, int c) const;
  /// Determinant, expanded along the first column. Rounded: on which side of a plane a point lies
  /// is decided by geom_Orient3D, and whether there is an inverse by Inverse, which works with the
  /// library's flags.
  double Det() const {
    return m[0][0] * Det2(m[1][1], m[1][2], m[2][1], m[2][2]) -
           m[1][0] * Det2(m[0][1], m[0][2], m[2][1], m[2][2]) +
           m[2][0] * Det2(m[0][1], m[0][2], m[1][1], m[1][2]);
  }
  /// The adjugate: the transpose of the matrix of cofactors.
  Matrix3 Adjoint() const;
  /// Adjoint divided by Det. Throws NonInvertableException if Det is exactly 0; a nearly singular
  /// matrix is inverted without a warning.
  Matrix3 Inverse() const;
  /// Replaces this by its inverse; where that throws, this stays as it was.
  void Invert() { *this = Inverse(); }

 private:
  // Determinant of the rows (a, b) and (c, d).
  static double Det2(double a, double b, double c, double d) { return a * d - b * c; }
};

/// @}

}  // namespace zyl::geometry
