#pragma once

// One call of the engine with all its outputs, copied into containers that free themselves.

#include <array>
#include <cstdlib>
#include <utility>
#include <vector>

#include "trimake/delaunay.h"

namespace mesh {

using zyl::geometry::internal::TPoint;

/// Breakline segments along one triangle edge, as (from, to), newest first.
using Segments = std::vector<std::pair<int, int>>;

struct Triangulation {
  int result = 0;
  std::vector<TPoint> vertices;
  std::vector<std::array<int, 3>> triangles;   // 1-based vertex numbers
  std::vector<std::array<int, 3>> neighbours;  // 1-based triangle numbers, or 0
  std::vector<std::array<Segments, 3>> segments;
};

inline Segments ListOf(const zyl::geometry::internal::TEdgeInfo& info) {
  Segments list;
  const std::size_t count = static_cast<std::size_t>(info.count);
  for (const auto* i = info.list; i != nullptr && list.size() <= count; i = i->next) {
    list.emplace_back(i->from, i->to);
  }
  // A count that disagrees with its list shows as a segment that nobody asked for.
  if (list.size() != count) {
    list.emplace_back(-1, -1);
  }
  return list;
}

inline Triangulation Triangulate(const std::vector<TPoint>& points, double nearTolerance = 0,
                                 double relativeTolerance = 0) {
  int triangleCount = -1;
  int vertexCount = -1;
  TPoint* vertices = nullptr;
  int* triangles = nullptr;
  void* edgeInfo = nullptr;
  int* neighbours = nullptr;
  Triangulation mesh;
  mesh.result = zyl::geometry::internal::tri_Triangulate(
      static_cast<int>(points.size()), points.data(), &triangleCount, &vertexCount, &vertices,
      &triangles, &edgeInfo, &neighbours, nearTolerance, relativeTolerance);
  mesh.vertices.assign(vertices, vertices + vertexCount);
  const auto* pairs = static_cast<const zyl::geometry::internal::TEdgeInfo*>(edgeInfo);
  for (int t = 0; t < triangleCount; ++t) {
    const int* const c = triangles + 3 * t;
    const int* const n = neighbours + 3 * t;
    mesh.triangles.push_back({c[0], c[1], c[2]});
    mesh.neighbours.push_back({n[0], n[1], n[2]});
    mesh.segments.push_back(
        {ListOf(pairs[3 * t]), ListOf(pairs[3 * t + 1]), ListOf(pairs[3 * t + 2])});
  }
  std::free(vertices);
  std::free(triangles);
  std::free(edgeInfo);
  std::free(neighbours);
  return mesh;
}

}  // namespace mesh
