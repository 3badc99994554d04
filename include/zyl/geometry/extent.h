#pragma once

/// @file
/// Axis-aligned box in space.
///
/// The arithmetic that stands inline follows the caller's compiler flags, as in coord.h; whatever
/// answers a question is compiled in the library.

#include <vector>

#include "zyl/geometry/coord.h"
#include "zyl/geometry/export.h"

/// @addtogroup boxes
/// @{

/// Box as the procedural interface passes it: the lower corner as four doubles, of which the fourth
/// is never read, then the upper corner.
struct Extent_type_s {
  /// @name Corners
  /// @{

  /// In this order; nothing keeps min ≤ max.
  double minX, minY, minZ, reserved;
  double maxX, maxY, maxZ;
  /// @}
};

/// @}

namespace zyl::geometry {

class Polyline3D;
struct Segment;

/// @addtogroup boxes
/// @{

/// Two corners and nothing else; what other records of bounds are converted through.
struct Bounds3D {
  Coord3D min;  ///< Lower corner.
  Coord3D max;  ///< Upper corner.
};

/// Axis-aligned box, given by its lower and its upper corner.
///
/// There is no empty box and nothing keeps min ≤ max: a box is the six numbers it holds, and every
/// query says how it compares them. A box that is inverted on an axis, or has a NaN there, contains
/// nothing; to Hit, IsOverlapping and the distance to a point, a NaN is no limit.
///
///     const Extent site(Coord3D(0, 0, 0), Coord3D(4, 3, 2));
///     site.IsInside(Coord3D(4, 1, 1));  // true: the boundary belongs to it
///     site.Distance(Coord3D(7, 7, 1));  // 5
struct ZYL_GEOMETRY_API Extent {
  Coord3D min;  ///< Lower corner.
  Coord3D max;  ///< Upper corner.

  /// All six values 0.
  Extent() = default;
  /// Box of one point.
  Extent(const Coord3D& p) : min(p), max(p) {}
  /// From the lower corner to the upper; not sorted.
  Extent(const Coord3D& lower, const Coord3D& upper) : min(lower), max(upper) {}
  /// Bounding box of three points. A NaN coordinate counts only if it is that of `a`.
  Extent(const Coord3D& a, const Coord3D& b, const Coord3D& c);
  /// From the lower corner to the upper; not sorted.
  Extent(double minX, double minY, double minZ, double maxX, double maxY, double maxZ)
      : min(minX, minY, minZ), max(maxX, maxY, maxZ) {}
  /// The two corners as they are.
  Extent(const Bounds3D& bounds) : min(bounds.min), max(bounds.max) {}
  /// The two corners as they are.
  Extent(const Extent_type_s& record)
      : min(record.minX, record.minY, record.minZ), max(record.maxX, record.maxY, record.maxZ) {}

  /// Whether at least one side is 1e-5 or longer. An inverted side counts by its absolute length;
  /// Extent2D asks for both of its sides.
  bool IsValid() const;

  /// Whether the closed boxes have a point in common: touching counts.
  bool Hit(const Extent& o) const;
  /// Whether the interiors overlap: touching does not count.
  bool IsOverlapping(const Extent& o) const;
  /// Whether this box lies within `o`; boundaries may coincide.
  bool IsCoveredBy(const Extent& o) const;
  /// Whether this box lies within `o` and touches its boundary nowhere.
  bool IsInside(const Extent& o) const;
  /// Whether p lies in this box or on its boundary. Note the direction: for a box the question is
  /// whether this lies in the argument, for a point whether the argument lies in this.
  bool IsInside(const Coord3D& p) const;
  /// Common part of the two boxes. Returns false and makes `out` all zero unless it has a positive
  /// length on every axis. A NaN in `o` gives false, one in this box is no limit. `out` may be one
  /// of the two boxes.
  bool GetIntersection(const Extent& o, Extent& out) const;

  /// Lengths along x, y and z, negative where the box is inverted.
  Coord3D Sides() const { return max - min; }
  /// Midpoint of the two corners.
  Coord3D Centroid() const { return (max + min) * 0.5; }
  /// Product of the sides: negative if one or all three are inverted.
  double GetVolume() const { return (max.y - min.y) * (max.x - min.x) * (max.z - min.z); }

  /// Distance from p to the nearest point of the box; 0 if p is inside or on it, NaN if p has one.
  double Distance(const Coord3D& p) const;
  /// Smallest of the distances from the segment to the twelve edges of the box and from the box to
  /// the two ends.
  ///
  /// A segment that pierces two faces far from any edge, both its ends outside, therefore has a
  /// positive distance although it meets the box. The edges answer with the absolute thresholds of
  /// Segment::GetNearestPoint. Distances that are NaN do not count; the result is NaN if all are.
  double Distance(const Segment& s) const;

  /// The eight corners: round the bottom counterclockwise seen from above, beginning with `min`,
  /// then the same round at the top.
  std::vector<Coord3D> GetCornerPoints() const;
  /// The eight boxes between the centroid and the corners: the upper four, then the lower, each
  /// four in the order +x+y, +x−y, −x−y, −x+y.
  std::vector<Extent> GetOctants() const;
  /// Appends the bottom face to `bottom` and the top face to `top`, four points each,
  /// counterclockwise seen from above, and closes both polylines. Points they hold already stay.
  void GetTopBottomPolygons(Polyline3D& top, Polyline3D& bottom);

  /// Sets all six values to 0. The zero box is a point like any other: what is added later grows
  /// the box from the origin.
  void SetEmpty() { *this = Extent(); }
  /// Grows the box until p is in it. A NaN coordinate of p changes nothing.
  void AddPoint(const Coord3D& p) { Union(Extent(p)); }
  /// Grows the box until `o` is in it. NaN as for AddPoint.
  void Union(const Extent& o) {
    min = Coord3D(o.min).minimum(min);
    max = Coord3D(o.max).maximum(max);
  }
  /// Moves every face outwards by d, or inwards if d is negative.
  void Expand(double d);
  /// Lengthens each side by the fraction f of its own length, about the same centre.
  void ExpandKeepingAspect(double f);

  /// Exact, without tolerance; a NaN makes it false.
  bool operator==(const Extent& o) const { return min == o.min && max == o.max; }
  /// Negation of ==, hence true where a NaN is compared.
  bool operator!=(const Extent& o) const { return !(*this == o); }
};

/// @}

}  // namespace zyl::geometry

/// @ingroup boxes
/// Bounding box of the points; all zero if there are none. A NaN coordinate counts only if it is
/// that of the first point.
ZYL_GEOMETRY_API zyl::geometry::Extent FindPointsExtent(
    const std::vector<zyl::geometry::Point3D>& points);
