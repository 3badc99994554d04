#include "trimake/location.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <random>
#include <vector>

#include "support/polygon.h"
#include "support/rings.h"

namespace {

using namespace zyl::geometry::internal;
using exact::EvenOdd;
using exact::Point2;
using exact::Ring2;
using mesh::Polygon;
using Point3 = std::array<double, 3>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

const rings::Plane kGround = {"ground", {0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
const rings::Plane kPlate = {"ground, ten times as large", {0, 0, 0}, {10, 0, 0}, {0, 10, 0}};

Polygon Triangulated(const Ring2& ring, const rings::Plane& plane = kGround) {
  std::vector<TPoint> points;
  for (const Point2& p : ring) {
    const Point3 at = plane.At(p);
    points.push_back({at[0], at[1], at[2], 0});
  }
  return mesh::Triangulated(points);
}

int Locate(const Polygon& polygon, const Point3& p, double tolerance = 0,
           const double* direction = nullptr) {
  return tri_Locate_Point(polygon.get(), p.data(), direction, tolerance);
}

struct Located {
  Point3 point;
  double tolerance;
  int expected;
};

void ExpectLocated(const Polygon& polygon, std::initializer_list<Located> answers) {
  for (const auto& [p, tolerance, expected] : answers) {
    EXPECT_EQ(Locate(polygon, p, tolerance), expected) << p[0] << ", " << p[1] << ", " << p[2];
  }
}

const Ring2 kSquare = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};

// On the diagonal, at a corner, on an edge, on the line of one, just outside and far below; then
// where the orientation test overflows.
TEST(Location, TellsInsideBoundaryAndOutside) {
  const Polygon square = Triangulated(kSquare);
  ExpectLocated(square, {{{2, 2, 0}, 0, 1},
                         {{4, 0, 0}, 0, 0},
                         {{4, 1, 0}, 0, 0},
                         {{5, 4, 0}, 0, -1},
                         {{-0.001, 2, 0}, 0, -1},
                         {{1, 2, -77}, 0, 1}});
  ExpectLocated(square, {{{1e200, -1e200, 0}, 0, -1}, {{1, 2, 0}, 0, 1}});
}

// Only the square of a tolerance counts.
TEST(Location, ToleranceWidensVerticesAndBoundaryEdges) {
  ExpectLocated(Triangulated({{0, 0}, {4, 0}, {4, 2}, {2, 2}, {2, 4}, {0, 4}}),
                {{{3, 2.5, 0}, 0.4, -1},
                 {{3, 2.5, 0}, 0.6, 0},
                 {{1, 0.5, 0}, -0.6, 0},
                 {{4.3, -0.4, 0}, 0.49, -1},
                 {{4.3, -0.4, 0}, 0.51, 0}});
}

TEST(Location, ADirectionSlidesThePointIntoThePlane) {
  const Polygon square = Triangulated(kSquare);
  const double slant[3] = {0, 3, -3}, level[3] = {1, 0, 0}, none[3] = {}, nan[3] = {0, kNaN, 1};
  EXPECT_EQ(Locate(square, {1, 0, 2}, 0, slant), 1);  // lands on (1, 2)
  EXPECT_EQ(Locate(square, {1, 2, 3}, 0, slant), -1);
  EXPECT_EQ(Locate(square, {3.5, 2, 3}, 0, level), 1);
  EXPECT_EQ(Locate(square, {3.5, 2, 3}, 0, none), 1);
  EXPECT_EQ(Locate(square, {1, 2, 3}, 0, nan), -1);
  // Leaning with slope 3/4 along y, so that upwards is askew to it.
  const double up[3] = {0, 0, 2};
  const Polygon roof = Triangulated(kSquare, {"roof", {0, 0, 0}, {1, 0, 0}, {0, 1, 0.75}});
  EXPECT_EQ(Locate(roof, {1, 3.9, 20}, 0, up), 1);
  EXPECT_EQ(Locate(roof, {1, 3.9, 20}), -1);
}

// The world's own axes are the local ones, as the triangle is too small for a fit. Each point is i
// thousandths along the edge, exactly, yet its squared distance from it is often rounded above 0.
TEST(Location, APointExactlyOnAnEdgeIsOnTheBoundary) {
  constexpr double kUnit = 0x1p-38;
  std::mt19937_64 random(77);
  for (int round = 0; round < 100; ++round) {
    const double x = static_cast<double>(random() % (1 << 22)) * kUnit;
    const double y = static_cast<double>(random() % (1 << 22)) * kUnit;
    const Polygon triangle = Triangulated({{0, 0}, {1000 * x, 1000 * y}, {-1000 * y, 1000 * x}});
    ASSERT_NE(triangle, nullptr);
    for (int i = 1; i < 1000; i += 7) {
      ASSERT_EQ(Locate(triangle, {i * x, i * y, 0}), 0) << x << ", " << y << ", " << i;
    }
  }
}

// Every point is mapped into the plane with the polygon's own matrix, and what the oracle sees are
// those local coordinates, so that its answer is exact for what the polygon is made of.
Point2 ToLocal(const tri_Polygon& polygon, const Point3& p) {
  const TMatrix& m = polygon.toLocal;
  return {m[0] * p[0] + m[4] * p[1] + m[8] * p[2] + m[12],
          m[1] * p[0] + m[5] * p[1] + m[9] * p[2] + m[13]};
}

Ring2 ToLocal(const tri_Polygon& polygon, const Ring2& ring, const rings::Plane& plane) {
  Ring2 local;
  for (const Point2& p : ring) {
    local.push_back(ToLocal(polygon, plane.At(p)));
  }
  return local;
}

// With A→B, B→C, C→A for the order of the edges, walks never end on most of these rings.
TEST(Walk, ArrivesOnPinwheelsFromEveryTriangle) {
  std::mt19937_64 random(8);
  for (std::size_t arms = 3; arms <= 12; ++arms) {
    for (const double twist : {1.5, 1.8, 2.1, 2.5, -0.6}) {
      const Polygon pinwheel = Triangulated(rings::Pinwheel(arms, twist), kPlate);
      for (int i = 0; i < 100; ++i) {
        const double reach = i % 2 == 0 ? 11 : 2;
        const double query[2] = {rings::Uniform(random, -reach, reach),
                                 rings::Uniform(random, -reach, reach)};
        for (int start = 0; start < pinwheel->triangleCount; ++start) {
          ASSERT_TRUE(tri_Walk(*pinwheel, query, start).finished) << arms << " arms, " << twist;
        }
      }
    }
  }
}

// Neighbours as no sound triangulation has them: whoever leaves a triangle comes back to it.
TEST(Walk, IsGivenUpWhereItComesRoundAndThePointIsFoundAllTheSame) {
  const Ring2 notched = {{-9, -9}, {9, -9}, {9, 9}, {2, -3}, {-9, 9}};
  const Polygon polygon = Triangulated(notched);
  const Ring2 local = ToLocal(*polygon, notched, kGround);
  for (int i = 0; i < 3 * polygon->triangleCount; ++i) {
    polygon->neighbours[i] = i / 3 + 1;
  }
  int givenUp = 0;
  for (int i = 0; i < 400; ++i) {
    const Point3 p = {i / 20 - 9.51, i % 20 - 9.73, 0};  // on no edge
    const Point2 q = ToLocal(*polygon, p);
    for (int start = 0; start < polygon->triangleCount; ++start) {
      givenUp += tri_Walk(*polygon, q.data(), start).finished ? 0 : 1;
      polygon->lastTriangle = start;
      ASSERT_EQ(Locate(polygon, p), static_cast<int>(EvenOdd(local, q)) - 1)
          << p[0] << ", " << p[1];
    }
  }
  EXPECT_GT(givenUp, 0);
}

// Asks for points of the plane around vertices of the ring, some of them vertices themselves: once
// of the triangles, and once of the boundary, as where triangles cannot be relied on.
void CheckAgainstEvenOdd(const Ring2& ring, const rings::Plane& plane, int questions, double height,
                         std::mt19937_64& random) {
  const Polygon polygon = Triangulated(ring, plane);
  ASSERT_NE(polygon, nullptr);
  const Ring2 local = ToLocal(*polygon, ring, plane);
  std::vector<TPoint> boundary = {{local.back()[0], local.back()[1], 0, 1}};
  for (const Point2& p : local) {
    boundary.push_back({p[0], p[1], 0, 0});
  }
  tri_Polygon outline = *polygon;
  outline.boundary = boundary.data();
  outline.boundaryCount = static_cast<int>(boundary.size());
  for (int i = 0; i < questions; ++i) {
    const double reach[] = {0, 1, 0.02};
    Point2 p = ring[random() % ring.size()];
    p[0] += rings::Uniform(random, -1, 1) * reach[i % 3];
    p[1] += rings::Uniform(random, -1, 1) * reach[i % 3] * height;
    const Point3 at = plane.At(p);
    const int expected = static_cast<int>(EvenOdd(local, ToLocal(*polygon, at))) - 1;
    ASSERT_EQ(Locate(polygon, at), expected) << p[0] << ", " << p[1];
    ASSERT_EQ(tri_Locate_Point(&outline, at.data(), nullptr, 0), expected) << p[0] << ", " << p[1];
  }
}

TEST(Location, AgreesWithTheEvenOddRule) {
  const struct {
    const char* name;
    Ring2 (*make)(std::size_t, std::mt19937_64&);
    std::size_t largest;
    double height;
  } shapes[] = {{"convex", rings::Convex, 20000, 1},    {"concave", rings::Concave, 20000, 1},
                {"spiral", rings::Spiral, 20000, 1},    {"comb", rings::Comb, 20000, 1},
                {"sliver", rings::Sliver, 20000, 1e-3}, {"star", rings::Star, 100, 1}};
  std::mt19937_64 random(42);
  for (const auto& [name, make, largest, height] : shapes) {
    for (const std::size_t n : {3u, 4u, 5u, 7u, 10u, 30u, 100u, 1000u, 20000u}) {
      for (const rings::Plane& plane : rings::kPlanes) {
        SCOPED_TRACE(testing::Message() << name << " of " << n << ", " << plane.name);
        const Ring2 ring = make(std::min(n, largest), random);
        CheckAgainstEvenOdd(ring, plane, n > 1000 ? 12 : 60, height, random);
      }
    }
  }
}

TEST(Location, AgreesWithTheEvenOddRuleWhereRingsRunBackOverThemselves) {
  std::mt19937_64 random(43);
  for (int round = 0; round < 200; ++round) {
    for (const rings::Plane& plane : rings::kPlanes) {
      SCOPED_TRACE(testing::Message() << "round " << round << ", " << plane.name);
      CheckAgainstEvenOdd(rings::Retraced(6 + random() % 20, random), plane, 60, 1, random);
    }
  }
}

// At this size crossing points are rounded by more than the distance within which they are mended.
TEST(Location, AgreesWithTheEvenOddRuleWhereTrianglesAreUnsound) {
  constexpr double kUnit = 0x1p30;
  std::mt19937_64 random(44);
  int unsound = 0;
  for (int round = 0; round < 100; ++round) {
    Ring2 ring = rings::GridWalk(30, 32, random);
    ring[20] = ring[5];
    for (Point2& p : ring) {
      p = {p[0] * kUnit, p[1] * kUnit};
    }
    const Polygon polygon = Triangulated(ring, kGround);
    ASSERT_NE(polygon, nullptr);
    const Ring2 local = ToLocal(*polygon, ring, kGround);
    unsound += polygon->boundary != nullptr ? 1 : 0;
    for (int i = 0; i < 100; ++i) {
      const double x = rings::Uniform(random, 0, 32 * kUnit);
      const Point3 at = {x, rings::Uniform(random, 0, 32 * kUnit), 0};
      ASSERT_EQ(Locate(polygon, at), static_cast<int>(EvenOdd(local, ToLocal(*polygon, at))) - 1)
          << "round " << round << " at " << at[0] << ", " << at[1];
    }
  }
  EXPECT_GT(unsound, 0);
}

}  // namespace
