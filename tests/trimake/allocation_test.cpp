#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "support/failing_allocator.h"
#include "trimake/delaunay.h"

namespace {

using namespace zyl::geometry::internal;
using faults::FailAllocation;
using faults::LiveBlocks;
using Points = std::vector<TPoint>;

Points Uniform(int n) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> coordinate(0, 1000);
  Points points;
  for (int i = 0; i < n; ++i) {
    const double x = coordinate(random);
    points.push_back({x, coordinate(random), 0, 1});
  }
  return points;
}

// A star whose sides all cross, drawn twice: vertices are made for the crossings, and lists and
// longer lists for the sides.
Points StarTwice(int n) {
  Points points;
  for (int i = 0; i <= 2 * n; ++i) {
    const double angle = 6.283185307179586 * (n / 2) * (i % n) / n;
    points.push_back({std::cos(angle), std::sin(angle), 0, 0});
  }
  return points;
}

struct Outputs {
  int triangleCount = -1;
  int vertexCount = -1;
  TPoint* vertices = nullptr;
  int* triangles = nullptr;
  void* edgeInfo = nullptr;
  int* neighbours = nullptr;

  ~Outputs() {
    std::free(vertices);
    std::free(triangles);
    std::free(edgeInfo);
    std::free(neighbours);
  }

  int Triangulate(const Points& points) {
    return tri_Triangulate(static_cast<int>(points.size()), points.data(), &triangleCount,
                           &vertexCount, &vertices, &triangles, &edgeInfo, &neighbours, 0, 0);
  }

  bool AreEmpty() const {
    return triangleCount == 0 && vertexCount == 0 && vertices == nullptr && triangles == nullptr &&
           edgeInfo == nullptr && neighbours == nullptr;
  }
};

// The message that the k-th allocation leads to, failing alone or with all that follow; empty once
// the build has no k-th allocation.
std::string MessageOfFailure(const Points& points, long k, bool andAllLater) {
  int result = 0;
  bool hasFailed = false;
  bool isEmpty = false;
  testing::internal::CaptureStderr();
  {
    Outputs out;
    const FailAllocation failure(k, andAllLater);
    result = out.Triangulate(points);
    hasFailed = failure.HasFailed();
    isEmpty = out.AreEmpty();
  }
  const std::string message = testing::internal::GetCapturedStderr();
  EXPECT_EQ(result, hasFailed ? -1 : 0) << "allocation " << k;
  EXPECT_EQ(isEmpty, hasFailed) << "allocation " << k;
  return message;
}

// Once and for all makes the task runtime take the memory that it keeps.
class Allocation : public testing::Test {
 protected:
  static void SetUpTestSuite() { Outputs().Triangulate(Uniform(10000)); }
};

TEST_F(Allocation, EveryFailureIsReportedLeaksNothingAndLeavesNoOutput) {
  const char* const known[] = {
      "tri_Create_Delaunay: out of memory\n", "tri_Create_Hunk: out of memory\n",
      "tri_Create_TIndex_Hunk: out or memory\n", "tri_Create_TInfo_Hunk: out of memory\n",
      "tri_Triangulate: out of memory\n"};
  std::vector<int> seen(std::size(known));
  tri_SetQuiet(1);
  for (const Points& points : {Uniform(300), StarTwice(31)}) {
    faults::ForEveryAllocation([&](long k, bool all) {
      const std::string message = MessageOfFailure(points, k, all);
      const auto which = std::find(std::begin(known), std::end(known), message);
      if (which != std::end(known)) {
        ++seen[static_cast<std::size_t>(which - std::begin(known))];
      }
      EXPECT_TRUE(message.empty() || which != std::end(known)) << message;
      return !message.empty();
    });
  }
  tri_SetQuiet(0);
  for (std::size_t i = 0; i < std::size(known); ++i) {
    EXPECT_GT(seen[i], 0) << known[i];
  }
}

TEST_F(Allocation, ABuildTakesAtMost400BytesAPointBesideItsOutputs) {
  constexpr int kCount = 50000;
  Points ring = Uniform(kCount);
  for (int i = 0; i < kCount; ++i) {
    const double angle = 6.283185307179586 * i / kCount;
    const double radius = 2000 + ring[static_cast<std::size_t>(i)].x;
    ring[static_cast<std::size_t>(i)] = {radius * std::cos(angle), radius * std::sin(angle), 0, 0};
  }
  for (const Points& points : {Uniform(kCount), ring}) {
    const long before = LiveBlocks();
    {
      Outputs out;
      faults::ResetPeak();
      ASSERT_EQ(out.Triangulate(points), 0);
      const long peak = faults::PeakBytes();
      faults::ResetPeak();
      const long outputs =
          static_cast<long>(sizeof(TPoint)) * out.vertexCount +
          static_cast<long>(6 * sizeof(int) + 3 * sizeof(TEdgeInfo)) * out.triangleCount;
      EXPECT_LE(peak, 400L * kCount + outputs);
      EXPECT_GT(peak, 100L * kCount);
    }
    EXPECT_EQ(LiveBlocks(), before);
  }
}

}  // namespace
