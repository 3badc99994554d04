#pragma once

// What a voxel index has to answer, from a list of all that was added to it.

#include <set>
#include <utility>
#include <vector>

#include "zyl/geometry/extent.h"
#include "zyl/geometry/voxelation.h"

namespace voxels {

using IDs = std::set<zyl::geometry::int64>;

/// The voxels from the lowest to the highest indices in a box, and what was added to them. There
/// are none in an inverted box.
using Added = std::vector<std::pair<zyl::geometry::Extent, zyl::geometry::int64>>;

inline IDs In(const Added& added, const zyl::geometry::Extent& voxels) {
  IDs ids;
  for (auto [where, id] : added) {
    const zyl::geometry::Coord3D low = where.min.maximum(voxels.min);
    const zyl::geometry::Coord3D high = where.max.minimum(voxels.max);
    if (low.x <= high.x && low.y <= high.y && low.z <= high.z) {
      ids.insert(id);
    }
  }
  return ids;
}

}  // namespace voxels
