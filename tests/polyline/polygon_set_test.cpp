#include "polyline/polygon_set.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <vector>

namespace {

using namespace zyl::geometry::internal;

using Set = std::unique_ptr<PolygonSet, PolygonSetRelease>;

// A square of 1 under a triangle at (x, y), clockwise and with its first point repeated.
void AddHouse(PolygonSet& set, int id, double x, double y) {
  const double corners[5][2] = {{0, 0}, {0, 1}, {1, 2}, {1, 0}, {0, 0}};
  for (const double(&corner)[2] : corners) {
    ASSERT_EQ(PolygonSet_AddPoint(&set, id, x + corner[0], y + corner[1], 0), 0);
  }
}

// House k stands at x = 10k.
Set HousesWithIds(const std::vector<int>& ids) {
  Set set(PolygonSet_Create(1));
  for (const int id : ids) {
    AddHouse(*set, id, 2 * set->pointCount, 0);
  }
  return set;
}

TEST(PolygonSet, GrowsBeyondItsCapacity) {
  EXPECT_EQ(Set(PolygonSet_Create(0))->capacity, 500);
  EXPECT_EQ(Set(PolygonSet_CreateFor(7))->capacity, 70);
  const Set set(PolygonSet_Create(1));
  for (int i = 0; i < 502; ++i) {
    ASSERT_EQ(PolygonSet_AddPoint(set.get(), 3, i, 2 * i, 3 * i), 0);
  }
  EXPECT_EQ(set->pointCount, 502);
  EXPECT_EQ(set->capacity, 1001);
  EXPECT_EQ(set->points[501].y, 1002);
  EXPECT_EQ(set->points[501].polygonIndex, -1);
}

TEST(PolygonSet, GroupsRunsOfEqualIds) {
  const Set set = HousesWithIds({7, 8, 9});
  PolygonSet_Group(set.get());
  EXPECT_EQ(set->polygonCount, 3);
  EXPECT_EQ(set->firstPolygonId, 7);
  EXPECT_EQ(set->polygonStart[2], 10);
  EXPECT_EQ(set->polygonAux[2], -1);
  EXPECT_EQ(set->points[9].polygonIndex, 1);
  AddHouse(*set, 10, 50, 0);
  EXPECT_EQ(set->polygonStart, nullptr);
  EXPECT_EQ(set->polygonCount, 0);
}

TEST(PolygonSet, FindsPolygonsWhetherOrNotTheirIdsCountUp) {
  const auto expectFound = [](const Set& set, int id, int first, int polygon) {
    int g = 77;
    EXPECT_EQ(PolygonSet_FindPolygon(set.get(), id, &g), first) << id;
    EXPECT_EQ(g, polygon) << id;
  };
  for (const bool grouped : {false, true}) {
    for (const std::vector<int>& ids :
         {std::vector<int>{7, 8, 9}, {1, 3}, {-2, -1, 0}, {INT_MAX, INT_MIN}, {4, 5, 4}, {}}) {
      const Set set = HousesWithIds(ids);
      if (grouped) {
        PolygonSet_Group(set.get());
      }
      int k = 0;
      for (const int id : ids) {
        const int first = id == ids[0] ? 0 : k;
        expectFound(set, id, 5 * first, grouped ? first : -1);
        ++k;
      }
      for (const int absent : {2, 6, 10, INT_MIN + 1, INT_MAX - 1}) {
        expectFound(set, absent, -1, -1);
      }
    }
  }
}

TEST(PolygonSet, AnswersForEachPolygon) {
  const Set set = HousesWithIds({1, 3});
  PolygonSet_AddPoint(set.get(), 4, 0, 0, 0);  // a point is no polygon
  const auto inside = [&set](int id, double x) {
    return PolygonSet_IsPointInside(set.get(), id, x, x == 0 ? 0 : 0.5, 0);
  };
  EXPECT_EQ(inside(1, 0.5), 0);  // not triangulated yet
  for (int again = 0; again < 2; ++again) {
    PolygonSet_Triangulate(set.get());
    EXPECT_EQ(set->triangulationCount, 3);
    EXPECT_TRUE(inside(1, 0.5) == 1 && inside(3, 10.5) == 1 && inside(3, 10) == 1);
    EXPECT_TRUE(inside(1, 10.5) == 0 && inside(2, 0.5) == 0 && inside(4, 0) == 0);
  }
  PolygonSet_AddPoint(set.get(), 5, 0, 0, 0);  // discards the grouping, and with it the answers
  EXPECT_EQ(inside(1, 0.5), 0);
}

TEST(PolygonSet, AreaIsPositiveClockwise) {
  const Set set = HousesWithIds({1});
  // The same house the other way round, far up: y of the first point cancels.
  AddHouse(*set, 2, 0, 1e6);
  std::swap(set->points[6], set->points[8]);
  for (const int id : {1, 2, 3}) {
    EXPECT_EQ(PolygonSet_SignedArea(set.get(), id), id == 1 ? 1.5 : id == 2 ? -1.5 : 0);
    EXPECT_EQ(PolygonSet_IsClockwise(set.get(), id), id == 1);
  }
}

}  // namespace
