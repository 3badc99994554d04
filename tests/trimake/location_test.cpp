#include "trimake/location.h"

#include <gtest/gtest.h>

#include <tuple>

#include "support/polygon.h"
#include "support/rings.h"

namespace {

using namespace zyl::geometry::internal;
using exact::Point2;
using exact::Ring2;
using mesh::Polygon;
using Point3 = std::array<double, 3>;

const rings::Plane kGround = {"ground", {0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
const rings::Plane kPlate = {"ground, ten times as large", {0, 0, 0}, {10, 0, 0}, {0, 10, 0}};
// Crossing points are rounded by more than the distance within which they are mended.
const rings::Plane kGlobe = {
    "ground, 1e9 times as large", {0, 0, 0}, {0x1p30, 0, 0}, {0, 0x1p30, 0}};

Polygon Triangulated(const Ring2& ring, const rings::Plane& plane = kGround) {
  mesh::Points points;
  for (const Point2& p : ring) {
    const auto [x, y, z] = plane.At(p);
    points.push_back({x, y, z, 0});
  }
  return mesh::Triangulated(points);
}

int Locate(const Polygon& polygon, const Point3& p, double tolerance = 0,
           const double* direction = nullptr) {
  return tri_Locate_Point(polygon.get(), p.data(), direction, tolerance);
}

using Located = std::tuple<Point3, double, int>;  // the point, the tolerance, the answer

void ExpectLocated(const Polygon& polygon, const std::vector<Located>& answers) {
  for (const auto& [p, tolerance, expected] : answers) {
    EXPECT_EQ(Locate(polygon, p, tolerance), expected) << p[0] << ", " << p[1] << ", " << p[2];
  }
}

const Ring2 kSquare = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};

// On the diagonal, at a corner, on an edge, on the line of one, just outside and far below; then
// where the orientation test overflows.
TEST(Location, TellsInsideBoundaryAndOutside) {
  ExpectLocated(Triangulated(kSquare), {{{2, 2, 0}, 0, 1},
                                        {{4, 0, 0}, 0, 0},
                                        {{4, 1, 0}, 0, 0},
                                        {{5, 4, 0}, 0, -1},
                                        {{-0.001, 2, 0}, 0, -1},
                                        {{1, 2, -77}, 0, 1},
                                        {{1e200, -1e200, 0}, 0, -1},
                                        {{1, 2, 0}, 0, 1}});
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

// A polygon and what the even-odd rule says of it. Every point is mapped into the plane with the
// polygon's own matrix, and what the oracle sees are those local coordinates, so that its answer is
// exact for what the polygon is made of.
struct Judged {
  Polygon polygon;
  Ring2 local;

  Judged(const Ring2& ring, const rings::Plane& plane) : polygon(Triangulated(ring, plane)) {
    for (const Point2& p : ring) {
      local.push_back(ToLocal(plane.At(p)));
    }
  }

  Point2 ToLocal(const Point3& p) const {
    const TMatrix& m = polygon->toLocal;
    return {m[0] * p[0] + m[4] * p[1] + m[8] * p[2] + m[12],
            m[1] * p[0] + m[5] * p[1] + m[9] * p[2] + m[13]};
  }

  int Expected(const Point3& p) const {
    return static_cast<int>(exact::EvenOdd(local, ToLocal(p))) - 1;
  }
};

// With A→B, B→C, C→A for the order of the edges, walks never end on most of these rings.
TEST(Walk, ArrivesOnPinwheelsFromEveryTriangle) {
  std::mt19937_64 random(8);
  for (int arms = 3; arms <= 12; ++arms) {
    for (const double twist : {1.5, 1.8, 2.1, 2.5, -0.6}) {
      const Polygon pinwheel = Triangulated(rings::Pinwheel(arms, twist), kPlate);
      for (int i = 0; i < 100; ++i) {
        const double reach = i % 2 == 0 ? 11 : 2;
        const double query[2] = {Uniform(random, -reach, reach), Uniform(random, -reach, reach)};
        for (int start = 0; start < pinwheel->triangleCount; ++start) {
          ASSERT_TRUE(tri_Walk(*pinwheel, query, start).finished) << arms << " arms, " << twist;
        }
      }
    }
  }
}

// Neighbours as no sound triangulation has them: whoever leaves a triangle comes back to it.
TEST(Walk, IsGivenUpWhereItComesRoundAndThePointIsFoundAllTheSame) {
  const Judged notched({{-9, -9}, {9, -9}, {9, 9}, {2, -3}, {-9, 9}}, kGround);
  const Polygon& polygon = notched.polygon;
  for (int i = 0; i < 3 * polygon->triangleCount; ++i) {
    polygon->neighbours[i] = i / 3 + 1;
  }
  int givenUp = 0;
  for (int i = 0; i < 400; ++i) {
    const Point3 p = {i / 20 - 9.51, i % 20 - 9.73, 0};  // on no edge
    for (int start = 0; start < polygon->triangleCount; ++start) {
      givenUp += !tri_Walk(*polygon, notched.ToLocal(p).data(), start).finished;
      polygon->lastTriangle = start;
      ASSERT_EQ(Locate(polygon, p), notched.Expected(p)) << p[0] << ", " << p[1];
    }
  }
  EXPECT_GT(givenUp, 0);
}

// Asks for points of the plane around vertices of the ring, some of them vertices themselves: once
// of the triangles, and once of the boundary, as where triangles cannot be relied on. Returns
// whether they can.
bool CheckAgainstEvenOdd(const Ring2& ring, const rings::Plane& plane, int questions, double height,
                         std::mt19937_64& random) {
  const Judged judged(ring, plane);
  mesh::Points boundary = {{judged.local.back()[0], judged.local.back()[1], 0, 1}};
  for (const auto& [x, y] : judged.local) {
    boundary.push_back({x, y, 0, 0});
  }
  tri_Polygon outline = *judged.polygon;
  outline.boundary = boundary.data();
  outline.boundaryCount = static_cast<int>(boundary.size());
  for (int i = 0; i < questions && !testing::Test::HasFailure(); ++i) {
    const double reach[] = {0, 1, 0.02};
    Point2 p = ring[Below(random, ring.size())];
    p[0] += Uniform(random, -1, 1) * reach[i % 3];
    p[1] += Uniform(random, -1, 1) * reach[i % 3] * height;
    const Point3 at = plane.At(p);
    EXPECT_EQ(Locate(judged.polygon, at), judged.Expected(at)) << p[0] << ", " << p[1];
    EXPECT_EQ(tri_Locate_Point(&outline, at.data(), nullptr, 0), judged.Expected(at))
        << p[0] << ", " << p[1];
  }
  return judged.polygon->boundary == nullptr;
}

TEST(Location, AgreesWithTheEvenOddRule) {
  const struct {
    const char* name;
    Ring2 (*make)(int, std::mt19937_64&);
    int largest;
    double height;
  } shapes[] = {{"convex", rings::Convex, 20000, 1},    {"concave", rings::Concave, 20000, 1},
                {"spiral", rings::Spiral, 20000, 1},    {"comb", rings::Comb, 20000, 1},
                {"sliver", rings::Sliver, 20000, 1e-3}, {"star", rings::Star, 100, 1}};
  std::mt19937_64 random(42);
  for (const auto& [name, make, largest, height] : shapes) {
    for (const int n : {3, 4, 5, 7, 10, 30, 100, 1000, 20000}) {
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
      const int corners = 6 + static_cast<int>(random() % 20);
      CheckAgainstEvenOdd(rings::Retraced(corners, random), plane, 60, 1, random);
    }
  }
}

// On the last, triangles of some of them are unsound.
TEST(Location, AgreesWithTheEvenOddRuleOnTangledRings) {
  std::mt19937_64 random(44);
  int unsound = 0;
  for (int round = 0; round < 100; ++round) {
    Ring2 ring = rings::GridWalk(30, 32, random);
    ring[20] = ring[5];
    for (const rings::Plane& plane : {rings::kPlanes[1], rings::kPlanes[5], kGlobe}) {
      SCOPED_TRACE(testing::Message() << "round " << round << ", " << plane.name);
      unsound += !CheckAgainstEvenOdd(ring, plane, 60, 1, random);
    }
  }
  EXPECT_GT(unsound, 0);
}

}  // namespace
