#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <thread>
#include <vector>

#include "support/rings.h"
#include "zyl/geometry/polyline3d.h"

namespace {

using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

constexpr std::size_t kThreads = 8;

struct Question {
  std::size_t polyline;
  Point3D point;
};

std::vector<char> Answers(const std::vector<Polyline3D>& polylines,
                          const std::vector<Question>& questions) {
  std::vector<char> answers;
  for (const Question& q : questions) {
    answers.push_back(polylines[q.polyline].IsPointInside(q.point));
  }
  return answers;
}

// All threads ask all questions, and only then does one thread alone: the first build of the
// process, too, happens on several threads at once.
void ExpectTheSameFromEightThreads(const std::vector<Polyline3D>& polylines) {
  std::mt19937_64 random(99);
  std::vector<Question> questions;
  for (int i = 0; i < 40; ++i) {
    questions.push_back({random() % polylines.size(), Point3D(rings::Uniform(random, -10, 10),
                                                              rings::Uniform(random, -10, 10), 0)});
  }
  std::vector<std::vector<char>> answers(kThreads);
  std::vector<std::thread> threads;
  for (std::vector<char>& own : answers) {
    threads.emplace_back([&] { own = Answers(polylines, questions); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  const std::vector<char> expected = Answers(polylines, questions);
  for (const std::vector<char>& own : answers) {
    EXPECT_EQ(own, expected);
  }
  EXPECT_GT(std::count(expected.begin(), expected.end(), 0), 0);
  EXPECT_GT(std::count(expected.begin(), expected.end(), 1), 0);
}

Polyline3D OnTheGround(const rings::Ring2& ring) {
  Polyline3D polyline;
  for (const rings::Point2& p : ring) {
    polyline.Add(10 * p[0], 10 * p[1], 0);
  }
  polyline.SetClosed(true);
  return polyline;
}

// A disc's wedge, with so many triangles around its tip that they are sorted in two tasks; pointing
// either way, so that one of the two does whichever way its points are numbered.
TEST(Threads, AskAboutPolygonsThatAreSortedInTasks) {
  constexpr std::size_t kCorners = 1500;
  std::vector<Polyline3D> wedges;
  for (const double direction : {-0.5, 2.6}) {
    rings::Ring2 ring = {{0, 0}};
    for (std::size_t i = 0; i < kCorners; ++i) {
      ring.push_back(rings::Polar(1, direction + static_cast<double>(i) / kCorners));
    }
    wedges.push_back(OnTheGround(ring));
  }
  ExpectTheSameFromEightThreads(wedges);
}

TEST(Threads, AskManyPolylines) {
  std::mt19937_64 random(4);
  std::vector<Polyline3D> polylines;
  for (const std::size_t n : {3u, 5u, 11u, 40u, 200u, 800u}) {
    polylines.push_back(OnTheGround(rings::Concave(n, random)));
    polylines.push_back(OnTheGround(rings::Spiral(n, random)));
    polylines.push_back(OnTheGround(rings::Star(std::min<std::size_t>(n, 50), random)));
  }
  ExpectTheSameFromEightThreads(polylines);
}

}  // namespace
