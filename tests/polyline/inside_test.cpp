#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <vector>

#include "support/rings.h"
#include "zyl/geometry/polyline3d.h"

namespace {

using exact::EvenOdd;
using exact::Place;
using exact::Point2;
using exact::Ring2;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

Polyline3D Closed(const std::vector<Point3D>& points) {
  Polyline3D polyline(points);
  polyline.SetClosed(true);
  return polyline;
}

// On the ground, at a scale at which the polygon is tested in the world's own coordinates: the
// determinants of its plane fit stay below 1e-4. What the oracle says is then exact for the world.
Polyline3D Small(const Ring2& ring, double unit) {
  Polyline3D polyline;
  for (const Point2& p : ring) {
    polyline.Add(p[0] * unit, p[1] * unit, 0);
  }
  polyline.SetClosed(true);
  return polyline;
}

TEST(IsPointInside, IgnoresTheDistanceFromThePlane) {
  const Polyline3D square = Closed({{0, 0, 5}, {1, 0, 5}, {1, 1, 5}, {0, 1, 5}});
  EXPECT_TRUE(square.IsPointInside(Point3D(0.5, 0.5, 5)));
  EXPECT_TRUE(square.IsPointInside(0.5, 0.5, 100));
  EXPECT_FALSE(square.IsPointInside(Point3D(1.5, 0.5, 5)));
  EXPECT_TRUE(square.IsPointInside(Point3D(1, 0.5, 5)));
  EXPECT_TRUE(square.IsPointInside(Point3D(1, 1, 5)));
}

// Turned by 30° about the x axis: what is inside in the x-y projection need not be in the plane.
TEST(IsPointInside, IsAskedInThePolygonsOwnPlane) {
  const double c = std::sqrt(3) / 2;
  const double s = 0.5;
  const Polyline3D square = Closed({{0, 0, 0}, {1, 0, 0}, {1, c, s}, {0, c, s}});
  EXPECT_TRUE(square.IsPointInside(Point3D(0.5, 0.95 * c, 0.95 * s)));
  EXPECT_FALSE(square.IsPointInside(Point3D(0.5, 1.05 * c, 1.05 * s)));
  EXPECT_FALSE(square.IsPointInside(Point3D(0.5, 0.95 * c, 3)));
  EXPECT_TRUE(square.IsPointInside(Point3D(0.5, 0.5 * c - 7 * s, 0.5 * s + 7 * c)));
}

TEST(IsPointInside, AnOpenPolylineAnswersAsTheRingItOutlines) {
  const std::vector<Point3D> corners = {{0, 0, 0}, {4, 0, 0}, {4, 2, 0},
                                        {2, 2, 0}, {2, 4, 0}, {0, 4, 0}};
  Polyline3D open(corners);
  ASSERT_FALSE(open.IsClosed());
  for (std::size_t turn = 0; turn < corners.size(); ++turn) {
    EXPECT_TRUE(open.IsPointInside(Point3D(1, 1, 0)));
    EXPECT_TRUE(open.IsPointInside(Point3D(0, 2, 0)));
    EXPECT_FALSE(open.IsPointInside(Point3D(2.5, 2.5, 0)));
    std::rotate(open.GetPointVector().begin(), open.GetPointVector().begin() + 1,
                open.GetPointVector().end());
  }
}

TEST(IsPointInside, IsFalseWithoutAPolygon) {
  const Point3D origin(0, 0, 0);
  EXPECT_FALSE(Polyline3D().IsPointInside(origin));
  EXPECT_FALSE(Closed({}).IsPointInside(origin));
  EXPECT_FALSE(Closed({{0, 0, 0}}).IsPointInside(origin));
  EXPECT_FALSE(Closed({{0, 0, 0}, {1, 0, 0}}).IsPointInside(origin));
  EXPECT_FALSE(Closed({{0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}}).IsPointInside(origin));
  EXPECT_FALSE(Closed({{0, 0, 0}, {1, 2, 3}, {3, 6, 9}, {2, 4, 6}}).IsPointInside(origin));
  EXPECT_FALSE(Closed({{0, 0, 0}, {1, 1, 0}, {2, 2, 0}}).IsPointInside(Point3D(5, 5, 0)));
}

TEST(IsPointInside, IsFalseForCoordinatesThatAreNoNumbers) {
  for (const double bad : {kNaN, kInf, -kInf}) {
    const Polyline3D square = Closed({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}});
    EXPECT_FALSE(square.IsPointInside(Point3D(bad, 1, 0)));
    EXPECT_FALSE(square.IsPointInside(Point3D(1, bad, 0)));
    EXPECT_FALSE(square.IsPointInside(Point3D(1, 1, bad)));
    for (unsigned int i = 0; i < square.Size(); ++i) {
      Polyline3D broken = square;
      broken[i].x = bad;
      EXPECT_FALSE(broken.IsPointInside(Point3D(2, 1, 0)));
      broken = square;
      broken[i].y = bad;
      EXPECT_FALSE(broken.IsPointInside(Point3D(2, 1, 0)));
    }
  }
}

