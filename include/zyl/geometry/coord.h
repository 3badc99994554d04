#pragma once

/// @file
/// Points and vectors as plain doubles, and their arithmetic.
///
/// What stands inline here is compiled with the caller's flags: where those allow contraction or
/// reordering, sums and products may differ in the last bit from the library's own. To decide on
/// which side a point lies use geom_Orient2D or geom_Orient3D, never a sign computed here.

#include <cmath>

#include "zyl/geometry/export.h"

namespace zyl::geometry {

class Matrix3;
class Matrix4;
class Plane;

/// @addtogroup vectors
/// @{

/// Planar coordinate, as Matrix3 and Extent2D use it.
struct Coord2D {
  double x = 0.0;  ///< To the right, or east.
  double y = 0.0;  ///< Up the sheet, or north.

  constexpr Coord2D() = default;
  /// The components as passed.
  constexpr Coord2D(double x_, double y_) : x(x_), y(y_) {}
};

/// One row or column of a Matrix4.
struct Coord4D {
  double x = 0.0;  ///< Element 0.
  double y = 0.0;  ///< Element 1.
  double z = 0.0;  ///< Element 2.
  double w = 0.0;  ///< Element 3.

  constexpr Coord4D() = default;
  /// The elements as passed.
  constexpr Coord4D(double x_, double y_, double z_, double w_) : x(x_), y(y_), z(z_), w(w_) {}
};

struct Coord3D;

/// Element of a point sequence such as a Polyline3D: the same three doubles as a Coord3D, into
/// which it converts silently.
struct Point3D {
  double x = 0.0;  ///< East.
  double y = 0.0;  ///< North.
  double z = 0.0;  ///< Up.

  constexpr Point3D() = default;
  /// The components as passed.
  constexpr Point3D(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}
  /// The same three doubles; only this way round does the conversion have to be spelt out.
  constexpr explicit Point3D(const Coord3D& c);
};

/// Exact, without tolerance; NaN equals nothing, and +0 equals -0.
constexpr bool operator==(const Point3D& a, const Point3D& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z;
}
/// Negation of ==, hence true where a NaN is compared.
constexpr bool operator!=(const Point3D& a, const Point3D& b) { return !(a == b); }

/// Point or vector in space.
///
/// Trivially copyable, three doubles wide. Nothing here reports failure: division by a zero length
/// follows IEEE arithmetic and gives NaN.
///
///     Coord3D step(3, 4, 0);
///     step.Magnitude();                   // 5
///     step.Cross(Coord3D(0, 0, 1));       // (4, -3, 0)
///     Coord3D(5, 0, 1) < Coord3D(0, 0, 2);  // true: z decides first
struct ZYL_GEOMETRY_API Coord3D {
  double x = 0.0;  ///< East.
  double y = 0.0;  ///< North.
  double z = 0.0;  ///< Up.

  constexpr Coord3D() = default;
  /// The components as passed.
  constexpr Coord3D(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}
  /// Reads p[0], p[1] and p[2].
  constexpr Coord3D(double* const p) : x(p[0]), y(p[1]), z(p[2]) {}
  /// The same three doubles.
  constexpr Coord3D(const Coord3D&) = default;
  /// The same three doubles.
  constexpr Coord3D(const Point3D& p) : x(p.x), y(p.y), z(p.z) {}

  /// The same three doubles.
  Coord3D& operator=(const Coord3D&) = default;
  /// Sets all three components to v.
  const Coord3D& operator=(double v) {
    x = v;
    y = v;
    z = v;
    return *this;
  }

  /// Scalar product.
  double Dot(const Coord3D& b) const { return x * b.x + y * b.y + z * b.z; }
  /// Vector product this × b, right-handed; zero for parallel vectors.
  Coord3D Cross(const Coord3D& b) const {
    return {y * b.z - z * b.y, z * b.x - x * b.z, x * b.y - y * b.x};
  }
  /// Length. The squares underflow to 0 below about 1e-162 and overflow beyond 1e154.
  double Magnitude() const { return std::sqrt(MagnitudeSquared()); }
  /// Length without the root: enough to compare lengths, and cheaper.
  double MagnitudeSquared() const { return x * x + y * y + z * z; }
  /// Length of the difference; under- and overflow as in Magnitude.
  double Distance(const Coord3D& b) const { return std::sqrt(SquaredDistance(b)); }
  /// Distance without the root: enough to compare distances, and cheaper.
  double SquaredDistance(const Coord3D& b) const {
    const double dx = b.x - x;
    const double dy = b.y - y;
    const double dz = b.z - z;
    return dx * dx + dy * dy + dz * dz;
  }

