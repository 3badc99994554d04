#include "trimake/breaklines.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "predicates/predicates.h"
#include "support/mesh_checker.h"

namespace {

using namespace zyl::geometry::internal;
using mesh::Segments;
using mesh::Triangulate;
using mesh::Triangulation;
using Points = std::vector<TPoint>;

constexpr int kJoined = 0;  // to the point before
constexpr int kLoose = 1;

std::string Output() {
  std::fflush(stdout);
  return testing::internal::GetCapturedStdout();
}

// Segments along the edge between two positions, empty if there is no such edge.
Segments Along(const Triangulation& mesh, double ax, double ay, double bx, double by) {
  const auto isAt = [&](int number, double x, double y) {
    const TPoint& v = mesh.vertices[static_cast<std::size_t>(number - 1)];
    return v.x == x && v.y == y;
  };
  for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
    for (std::size_t k = 0; k < 3; ++k) {
      const int a = mesh.triangles[t][k], b = mesh.triangles[t][(k + 1) % 3];
      if ((isAt(a, ax, ay) && isAt(b, bx, by)) || (isAt(b, ax, ay) && isAt(a, bx, by))) {
        return mesh.segments[t][k];
      }
    }
  }
  return {};
}

TEST(Breaklines, AnEdgeThatIsThereIsMarked) {
  const Points points = {{0, 0, 0, kLoose}, {4, 0, 0, kJoined}, {1, 3, 0, kLoose}};
  const Triangulation mesh = Triangulate(points);
  EXPECT_EQ(mesh.vertices.size(), 3u);
  EXPECT_EQ(Along(mesh, 0, 0, 4, 0), (Segments{{0, 1}}));
  EXPECT_EQ(Along(mesh, 4, 0, 1, 3), Segments{});
  mesh::Check(points, mesh);
}

// The free diagonal of this rhomb is the short one.
TEST(Breaklines, ASegmentReplacesTheEdgesThatItCrosses) {
  const Points points = {{-3, 0, 0, kLoose}, {3, 0, 0, kJoined}, {0, 1, 0, kLoose}, {0, -1, 0, 1}};
  const Triangulation mesh = Triangulate(points);
  EXPECT_EQ(Along(mesh, -3, 0, 3, 0), (Segments{{0, 1}}));
  mesh::Check(points, mesh);
}

TEST(Breaklines, SegmentsAlongTheSameEdgeAreListedNewestFirst) {
  const Points points = {{0, 0, 0, kLoose},  {9, 0, 0, kJoined}, {6, 0, 0, kJoined},
                         {6, 0, 0, kJoined}, {3, 0, 0, kLoose},  {4, 5, 0, kLoose}};
  const Triangulation mesh = Triangulate(points);
  EXPECT_EQ(Along(mesh, 0, 0, 3, 0), (Segments{{0, 1}}));
  EXPECT_EQ(Along(mesh, 3, 0, 6, 0), (Segments{{0, 1}}));
  EXPECT_EQ(Along(mesh, 6, 0, 9, 0), (Segments{{1, 2}, {0, 1}}));  // and none from 6 to 6
  mesh::Check(points, mesh);
}

TEST(Breaklines, WhereTwoCrossTheyShareANewVertexAtTheirMeanHeight) {
  const Points points = {
      {0, 0, 0, kLoose}, {4, 4, 4, kJoined}, {0, 4, 10, kLoose}, {4, 0, 2, kJoined}};
  const Triangulation mesh = Triangulate(points);
  ASSERT_EQ(mesh.vertices.size(), 5u);
  const TPoint& crossing = mesh.vertices[4];
  EXPECT_TRUE(crossing.x == 2 && crossing.y == 2 && crossing.z == 4 && crossing.flag == 0);
  EXPECT_EQ(Along(mesh, 2, 2, 0, 0), (Segments{{0, 1}}));
  EXPECT_EQ(Along(mesh, 2, 2, 4, 4), (Segments{{0, 1}}));
  EXPECT_EQ(Along(mesh, 2, 2, 0, 4), (Segments{{2, 3}}));
  EXPECT_EQ(Along(mesh, 2, 2, 4, 0), (Segments{{2, 3}}));
  mesh::Check(points, mesh);
}

