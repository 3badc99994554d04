#include "trimake/delaunay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "support/even_odd.h"
#include "support/hand_made.h"
#include "support/mesh_checker.h"
#include "trimake/divide_conquer.h"
#include "trimake/extraction.h"

namespace {

using namespace mesh;
using namespace zyl::geometry::internal;
using Corners = std::vector<std::array<int, 3>>;

template <class X, class Y>
TPoint At(X x, Y y) {
  return {static_cast<double>(x), static_cast<double>(y), 0, kLoose};
}

// The merge keeps the candidate on the right: the diagonal of a square starts in its lower right.
// Its lower side is drawn three times, by its ring and by two lines along it.
TEST(Delaunay, ATieOnTheCircleGoesToTheRightAndAnEdgeListsItsSegmentsNewestFirst) {
  const Corners expected = {{1, 4, 3}, {1, 2, 4}};
  EXPECT_EQ(Triangulate(Lines({{0, 0}, {1, 0}, {0, 1}, {1, 1}})).triangles, expected);
  const Points points = Lines({{0, 0, 2, 0, 2, 2, 0, 2, 0, 0, 2, 0}, {2, 0, 0, 0}});
  const Triangulation mesh = Triangulate(points);
  Check(points, mesh);
  ASSERT_EQ(mesh.triangles, expected);
  EXPECT_EQ(mesh.segments[0][2], (Segments{{6, 7}, {4, 5}, {0, 1}}));
}

// Duplicates are sought along the sorted order, from the last vertex on: a row of points each
// 0.7e-8 from the one before keeps every second, not the first alone.
TEST(Delaunay, CoincidentPointsAreOneVertexTheEarliestOfTheInput) {
  Points points = Lines({{5, 5}, {0, 0}, {9, 1}, {0, 0}, {5, 5}, {9, 1 + 1e-8}});
  points[1].z = 10;
  points[3].z = 20;
  const Triangulation mesh = Triangulate(points);
  EXPECT_EQ(mesh.vertices[0].z, 10);
  Check(points, mesh);
  points = Generate(10, [](int i) { return At(0.7e-8 * i, i / 9); });
  EXPECT_EQ(Triangulate(points).vertices.size(), 6u);
}

TEST(Delaunay, PassesTheVerifier) {
  std::mt19937_64 random(20240229);  // the seed of all shapes below
  const auto unit = [&] { return Uniform(random); };
  const auto bell = [&] { return std::normal_distribution<double>(0, 1)(random); };
  const auto cluster = [&](int i) {
    const double size = std::pow(10, -(i % 7));
    return At(i % 5 + size * bell(), i % 3 + size * bell());
  };
  // Areas below what the coordinates resolve, many of them exactly zero.
  const auto besideLine = [&](int) {
    const double x = 1e4 + std::floor(999 * unit());
    return At(x, 0.1 * x + 1.8e-12 * std::floor(3 * unit()));
  };
  const auto ofAnySize = [&](int) {
    return At(std::pow(10, 66 * unit() - 6), std::pow(10, 66 * unit() - 6));
  };
  const auto ringSide = [&](int i) {
    return i == 3000 ? At(-9, i)
                     : Polar(Uniform(random, 500, 1000), i * 6.283 / 3000, i > 0 ? 0 : kLoose);
  };
  const std::pair<const char*, Points> shapes[] = {
      {"uniform", Generate(20000, [&](int) { return At(unit(), unit()); })},
      {"gaussian", Generate(20000, [&](int) { return At(bell(), bell()); })},
      {"grid in project coordinates",
       Generate(3600, [](int i) { return At(450000.1 + i % 60, 6500000.1 + i / 60); })},
      // Every four of them decide on a few last bits.
      {"circle", Generate(4000, [](int i) { return Polar(1000, 2e-3 * i); })},
      {"circle and its centre", Generate(500, [](int i) { return Polar(i != 0, 0.01 * i); })},
      {"clusters of very different size", Generate(9000, cluster)},
      {"ten points for every place",
       Generate(10000, [&](int) { return At(std::floor(32 * unit()), std::floor(32 * unit())); })},
      {"beside a line, at 1e4", Generate(3000, besideLine)},
      {"columns", Generate(4000, [&](int i) { return At(i % 4, unit()); })},
      {"rows", Generate(4000, [&](int i) { return At(unit(), i % 4); })},
      {"magnitudes from 1e-6 to 1e60", Generate(2000, ofAnySize)},
      {"a ring and a point", Generate(3001, ringSide)},
      // In-circle multiplies four differences: beyond 1e77 it would overflow.
      {"to 1e90", Generate(500, [&](int) { return At(1e90 * unit(), 1e90 * unit()); })},
      {"to the largest double",
       Generate(500, [&](int) { return At(1.7e308 * (2 * unit() - 1), 1.7e308 * unit()); })},
  };
  for (const auto& [name, points] : shapes) {
    SCOPED_TRACE(name);
    Check(points);
  }
}

// Small inputs on a small grid meet every base case, tie and collinear run.
TEST(Delaunay, SmallInputsOnAGridPassTheVerifier) {
  constexpr unsigned kSeed = 7;
  std::mt19937 random(kSeed);
  for (int round = 0; round < 4000; ++round) {
    const auto size = 2 + random() % 9;
    const Points points = Generate(3 + static_cast<int>(random() % 30),
                                   [&](int) { return At(random() % size, random() % size); });
    exact::Ring2 places;
    for (const TPoint& p : points) {
      places.push_back({p.x, p.y});
    }
    const std::size_t distinct = std::set<exact::Point2>(places.begin(), places.end()).size();
    const Triangulation mesh = Triangulate(points);
    if (exact::HasArea(places)) {
      Check(points, mesh);
    } else {
      EXPECT_EQ(mesh.result, distinct < 3 ? -1 : 0);
      EXPECT_EQ(mesh.vertices.size(), distinct < 3 ? 0 : distinct);
      EXPECT_TRUE(mesh.triangles.empty());
    }
    ASSERT_FALSE(HasFailure()) << "seed " << kSeed << ", round " << round;
  }
}

// (u, v), a tiny multiple and three times it: exactly on one line, while the differences are not
// exact, so that the double determinant is not 0 in most of the rounds.
TEST(Delaunay, ThreeCollinearPointsMakeNoTriangleOfRoundingNoise) {
  constexpr unsigned kSeed = 3;
  std::mt19937_64 random(kSeed);
  int noisy = 0;
  for (int round = 0; round < 1000; ++round) {
    const double u = std::ldexp(static_cast<double>(random() >> 14), -36);  // 50 bits, below 2^14
    const double v = std::ldexp(static_cast<double>(random() >> 14), -36);
    const double ax = std::ldexp(u, -5), ay = std::ldexp(v, -5);
    noisy += (3 * v - ay) * (u - ax) != (3 * u - ax) * (v - ay);
    const Triangulation mesh = Triangulate(Lines({{ax, ay}, {3 * u, 3 * v}, {u, v}}));
    ASSERT_EQ(mesh.result, 0) << "seed " << kSeed << ", round " << round;
    ASSERT_EQ(mesh.vertices.size(), 3u);
    ASSERT_TRUE(mesh.triangles.empty()) << "seed " << kSeed << ", round " << round;
  }
  EXPECT_GT(noisy, 300);
}

TEST(Delaunay, TooFewPointsGiveNothing) {
  EXPECT_EQ(Triangulate({}).result, 0);
  EXPECT_EQ(Triangulate(Lines({{0, 0}, {kNaN, 1}})).result, 0);
  EXPECT_EQ(Triangulate(Lines({{0, 0}, {1, 1}, {0, 0}, {1, 1}})).result, -1);
  EXPECT_EQ(Triangulate(Lines({{1e-160, 0}, {0, 1e-160}, {2e-160, 2e-160}})).result, -1);
  int count = 7;
  EXPECT_EQ(tri_Triangulate(-3, nullptr, &count, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 0),
            0);
  EXPECT_EQ(count, 0);
}

TEST(Delaunay, ANaNIsFoundWhereverItStandsAndReportedUnlessQuiet) {
  const Points sound = Lines({{0, 0}, {4, 0}, {0, 4}, {4, 5}, {2, 2}});
  const auto expectRefused = [](const Points& points, const char* message) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(Triangulate(points).result, -3);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), message);
  };
  for (std::size_t i = 0; i < sound.size(); ++i) {
    for (double TPoint::*coordinate : {&TPoint::x, &TPoint::y}) {
      Points points = sound;
      points[i].*coordinate = kNaN;
      expectRefused(points,
                    "**trimake, Triangulation failed due to invalid floating point number\n"
                    "           in the vertex data set. That is, an *infinite* value.\n");
    }
  }
  // Before the distinct points are counted, too.
  tri_SetQuiet(1);
  expectRefused(Lines({{1, 1}, {1, 1}, {1, kNaN}}), "");
  tri_SetQuiet(0);
  Points height = sound;
  height[2].z = kNaN;
  EXPECT_EQ(Triangulate(height).result, 0);
}

