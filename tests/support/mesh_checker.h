#pragma once

// Independent verifier of a triangulation: knows the output arrays alone, and decides every sign
// exactly.
//
// If every triangle is clockwise, every edge is shared by two triangles or lies on one closed
// convex boundary that runs round once, and the Euler count is that of a disc, the triangles cover
// the convex hull once. If besides the circle of every triangle holds none of the corners across
// its free edges, the triangulation is Delaunay (B. Delaunay, "Sur la sphère vide", 1934).

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <unordered_map>
#include <vector>

#include "support/exact.h"
#include "support/triangulation.h"

namespace mesh {

/// Sign of the turn a, b, c: extended precision where that is certain, integers where it is not.
inline int TurnSign(const TPoint& a, const TPoint& b, const TPoint& c) {
  using Wide = long double;
  const Wide left = (Wide{a.x} - c.x) * (Wide{b.y} - c.y);
  const Wide right = (Wide{a.y} - c.y) * (Wide{b.x} - c.x);
  const Wide bound = 16 * std::numeric_limits<Wide>::epsilon() * (std::abs(left) + std::abs(right));
  if (std::abs(left - right) > bound) {
    return left > right ? 1 : -1;
  }
  return exact::Orient2D(&a.x, &b.x, &c.x);
}

/// 1 if d is inside the circle through the counterclockwise a, b, c, -1 outside, 0 on it.
inline int CircleSign(const TPoint& a, const TPoint& b, const TPoint& c, const TPoint& d) {
  using Wide = long double;
  const Wide ax = Wide{a.x} - d.x, ay = Wide{a.y} - d.y;
  const Wide bx = Wide{b.x} - d.x, by = Wide{b.y} - d.y;
  const Wide cx = Wide{c.x} - d.x, cy = Wide{c.y} - d.y;
  const Wide liftA = ax * ax + ay * ay, liftB = bx * bx + by * by, liftC = cx * cx + cy * cy;
  const Wide det =
      liftA * (bx * cy - cx * by) + liftB * (cx * ay - ax * cy) + liftC * (ax * by - bx * ay);
  const Wide magnitude = liftA * (std::abs(bx * cy) + std::abs(cx * by)) +
                         liftB * (std::abs(cx * ay) + std::abs(ax * cy)) +
                         liftC * (std::abs(ax * by) + std::abs(bx * ay));
  if (std::abs(det) > 32 * std::numeric_limits<Wide>::epsilon() * magnitude) {
    return det > 0 ? 1 : -1;
  }
  return exact::InCircle(&a.x, &b.x, &c.x, &d.x);
}

/// Checks one triangulation of one input; `Check` is the way to it.
class Checker {
 public:
  Checker(const std::vector<TPoint>& input, const Triangulation& mesh)
      : input_(input), mesh_(mesh) {}

  void Run() {
    if (mesh_.result != 0 || mesh_.neighbours.size() != mesh_.triangles.size()) {
      ADD_FAILURE() << "result " << mesh_.result;
      return;
    }
    CheckVertices();
    if (!CheckCorners()) {
      return;  // everything else would follow numbers that lead nowhere
    }
    CheckEdges();
    CheckBoundary();
    CheckBreaklines();
  }

 private:
  static bool Precedes(const TPoint& a, const TPoint& b) {
    return a.x < b.x || (a.x == b.x && a.y < b.y);
  }

  static std::uint64_t Key(int from, int to) {
    return static_cast<std::uint64_t>(from) << 32 | static_cast<std::uint32_t>(to);
  }

  const TPoint& Vertex(int number) const {
    return mesh_.vertices[static_cast<std::size_t>(number - 1)];
  }

  // The vertex that stands for p: the last in sorted order that is not behind it.
  int VertexOf(const TPoint& p) const {
    const auto end = mesh_.vertices.begin() + sortedCount_;
    return static_cast<int>(std::upper_bound(mesh_.vertices.begin(), end, p, Precedes) -
                            mesh_.vertices.begin());
  }

