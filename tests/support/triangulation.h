#pragma once

// Points for the engine, and one call of it with all its outputs, copied into containers that free
// themselves.

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <initializer_list>
#include <utility>

#include "support/generate.h"
#include "trimake/delaunay.h"

namespace mesh {

using zyl::geometry::internal::TPoint;
using Points = std::vector<TPoint>;

constexpr int kJoined = 0;  // by a breakline, to the point before
constexpr int kLoose = 5;   // anything but 0

/// The points of breaklines, each given as x, y, x, y, ... or, with three dimensions, x, y, z, ...;
/// one point alone is just a point.
inline Points Lines(std::initializer_list<std::vector<double>> lines, std::size_t dimensions = 2) {
  Points points;
  for (const std::vector<double>& line : lines) {
    for (std::size_t i = 0; i < line.size(); i += dimensions) {
      const double z = dimensions == 3 ? line[i + 2] : 0;
      points.push_back({line[i], line[i + 1], z, i == 0 ? kLoose : kJoined});
    }
  }
  return points;
}

inline TPoint Polar(double radius, double angle, int flag = kLoose) {
  return {radius * std::cos(angle), radius * std::sin(angle), 0, flag};
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

/// The arrays that one call hands out.
struct Arrays {
  int triangleCount = -1, vertexCount = -1;
  TPoint* vertices = nullptr;
  int *triangles = nullptr, *neighbours = nullptr;
  void* edgeInfo = nullptr;

  ~Arrays() {
    for (void* array : {static_cast<void*>(vertices), static_cast<void*>(triangles), edgeInfo,
                        static_cast<void*>(neighbours)}) {
      std::free(array);
    }
  }

  int Triangulate(const Points& points, double nearTolerance = 0, double relativeTolerance = 0) {
    return zyl::geometry::internal::tri_Triangulate(
        static_cast<int>(points.size()), points.data(), &triangleCount, &vertexCount, &vertices,
        &triangles, &edgeInfo, &neighbours, nearTolerance, relativeTolerance);
  }

  bool AreEmpty() const {
    return triangleCount == 0 && vertexCount == 0 && vertices == nullptr && triangles == nullptr &&
           edgeInfo == nullptr && neighbours == nullptr;
  }
};

inline Triangulation Triangulate(const Points& points, double nearTolerance = 0,
                                 double relativeTolerance = 0) {
  Arrays out;
  Triangulation mesh;
  mesh.result = out.Triangulate(points, nearTolerance, relativeTolerance);
  mesh.vertices.assign(out.vertices, out.vertices + out.vertexCount);
  const auto* pairs = static_cast<const zyl::geometry::internal::TEdgeInfo*>(out.edgeInfo);
  for (int i = 0; i < 3 * out.triangleCount; i += 3) {
    const int *corners = out.triangles + i, *across = out.neighbours + i;
    mesh.triangles.push_back({corners[0], corners[1], corners[2]});
    mesh.neighbours.push_back({across[0], across[1], across[2]});
    mesh.segments.push_back({ListOf(pairs[i]), ListOf(pairs[i + 1]), ListOf(pairs[i + 2])});
  }
  return mesh;
}

}  // namespace mesh
