#pragma once

// Depth-first traversal of triangles across their edges, and the one that marks inside and outside.

#include <memory>

#include "trimake/records.h"

namespace zyl::geometry::internal {

/// Visits the triangles that can be reached from one of them, each once. Derived classes say what
/// becomes of a triangle, and where the traversal may go; on its own it goes everywhere.
class tri_Scan {
 public:
  /// `neighbours` is that of tri_Build_Adjacency and has to outlive the scan.
  tri_Scan(const int* neighbours, int triangleCount);
  virtual ~tri_Scan() = default;

  /// Visits triangle `start` (0-based) and from there what can be reached. O(triangles).
  void Run(int start);

 protected:
  /// Whether to go on from triangle t, which has just been visited for the first time.
  virtual bool Accept(int t);
  /// Whether triangle t may be left across its edge k.
  virtual bool MayCross(int t, int k);
  /// Marks the triangle that the traversal starts with.
  virtual void Seed(int t) = 0;
  /// Marks triangle `to`, first reached from triangle `from` across edge k of that.
  virtual void Propagate(int from, int k, int to);

 private:
  // Whether the traversal goes on into triangle t, which is visited from now on.
  bool Enter(int t);

  const int* neighbours_;
  std::unique_ptr<bool[]> visited_;  // per triangle
};

/// Marks triangles as inside (1) or outside (0): the mark changes across an edge with an odd number
/// of boundary segments and stays the same across any other.
class tri_Scan_Inside : public tri_Scan {
 public:
  /// `state` is the mark of the start triangle. Triangles never reached keep theirs in `inside`.
  tri_Scan_Inside(const int* neighbours, int triangleCount, const TEdgeInfo* edgeInfo, int state,
                  int* inside);

 protected:
  void Seed(int t) override;
  void Propagate(int from, int k, int to) override;

 private:
  const TEdgeInfo* edgeInfo_;
  int state_;
  int* inside_;
};

/// Whether an odd number of boundary segments runs along an edge.
inline bool IsBoundary(const TEdgeInfo& edge) { return edge.count % 2 != 0; }

}  // namespace zyl::geometry::internal
