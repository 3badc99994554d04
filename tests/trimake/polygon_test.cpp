#include "support/polygon.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace mesh;
using namespace zyl::geometry::internal;

// Area of the triangles with this mark. They run clockwise: half the cross product is negative.
double AreaMarked(const Polygon& polygon, int mark) {
  double area = 0;
  for (int t = 0; polygon != nullptr && t < polygon->triangleCount; ++t) {
    if (polygon->inside[t] == mark) {
      const int* const corners = polygon->triangles + 3 * t;
      const TPoint& a = polygon->vertices[corners[0] - 1];
      const TPoint& b = polygon->vertices[corners[1] - 1];
      const TPoint& c = polygon->vertices[corners[2] - 1];
      area -= ((b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y)) / 2;
    }
  }
  return area;
}

TEST(Polygon, MarksWhatTheBoundaryParts) {
  const struct {
    const char* what;
    Points points;
    double inside, outside;  // areas within the convex hull
  } cases[] = {
      {"a square", Lines({{0, 0, 0, 1, 1, 1, 1, 0, 0, 0}}), 1, 0},
      {"with a notch at the closing edge", Lines({{1, 2, 0, 2, 0, 0, 2, 0, 2, 1, 1, 1}}), 3, 0.5},
      {"with a whisker from (4, 4) to (2, 2) and back, which parts nothing",
       Lines({{0, 0, 0, 4, 4, 4, 2, 2, 4, 4, 4, 0, 0, 0}}), 16, 0},
      {"a bow tie: two of four quarters", Lines({{0, 0, 4, 4, 4, 0, 0, 4}}), 8, 8},
      {"a ring of two chains, of which neither repeats its first point",
       Lines({{1, 1, 3, 1, 3, 3, 1, 3}, {0, 0, 4, 0, 4, 4, 0, 4}}), 12, 4}};
  for (const auto& c : cases) {
    const Polygon polygon = Triangulated(c.points);
    EXPECT_DOUBLE_EQ(AreaMarked(polygon, 1), c.inside) << c.what;
    EXPECT_DOUBLE_EQ(AreaMarked(polygon, 0), c.outside) << c.what;
  }
}

TEST(Polygon, LiesInItsBestFitPlaneOrAcrossTheGivenNormal) {
  // The square (0, 0), (5, 0), (5, 5), (0, 5) leans with slope 3/4 along y: 25·1.25 of area.
  const Points roof = Lines({{0, 0, 0, 5, 0, 0, 5, 5, 3.75, 0, 5, 3.75}}, 3);
  EXPECT_NEAR(AreaMarked(Triangulated(roof), 1), 31.25, 1e-12);
  const double up[3] = {0, 0, 2};
  EXPECT_NEAR(AreaMarked(Triangulated(roof, up), 1), 25, 1e-12);
  const double along[3] = {0, 6, 8};  // its cosine with the normal (0, -0.6, 0.8): 0.28
  EXPECT_NEAR(AreaMarked(Triangulated(roof, along), 1), 31.25 * 0.28, 1e-12);
  const double none[3] = {0, 0, 0};
  EXPECT_EQ(Triangulated(roof, none), nullptr);
}

TMatrix FrameFromNormal(double nx, double ny, double nz, TFrameForm form) {
  TMatrix m;
  tri_Frame_From_Normal(nx, ny, nz, form, m);
  return m;
}

TEST(LocalFrame, AxesFollowTheNormal) {
  EXPECT_EQ(FrameFromNormal(1, 0, 0, kLocalToWorld),
            (TMatrix{0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1}));
  EXPECT_EQ(FrameFromNormal(-1, 0, 0, kLocalToWorld),
            (TMatrix{0, 0, -1, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 0, 1}));
  EXPECT_EQ(FrameFromNormal(0, 0, -1, kWorldToLocal),
            (TMatrix{1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1}));
  // Rows X = (s, -nx·ny/s, -nx·nz/s), Y = (0, nz/s, -ny/s), Z; columns the other way.
  const TMatrix expected = {0.8, -0.36, -0.48, 0, 0, 0.8, -0.6, 0, 0.6, 0.48, 0.64, 0, 0, 0, 0, 1};
  const TMatrix toWorld = FrameFromNormal(0.6, 0.48, 0.64, kLocalToWorld);
  const TMatrix toLocal = FrameFromNormal(0.6, 0.48, 0.64, kWorldToLocal);
  for (std::size_t i = 0; i < 16; ++i) {
    EXPECT_NEAR(toWorld[i], expected[i], 1e-15);
    EXPECT_EQ(toLocal[i], toWorld[i % 4 * 4 + i / 4]);
  }
}

TMatrix FrameOf(const std::vector<double>& chain) {
  const Points points = Lines({chain}, 3);
  TMatrix m = {};
  tri_Fit_Plane(static_cast<int>(points.size()), points.data(), m);
  return m;
}

TEST(LocalFrame, FitsEveryAttitude) {
  // Mean (1, 1, 5); the horizontal frame is the world's turned over.
  EXPECT_EQ(FrameOf({0, 0, 5, 2, 0, 5, 2, 2, 5, 0, 2, 5}),
            (TMatrix{1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, -1, 1, 5, 1}));
  // In the plane x = 3: normal (-1, 0, 0), local x = 1 - z, local y = y - 1.
  EXPECT_EQ(FrameOf({3, 0, 0, 3, 2, 0, 3, 2, 2, 3, 0, 2}),
            (TMatrix{0, 0, -1, 0, 0, 1, 0, 0, -1, 0, 0, 0, 1, -1, 3, 1}));
  // A saddle over z = x + y/2: Sxx = 16, Syy = 4, Szz = 21, Sxz = 16, Syz = 2, Sxy = 0. Of the
  // three fits x = -0.4·y + 0.8·z has the least sum of distances, 2.39; z has 2.67, y has 2.79.
  const TMatrix saddle = FrameOf({2, 1, 3.5, -2, 1, -2.5, -2, -1, -1.5, 2, -1, 0.5});
  EXPECT_NEAR(saddle[2], -1 / std::sqrt(1.8), 1e-15);
  EXPECT_NEAR(saddle[6], -0.4 / std::sqrt(1.8), 1e-15);
  EXPECT_NEAR(saddle[10], 0.8 / std::sqrt(1.8), 1e-15);
}

TEST(LocalFrame, IsTheWorldsOwnWhereNoPlaneFits) {
  constexpr TMatrix kIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  // Side 0.05: Sxx·Syy = 0.0025² is far below 1e-4, whatever the attitude.
  EXPECT_EQ(FrameOf({0, 0, 5, 0.05, 0, 5, 0.05, 0.05, 5, 0, 0.05, 5}), kIdentity);
  EXPECT_EQ(FrameOf({0, 0, 0, 1, 2, 3, 2, 4, 6}), kIdentity);
  // Determinants overflow.
  EXPECT_EQ(FrameOf({0, 0, 0, 1e100, 0, 0, 1e100, 1e100, 1e100}), kIdentity);
}

}  // namespace