TEST(Delaunay, AnInfiniteCoordinateFailsTheBuild) {
  for (const double far : {kInfinity, -kInfinity}) {
    EXPECT_EQ(Triangulate(Lines({{0, 0}, {4, 0}, {far, 4}, {4, 5}, {2, 2}})).result, -1);
    EXPECT_EQ(Triangulate(Lines({{0, far}, {4, far}, {1, far}, {4, 5}, {2, 2}})).result, -1);
  }
}

// Neighbours need the triangles, triangles their count.
TEST(Delaunay, EveryOutputMayBeLeftOut) {
  const Points points = Lines({{0, 0}, {4, 0}, {0, 4}, {4, 5}});
  const auto triangulate = [&points](int* count, int** triangles, int** neighbours) {
    return tri_Triangulate(4, points.data(), count, nullptr, nullptr, triangles, nullptr,
                           neighbours, 0, 0);
  };
  Arrays out;
  EXPECT_EQ(triangulate(nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(triangulate(&out.triangleCount, nullptr, &out.neighbours), 0);
  EXPECT_EQ(out.triangleCount, 0);
  EXPECT_EQ(out.neighbours, nullptr);
  EXPECT_EQ(triangulate(&out.triangleCount, &out.triangles, nullptr), 0);
  EXPECT_EQ(out.triangleCount, 2);
}

// The run of a build: sorted vertices without edges.
class Runs : public HandMade {
 protected:
  void PlaceRun(std::size_t edges) {
    std::mt19937 random(5);
    Place(Generate(200, [&](int i) { return At(i / 2, i % 2 + Uniform(random)); }), edges);
  }

  // Destinations around every vertex, beginning with the lowest-numbered.
  std::vector<std::vector<int>> Rings() {
    std::vector<std::vector<int>> rings;
    for (std::size_t v = 0; v < vertices_.size(); ++v) {
      std::vector<int> ring = Around(v);
      std::rotate(ring.begin(), std::min_element(ring.begin(), ring.end()), ring.end());
      rings.push_back(ring);
    }
    return rings;
  }
};

TEST_F(Runs, ARotatedRetryFindsTheSameTrianglesAndPutsTheCoordinatesBack) {
  PlaceRun(1200);
  ASSERT_EQ(tri_Divide_Conquer(state_, 200, V(0)), 0);
  const auto expected = Rings();
  ASSERT_EQ(tri_Retry_Rotated(state_, 200, V(0)), 0);
  EXPECT_EQ(Rings(), expected);
  EXPECT_EQ(state_.retryDepth, 1);
  for (const TVertex& v : vertices_) {
    ASSERT_TRUE(v.xy[0] == v.point->x && v.xy[1] == v.point->y);
  }
}

// With half-edges for less than the triangulation every level fails and is retried, until the
// budget is gone; then nothing is retried any more, and no record is lost on the way.
TEST_F(Runs, AShortSupplyFailsWithinTheRetryBudget) {
  PlaceRun(600);
  EXPECT_EQ(tri_Divide_Conquer(state_, 200, V(0)), -1);
  EXPECT_EQ(state_.retryDepth, 25);
  state_.retryDepth = 26;
  EXPECT_EQ(tri_Retry_Rotated(state_, 200, V(0)), -1);
  EXPECT_EQ(state_.retryDepth, 26);
  state_.retryDepth = 25;
  EXPECT_EQ(tri_Retry_Rotated(state_, 60, V(0)), 0);
}

// Rings that no plane holds: every vertex is joined to all others, in the order of their numbers.
// Neighbours in a ring are a triangle at the lowest of the three, and make more than two a vertex.
TEST_F(Runs, TrianglesThatOverlapAreAllCollected) {
  constexpr int kCount = 7;
  Place(Generate(kCount, [](int i) { return At(i, i * i); }), kCount * (kCount - 1));
  Corners expected;
  for (int a = 0; a < kCount; ++a) {
    for (int b = a + 1; b < kCount; ++b) {
      Join(static_cast<std::size_t>(a), static_cast<std::size_t>(b));
      if (b + 1 < kCount) {
        expected.push_back({a + 1, b + 2, b + 1});
      }
    }
  }
  const TTriangles found = tri_Collect_Triangles(state_, V(0), kCount);
  ASSERT_GT(expected.size(), std::size_t{2 * kCount});
  ASSERT_EQ(found.count, expected.size());
  for (std::size_t t = 0; t < found.count; ++t) {
    EXPECT_TRUE(std::equal(expected[t].begin(), expected[t].end(), &found.corners.get()[3 * t]));
  }
}

// A NaN makes every test fail: the answer may be anything, but there has to be one.
TEST_F(Runs, CoordinatesThatAreNoNumbersEnd) {
  PlaceRun(1200);
  for (std::size_t i = 0; i < vertices_.size(); i += 3) {
    vertices_[i].xy[i % 2] = kNaN;
  }
  const int result = tri_Divide_Conquer(state_, 200, V(0));
  EXPECT_TRUE(result == 0 || result == -1);
}

}  // namespace
