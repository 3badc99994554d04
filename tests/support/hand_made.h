#pragma once

// Vertices and half-edges of the engine put together by hand, also as no construction leaves them.

#include <gtest/gtest.h>

#include "support/triangulation.h"
#include "trimake/records.h"

namespace mesh {

class HandMade : public testing::Test {
 protected:
  using TEdge = zyl::geometry::internal::TEdge;
  using TVertex = zyl::geometry::internal::TVertex;

  /// Vertices at the points, none of them joined, and so many half-edges to join them by.
  void Place(const Points& points, std::size_t edges) {
    points_ = points;
    state_.points = points_.data();
    state_.vertexCount = state_.pointCount = static_cast<int>(points_.size());
    vertices_ = Generate(state_.pointCount, [this](int i) {
      const TPoint& p = state_.points[i];
      return TVertex{{p.x, p.y}, &p, nullptr, i, i};
    });
    edges_.assign(edges, TEdge{});
    state_.freeEdges = nullptr;
    state_.unusedEdges = edges_.data();
    state_.unusedEnd = edges_.data() + edges;
  }

  TVertex* V(std::size_t i) { return &vertices_[i]; }

  /// The new half-edges go to the end of their rings.
  TEdge* Join(std::size_t a, std::size_t b) {
    const auto last = [](const TVertex& v) { return v.first ? v.first->prev : nullptr; };
    return tri_Make_Edge(state_, V(a), V(b), last(*V(a)), last(*V(b)), false, false).edge;
  }

  /// Numbers of the destinations round a vertex, from `first`; checks the links on the way.
  std::vector<int> Around(std::size_t v) {
    std::vector<int> seen;
    for (const TEdge* e = V(v)->first; e != nullptr && seen.size() < 1000; e = e->next) {
      EXPECT_TRUE(e->next->prev == e && e->twin->twin == e && e->twin->dest == V(v));
      seen.push_back(e->dest->number);
      if (e->next == V(v)->first) {
        break;
      }
    }
    return seen;
  }

  zyl::geometry::internal::TrimakeState state_{};
  Points points_;
  std::vector<TVertex> vertices_;
  std::vector<TEdge> edges_;
};

}  // namespace mesh