  /// Squared length of m·(this − b): the squared distance under the metric m. With
  /// Ellipsoid::matrix it is measured in units in which the ellipsoid is a sphere.
  double SquaredDistance(const Coord3D& b, const Matrix3& m);

  /// Angle between the two vectors in radians, 0 to π. NaN if either is zero, and also where the
  /// cosine of two nearly parallel vectors is rounded beyond ±1: it is not clamped.
  double Angle(const Coord3D& b) const;

  /// Whether the angle between a and b is less than `tolerance` radians. Opposite vectors are not
  /// parallel. False wherever Angle is NaN, hence for a zero vector.
  static bool Parallel(const Coord3D& a, const Coord3D& b, double tolerance);

  /// Component-wise larger value; where either is NaN, that of b.
  Coord3D maximum(const Coord3D& b) {
    return {x > b.x ? x : b.x, y > b.y ? y : b.y, z > b.z ? z : b.z};
  }
  /// Component-wise smaller value; where either is NaN, that of b.
  Coord3D minimum(const Coord3D& b) {
    return {x < b.x ? x : b.x, y < b.y ? y : b.y, z < b.z ? z : b.z};
  }

  /// This point turned by `angle` radians about the axis through `origin` along the *unit* vector
  /// `axis`, right-handed. An axis of another length also stretches the component along it; a zero
  /// axis gives NaN.
  Coord3D Rotate(const Coord3D& origin, const Coord3D& axis, double angle);

  /// The rotation that turns this vector onto +Z, and its inverse. The zero vector gives two
  /// identity matrices.
  void GetZUpTransform(Matrix4& toZUp, Matrix4& fromZUp) const;

  /// Orthogonal projection onto a plane of unit normal; a plane with a zero normal returns the
  /// point itself.
  Coord3D Project(const Plane& plane) const;

  /// Scales to unit length. The zero vector becomes (NaN, NaN, NaN); Direction::Normalize leaves
  /// it.
  void Normalise() {
    const double magnitude = Magnitude();
    x /= magnitude;
    y /= magnitude;
    z /= magnitude;
  }

  /// Component 0, 1 or 2; the index is not checked.
  double& operator[](int i) { return i == 0 ? x : i == 1 ? y : z; }
  /// Component 0, 1 or 2 by value; the index is not checked.
  double operator[](int i) const { return i == 0 ? x : i == 1 ? y : z; }

  /// @name Arithmetic
  /// @{

  /// Component by component, the product of two vectors included; for the scalar product see Dot.
  /// The compound forms give a reference that cannot be written through.
  const Coord3D operator*(const Coord3D& b) const { return {x * b.x, y * b.y, z * b.z}; }
  const Coord3D operator*(double s) const { return {x * s, y * s, z * s}; }
  const Coord3D operator+(const Coord3D& b) const { return {x + b.x, y + b.y, z + b.z}; }
  const Coord3D operator-(const Coord3D& b) const { return {x - b.x, y - b.y, z - b.z}; }
  const Coord3D operator-() const { return {-x, -y, -z}; }

  const Coord3D& operator*=(double s) {
    x *= s;
    y *= s;
    z *= s;
    return *this;
  }
  const Coord3D& operator+=(const Coord3D& b) {
    x += b.x;
    y += b.y;
    z += b.z;
    return *this;
  }
  const Coord3D& operator-=(const Coord3D& b) {
    x -= b.x;
    y -= b.y;
    z -= b.z;
    return *this;
  }
  /// @}

  /// Exact, without tolerance; NaN equals nothing, not even itself.
  bool operator==(const Coord3D& b) const { return x == b.x && y == b.y && z == b.z; }
  /// Negation of ==, hence true where a NaN is compared.
  bool operator!=(const Coord3D& b) const { return !(*this == b); }

  /// Strict order by z, then y, then x: what a sorted container of coordinates uses. A NaN on the
  /// way gives false.
  bool operator<(const Coord3D& b) const {
    if (z != b.z) {
      return z < b.z;
    }
    if (y != b.y) {
      return y < b.y;
    }
    return x < b.x;
  }
};

/// @}

constexpr Point3D::Point3D(const Coord3D& c) : x(c.x), y(c.y), z(c.z) {}

}  // namespace zyl::geometry
