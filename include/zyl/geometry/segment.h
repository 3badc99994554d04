#pragma once

/// @file
/// Line segment, ray, and the record that intersection tests fill.
///
/// The queries are compiled in the library, and answer by rounded arithmetic: they measure, and do
/// not decide on which side of anything a point lies.

#include "zyl/geometry/coord.h"
#include "zyl/geometry/direction.h"
#include "zyl/geometry/export.h"

namespace zyl::geometry {

/// @addtogroup primitives
/// @{

/// Straight line from `start` to `end`.
///
/// Queries other than Length are non-const members, though they change nothing.
/// Degenerate: a segment of zero length has no direction, and what needs one gives NaN; so does the
/// distance along the segment of the start itself.
///
///     Segment pipe(Coord3D(0, 0, 0), Coord3D(10, 0, 0));
///     double distance;
///     pipe.GetNearestPoint(Coord3D(13, 4, 0), distance);  // (10, 0, 0)
///     distance;                                           // 5
struct ZYL_GEOMETRY_API Segment {
  Coord3D start;  ///< Distances along the segment are counted from here.
  Coord3D end;    ///< May equal `start`.

  Segment() = default;
  /// The ends as passed.
  Segment(const Coord3D& start_, const Coord3D& end_) : start(start_), end(end_) {}
  /// The ends as passed.
  Segment(const Point3D& start_, const Point3D& end_) : start(start_), end(end_) {}

  /// Distance of the ends from each other.
  double Length() const { return start.Distance(end); }

  /// Angle between the directions of the two segments in radians, 0 to π. NaN if either has zero
  /// length.
  double AngleBetween(const Segment& other);

  /// Distance of p from the infinite line, and how far the foot of the perpendicular is from
  /// `start`: positive towards `end`, whether or not it falls within the segment.
  ///
  /// Both go through the angle at `start`, which costs half of the digits of `distance` for points
  /// close to the line. Both are NaN if p equals `start` or the segment has zero length.
  void DistanceAlong(const Coord3D& p, double& distance, double& along);

  /// Foot of the perpendicular from p on the infinite line, not clamped to the segment. NaN as for
  /// DistanceAlong.
  Coord3D ProjectPoint(const Coord3D& p);

  /// Point of the segment nearest to p, and its distance. NaN as for DistanceAlong: also for p at
  /// `start`, where the answer would be p itself.
  Coord3D GetNearestPoint(const Coord3D& p, double& distance);

  /// Point of this segment nearest to `other`, and the distance between the two (D. Sunday,
  /// "Distance between 3D Lines and Segments", 2001). Of the many nearest points of parallel
  /// segments that overlap, one is given.
  ///
  /// The thresholds are absolute and suit lengths of about a metre. With u and v the vectors from
  /// start to end, the segments count as parallel where |u|²·|v|² − (u·v)² is less than 1e-7, and a
  /// fraction whose numerator is less than 1e-7 counts as zero; among segments of millimetres the
  /// answer may therefore be the start where the end is nearer. To an `other` without length it is
  /// always the start: ask for the point nearest to `other.start` instead.
  Coord3D GetNearestPoint(const Segment& other, double& distance);

  /// The distance that GetNearestPoint gives.
  double Distance(const Coord3D& p);
  /// The distance that GetNearestPoint gives.
  double Distance(const Segment& other);
};

/// Half-line. The constructors bring the direction to unit length; one whose length is zero stays
/// as it is, and so do later writes to the field.
///
///     Ray(Coord3D(1, 1, 1), Coord3D(1, 1, 5)).direction;  // (0, 0, 1)
struct ZYL_GEOMETRY_API Ray {
  Coord3D origin;       ///< Where the parameter is 0.
  Direction direction;  ///< Of unit length, or zero.

  Ray() = default;
  /// From the point `from` towards the point `through`.
  Ray(const Coord3D& from, const Coord3D& through) : origin(from), direction(from, through) {
    direction.Normalize();
  }
  /// From the point `from` along a direction of any length.
  Ray(const Coord3D& from, const Direction& along) : origin(from), direction(along) {
    direction.Normalize();
  }
};

/// Where something was met: the point, and the parameter of it along the ray or segment, as the
/// function that fills the record defines it.
struct ZYL_GEOMETRY_API Intersection {
  Coord3D point;           ///< Where they meet.
  double parameter = 0.0;  ///< In units of length where a ray or a segment meets a plane.

  Intersection() = default;
  /// The values as passed.
  Intersection(const Coord3D& point_, double parameter_) : point(point_), parameter(parameter_) {}
  /// The values as passed.
  Intersection(double x, double y, double z, double parameter_)
      : point(x, y, z), parameter(parameter_) {}
};

/// @}

}  // namespace zyl::geometry
