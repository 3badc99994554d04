#include "trimake/polygon.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <vector>

#include "trimake/scan.h"

namespace {

using namespace zyl::geometry::internal;

struct Release {
  void operator()(tri_Polygon* polygon) const { tri_Free_Polygon(polygon); }
};
using Polygon = std::unique_ptr<tri_Polygon, Release>;

Polygon Triangulated(const std::vector<TPoint>& points, const double* normal = nullptr) {
  int error = 77;
  Polygon polygon(
      tri_Triangulate_Polygon(static_cast<int>(points.size()), points.data(), normal, &error));
  EXPECT_EQ(error, 0);
  return polygon;
}

// Area of the triangles with this mark. Triangles run clockwise: half the cross product is
// negative.
double AreaMarked(const tri_Polygon& polygon, int mark) {
  double area = 0;
  for (int t = 0; t < polygon.triangleCount; ++t) {
    if (polygon.inside[t] == mark) {
      const TPoint& a = polygon.vertices[polygon.triangles[3 * t] - 1];
      const TPoint& b = polygon.vertices[polygon.triangles[3 * t + 1] - 1];
      const TPoint& c = polygon.vertices[polygon.triangles[3 * t + 2] - 1];
      area -= ((b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y)) / 2;
    }
  }
  return area;
}

// Areas inside and outside within the convex hull, or {-1, -1} if there is no polygon.
struct Areas {
  double inside;
  double outside;
};

Areas AreasOf(const std::vector<TPoint>& points, const double* normal = nullptr) {
  const Polygon polygon = Triangulated(points, normal);
  return polygon == nullptr ? Areas{-1, -1}
                            : Areas{AreaMarked(*polygon, 1), AreaMarked(*polygon, 0)};
}

TEST(Polygon, ASquareIsTwoTrianglesInside) {
  const Polygon square =
      Triangulated({{0, 0, 0, 0}, {1, 0, 0, 0}, {1, 1, 0, 0}, {0, 1, 0, 0}, {0, 0, 0, 0}});
  ASSERT_NE(square, nullptr);
  EXPECT_EQ(square->triangleCount, 2);
  EXPECT_EQ(square->vertexCount, 4);
  EXPECT_EQ(square->inside[0], 1);
  EXPECT_EQ(square->inside[1], 1);
  EXPECT_EQ(square->lastTriangle, 0);
}

TEST(Polygon, MarksWhatTheBoundaryParts) {
  // A notch: the hull is cut off by a diagonal of half a unit square.
  const Areas notched =
      AreasOf({{0, 0, 0, 0}, {2, 0, 0, 0}, {2, 1, 0, 0}, {1, 1, 0, 0}, {1, 2, 0, 0}, {0, 2, 0, 0}});
  EXPECT_DOUBLE_EQ(notched.inside, 3);
  EXPECT_DOUBLE_EQ(notched.outside, 0.5);
  // A whisker from (4, 4) to (2, 2) and back parts nothing.
  const Areas whisker = AreasOf({{0, 0, 0, 0},
                                 {4, 0, 0, 0},
                                 {4, 4, 0, 0},
                                 {2, 2, 0, 0},
                                 {4, 4, 0, 0},
                                 {0, 4, 0, 0},
                                 {0, 0, 0, 0}});
  EXPECT_DOUBLE_EQ(whisker.inside, 16);
  EXPECT_DOUBLE_EQ(whisker.outside, 0);
  // A bow tie: two of the four quarters.
  const Areas bow = AreasOf({{0, 0, 0, 0}, {4, 4, 0, 0}, {4, 0, 0, 0}, {0, 4, 0, 0}});
  EXPECT_DOUBLE_EQ(bow.inside, 8);
  EXPECT_DOUBLE_EQ(bow.outside, 8);
}

// A second chain, begun by a non-zero flag, is a hole; neither chain repeats its first point.
TEST(Polygon, ChainsAreClosedEachForItself) {
  const Areas ring = AreasOf({{0, 0, 0, 0},
                              {4, 0, 0, 0},
                              {4, 4, 0, 0},
                              {0, 4, 0, 0},
                              {1, 1, 0, 5},
                              {3, 1, 0, 0},
                              {3, 3, 0, 0},
                              {1, 3, 0, 0}});
  EXPECT_DOUBLE_EQ(ring.inside, 12);
  EXPECT_DOUBLE_EQ(ring.outside, 4);
}

TEST(Polygon, LiesInItsBestFitPlaneOrAcrossTheGivenNormal) {
  // The square (0, 0), (5, 0), (5, 5), (0, 5) leans with slope 3/4 along y: 25·1.25 of area.
  const std::vector<TPoint> roof = {{0, 0, 0, 0}, {5, 0, 0, 0}, {5, 5, 3.75, 0}, {0, 5, 3.75, 0}};
  EXPECT_NEAR(AreasOf(roof).inside, 31.25, 1e-12);
  const double up[3] = {0, 0, 2};
  EXPECT_NEAR(AreasOf(roof, up).inside, 25, 1e-12);
  const double along[3] = {0, 8, 6};
  EXPECT_LT(AreasOf(roof, along).inside, 31.25);
}

TEST(Polygon, ThereIsNoneForDegenerateOrInvalidPoints) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInf = std::numeric_limits<double>::infinity();
  const double noNormal[3] = {0, 0, 0};
  EXPECT_EQ(Triangulated({}), nullptr);
  EXPECT_EQ(Triangulated({{1, 2, 3, 0}}), nullptr);
  EXPECT_EQ(Triangulated({{1, 2, 3, 0}, {4, 5, 6, 0}, {1, 2, 3, 0}}), nullptr);
  EXPECT_EQ(Triangulated({{1, 2, 3, 0}, {1, 2, 3, 0}, {1, 2, 3, 0}}), nullptr);
  EXPECT_EQ(Triangulated({{0, 0, 0, 0}, {1, 1, 1, 0}, {3, 3, 3, 0}, {2, 2, 2, 0}}), nullptr);
  EXPECT_EQ(Triangulated({{0, 0, 0, 0}, {1, 0, 0, 0}, {0, kNaN, 0, 0}}), nullptr);
  EXPECT_EQ(Triangulated({{0, 0, 0, 0}, {1, 0, 0, 0}, {0, 1, kNaN, 0}}), nullptr);
  EXPECT_EQ(Triangulated({{0, 0, 0, 0}, {1, 0, 0, 0}, {kInf, 1, 0, 0}}), nullptr);
  EXPECT_EQ(Triangulated({{0, 0, 0, 0}, {1, 0, 0, 0}, {0, 1, 0, 0}}, noNormal), nullptr);
}

