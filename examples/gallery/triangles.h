#pragma once

// The triangles that the library asks when it is asked about a polygon. They stand behind the
// interface: a host sees their answers only.

#include <vector>

#include "zyl/geometry/coord.h"

namespace gallery {

struct ShadedTriangle {
  zyl::geometry::Point3D corners[3];
  bool inside;
};

/// Triangulates level rings together, each of them closed; the even-odd rule decides what is
/// inside. Empty if there is no triangle.
std::vector<ShadedTriangle> Triangulate(
    const std::vector<std::vector<zyl::geometry::Point3D>>& rings);

}  // namespace gallery
