#pragma once

// Triangulated polygons that free themselves.

#include <gtest/gtest.h>

#include <memory>

#include "support/triangulation.h"
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

inline Polygon Triangulated(const Points& points, const double* normal = nullptr) {
  int error = 77;
  Polygon polygon(zyl::geometry::internal::tri_Triangulate_Polygon(static_cast<int>(points.size()),
                                                                   points.data(), normal, &error));
  EXPECT_EQ(error, 0);
  return polygon;
}

}  // namespace mesh
