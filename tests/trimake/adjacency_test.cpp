#include "trimake/adjacency.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <map>
#include <random>
#include <utility>
#include <vector>

#include "trimake/parallel_sort.h"

namespace {

using zyl::geometry::internal::tri_Build_Adjacency;
using zyl::geometry::internal::tri_Parallel_Sort;

using Triangles = std::vector<std::array<int, 3>>;
using Edge = std::pair<int, int>;

// Edge k of triangle t is the one at 3t + k.
std::vector<Edge> EdgesOf(const Triangles& triangles) {
  std::vector<Edge> edges;
  for (const std::array<int, 3>& t : triangles) {
    for (std::size_t k = 0; k < 3; ++k) {
      edges.push_back(std::minmax({t[k], t[(k + 1) % 3]}));
    }
  }
  return edges;
}

// The triangle on the other side by looking all triangles of an edge up in a map.
std::vector<int> NeighboursByMap(const Triangles& triangles) {
  const std::vector<Edge> edges = EdgesOf(triangles);
  std::map<Edge, std::vector<int>> users;
  for (std::size_t i = 0; i < edges.size(); ++i) {
    users[edges[i]].push_back(static_cast<int>(i / 3) + 1);
  }
  std::vector<int> neighbours;
  for (std::size_t i = 0; i < edges.size(); ++i) {
    const std::vector<int>& both = users[edges[i]];
    neighbours.push_back(both.size() == 2 ? both[0] + both[1] - static_cast<int>(i / 3) - 1 : 0);
  }
  return neighbours;
}

int Build(const Triangles& triangles, std::vector<int>& neighbours) {
  neighbours.assign(3 * triangles.size(), 99);
  return tri_Build_Adjacency(static_cast<int>(triangles.size()), triangles.data()->data(),
                             neighbours.data());
}

// Triangles (hub, i, i + 1) around one vertex, whose number is above or below all others.
Triangles Fan(int count, bool hubHighest) {
  Triangles fan;
  for (int i = 0; i < count; ++i) {
    fan.push_back(hubHighest ? std::array<int, 3>{count + 2, i + 1, i + 2}
                             : std::array<int, 3>{1, i + 2, i + 3});
  }
  return fan;
}

// Triangles that all have the edge 1-2.
Triangles Book(int count) {
  Triangles book;
  for (int i = 0; i < count; ++i) {
    book.push_back({1, 2, i + 3});
  }
  return book;
}

// The result is the highest vertex number, or, with an edge of three triangles, minus it.
TEST(Adjacency, TrianglesNameEachOtherAcrossTheEdgesOfTwo) {
  constexpr int kMax = 2147483647;
  const struct {
    Triangles triangles;
    std::vector<int> neighbours;
    int result;
  } cases[] = {
      {{{4, 9, 2}}, {0, 0, 0}, 9},
      {{{1, 3, 2}, {3, 4, 2}}, {0, 2, 0, 0, 0, 1}, 4},
      {{{1, 2, 3}, {2, 1, 4}, {1, 2, 5}, {5, 3, 2}}, {0, 4, 0, 0, 0, 0, 0, 4, 0, 0, 1, 3}, -5},
      {{{kMax, 7, kMax - 1}, {kMax - 1, 7, 1000}}, {0, 2, 0, 1, 0, 0}, kMax}};
  std::vector<int> neighbours;
  for (const auto& c : cases) {
    EXPECT_EQ(Build(c.triangles, neighbours), c.result);
    EXPECT_EQ(neighbours, c.neighbours);
  }
}

TEST(Adjacency, NoTrianglesWriteNothing) {
  int untouched = 77;
  EXPECT_EQ(tri_Build_Adjacency(0, nullptr, &untouched), 0);
  EXPECT_EQ(tri_Build_Adjacency(-5, nullptr, &untouched), 0);
  EXPECT_EQ(untouched, 77);
}

// Grids, fans and books, in order and shuffled, are large enough for parts to be sorted at once.
TEST(Adjacency, AgreesWithLookingEveryEdgeUp) {
  constexpr int kSide = 60;
  Triangles grid;
  for (int a = 1; a < kSide * (kSide - 1); a += a % kSide == kSide - 1 ? 2 : 1) {
    grid.push_back({a, a + kSide, a + 1});
    grid.push_back({a + 1, a + kSide, a + kSide + 1});
  }
  std::mt19937 random(20240611);
  std::vector<int> neighbours;
  for (Triangles triangles : {grid, Fan(5000, true), Fan(5000, false), Book(5000)}) {
    for (int order = 0; order < 2; ++order) {
      Build(triangles, neighbours);
      EXPECT_EQ(neighbours, NeighboursByMap(triangles));
      std::shuffle(triangles.begin(), triangles.end(), random);
    }
  }
}

// Comparisons that sorting costs, in units of n·log2(n). Each one counts, whichever thread makes
// it. The result is held against std::sort.
double CostOfSorting(std::vector<Edge> edges) {
  std::vector<Edge> expected = edges;
  std::sort(expected.begin(), expected.end());

  std::atomic<long> comparisons{0};
  const auto compare = [&comparisons](const Edge& a, const Edge& b) {
    comparisons.fetch_add(1, std::memory_order_relaxed);
    return a < b ? -1 : b < a ? 1 : 0;
  };
  tri_Parallel_Sort(edges.data(), edges.size(), compare);
  EXPECT_EQ(edges, expected);
  const double n = static_cast<double>(edges.size());
  return static_cast<double>(comparisons) / (n * std::log2(n));
}

// A book has one key for a third of its edges: a partition that puts all keys equal to the pivot on
// one side then splits off one record at a time, and needs thousands of units.
TEST(ParallelSort, NeedsNLogNComparisonsWhateverTheEdgesShare) {
  constexpr int kCount = 30000;
  std::vector<Edge> pipe = EdgesOf(Fan(kCount, true));  // up, then down again
  const std::vector<Edge> down(pipe.rbegin(), pipe.rend());
  pipe.insert(pipe.end(), down.begin(), down.end());
  const std::pair<const char*, std::vector<Edge>> lists[] = {
      {"one vertex, the highest", EdgesOf(Fan(kCount, true))},
      {"one vertex, the lowest", EdgesOf(Fan(kCount, false))},
      {"one edge", EdgesOf(Book(kCount))},
      {"all equal", std::vector<Edge>(kCount, Edge(1, 2))},
      {"up and down", pipe}};
  std::mt19937 random(7);
  for (auto [name, edges] : lists) {
    EXPECT_LT(CostOfSorting(edges), 2.0) << name;
    std::reverse(edges.begin(), edges.end());
    EXPECT_LT(CostOfSorting(edges), 2.0) << name << ", reversed";
    std::shuffle(edges.begin(), edges.end(), random);
    EXPECT_LT(CostOfSorting(edges), 2.0) << name << ", shuffled";
  }
}

TEST(ParallelSort, SortsEveryShortArrayOfFewValues) {
  std::mt19937 random(11);
  for (std::size_t n = 0; n <= 200; ++n) {
    for (const unsigned values : {1u, 2u, 3u, 1000u}) {
      std::vector<int> numbers(n);
      for (int& number : numbers) {
        number = static_cast<int>(random() % values);
      }
      std::vector<int> expected = numbers;
      std::sort(expected.begin(), expected.end());
      tri_Parallel_Sort(numbers.data(), n, [](int a, int b) { return a - b; });
      ASSERT_EQ(numbers, expected) << n << " numbers below " << values;
    }
  }
}

}  // namespace
