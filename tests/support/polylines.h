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

}  // namespace rings
