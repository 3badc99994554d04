#pragma once

// Points for the engine, and one call of it with all its outputs, copied into containers that free
// themselves.

#include <array>
#include <cstddef>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

#include "trimake/delaunay.h"

namespace mesh {

using zyl::geometry::internal::TPoint;
using Points = std::vector<TPoint>;

constexpr int kJoined = 0;  // by a breakline, to the point before
constexpr int kLoose = 1;

/// The points of breaklines, each given as x, y, x, y, ...; one point alone is just a point.
inline Points Lines(std::initializer_list<std::vector<double>> lines) {
  Points points;
  for (const std::vector<double>& line : lines) {
    for (std::size_t i = 0; i < line.size(); i += 2) {
      points.push_back({line[i], line[i + 1], 0, i == 0 ? kLoose : kJoined});
    }
  }
  return points;
}

/// place(0) to place(n - 1).
template <class Place>
Points Generate(int n, Place place) {
  Points points;
  for (int i = 0; i < n; ++i) {
    points.push_back(place(i));
  }
  return points;
}

/// Breakline segments along one triangle edge, as (from, to), newest first.
using Segments = std::vector<std::pair<int, int>>;

struct Triangulation {
  int result = 0;
  Points vertices;
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

inline Triangulation Triangulate(const Points& points, double nearTolerance = 0,
                                 double relativeTolerance = 0) {
  int triangleCount = -1, vertexCount = -1;
  TPoint* vertices = nullptr;
  int *triangles = nullptr, *neighbours = nullptr;
  void* edgeInfo = nullptr;
  Triangulation mesh;
  mesh.result = zyl::geometry::internal::tri_Triangulate(
      static_cast<int>(points.size()), points.data(), &triangleCount, &vertexCount, &vertices,
      &triangles, &edgeInfo, &neighbours, nearTolerance, relativeTolerance);
  mesh.vertices.assign(vertices, vertices + vertexCount);
  const auto* pairs = static_cast<const zyl::geometry::internal::TEdgeInfo*>(edgeInfo);
  for (int i = 0; i < 3 * triangleCount; i += 3) {
    mesh.triangles.push_back({triangles[i], triangles[i + 1], triangles[i + 2]});
    mesh.neighbours.push_back({neighbours[i], neighbours[i + 1], neighbours[i + 2]});
    mesh.segments.push_back({ListOf(pairs[i]), ListOf(pairs[i + 1]), ListOf(pairs[i + 2])});
  }
  for (void* block : {static_cast<void*>(vertices), static_cast<void*>(triangles), edgeInfo,
                      static_cast<void*>(neighbours)}) {
    std::free(block);
  }
  return mesh;
}

}  // namespace mesh