// The ends of the second segment are merged with vertices a little below and above the first, so
// that it crosses what the points say it runs parallel to.
TEST(Breaklines, ParallelsThatCrossMeetInTheMiddleOfTheOlder) {
  const Points points = {{0, 0, 0, kLoose},         {0.01, 0, 8, kJoined},
                         {0.002, -4e-9, 0, kLoose}, {0.002, 3e-9, 0, kLoose},
                         {0.008, 3e-9, 4, kJoined}, {0.005, 0.009, 0, kLoose},
                         {0.005, -0.009, 0, kLoose}};
  const Triangulation mesh = Triangulate(points);
  ASSERT_EQ(mesh.vertices.size(), 7u);
  const TPoint& crossing = mesh.vertices[6];
  EXPECT_TRUE(crossing.x == 0.005 && crossing.y == 0 && crossing.z == 3);
  mesh::Check(points, mesh);
}

TEST(Breaklines, AToleranceBendsASegmentToAVertexBesideIt) {
  const Points points = {{0, 0, 0, kLoose},
                         {10, 0, 0, kJoined},
                         {5, 0.5, 0, kLoose},
                         {5, 5, 0, kLoose},
                         {5, -5, 0, kLoose}};
  EXPECT_EQ(Along(Triangulate(points, 0.4, 0.04), 0, 0, 10, 0), (Segments{{0, 1}}));
  EXPECT_EQ(Along(Triangulate(points, 0.5, 0), 0, 0, 5, 0.5), (Segments{{0, 1}}));
  EXPECT_EQ(Along(Triangulate(points, 0, 0.06), 5, 0.5, 10, 0), (Segments{{0, 1}}));
}

// (1, 2) is on the segment, but its squared distance from it is rounded to something above zero.
TEST(Breaklines, AVertexExactlyOnASegmentIsOnItWhateverItsRoundedDistance) {
  const Points points = {{0, 0, 0, kLoose},  {3, 6, 0, kJoined},  {1, 2, 0, kLoose},
                         {-0.2, 1, 0, 1},    {1, 0.8, 0, kLoose}, {0.6, 2.6, 0, kLoose},
                         {2, 2.2, 0, kLoose}};
  const Triangulation mesh = Triangulate(points);
  EXPECT_EQ(Along(mesh, 0, 0, 1, 2), (Segments{{0, 1}}));
  EXPECT_EQ(Along(mesh, 1, 2, 3, 6), (Segments{{0, 1}}));
  mesh::Check(points, mesh);
}

// Random sets, each checked for coverage and empty circles: `place` makes the points, every
// `loose`-th of which begins a line.
template <class Place>
void CheckRandom(std::uint64_t seed, int rounds, int size, int loose, Place place) {
  std::mt19937_64 random(seed);
  for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
    SCOPED_TRACE(testing::Message() << "seed " << seed << ", round " << round);
    Points points = {{0, 0, 0, kLoose}, {1, 0, 0, kLoose}, {0, 1, 0, kLoose}};
    const int count = 1 + static_cast<int>(random() % static_cast<unsigned>(size));
    for (int i = 0; i < count; ++i) {
      TPoint p = place(random);
      p.flag = random() % static_cast<unsigned>(loose) == 0 ? kLoose : kJoined;
      points.push_back(p);
    }
    mesh::Check(points, Triangulate(points));
  }
}

double Unit(std::mt19937_64& random) { return std::uniform_real_distribution<>(0, 1)(random); }

TEST(Breaklines, CrossAtRandom) {
  CheckRandom(1, 60, 100, 2, [](auto& r) { return TPoint{Unit(r), Unit(r), Unit(r), 0}; });
}

TEST(Breaklines, CrossAsOneRing) {
  CheckRandom(2, 20, 120, 200, [](auto& r) { return TPoint{Unit(r), Unit(r), 0, 0}; });
}

// Lines overlap, run through vertices, and three at a time meet in one point that no double
// represents.
TEST(Breaklines, CrossOnSmallGrids) {
  for (const unsigned size : {4u, 7u, 30u}) {
    CheckRandom(size, 60, 60, 3, [size](auto& r) {
      return TPoint{static_cast<double>(r() % size), static_cast<double>(r() % size), 0, 0};
    });
  }
}

TEST(Breaklines, CrossAtProjectCoordinatesAndAtExtremeOnes) {
  for (const double scale : {1e-5, 1e3, 1e30, 1e150}) {
    CheckRandom(3, 20, 60, 3, [scale](auto& r) {
      return TPoint{scale * Unit(r), scale * Unit(r), 0, 0};
    });
  }
  CheckRandom(4, 40, 100, 3, [](auto& r) {
    return TPoint{450000 + 1000 * Unit(r), 6500000 + 1000 * Unit(r), 300, 0};
  });
}