TEST(IsPointInside, AnswersForCoordinatesOfAnySize) {
  for (const double unit : {1e-160, 1e-9, 1e-3, 1.0, 1e9, 1e25}) {
    const Polyline3D square =
        Closed({{0, 0, 0}, {4 * unit, 0, 0}, {4 * unit, 4 * unit, 0}, {0, 4 * unit, 0}});
    // Points 1e-8 apart or less are one vertex, so that the smallest squares have no area.
    const bool isPolygon = unit > 1e-8;
    EXPECT_EQ(square.IsPointInside(Point3D(unit, 2 * unit, 0)), isPolygon) << unit;
    EXPECT_FALSE(square.IsPointInside(Point3D(5 * unit, 2 * unit, 0))) << unit;
  }
  // Beyond 1e30 the frame cannot be inverted, then determinants overflow; any answer will do.
  for (const double unit : {1e40, 1e80, 1e150, 1e160, 1e300}) {
    const Polyline3D tilted =
        Closed({{0, 0, unit}, {unit, 0, 0}, {unit, unit, 0}, {0, unit, unit}});
    tilted.IsPointInside(Point3D(unit / 2, unit / 2, unit / 2));
    tilted.IsPointInside(Point3D(-unit, unit / 2, unit / 2));
  }
}

TEST(IsPointInside, ASpikeThatRunsBackOnItselfEnclosesNothing) {
  const Polyline3D spiked =
      Closed({{0, 0, 0}, {4, 0, 0}, {4, 2, 0}, {9, 2, 0}, {4, 2, 0}, {4, 4, 0}, {0, 4, 0}});
  EXPECT_FALSE(spiked.IsPointInside(Point3D(6, 2, 0)));
  EXPECT_TRUE(spiked.IsPointInside(Point3D(9, 2, 0)));  // its tip is a vertex
  EXPECT_TRUE(spiked.IsPointInside(Point3D(4, 1, 0)));
  EXPECT_FALSE(spiked.IsPointInside(Point3D(4.5, 1.9, 0)));
}

// Twenty thousand vertices on one circle about the origin, and points 1e-6 on either side of it.
TEST(IsPointInside, DecidesOnACircleOfManyVertices) {
  Polyline3D circle;
  const std::size_t n = 20000;
  for (std::size_t i = 0; i < n; ++i) {
    const Point2 p =
        rings::Polar(1000, rings::kTurn * static_cast<double>(i) / static_cast<double>(n));
    circle.Add(p[0], p[1], 40);
  }
  circle.SetClosed(true);
  // The chords come as near as 1000·(1 - cos(π/20000)) = 1.2e-5 to the circle.
  for (const double angle : {0.3, 2.0, 4.4}) {
    const Point2 in = rings::Polar(1000 - 2e-5, angle);
    const Point2 out = rings::Polar(1000 + 1e-6, angle);
    EXPECT_TRUE(circle.IsPointInside(Point3D(in[0], in[1], 40)));
    EXPECT_FALSE(circle.IsPointInside(Point3D(out[0], out[1], 40)));
  }
}

// Along an edge of 500 m in project coordinates, from a nanometre to a millimetre beside it.
TEST(IsPointInside, KnowsAnEdgeFromWhatIsBesideIt) {
  const double x = 450560;
  const double y = 6500000;
  const Polyline3D field =
      Closed({{x, y, 300}, {x, y + 500, 300}, {x - 400, y + 500, 300}, {x - 400, y, 300}});
  for (int i = 1; i < 500; ++i) {
    ASSERT_TRUE(field.IsPointInside(x, y + i, 300));
    for (const double beside : {1e-9, 1e-8, 1e-7, 1e-6, 1e-3}) {
      ASSERT_TRUE(field.IsPointInside(x - beside, y + i, 300)) << beside;
      ASSERT_FALSE(field.IsPointInside(x + beside, y + i, 300)) << beside;
    }
  }
}

