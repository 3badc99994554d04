// The engine on any points and flags. It has to come to an end with an array that can be read;
// where no two breaklines cross, the tests' verifier has to find nothing wrong with the mesh.

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

#include "input.h"
#include "support/even_odd.h"
#include "support/mesh_checker.h"
#include "support/triangulation.h"

namespace {

using exact::Point2;
using mesh::TPoint;

constexpr std::size_t kMostPoints = 300;

// The predicates neither overflow nor underflow, and no two points are merged that differ.
bool IsTame(const std::vector<TPoint>& points) {
  for (const TPoint& p : points) {
    for (const double value : {p.x, p.y}) {
      if (value != std::nearbyint(value) || std::fabs(value) > 1e6) {
        return false;
      }
    }
  }
  return true;
}

bool HasCrossing(const std::vector<TPoint>& points) {
  const auto at = [&points](std::size_t i) { return Point2{points[i].x, points[i].y}; };
  for (std::size_t i = 1; i < points.size(); ++i) {
    for (std::size_t j = 1; j < i; ++j) {
      if (points[i].flag == 0 && points[j].flag == 0 &&
          exact::CrossProperly(at(i - 1), at(i), at(j - 1), at(j))) {
        return true;
      }
    }
  }
  return false;
}

void CheckReadable(const mesh::Triangulation& built) {
  const auto vertexCount = static_cast<int>(built.vertices.size());
  const auto triangleCount = static_cast<int>(built.triangles.size());
  for (std::size_t t = 0; t < built.triangles.size(); ++t) {
    for (std::size_t k = 0; k < 3; ++k) {
      FUZZ_CHECK(built.triangles[t][k] >= 1 && built.triangles[t][k] <= vertexCount);
      FUZZ_CHECK(built.neighbours[t][k] >= 0 && built.neighbours[t][k] <= triangleCount);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  GTEST_FLAG_SET(break_on_failure, true);
  zyl::geometry::internal::tri_SetQuiet(1);
  fuzz::Input input(data, size);
  const int breaklines = input.Byte() % 4;  // none, few, half, nearly all
  const double tolerance = input.Byte() % 4 == 0 ? 0.5 : 0.0;
  input.DrawKind();
  std::vector<TPoint> points;
  while (input.Left() > 0 && points.size() < kMostPoints) {
    const double x = input.Coordinate();
    const double y = input.Coordinate();
    points.push_back({x, y, 0, input.Byte() % 4 < breaklines ? 0 : 1});
  }
  const mesh::Triangulation built = mesh::Triangulate(points, tolerance, tolerance);
  CheckReadable(built);
  if (built.result == 0 && !built.triangles.empty() && tolerance == 0 && IsTame(points) &&
      !HasCrossing(points)) {
    mesh::Check(points, built);
  }
  return 0;
}
