#pragma once

/// @file
/// Polymorphic mapping of points, for hosts that choose the kind of map at run time.

#include "zyl/geometry/coord.h"
#include "zyl/geometry/export.h"

namespace zyl::geometry {

/// @addtogroup matrices
/// @{

/// A mapping of points and its inverse.
class ZYL_GEOMETRY_API Transformation {
 public:
  Transformation() = default;
  /// Nothing to copy.
  Transformation(const Transformation&) = default;
  /// Nothing to copy.
  Transformation& operator=(const Transformation&) = default;
  virtual ~Transformation();

  /// The image of p.
  virtual Coord3D transform(const Coord3D& p) const = 0;
  /// The point whose image is p.
  virtual Coord3D inverse_transform(const Coord3D& p) const = 0;
};

/// Affine map of space, held as the sixteen coefficients of a 4 × 4 matrix *column by column*,
/// where Matrix4 has them row by row.
///
///     double k[16] = {1, 0, 0, 0,  0, 1, 0, 0,  0, 0, 1, 0,  5, 6, 7, 1};
///     Transformation3D(k).transform(Coord3D(1, 1, 1));  // (6, 7, 8)
class ZYL_GEOMETRY_API Transformation3D : public Transformation {
 public:
  /// k[4·c + r] is the element in row r and column c; k[12], k[13] and k[14] are the translation.
  /// k[3], k[7], k[11] and k[15] have no influence on points.
  double k[16] = {};

  /// All coefficients zero, to be assigned before use.
  Transformation3D() = default;
  /// Copies sixteen coefficients.
  Transformation3D(double* coefficients);
  /// The same coefficients.
  Transformation3D(const Transformation3D&) = default;
  /// The same coefficients.
  Transformation3D& operator=(const Transformation3D&) = default;
  ~Transformation3D() override;

  /// The image of p, translation included, not divided by a homogeneous coordinate.
  Coord3D transform(const Coord3D& p) const override;

  /// The point that `transform` maps to p, but for rounding. Throws Matrix4::NonInvertableException
  /// if the map has no inverse. Inverts the matrix at each call: for many points, apply the inverse
  /// of Matrix4(*this) to them.
  Coord3D inverse_transform(const Coord3D& p) const override;

  /// Writes the sixteen coefficients to `out`, column by column.
  virtual void AsCoefficients(double* out) const;
};

/// @}

}  // namespace zyl::geometry
