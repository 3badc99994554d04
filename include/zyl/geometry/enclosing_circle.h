#pragma once

/// @file
/// Smallest circle around points, in the x-y plane.

#include <vector>

#include "zyl/geometry/coord.h"
#include "zyl/geometry/export.h"

namespace zyl::geometry {

class Polyline3D;

/// @addtogroup primitives
/// @{

/// Circle in the x-y plane: centre and radius.
class ZYL_GEOMETRY_API EncCircle {
 public:
  double x = 0.0;       ///< Of the centre.
  double y = 0.0;       ///< Of the centre.
  double radius = 0.0;  ///< In the units of the coordinates.
};

/// Smallest circle that contains the points, whose z does not matter.
///
/// No point lies farther outside than 1e-11 of the radius, and the radius exceeds the smallest
/// possible one by no more than that. Where the coordinates are too coarse for this (a site of 10 m
/// at x = 6 500 000), a few units in their last place take its place. Where the circle rests on the
/// ends of a diameter, its centre is known only to the square root of that precision.
/// No points give the circle of radius 0 at the origin, one point that of radius 0 around it.
/// Coordinates that are NaN or infinite, or whose squares overflow, give some circle or NaN.
/// The cost is a few passes over the points.
///
///     const std::vector<Point3D> holes = {{0, 0, 0}, {4, 0, 0}, {2, 1, 9}};
///     SmallestEnclosingCircle(holes).radius;  // 2: about the point (2, 0)
ZYL_GEOMETRY_API EncCircle SmallestEnclosingCircle(const std::vector<Point3D>& points);
/// The same of the stored points.
ZYL_GEOMETRY_API EncCircle SmallestEnclosingCircle(const Polyline3D& polyline);
/// The same of a Polyline3D made from the arrays, which drops a last point that repeats the first.
ZYL_GEOMETRY_API EncCircle SmallestEnclosingCircle(unsigned int count, double* const x,
                                                   double* const y, double* const z);
/// The same of a Polyline3D made from the array, with the same loss; a null array has no points.
ZYL_GEOMETRY_API EncCircle SmallestEnclosingCircle(unsigned int count, const Point3D* const points);

/// @}

}  // namespace zyl::geometry
