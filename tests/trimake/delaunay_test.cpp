#include "trimake/delaunay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "support/mesh_checker.h"
#include "trimake/divide_conquer.h"

namespace {

using namespace zyl::geometry::internal;
using mesh::Triangulate;
using mesh::Triangulation;
using Points = std::vector<TPoint>;
using Corners = std::vector<std::array<int, 3>>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Position {
  double x, y;
};

template <class X, class Y>
Position At(X x, Y y) {
  return {static_cast<double>(x), static_cast<double>(y)};
}

// Points that stand alone, without breaklines.
Points Loose(std::initializer_list<Position> positions) {
  Points points;
  for (const auto& [x, y] : positions) {
    points.push_back({x, y, 0, 1});
  }
  return points;
}

template <class Choose>
Points Generate(int n, Choose position) {
  Points points;
  for (int i = 0; i < n; ++i) {
    const Position p = position(i);
    points.push_back({p.x, p.y, 0.5 * i, 1});
  }
  return points;
}

TEST(Delaunay, ThreePointsAreOneClockwiseTriangle) {
  const Triangulation mesh = Triangulate(Loose({{0, 1}, {0, 0}, {1, 0}}));
  EXPECT_EQ(mesh.triangles, (Corners{{1, 2, 3}}));
  EXPECT_EQ(mesh.neighbours, (Corners{{0, 0, 0}}));
  EXPECT_EQ(mesh.vertices[0].y, 0);
  EXPECT_EQ(mesh.vertices[1].y, 1);
  EXPECT_EQ(mesh.vertices[2].x, 1);
}

// The merge keeps the candidate on the right: the diagonal of a square starts in its lower right.
TEST(Delaunay, ATieOnTheCircleGoesToTheRight) {
  const Triangulation mesh = Triangulate(Loose({{0, 0}, {1, 0}, {0, 1}, {1, 1}}));
  EXPECT_EQ(mesh.triangles, (Corners{{1, 4, 3}, {1, 2, 4}}));
}

TEST(Delaunay, CoincidentPointsAreOneVertexTheEarliestOfTheInput) {
  Points points = Loose({{5, 5}, {0, 0}, {9, 1}, {0, 0}, {5, 5}, {9, 1 + 1e-8}});
  points[1].z = 10;
  points[3].z = 20;
  const Triangulation mesh = Triangulate(points);
  ASSERT_EQ(mesh.vertices.size(), 3u);
  EXPECT_EQ(mesh.vertices[0].z, 10);
  EXPECT_EQ(mesh.vertices[2].y, 1);
  mesh::Check(points, mesh);
}

// Duplicates are sought along the sorted order, from the last vertex on: a row of points each
// 0.7e-8 from the one before keeps every second, not the first alone.
TEST(Delaunay, ARowOfNearPointsIsThinnedNotSwallowed) {
  Points points = Generate(9, [](int i) { return At(0.7e-8 * i, 0.0); });
  points.push_back({0, 1, 0, 1});
  EXPECT_EQ(Triangulate(points).vertices.size(), 6u);
}

struct Shape {
  const char* name;
  Points points;
};

void PrintTo(const Shape& shape, std::ostream* out) { *out << shape.name; }

std::vector<Shape> Shapes() {
  std::mt19937_64 random(20240229);  // the seed of all shapes below
  std::uniform_real_distribution<double> unit(0, 1);
  std::normal_distribution<double> bell(0, 1);
  const auto uniform = [&](int) { return At(unit(random), unit(random)); };
  const auto onCircle = [](double angle, double radius) {
    return At(radius * std::cos(angle), radius * std::sin(angle));
  };
  return {
      {"uniform", Generate(20000, uniform)},
      {"gaussian", Generate(20000, [&](int) { return At(bell(random), bell(random)); })},
      {"grid", Generate(10000, [](int i) { return At(i % 100, i / 100); })},
      {"grid in project coordinates",
       Generate(3600, [](int i) { return At(450000.1 + i % 60, 6500000.1 + i / 60); })},
      // Every four of them decide on a few last bits.
      {"circle", Generate(4000, [&](int i) { return onCircle(2e-3 * i, 1000); })},
      {"circle and its centre",
       Generate(500, [&](int i) { return i == 0 ? At(0.0, 0.0) : onCircle(0.01 * i, 1); })},
      {"clusters of very different size", Generate(9000,
                                                   [&](int i) {
                                                     const double size = std::pow(10, -(i % 7));
                                                     return At(i % 5 + size * bell(random),
                                                               i % 3 + size * bell(random));
                                                   })},
      {"ten points for every place", Generate(10000,
                                              [&](int) {
                                                return At(std::floor(32 * unit(random)),
                                                          std::floor(32 * unit(random)));
                                              })},
      // Areas below what the coordinates resolve, many of them exactly zero.
      {"beside a line, at 1e4", Generate(3000,
                                         [&](int) {
                                           const double x = 1e4 + std::floor(999 * unit(random));
                                           const int ulps = static_cast<int>(3 * unit(random));
                                           return At(x, 0.1 * x + 1.8e-12 * ulps);
                                         })},
      {"columns", Generate(4000, [&](int i) { return At(i % 4, unit(random)); })},
      {"rows", Generate(4000, [&](int i) { return At(unit(random), i % 4); })},
      {"a line and one point off it",
       Generate(1000, [](int i) { return i == 500 ? At(0.1, 7.0) : At(i / 3.0, i / 3.0); })},
      {"magnitudes from 1e-6 to 1e60", Generate(2000,
                                                [&](int) {
                                                  return At(std::pow(10, 66 * unit(random) - 6),
                                                            std::pow(10, 66 * unit(random) - 6));
                                                })},
  };
}

class DelaunayOf : public testing::TestWithParam<Shape> {};

TEST_P(DelaunayOf, PassesTheVerifier) {
  const Triangulation mesh = Triangulate(GetParam().points);
  EXPECT_FALSE(mesh.triangles.empty());
  mesh::Check(GetParam().points, mesh);
}

INSTANTIATE_TEST_SUITE_P(Shapes, DelaunayOf, testing::ValuesIn(Shapes()), [](const auto& shape) {
  std::string name = shape.param.name;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
  return name;
});

// Small inputs on a small grid meet every base case, tie and collinear run.
TEST(Delaunay, SmallInputsOnAGridPassTheVerifier) {
  constexpr unsigned kSeed = 7;
  std::mt19937 random(kSeed);
  for (int round = 0; round < 4000; ++round) {
    const int size = 2 + static_cast<int>(random() % 5);
    const Points points = Generate(3 + static_cast<int>(random() % 30), [&](int) {
      return At(static_cast<int>(random()) % size, static_cast<int>(random()) % size);
    });
    const Triangulation mesh = Triangulate(points);
    if (mesh.result == 0 && !mesh.triangles.empty()) {
      mesh::Check(points, mesh);
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
    const Triangulation mesh = Triangulate(Loose({{ax, ay}, {3 * u, 3 * v}, {u, v}}));
    ASSERT_EQ(mesh.result, 0) << "seed " << kSeed << ", round " << round;
    ASSERT_EQ(mesh.vertices.size(), 3u);
    ASSERT_TRUE(mesh.triangles.empty()) << "seed " << kSeed << ", round " << round;
  }
  EXPECT_GT(noisy, 300);
}

TEST(Delaunay, CollinearPointsGiveTheirVerticesAndNoTriangle) {
  for (const Position& step : {At(1, 0), At(0, 1), At(3, -7)}) {
    const Triangulation mesh =
        Triangulate(Generate(100, [&](int i) { return At(i * step.x, i * step.y); }));
    EXPECT_EQ(mesh.result, 0);
    EXPECT_EQ(mesh.vertices.size(), 100u);
    EXPECT_TRUE(mesh.triangles.empty());
  }
}

// A square whose lower side is drawn three times: by its ring, and by two lines along it.
TEST(Delaunay, AnEdgeListsItsSegmentsNewestFirst) {
  Points points = Loose({{0, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0}, {2, 0}, {2, 0}, {0, 0}});
  for (const std::size_t i : {1u, 2u, 3u, 4u, 5u, 7u}) {
    points[i].flag = 0;
  }
  const Triangulation mesh = Triangulate(points);
  mesh::Check(points, mesh);
  ASSERT_EQ(mesh.triangles, (Corners{{1, 4, 3}, {1, 2, 4}}));
  EXPECT_EQ(mesh.segments[0][2], (mesh::Segments{{6, 7}, {4, 5}, {0, 1}}));
  EXPECT_EQ(mesh.segments[1][0], (mesh::Segments{{3, 4}}));
  EXPECT_EQ(mesh.segments[0][0], mesh::Segments{});
}

TEST(Delaunay, TheSidesOfARingAreEdgesAndAllOthersDelaunay) {
  constexpr unsigned kSeed = 19;
  std::mt19937 random(kSeed);
  Points points = Generate(3000, [&](int i) {
    const double radius = 500 + static_cast<double>(random() % 500);
    return At(radius * std::cos(i * 6.283 / 3000), radius * std::sin(i * 6.283 / 3000));
  });
  points.push_back(points[0]);
  for (std::size_t i = 1; i < points.size(); ++i) {
    points[i].flag = 0;
  }
  mesh::Check(points, Triangulate(points));
}

TEST(Delaunay, TooFewPointsGiveNothing) {
  EXPECT_EQ(Triangulate({}).result, 0);
  EXPECT_EQ(Triangulate(Loose({{0, 0}, {kNaN, 1}})).result, 0);
  EXPECT_EQ(Triangulate(Loose({{0, 0}, {1, 1}, {0, 0}, {1, 1}})).result, -1);
  EXPECT_EQ(Triangulate(Loose({{1e-160, 0}, {0, 1e-160}, {2e-160, 2e-160}})).result, -1);
  int count = 7;
  EXPECT_EQ(tri_Triangulate(-3, nullptr, &count, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 0),
            0);
  EXPECT_EQ(count, 0);
}

TEST(Delaunay, ANaNIsFoundWhereverItStandsAndReportedUnlessQuiet) {
  const Points sound = Loose({{0, 0}, {4, 0}, {0, 4}, {4, 5}, {2, 2}});
  for (std::size_t i = 0; i < sound.size(); ++i) {
    for (double TPoint::*coordinate : {&TPoint::x, &TPoint::y}) {
      Points points = sound;
      points[i].*coordinate = kNaN;
      testing::internal::CaptureStdout();
      EXPECT_EQ(Triangulate(points).result, -3);
      EXPECT_EQ(testing::internal::GetCapturedStdout(),
                "**trimake, Triangulation failed due to invalid floating point number\n"
                "           in the vertex data set. That is, an *infinite* value.\n");
    }
  }
  // Before the distinct points are counted, too.
  tri_SetQuiet(1);
  testing::internal::CaptureStdout();
  EXPECT_EQ(Triangulate(Loose({{1, 1}, {1, 1}, {1, kNaN}})).result, -3);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  tri_SetQuiet(0);
  Points height = sound;
  height[2].z = kNaN;
  EXPECT_EQ(Triangulate(height).result, 0);
}

TEST(Delaunay, AnInfiniteCoordinateFailsTheBuild) {
  for (const double far : {kInfinity, -kInfinity}) {
    EXPECT_EQ(Triangulate(Loose({{0, 0}, {4, 0}, {far, 4}, {4, 5}, {2, 2}})).result, -1);
    EXPECT_EQ(Triangulate(Loose({{0, far}, {4, far}, {1, far}, {4, 5}, {2, 2}})).result, -1);
  }
}

// In-circle multiplies four differences: beyond 1e77 it would overflow.
TEST(Delaunay, HugeCoordinatesGiveTheTrianglesOfTheSmallOnes) {
  constexpr unsigned kSeed = 11;
  std::mt19937 random(kSeed);
  const Points points =
      Generate(500, [&](int) { return At(std::ldexp(random(), -32), std::ldexp(random(), -32)); });
  const Triangulation expected = Triangulate(points);
  for (const int exponent : {190, 300, 498, 1023}) {
    Points huge = points;
    for (TPoint& p : huge) {
      p.x = std::ldexp(p.x, exponent);
      p.y = std::ldexp(p.y, exponent);
    }
    const Triangulation mesh = Triangulate(huge);
    EXPECT_EQ(mesh.triangles, expected.triangles) << "2^" << exponent;
    EXPECT_EQ(mesh.vertices[77].x, std::ldexp(expected.vertices[77].x, exponent));
  }
}

TEST(Delaunay, EveryOutputMayBeLeftOut) {
  const Points points = Loose({{0, 0}, {4, 0}, {0, 4}, {4, 5}});
  int triangleCount = -1;
  int vertexCount = -1;
  int* triangles = nullptr;
  int* neighbours = nullptr;
  EXPECT_EQ(
      tri_Triangulate(4, points.data(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 0),
      0);
  // Neighbours need the triangles, triangles their count.
  EXPECT_EQ(tri_Triangulate(4, points.data(), &triangleCount, &vertexCount, nullptr, nullptr,
                            nullptr, &neighbours, 0, 0),
            0);
  EXPECT_EQ(triangleCount, 0);
  EXPECT_EQ(neighbours, nullptr);
  EXPECT_EQ(tri_Triangulate(4, points.data(), &triangleCount, &vertexCount, nullptr, &triangles,
                            nullptr, nullptr, 0, 0),
            0);
  EXPECT_EQ(triangleCount, 2);
  EXPECT_EQ(vertexCount, 4);
  std::free(triangles);
}

// The run of a build, laid out by hand: sorted vertices and their half-edges.
class Runs : public testing::Test {
 protected:
  explicit Runs(const Points& points) : points_(points), edges_(6 * points.size()) {
    for (std::size_t i = 0; i < points_.size(); ++i) {
      const int number = static_cast<int>(i);
      verts_.push_back({{points_[i].x, points_[i].y}, &points_[i], nullptr, number, number});
    }
    Resupply(edges_.size());
  }

  Runs() : Runs(Random()) {}

  static Points Random() {
    std::mt19937 random(5);
    Points points = Generate(200, [&](int) { return At(random() % 1000, random() % 1000); });
    std::sort(points.begin(), points.end(), [](const TPoint& a, const TPoint& b) {
      return a.x < b.x || (a.x == b.x && a.y < b.y);
    });
    return points;
  }

  void Resupply(std::size_t edges) {
    state_.freeEdges = nullptr;
    state_.unusedEdges = edges_.data();
    state_.unusedEnd = edges_.data() + edges;
  }

  int Count() const { return static_cast<int>(verts_.size()); }

  // Destinations around every vertex, beginning with the lowest-numbered.
  std::vector<std::vector<int>> Rings() const {
    std::vector<std::vector<int>> rings;
    for (const TVertex& v : verts_) {
      std::vector<int> ring{v.first->dest->number};
      for (const TEdge* e = v.first->next; e != v.first; e = e->next) {
        ring.push_back(e->dest->number);
      }
      std::rotate(ring.begin(), std::min_element(ring.begin(), ring.end()), ring.end());
      rings.push_back(ring);
    }
    return rings;
  }

  TrimakeState state_{};
  Points points_;
  std::vector<TVertex> verts_;
  std::vector<TEdge> edges_;
};

TEST_F(Runs, ARotatedRetryFindsTheSameTrianglesAndPutsTheCoordinatesBack) {
  ASSERT_EQ(tri_Divide_Conquer(state_, Count(), verts_.data()), 0);
  const auto expected = Rings();
  ASSERT_EQ(tri_Retry_Rotated(state_, Count(), verts_.data()), 0);
  EXPECT_EQ(Rings(), expected);
  EXPECT_EQ(state_.retryDepth, 1);
  for (std::size_t i = 0; i < verts_.size(); ++i) {
    ASSERT_EQ(verts_[i].xy[0], points_[i].x);
    ASSERT_EQ(verts_[i].xy[1], points_[i].y);
  }
}

// With half-edges for less than the triangulation every level fails and is retried, until the
// budget is gone; then nothing is retried any more, and no record is lost on the way.
TEST_F(Runs, AShortSupplyFailsWithinTheRetryBudget) {
  Resupply(600);
  EXPECT_EQ(tri_Divide_Conquer(state_, Count(), verts_.data()), -1);
  EXPECT_EQ(state_.retryDepth, 25);
  state_.retryDepth = 26;
  EXPECT_EQ(tri_Retry_Rotated(state_, Count(), verts_.data()), -1);
  EXPECT_EQ(state_.retryDepth, 26);
  state_.retryDepth = 25;
  EXPECT_EQ(tri_Retry_Rotated(state_, 60, verts_.data()), 0);
}

// A NaN makes every test fail: the answer may be anything, but there has to be one.
TEST_F(Runs, CoordinatesThatAreNoNumbersEnd) {
  for (std::size_t i = 0; i < verts_.size(); i += 3) {
    verts_[i].xy[i % 2] = kNaN;
  }
  const int result = tri_Divide_Conquer(state_, Count(), verts_.data());
  EXPECT_TRUE(result == 0 || result == -1);
}

}  // namespace