TEST(LocalFrame, AxesFollowTheNormal) {
  TMatrix m;
  tri_Frame_From_Normal(1, 0, 0, kLocalToWorld, m);
  EXPECT_EQ(m, (TMatrix{0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1}));
  tri_Frame_From_Normal(-1, 0, 0, kLocalToWorld, m);
  EXPECT_EQ(m, (TMatrix{0, 0, -1, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 0, 1}));
  tri_Frame_From_Normal(0, 0, -1, kWorldToLocal, m);
  EXPECT_EQ(m, (TMatrix{1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1}));
  // Rows X = (s, -nx·ny/s, -nx·nz/s), Y = (0, nz/s, -ny/s), Z; columns the other way.
  const double n[3] = {0.6, 0.48, 0.64};
  tri_Frame_From_Normal(n[0], n[1], n[2], kLocalToWorld, m);
  const TMatrix expected = {0.8, -0.36, -0.48, 0, 0, 0.8, -0.6, 0, 0.6, 0.48, 0.64, 0, 0, 0, 0, 1};
  TMatrix transposed;
  tri_Frame_From_Normal(n[0], n[1], n[2], kWorldToLocal, transposed);
  for (std::size_t i = 0; i < 16; ++i) {
    EXPECT_NEAR(m[i], expected[i], 1e-15);
    EXPECT_EQ(transposed[i], m[i % 4 * 4 + i / 4]);
  }
}