// Few long segments among many loose points: deep cavities, many flips.
TEST(Breaklines, LongSegmentsLeaveEmptyCircles) {
  CheckRandom(5, 12, 4000, 1, [](auto& r) { return TPoint{Unit(r), Unit(r), 0, 0}; });
  std::mt19937_64 random(6);
  Points points;
  for (int i = 0; i < 6000; ++i) {
    points.push_back({Unit(random), Unit(random), 0, i % 300 == 0 ? kJoined : kLoose});
  }
  mesh::Check(points, Triangulate(points));
  Points band = {{0, 0, 0, kLoose}, {1000, 0, 0, kJoined}};
  for (int i = 1; i < 4000; ++i) {
    band.push_back({0.25 * i, (i % 2 ? 0.1 : -0.1) + Unit(random) * (i % 2 ? 1 : -1), 0, kLoose});
  }
  mesh::Check(band, Triangulate(band));
}

Points Lens(int count) {
  Points points = {{0, 0, 0, kLoose}, {1000, 0, 0, kJoined}};
  for (int i = 1; i < count; ++i) {
    const double x = 1000.0 * i / count;
    points.push_back({x, (i % 2 ? 1e-5 : -1e-5) * (x * (1000 - x) + 100), 0, kLoose});
  }
  return points;
}

void* CheckLens(void*) {
  const Points points = Lens(20000);
  mesh::Check(points, Triangulate(points));
  return nullptr;
}

// The chord of a lens of many points: each side is filled from its ends inwards, vertex by vertex,
// which a small stack must be enough for.
TEST(Breaklines, ALongCavityNeedsNoDeepStack) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, 256 * 1024);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, CheckLens, nullptr), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

// Heights of about 1 over a base of 1e9: their squares are less than what the squared distances
// along the base lose by rounding. A vertex taken for the closest that is not turns a triangle.
TEST(Breaklines, TheClosestVertexIsFoundBelowTheRoundingOfItsHeight) {
  CheckRandom(7, 40, 60, 1, [](auto& r) {
    const double x = 1e9 * Unit(r);
    return TPoint{x, 0.5 * x + 4 * Unit(r) - 2, 0, 0};
  });
  std::mt19937_64 random(8);
  Points points = {{0, 0, 0, kLoose}, {1e9, 7e8, 0, kJoined}};
  for (int i = 0; i < 400; ++i) {
    const double x = 1e9 * Unit(random);
    points.push_back({x, 0.7 * x + 2 * Unit(random) - 1, 0, kLoose});
  }
  mesh::Check(points, Triangulate(points));
}

// More spokes than make a hub, among them the ones that inner points hide from the Delaunay edges;
// their direction is looked for from the outer end.
TEST(Breaklines, AHubKeepsAllItsSpokes) {
  std::mt19937_64 random(9);
  Points points = {{0, 0, 0, kLoose}};
  for (int i = 0; i < 600; ++i) {
    const double angle = 0.01 * i, radius = i % 2 ? 1000 : 100 + Unit(random);
    points.push_back({radius * std::cos(angle), radius * std::sin(angle), 0, kLoose});
    points.push_back({0, 0, 0, kJoined});
  }
  mesh::Check(points, Triangulate(points));
}

// Rings that run back along themselves, turned by an angle, so that what was one line is several,
// apart by the last bits. Crossing points of such lines, rounded, are as a rule outside the
// triangles around them.
TEST(Breaklines, SpikesThatRunBackOnThemselvesTurnNoTriangle) {
  const std::uint64_t seed = 11;
  std::mt19937_64 random(seed);
  for (int round = 0; round < 600 && !HasFailure(); ++round) {
    SCOPED_TRACE(testing::Message() << "seed " << seed << ", round " << round);
    Points points;
    const int corners = 5 + static_cast<int>(random() % 25);
    for (int i = 0; i < corners; ++i) {
      const double angle = 6.28 * i / corners, radius = 500 + 500 * Unit(random);
      points.push_back({radius * std::cos(angle), radius * std::sin(angle), 0, kJoined});
      for (std::uint64_t back = random() % 9; i > 0 && back < 3; ++back) {
        const TPoint& a = points[points.size() - 2];
        const TPoint& b = points.back();
        const double u = random() % 2 ? Unit(random) : static_cast<double>(random() % 9) / 8;
        points.push_back({b.x + u * (a.x - b.x), b.y + u * (a.y - b.y), 0, kJoined});
      }
    }
    points.push_back(points[0]);
    const double turn = Unit(random);
    for (TPoint& p : points) {
      const double x = p.x * std::cos(turn) - p.y * std::sin(turn);
      p.y = p.x * std::sin(turn) + p.y * std::cos(turn);
      p.x = x;
    }
    mesh::Check(points, Triangulate(points));
  }
}

