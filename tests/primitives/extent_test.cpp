#include "zyl/geometry/extent.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "support/seeded.h"
#include "support/wide_distance.h"
#include "zyl/geometry/polyline3d.h"
#include "zyl/geometry/segment.h"

namespace {

using namespace zyl::geometry;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Extent, IsMadeOfOtherBoxesAndOfPoints) {
  EXPECT_EQ(Extent(Bounds3D{{1, 2, 3}, {4, 5, 6}}), Extent(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(Extent(Extent_type_s{1, 2, 3, 99, 4, 5, 6}), Extent(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(Extent(), Extent(0, 0, 0, 0, 0, 0));
  const Coord3D a(1, 8, 3), b(4, 2, 9), c(7, 5, 6);
  EXPECT_EQ(Extent(a, b, c), Extent(1, 2, 3, 7, 8, 9));
  EXPECT_EQ(Extent(c, a, b), Extent(1, 2, 3, 7, 8, 9));
  EXPECT_EQ(Extent(c, a), Extent(7, 5, 6, 1, 8, 3));  // two as they are
  EXPECT_TRUE(Extent(1, 2, 3, 4, 5, 6) != Extent(1, 2, 3, 4, 5, std::nextafter(6.0, 7.0)));
}

TEST(Extent, IsValidIfOneSideIsLongEnough) {
  EXPECT_TRUE(Extent(0, 0, 0, 0, 0, 1e-5).IsValid());
  EXPECT_TRUE(Extent(0, 1, 0, 0, 0, 0).IsValid());  // inverted
  EXPECT_FALSE(Extent(0, 0, 0, 1e-6, 1e-6, 1e-6).IsValid());
}

TEST(Extent, MeasuresAndResizesItself) {
  Extent box(1, 2, 3, 3, 6, 9);
  EXPECT_EQ(box.Sides(), Coord3D(2, 4, 6));
  EXPECT_EQ(box.Centroid(), Coord3D(2, 4, 6));
  EXPECT_EQ(box.GetVolume(), 48);
  EXPECT_EQ(Extent(3, 2, 3, 1, 6, 9).GetVolume(), -48);
  box.ExpandKeepingAspect(0.5);
  EXPECT_EQ(box, Extent(0.5, 1, 1.5, 3.5, 7, 10.5));
  box.Expand(-0.5);
  EXPECT_EQ(box, Extent(1, 1.5, 2, 3, 6.5, 10));
  box.Union(Extent(2, 0, 2, 9, 1, kNaN));
  EXPECT_EQ(box, Extent(1, 0, 2, 9, 6.5, 10));
}

TEST(Extent, DistanceToAPointIsThatToTheNearestFaceEdgeOrCorner) {
  const Extent box(0, 0, 0, 4, 6, 8);
  EXPECT_EQ(box.Distance(Coord3D(2, 2, 2)), 0);
  EXPECT_EQ(box.Distance(Coord3D(4, 6, 8)), 0);
  EXPECT_EQ(box.Distance(Coord3D(2, 2, -7)), 7);
  EXPECT_EQ(box.Distance(Coord3D(-3, -4, 2)), 5);
  EXPECT_EQ(box.Distance(Coord3D(6, 9, 14)), 7);
  EXPECT_TRUE(std::isnan(box.Distance(Coord3D(kNaN, 0, 0))));
}

using RandomSegments = Seeded<31>;

// Faces do not count: a segment that pierces two of them may be far from every edge.
TEST_F(RandomSegments, AreAsFarAsTheirEndsOrTheNearestEdge) {
  const Extent box(-4, -3, -2, 4, 3, 2);
  for (int i = 0; i < 500; ++i) {
    const Segment segment(Point(), Point());
    double expected = std::min(box.Distance(segment.start), box.Distance(segment.end));
    for (const Coord3D& a : box.GetCornerPoints()) {
      for (const Coord3D& b : box.GetCornerPoints()) {
        if ((a.x != b.x) + (a.y != b.y) + (a.z != b.z) == 1) {
          expected =
              std::min(expected, wide::Distance(wide::Segment(a, b), wide::Segment(segment)));
        }
      }
    }
    ASSERT_NEAR(box.Distance(segment), expected, 1e-8);
  }
  EXPECT_TRUE(std::isnan(box.Distance(Segment(Coord3D(kNaN, 0, 0), Coord3D(kNaN, 1, 1)))));
}

TEST(Extent, ListsItsCornersRoundTheBottomAndThenRoundTheTop) {
  const std::vector<Coord3D> corners = Extent(1, 2, 3, 4, 5, 6).GetCornerPoints();
  const std::vector<Coord3D> expected = {{1, 2, 3}, {4, 2, 3}, {4, 5, 3}, {1, 5, 3},
                                         {1, 2, 6}, {4, 2, 6}, {4, 5, 6}, {1, 5, 6}};
  EXPECT_EQ(corners, expected);
}

TEST(Extent, SplitsIntoOctants) {
  const std::vector<Extent> octants = Extent(0, 0, 0, 2, 4, 6).GetOctants();
  const std::vector<Extent> expected = {{1, 2, 3, 2, 4, 6}, {1, 0, 3, 2, 2, 6}, {0, 0, 3, 1, 2, 6},
                                        {0, 2, 3, 1, 4, 6}, {1, 2, 0, 2, 4, 3}, {1, 0, 0, 2, 2, 3},
                                        {0, 0, 0, 1, 2, 3}, {0, 2, 0, 1, 4, 3}};
  EXPECT_EQ(octants, expected);
}

TEST(Extent, AppendsItsTopAndBottomToPolylines) {
  Polyline3D top;
  Polyline3D bottom;
  top.Add(9, 9, 9);
  Extent(1, 2, 3, 4, 5, 6).GetTopBottomPolygons(top, bottom);
  EXPECT_EQ(bottom.PrintDebug(), "Closed 1:2:3, 4:2:3, 4:5:3, 1:5:3, ");
  EXPECT_EQ(top.PrintDebug(), "Closed 9:9:9, 1:2:6, 4:2:6, 4:5:6, 1:5:6, ");
}

TEST(FindPointsExtent, IsTheSmallestBoxRoundThePoints) {
  EXPECT_EQ(FindPointsExtent({}), Extent());
  EXPECT_EQ(FindPointsExtent({{5, -6, 7}}), Extent(5, -6, 7, 5, -6, 7));
  EXPECT_EQ(FindPointsExtent({{5, 6, 7}, {4, 9, kNaN}, {kNaN, 5, 8}}), Extent(4, 5, 7, 5, 9, 8));
}

}  // namespace