  // Sorted and distinct, each an input point, and every input point at one of them. Vertices
  // where breaklines cross follow.
  void CheckVertices() {
    std::vector<TPoint> sorted = input_;
    std::stable_sort(sorted.begin(), sorted.end(), Precedes);
    for (const TPoint& p : sorted) {
      const TPoint* const last = sortedCount_ > 0 ? &Vertex(sortedCount_) : nullptr;
      const double dx = last != nullptr ? p.x - last->x : 0;
      const double dy = last != nullptr ? p.y - last->y : 0;
      if (last == nullptr || dx * dx + dy * dy > 1e-16) {
        ++sortedCount_;
        ASSERT_LE(sortedCount_, static_cast<int>(mesh_.vertices.size()));
        const TPoint& v = Vertex(sortedCount_);
        EXPECT_TRUE(v.x == p.x && v.y == p.y && v.flag == p.flag) << "vertex " << sortedCount_;
      }
    }
    if (!HasBreaklines()) {
      EXPECT_EQ(static_cast<int>(mesh_.vertices.size()), sortedCount_);
    }
  }

  bool HasBreaklines() const {
    return std::any_of(input_.begin() + 1, input_.end(), [](auto& p) { return p.flag == 0; });
  }

  bool CheckCorners() {
    std::vector<bool> isUsed(mesh_.vertices.size() + 1, false);
    const int vertices = static_cast<int>(mesh_.vertices.size());
    for (std::size_t t = 0; t < mesh_.triangles.size(); ++t) {
      const auto& c = mesh_.triangles[t];
      if (*std::min_element(c.begin(), c.end()) < 1 ||
          *std::max_element(c.begin(), c.end()) > vertices) {
        ADD_FAILURE() << "triangle " << t << " has no such corner";
        return false;
      }
      EXPECT_EQ(TurnSign(Vertex(c[0]), Vertex(c[1]), Vertex(c[2])), -1) << "triangle " << t;
      EXPECT_TRUE(c[0] < c[1] && c[0] < c[2]) << "triangle " << t;
      for (int k = 0; k < 3; ++k) {
        isUsed[static_cast<std::size_t>(c[static_cast<std::size_t>(k)])] = true;
      }
    }
    EXPECT_EQ(std::count(isUsed.begin(), isUsed.end(), true), vertices) << "unused vertices";
    return true;
  }

  // Two triangles that share an edge run along it in opposite directions; so each direction
  // occurs once. What the neighbour array and the segment lists say has to agree.
  void CheckEdges() {
    std::unordered_map<std::uint64_t, std::size_t> sideOf;  // 3 * triangle + edge
    sideOf.reserve(3 * mesh_.triangles.size());
    for (std::size_t t = 0; t < mesh_.triangles.size(); ++t) {
      for (std::size_t k = 0; k < 3; ++k) {
        const bool isNew = sideOf.emplace(Key(Corner(t, k), Corner(t, k + 1)), 3 * t + k).second;
        EXPECT_TRUE(isNew) << "edge " << k << " of triangle " << t << " twice";
      }
    }
    std::size_t shared = 0;
    for (std::size_t t = 0; t < mesh_.triangles.size(); ++t) {
      for (std::size_t k = 0; k < 3; ++k) {
        const auto across = sideOf.find(Key(Corner(t, k + 1), Corner(t, k)));
        if (across == sideOf.end()) {
          EXPECT_EQ(mesh_.neighbours[t][k], 0);
          next_[Corner(t, k)] = Corner(t, k + 1);
          continue;
        }
        ++shared;
        CheckSharedEdge(t, k, across->second / 3, across->second % 3);
      }
    }
    const std::size_t edges = next_.size() + shared / 2;
    EXPECT_EQ(mesh_.vertices.size() + mesh_.triangles.size(), edges + 1) << "Euler";
  }

  int Corner(std::size_t t, std::size_t k) const { return mesh_.triangles[t][k % 3]; }

  void CheckSharedEdge(std::size_t t, std::size_t k, std::size_t u, std::size_t j) {
    EXPECT_EQ(mesh_.neighbours[t][k], static_cast<int>(u) + 1);
    EXPECT_EQ(mesh_.segments[t][k], mesh_.segments[u][j]);
    if (t < u && mesh_.segments[t][k].empty()) {
      EXPECT_LE(CircleSign(Vertex(Corner(t, 2)), Vertex(Corner(t, 1)), Vertex(Corner(t, 0)),
                           Vertex(Corner(u, j + 2))),
                0)
          << "edge " << k << " of triangle " << t << " is not Delaunay";
    }
  }