// Segments along one line, all off it by the last bits of their ends: crossing points fall outside
// the triangles around them. Every pair crosses at most once; without a bound one set of 32 points
// grew to 395 197 vertices.
TEST(Breaklines, NearlyCollinearSegmentsEnd) {
  tri_SetQuiet(1);
  for (std::uint64_t seed = 0; seed < 300; ++seed) {
    std::mt19937_64 random(seed);
    const double ax = Unit(random), ay = Unit(random), bx = Unit(random), by = Unit(random);
    Points points;
    std::size_t segments = 0;
    for (int i = 0; i < 40; ++i) {
      const double t = i < 30 ? Unit(random) : 0;
      points.push_back({ax + t * (bx - ax), ay + t * (by - ay), 0, static_cast<int>(random() % 2)});
      if (i >= 30) {
        points.back() = {Unit(random), Unit(random), 0, points.back().flag};
      }
      segments += i > 0 && points.back().flag == kJoined;
    }
    const Triangulation mesh = Triangulate(points);
    EXPECT_EQ(mesh.result, 0);
    EXPECT_LE(mesh.vertices.size(), points.size() + segments * segments / 2) << "seed " << seed;
  }
  tri_SetQuiet(0);
}

// Vertices and edges put together by hand, as no construction would leave them.
class DamagedRings : public testing::Test {
 protected:
  DamagedRings() {
    exactinit();
    edges_.resize(1000);
    state_.unusedEdges = edges_.data();
    state_.unusedEnd = edges_.data() + edges_.size();
    state_.chain = &chain_;
    state_.flips = &flips_;
  }

  ~DamagedRings() override {
    tri_Free_TIndex_Hunks(state_);
    tri_Free_TInfo_Hunks(state_);
    tri_Free_Vertex_Hunks(state_);
    std::free(chain_.data);
    std::free(flips_.data);
  }

  void Place(std::initializer_list<TPoint> points) {
    points_ = points;
    vertices_.clear();
    identity_.clear();
    for (int i = 0; i < static_cast<int>(points_.size()); ++i) {
      const TPoint& p = points_[static_cast<std::size_t>(i)];
      vertices_.push_back({{p.x, p.y}, &p, nullptr, i, i});
      identity_.push_back(i);
    }
    state_.points = points_.data();
    state_.vertexCount = state_.pointCount = static_cast<int>(points_.size());
  }

  // Each new half-edge goes to the end of its ring.
  TEdge* Join(std::size_t a, std::size_t b) {
    const auto last = [](const TVertex& v) { return v.first ? v.first->prev : nullptr; };
    TVertex &va = vertices_[a], &vb = vertices_[b];
    return tri_Make_Edge(state_, &va, &vb, last(va), last(vb), false, false).edge;
  }

  void LegaliseAround(std::size_t v) { tri_Legalise_Around(state_, &vertices_[v]); }

  int Insert() {
    return tri_Insert_Breaklines(state_, static_cast<int>(points_.size()), identity_.data(),
                                 identity_.data(), vertices_.data());
  }

  TrimakeState state_{};
  TArray chain_{0, 0, sizeof(TChainEntry), 10, nullptr};
  TArray flips_{0, 0, sizeof(TEdge*), 10, nullptr};
  std::vector<TEdge> edges_;
  Points points_;
  std::vector<TVertex> vertices_;
  std::vector<int> identity_;
};

TEST_F(DamagedRings, ASegmentWithoutAWayFailsAndIsReported) {
  Place({{0, 0, 0, kLoose}, {9, 0, 0, kLoose}, {0, 3, 0, kLoose}, {9, 3, 0, kJoined}});
  Join(0, 1);
  Join(1, 2);
  Join(2, 0);
  testing::internal::CaptureStdout();
  EXPECT_EQ(Insert(), -1);
  EXPECT_EQ(Output(), "**trimake, Error inserting breakline\n");
  state_.quiet = true;
  testing::internal::CaptureStdout();
  EXPECT_EQ(Insert(), -1);
  EXPECT_EQ(Output(), "");
}

