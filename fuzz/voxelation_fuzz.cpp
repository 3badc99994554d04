// A voxel index over any box, beside a map from voxel to identifiers.

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <vector>

#include "input.h"
#include "zyl/geometry/extent.h"
#include "zyl/geometry/voxelation.h"

namespace {

using namespace zyl::geometry;
using Ids = std::set<int64>;
using Voxel = std::tuple<int, int, int>;

constexpr int kMostVoxels = 12;  // along one axis; memory stays bounded

// The voxels of the range between two points.
std::vector<Voxel> Range(const Voxelation& index, const Coord3D& low, const Coord3D& high) {
  Voxelation::Location from{}, to{};
  index.Locate(low, from);
  index.Locate(high, to);
  std::vector<Voxel> voxels;
  for (int i = from.i; i <= to.i; ++i) {
    for (int j = from.j; j <= to.j; ++j) {
      for (int k = from.k; k <= to.k; ++k) {
        voxels.emplace_back(i, j, k);
      }
    }
  }
  return voxels;
}

}  // namespace

void fuzz::Run(Input& input) {
  input.DrawKind();
  const Coord3D low = input.Next<Coord3D>();
  const Coord3D high = input.Next<Coord3D>();
  const int counts[3] = {input.Int(-1, kMostVoxels), input.Int(-1, kMostVoxels),
                         input.Int(-1, kMostVoxels)};
  Voxelation index(low, high, counts[0], counts[1], counts[2]);
  int dims[3] = {0, 0, 0};
  if (!index.GetDimensions(dims)) {
    FUZZ_CHECK(*std::min_element(counts, counts + 3) <= 0 || low.SquaredDistance(high) == 0);
    FUZZ_CHECK(!index.AddPoint(Coord3D(), 1));
    return;
  }

  std::map<Voxel, Ids> model;
  const int steps = input.Byte() % 32;
  for (int step = 0; step < steps && input.Left() > 0; ++step) {
    const Coord3D a = input.Next<Coord3D>();
    const int64 id = input.Byte();
    const bool isPoint = input.Byte() % 2 == 0;
    const Coord3D b = isPoint ? a : input.Next<Coord3D>();
    FUZZ_CHECK(isPoint ? index.AddPoint(a, id) : index.AddExtent(Extent(a, b), id));
    for (const Voxel& voxel : Range(index, a, b)) {
      model[voxel].insert(id);
    }
  }

  const Voxelation copy(index);
  for (int i = -1; i <= dims[0]; ++i) {
    for (int j = -1; j <= dims[1]; ++j) {
      for (int k = -1; k <= dims[2]; ++k) {
        Ids found;
        copy.CollectIDsAt(found, i, j, k);
        FUZZ_CHECK(found == model[Voxel(i, j, k)]);
      }
    }
  }
  const Coord3D centre = input.Next<Coord3D>();
  const Coord3D half = input.Next<Coord3D>();
  Ids wanted;
  for (const Voxel& voxel : Range(index, centre - half, centre + half)) {
    wanted.insert(model[voxel].begin(), model[voxel].end());
  }
  Ids near;
  FUZZ_CHECK(index.CollectIDsNear(near, centre, half.x, half.y, half.z) == !wanted.empty());
  FUZZ_CHECK(near == wanted);
}
