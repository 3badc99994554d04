#include "zyl/geometry/extent2d.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "zyl/geometry/extent.h"

namespace {

using namespace zyl::geometry;

void ExpectBox(const Extent2D& box, double minX, double minY, double maxX, double maxY) {
  EXPECT_TRUE(box.min.x == minX && box.min.y == minY && box.max.x == maxX && box.max.y == maxY)
      << box.min.x << ' ' << box.min.y << ' ' << box.max.x << ' ' << box.max.y;
}

TEST(Extent2D, ConvertsAndIsAssignedFromOtherBoxes) {
  const Extent solid(1, 2, 3, 4, 5, 6);
  const Bounds2D bounds{{1, 2}, {4, 5}};
  const Extent_type_s record{1, 2, 3, 99, 4, 5, 6};
  ExpectBox(Extent2D(solid), 1, 2, 4, 5);
  ExpectBox(Extent2D(bounds), 1, 2, 4, 5);
  ExpectBox(Extent2D(record), 1, 2, 4, 5);
  ExpectBox(Extent2D(Coord2D(7, 8)), 7, 8, 7, 8);
  Extent2D box;
  EXPECT_EQ(&(box = solid), &box);
  ExpectBox(box, 1, 2, 4, 5);
  box.SetEmpty();
  ExpectBox(box = record, 1, 2, 4, 5);
  box.SetEmpty();
  ExpectBox(box = bounds, 1, 2, 4, 5);
}

TEST(Extent2D, IsValidIfBothSidesAreLongEnough) {
  EXPECT_TRUE(Extent2D(0, 0, 1, 1).IsValid());
  EXPECT_TRUE(Extent2D(1, 0, 0, 1).IsValid());      // inverted
  EXPECT_FALSE(Extent2D(0, 0, 1e-5, 1).IsValid());  // has to be longer
}

TEST(Extent2D, MeasuresItselfAndListsItsCorners) {
  const Extent2D inverted(2, 0, 0, 1);
  EXPECT_EQ(inverted.GetArea(false), -2);
  EXPECT_EQ(inverted.GetArea(true), 2);
  const std::vector<Coord2D> corners = Extent2D(1, 2, 3, 5).GetCornerPoints();
  const double expected[4][2] = {{1, 2}, {3, 2}, {3, 5}, {1, 5}};
  ASSERT_EQ(corners.size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_TRUE(corners[i].x == expected[i][0] && corners[i].y == expected[i][1]) << i;
  }
}

}  // namespace
