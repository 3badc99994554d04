#include "trimake/location.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <vector>

#include "support/rings.h"

namespace {

using namespace zyl::geometry::internal;
using exact::EvenOdd;
using exact::Point2;
using exact::Ring2;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

struct Release {
  void operator()(tri_Polygon* polygon) const { tri_Free_Polygon(polygon); }
};
using Polygon = std::unique_ptr<tri_Polygon, Release>;

const rings::Plane kGround = {"ground", {0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
const rings::Plane kPlate = {"ground, ten times as large", {0, 0, 0}, {10, 0, 0}, {0, 10, 0}};

Polygon Triangulated(const Ring2& ring, const rings::Plane& plane = kGround) {
  std::vector<TPoint> points;
  for (const Point2& p : ring) {
    const std::array<double, 3> at = plane.At(p);
    points.push_back({at[0], at[1], at[2], 0});
  }
  int error = 0;
  return Polygon(
      tri_Triangulate_Polygon(static_cast<int>(points.size()), points.data(), nullptr, &error));
}

int Locate(const Polygon& polygon, double x, double y, double z, double tolerance = 0,
           const double* direction = nullptr) {
  const double point[3] = {x, y, z};
  return tri_Locate_Point(polygon.get(), point, direction, tolerance);
}

const Ring2 kSquare = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};

TEST(Location, TellsInsideBoundaryAndOutside) {
  const Polygon square = Triangulated(kSquare);
  EXPECT_EQ(Locate(square, 1, 2, 0), 1);
  EXPECT_EQ(Locate(square, 2, 2, 0), 1);  // on the diagonal
  EXPECT_EQ(Locate(square, 4, 0, 0), 0);
  EXPECT_EQ(Locate(square, 4, 1, 0), 0);
  EXPECT_EQ(Locate(square, 5, 4, 0), -1);  // on the line of a hull edge
  EXPECT_EQ(Locate(square, -0.001, 2, 0), -1);
  EXPECT_EQ(Locate(square, 1, 2, -77), 1);
}

TEST(Location, ToleranceWidensVerticesAndBoundaryEdges) {
  const Polygon notched = Triangulated({{0, 0}, {4, 0}, {4, 2}, {2, 2}, {2, 4}, {0, 4}});
  EXPECT_EQ(Locate(notched, 3, 2.5, 0, 0.4), -1);
  EXPECT_EQ(Locate(notched, 3, 2.5, 0, 0.6), 0);
  EXPECT_EQ(Locate(notched, 1, 0.5, 0, -0.6), 0);  // only its square counts
  EXPECT_EQ(Locate(notched, 4.3, -0.4, 0, 0.49), -1);
  EXPECT_EQ(Locate(notched, 4.3, -0.4, 0, 0.51), 0);
}

TEST(Location, ADirectionSlidesThePointIntoThePlane) {
  const Polygon square = Triangulated(kSquare);
  const double slant[3] = {0, 3, -3};
  EXPECT_EQ(Locate(square, 1, 0, 2, 0, slant), 1);  // lands on (1, 2)
  EXPECT_EQ(Locate(square, 1, 2, 3, 0, slant), -1);
  const double level[3] = {1, 0, 0};
  const double none[3] = {0, 0, 0};
  EXPECT_EQ(Locate(square, 3.5, 2, 3, 0, level), 1);
  EXPECT_EQ(Locate(square, 3.5, 2, 3, 0, none), 1);
  const double nan[3] = {0, kNaN, 1};
  EXPECT_EQ(Locate(square, 1, 2, 3, 0, nan), -1);
}

TEST(Location, WhatIsNoPointIsOutside) {
  const Polygon square = Triangulated(kSquare);
  for (const double bad : {kNaN, kInf, -kInf}) {
    EXPECT_EQ(Locate(square, bad, 2, 0), -1);
    EXPECT_EQ(Locate(square, 1, bad, 0), -1);
    EXPECT_EQ(Locate(square, 1, 2, bad), -1);
  }
  EXPECT_EQ(Locate(square, 1e200, -1e200, 0), -1);  // overflows the orientation test
  EXPECT_EQ(Locate(square, 1, 2, 0), 1);
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
      ASSERT_EQ(Locate(triangle, i * x, i * y, 0), 0) << x << ", " << y << ", " << i;
    }
  }
}

