#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/polylines.h"

namespace {

using exact::EvenOdd;
using exact::Place;
using namespace rings;
using Points = std::vector<Point3D>;

void ExpectPlaces(const Polyline3D& polyline, const Points& inside, const Points& outside) {
  for (const Point3D& p : inside) {
    EXPECT_TRUE(polyline.IsPointInside(p)) << p.x << ", " << p.y << ", " << p.z;
  }
  for (const Point3D& p : outside) {
    EXPECT_FALSE(polyline.IsPointInside(p.x, p.y, p.z)) << p.x << ", " << p.y << ", " << p.z;
  }
}

// The second square is turned by 30° about the x axis: what is inside in the x-y projection need
// not be in the plane.
TEST(IsPointInside, IsAskedInThePolygonsOwnPlaneAtAnyDistanceFromIt) {
  ExpectPlaces(Closed({{0, 0, 5}, {1, 0, 5}, {1, 1, 5}, {0, 1, 5}}),
               {{0.5, 0.5, 5}, {0.5, 0.5, 100}, {1, 0.5, 5}, {1, 1, 5}}, {{1.5, 0.5, 5}});
  const double c = std::sqrt(3) / 2, s = 0.5;
  ExpectPlaces(Closed({{0, 0, 0}, {1, 0, 0}, {1, c, s}, {0, c, s}}),
               {{0.5, 0.95 * c, 0.95 * s}, {0.5, 0.5 * c - 7 * s, 0.5 * s + 7 * c}},
               {{0.5, 1.05 * c, 1.05 * s}, {0.5, 0.95 * c, 3}});
}

TEST(IsPointInside, AnOpenPolylineAnswersAsTheRingItOutlines) {
  Polyline3D open(Points{{0, 0, 0}, {4, 0, 0}, {4, 2, 0}, {2, 2, 0}, {2, 4, 0}, {0, 4, 0}});
  ASSERT_FALSE(open.IsClosed());
  Points& corners = open.GetPointVector();
  for (std::size_t turn = 0; turn < corners.size(); ++turn) {
    ExpectPlaces(open, {{1, 1, 0}, {0, 2, 0}}, {{2.5, 2.5, 0}});
    std::rotate(corners.begin(), corners.begin() + 1, corners.end());
  }
}

TEST(IsPointInside, IsFalseWithoutAPolygon) {
  EXPECT_FALSE(Polyline3D().IsPointInside(0, 0, 0));
  for (const Points& points : {Points{},
                               {{0, 0, 0}},
                               {{0, 0, 0}, {1, 0, 0}},
                               {{0, 0, 0}, {0, 0, 0}, {0, 0, 0}},
                               {{0, 0, 0}, {1, 2, 3}, {3, 6, 9}, {2, 4, 6}},
                               {{0, 0, 0}, {1, 1, 0}, {2, 2, 0}}}) {
    ExpectPlaces(Closed(points), {}, {{0, 0, 0}, {5, 5, 0}});
  }
}

TEST(IsPointInside, IsFalseForCoordinatesThatAreNoNumbers) {
  const Polyline3D square = OnTheGround({{0, 0}, {4, 0}, {4, 4}, {0, 4}}, 1);
  for (const double bad : {kNaN, kInfinity, -kInfinity}) {
    ExpectPlaces(square, {}, {{bad, 1, 0}, {1, bad, 0}, {1, 1, bad}, {2, 0, bad}, {4, 4, bad}});
    for (unsigned int i = 0; i < square.Size(); ++i) {
      for (double Point3D::*coordinate : {&Point3D::x, &Point3D::y, &Point3D::z}) {
        Polyline3D broken = square;
        broken[i].*coordinate = bad;
        EXPECT_FALSE(broken.IsPointInside(2, 1, 0));
      }
    }
  }
}

TEST(IsPointInside, AnswersForCoordinatesOfAnySize) {
  for (const double unit : {1e-160, 1e-9, 1e-3, 1.0, 1e9, 1e25}) {
    const Polyline3D square = OnTheGround({{0, 0}, {4, 0}, {4, 4}, {0, 4}}, unit);
    // Points 1e-8 apart or less are one vertex, so that the smallest squares have no area.
    EXPECT_EQ(square.IsPointInside(unit, 2 * unit, 0), unit > 1e-8) << unit;
    EXPECT_FALSE(square.IsPointInside(5 * unit, 2 * unit, 0)) << unit;
  }
  // Beyond 1e30 the frame cannot be inverted, then determinants overflow; any answer will do.
  for (const double u : {1e40, 1e80, 1e150, 1e160, 1e300}) {
    const Polyline3D tilted = Closed({{0, 0, u}, {u, 0, 0}, {u, u, 0}, {0, u, u}});
    tilted.IsPointInside(u / 2, u / 2, u / 2);
    tilted.IsPointInside(-u, u / 2, u / 2);
  }
}

// Its tip is a vertex.
TEST(IsPointInside, ASpikeThatRunsBackOnItselfEnclosesNothing) {
  ExpectPlaces(OnTheGround({{0, 0}, {4, 0}, {4, 2}, {9, 2}, {4, 2}, {4, 4}, {0, 4}}, 1),
               {{9, 2, 0}, {4, 1, 0}}, {{6, 2, 0}, {4.5, 1.9, 0}});
}

// The chords come as near as 1000·(1 - cos(π/20000)) = 1.2e-5 to the circle.
TEST(IsPointInside, DecidesOnACircleOfManyVertices) {
  const Polyline3D circle =
      OnTheGround(Generate(20000, [](int i) { return Polar(1000, kTurn * i / 20000); }), 1);
  for (const double angle : {0.3, 2.0, 4.4}) {
    const Point2 in = Polar(1000 - 2e-5, angle), out = Polar(1000 + 1e-6, angle);
    ExpectPlaces(circle, {{in[0], in[1], 40}}, {{out[0], out[1], 40}});
  }
}

// Along an edge of 500 m in project coordinates, from a nanometre to a millimetre beside it.
TEST(IsPointInside, KnowsAnEdgeFromWhatIsBesideIt) {
  const double x = 450560, y = 6500000;
  const Polyline3D field =
      Closed({{x, y, 300}, {x, y + 500, 300}, {x - 400, y + 500, 300}, {x - 400, y, 300}});
  for (int i = 1; i < 500; ++i) {
    for (const double beside : {1e-9, 1e-8, 1e-7, 1e-6, 1e-3}) {
      ExpectPlaces(field, {{x, y + i, 300}, {x - beside, y + i, 300}}, {{x + beside, y + i, 300}});
    }
  }
}

// Walks between the points of a small grid cross, touch and run along themselves and repeat
// vertices. On the larger one some cross at angles so small that triangles are turned over there,
// and a further edge through the same place cannot be forced in. Asked at half steps.
TEST(IsPointInside, AgreesWithTheEvenOddRuleOnTangledRings) {
  std::mt19937_64 random(1234);
  for (int round = 0; round < 2000; ++round) {
    const int side = round % 5 < 3 ? 4 : 16, mostVertices = 2 * side + 7;
    const auto atHalfStep = [&] { return std::floor(Uniform(random, -1, 2 * side + 2)) / 2; };
    const int count = static_cast<int>(Uniform(random, 3, mostVertices + 1));
    const Ring2 ring = GridWalk(count, side, random);
    for (int q = 0; q < 40; ++q) {
      const Point2 p = {atHalfStep(), atHalfStep()};
      ASSERT_TRUE(AnswersByEvenOddRule(ring, p, 0x1p-12))
          << "side " << side << ", round " << round << " at " << p[0] << ", " << p[1];
    }
  }
}

// The fourth is as good as on the third, and one with it in the triangulation.
TEST(IsPointInside, HoldsForEveryVertex) {
  const Ring2 ring = {{-1, 0}, {0, -1}, {1, -3e-9}, {1 + 5e-9, 2e-9}, {0, 1}};
  for (const Point2& vertex : ring) {
    EXPECT_TRUE(OnTheGround(ring, 1).IsPointInside(vertex[0], vertex[1], 0)) << vertex[0];
  }
}

// Rings that run back over themselves and are crossed in between, at points that are rounded. Asked
// at these points, triangles have given the wrong answer for what is named.
TEST(IsPointInside, AgreesWithTheEvenOddRuleWhereTrianglesWereUnsound) {
  const struct {
    const char* fault;
    std::vector<double> ring;
    Point2 point;
    double unit = 1.0 / 16384;
  } cases[] = {{"marks differ across what is no boundary",
                {-6, -1, 2, 7, -6, 1, -2, -7, -3, 3, 2, 7},
                {-5, -0.5}},
               {"a triangle is turned over", {-1, 7, 6, 6, 0, 8, 6, 2, 4, 1, 0, 8, 6, 6}, {2, 6.5}},
               {"there is a hole",
                {-32, 2,  22, -28, 28,  24, -23, -25, 6,  -5, 28, 6,  -27,
                 -24, 11, 29, -27, -24, 28, 6,   6,   -5, 28, 24, 22, -28},
                {-14.5, -17}},
               {"an edge is missing",
                {-4, -8, 7,  1,  -6, -8, 7,  2,  0,  -8, 2, 7, -7, -1,
                 5,  -8, -3, -3, 1,  -8, -6, -7, -6, -8, 7, 1, -6, -8},
                {2, -8}},
               {"there is a hole, and boundaries cross at the point",
                {0,  0,  4,  3,  5,   8, 3,   2,  3,   7,  5,   8,  0,   6,  60, 0,  64, 4,
                 60, 4,  64, 0,  60,  0, 0,   6,  0,   0,  -4,  -3, -5,  -8, -3, -2, -3, -7,
                 -5, -8, 0,  -6, -60, 0, -64, -4, -60, -4, -64, 0,  -60, 0,  0,  -6},
                {62, 2},
                0x1p30}};
  for (const auto& [fault, coordinates, p, unit] : cases) {
    const Ring2 ring = Of(coordinates);
    EXPECT_EQ(OnTheGround(ring, unit).IsPointInside(p[0] * unit, p[1] * unit, 0),
              EvenOdd(ring, p) != Place::kOutside)
        << fault;
  }
}

}  // namespace
