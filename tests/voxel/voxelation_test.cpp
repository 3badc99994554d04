#include "zyl/geometry/voxelation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <utility>
#include <vector>

#include "support/failing_allocator.h"
#include "support/generate.h"
#include "support/voxels.h"
#include "voxel/id_list.h"

namespace zyl::geometry {

// How this file reaches a private member: access is not checked where a template is instantiated
// explicitly.
using PrivateGetExtent = bool (Voxelation::*)(int, int, int, Extent&, bool);
PrivateGetExtent GetExtentMember();
template <PrivateGetExtent member>
struct Reveal {
  friend PrivateGetExtent GetExtentMember() { return member; }
};
template struct Reveal<&Voxelation::GetExtent>;

namespace {

using voxels::IDs;

Voxelation TenCubed() { return {Coord3D(0, 0, 0), Coord3D(10, 10, 10), 10, 10, 10}; }

IDs All(const Voxelation& grid) {
  IDs ids;
  grid.CollectIDsIn(ids, Extent(-1e9, -1e9, -1e9, 1e9, 1e9, 1e9));
  return ids;
}

TEST(Voxelation, LocatesAndClampsEveryCoordinate) {
  const std::pair<double, int> expected[] = {
      {9.999, 9},      {10, 9},        {3, 3},    {std::nextafter(3.0, 0.0), 2},
      {-5, 0},         {25, 9},        {0, 0},    {1e300, 9},
      {-1e300, 0},     {kInfinity, 9}, {-0.5, 0}, {3e9, 9},
      {-kInfinity, 0}, {kNaN, 0}};
  for (const auto& [coordinate, index] : expected) {
    for (int axis = 0; axis < 3; ++axis) {
      Coord3D p, indices;
      p[axis] = coordinate;
      indices[axis] = index;
      Voxelation::Location loc;
      ASSERT_TRUE(TenCubed().Locate(p, loc));
      EXPECT_EQ(Coord3D(loc.i, loc.j, loc.k), indices) << coordinate;
    }
  }
}

TEST(Voxelation, AFlatInvertedOrUnknownAxisHasOneIndex) {
  for (const double top : {5.0, 3.0, kNaN}) {
    const Voxelation grid(Coord3D(0, 0, 5), Coord3D(10, 10, top), 10, 10, 10);
    for (const double z : {-100.0, 4.0, 5.0, 100.0}) {
      Voxelation::Location loc;
      ASSERT_TRUE(grid.Locate(7.5, 2.5, z, loc));
      EXPECT_TRUE(loc.i == 7 && loc.j == 2 && loc.k == 0);
    }
  }
}

TEST(Voxelation, WithoutAGridEveryCallReturnsFalseAndDoesNothing) {
  Voxelation none(Coord3D(1, 2, 3), Coord3D(1, 2, 3), 4, 4, 4);
  Voxelation::Location loc{1, 2, 3};
  Extent extent(1, 2, 3, 4, 5, 6);
  int dims[3] = {7, 8, 9};
  IDs ids = {1};
  Coord3D triangle[3];
  EXPECT_FALSE(none.Locate(0, 0, 0, loc) || none.GetDimensions(dims) ||
               none.GetVoxelExtent(loc, extent) || none.AddPoint(Coord3D(), 2) ||
               none.AddExtent(extent, 2) || none.AddTriangle(triangle, 2) || none.Clear() ||
               none.CollectIDsAt(ids, 0, 0, 0) || none.CollectIDsAt(ids, loc) ||
               none.CollectIDsNear(ids, Coord3D(), 1, 1, 1) || none.CollectIDsIn(ids, extent));
  EXPECT_TRUE(loc.k == 3 && extent == Extent(1, 2, 3, 4, 5, 6) && dims[0] == 7 && ids == IDs{1});
}

TEST(Voxelation, AFailedInitialiseKeepsTheGrid) {
  Voxelation grid = TenCubed();
  grid.AddPoint(Coord3D(5, 5, 5), 1);
  const Coord3D zero, one(1, 1, 1);
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_FALSE(grid.Initialise(zero, one, 4, 4, 0) || grid.Initialise(zero, one, -4, 4, 4) ||
               grid.Initialise(zero, one, 4, 0, 4) || grid.Initialise(one, one, 4, 4, 4));
  EXPECT_THROW(grid.Initialise(zero, one, kMost, kMost, kMost), std::bad_alloc);
  EXPECT_THROW(grid.Initialise(zero, one, 1 << 21, 1 << 21, 1 << 22), std::bad_alloc);  // 2^64
  EXPECT_EQ(All(grid), IDs{1});
  EXPECT_TRUE(grid.Initialise(Bounds3D{zero, one}, 4, 5, 6));
  int dims[3];
  ASSERT_TRUE(grid.GetDimensions(dims));
  EXPECT_TRUE(dims[0] == 4 && dims[1] == 5 && dims[2] == 6);
  EXPECT_TRUE(All(grid).empty());
}

TEST(Voxelation, KnowsTheBoxOfEveryVoxelOfItsLattice) {
  Voxelation grid(Coord3D(100, 0, -8), Coord3D(110, 5, 8), 10, 10, 4);
  Extent box;
  ASSERT_TRUE(grid.GetVoxelExtent({3, 1, 2}, box));
  EXPECT_EQ(box, Extent(103, 0.5, 0, 104, 1, 4));
  Voxelation::Location loc;
  ASSERT_TRUE(grid.Locate(box.Centroid(), loc));
  EXPECT_TRUE(loc.i == 3 && loc.j == 1 && loc.k == 2);
  ASSERT_TRUE(grid.GetVoxelExtent({-1, 10, std::numeric_limits<int>::max()}, box));
  EXPECT_EQ(box, Extent(99, 5, 4.0 * 2147483647 - 8, 100, 5.5, 4.0 * 2147483648 - 8));
  ASSERT_TRUE((grid.*GetExtentMember())(3, 1, 2, box, true));
  EXPECT_NEAR(box.min.Distance(Coord3D(102.995, 0.4975, -0.02)), 0, 1e-13);
  EXPECT_NEAR(box.max.Distance(Coord3D(104.005, 1.0025, 4.02)), 0, 1e-13);
}

TEST(Voxelation, CopiesAreDeepAndMovesLeaveNothing) {
  Voxelation original = TenCubed();
  original.AddPoint(Coord3D(5, 5, 5), 1);
  Voxelation copy = original;
  copy.AddPoint(Coord3D(5, 5, 5), 2);
  Voxelation assigned;
  assigned = original;
  assigned = *&assigned;
  original.Clear();
  EXPECT_TRUE(All(original).empty());
  EXPECT_EQ(All(copy), (IDs{1, 2}));
  EXPECT_EQ(All(assigned), IDs{1});
  assigned = std::move(copy);
  EXPECT_EQ(All(assigned), (IDs{1, 2}));
  const Voxelation moved(std::move(assigned));
  int dims[3];
  EXPECT_FALSE(copy.GetDimensions(dims) || assigned.GetDimensions(dims));
  EXPECT_EQ(All(moved), (IDs{1, 2}));
}

// The identifiers voxel by voxel.
std::vector<IDs> Contents(const Voxelation& grid) {
  int n[3];
  grid.GetDimensions(n);
  std::vector<IDs> contents;
  for (int v = 0; v < n[0] * n[1] * n[2]; ++v) {
    grid.CollectIDsAt(contents.emplace_back(), v % n[0], v / n[0] % n[1], v / n[0] / n[1]);
  }
  return contents;
}

// Every change, with each of its allocations failing: an object as it was, but for the voxels that
// an extent has reached, and the same change can be made after all.
TEST(Voxelation, RunningOutOfMemoryLosesAndLeaksNothing) {
  Voxelation source = TenCubed();
  for (int i = 0; i < 20; ++i) {
    source.AddPoint(Coord3D(i % 10, 5, 5), i);
  }
  const Coord3D one(1, 1, 1);
  Voxelation original(Coord3D(), one, 2, 2, 2);
  original.AddPoint(Coord3D(), 100);
  const std::pair<int, std::function<void(Voxelation&)>> changes[] = {
      {11, [&](Voxelation& v) { v = source; }},  // the grid and ten lists
      {1, [&](Voxelation& v) { v.Initialise(Coord3D(), one, 4, 4, 4); }},
      {1, [&](Voxelation& v) { v.AddPoint(one, 101); }},
      {7, [&](Voxelation& v) { v.AddExtent(Extent(Coord3D(), one), 102); }}};
  for (const auto& [expected, change] : changes) {
    const long allocations = faults::ForEveryAllocation([&, &make = change](long k, bool all) {
      Voxelation target(original);
      if (!faults::RunsOutOfMemory(k, all, [&] { make(target); })) {
        return false;
      }
      std::vector<IDs> left = Contents(target);
      std::for_each(left.begin(), left.end(), [](IDs& ids) { ids.erase(102); });
      EXPECT_EQ(left, Contents(original));
      make(target);
      Voxelation undisturbed(original);
      make(undisturbed);
      EXPECT_EQ(Contents(target), Contents(undisturbed));
      return true;
    });
    EXPECT_EQ(allocations, expected);
  }
}

TEST(IdList, GrowsWithDistinctIdentifiersOnly) {
  internal::IdList list;
  for (int64 i = 0; i < 100000; ++i) {
    list.Insert(i * 7919 % 1000);  // each of 1000 a hundred times
    ASSERT_LE(list.end() - list.begin(), 4 * std::min<int64>(i + 1, 1000));
  }
  list.Sort();
  ASSERT_EQ(list.end() - list.begin(), 1000);
  EXPECT_EQ(list.end()[-1], 999);
}

// Numbers of the first and the last voxel of a box, as the corners of another. Coordinates are
// whole or halves, so that they are found by rounding down.
Extent VoxelsOf(const Extent& box) {
  const auto index = [](double c) { return std::clamp(std::floor(c), 0.0, 7.0); };
  const auto indices = [&](const Coord3D& p) {
    return Coord3D(index(p.x), index(p.y), index(p.z));
  };
  return {indices(box.min), indices(box.max)};
}

// Three ways to add identifiers to the voxels of a region, and three to collect them.
TEST(Voxelation, AgreesWithAMapOfSets) {
  std::mt19937_64 random(30);
  const auto draw = [&random](int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
  };
  const auto point = [&draw](int low, int high) {
    return Coord3D(draw(low, high), draw(low, high), draw(low, high));
  };
  Voxelation grid(Coord3D(0, 0, 0), Coord3D(8, 8, 8), 8, 8, 8);
  voxels::Content content;
  constexpr int64 kExtremes[] = {std::numeric_limits<int64>::min(),
                                 std::numeric_limits<int64>::max(), 0, 1, -1};
  for (int step = 0; step < 6000; ++step) {
    SCOPED_TRACE(testing::Message() << "seed 30, step " << step);
    if (step % 500 == 0) {
      ASSERT_TRUE(grid.Clear());
      content.clear();
    }
    const int64 id = draw(0, 9) == 0 ? kExtremes[draw(0, 4)] : draw(-100, 400);
    const Coord3D a = point(-4, 20) * 0.5, half = point(-1, 4);
    Coord3D triangle[3] = {a, point(-4, 20) * 0.5, point(-4, 20) * 0.5};
    Voxelation::Location voxel{draw(-1, 8), draw(-1, 8), draw(-1, 8)};
    const Extent box(a, a + half);  // may be inverted
    IDs ids;
    if (draw(0, 1) == 0) {
      ids.insert(id);
    }
    IDs expected = ids;
    const std::pair<Extent, std::function<bool()>> operations[] = {
        {VoxelsOf(a), [&] { return grid.AddPoint(a, id); }},
        {VoxelsOf(box), [&] { return grid.AddExtent(box, id); }},
        {VoxelsOf(Extent(triangle[0], triangle[1], triangle[2])),
         [&] { return grid.AddTriangle(triangle, id); }},
        {VoxelsOf(box), [&] { return grid.CollectIDsIn(ids, box); }},
        {VoxelsOf(Extent(a - half, a + half)),
         [&] { return grid.CollectIDsNear(ids, a, half.x, half.y, half.z); }},
        {Coord3D(voxel.i, voxel.j, voxel.k), [&] { return grid.CollectIDsAt(ids, voxel); }}};
    const int number = draw(0, 5);
    const auto& [range, operation] = operations[number];
    const bool answer = operation();
    if (number < 3) {
      voxels::Add(content, range, id);
    } else {
      expected.merge(voxels::In(content, range));
    }
    ASSERT_EQ(ids, expected);
    ASSERT_EQ(answer, number < 3 || !expected.empty());
  }
}

}  // namespace
}  // namespace zyl::geometry