// Every point is mapped into the plane with the polygon's own matrix, and what the oracle sees are
// those local coordinates, so that its answer is exact for what the polygon is made of.
Point2 ToLocal(const TMatrix& m, const std::array<double, 3>& p) {
  return {m[0] * p[0] + m[4] * p[1] + m[8] * p[2] + m[12],
          m[1] * p[0] + m[5] * p[1] + m[9] * p[2] + m[13]};
}

Ring2 ToLocal(const tri_Polygon& polygon, const Ring2& ring, const rings::Plane& plane) {
  Ring2 local;
  for (const Point2& p : ring) {
    local.push_back(ToLocal(polygon.toLocal, plane.At(p)));
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
  for (int x = -10; x < 10; ++x) {
    for (int y = -10; y < 10; ++y) {
      const Point2 p = {x + 0.49, y + 0.27};  // on no edge
      const Point2 q = ToLocal(polygon->toLocal, kGround.At(p));
      const int expected = static_cast<int>(EvenOdd(local, q)) - 1;
      for (int start = 0; start < polygon->triangleCount; ++start) {
        givenUp += tri_Walk(*polygon, q.data(), start).finished ? 0 : 1;
        polygon->lastTriangle = start;
        ASSERT_EQ(Locate(polygon, p[0], p[1], 0), expected) << p[0] << ", " << p[1];
      }
    }
  }
  EXPECT_GT(givenUp, 0);
}

struct Shape {
  const char* name;
  std::function<Ring2(std::size_t, std::mt19937_64&)> make;
  std::size_t largest;
  double height;
};

// Asks for points of the plane around vertices of the ring, some of them vertices themselves.
void CheckAgainstEvenOdd(const Ring2& ring, const rings::Plane& plane, int questions, double height,
                         std::mt19937_64& random) {
  const Polygon polygon = Triangulated(ring, plane);
  ASSERT_NE(polygon, nullptr);
  const Ring2 local = ToLocal(*polygon, ring, plane);
  for (int i = 0; i < questions; ++i) {
    const double reach[] = {0, 1, 0.02};
    Point2 p = ring[random() % ring.size()];
    p[0] += rings::Uniform(random, -1, 1) * reach[i % 3];
    p[1] += rings::Uniform(random, -1, 1) * reach[i % 3] * height;
    const std::array<double, 3> at = plane.At(p);
    const Point2 q = ToLocal(polygon->toLocal, at);
    ASSERT_EQ(Locate(polygon, at[0], at[1], at[2]), static_cast<int>(EvenOdd(local, q)) - 1)
        << p[0] << ", " << p[1];
  }
}

class RingsInPlanes : public testing::TestWithParam<rings::Plane> {};

TEST_P(RingsInPlanes, AgreeWithTheEvenOddRule) {
  const Shape shapes[] = {
      {"convex", rings::Convex, 20000, 1},    {"concave", rings::Concave, 20000, 1},
      {"spiral", rings::Spiral, 20000, 1},    {"comb", rings::Comb, 20000, 1},
      {"sliver", rings::Sliver, 20000, 1e-3}, {"star", rings::Star, 100, 1}};
  std::mt19937_64 random(42);
  for (const Shape& shape : shapes) {
    for (const std::size_t n : {3u, 4u, 5u, 7u, 10u, 30u, 100u, 1000u, 20000u}) {
      if (n <= shape.largest) {
        SCOPED_TRACE(testing::Message() << shape.name << " of " << n);
        CheckAgainstEvenOdd(shape.make(n, random), GetParam(), n > 1000 ? 12 : 60, shape.height,
                            random);
      }
    }
  }
}

TEST_P(RingsInPlanes, ThatRunBackOverThemselvesAgreeWithTheEvenOddRule) {
  std::mt19937_64 random(43);
  for (int round = 0; round < 200; ++round) {
    SCOPED_TRACE(round);
    CheckAgainstEvenOdd(rings::Retraced(6 + random() % 20, random), GetParam(), 60, 1, random);
  }
}

INSTANTIATE_TEST_SUITE_P(Location, RingsInPlanes, testing::ValuesIn(rings::kPlanes));

}  // namespace
