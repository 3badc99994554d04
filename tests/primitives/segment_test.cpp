#include "zyl/geometry/segment.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/nearest.h"
#include "support/seeded.h"
#include "support/wide_distance.h"

namespace {

using namespace zyl::geometry;

Segment Along(double x0, double x1) { return {Coord3D(x0, 0, 0), Coord3D(x1, 0, 0)}; }

Coord3D DirectionOf(const Ray& ray) { return {ray.direction.x, ray.direction.y, ray.direction.z}; }

TEST(Ray, StoresAUnitDirectionUnlessItHasNoLength) {
  EXPECT_EQ(DirectionOf(Ray(Coord3D(1, 1, 1), Coord3D(1, 1, 5))), Coord3D(0, 0, 1));
  EXPECT_EQ(DirectionOf(Ray(Coord3D(1, 1, 1), Direction(0, 3, 4))), Coord3D(0, 0.6, 0.8));
  EXPECT_EQ(DirectionOf(Ray(Coord3D(1, 1, 1), Coord3D(1, 1, 1))), Coord3D());
}

TEST(Intersection, HoldsAPointAndAParameter) {
  EXPECT_EQ(Intersection(1, 2, 3, 4).point, Coord3D(1, 2, 3));
  EXPECT_EQ(Intersection(1, 2, 3, 4).parameter, 4);
  EXPECT_EQ(Intersection(Coord3D(5, 6, 7), 8).parameter, 8);
}

// Dividing by the length leaves some of these unit vectors a little too long, so that their cosine
// with themselves is beyond 1, and with the reverse of themselves below −1.
TEST(Segment, MeasuresItsAngleWithAnotherAlsoIfTheyAreParallel) {
  for (int i = 1; i <= 100; ++i) {
    const Coord3D end(i, 0.1 * i * i, 0.7);
    EXPECT_NEAR(Segment(Coord3D(), end).AngleBetween(Segment(end, Coord3D())), kPi, 3e-8);
    EXPECT_NEAR(Segment(Coord3D(), end).AngleBetween(Segment(Coord3D(), end)), 0, 3e-8);
  }
  EXPECT_EQ(Along(0, 10).AngleBetween(Segment(Point3D(0, 0, 0), Point3D(0, 5, 0))), kPi / 2);
  EXPECT_TRUE(std::isnan(Along(0, 10).AngleBetween(Segment())));
}

// 1e-9 beside the line the cosine is rounded to 1: it is the angle that is measured.
TEST(Segment, DistanceAlongGoesThroughTheAngleAndBeyondTheEnds) {
  double distance, along;
  Along(0, 10).DistanceAlong(Coord3D(1, 1e-9, 0), distance, along);
  EXPECT_EQ(distance, 0);
  EXPECT_EQ(along, 1);
  Along(0, 10).DistanceAlong(Coord3D(-3, 4, 0), distance, along);
  EXPECT_NEAR(distance, 4, 4e-15);
  EXPECT_NEAR(along, -3, 4e-15);
  EXPECT_EQ(Along(0, 10).ProjectPoint(Coord3D(-2, 0, 0)), Coord3D(-2, 0, 0));
}

TEST(Segment, TheStartItselfAndZeroLengthGiveNaN) {
  const Nearest start = NearestTo(Along(1, 10), Coord3D(1, 0, 0));
  EXPECT_TRUE(std::isnan(start.point.x) && std::isnan(start.distance));
  EXPECT_TRUE(std::isnan(NearestTo(Segment(), Coord3D(1, 0, 0)).distance));
  EXPECT_EQ(NearestTo(Along(1, 10), Coord3D(10, 0, 0)).distance, 0);
}

// |v|² is 9e-8 for the shorter one and 1.6e-7 for the longer: thresholds are absolute.
TEST(Segment, NearestToOneThatIsParallelOrShort) {
  const auto expect = [](const Segment& one, const Segment& other, double x, double distance) {
    const Nearest nearest = NearestTo(one, other);
    EXPECT_EQ(nearest.point, Coord3D(x, 0, 0));
    EXPECT_NEAR(nearest.distance, distance, 1e-15);
  };
  expect(Along(0, 10), Segment(Coord3D(0, 2, 0), Coord3D(10, 2, 0)), 0, 2);
  expect(Along(0, 10), Along(12, 15), 10, 2);
  const Coord3D above(0.5, 1, 0);
  expect(Along(0, 1), Segment(above, Coord3D(0.5, 1 - 3e-4, 0)), 0.5, 1);  // to its start
  expect(Along(0, 1), Segment(above, Coord3D(0.5, 1 - 4e-4, 0)), 0.5, 1 - 4e-4);
}

using Segments = Seeded<34>;

TEST_F(Segments, HaveTheNearestPointsOfAWiderSearch) {
  for (int i = 0; i < 3000; ++i) {
    const Segment one(WholePoint() * 0.9, WholePoint() * 0.9);
    Segment other(WholePoint() * 0.9, WholePoint() * 0.9);
    const Coord3D p = WholePoint() * 0.9;
    if (i % 3 == 0) {
      other.end = other.start + (one.end - one.start) * 0.5;  // parallel
    }
    if (one.Length() == 0 || other.Length() == 0 || p == one.start) {
      continue;
    }
    const Nearest toPoint = NearestTo(one, p);
    const double beside = wide::Distance(p, wide::Segment(one));
    ASSERT_NEAR(toPoint.distance, beside, 3e-7);  // the angle holds half of the digits
    ASSERT_NEAR(toPoint.point.Distance(p), beside, 1e-12);
    ASSERT_NEAR(wide::Distance(toPoint.point, wide::Segment(one)), 0, 1e-12);

    const Nearest toSegment = NearestTo(one, other);
    ASSERT_NEAR(toSegment.distance, wide::Distance(wide::Segment(one), wide::Segment(other)), 1e-8);
    ASSERT_NEAR(wide::Distance(toSegment.point, wide::Segment(other)), toSegment.distance, 1e-8);
    ASSERT_NEAR(toSegment.distance, other.Distance(one), 1e-8);
  }
}

}  // namespace
