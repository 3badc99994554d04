// Boxes in space and in the plane: what they have in common against the sets of points that they
// are, and then what each has of its own.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/seeded.h"
#include "support/wide_distance.h"
#include "zyl/geometry/extent.h"
#include "zyl/geometry/extent2d.h"
#include "zyl/geometry/polyline3d.h"
#include "zyl/geometry/segment.h"

namespace {

using namespace zyl::geometry;

template <class Box>
using CornerOf = decltype(Box::min);

// Cases for both are written in space; in the plane they are seen from above.
template <class Box>
CornerOf<Box> At(double x, double y, double z) {
  if constexpr (std::is_same_v<Box, Extent2D>) {
    return {x, y};
  } else {
    return {x, y, z};
  }
}

// Every corner whose coordinates are taken from `values`.
template <class Box>
std::vector<CornerOf<Box>> Lattice(const std::vector<double>& values) {
  std::vector<CornerOf<Box>> lattice;
  for (const double x : values) {
    for (const double y : values) {
      for (const double z : values) {
        lattice.push_back(At<Box>(x, y, z));
      }
    }
  }
  return lattice;
}

// Every box of positive size between whole numbers from 0 to 2.
template <class Box>
std::vector<Box> SolidBoxes() {
  constexpr double kLow[] = {0, 0, 1}, kHigh[] = {1, 2, 2};
  std::vector<Box> boxes;
  for (int i = 0; i < 27; ++i) {
    const int x = i % 3, y = i / 3 % 3, z = i / 9;
    boxes.emplace_back(At<Box>(kLow[x], kLow[y], kLow[z]), At<Box>(kHigh[x], kHigh[y], kHigh[z]));
  }
  return boxes;
}

// To the bit, also of two corners.
template <class T>
bool Same(const T& a, const T& b) {
  return std::memcmp(&a, &b, sizeof(T)) == 0;
}

template <class Box>
class Boxes : public testing::Test {};
using BoxTypes = testing::Types<Extent, Extent2D>;
TYPED_TEST_SUITE(Boxes, BoxTypes, );

// Boxes between whole numbers differ in points at halves already. The shrunk ones have lost those
// of their boundary and no others.
TYPED_TEST(Boxes, RelateAsTheirPointsDo) {
  const auto points = Lattice<TypeParam>({0, 0.5, 1, 1.5, 2});
  for (const TypeParam& a : SolidBoxes<TypeParam>()) {
    for (const TypeParam& b : SolidBoxes<TypeParam>()) {
      TypeParam shrunkA = a, shrunkB = b;
      shrunkA.Expand(-0.25);
      shrunkB.Expand(-0.25);
      TypeParam common = a;  // which the result may replace
      const bool overlap = common.GetIntersection(b, common);
      ASSERT_TRUE(overlap || Same(common, TypeParam(At<TypeParam>(0, 0, 0))));
      bool touch = false, interiorsMeet = false, covered = true, strictlyInside = true;
      for (const auto& p : points) {
        const bool inA = a.IsInside(p);
        touch |= inA && b.IsInside(p);
        interiorsMeet |= shrunkA.IsInside(p) && shrunkB.IsInside(p);
        covered &= !inA || b.IsInside(p);
        strictlyInside &= !inA || shrunkB.IsInside(p);
        ASSERT_TRUE(!overlap || common.IsInside(p) == (inA && b.IsInside(p)));
      }
      ASSERT_EQ(a.Hit(b), touch);
      ASSERT_EQ(a.IsOverlapping(b), interiorsMeet);
      ASSERT_EQ(overlap, interiorsMeet);
      ASSERT_EQ(a.IsCoveredBy(b), covered);
      ASSERT_EQ(a.IsInside(b), strictlyInside);
    }
  }
}

TYPED_TEST(Boxes, ContainNothingIfInvertedAndAreNotLimitedByNaN) {
  const TypeParam upright(At<TypeParam>(0, 0, 0), At<TypeParam>(1, 1, 1));
  TypeParam inverted = upright, unknown = upright;
  std::swap(inverted.min.x, inverted.max.x);
  for (const auto& p : Lattice<TypeParam>({0, 0.5, 1})) {
    EXPECT_FALSE(inverted.IsInside(p));
  }
  unknown.min.y = kNaN;
  EXPECT_TRUE(upright.Hit(unknown) && upright.IsOverlapping(unknown));
  EXPECT_FALSE(upright.IsCoveredBy(unknown) || upright.IsInside(unknown));
}

TYPED_TEST(Boxes, AreMadeOfCornersAndGrowByPoints) {
  using Bounds = std::conditional_t<std::is_same_v<TypeParam, Extent>, Bounds3D, Bounds2D>;
  const auto low = At<TypeParam>(1, 2, 3), high = At<TypeParam>(4, 6, 8);
  const TypeParam box(low, high);
  EXPECT_TRUE(Same(box.min, low) && Same(box.max, high));
  EXPECT_TRUE(Same(TypeParam(Bounds{low, high}), box));
  EXPECT_TRUE(Same(TypeParam(Extent_type_s{1, 2, 3, 99, 4, 6, 8}), box));
  EXPECT_TRUE(Same(TypeParam(Extent(1, 2, 3, 4, 6, 8)), box));
  EXPECT_TRUE(Same(box.Sides(), At<TypeParam>(3, 4, 5)));
  EXPECT_TRUE(Same(box.Centroid(), At<TypeParam>(2.5, 4, 5.5)));

  TypeParam grown(At<TypeParam>(4, 2, 5));
  grown.AddPoint(At<TypeParam>(kNaN, kNaN, kNaN));
  grown.AddPoint(At<TypeParam>(1, 6, 3));
  grown.AddPoint(At<TypeParam>(2, 5, 8));
  EXPECT_TRUE(Same(grown, box));
  grown.SetEmpty();
  grown.AddPoint(high);
  EXPECT_TRUE(Same(grown, TypeParam(At<TypeParam>(0, 0, 0), high)));
}

TEST(Extent, BoundsPoints) {
  const Coord3D a(1, 8, 3), b(4, 2, 9), c(7, 5, 6);
  EXPECT_EQ(Extent(a, b, c), Extent(1, 2, 3, 7, 8, 9));
  EXPECT_EQ(Extent(c, a, b), Extent(1, 2, 3, 7, 8, 9));
  EXPECT_EQ(Extent(c, a), Extent(7, 5, 6, 1, 8, 3)) << "two are taken as they are";
  EXPECT_EQ(FindPointsExtent({}), Extent());
  EXPECT_EQ(FindPointsExtent({{5, -6, 7}}), Extent(5, -6, 7, 5, -6, 7));
  EXPECT_EQ(FindPointsExtent({{5, 6, 7}, {4, 9, kNaN}, {kNaN, 5, 8}}), Extent(4, 5, 7, 5, 9, 8));
}

TEST(Extent, IsValidIfOneSideIsLongEnough) {
  for (int axis = 0; axis < 3; ++axis) {
    Coord3D side;
    side[axis] = 1e-5;
    EXPECT_TRUE(Extent(Coord3D(), side).IsValid() && Extent(side, Coord3D()).IsValid());
  }
  const double shorter = std::nextafter(1e-5, 0);
  EXPECT_FALSE(Extent(0, 0, 0, shorter, shorter, shorter).IsValid());
}

TEST(Extent, MeasuresAndResizesItself) {
  Extent box(1, 2, 3, 3, 6, 9);
  EXPECT_EQ(box.GetVolume(), 48);
  EXPECT_EQ(Extent(3, 2, 3, 1, 6, 9).GetVolume(), -48);
  box.ExpandKeepingAspect(0.5);
  EXPECT_EQ(box, Extent(0.5, 1, 1.5, 3.5, 7, 10.5));
  box.Union(Extent(2, 0, 2, 9, 1, kNaN));
  EXPECT_EQ(box, Extent(0.5, 0, 1.5, 9, 7, 10.5));
  EXPECT_NE(box, Extent(0.5, 0, 1.5, 9, 7, std::nextafter(10.5, 11.0)));
}

TEST(Extent, DistanceToAPointIsThatToTheNearestFaceEdgeOrCorner) {
  const Extent box(0, 0, 0, 4, 6, 8);
  EXPECT_EQ(box.Distance(Coord3D(2, 2, 2)), 0);
  EXPECT_EQ(box.Distance(Coord3D(2, 2, -7)), 7);
  EXPECT_EQ(box.Distance(Coord3D(-3, -4, 2)), 5);
  EXPECT_EQ(box.Distance(Coord3D(6, 9, 14)), 7);
  EXPECT_TRUE(std::isnan(box.Distance(Coord3D(kNaN, 0, 0))));
}

using SegmentsByABox = Seeded<31>;

// Faces do not count: a segment that pierces two of them may be far from every edge.
TEST_F(SegmentsByABox, AreAsFarAsTheirEndsOrTheNearestEdge) {
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

TEST(Extent, ListsItsCornersAndRingsRoundTheBottomAndThenRoundTheTop) {
  const Extent box(1, 2, 3, 4, 5, 6);
  const std::vector<Coord3D> corners = {{1, 2, 3}, {4, 2, 3}, {4, 5, 3}, {1, 5, 3},
                                        {1, 2, 6}, {4, 2, 6}, {4, 5, 6}, {1, 5, 6}};
  EXPECT_EQ(box.GetCornerPoints(), corners);
  Polyline3D top(std::vector<Point3D>{{9, 9, 9}}), bottom;
  Extent(box).GetTopBottomPolygons(top, bottom);
  EXPECT_EQ(bottom.PrintDebug(), "Closed 1:2:3, 4:2:3, 4:5:3, 1:5:3, ");
  EXPECT_EQ(top.PrintDebug(), "Closed 9:9:9, 1:2:6, 4:2:6, 4:5:6, 1:5:6, ");
}

TEST(Extent, SplitsIntoOctants) {
  const std::vector<Extent> expected = {{1, 2, 3, 2, 4, 6}, {1, 0, 3, 2, 2, 6}, {0, 0, 3, 1, 2, 6},
                                        {0, 2, 3, 1, 4, 6}, {1, 2, 0, 2, 4, 3}, {1, 0, 0, 2, 2, 3},
                                        {0, 0, 0, 1, 2, 3}, {0, 2, 0, 1, 4, 3}};
  EXPECT_EQ(Extent(0, 0, 0, 2, 4, 6).GetOctants(), expected);
}

TEST(Extent2D, IsAssignedFromOtherBoxes) {
  const Extent2D expected(1, 2, 4, 5);
  Extent2D fromBox, fromBounds, fromRecord;
  EXPECT_TRUE(Same(fromBox = Extent(1, 2, 3, 4, 5, 6), expected));
  EXPECT_TRUE(Same(fromBounds = Bounds2D{{1, 2}, {4, 5}}, expected));
  EXPECT_TRUE(Same(fromRecord = Extent_type_s{1, 2, 3, 99, 4, 5, 6}, expected));
}

TEST(Extent2D, IsValidIfBothSidesAreLongEnough) {
  const double longer = std::nextafter(1e-5, 1);
  EXPECT_TRUE(Extent2D(longer, 0, 0, longer).IsValid()) << "also if inverted";
  EXPECT_FALSE(Extent2D(0, 0, 1e-5, 1).IsValid() || Extent2D(0, 0, 1, 1e-5).IsValid());
}

TEST(Extent2D, MeasuresItselfAndListsItsCorners) {
  EXPECT_EQ(Extent2D(3, 2, 1, 5).GetArea(false), -6);
  EXPECT_EQ(Extent2D(3, 2, 1, 5).GetArea(true), 6);
  const std::vector<Coord2D> corners = Extent2D(1, 2, 3, 5).GetCornerPoints();
  const Coord2D expected[] = {{1, 2}, {3, 2}, {3, 5}, {1, 5}};
  EXPECT_TRUE(std::equal(corners.begin(), corners.end(), expected, expected + 4, Same<Coord2D>));
}

}  // namespace