bool HasArea(const Ring2& ring) {
  for (std::size_t i = 2; i < ring.size(); ++i) {
    for (std::size_t j = 1; j < i; ++j) {
      if (exact::Orient2D(ring[0].data(), ring[j].data(), ring[i].data()) != 0) {
        return true;
      }
    }
  }
  return false;
}

bool IsOnCrossedEdge(const Ring2& ring, const Point2& p) {
  const std::size_t n = ring.size();
  for (std::size_t i = 0; i < n; ++i) {
    const Point2& a = ring[i];
    const Point2& b = ring[(i + 1) % n];
    for (std::size_t j = 0; exact::IsOnSegment(a, b, p) && j < n; ++j) {
      if (exact::CrossProperly(a, b, ring[j], ring[(j + 1) % n])) {
        return true;
      }
    }
  }
  return false;
}

// Asked at every half step; on an edge only if no other edge crosses that one, since the boundary
// then runs through the rounded crossing point.
void CheckGridWalks(int rounds, int side, std::size_t mostVertices, std::mt19937_64& random) {
  constexpr double kUnit = 1.0 / 4096;
  const auto atHalfStep = [&] {
    return static_cast<double>(random() % static_cast<unsigned>(2 * side + 3)) / 2 - 0.5;
  };
  for (int round = 0; round < rounds; ++round) {
    const Ring2 ring = rings::GridWalk(3 + random() % (mostVertices - 2), side, random);
    const Polyline3D polyline = Small(ring, kUnit);
    const bool hasArea = HasArea(ring);
    for (int q = 0; q < 40; ++q) {
      const double x = atHalfStep();
      const Point2 p = {x, atHalfStep()};
      if (IsOnCrossedEdge(ring, p)) {
        continue;
      }
      const bool expected = hasArea && EvenOdd(ring, p) != Place::kOutside;
      ASSERT_EQ(polyline.IsPointInside(p[0] * kUnit, p[1] * kUnit, 0), expected)
          << "side " << side << ", round " << round << " at " << p[0] << ", " << p[1];
    }
  }
}

// Walks between the points of a small grid cross, touch and run along themselves and repeat
// vertices. On the larger one some cross at angles so small that triangles are turned over there,
// and a further edge through the same place cannot be forced in.
TEST(IsPointInside, AgreesWithTheEvenOddRuleOnTangledRings) {
  std::mt19937_64 random(1234);
  CheckGridWalks(400, 4, 14, random);
  CheckGridWalks(150, 16, 40, random);
}

// Rings that run back over themselves and are crossed in between, at points that are rounded. Taken
// at their word, their triangles give the wrong answer at the points asked for.
TEST(IsPointInside, DoesNotRelyOnTrianglesThatAreUnsound) {
  const struct {
    const char* fault;
    Ring2 ring;
    Point2 point;
  } cases[] = {{"marks differ across what is no boundary",
                {{-6, -1}, {2, 7}, {-6, 1}, {-2, -7}, {-3, 3}, {2, 7}},
                {-5, -0.5}},
               {"a triangle is turned over",
                {{-1, 7}, {6, 6}, {0, 8}, {6, 2}, {4, 1}, {0, 8}, {6, 6}},
                {2, 6.5}},
               {"there is a hole",
                {{-32, 2},
                 {22, -28},
                 {28, 24},
                 {-23, -25},
                 {6, -5},
                 {28, 6},
                 {-27, -24},
                 {11, 29},
                 {-27, -24},
                 {28, 6},
                 {6, -5},
                 {28, 24},
                 {22, -28}},
                {-14.5, -17}},
               {"an edge is missing",
                {{-4, -8},
                 {7, 1},
                 {-6, -8},
                 {7, 2},
                 {0, -8},
                 {2, 7},
                 {-7, -1},
                 {5, -8},
                 {-3, -3},
                 {1, -8},
                 {-6, -7},
                 {-6, -8},
                 {7, 1},
                 {-6, -8}},
                {2, -8}}};
  for (const auto& [fault, ring, p] : cases) {
    constexpr double kUnit = 1.0 / 16384;
    EXPECT_EQ(Small(ring, kUnit).IsPointInside(p[0] * kUnit, p[1] * kUnit, 0),
              EvenOdd(ring, p) != Place::kOutside)
        << fault;
  }
}

}  // namespace
