#pragma once

/// @file
/// Triangle in space, with its nearest points and contacts.

#include "zyl/geometry/coord.h"
#include "zyl/geometry/export.h"
#include "zyl/geometry/extent.h"

namespace zyl::geometry {

struct Segment;

/// @addtogroup primitives
/// @{

/// Triangle of three vertices, whose order gives its plane the positive side.
///
/// Queries other than GetExtent are non-const members, though they change nothing. Call geom_Init
/// before them: whether a point lies within the triangle is decided by geom_PointInside3Points.
/// Degenerate: a triangle without area is met by no segment; its nearest points are those of its
/// edges, but a point is held to lie within it if its y and z are those of a vertex.
///
///     Triangle face{Point3D(0, 0, 0), Point3D(4, 0, 0), Point3D(0, 4, 0)};
///     double distance;
///     face.GetNearestPoint(Coord3D(7, -4, 0), distance);  // (4, 0, 0)
///     distance;                                           // 5
struct ZYL_GEOMETRY_API Triangle {
  Point3D p0;  ///< The edges are p0→p1,
  Point3D p1;  ///< p1→p2
  Point3D p2;  ///< and p2→p0.

  /// Bounding box. A NaN coordinate counts only if it is that of p0.
  Bounds3D GetExtent() const;

  /// Point of the triangle nearest to p, and its distance. A vertex is at distance 0 from itself.
  /// Beside an edge both are as Segment::GetNearestPoint gives them, and of two edges as near the
  /// earlier one counts. With NaN coordinates the distance is NaN.
  Coord3D GetNearestPoint(const Coord3D& p, double& distance);

  /// Point of the triangle nearest to a segment, and the distance between the two: 0 where they
  /// meet, save that a segment within the plane counts by its ends and the edges alone. Between the
  /// segment and an edge the thresholds are those of Segment::GetNearestPoint.
  Coord3D GetNearestPoint(const Segment& segment, double& distance);

  /// @name Distance
  /// @{

  /// The distance that GetNearestPoint gives.
  double Distance(const Coord3D& p);
  double Distance(const Segment& segment);
  /// @}

  /// Whether the segment passes through the triangle, edges, vertices and its own ends included.
  /// Never true for a segment that lies in the plane or is parallel to it. The point where it meets
  /// the plane is rounded: on the border the answer may go either way.
  bool Intersect(const Segment& segment);

  /// Whether an edge of either triangle passes through the other, as Intersect has it. Never true
  /// for triangles in one plane, though they may overlap.
  bool IsTouching(const Triangle& other);
};

/// @}

}  // namespace zyl::geometry
