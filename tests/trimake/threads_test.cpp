#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <thread>
#include <vector>

#include "support/mesh_checker.h"
#include "support/triangulation.h"

namespace {

using mesh::TPoint;
using mesh::Triangulation;

// Half a circle around a hub that every triangle has a corner at, joined all round. As the last
// point from left to right the hub names the sides of all triangles, and there are enough of them
// to be sorted on two threads; of the largest, also the other edges are linked beside them.
constexpr int kSpokes[] = {1500, 2000, 12000};

std::vector<TPoint> Fan(int spokes) {
  std::vector<TPoint> points = {{0, 0, 0, 1}};
  for (int i = 0; i < spokes; ++i) {
    const double angle = 1.5707963267948966 * (1 + 2.0 * (i + 1) / (spokes + 1));
    points.push_back({100 * std::cos(angle), 100 * std::sin(angle), 0, 0});
  }
  points.push_back({0, 0, 0, 0});
  return points;
}

TEST(EngineThreads, BuildAtOnceWhatOneBuildsAlone) {
  constexpr std::size_t kThreads = 4;
  std::vector<std::vector<Triangulation>> built(kThreads);
  std::vector<std::thread> threads;
  for (std::vector<Triangulation>& own : built) {
    threads.emplace_back([&own] {
      for (const int spokes : kSpokes) {
        own.push_back(mesh::Triangulate(Fan(spokes)));
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (std::size_t i = 0; i < built[0].size(); ++i) {
    const std::vector<TPoint> points = Fan(kSpokes[i]);
    const Triangulation alone = mesh::Triangulate(points);
    mesh::Check(points, alone);
    for (const std::vector<Triangulation>& each : built) {
      EXPECT_EQ(each[i].triangles, alone.triangles);
      EXPECT_EQ(each[i].neighbours, alone.neighbours);
      EXPECT_EQ(each[i].segments, alone.segments);
    }
  }
}

}  // namespace
