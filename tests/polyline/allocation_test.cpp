#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <vector>

#include "polyline/polygon_set.h"
#include "support/failing_allocator.h"
#include "support/rings.h"
#include "trimake/adjacency.h"
#include "zyl/geometry/polyline3d.h"

namespace {

using namespace zyl::geometry::internal;
using faults::FailAllocation;
using faults::LiveBlocks;
using zyl::geometry::COORDINATE_X;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

// Calls attempt(k, all) so that its k-th allocation fails, and all later ones too if `all` is set,
// for k = 1, 2, ... until it reports that nothing failed. Returns the number of allocations.
long ForEveryAllocation(const std::function<bool(long, bool)>& attempt) {
  long count = 0;
  for (const bool all : {false, true}) {
    for (count = 0; attempt(count + 1, all);) {
      ++count;
    }
  }
  return count;
}

Polyline3D OnTheGround(const rings::Ring2& ring, double size) {
  Polyline3D polyline;
  for (const rings::Point2& p : ring) {
    polyline.Add(size * p[0], size * p[1], 0);
  }
  polyline.SetClosed(true);
  return polyline;
}

// Asks for the centre, which is inside. Only one failure may pass unnoticed: that to shrink the
// triangle list to its size. The engine reports its own on standard error.
void ExpectFalseOnEveryFailure(const Polyline3D& polyline) {
  const Point3D centre(0, 0, 0);
  ASSERT_TRUE(polyline.IsPointInside(centre));
  testing::internal::CaptureStderr();
  int unnoticed = 0;
  const long allocations = ForEveryAllocation([&](long k, bool all) {
    const long before = LiveBlocks();
    bool inside = false;
    bool hasFailed = false;
    {
      const FailAllocation failure(k, all);
      inside = polyline.IsPointInside(centre);
      hasFailed = failure.HasFailed();
    }
    EXPECT_EQ(LiveBlocks(), before) << "allocation " << k;
    EXPECT_TRUE(inside || hasFailed) << "allocation " << k;
    unnoticed += inside && hasFailed ? 1 : 0;
    EXPECT_TRUE(polyline.IsPointInside(centre)) << "after allocation " << k;
    return hasFailed;
  });
  testing::internal::GetCapturedStderr();
  EXPECT_GT(allocations, 10);
  EXPECT_LE(unnoticed, 1);
}

TEST(AllocationFailure, IsPointInsideIsFalseAndLeaksNothing) {
  std::mt19937_64 random(5);
  ExpectFalseOnEveryFailure(OnTheGround(rings::Convex(4, random), 10));
  ExpectFalseOnEveryFailure(OnTheGround(rings::Concave(1500, random), 10));
}

// Boundaries that cross need vertices, lists and hunks of their own. A star of odd density covers
// its centre an odd number of times.
TEST(AllocationFailure, IsPointInsideIsFalseWhereBoundariesCross) {
  std::mt19937_64 random(5);
  ExpectFalseOnEveryFailure(OnTheGround(rings::Star(47, random), 10));
}

TEST(AllocationFailure, ChangesToAPolylineHappenWhollyOrNotAtAll) {
  Polyline3D source(std::vector<Point3D>(100, Point3D(1, 2, 3)));
  source.SetName(std::string(100, 'n'));
  Polyline3D original(std::vector<Point3D>{{1, 2, 3}, {4, 5, 6}});
  original.SetName(std::string(50, 'o'));
  std::vector<double> values = {1, 2};
  const std::function<void(Polyline3D&)> changes[] = {
      [&](Polyline3D& p) { p = source; },
      [&](Polyline3D& p) { p.Add(Point3D(7, 8, 9)); },
      [&](Polyline3D& p) { p.Add(p[0].x, p[0].y, p[0].z); },
      [&](Polyline3D& p) { p.Resize(1000); },
      [&](Polyline3D& p) {
        p.SetName(source.GetPointVector().empty() ? "" : std::string(99, 'x'));
      },
      [&](Polyline3D& p) { p.GetAsArray(COORDINATE_X, values); }};
  for (const auto& change : changes) {
    const long allocations = ForEveryAllocation([&](long k, bool all) {
      Polyline3D target = original;
      values = {1, 2};
      values.shrink_to_fit();
      target.GetPointVector().shrink_to_fit();
      bool hasFailed = false;
      try {
        const FailAllocation failure(k, all);
        change(target);
      } catch (const std::bad_alloc&) {
        hasFailed = true;
        EXPECT_EQ(target, original);
        EXPECT_EQ(values, (std::vector<double>{1, 2}));
      }
      return hasFailed;
    });
    EXPECT_GT(allocations, 0);
  }
}

TEST(AllocationFailure, APolygonSetKeepsWhatItHas) {
  EXPECT_EQ(ForEveryAllocation([](long k, bool all) {
              const FailAllocation failure(k, all);
              const std::unique_ptr<PolygonSet, PolygonSetRelease> set(PolygonSet_Create(3));
              EXPECT_EQ(set == nullptr, failure.HasFailed());
              return failure.HasFailed();
            }),
            2);

  const std::unique_ptr<PolygonSet, PolygonSetRelease> set(PolygonSet_Create(1));
  PolygonSet_AddPoint(set.get(), 1, 2, 3, 4);
  {
    const FailAllocation failure(1, true);
    EXPECT_EQ(PolygonSet_AddPoint(set.get(), 1, 5, 6, 7), 1);
    PolygonSet_Group(set.get());
    PolygonSet_Triangulate(set.get());
  }
  EXPECT_EQ(set->pointCount, 1);
  EXPECT_EQ(set->points[0].z, 4);
  EXPECT_EQ(set->polygonCount, 0);
  EXPECT_EQ(set->polygonStart, nullptr);
  EXPECT_EQ(PolygonSet_AddPoint(set.get(), 1, 5, 6, 7), 0);
}

TEST(AllocationFailure, AdjacencyLeavesTheNeighboursAlone) {
  const int triangle[3] = {1, 3, 2};
  int neighbours[3] = {7, 8, 9};
  const FailAllocation failure(1, true);
  EXPECT_EQ(tri_Build_Adjacency(1, triangle, neighbours), 0);
  EXPECT_EQ(neighbours[0] + neighbours[1] + neighbours[2], 24);
}

}  // namespace
