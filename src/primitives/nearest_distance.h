#pragma once

// The distance of what answers with its nearest point.

namespace zyl::geometry::internal {

template <class Shape, class Target>
double NearestDistance(Shape& shape, const Target& target) {
  double distance;
  shape.GetNearestPoint(target, distance);
  return distance;
}

}  // namespace zyl::geometry::internal
