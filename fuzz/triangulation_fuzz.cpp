// The engine on any points and flags. It has to come to an end with an array that can be read;
// where no two breaklines cross, the tests' verifier has to find nothing wrong with the mesh.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "input.h"
#include "support/mesh_checker.h"

namespace {

using mesh::TPoint;

// The predicates neither overflow nor underflow, and no two points are merged that differ.
bool IsTame(const TPoint& p) {
  return p.x == std::nearbyint(p.x) && std::fabs(p.x) <= 1e6 && p.y == std::nearbyint(p.y) &&
         std::fabs(p.y) <= 1e6;
}

// Whether c and d lie on different sides of the line from a to b; nothing rounds if they are tame.
bool Parts(const TPoint& a, const TPoint& b, const TPoint& c, const TPoint& d) {
  const auto turn = [&](const TPoint& p) {
    return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
  };
  return turn(c) * turn(d) < 0;
}

bool HasCrossing(const mesh::Points& p) {
  for (std::size_t i = 1; i < p.size(); ++i) {
    for (std::size_t j = 1; p[i].flag == 0 && j < i; ++j) {
      if (p[j].flag == 0 && Parts(p[i - 1], p[i], p[j - 1], p[j]) &&
          Parts(p[j - 1], p[j], p[i - 1], p[i])) {
        return true;
      }
    }
  }
  return false;
}

}  // namespace

void fuzz::Run(Input& input) {
  GTEST_FLAG_SET(break_on_failure, true);
  zyl::geometry::internal::tri_SetQuiet(1);
  const int breaklines = input.Byte() % 4;  // none, few, half, nearly all
  const double tolerance = input.Byte() % 4 == 0 ? 0.5 : 0.0;
  input.DrawKind();
  mesh::Points points;
  while (input.Left() > 0 && points.size() < 300) {
    const double x = input.Coordinate();
    const double y = input.Coordinate();
    points.push_back({x, y, 0, input.Byte() % 4 < breaklines ? 0 : 1});
  }
  const mesh::Triangulation built = mesh::Triangulate(points, tolerance, tolerance);
  for (std::size_t i = 0; i < 3 * built.triangles.size(); ++i) {
    const int corner = built.triangles[i / 3][i % 3], across = built.neighbours[i / 3][i % 3];
    FUZZ_CHECK(corner >= 1 && corner <= static_cast<int>(built.vertices.size()));
    FUZZ_CHECK(across >= 0 && across <= static_cast<int>(built.triangles.size()));
  }
  if (built.result == 0 && !built.triangles.empty() && tolerance == 0 &&
      std::all_of(points.begin(), points.end(), IsTame) && !HasCrossing(points)) {
    mesh::Check(points, built);
  }
}