  // One loop, clockwise as the triangles are, that never turns left and turns back in x twice.
  void CheckBoundary() {
    if (next_.empty()) {
      EXPECT_TRUE(mesh_.triangles.empty());
      return;
    }
    const int start = next_.begin()->first;
    std::size_t length = 0;
    int reversals = 0;
    int at = start;
    do {
      const int to = next_[at];
      const int then = next_[to];
      ASSERT_TRUE(to != 0 && then != 0 && length <= next_.size()) << "boundary broken at " << at;
      EXPECT_LE(TurnSign(Vertex(at), Vertex(to), Vertex(then)), 0) << "hollow at " << to;
      reversals += (to > at) != (then > to);  // vertices are numbered by x, then y
      at = to;
      ++length;
    } while (at != start);
    EXPECT_EQ(length, next_.size()) << "boundary in several pieces";
    if (!HasBreaklines()) {
      EXPECT_EQ(reversals, 2) << "boundary runs round more than once";
    }
  }

  // Every requested segment is a path of edges that name it, from end to end, and no edge names
  // one that was not requested.
  void CheckBreaklines() {
    std::map<std::pair<int, int>, std::map<int, std::vector<int>>> paths;
    for (std::size_t t = 0; t < mesh_.triangles.size(); ++t) {
      for (std::size_t k = 0; k < 3; ++k) {
        const int a = Corner(t, k), b = Corner(t, k + 1);
        if (a > b && mesh_.neighbours[t][k] != 0) {
          continue;  // seen from the other side
        }
        for (const auto& segment : mesh_.segments[t][k]) {
          paths[segment][a].push_back(b);
          paths[segment][b].push_back(a);
        }
      }
    }
    for (std::size_t i = 1; i < input_.size(); ++i) {
      const int to = VertexOf(input_[i]), from = VertexOf(input_[i - 1]);
      const auto path = paths.find({static_cast<int>(i) - 1, static_cast<int>(i)});
      const bool isWanted = input_[i].flag == 0 && to != from;
      ASSERT_EQ(path != paths.end(), isWanted) << "segment to point " << i;
      if (isWanted) {
        CheckPath(i, path->second, from, to);
        CheckCourse(i, path->second, Vertex(from), Vertex(to));
        paths.erase(path);
      }
    }
    EXPECT_TRUE(paths.empty()) << "edges name segments that do not exist";
  }

  static void CheckPath(std::size_t i, const std::map<int, std::vector<int>>& path, int from,
                        int to) {
    for (const auto& [vertex, others] : path) {
      const bool isEnd = vertex == from || vertex == to;
      EXPECT_EQ(others.size(), isEnd ? 1u : 2u) << "segment to point " << i << ", at " << vertex;
    }
    std::size_t visited = 1;
    int before = 0;
    int at = from;
    while (at != to && visited <= path.size()) {
      const auto step = path.find(at);
      ASSERT_NE(step, path.end()) << "segment to point " << i << " stops at " << at;
      const int next = step->second.front() != before ? step->second.front() : step->second.back();
      before = at;
      at = next;
      ++visited;
    }
    EXPECT_EQ(visited, path.size()) << "segment to point " << i << " is not one path";
  }

  // The path keeps to its segment, but for the distance within which points are one vertex and the
  // rounding of a squared distance from a line. If it is not bent to a point beside it, it misses
  // no point that is exactly on it.
  void CheckCourse(std::size_t i, const std::map<int, std::vector<int>>& path, const TPoint& a,
                   const TPoint& b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length = std::hypot(dx, dy);
    bool isBent = false;
    for (const auto& [vertex, others] : path) {
      const TPoint& q = Vertex(vertex);
      const double distance = std::abs(dx * (q.y - a.y) - dy * (q.x - a.x)) / length;
      EXPECT_LE(distance, 1e-8 * (1 + length)) << "segment to point " << i << ", at " << vertex;
      isBent = isBent || (vertex <= sortedCount_ && TurnSign(a, b, q) != 0);
    }
    if (isBent || path.size() == 2) {
      return;  // an edge alone: a vertex on it would spoil the triangles beside it
    }
    for (int v = 1; v <= sortedCount_; ++v) {
      const TPoint& q = Vertex(v);
      const bool isBetween = q.x != a.x ? (a.x < q.x) == (q.x < b.x) : (a.y < q.y) == (q.y < b.y);
      if (isBetween && TurnSign(a, b, q) == 0) {
        EXPECT_TRUE(path.count(v)) << "segment to point " << i << " misses vertex " << v;
      }
    }
  }

  const std::vector<TPoint>& input_;
  const Triangulation& mesh_;
  int sortedCount_ = 0;
  std::map<int, int> next_;  // along the boundary
};

/// Fails the running test unless `mesh` is the triangulation of `input`: Delaunay but for its
/// breaklines, which cover every requested segment.
inline void Check(const std::vector<TPoint>& input, const Triangulation& mesh) {
  Checker(input, mesh).Run();
}

}  // namespace mesh
