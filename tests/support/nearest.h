#pragma once

// What the nearest-point queries of segments and triangles answer.

#include <gtest/gtest.h>

#include <cmath>

#include "zyl/geometry/coord.h"

struct Nearest {
  zyl::geometry::Coord3D point;
  double distance;
};

/// The point of `shape` nearest to `target`; Distance has to say the same.
template <typename Shape, typename Target>
Nearest NearestTo(Shape shape, const Target& target) {
  Nearest nearest;
  nearest.point = shape.GetNearestPoint(target, nearest.distance);
  const double distance = shape.Distance(target);
  EXPECT_TRUE(distance == nearest.distance ||
              (std::isnan(distance) && std::isnan(nearest.distance)));
  return nearest;
}
