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
#include <map>
#include <string>

#include "support/exact.h"
#include "support/triangulation.h"

namespace mesh {

/// Checks one triangulation of one input; `Check` is the way to it.
class Checker {
 public:
  Checker(const Points& input, const Triangulation& mesh, bool isRounded)
      : input_(input), mesh_(mesh), isRounded_(isRounded) {}

  void Run() {
    ASSERT_EQ(mesh_.result, 0);
    ASSERT_EQ(mesh_.neighbours.size(), mesh_.triangles.size());
    CheckVertices();
    if (CheckCorners()) {  // else everything would follow numbers that lead nowhere
      CheckEdges();
      CheckBoundary();
      CheckBreaklines();
    }
  }

 private:
  using Edge = std::pair<int, int>;
  using Path = std::map<int, std::vector<int>>;  // vertices to those beside them

  static bool Precedes(const TPoint& a, const TPoint& b) {
    return a.x < b.x || (a.x == b.x && a.y < b.y);
  }

  const TPoint& Vertex(int number) const {
    return mesh_.vertices[static_cast<std::size_t>(number - 1)];
  }
  int Corner(std::size_t t, std::size_t k) const { return mesh_.triangles[t][k % 3]; }
  Edge EdgeOf(std::size_t side) const {
    return {Corner(side / 3, side % 3), Corner(side / 3, side % 3 + 1)};
  }
  const double* XY(int number) const { return &Vertex(number).x; }
  int TurnSign(int a, int b, int c) const { return exact::Orient2D(XY(a), XY(b), XY(c)); }

  // The vertex that stands for p: the last in sorted order that is not behind it.
  int VertexOf(const TPoint& p) const {
    const auto begin = mesh_.vertices.begin();
    return static_cast<int>(std::upper_bound(begin, begin + sortedCount_, p, Precedes) - begin);
  }

  // Sorted and distinct, each an input point, and every input point at one of them. Vertices
  // where breaklines cross follow.
  void CheckVertices() {
    Points sorted = input_;
    std::stable_sort(sorted.begin(), sorted.end(), Precedes);
    for (const TPoint& p : sorted) {
      const TPoint last = sortedCount_ > 0 ? Vertex(sortedCount_) : TPoint{HUGE_VAL, 0, 0, 0};
      const double dx = p.x - last.x, dy = p.y - last.y;
      if (dx * dx + dy * dy > 1e-16) {
        ++sortedCount_;
        ASSERT_LE(sortedCount_, static_cast<int>(mesh_.vertices.size()));
        const TPoint& v = Vertex(sortedCount_);
        EXPECT_TRUE(v.x == p.x && v.y == p.y && v.flag == p.flag) << "vertex " << sortedCount_;
      }
    }
    EXPECT_TRUE(static_cast<int>(mesh_.vertices.size()) == sortedCount_ ||
                std::any_of(input_.begin() + 1, input_.end(), [](auto& p) { return p.flag == 0; }));
  }

  bool CheckCorners() {
    std::vector<bool> isUsed(mesh_.vertices.size() + 1, false);
    const int vertices = static_cast<int>(mesh_.vertices.size());
    for (const auto& c : mesh_.triangles) {
      for (const int corner : c) {
        if (corner < 1 || corner > vertices) {
          ADD_FAILURE() << "no corner " << corner;
          return false;
        }
        isUsed[static_cast<std::size_t>(corner)] = true;
      }
      EXPECT_EQ(TurnSign(c[0], c[1], c[2]), -1) << c[0] << ", " << c[1] << ", " << c[2];
      EXPECT_TRUE(c[0] < c[1] && c[0] < c[2]) << c[0] << ", " << c[1] << ", " << c[2];
    }
    EXPECT_EQ(std::count(isUsed.begin(), isUsed.end(), true), vertices) << "unused vertices";
    return true;
  }

  // Two triangles that share an edge run along it in opposite directions; so each direction
  // occurs once. What the neighbour array and the segment lists say has to agree.
  void CheckEdges() {
    std::map<Edge, std::size_t> sideOf;  // 3 * triangle + edge
    for (std::size_t side = 0; side < 3 * mesh_.triangles.size(); ++side) {
      EXPECT_TRUE(sideOf.emplace(EdgeOf(side), side).second) << "twice: side " << side;
    }
    std::size_t shared = 0;
    for (const auto& [edge, side] : sideOf) {
      const auto across = sideOf.find({edge.second, edge.first});
      if (across == sideOf.end()) {
        EXPECT_EQ(mesh_.neighbours[side / 3][side % 3], 0);
        next_.insert(edge);
      } else {
        CheckSharedEdge(side / 3, side % 3, across->second / 3, across->second % 3);
        ++shared;
      }
    }
    const std::size_t edges = next_.size() + shared / 2;
    EXPECT_EQ(mesh_.vertices.size() + mesh_.triangles.size(), edges + 1) << "Euler";
  }

  void CheckSharedEdge(std::size_t t, std::size_t k, std::size_t u, std::size_t j) {
    EXPECT_EQ(mesh_.neighbours[t][k], static_cast<int>(u) + 1);
    EXPECT_EQ(mesh_.segments[t][k], mesh_.segments[u][j]);
    if (t < u && mesh_.segments[t][k].empty()) {
      EXPECT_LE(exact::InCircle(XY(Corner(t, 2)), XY(Corner(t, 1)), XY(Corner(t, 0)),
                                XY(Corner(u, j + 2))),
                0)
          << "edge " << k << " of triangle " << t << " is not Delaunay";
    }
  }

