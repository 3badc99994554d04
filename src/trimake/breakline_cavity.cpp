// The cavity that a segment leaves when the edges across it are gone: its two sides, and how each
// is triangulated again.

#include <cmath>
#include <cstdio>

#include "trimake/breaklines.h"
#include "trimake/orientation.h"
#include "trimake/xfloat.h"

namespace zyl::geometry::internal {
namespace {

// Two squared heights closer than this are compared in XFloat, whatever their rounding error.
constexpr double kNearTie = 1e-10;

// Error of a squared height, as a multiple of the squared distance from the base's start: 19
// roundings of 2^-53 add up in it, rounded up to a power of two.
constexpr double kHeightError = 0x1p-48;

struct Height {
  double squared;
  double error;
};

bool MayBeBelow(const Height& a, const Height& b) {
  return a.squared - a.error <= b.squared + b.error;
}

bool IsNearTie(const Height& a, const Height& b) {
  const double gap = std::fabs(a.squared - b.squared);
  return gap < kNearTie || gap <= a.error + b.error;
}

// Line through a and b, over which heights are taken.
class Base {
 public:
  Base(const TVertex* a, const TVertex* b)
      : a_(a), vx_(b->xy[0] - a->xy[0]), vy_(b->xy[1] - a->xy[1]), v2_(vx_ * vx_ + vy_ * vy_) {}

  bool IsPoint() const { return v2_ == 0; }

  Height HeightOf(const TVertex* q) const {
    const double ux = q->xy[0] - a_->xy[0];
    const double uy = q->xy[1] - a_->xy[1];
    const double u2 = ux * ux + uy * uy;
    const double t = ux * vx_ + uy * vy_;
    return {u2 - t * t / v2_, kHeightError * u2};
  }

 private:
  const TVertex* a_;
  double vx_;
  double vy_;
  double v2_;
};

XFloat Difference(double a, double b) {
  return XFloat::Subtract(XFloat::FromDouble(a), XFloat::FromDouble(b));
}

XFloat Dot(const XFloat& ux, const XFloat& uy, const XFloat& vx, const XFloat& vy) {
  return XFloat::Add(XFloat::Multiply(ux, vx), XFloat::Multiply(uy, vy));
}

// The same in extended precision, times |b − a|².
class ExtendedBase {
 public:
  ExtendedBase(const TVertex* a, const TVertex* b)
      : a_(a),
        vx_(Difference(b->xy[0], a->xy[0])),
        vy_(Difference(b->xy[1], a->xy[1])),
        v2_(Dot(vx_, vy_, vx_, vy_)) {}

  bool IsPoint() const { return v2_.IsZero(); }

  XFloat HeightOf(const TVertex* q) const {
    const XFloat ux = Difference(q->xy[0], a_->xy[0]);
    const XFloat uy = Difference(q->xy[1], a_->xy[1]);
    const XFloat t = Dot(ux, uy, vx_, vy_);
    return XFloat::Subtract(XFloat::Multiply(Dot(ux, uy, ux, uy), v2_), XFloat::Multiply(t, t));
  }

