#include "zyl/geometry/enclosing_circle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <set>

#include "support/generate.h"
#include "support/smallest_circle.h"
#include "zyl/geometry/polyline3d.h"

namespace {

using namespace zyl::geometry;
using Points = std::vector<Point3D>;

double Distance(const EncCircle& circle, const Point3D& p) {
  const double dx = p.x - circle.x, dy = p.y - circle.y;
  return std::sqrt(dy * dy + dx * dx);
}

void ExpectCircle(const EncCircle& circle, double x, double y, double radius) {
  EXPECT_DOUBLE_EQ(circle.x, x);
  EXPECT_DOUBLE_EQ(circle.y, y);
  EXPECT_DOUBLE_EQ(circle.radius, radius);
}

TEST(SmallestEnclosingCircle, OfArraysDropsAClosingPoint) {
  double x[] = {0, 4, 0}, y[] = {0, 2, 0}, z[] = {1, 1, 1};
  const Points points = {{0, 0, 1}, {4, 2, 1}, {0, 0, 1}};
  for (const EncCircle& circle :
       {SmallestEnclosingCircle(3, x, y, z), SmallestEnclosingCircle(3, points.data()),
        SmallestEnclosingCircle(Polyline3D(points))}) {
    ExpectCircle(circle, 2, 1, std::sqrt(5.0));
  }
  ExpectCircle(SmallestEnclosingCircle(0, nullptr), 0, 0, 0);
  ExpectCircle(SmallestEnclosingCircle(Points{}), 0, 0, 0);
}

// A point set of one of six shapes about the size of 1, moved by `offset`.
Points Draw(int shape, int count, double offset, std::mt19937_64& random) {
  std::uniform_real_distribution<double> unit(-1, 1);
  Points points;
  for (int i = 0; i < count; ++i) {
    const double angle = 3.14159265358979 * unit(random);
    const double noise[] = {0, 1e-10, 1e-8};
    const double r = 1 + noise[shape % 3] * unit(random);
    Point3D p(r * std::cos(angle), r * std::sin(angle), unit(random));
    if (shape == 3) {  // spread out
      p = {unit(random), unit(random), 0};
    } else if (shape == 4) {  // hardly outside the circle over the first two
      const double e = 1e-8 * unit(random);
      p = i < 2 ? Point3D(2 * i - 1, 0, 0) : Point3D(10 * e, (i % 2 == 0 ? 1 : -1) * (1 + e), 0);
    } else if (shape == 5) {  // a grid with many repetitions
      p = {std::floor(4 * unit(random)), std::floor(4 * unit(random)), 0};
    }
    points.emplace_back(p.x + offset, p.y + 0.7 * offset, p.z);
  }
  return points;
}

TEST(SmallestEnclosingCircle, IsThatOfAnExactSearchThroughAllPairsAndTriples) {
  std::mt19937_64 random(40);
  for (const double offset : {0.0, 1.0, 1e4, 1e6, 1e7}) {
    for (int run = 0; run < 300; ++run) {
      SCOPED_TRACE(testing::Message() << "seed 40, " << offset << ' ' << run);
      const Points points = Draw(run % 6, run % 25 == 0 ? 24 : 1 + run % 8, offset, random);
      const EncCircle circle = SmallestEnclosingCircle(points);
      const double ulp = std::nextafter(offset + 1, 1e300) - (offset + 1);
      const double promised = 64 * ulp + 1e-9 * circle.radius;
      ASSERT_NEAR(circle.radius, exact::SmallestRadius(points), promised);
      for (const Point3D& p : points) {
        ASSERT_LE(Distance(circle, p), circle.radius + promised);
      }
    }
  }
}

// The plain iteration: the largest of the four circles, and the farthest point for the one that
// circle leaves out. False if it would never end.
bool PlainIteration(const Points& p, EncCircle& circle) {
  const auto first = [&p](auto value) {  // of those of least value
    return std::min_element(p.begin(), p.end(), [value](const Point3D& a, const Point3D& b) {
      return value(a) < value(b);
    });
  };
  std::array<Points::const_iterator, 4> s = {
      first([](const Point3D& q) { return q.x; }), first([](const Point3D& q) { return -q.x; }),
      first([](const Point3D& q) { return q.y; }), first([](const Point3D& q) { return -q.y; })};
  std::set<std::array<Points::const_iterator, 4>> seen;
  while (seen.insert(s).second) {
    circle.radius = 0;
    std::size_t spare = 0;
    for (std::size_t i = 0; i < 4; ++i) {
      Points three = {*s[0], *s[1], *s[2], *s[3]};
      three.erase(three.begin() + static_cast<std::ptrdiff_t>(i));
      const EncCircle candidate = SmallestEnclosingCircle(three);
      if (candidate.radius > circle.radius) {
        circle = candidate;
        spare = i;
      }
    }
    const auto farthest = first([&circle](const Point3D& q) { return -Distance(circle, q); });
    if (Distance(circle, *farthest) <= circle.radius * 1.00000000001) {
      return true;
    }
    s[spare] = farthest;
  }
  return false;
}

// Whether the plain iteration ends, and then its answer is expected to the last bit.
bool ExpectPlain(const Points& points) {
  EncCircle plain;
  const bool ends = PlainIteration(points, plain);
  const EncCircle circle = SmallestEnclosingCircle(points);
  EXPECT_TRUE(!ends ||
              (circle.x == plain.x && circle.y == plain.y && circle.radius == plain.radius));
  return ends;
}

TEST(SmallestEnclosingCircle, IsThatOfThePlainIterationBitForBitWhereThatEnds) {
  std::mt19937_64 random(41);
  int ended = 0;
  for (const double offset : {0.0, 1e4, 1e7, 1e13, 1e15}) {
    for (int run = 0; run < 1200; ++run) {
      ended += ExpectPlain(Draw(run % 6, 4 + run % 30, offset, random));
      ASSERT_FALSE(HasFailure()) << "seed 41, " << offset << ' ' << run;
    }
  }
  EXPECT_GT(ended, 3000);
  EXPECT_LT(ended, 6000);
}

// Of two points equally far, whose squared distances differ by rounding, the first is taken.
TEST(SmallestEnclosingCircle, TakesTheFirstOfPointsEquallyFar) {
  EXPECT_TRUE(ExpectPlain(
      {{2, 0, 0}, {2, 4, 0}, {2, 0, 0}, {3, 0, 0}, {4, 2, 0}, {1, 2, 0}, {0, 1, 0}, {0, 3, 0}}));
}

TEST(SmallestEnclosingCircle, AnswersWhateverTheCoordinates) {
  const double values[] = {0,      1,    -1,       1e-300,    1e154,      1e300, -1e308,
                           5e-324, 1e16, 1e16 + 2, kInfinity, -kInfinity, kNaN};
  std::mt19937_64 random(42);
  for (int run = 0; run < 20000; ++run) {
    Points points(1 + random() % 8);
    for (Point3D& p : points) {
      p = {values[random() % std::size(values)], values[random() % std::size(values)], 0};
    }
    SmallestEnclosingCircle(points);  // ends
  }
  const Points one = {{1, 0, 0}, {0, 0, 0}, {2, 0, 0}, {kNaN, kNaN, 0}, {1, 0.5, 0}};
  ExpectCircle(SmallestEnclosingCircle(one), 1, 0, 1);
}

}  // namespace
