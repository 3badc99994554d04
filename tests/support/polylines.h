#pragma once

// Closed polylines.

#include "support/rings.h"
#include "zyl/geometry/polyline3d.h"

namespace rings {

using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

inline Polyline3D Closed(const std::vector<Point3D>& points) {
  Polyline3D polyline(points);
  polyline.SetClosed(true);
  return polyline;
}

/// At z = 0.
inline Polyline3D OnTheGround(const Ring2& ring, double unit) {
  Polyline3D polyline;
  for (const auto& [x, y] : ring) {
    polyline.Add(x * unit, y * unit, 0);
  }
  polyline.SetClosed(true);
  return polyline;
}

/// Whether p lies inside as the even-odd rule has it, or on an edge that another one crosses. The
/// unit has to be so small that no plane fits: x and y are then taken as they are.
inline bool AnswersByEvenOddRule(const Ring2& ring, const Point2& p, double unit) {
  const bool isInside = OnTheGround(ring, unit).IsPointInside(p[0] * unit, p[1] * unit, 0);
  const bool expected = exact::HasArea(ring) && exact::EvenOdd(ring, p) != exact::Place::kOutside;
  return isInside == expected || exact::IsOnCrossedEdge(ring, p);
}

}  // namespace rings