TEST(LocalFrame, FitsEveryAttitude) {
  // Mean (1, 1, 5); the horizontal frame is the world's turned over.
  const TPoint flat[] = {{0, 0, 5, 0}, {2, 0, 5, 0}, {2, 2, 5, 0}, {0, 2, 5, 0}};
  TMatrix m;
  tri_Fit_Plane(4, flat, m);
  EXPECT_EQ(m, (TMatrix{1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, -1, 1, 5, 1}));
  // In the plane x = 3: normal (-1, 0, 0), local x = 1 - z, local y = y - 1.
  const TPoint wall[] = {{3, 0, 0, 0}, {3, 2, 0, 0}, {3, 2, 2, 0}, {3, 0, 2, 0}};
  tri_Fit_Plane(4, wall, m);
  EXPECT_EQ(m, (TMatrix{0, 0, -1, 0, 0, 1, 0, 0, -1, 0, 0, 0, 1, -1, 3, 1}));
  // z = x + 2y: every vertex comes to lie at local z = 0, and lengths are kept.
  const TPoint roof[] = {{0, 0, 0, 0}, {1, 0, 1, 0}, {1, 1, 3, 0}, {0, 1, 2, 0}};
  tri_Fit_Plane(4, roof, m);
  double local[4][3];
  for (std::size_t i = 0; i < 4; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      local[i][j] = m[j] * roof[i].x + m[4 + j] * roof[i].y + m[8 + j] * roof[i].z + m[12 + j];
    }
    EXPECT_NEAR(local[i][2], 0, 1e-15);
  }
  EXPECT_NEAR(std::hypot(local[1][0] - local[0][0], local[1][1] - local[0][1]), std::sqrt(2),
              1e-15);
  EXPECT_NEAR(std::hypot(local[3][0] - local[0][0], local[3][1] - local[0][1]), std::sqrt(5),
              1e-15);
}

TEST(LocalFrame, IsTheWorldsOwnWhereNoPlaneFits) {
  constexpr TMatrix kIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  // Side 0.05: Sxx·Syy = 0.0025² is far below 1e-4, whatever the attitude.
  const TPoint small[] = {{0, 0, 5, 0}, {0.05, 0, 5, 0}, {0.05, 0.05, 5, 0}, {0, 0.05, 5, 0}};
  const TPoint line[] = {{0, 0, 0, 0}, {1, 2, 3, 0}, {2, 4, 6, 0}};
  const TPoint huge[] = {{0, 0, 0, 0}, {1e100, 0, 0, 0}, {1e100, 1e100, 1e100, 0}};
  TMatrix m = {};
  tri_Fit_Plane(4, small, m);
  EXPECT_EQ(m, kIdentity);
  m = {};
  tri_Fit_Plane(3, line, m);
  EXPECT_EQ(m, kIdentity);
  m = {};
  tri_Fit_Plane(3, huge, m);  // determinants overflow
  EXPECT_EQ(m, kIdentity);
}

TEST(LocalFrame, InvertsWithPivoting) {
  // Its first column has its only pivot in the last row.
  const TMatrix m = {0, 2, 0, 0, 0, 0, 4, 0, 0, 1, 0, 8, 2, 0, 0, 0};
  TMatrix inverse;
  tri_Invert_Matrix(m, inverse);
  EXPECT_EQ(inverse, (TMatrix{0, 0, 0, 0.5, 0.5, 0, 0, 0, 0, 0.25, 0, 0, -0.0625, 0, 0.125, 0}));
  TMatrix singular = {};
  tri_Invert_Matrix({}, singular);
  for (const double value : singular) {
    EXPECT_TRUE(std::isfinite(value));
  }
}

// A strip 1 - 2 - 3 and a triangle of its own, 4; the mark changes between 2 and 3.
TEST(Scan, TogglesAcrossOddEdgesAndStaysWhereItCanReach) {
  const int neighbours[] = {0, 2, 0, 1, 3, 0, 0, 0, 2, 0, 0, 0};
  TEdgeInfo edges[12] = {};
  edges[1].count = 2;
  edges[3].count = 2;
  edges[4].count = 3;
  edges[8].count = 3;
  int inside[4] = {-1, -1, -1, -1};
  tri_Scan_Inside(neighbours, 4, edges, 1, inside).Run(1);
  EXPECT_EQ(std::vector<int>(inside, inside + 4), (std::vector<int>{1, 1, 0, -1}));
}

class Fenced : public tri_Scan {
 public:
  using tri_Scan::tri_Scan;
  std::vector<int> seen;

 protected:
  bool Accept(int t) override { return t != 3; }
  bool MayCross(int t, int k) override { return !(t == 0 && k == 0); }
  void Seed(int t) override { seen.push_back(t); }
};

// Triangle 0 in the middle; 1, 2 and 3 around it. The way to 1 is barred, 3 is not accepted.
TEST(Scan, GoesWhereItMayAndVisitsNothingTwice) {
  const int neighbours[] = {2, 3, 4, 1, 3, 0, 1, 2, 0, 1, 0, 0};
  Fenced scan(neighbours, 4);
  scan.Run(0);
  EXPECT_EQ(scan.seen, (std::vector<int>{0, 2, 1}));
}

}  // namespace
