#include "trimake/adjacency.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <map>
#include <numeric>
#include <utility>

#include "support/generate.h"
#include "trimake/parallel_sort.h"

namespace {

using zyl::geometry::internal::tri_Build_Adjacency;
using zyl::geometry::internal::tri_Parallel_Sort;

using Triangles = std::vector<std::array<int, 3>>;

// The triangle on the other side by looking all triangles of an edge up in a map.
std::vector<int> NeighboursByMap(const Triangles& triangles) {
  std::map<std::pair<int, int>, std::vector<int>> sides;
  for (std::size_t i = 0; i < 3 * triangles.size(); ++i) {
    const auto& t = triangles[i / 3];
    sides[std::minmax(t[i % 3], t[(i + 1) % 3])].push_back(static_cast<int>(i));
  }
  std::vector<int> neighbours(3 * triangles.size(), 0);
  for (const auto& [edge, both] : sides) {
    if (both.size() == 2) {
      neighbours[static_cast<std::size_t>(both[0])] = both[1] / 3 + 1;
      neighbours[static_cast<std::size_t>(both[1])] = both[0] / 3 + 1;
    }
  }
  return neighbours;
}

int Build(const Triangles& triangles, std::vector<int>& neighbours) {
  neighbours.assign(3 * triangles.size(), 99);
  return tri_Build_Adjacency(static_cast<int>(triangles.size()), triangles.data()->data(),
                             neighbours.data());
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

// In order and shuffled, and large enough for parts to be sorted at once.
TEST(Adjacency, AgreesWithLookingEveryEdgeUp) {
  const auto quads = [](int i) {
    const int a = i / 2 + i / 118 + 1;  // 59 squares in a row of 60 vertices
    return i % 2 == 0 ? std::array<int, 3>{a, a + 60, a + 1}
                      : std::array<int, 3>{a + 1, a + 60, a + 61};
  };
  const auto hubHighest = [](int i) { return std::array<int, 3>{5002, i + 1, i + 2}; };
  const auto hubLowest = [](int i) { return std::array<int, 3>{1, i + 2, i + 3}; };
  const auto oneEdge = [](int i) { return std::array<int, 3>{1, 2, i + 3}; };
  std::mt19937 random(20240611);
  std::vector<int> neighbours;
  for (Triangles triangles : {Generate(6962, quads), Generate(5000, hubHighest),
                              Generate(5000, hubLowest), Generate(5000, oneEdge)}) {
    for (int order = 0; order < 2; ++order) {
      Build(triangles, neighbours);
      EXPECT_EQ(neighbours, NeighboursByMap(triangles));
      std::shuffle(triangles.begin(), triangles.end(), random);
    }
  }
}

// Comparisons that sorting costs, in units of n·log2(n), whichever thread makes them.
double CostOfSorting(std::vector<int> numbers) {
  std::vector<int> expected = numbers;
  std::sort(expected.begin(), expected.end());
  std::atomic<int> comparisons{0};
  tri_Parallel_Sort(numbers.data(), numbers.size(), [&comparisons](int a, int b) {
    ++comparisons;
    return a - b;
  });
  EXPECT_EQ(numbers, expected);
  const double n = static_cast<double>(numbers.size());
  return comparisons / (n * std::log2(n));
}

// A partition that puts all numbers equal to the pivot on one side splits off one at a time, and
// needs thousands of units.
TEST(ParallelSort, NeedsNLogNComparisonsInWhateverOrder) {
  constexpr int kCount = 60000;
  const std::pair<const char*, std::vector<int>> lists[] = {
      {"all equal", Generate(kCount, [](int) { return 1; })},
      {"every third equal", Generate(kCount, [](int i) { return i % 3 == 0 ? 1 : i; })},
      {"up", Generate(kCount, [](int i) { return i; })},
      {"up and down", Generate(kCount, [](int i) { return std::min(i, kCount - i); })}};
  std::mt19937 random(7);
  for (auto [name, numbers] : lists) {
    EXPECT_LT(CostOfSorting(numbers), 2.0) << name;
    std::reverse(numbers.begin(), numbers.end());
    EXPECT_LT(CostOfSorting(numbers), 2.0) << name << ", reversed";
    std::shuffle(numbers.begin(), numbers.end(), random);
    EXPECT_LT(CostOfSorting(numbers), 2.0) << name << ", shuffled";
  }
}

// After M. D. McIlroy, "A Killer Adversary for Quicksort" (1999): numbers are fixed no earlier than
// they are compared, the pivot among the least. Pivots that only sample the records split off a few
// each time, which here takes 16 units. So few records stay on one thread.
TEST(ParallelSort, NeedsNLogNComparisonsAgainstAnAdversary) {
  constexpr std::size_t kCount = 1000;
  constexpr int kOpen = 9999;
  std::vector<int> values(kCount, kOpen);
  std::vector<std::size_t> records(kCount);
  std::iota(records.begin(), records.end(), 0u);
  int comparisons = 0, fixed = 0;
  std::size_t pivot = 0;
  tri_Parallel_Sort(records.data(), kCount, [&](std::size_t a, std::size_t b) {
    ++comparisons;
    if (values[a] == kOpen && values[b] == kOpen) {
      values[a == pivot ? a : b] = fixed++;
    }
    pivot = values[a] == kOpen ? a : values[b] == kOpen ? b : pivot;
    return values[a] - values[b];
  });
  EXPECT_LT(comparisons, 8 * kCount * std::log2(kCount));
}

TEST(ParallelSort, SortsEveryShortArrayOfFewValues) {
  std::mt19937 random(11);
  for (int n = 0; n <= 200; ++n) {
    for (const double values : {1, 2, 3, 1000}) {
      SCOPED_TRACE(testing::Message() << n << " numbers below " << values);
      CostOfSorting(Generate(n, [&](int) { return static_cast<int>(Uniform(random, 0, values)); }));
    }
  }
}

}  // namespace