  // One loop, clockwise as the triangles are, that never turns left and turns back in x twice.
  void CheckBoundary() {
    ASSERT_FALSE(next_.empty());
    const int start = next_.begin()->first;
    std::size_t length = 0;
    int reversals = 0;
    int at = start;
    do {
      const int to = next_[at], then = next_[to];
      ASSERT_TRUE(to != 0 && then != 0 && length <= next_.size()) << "boundary broken at " << at;
      EXPECT_LE(TurnSign(at, to, then), 0) << "hollow at " << to;
      reversals += Precedes(Vertex(at), Vertex(to)) != Precedes(Vertex(to), Vertex(then));
      at = to;
      ++length;
    } while (at != start);
    EXPECT_EQ(length, next_.size()) << "boundary in several pieces";
    EXPECT_EQ(reversals, 2) << "boundary runs round more than once";
  }

  // Every requested segment is a path of edges that name it, from end to end, and no edge names
  // one that was not requested.
  void CheckBreaklines() {
    std::map<Edge, Path> paths;
    for (std::size_t side = 0; side < 3 * mesh_.triangles.size(); ++side) {
      const auto [a, b] = EdgeOf(side);
      if (a < b || mesh_.neighbours[side / 3][side % 3] == 0) {  // else seen from the other side
        for (const auto& segment : mesh_.segments[side / 3][side % 3]) {
          paths[segment][a].push_back(b);
          paths[segment][b].push_back(a);
        }
      }
    }
    for (std::size_t i = 1; i < input_.size(); ++i) {
      const testing::ScopedTrace trace(__FILE__, __LINE__, "segment to point " + std::to_string(i));
      const int to = VertexOf(input_[i]), from = VertexOf(input_[i - 1]);
      const auto path = paths.find({static_cast<int>(i) - 1, static_cast<int>(i)});
      const bool isWanted = input_[i].flag == 0 && to != from;
      ASSERT_EQ(path != paths.end(), isWanted);
      if (isWanted) {
        CheckPath(path->second, from, to);
        CheckCourse(path->second, from, to);
        paths.erase(path);
      }
    }
    EXPECT_TRUE(paths.empty()) << "edges name segments that do not exist";
  }

  void CheckPath(const Path& path, int from, int to) const {
    EXPECT_TRUE(path.count(from));
    for (const auto& [vertex, others] : path) {
      const std::size_t degree = isRounded_ ? 2 - others.size() % 2 : others.size();
      EXPECT_EQ(degree, vertex == from || vertex == to ? 1u : 2u) << "at " << vertex;
    }
    if (isRounded_) {
      return;
    }
    std::size_t visited = 1;
    for (int at = from, before = 0; at != to && visited <= path.size(); ++visited) {
      const auto step = path.find(at);
      ASSERT_NE(step, path.end()) << "stops at " << at;
      const std::vector<int>& others = step->second;
      before = std::exchange(at, others.front() != before ? others.front() : others.back());
    }
    EXPECT_EQ(visited, path.size()) << "not one path";
  }

  // The path keeps to its segment, but for the distance within which points are one vertex and the
  // rounding of a squared distance from a line. If it is not bent to a point beside it, it misses
  // no point that is exactly on it.
  void CheckCourse(const Path& path, int from, int to) {
    const TPoint &a = Vertex(from), &b = Vertex(to);
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length = std::hypot(dx, dy);
    bool isBent = isRounded_;
    for (const auto& [vertex, others] : path) {
      const TPoint& q = Vertex(vertex);
      const double distance = std::abs(dx * (q.y - a.y) - dy * (q.x - a.x)) / length;
      EXPECT_LE(distance, 1e-8 * (1 + length)) << "at " << vertex;
      isBent = isBent || (vertex <= sortedCount_ && TurnSign(from, to, vertex) != 0);
    }
    // On an edge alone a vertex would spoil the triangles beside it.
    for (int v = 1; !isBent && path.size() > 2 && v <= sortedCount_; ++v) {
      const TPoint& q = Vertex(v);
      const bool isBetween = q.x != a.x ? (a.x < q.x) == (q.x < b.x) : (a.y < q.y) == (q.y < b.y);
      if (isBetween && TurnSign(from, to, v) == 0) {
        EXPECT_TRUE(path.count(v)) << "misses vertex " << v;
      }
    }
  }

  const Points& input_;
  const Triangulation& mesh_;
  bool isRounded_;
  int sortedCount_ = 0;
  std::map<int, int> next_;  // along the boundary
};

/// Fails the running test unless `mesh` is the triangulation of `input`: Delaunay but for its
/// breaklines, which cover every requested segment.
inline void Check(const Points& input, const Triangulation& mesh) {
  Checker(input, mesh, false).Run();
}
inline void Check(const Points& input) { Check(input, Triangulate(input)); }

/// The same of breaklines so nearly in line that the rounding of crossings decides where they run.
/// One may miss a vertex on it, and run back over itself: it covers its segment modulo 2, which is
/// all that even-odd marks go by.
inline void CheckRounded(const Points& input) { Checker(input, Triangulate(input), true).Run(); }

}  // namespace mesh
