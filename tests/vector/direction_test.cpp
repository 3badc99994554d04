#include "zyl/geometry/direction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace {

using namespace zyl::geometry;

bool Same(Direction a, Direction b) { return a.x == b.x && a.y == b.y && a.z == b.z; }

TEST(Direction, RunsFromTheFirstPointToTheSecond) {
  EXPECT_TRUE(Same(Direction(Coord3D(1, 2, 3), Coord3D(5, 5, 5)), Direction(4, 3, 2)));
}

TEST(Direction, NormalizeLeavesWhatHasNoLength) {
  Direction d(0, 3, 4);
  d.Normalize();
  EXPECT_TRUE(Same(d, Direction(0, 0.6, 0.8)));
  Direction tiny(1e-200, 0, 0);  // its square underflows
  tiny.Normalize();
  EXPECT_TRUE(Same(tiny, Direction(1e-200, 0, 0)));
}

TEST(Direction, DividesAndGivesItsComponents) {
  Direction d(1, 2, 3);
  EXPECT_TRUE(Same(d / 4.0, Direction(0.25, 0.5, 0.75)));
  EXPECT_TRUE(std::isinf((d / 0.0).x));
  EXPECT_EQ(d.Dot(Coord3D(4, -5, 6)), 12);
  d /= 2.0;
  EXPECT_TRUE(Same(d, Direction(0.5, 1, 1.5)));
  d.SetDirection(7, 8, 9);
  EXPECT_EQ(d.GetXDirection() + d.GetYDirection() * d.GetZDirection(), 79);
}

TEST(Direction, BearingsRunClockwiseFromNorthAndInclinationsUp) {
  const double half = std::sqrt(0.5);
  const std::pair<Coord3D, Coord3D> cases[] = {{{0, 0, 0}, {0, 1, 0}},
                                               {{90, 0, 0}, {1, 0, 0}},
                                               {{0, 90, 0}, {0, 0, 1}},
                                               {{180, -45, 0}, {0, -half, -half}},
                                               {{-45, 0, 0}, {-half, half, 0}}};
  for (const auto& [angles, expected] : cases) {
    Direction d(7, 7, 7);
    d.SetDirectionByBearingDegrees(angles.x, angles.y);
    EXPECT_NEAR(Coord3D(d.x, d.y, d.z).Distance(expected), 0, 3e-16) << angles.x;
  }
}

}  // namespace
