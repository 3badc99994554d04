#include <gtest/gtest.h>

#include <tuple>

#include "support/mesh_checker.h"
#include "support/threads.h"

namespace {

using namespace mesh;

// Half a circle around a hub that every triangle has a corner at, joined all round. As the last
// point from left to right the hub names the sides of all triangles, and there are enough of them
// to be sorted on two threads; of the largest, also the other edges are linked beside them.
Points Fan(int spokes) {
  return Generate(spokes + 2, [spokes](int i) {
    const bool isHub = i == 0 || i > spokes;
    const double angle = kTurn / 4 * (1 + 2.0 * i / (spokes + 1));
    return Polar(isHub ? 0 : 100, angle, i == 0 ? kLoose : kJoined);
  });
}

TEST(EngineThreads, BuildAtOnceWhatOneBuildsAlone) {
  for (const int spokes : {1500, 2000, 12000}) {
    const Points points = Fan(spokes);
    ExpectTheSameOnThreads(4, [&points] {
      const Triangulation mesh = Triangulate(points);
      return std::tuple(mesh.triangles, mesh.neighbours, mesh.segments);
    });
    Check(points);
  }
}

}  // namespace
