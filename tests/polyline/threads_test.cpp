#include <gtest/gtest.h>

#include <algorithm>

#include "support/polylines.h"
#include "support/threads.h"

namespace {

using namespace rings;

// All threads ask all questions.
void ExpectTheSameFromEightThreads(const std::vector<Polyline3D>& polylines) {
  const auto ask = [&polylines] {
    std::mt19937_64 random(99);
    return Generate(40, [&](int) {
      const Polyline3D& polyline = polylines[Below(random, polylines.size())];
      return int{polyline.IsPointInside(Uniform(random, -10, 10), Uniform(random, -10, 10), 0)};
    });
  };
  const std::vector<int> answers = ExpectTheSameOnThreads(8, ask);
  EXPECT_GT(std::count(answers.begin(), answers.end(), 0), 0);
  EXPECT_GT(std::count(answers.begin(), answers.end(), 1), 0);
}

// A disc's wedge, with so many triangles around its tip that they are sorted in two tasks; pointing
// either way, so that one of the two does whichever way its points are numbered.
TEST(Threads, AskAboutPolygonsThatAreSortedInTasks) {
  std::vector<Polyline3D> wedges;
  for (const double direction : {-0.5, 2.6}) {
    wedges.push_back(OnTheGround(
        Generate(1501, [direction](int i) { return Polar(i > 0, direction + i / 1500.0); }), 10));
  }
  ExpectTheSameFromEightThreads(wedges);
}

TEST(Threads, AskManyPolylines) {
  std::mt19937_64 random(4);
  std::vector<Polyline3D> polylines;
  for (const int n : {3, 5, 11, 40, 200, 800}) {
    polylines.push_back(OnTheGround(Concave(n, random), 10));
    polylines.push_back(OnTheGround(Convex(n, random), 10));
    polylines.push_back(OnTheGround(Star(std::min(n, 50), random), 10));
  }
  ExpectTheSameFromEightThreads(polylines);
}

}  // namespace
