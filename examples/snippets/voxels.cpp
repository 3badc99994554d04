// The voxel index: what lies near, without looking at everything.

#include <cassert>
#include <set>
#include <vector>

#include "zyl/geometry/geometry.h"

using zyl::geometry::Coord3D;
using zyl::geometry::Extent;
using zyl::geometry::int64;
using zyl::geometry::Voxelation;

namespace {

void Candidates() {
  //! [candidates]
  // 10 x 10 x 10 voxels of one metre, and objects filed under numbers of the caller's choice.
  Voxelation index(Coord3D(0, 0, 0), Coord3D(10, 10, 10), 10, 10, 10);
  index.AddPoint(Coord3D(2.5, 2.5, 2.5), 7);
  index.AddExtent(Extent(3.5, 0.5, 0.5, 8.5, 1.5, 1.5), 8);

  std::set<int64> near;
  assert(index.CollectIDsNear(near, Coord3D(2, 2, 2), 1, 1, 1));
  assert(near == (std::set<int64>{7, 8}));
  //! [candidates]
}

void Confirmed() {
  //! [confirmed]
  // The index gives candidates, all that are near and some that are not; the caller decides.
  const std::vector<Coord3D> samples = {{1.1, 1, 1}, {1.9, 1.9, 1.9}, {7, 7, 7}};
  Voxelation index(Coord3D(0, 0, 0), Coord3D(8, 8, 8), 4, 4, 4);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    index.AddPoint(samples[i], static_cast<int64>(i));
  }

  const Coord3D p(1, 1, 1);
  const double radius = 0.5;
  std::set<int64> candidates;
  index.CollectIDsNear(candidates, p, radius, radius, radius);
  assert(candidates == (std::set<int64>{0, 1}));

  std::set<int64> found;
  for (const int64 id : candidates) {
    if (p.SquaredDistance(samples[static_cast<std::size_t>(id)]) <= radius * radius) {
      found.insert(id);
    }
  }
  assert(found == std::set<int64>{0});
  //! [confirmed]
}

void Location() {
  //! [location]
  const Voxelation index(Coord3D(0, 0, 0), Coord3D(10, 10, 10), 10, 5, 2);
  Voxelation::Location at;

  assert(index.Locate(Coord3D(3.5, 3.5, 3.5), at));
  assert(at.i == 3 && at.j == 1 && at.k == 0);
  assert(index.Locate(Coord3D(99, -99, 10), at));  // outside: the nearest border voxel
  assert(at.i == 9 && at.j == 0 && at.k == 1);
  //! [location]
}

}  // namespace

int main() {
  Candidates();
  Confirmed();
  Location();
}
