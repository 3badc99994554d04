#include "zyl/geometry/polyline3d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using zyl::geometry::COORDINATE_Y;
using zyl::geometry::CoordinateType;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Polyline3D, AListThatEndsWhereItBeganIsARing) {
  const Polyline3D ring(std::vector<Point3D>{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 0}});
  EXPECT_EQ(ring.Size(), 3u);
  EXPECT_TRUE(ring.IsClosed());

  const Polyline3D chain(std::vector<Point3D>{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
  EXPECT_EQ(chain.Size(), 3u);
  EXPECT_FALSE(chain.IsClosed());
}

TEST(Polyline3D, ClosureIsExactAndTakesOnePointOnly) {
  const Point3D near[] = {{0, 0, 0}, {1, 0, 0}, {0, 0, 1e-300}};
  EXPECT_EQ(Polyline3D(3, near).Size(), 3u);
  EXPECT_FALSE(Polyline3D(3, near).IsClosed());

  const Point3D nan[] = {{0, kNaN, 0}, {1, 0, 0}, {0, kNaN, 0}};
  EXPECT_FALSE(Polyline3D(3, nan).IsClosed());

  const Point3D twice[] = {{0, 0, 0}, {1, 0, 0}, {0, 0, 0}, {-0.0, 0, 0}};
  EXPECT_EQ(Polyline3D(4, twice).Size(), 3u);
  EXPECT_TRUE(Polyline3D(4, twice).IsClosed());

  EXPECT_EQ(Polyline3D(1, twice).Size(), 1u);
  EXPECT_FALSE(Polyline3D(1, twice).IsClosed());
}

TEST(Polyline3D, IsBuiltFromArrays) {
  double x[] = {0, 2, 0}, y[] = {1, 3, 1}, z[] = {4, 5, 4};
  const Polyline3D line(3, x, y, z);
  EXPECT_TRUE(line.IsClosed());
  EXPECT_EQ(line.GetPointVector(), (std::vector<Point3D>{{0, 1, 4}, {2, 3, 5}}));
  EXPECT_EQ(Polyline3D(0, nullptr, nullptr, nullptr), Polyline3D());
  EXPECT_EQ(Polyline3D(7, nullptr), Polyline3D());
}

TEST(Polyline3D, CopiesTakeEverythingAndShareNothing) {
  Polyline3D line(std::vector<Point3D>{{1, 2, 3}, {4, 5, 6}, {1, 2, 3}});
  line.SetName("gut");
  line.SetColour(-5);
  line.Add(1, 2, 3);  // neither removed nor taken for a closing point, here or in the copy
  const Polyline3D copy(line);
  Polyline3D assigned;
  EXPECT_EQ(&(assigned = line), &assigned);
  EXPECT_EQ(copy, line);
  EXPECT_EQ(assigned, line);
  EXPECT_EQ(copy.Size(), 3u);

  line[0].x = 9;
  EXPECT_NE(copy, line);
  EXPECT_EQ(assigned, copy);
}

TEST(Polyline3D, SwapMovesThePointsWithoutCopying) {
  static_assert(std::is_nothrow_move_constructible_v<Polyline3D> &&
                std::is_nothrow_move_assignable_v<Polyline3D>);
  Polyline3D ring(std::vector<Point3D>{{0, 0, 0}, {1, 0, 0}, {0, 0, 0}});
  ring.SetName("ring");
  const Polyline3D before = ring;
  const Point3D* const stored = ring.GetPointVector().data();
  Polyline3D other;
  other.Swap(ring);
  EXPECT_EQ(other, before);
  EXPECT_EQ(other.GetPointVector().data(), stored);
  EXPECT_EQ(ring, Polyline3D());
}

TEST(Polyline3D, EqualityLooksAtEveryPartWithoutTolerance) {
  const Polyline3D line(std::vector<Point3D>{{1, 2, 3}, {4, 5, 6}});
  const auto differsAfter = [&line](auto&& edit) {
    Polyline3D other = line;
    edit(other);
    return other != line && !(other == line);
  };
  EXPECT_TRUE(differsAfter([](Polyline3D& p) { p.SetName("x"); }));
  EXPECT_TRUE(differsAfter([](Polyline3D& p) { p.SetColour(1); }));
  EXPECT_TRUE(differsAfter([](Polyline3D& p) { p.SetClosed(true); }));
  EXPECT_TRUE(differsAfter([](Polyline3D& p) { p.Add(Point3D(4, 5, 6)); }));
  EXPECT_TRUE(differsAfter([](Polyline3D& p) { p[1].z = std::nextafter(6.0, 7.0); }));
  Polyline3D nan = line;
  nan[0].y = kNaN;
  EXPECT_NE(nan, nan);
}

TEST(Polyline3D, ResizeKeepsTheFirstPointsButNeverEmpties) {
  Polyline3D line(std::vector<Point3D>{{1, 0, 0}, {2, 0, 0}, {3, 0, 0}});
  line.SetClosed(true);
  line.Resize(0);
  EXPECT_EQ(line.Size(), 3u);
  line.Resize(2);
  line.Resize(5);
  EXPECT_EQ(line.Size(), 5u);
  EXPECT_EQ(line[1], Point3D(2, 0, 0));
  line.Clear();
  EXPECT_EQ(line.Size(), 0u);
  EXPECT_TRUE(line.IsClosed());
}

TEST(Polyline3D, EditsEveryPoint) {
  Polyline3D line(std::vector<Point3D>{{1, 2, 3}, {4, 5, 6}});
  line.Set(7.0, 3);
  line.Set(7.0, -1);
  EXPECT_EQ(line[0], Point3D(1, 2, 3));
  line.Set(7.0, 2);
  line.Reverse();
  EXPECT_EQ(line.GetPointVector(), (std::vector<Point3D>{{4, 5, 7}, {1, 2, 7}}));
  line.Translate(line[0]);  // an argument that moves with the points
  EXPECT_EQ(line.GetPointVector(), (std::vector<Point3D>{{8, 10, 14}, {5, 7, 14}}));
}

TEST(Polyline3D, CoordinatesAreAppendedInPointOrder) {
  const Polyline3D line(std::vector<Point3D>{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
  std::vector<double> out = {-1};
  line.GetAsArray(COORDINATE_Y, out);
  EXPECT_EQ(out, (std::vector<double>{-1, 2, 5, 8}));
  line.GetAsArray(static_cast<CoordinateType>(3), out);
  EXPECT_EQ(out.size(), 4u);
}

TEST(Polyline3D, CentreIsTheMeanOfTheStoredPoints) {
  const Point3D corners[] = {{0, 0, 1}, {6, 0, 2}, {0, 3, 6}, {0, 0, 1}};
  const Polyline3D ring(4, corners);
  EXPECT_EQ(ring.GetCenterPoint(), Point3D(2, 1, 3));
  EXPECT_TRUE(std::isnan(Polyline3D().GetCenterPoint().x));
}

TEST(Polyline3D, TheNameCarriesAnInteger) {
  Polyline3D line;
  EXPECT_EQ(line.GetNameAsInt(), 0);
  for (const int value : {0, -120, 1000, 2147483647, -2147483647 - 1}) {
    line.SetNameAsInt(value);
    EXPECT_EQ(line.GetNameAsInt(), value);
  }
  EXPECT_EQ(line.GetName(), "-2147483648");
  const std::pair<const char*, int> readings[] = {
      {"42", 42}, {" -7b", -7}, {"5.9", 5}, {"abc", 0}, {"+3", 3}, {"+-3", 0}, {"2147483648", 0}};
  for (const auto& [name, value] : readings) {
    line.SetName(name);
    EXPECT_EQ(std::as_const(line).GetNameAsInt(), value) << name;
  }
}

TEST(Polyline3D, PrintsFlagAndPoints) {
  EXPECT_EQ(Polyline3D().PrintDebug(), "Open ");
  Polyline3D ring(std::vector<Point3D>{{0, 0, 0}, {1, 0.5, 2}, {0, 0, 0}});
  EXPECT_EQ(ring.PrintDebug(), "Closed 0:0:0, 1:0.5:2, ");
  ring[0] = Point3D(1234567, -1e-5, kNaN);
  EXPECT_EQ(ring.PrintDebug(), "Closed 1.23457e+06:-1e-05:nan, 1:0.5:2, ");
}

}  // namespace
