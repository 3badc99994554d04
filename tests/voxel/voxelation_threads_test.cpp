#include <gtest/gtest.h>

#include "support/threads.h"
#include "zyl/geometry/extent.h"
#include "zyl/geometry/voxelation.h"

namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Extent;
using zyl::geometry::Voxelation;
using IDs = std::set<zyl::geometry::int64>;

// The last insertion into each voxel leaves identifiers out of order and repeated, which is what a
// query that tidied up would have to write.
TEST(VoxelationThreads, AskedAtOnceAllGetTheAnswersOfOne) {
  Voxelation built(Coord3D(0, 0, 0), Coord3D(8, 8, 8), 8, 8, 8);
  for (int i = 0; i < 2000; ++i) {
    const Coord3D low(i % 7, i / 7 % 7, i / 49 % 7);
    built.AddExtent(Extent(low, low + Coord3D(1.5, 0.5, 2.5)), 1000 - i % 300);
  }
  const Voxelation& grid = built;
  const auto ask = [&grid] {
    std::vector<IDs> answers;
    for (int i = 0; i < 8 * 8 * 8; ++i) {
      Voxelation::Location loc;
      grid.Locate(i % 8, i / 8 % 8, i / 64, loc);
      grid.CollectIDsAt(answers.emplace_back(), loc);
      grid.CollectIDsNear(answers.emplace_back(), Coord3D(i % 8, i / 8 % 8, i / 64), 1, 1, 1);
    }
    return answers;
  };
  ExpectTheSameOnThreads(8, ask);
}

}  // namespace
