#pragma once

/// @file
/// Oriented ellipsoid, as a search neighbourhood for points.

#include "zyl/geometry/coord.h"
#include "zyl/geometry/export.h"
#include "zyl/geometry/matrix3.h"

namespace zyl::geometry {

/// @addtogroup primitives
/// @{

/// Oriented ellipsoid about no centre in particular, and the metric under which it is a sphere of
/// its major radius. Angles are degrees.
///
///     const Ellipsoid search(Coord3D(10, 5, 2), Coord3D(90, 0, 0));  // 10 m to the east
///     Coord3D centre(100, 200, 50);
///     centre.SquaredDistance(Coord3D(108, 200, 50), search.matrix) <= 10 * 10;  // true: inside
struct ZYL_GEOMETRY_API Ellipsoid {
  /// Major, semi-major and minor radius.
  Coord3D radii;
  /// (1/r1, r2/r1, r3/r1).
  Coord3D ratios;
  /// Of the major axis the bearing, clockwise from north (+Y) towards east (+X), and the
  /// inclination, up towards +Z; then the turn of the other two axes about it. Facing along the
  /// major axis, a positive turn is counterclockwise.
  Coord3D angles;
  /// Takes an offset to its components along the three axes, the second and third stretched by
  /// r1/r2 and r1/r3: the surface becomes a sphere of radius r1.
  Matrix3 matrix;

  /// Zero radii, ratios and angles, and the identity.
  Ellipsoid() = default;

  /// A major radius below 1e-6 is raised to that, with a line on the standard error stream. Within
  /// `matrix`, though not in `ratios`, the other two count as 1e-6 of it if they are less, or if
  /// the ratio is NaN. A NaN angle leaves `matrix` NaN. Turned by zero, the semi-major axis is
  /// horizontal, to the left of the major one.
  Ellipsoid(const Coord3D& radii_, const Coord3D& angles_);
};

/// @}

}  // namespace zyl::geometry