 private:
  const TVertex* a_;
  XFloat vx_;
  XFloat vy_;
  XFloat v2_;
};

// The inner entry of least height in extended precision, the first of equals, or -1. Looks only at
// those that the error of their double leaves in question.
int ClosestExtended(const TChainEntry* chain, int start, int end, const Base& base, Height lowest) {
  const ExtendedBase extended(chain[start].vertex, chain[end].vertex);
  if (extended.IsPoint()) {
    return -1;
  }
  int closest = -1;
  XFloat least;
  for (int i = start + 1; i < end; ++i) {
    if (!MayBeBelow(base.HeightOf(chain[i].vertex), lowest)) {
      continue;
    }
    const XFloat height = extended.HeightOf(chain[i].vertex);
    if (closest < 0 || XFloat::Compare(height, least) < 0) {
      closest = i;
      least = height;
    }
  }
  return closest;
}

// The inner entry closest to the line through the ends, the first of equals; -1 if the ends
// coincide. The choice is exact: a vertex below the chosen one would fall inside its triangle.
// Heights that overflow to NaN are never less, which leaves the first entry.
int Closest(const TrimakeState& state, const TChainEntry* chain, int start, int end) {
  const Base base(chain[start].vertex, chain[end].vertex);
  if (base.IsPoint()) {
    return -1;
  }
  int closest = start + 1;
  Height lowest = base.HeightOf(chain[closest].vertex);
  bool isNearTie = false;
  for (int i = start + 2; i < end; ++i) {
    const Height height = base.HeightOf(chain[i].vertex);
    isNearTie = isNearTie || IsNearTie(height, lowest);
    if (height.squared < lowest.squared) {
      closest = i;
      lowest = height;
    }
  }
  return isNearTie && state.extendedFallback ? ClosestExtended(chain, start, end, base, lowest)
                                             : closest;
}

// Fills the polygon between the chain from `start` to `end` and its base, the segment between those
// two: the inner vertex C closest to the base makes a triangle with it, whose other sides are the
// bases of what is left.
//
//            · — C ——— ·         Around a vertex the ring runs counterclockwise, from the edge to
//        · /   /   \     \ ·     the previous entry over the cavity to the one to the next: new
//        |  /         \    |     edges go after the former, and at the start of a base after that
//      start --------- end       base (`atStart`).
//
// No vertex is within the triangle, for none is closer to the base, and no edge passes below C, for
// it would have an end there. The shorter part is filled by recursion, so the depth is at most
// log2 of the length. O(length) for each C: n log n if C divides evenly, n² at worst.
int FillPart(TrimakeState& state, const TChainEntry* chain, int start, int end, TEdge* atStart) {
  while (end - start >= 3) {
    const int c = Closest(state, chain, start, end);
    if (c < 0) {
      return -1;
    }
    TEdge* toEnd = chain[c].edge;
    TEdge* fromStart = nullptr;
    if (c > start + 1) {
      const TEdgePair made = tri_Make_Edge(state, chain[start].vertex, chain[c].vertex, atStart,
                                           chain[c].edge, false, false);
      if (made.edge == nullptr) {
        return -1;
      }
      fromStart = made.edge;
      toEnd = made.twin;
      tri_Queue_Edge(state, made.edge);
    }
    if (c < end - 1) {
      const TEdgePair made = tri_Make_Edge(state, chain[end].vertex, chain[c].vertex,
                                           chain[end].edge, toEnd, false, false);
      if (made.edge == nullptr) {
        return -1;
      }
      toEnd = made.twin;
      tri_Queue_Edge(state, made.edge);
    }
    const bool isStartShorter = c - start < end - c;
    const int result = isStartShorter ? FillPart(state, chain, start, c, fromStart)
                                      : FillPart(state, chain, c, end, toEnd);
    if (result < 0) {
      return result;
    }
    (isStartShorter ? start : end) = c;
    atStart = isStartShorter ? toEnd : fromStart;
  }
  return 0;
}

void Append(TArray* list, TChainEntry entry) {
  *static_cast<TChainEntry*>(list->Reserve(1)) = entry;
}

void WarnOfCut(TrimakeState& state, const TVertex* a, const TVertex* b) {
  if (state.quiet || state.crossingWarned) {
    return;
  }
  state.crossingWarned = true;
  std::printf(
      "**trimake, Warning crossing breaklines\n"
      "           Check point (%f,%f,%f)\n"
      "           &           (%f,%f,%f)\n",
      a->point->x, a->point->y, a->point->z, b->point->x, b->point->y, b->point->z);
}

// Deletes the half-edges of v from `edge` on whose ends lie right of from→p; ends because each
// round deletes one. Returns the first that stays, null if none does.
TEdge* RemoveCrossing(TrimakeState& state, const TVertex* from, const TVertex* p, TVertex* v,
                      TEdge* edge) {
  while (cw(from, p, edge->dest)) {
    if (edge->info != nullptr) {
      WarnOfCut(state, v, edge->dest);
    }
    TEdge* const next = edge->next;
    tri_Delete_Edge(state, v, edge);
    if (next == edge) {
      return nullptr;
    }
    edge = next;
  }
  return edge;
}

}  // namespace

int tri_Collect_Chain(TrimakeState& state, bool remove, TVertex* a, TEdge* e, const TVertex* p,
                      TVertex** end, int* count, TChainEntry** list) {
  TArray* const entries = state.chain;
  const int first = entries->count;
  TVertex* v = a;
  TEdge* position = e->next;
  for (int steps = 0; v != p; ++steps) {
    Append(entries, {v, position->prev});
    if (remove && v != a) {
      position = RemoveCrossing(state, a, p, v, position);
    }
    if (position == nullptr || steps == state.vertexCount + 3) {
      entries->Drop(entries->count);
      return -1;
    }
    v = position->dest;
    position = position->twin->next;
  }
  Append(entries, {v, position->prev});
  *end = v;
  *count = entries->count - first;
  *list = static_cast<TChainEntry*>(entries->data) + first;
  return 0;
}

int tri_Fill_Chain(TrimakeState& state, int k, TChainEntry* chain) {
  for (int i = 1; i < k; ++i) {
    tri_Queue_Edge(state, chain[i].edge);
  }
  TChainEntry& last = chain[k - 1];
  const TEdge* const beyond = last.edge->next;
  if (FillPart(state, chain, 0, k - 1, chain[0].edge) < 0) {
    return -1;
  }
  last.edge = beyond->prev;
  return 0;
}

}  // namespace zyl::geometry::internal
