#include <gtest/gtest.h>

#include <map>
#include <string>

#include "support/failing_allocator.h"
#include "support/triangulation.h"

namespace {

using namespace mesh;
using zyl::geometry::internal::tri_SetQuiet;

Points Field(int n) {
  std::mt19937 random(3);
  return Generate(n, [&](int) {
    return TPoint{Uniform(random, 0, 1000), Uniform(random, 0, 1000), 0, kLoose};
  });
}

// A star whose sides all cross, drawn twice: vertices are made for the crossings, and lists and
// longer lists for the sides.
Points StarTwice(int n) {
  return Generate(2 * n + 1,
                  [n](int i) { return Polar(1, kTurn * (n / 2) * (i % n) / n, kJoined); });
}

class Allocation : public testing::Test {
 protected:
  Allocation() { Triangulate(Field(10000)); }  // makes the task runtime take what it keeps
};

TEST_F(Allocation, EveryFailureIsReportedLeaksNothingAndLeavesNoOutput) {
  std::map<std::string, int> timesSeen = {{"tri_Create_Delaunay: out of memory\n", 0},
                                          {"tri_Create_Hunk: out of memory\n", 0},
                                          {"tri_Create_TIndex_Hunk: out or memory\n", 0},
                                          {"tri_Create_TInfo_Hunk: out of memory\n", 0},
                                          {"tri_Triangulate: out of memory\n", 0}};
  tri_SetQuiet(1);
  for (const Points& points : {Field(300), StarTwice(31)}) {
    faults::ForEveryAllocation([&](long k, bool all) {
      testing::internal::CaptureStderr();
      Arrays out;
      faults::FailAllocation failure(k, all);
      const int result = out.Triangulate(points);
      const bool hasFailed = failure.End();
      const std::string message = testing::internal::GetCapturedStderr();
      EXPECT_EQ(result, hasFailed ? -1 : 0) << "allocation " << k;
      EXPECT_EQ(out.AreEmpty(), hasFailed) << "allocation " << k;
      const auto known = timesSeen.find(message);
      EXPECT_EQ(known != timesSeen.end(), hasFailed) << message;
      if (known != timesSeen.end()) {
        ++known->second;
      }
      return hasFailed;
    });
  }
  tri_SetQuiet(0);
  for (const auto& [message, times] : timesSeen) {
    EXPECT_GT(times, 0) << message;
  }
}

TEST_F(Allocation, ABuildTakesAtMost400BytesAPointBesideItsOutputs) {
  constexpr int kCount = 50000;
  const Points field = Field(kCount);
  const auto onRing = [&](int i) {
    return Polar(2000 + field[static_cast<std::size_t>(i)].x, kTurn * i / kCount, kJoined);
  };
  for (const Points& points : {field, Generate(kCount, onRing)}) {
    const long before = faults::LiveBytes();
    {
      Arrays out;
      faults::ResetPeak();
      ASSERT_EQ(out.Triangulate(points), 0);
      const long outputs = faults::LiveBytes() - before;
      EXPECT_LE(faults::PeakBytes() - before, 400L * kCount + outputs);
      EXPECT_GT(faults::PeakBytes() - before, 100L * kCount);
    }
    EXPECT_EQ(faults::LiveBytes(), before);
  }
}

}  // namespace
