#pragma once

// Triangulated polygons that free themselves.

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <vector>

#include "trimake/polygon.h"

namespace mesh {

using zyl::geometry::internal::TPoint;
using zyl::geometry::internal::tri_Polygon;

struct FreePolygon {
  void operator()(tri_Polygon* polygon) const {
    zyl::geometry::internal::tri_Free_Polygon(polygon);
  }
};
using Polygon = std::unique_ptr<tri_Polygon, FreePolygon>;

inline Polygon Triangulated(const std::vector<TPoint>& points, const double* normal = nullptr) {
  int error = 77;
  Polygon polygon(zyl::geometry::internal::tri_Triangulate_Polygon(static_cast<int>(points.size()),
                                                                   points.data(), normal, &error));
  EXPECT_EQ(error, 0);
  return polygon;
}

/// Points of one chain after another, each given as x, y, z, x, y, z, ...; the flag of a first
/// point is not 0.
inline std::vector<TPoint> Chains(std::initializer_list<std::vector<double>> chains) {
  std::vector<TPoint> points;
  for (const std::vector<double>& chain : chains) {
    for (std::size_t i = 0; i < chain.size(); i += 3) {
      points.push_back({chain[i], chain[i + 1], chain[i + 2], i == 0 ? 5 : 0});
    }
  }
  return points;
}

}  // namespace mesh
