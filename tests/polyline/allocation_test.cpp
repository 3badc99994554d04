#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "polyline/polygon_set.h"
#include "support/failing_allocator.h"
#include "support/polylines.h"
#include "trimake/adjacency.h"

namespace {

using namespace rings;
using namespace zyl::geometry::internal;
using faults::FailAllocation;
using faults::ForEveryAllocation;

// Asks what is true. The engine reports its failures on standard error.
void ExpectFalseOnEveryFailure(const std::function<bool()>& ask) {
  ASSERT_TRUE(ask());
  testing::internal::CaptureStderr();
  const long allocations = ForEveryAllocation([&](long k, bool all) {
    FailAllocation failure(k, all);
    const bool answer = ask();
    const bool hasFailed = failure.End();
    EXPECT_EQ(answer, !hasFailed) << "allocation " << k;
    EXPECT_TRUE(ask()) << "after allocation " << k;
    return hasFailed;
  });
  testing::internal::GetCapturedStderr();
  EXPECT_GT(allocations, 1);
}

// Boundaries that cross need vertices, lists and hunks of their own. A star of odd density covers
// its centre an odd number of times.
TEST(AllocationFailure, QueriesAreFalseAndLeakNothing) {
  std::mt19937_64 random(5);
  for (const Ring2& ring : {Convex(4, random), Concave(1500, random), Star(47, random)}) {
    Polyline3D polyline = OnTheGround(ring, 10);
    ExpectFalseOnEveryFailure([&] { return polyline.IsPointInside(0, 0, 0); });
    polyline.Reverse();
    ExpectFalseOnEveryFailure([&] { return polyline.IsClockwise(); });
  }
}

// The C library keeps up to twice the largest block that it has seen for the next call, and returns
// more than that to the system after every one.
TEST(Allocation, AQueryTakesLessThanTwiceItsLargestBlock) {
  std::mt19937_64 random(6);
  const Polyline3D polyline = OnTheGround(Concave(20000, random), 10);
  const long before = faults::LiveBytes();
  faults::ResetPeak();
  ASSERT_TRUE(polyline.IsPointInside(0, 0, 0));
  const long largest = 10 * 20000 * static_cast<long>(sizeof(PolygonSetPoint));
  EXPECT_GT(faults::PeakBytes() - before, largest);
  EXPECT_LT(faults::PeakBytes() - before, 2 * largest);
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
      [&](Polyline3D& p) { p.SetName(std::string(99, 'x')); },
      [&](Polyline3D& p) { p.GetAsArray(zyl::geometry::COORDINATE_X, values); }};
  for (const auto& change : changes) {
    const long allocations = ForEveryAllocation([&](long k, bool all) {
      Polyline3D target = original;
      values = {1, 2};
      values.shrink_to_fit();
      target.GetPointVector().shrink_to_fit();
      if (!faults::RunsOutOfMemory(k, all, [&] { change(target); })) {
        return false;
      }
      EXPECT_EQ(target, original);
      EXPECT_EQ(values, (std::vector<double>{1, 2}));
      change(target);
      Polyline3D changed = original;
      change(changed);
      EXPECT_EQ(target, changed);
      return true;
    });
    EXPECT_GT(allocations, 0);
  }
}

TEST(AllocationFailure, APolygonSetKeepsWhatItHas) {
  EXPECT_EQ(ForEveryAllocation([](long k, bool all) {
              FailAllocation failure(k, all);
              const std::unique_ptr<PolygonSet, PolygonSetRelease> set(PolygonSet_Create(3));
              EXPECT_EQ(set == nullptr, failure.End());
              return set == nullptr;
            }),
            2);

  const std::unique_ptr<PolygonSet, PolygonSetRelease> set(PolygonSet_Create(1));
  PolygonSet_AddPoint(set.get(), 1, 2, 3, 4);
  FailAllocation failure(1, true);
  EXPECT_EQ(PolygonSet_AddPoint(set.get(), 1, 5, 6, 7), 1);
  PolygonSet_Group(set.get());
  PolygonSet_Triangulate(set.get());
  failure.End();
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
