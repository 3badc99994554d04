#pragma once

/// @file
/// Axis-aligned rectangle in the x-y plane: the planar counterpart of extent.h.

#include <vector>

#include "zyl/geometry/coord.h"
#include "zyl/geometry/export.h"

struct Extent_type_s;

namespace zyl::geometry {

struct Extent;

/// @addtogroup boxes
/// @{

/// Two corners and nothing else; what other records of bounds are converted through.
struct Bounds2D {
  Coord2D min;  ///< Lower corner.
  Coord2D max;  ///< Upper corner.
};

/// Axis-aligned rectangle, given by its lower and its upper corner.
///
/// The conventions are those of Extent: nothing keeps min ≤ max, there is no empty rectangle, and
/// one that is inverted or has a NaN contains nothing. Boxes in space convert by dropping z.
///
///     const Extent2D sheet(0, 0, 4, 3);
///     sheet.IsInside(4, 1);   // true: the boundary belongs to it
///     sheet.GetArea(false);   // 12
struct ZYL_GEOMETRY_API Extent2D {
  Coord2D min;  ///< Lower corner.
  Coord2D max;  ///< Upper corner.

  /// All four values 0.
  Extent2D() = default;
  /// From the lower corner to the upper; not sorted.
  Extent2D(double minX, double minY, double maxX, double maxY) : min(minX, minY), max(maxX, maxY) {}
  /// Rectangle of one point.
  Extent2D(const Coord2D& p) : min(p), max(p) {}
  /// From the lower corner to the upper; not sorted.
  Extent2D(const Coord2D& lower, const Coord2D& upper) : min(lower), max(upper) {}

  /// @name Conversion and copy
  /// @{

  /// The corners as they are, without their heights.
  Extent2D(const Extent2D&) = default;
  Extent2D(const Bounds2D& bounds) : min(bounds.min), max(bounds.max) {}
  Extent2D(const Extent& e);
  Extent2D(const Extent_type_s& record);
  Extent2D& operator=(const Extent2D&) = default;
  Extent2D& operator=(const Bounds2D& bounds) { return *this = Extent2D(bounds); }
  Extent2D& operator=(const Extent& e) { return *this = Extent2D(e); }
  Extent2D& operator=(const Extent_type_s& record) { return *this = Extent2D(record); }
  /// @}

  /// Whether both sides are longer than 1e-5, inverted ones by their absolute length. Extent asks
  /// for one of its sides only.
  bool IsValid() const;

  /// Whether the closed rectangles have a point in common: touching counts.
  bool Hit(const Extent2D& o) const;
  /// Whether the interiors overlap: touching does not count.
  bool IsOverlapping(const Extent2D& o) const;
  /// Whether this rectangle lies within `o`; boundaries may coincide.
  bool IsCoveredBy(const Extent2D& o) const;
  /// Whether this rectangle lies within `o` and touches its boundary nowhere.
  bool IsInside(const Extent2D& o) const;
  /// Whether the point lies in this rectangle or on its boundary.
  bool IsInside(double x, double y) const;
  /// Whether the point lies in this rectangle or on its boundary.
  bool IsInside(const Coord2D& p) const;
  /// Common part of the two rectangles. Returns false and makes `out` all zero unless it has a
  /// positive length on both axes. `out` may be one of the two.
  bool GetIntersection(const Extent2D& o, Extent2D& out) const;

  /// Lengths along x and y, negative where the rectangle is inverted.
  Coord2D Sides() const { return {max.x - min.x, max.y - min.y}; }
  /// Midpoint of the two corners.
  Coord2D Centroid() const { return {(max.x + min.x) * 0.5, (max.y + min.y) * 0.5}; }
  /// Product of the sides, negative if one of them is inverted, or its absolute value.
  double GetArea(bool absolute) const;

  /// The four corners, counterclockwise from `min`.
  std::vector<Coord2D> GetCornerPoints() const;

  /// Sets all four values to 0; what is added later grows the rectangle from the origin.
  void SetEmpty() { *this = Extent2D(); }
  /// Grows the rectangle until p is in it. A NaN coordinate of p changes nothing.
  void AddPoint(const Coord2D& p) {
    min = {p.x < min.x ? p.x : min.x, p.y < min.y ? p.y : min.y};
    max = {p.x > max.x ? p.x : max.x, p.y > max.y ? p.y : max.y};
  }
  /// Moves every side outwards by d, or inwards if d is negative.
  void Expand(double d);
};

/// @}

}  // namespace zyl::geometry
