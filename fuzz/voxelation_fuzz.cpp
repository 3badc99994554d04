// A voxel index over any box, beside a list of what was added and where.

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "input.h"
#include "zyl/geometry/extent.h"
#include "zyl/geometry/voxelation.h"

namespace {

using namespace zyl::geometry;
using Ids = std::set<int64>;

constexpr int kMostVoxels = 12;  // along one axis; memory stays bounded

// The voxels from one to another; none if they run backwards.
struct Range {
  Voxelation::Location from, to;

  bool Meets(const Range& other) const {
    return std::max(from.i, other.from.i) <= std::min(to.i, other.to.i) &&
           std::max(from.j, other.from.j) <= std::min(to.j, other.to.j) &&
           std::max(from.k, other.from.k) <= std::min(to.k, other.to.k);
  }
};

Range Between(const Voxelation& index, const Coord3D& low, const Coord3D& high) {
  Range range{};
  index.Locate(low, range.from);
  index.Locate(high, range.to);
  return range;
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

  std::vector<std::pair<Range, int64>> added;
  const auto idsIn = [&added](const Range& range) {
    Ids ids;
    for (const auto& [where, id] : added) {
      if (where.Meets(range)) {
        ids.insert(id);
      }
    }
    return ids;
  };
  const int steps = input.Byte() % 32;
  for (int step = 0; step < steps && input.Left() > 0; ++step) {
    const Coord3D a = input.Next<Coord3D>();
    const int64 id = input.Byte();
    const bool isPoint = input.Byte() % 2 == 0;
    const Coord3D b = isPoint ? a : input.Next<Coord3D>();
    FUZZ_CHECK(isPoint ? index.AddPoint(a, id) : index.AddExtent(Extent(a, b), id));
    added.emplace_back(Between(index, a, b), id);
  }

  const Voxelation copy(index);
  const int ni = dims[0] + 2, nj = dims[1] + 2, nk = dims[2] + 2;  // a layer around the voxels, too
  for (int n = 0; n < ni * nj * nk; ++n) {
    Voxelation::Location voxel{n % ni - 1, n / ni % nj - 1, n / ni / nj - 1};
    Ids found;
    copy.CollectIDsAt(found, voxel);
    FUZZ_CHECK(found == idsIn({voxel, voxel}));
  }
  const Coord3D centre = input.Next<Coord3D>();
  const Coord3D half = input.Next<Coord3D>();
  const Ids wanted = idsIn(Between(index, centre - half, centre + half));
  Ids near;
  FUZZ_CHECK(index.CollectIDsNear(near, centre, half.x, half.y, half.z) == !wanted.empty());
  FUZZ_CHECK(near == wanted);
}
