#include "trimake/divide_conquer.h"

#include <cmath>
#include <cstdint>
#include <utility>

#include "trimake/allocation.h"
#include "trimake/orientation.h"
#include "trimake/pencil.h"

namespace zyl::geometry::internal {
namespace {

bool ComesBefore(const TVertex* a, const TVertex* b) {
  return a->xy[0] < b->xy[0] || (a->xy[0] == b->xy[0] && a->xy[1] < b->xy[1]);
}

// Whether m is the middle one of three distinct points on a line.
bool IsBetween(const TVertex* a, const TVertex* m, const TVertex* b) {
  return ComesBefore(a, m) == ComesBefore(m, b);
}

int MakeSegment(TrimakeState& state, TVertex* verts) {
  verts[0].first = nullptr;
  verts[1].first = nullptr;
  return tri_Make_Edge(state, &verts[0], &verts[1], nullptr, nullptr, false, false).edge ? 0 : -1;
}

int MakeChain(TrimakeState& state, TVertex* a, TVertex* m, TVertex* b) {
  if (!tri_Make_Edge(state, a, m, nullptr, nullptr, false, false).edge) {
    return -1;
  }
  return tri_Make_Edge(state, m, b, m->first, nullptr, false, false).edge ? 0 : -1;
}

// Counterclockwise triangle. Each `first` is the edge after the exterior gap.
int MakeTriangle(TrimakeState& state, TVertex* a, TVertex* b, TVertex* c) {
  if (!tri_Make_Edge(state, a, b, nullptr, nullptr, false, false).edge ||
      !tri_Make_Edge(state, b, c, b->first, nullptr, true, false).edge) {
    return -1;
  }
  return tri_Make_Edge(state, c, a, c->first, a->first, true, false).edge ? 0 : -1;
}

// Three vertices: a triangle, or a chain if they lie on one line. The sign is exact however small
// the area: a triangle of rounding noise would contradict what tangents and merges see later.
int MakeTriangleOrChain(TrimakeState& state, TVertex* verts) {
  TVertex* const a = &verts[0];
  TVertex* const b = &verts[1];
  TVertex* const c = &verts[2];
  a->first = nullptr;
  b->first = nullptr;
  c->first = nullptr;
  const double turn = orient2d(a->xy, b->xy, c->xy);
  if (turn < 0) {
    return MakeTriangle(state, c, b, a);
  }
  if (turn > 0) {
    return MakeTriangle(state, a, b, c);
  }
  // Sorted vertices follow each other along the line; on a turned copy they may not.
  if (IsBetween(b, a, c)) {
    return MakeChain(state, b, a, c);
  }
  return IsBetween(a, c, b) ? MakeChain(state, a, c, b) : MakeChain(state, a, b, c);
}

enum class End { kLower, kUpper };

// Neighbour in the ring on the way along a hull away from the tangent's start: the lower tangent
// walks down both hulls, the upper is its mirror image.
template <End end>
TEdge* Onward(TEdge* e) {
  return end == End::kLower ? e->next : e->prev;
}

template <End end>
TEdge* Backward(TEdge* e) {
  return end == End::kLower ? e->prev : e->next;
}

// Common tangent of two neighbouring hulls: walk along both from where they face each other.
//
//     L ·   · R     l and r are the hull edges just below L and R. A vertex below the line L→R
//     l ↓   ↓ r     lies to its right, so that R moves to r.dest while r.dest is right of L→R.
//
// A vertex on the line is no reason to move: of several in line the edge joins the innermost two,
// so that none lies between its ends. On a sound ring no hull vertex is passed twice; the budget
// is for a damaged one, which would otherwise be circled for ever.
// Returns 0 and fills `seam`, or -1 if the budget runs out. Touches no ring. O(hull vertices).
template <End end>
int Tangent(const TRun& left, const TRun& right, TSeam& seam) {
  TVertex* L = left.verts + left.count - 1;
  TVertex* R = right.verts;
  if (L->first == nullptr || R->first == nullptr) {
    return -1;
  }
  TEdge* l = end == End::kLower ? L->first->prev : L->first;
  TEdge* r = end == End::kLower ? R->first : R->first->prev;
  const auto isBeyond = [&L, &R](const TVertex* v) {
    return end == End::kLower ? cw(v, L, R) : ccw(v, L, R);
  };

  const std::int64_t budget = std::int64_t{left.count} + right.count + 10;
  for (std::int64_t moves = 0; moves < budget; ++moves) {
    if (isBeyond(r->dest)) {
      R = r->dest;
      r = Onward<end>(r->twin);
    } else if (isBeyond(l->dest)) {
      L = l->dest;
      l = Backward<end>(l->twin);
    } else {
      seam = {L, R};
      return 0;
    }
  }
  return -1;
}

// What one side of the base offers: the edge from its end to the third corner of a triangle.
struct Candidate {
  TEdge* edge;
  TApex apex;
  bool exists;  // the side reaches above the base
};

// Candidate at one end of the base. `edge` is the neighbour of the base in the ring of that end,
// and `Step` leads on from it: clockwise at the right end, counterclockwise at the left.
// An edge goes while the one behind it ends inside the circle through the base and its own end.
// Each round shortens the ring, and the base itself ends it: its ends are inside no circle.
template <TEdge* TEdge::*Step>
Candidate FindCandidate(TrimakeState& state, const TPencil& pencil, TVertex* end, TEdge* edge) {
  TApex apex = pencil.At(edge->dest);
  if (!pencil.Faces(apex)) {
    return {edge, apex, false};
  }
  for (;;) {
    TEdge* const behind = edge->*Step;
    const TApex next = pencil.At(behind->dest);
    if (!pencil.Holds(apex, next)) {
      return {edge, apex, true};
    }
    tri_Delete_Edge(state, end, edge);
    edge = behind;
    apex = next;
  }
}

// Gives the ring of v back to the free list.
void ReleaseRing(TrimakeState& state, TVertex* v) {
  if (v->first != nullptr) {
    v->first->prev->next = state.freeEdges;
    state.freeEdges = v->first;
    v->first = nullptr;
  }
}

void ReleaseRings(TrimakeState& state, int n, TVertex* verts) {
  for (int i = 0; i < n; ++i) {
    ReleaseRing(state, &verts[i]);
  }
}

struct Position2 {
  double x, y;
};

Position2 CentreOf(int n, const Position2* positions) {
  double sumX = 0;
  double sumY = 0;
  for (int i = 0; i < n; ++i) {
    sumX += positions[i].x;
    sumY += positions[i].y;
  }
  return {sumX / n, sumY / n};
}

void TurnRun(int n, const Position2* positions, const Position2& centre, double angle,
             TVertex* verts) {
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  for (int i = 0; i < n; ++i) {
    const double dx = positions[i].x - centre.x;
    const double dy = positions[i].y - centre.y;
    verts[i].xy[0] = dx * cosine + dy * sine;
    verts[i].xy[1] = dy * cosine - dx * sine;
  }
}

constexpr int kDeepestRetry = 25;
constexpr int kRetryAngles = 10;
constexpr double kFirstAngle = 0.1;
constexpr double kAngleStep = 0.6283185307179586;  // a tenth of a full turn

int BuildOrRetry(TrimakeState& state, const TRun& run) {
  if (tri_Divide_Conquer(state, run.count, run.verts) == 0) {
    return 0;
  }
  return tri_Retry_Rotated(state, run.count, run.verts);
}

}  // namespace

int tri_Lower_Tangent(const TRun& left, const TRun& right, TSeam& seam) {
  return Tangent<End::kLower>(left, right, seam);
}

int tri_Upper_Tangent(const TRun& left, const TRun& right, TSeam& seam) {
  return Tangent<End::kUpper>(left, right, seam);
}

// The base L→R rises from the lower tangent to the upper, one triangle at a time:
//
//      l     r          Each side offers the neighbour of the base that comes first once edges
//       \   /            which the new triangle would overlap are gone. Of the two offers that one
//      L ─── R          stays whose circle through the base does not hold the other; on a tie, four
//        base           points on one circle, the right one.
//
// The budget and the end of FindCandidate hold whatever the predicates say, so that rounding below
// the smallest doubles or a damaged ring ends in -1 or in an odd triangulation, never in a walk
// without end. O(edges made + edges deleted).
int tri_Merge(TrimakeState& state, const TRun& left, const TRun& right, const TSeam& lower,
              const TSeam& upper) {
  TVertex* L = lower.left;
  TVertex* R = lower.right;
  TEdge* l = L->first;  // the edges that follow the base, upwards, in the rings of its ends
  TEdge* r = R->first->prev;
  TEdge* afterL = l->prev;
  bool isFirstBase = true;

  std::int64_t budget = (std::int64_t{left.count} + right.count) * 3 + 100;
  while (L != upper.left || R != upper.right) {
    if (--budget == 0) {
      return -1;
    }
    const TEdgePair base = tri_Make_Edge(state, L, R, afterL, r, isFirstBase, false);
    if (base.edge == nullptr) {
      return -1;
    }
    isFirstBase = false;
    const TPencil pencil(L, R);
    const Candidate onRight = FindCandidate<&TEdge::prev>(state, pencil, R, r);
    const Candidate onLeft = FindCandidate<&TEdge::next>(state, pencil, L, l);
    if (!onRight.exists && !onLeft.exists) {
      return -1;
    }
    if (!onRight.exists || (onLeft.exists && pencil.Holds(onRight.apex, onLeft.apex))) {
      L = onLeft.edge->dest;
      afterL = onLeft.edge->twin;
      l = afterL->next;
      r = onRight.edge;
    } else {
      R = onRight.edge->dest;
      r = onRight.edge->twin->prev;
      afterL = base.edge;
      l = onLeft.edge;
    }
  }
  return tri_Make_Edge(state, L, R, afterL, r, false, true).edge ? 0 : -1;
}

int tri_Divide_Conquer(TrimakeState& state, int n, TVertex* verts) {
  if (n == 2) {
    return MakeSegment(state, verts);
  }
  if (n == 3) {
    return MakeTriangleOrChain(state, verts);
  }
  const TRun left{verts, n / 2};
  const TRun right{verts + n / 2, n - n / 2};
  if (BuildOrRetry(state, left) < 0 || BuildOrRetry(state, right) < 0) {
    return -1;
  }
  TSeam lower{};
  TSeam upper{};
  if (tri_Lower_Tangent(left, right, lower) < 0 || tri_Upper_Tangent(left, right, upper) < 0) {
    return -1;
  }
  return tri_Merge(state, left, right, lower, upper);
}

int tri_Retry_Rotated(TrimakeState& state, int n, TVertex* verts) {
  if (state.retryDepth > kDeepestRetry) {
    return -1;
  }
  const int depth = state.retryDepth + 1;
  // A retry inside a retry turns what is turned already, so that the coordinates to put back are
  // those of the vertices now, not those of their points.
  const MallocArray<Position2> saved =
      NewArray<Position2>(static_cast<std::size_t>(n), "tri_Create_Delaunay: out of memory");
  for (int i = 0; i < n; ++i) {
    saved[i] = {verts[i].xy[0], verts[i].xy[1]};
  }
  const Position2 centre = CentreOf(n, saved.get());
  state.retryDepth = depth * 3 / 2;  // retries inside the attempts use the budget up quickly

  int result = -1;
  for (int k = 0; k < kRetryAngles && result != 0; ++k) {
    ReleaseRings(state, n, verts);
    TurnRun(n, saved.get(), centre, kFirstAngle + k * kAngleStep, verts);
    result = tri_Divide_Conquer(state, n, verts);
  }
  for (int i = 0; i < n; ++i) {
    verts[i].xy[0] = saved[i].x;
    verts[i].xy[1] = saved[i].y;
  }
  state.retryDepth = result == 0 ? depth : kDeepestRetry;
  return result;
}

}  // namespace zyl::geometry::internal
