#pragma once

/// @file
/// Oriented plane in implicit form.

#include "zyl/geometry/coord.h"
#include "zyl/geometry/direction.h"
#include "zyl/geometry/export.h"

namespace zyl::geometry {

class Matrix4;
struct Triangle;

/// @addtogroup primitives
/// @{

/// Oriented plane a·x + b·y + c·z + d = 0; the side its normal (a, b, c) points to is positive.
///
/// Constructors leave a unit normal, so that distances come out in the units of the coordinates.
/// That goes for *copies* too: a copy, and so what a growing std::vector moves, is normalised once
/// more, which may change its last bits. Assignment and writes to the fields do not normalise.
/// Degenerate: a zero normal, as of collinear points, stays zero, and Distance then gives d. Angles
/// are radians.
///
///     const Plane roof(Coord3D(0, 0, 5), Coord3D(4, 0, 5), Coord3D(0, 3, 5));
///     roof.Normal();                           // (0, 0, 1)
///     roof.Distance(Coord3D(1, 1, 7), false);  // 2: above it
class ZYL_GEOMETRY_API Plane {
 public:
  double a = 0.0;  ///< Normal, x.
  double b = 0.0;  ///< Normal, y.
  double c = 0.0;  ///< Normal, z.
  double d = 0.0;  ///< Height of the origin over the plane.

  /// All four fields zero.
  Plane() = default;
  /// The fields as passed, then normalised.
  Plane(double a_, double b_, double c_, double d_);
  /// Normalises, unlike assignment.
  Plane(const Plane& other);
  /// The normal and d as passed, then normalised.
  Plane(const Direction& normal, double d_);
  /// Through one point of it.
  Plane(const Direction& normal, const Coord3D& p);
  /// Through one point of it.
  Plane(const Direction& normal, const Point3D& p);
  /// Through three points, counterclockwise as seen from its positive side.
  Plane(const Coord3D& p0, const Coord3D& p1, const Coord3D& p2);
  /// Through points[0], points[1] and points[2].
  Plane(const Coord3D* const points);
  /// Through the vertices in their order.
  Plane(const Triangle& triangle);

  /// Through the horizontal line from p towards q, whose heights are not compared, and dipping to
  /// the right of it by `dip`: 0 is horizontal, π/2 vertical. From 0 to π/2 the normal points up
  /// and leans towards the dip. It is zero if q lies above or below p.
  Plane(const Coord3D& p, const Coord3D& q, double dip);
  /// The same with the line's bearing, `strike`, clockwise from north (+Y) towards east (+X).
  Plane(const Coord3D& p, double strike, double dip);

  /// Copies the fields as they are.
  Plane& operator=(const Plane&) = default;

  /// Height of p over the plane, negative below it, or its absolute value. Rounded: to decide
  /// between above, below and on, use geom_Orient3D.
  double Distance(const Coord3D& p, bool absolute) const;
  /// Distance with its sign.
  double Orientation(const Coord3D& p) const;

  /// (a, b, c).
  Coord3D Normal() const { return {a, b, c}; }

  /// Common line of two planes: its direction is this normal × that of `other`, of unit length, and
  /// the point is the one nearest the origin. Returns false and writes neither if the cross product
  /// is shorter than 1e-5, which for unit normals is the angle between them in radians. NaN fields
  /// give true, and NaN.
  bool Intersect(const Plane& other, Direction& direction, Point3D& point) const;

  /// The rotation that turns the normal onto +Z, and its inverse; two identity matrices for a zero
  /// normal.
  void GetZUpTransform(Matrix4& toZUp, Matrix4& fromZUp) const;

  /// Scales all four fields to a unit normal. Returns 0, or -1 and changes nothing if the square of
  /// its length is 0 or NaN. Where that overflows, the normal becomes zero or NaN.
  int Normalize();

  /// Moves the plane by `distance` along its normal, which is taken to be of unit length.
  void Move(double distance) { d -= distance; }

  /// The same plane seen from its other side.
  void Reverse();

 private:
  friend class Matrix4;
  struct AsGiven {};
  Plane(const Coord3D& normal, double d_, AsGiven);

  void Init(const Coord3D& p0, const Coord3D& p1, const Coord3D& p2);
  void Init(const Point3D& p0, const Point3D& p1, const Point3D& p2);
  void Init(const Coord3D& p, const Coord3D& q, double dip);
};

/// @}

}  // namespace zyl::geometry
