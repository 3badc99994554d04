// Relations between boxes, against the sets of points that the boxes are.

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

#include "zyl/geometry/extent.h"
#include "zyl/geometry/extent2d.h"

namespace {

using namespace zyl::geometry;

template <class Corner>
constexpr int kAxes = sizeof(Corner) / sizeof(double);

double Component(const Coord3D& p, int axis) { return p[axis]; }
double Component(const Coord2D& p, int axis) { return axis == 0 ? p.x : p.y; }

// Every corner whose coordinates are taken from `values`.
template <class Corner>
std::vector<Corner> Lattice(const std::vector<double>& values) {
  std::vector<Corner> lattice;
  for (const double x : values) {
    for (const double y : values) {
      if constexpr (kAxes<Corner> == 2) {
        lattice.emplace_back(x, y);
      } else {
        for (const double z : values) {
          lattice.emplace_back(x, y, z);
        }
      }
    }
  }
  return lattice;
}

// Every box of positive size between whole numbers from 0 to 2.
template <class Box>
std::vector<Box> SolidBoxes() {
  using Corner = decltype(Box::min);
  std::vector<Box> boxes;
  const std::vector<Corner> corners = Lattice<Corner>({0, 1, 2});
  for (const Corner& low : corners) {
    for (const Corner& high : corners) {
      bool solid = true;
      for (int axis = 0; axis < kAxes<Corner>; ++axis) {
        solid &= Component(low, axis) < Component(high, axis);
      }
      if (solid) {
        boxes.emplace_back(low, high);
      }
    }
  }
  return boxes;
}

template <class Box>
bool IsZero(const Box& box) {
  bool zero = true;
  for (int axis = 0; axis < kAxes<decltype(Box::min)>; ++axis) {
    zero &= Component(box.min, axis) == 0 && Component(box.max, axis) == 0;
  }
  return zero;
}

template <class Box>
class BoxRelations : public testing::Test {};
using BoxTypes = testing::Types<Extent, Extent2D>;
TYPED_TEST_SUITE(BoxRelations, BoxTypes, );

// Boxes between whole numbers differ in points at halves already. The shrunk ones have lost those
// of their boundary and no others.
TYPED_TEST(BoxRelations, AreThoseOfThePointsInTheBoxes) {
  using Corner = decltype(TypeParam::min);
  const std::vector<Corner> points = Lattice<Corner>({0, 0.5, 1, 1.5, 2});
  const std::vector<TypeParam> boxes = SolidBoxes<TypeParam>();
  ASSERT_EQ(boxes.size(), kAxes<Corner> == 3 ? 27 : 9);
  for (const TypeParam& a : boxes) {
    for (const TypeParam& b : boxes) {
      TypeParam shrunkA = a;
      TypeParam shrunkB = b;
      shrunkA.Expand(-0.25);
      shrunkB.Expand(-0.25);
      TypeParam common = a;  // which the result may replace
      const bool overlap = common.GetIntersection(b, common);
      ASSERT_TRUE(overlap || IsZero(common));
      bool touch = false, interiorsMeet = false, covered = true, strictlyInside = true;
      for (const Corner& p : points) {
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

TYPED_TEST(BoxRelations, AnInvertedBoxContainsNothingAndNaNIsNoLimit) {
  using Corner = decltype(TypeParam::min);
  const std::vector<Corner> lattice = Lattice<Corner>({0, 1});
  const TypeParam upright(lattice.front(), lattice.back());
  TypeParam inverted = upright;
  std::swap(inverted.min.x, inverted.max.x);
  for (const Corner& p : Lattice<Corner>({0, 0.5, 1})) {
    EXPECT_FALSE(inverted.IsInside(p));
  }
  TypeParam unknown = upright;
  unknown.min.y = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(upright.Hit(unknown) && upright.IsOverlapping(unknown));
  EXPECT_FALSE(upright.IsCoveredBy(unknown) || upright.IsInside(unknown));
}

TYPED_TEST(BoxRelations, GrowingTakesPartInEveryAxisAndIgnoresNaN) {
  using Corner = decltype(TypeParam::min);
  TypeParam box(Lattice<Corner>({5}).front());
  box.AddPoint(Lattice<Corner>({7}).front());
  box.AddPoint(Lattice<Corner>({-2}).front());
  box.AddPoint(Lattice<Corner>({std::numeric_limits<double>::quiet_NaN()}).front());
  for (int axis = 0; axis < kAxes<Corner>; ++axis) {
    EXPECT_EQ(Component(box.Sides(), axis), 9);
    EXPECT_EQ(Component(box.Centroid(), axis), 2.5);
  }
  box.SetEmpty();
  box.AddPoint(Lattice<Corner>({5}).front());
  EXPECT_TRUE(box.IsInside(Lattice<Corner>({0}).front()));
}

}  // namespace
