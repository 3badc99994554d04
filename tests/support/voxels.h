#pragma once

// What a voxel index has to answer: a map of the sets of its voxels.

#include <map>
#include <set>

#include "zyl/geometry/extent.h"
#include "zyl/geometry/voxelation.h"

namespace voxels {

using zyl::geometry::Coord3D;
using zyl::geometry::Extent;
using zyl::geometry::int64;

using IDs = std::set<int64>;
using Content = std::map<Coord3D, IDs>;  // by the indices of a voxel

/// Visits the voxels from the lowest to the highest indices in a box. There are none in an inverted
/// box.
template <class Visit>
void ForEachVoxel(const Extent& voxels, Visit visit) {
  for (double i = voxels.min.x; i <= voxels.max.x; ++i) {
    for (double j = voxels.min.y; j <= voxels.max.y; ++j) {
      for (double k = voxels.min.z; k <= voxels.max.z; ++k) {
        visit(Coord3D(i, j, k));
      }
    }
  }
}

inline void Add(Content& content, const Extent& voxels, int64 id) {
  ForEachVoxel(voxels, [&](const Coord3D& voxel) { content[voxel].insert(id); });
}

inline IDs In(const Content& content, const Extent& voxels) {
  IDs ids;
  ForEachVoxel(voxels, [&](const Coord3D& voxel) {
    const auto found = content.find(voxel);
    if (found != content.end()) {
      ids.insert(found->second.begin(), found->second.end());
    }
  });
  return ids;
}

}  // namespace voxels
