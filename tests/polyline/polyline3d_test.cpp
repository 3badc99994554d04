#include "zyl/geometry/polyline3d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <locale>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/generate.h"

namespace {

using namespace zyl::geometry;
using Points = std::vector<Point3D>;

// The end has to repeat the beginning exactly, and one point of several that do so goes.
TEST(Polyline3D, AListThatEndsWhereItBeganIsARing) {
  const struct {
    Points points;
    unsigned int size;
    bool isRing;
  } cases[] = {{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {-0.0, 0, 0}}, 3, true},
               {{{0, 0, 0}, {1, 0, 0}, {0, 0, 0}, {0, 0, 0}}, 3, true},
               {{{0, 0, 0}, {1, 0, 0}, {0, 0, 1e-300}}, 3, false},
               {{{0, kNaN, 0}, {1, 0, 0}, {0, kNaN, 0}}, 3, false},
               {{{0, 0, 0}}, 1, false}};
  for (const auto& [points, size, isRing] : cases) {
    const Polyline3D line(points);
    EXPECT_EQ(line.Size(), size);
    EXPECT_EQ(line.IsClosed(), isRing);
    const Polyline3D same(static_cast<unsigned int>(points.size()), points.data());
    EXPECT_TRUE(same == line || std::isnan(line[0].y));
  }
  double x[] = {0, 2, 0}, y[] = {1, 3, 1}, z[] = {4, 5, 4};
  EXPECT_EQ(Polyline3D(3, x, y, z), Polyline3D(Points{{0, 1, 4}, {2, 3, 5}, {0, 1, 4}}));
  EXPECT_EQ(Polyline3D(0, nullptr, nullptr, nullptr), Polyline3D());
  EXPECT_EQ(Polyline3D(7, nullptr), Polyline3D());
}

TEST(Polyline3D, CopiesTakeEverythingAndShareNothing) {
  static_assert(std::is_nothrow_move_constructible_v<Polyline3D> &&
                std::is_nothrow_move_assignable_v<Polyline3D>);
  Polyline3D line(Points{{1, 2, 3}, {4, 5, 6}, {1, 2, 3}});
  line.SetName("gut");
  line.SetColour(-5);
  line.Add(1, 2, 3);  // neither removed nor taken for a closing point, here or in the copy
  const Polyline3D copy(line);
  Polyline3D assigned;
  EXPECT_EQ(&(assigned = line), &assigned);
  EXPECT_TRUE(copy == line && assigned == line && copy.Size() == 3);

  const Point3D* const stored = line.GetPointVector().data();
  Polyline3D other;
  other.Swap(line);
  EXPECT_TRUE(other == copy && line == Polyline3D());
  EXPECT_EQ(other.GetPointVector().data(), stored);
  other[0].x = 9;
  EXPECT_NE(copy, other);
  EXPECT_EQ(assigned, copy);
}

TEST(Polyline3D, EqualityLooksAtEveryPartWithoutTolerance) {
  const Polyline3D line(Points{{1, 2, 3}, {4, 5, 6}});
  void (*const edits[])(Polyline3D&) = {[](Polyline3D& p) { p.SetName("x"); },
                                        [](Polyline3D& p) { p.SetColour(1); },
                                        [](Polyline3D& p) { p.SetClosed(true); },
                                        [](Polyline3D& p) { p.Add(Point3D(4, 5, 6)); },
                                        [](Polyline3D& p) { p[1].z = std::nextafter(6.0, 7.0); },
                                        [](Polyline3D& p) { p[0].y = kNaN; }};
  for (const auto& edit : edits) {
    Polyline3D other = line;
    edit(other);
    EXPECT_TRUE(other != line && !(other == line));
    EXPECT_EQ(other == other, !std::isnan(other[0].y));
  }
}

TEST(Polyline3D, EditsItsPoints) {
  Polyline3D line(Points{{1, 2, 3}, {4, 5, 6}});
  line.Set(7.0, 3);
  line.Set(7.0, -1);
  EXPECT_EQ(line[0], Point3D(1, 2, 3));
  line.Set(7.0, 2);
  line.Reverse();
  EXPECT_EQ(line.GetPointVector(), (Points{{4, 5, 7}, {1, 2, 7}}));
  line.Translate(line[0]);  // an argument that moves with the points
  EXPECT_EQ(line.GetPointVector(), (Points{{8, 10, 14}, {5, 7, 14}}));
  EXPECT_EQ(line.GetCenterPoint(), Point3D(6.5, 8.5, 14));
  EXPECT_TRUE(std::isnan(Polyline3D().GetCenterPoint().x));

  line.SetClosed(true);
  line.Resize(0);
  EXPECT_EQ(line.Size(), 2u);
  line.Resize(1);
  line.Resize(5);
  EXPECT_EQ(line.Size(), 5u);
  EXPECT_EQ(line[0], Point3D(8, 10, 14));
  line.Clear();
  EXPECT_EQ(line.Size(), 0u);
  EXPECT_TRUE(line.IsClosed());
}

TEST(Polyline3D, CoordinatesAreAppendedInPointOrder) {
  std::vector<double> out = {-1};
  const Polyline3D line(Points{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
  line.GetAsArray(COORDINATE_Y, out);
  line.GetAsArray(static_cast<CoordinateType>(3), out);
  EXPECT_EQ(out, (std::vector<double>{-1, 2, 5, 8}));
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

class DecimalComma : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

TEST(Polyline3D, PrintsFlagAndPointsInAnyLocale) {
  const std::locale before = std::locale::global(std::locale(std::locale(), new DecimalComma));
  EXPECT_EQ(Polyline3D().PrintDebug(), "Open ");
  Polyline3D ring(Points{{1234567, -1e-5, kNaN}, {1, 0.5, 2}});
  ring.SetClosed(true);
  EXPECT_EQ(ring.PrintDebug(), "Closed 1.23457e+06:-1e-05:nan, 1:0.5:2, ");
  std::locale::global(before);
}

}  // namespace
