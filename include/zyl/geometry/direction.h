#pragma once

/// @file
/// Direction vector: a Coord3D's three doubles under a type of their own.
///
/// What stands inline here follows the caller's compiler flags, as in coord.h.

#include "zyl/geometry/coord.h"
#include "zyl/geometry/export.h"

namespace zyl::geometry {

/// @addtogroup vectors
/// @{

/// Direction vector. Only Normalize brings it to unit length; constructors and operators keep the
/// length they are given.
///
///     Direction dip(Coord3D(1, 1, 1), Coord3D(1, 1, 5));
///     dip;  // (0, 0, 4): the second minus the first
///     dip.Normalize();
///     dip;  // (0, 0, 1)
struct ZYL_GEOMETRY_API Direction {
  double x = 0.0;  ///< East.
  double y = 0.0;  ///< North.
  double z = 0.0;  ///< Up.

  constexpr Direction() = default;
  /// The components as passed.
  constexpr Direction(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}
  /// From one point to another: to − from, not normalised.
  Direction(const Coord3D& from, const Coord3D& to)
      : x(to.x - from.x), y(to.y - from.y), z(to.z - from.z) {}
  /// The same three doubles.
  constexpr Direction(const Coord3D& c) : x(c.x), y(c.y), z(c.z) {}
  /// The same three doubles.
  constexpr Direction(const Direction&) = default;

  /// The same three doubles.
  Direction& operator=(const Direction&) = default;

  /// The field x.
  double GetXDirection() { return x; }
  /// The field y.
  double GetYDirection() { return y; }
  /// The field z.
  double GetZDirection() { return z; }

  /// Scalar product.
  double Dot(const Direction& b) const { return x * b.x + y * b.y + z * b.z; }
  /// Scalar product.
  double Dot(const Coord3D& b) const { return x * b.x + y * b.y + z * b.z; }
  /// Vector product this × b, right-handed and not normalised.
  Direction Cross(const Direction& b) const {
    return {y * b.z - z * b.y, z * b.x - x * b.z, x * b.y - y * b.x};
  }

  /// The rotation that turns this direction onto +Z, and its inverse. The zero direction gives two
  /// identity matrices.
  void GetZUpTransform(Matrix4& toZUp, Matrix4& fromZUp) const;

  /// Sets the components as passed, not normalised.
  void SetDirection(double x_, double y_, double z_) {
    x = x_;
    y = y_;
    z = z_;
  }

  /// Sets the unit direction of a compass bearing, clockwise from north (+Y) towards east (+X), and
  /// an inclination up from the horizontal towards +Z, both in degrees.
  void SetDirectionByBearingDegrees(double bearing, double inclination);

  /// Scales to unit length. A direction whose length is zero, or underflows to it, stays as it is.
  void Normalize();

  /// Component 0, 1 or 2 by value; the index is not checked.
  double operator[](int i) { return i == 0 ? x : i == 1 ? y : z; }

  /// @name Arithmetic
  /// @{

  /// Component by component, not normalised; a division by 0 gives infinities and NaN. The compound
  /// forms give a reference that cannot be written through.
  const Direction operator*(double s) const { return {x * s, y * s, z * s}; }
  const Direction operator+(const Direction& b) const { return {x + b.x, y + b.y, z + b.z}; }
  const Direction operator-(const Direction& b) const { return {x - b.x, y - b.y, z - b.z}; }
  const Direction operator-() const { return {x * -1.0, y * -1.0, z * -1.0}; }
  const Direction operator/(double s) const { return {x / s, y / s, z / s}; }

  const Direction& operator*=(double s) {
    x *= s;
    y *= s;
    z *= s;
    return *this;
  }
  const Direction& operator/=(double s) {
    x /= s;
    y /= s;
    z /= s;
    return *this;
  }
  const Direction& operator+=(const Direction& b) {
    x += b.x;
    y += b.y;
    z += b.z;
    return *this;
  }
  const Direction& operator-=(const Direction& b) {
    x -= b.x;
    y -= b.y;
    z -= b.z;
    return *this;
  }
  /// @}
};

/// @}

}  // namespace zyl::geometry