// All rings of ten points in an order that has nothing to do with their places. Whatever is looked
// for, nothing is removed without a corridor of triangles that leads to the end, and every walk
// ends.
TEST_F(DamagedRings, RandomOnesFailWithoutHangingOrLosingEdges) {
  state_.quiet = true;
  std::mt19937_64 random(10);
  Place({{0, 0, 0, 1},
         {5, 1, 0, 0},
         {9, 0, 0, 0},
         {1, 4, 0, 0},
         {6, 5, 0, 0},
         {9, 4, 0, 0},
         {0, 9, 0, 0},
         {4, 8, 0, 0},
         {9, 9, 0, 0},
         {3, 3, 0, 0}});
  for (int round = 0; round < 3000; ++round) {
    state_.unusedEdges = edges_.data();
    state_.unusedEnd = edges_.data() + 52;  // hardly more than are used below
    state_.freeEdges = nullptr;
    for (TVertex& v : vertices_) {
      v.first = nullptr;
    }
    for (int i = 0; i < 25; ++i) {
      const std::size_t a = random() % 10, b = random() % 10;
      if (a != b) {
        Join(a, b);
      }
    }
    state_.vertexCount = state_.pointCount = 10;
    Insert();
    EXPECT_LT(state_.vertexCount, 1000);
    for (const TVertex& v : vertices_) {
      const TEdge* e = v.first;
      for (int i = 0; e != nullptr && i < 100; ++i, e = e->next) {
        ASSERT_EQ(e->twin->twin, e);
        ASSERT_EQ(e->next->prev, e);
      }
    }
  }
}

// Beyond the triangle 0, 1, 2 is one that is turned over, whose corner is in the circle but not
// across the edge.
TEST_F(DamagedRings, AFlipThatWouldTurnATriangleIsRefused) {
  Place({{0, 0, 0, 1}, {4, 0, 0, 1}, {2, 3, 0, 1}, {4, 1.5, 0, 1}});
  Join(0, 3);
  const TEdge* const edge = Join(0, 1);
  Join(0, 2);
  Join(1, 3);
  Join(1, 2);
  LegaliseAround(2);
  EXPECT_EQ(edge->dest, &vertices_[1]);
}

// The in-circle value of a square of this size is inf − inf, which is no reason to flip.
TEST_F(DamagedRings, AnInCircleValueThatIsNoNumberFlipsNothing) {
  Place({{0, 0, 0, 1}, {1e160, 0, 0, 1}, {1e160, 1e160, 0, 1}, {0, 1e160, 0, 1}});
  Join(0, 1);
  const TEdge* const diagonal = Join(0, 2);
  Join(0, 3);
  Join(1, 2);
  Join(2, 3);
  LegaliseAround(1);
  EXPECT_EQ(diagonal->dest, &vertices_[2]);
}

// The chain over the base 0-3 has its two inner vertices at one height.
TEST_F(DamagedRings, OfEqualHeightsTheFirstIsJoinedToBothEnds) {
  for (const bool isExtended : {false, true}) {
    state_.extendedFallback = isExtended;
    Place({{0, 0, 0, 1}, {1, 2, 0, 1}, {3, 2, 0, 1}, {4, 0, 0, 1}});
    const TEdge* const sides[] = {Join(0, 1), Join(1, 2), Join(2, 3)};
    TChainEntry chain[] = {{&vertices_[0], sides[0]->twin->twin},
                           {&vertices_[1], sides[0]->twin},
                           {&vertices_[2], sides[1]->twin},
                           {&vertices_[3], sides[2]->twin}};
    EXPECT_EQ(tri_Fill_Chain(state_, 4, chain), 0);
    EXPECT_EQ(chain[3].edge->dest, &vertices_[1]);
  }
}

// A below, P above, L-R across between them: the walk from A to P has L on its left and cuts L-R.
TEST_F(DamagedRings, CuttingABreaklineIsReportedOnce) {
  enum { A, L, R, P };
  Place({{0, -4, 0, 1}, {-3, 0, 1.5, 1}, {3, 0, 2, 1}, {0, 4, 0, 1}});
  TEdge* cut = Join(L, R);
  TEdge* const e = Join(A, R);
  Join(L, P);
  Join(R, P);
  Join(A, L);
  const auto collect = [&] {
    tri_Mark_Edge(state_, cut);
    state_.chain->Drop(state_.chain->count);
    TVertex* end = nullptr;
    int count = 0;
    TChainEntry* list = nullptr;
    EXPECT_EQ(tri_Collect_Chain(state_, true, &vertices_[A], e, &vertices_[P], &end, &count, &list),
              0);
    ASSERT_EQ(count, 3);
    EXPECT_EQ(list[1].vertex, &vertices_[L]);
    EXPECT_EQ(list[1].edge->dest, &vertices_[A]);
    EXPECT_EQ(list[1].edge->next->dest, &vertices_[P]);
  };
  testing::internal::CaptureStdout();
  collect();
  cut = Join(L, R);
  collect();
  EXPECT_EQ(Output(),
            "**trimake, Warning crossing breaklines\n"
            "           Check point (-3.000000,0.000000,1.500000)\n"
            "           &           (3.000000,0.000000,2.000000)\n");
}

}  // namespace
