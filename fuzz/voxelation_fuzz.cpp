// A voxel index over any box, beside a map of sets.

#include <algorithm>

#include "input.h"
#include "support/voxels.h"

namespace {

using namespace zyl::geometry;

constexpr int kMostVoxels = 12;  // along one axis; memory stays bounded

// The voxels from that of one point to that of another.
Extent Between(const Voxelation& index, const Coord3D& low, const Coord3D& high) {
  Voxelation::Location from{}, to{};
  index.Locate(low, from);
  index.Locate(high, to);
  return {Coord3D(from.i, from.j, from.k), Coord3D(to.i, to.j, to.k)};
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

  voxels::Content content;
  const int steps = input.Byte() % 32;
  for (int step = 0; step < steps && input.Left() > 0; ++step) {
    const Coord3D a = input.Next<Coord3D>();
    const int64 id = input.Byte();
    const bool isPoint = input.Byte() % 2 == 0;
    const Coord3D b = isPoint ? a : input.Next<Coord3D>();
    FUZZ_CHECK(isPoint ? index.AddPoint(a, id) : index.AddExtent(Extent(a, b), id));
    voxels::Add(content, Between(index, a, b), id);
  }

  const Voxelation copy(index);
  const int ni = dims[0] + 2, nj = dims[1] + 2, nk = dims[2] + 2;  // a layer around the voxels, too
  for (int n = 0; n < ni * nj * nk; ++n) {
    Voxelation::Location voxel{n % ni - 1, n / ni % nj - 1, n / ni / nj - 1};
    voxels::IDs found;
    copy.CollectIDsAt(found, voxel);
    FUZZ_CHECK(found == voxels::In(content, Coord3D(voxel.i, voxel.j, voxel.k)));
  }
  const Coord3D centre = input.Next<Coord3D>();
  const Coord3D half = input.Next<Coord3D>();
  const voxels::IDs wanted = voxels::In(content, Between(index, centre - half, centre + half));
  voxels::IDs near;
  FUZZ_CHECK(index.CollectIDsNear(near, centre, half.x, half.y, half.z) == !wanted.empty());
  FUZZ_CHECK(near == wanted);
}
