// What lies in the way of a segment: the direction in which it leaves a vertex, and the vertices
// and breaklines that it meets.

#include <cmath>
#include <initializer_list>

#include "trimake/breaklines.h"
#include "trimake/orientation.h"

namespace zyl::geometry::internal {
namespace {

// Degree from which a vertex counts as a hub: a segment that leaves it is looked for from its other
// end, or the segments of a star would take time by the square of their number.
constexpr int kHubDegree = 64;

bool IsHub(const TVertex* v) {
  const TEdge* e = v->first;
  for (int degree = 1; degree < kHubDegree; ++degree) {
    e = e->next;
    if (e == v->first) {
      return false;
    }
  }
  return true;
}

// Half-edge from a to p, null if there is none. Both rings are searched at once, so that the
// smaller one decides how long it takes.
TEdge* FindEdge(const TVertex* a, const TVertex* p) {
  TEdge* atA = a->first;
  TEdge* atP = p->first;
  do {
    if (atA->dest == p) {
      return atA;
    }
    if (atP->dest == a) {
      return atP->twin;
    }
    atA = atA->next;
    atP = atP->next;
  } while (atA != a->first && atP != p->first);
  return nullptr;
}

int SignOf(double value) { return (value > 0) - (value < 0); }

// Of two points in line with a: whether they lie to the same side of it.
bool AreOnOneRay(const TVertex* a, const TVertex* p, const TVertex* q) {
  const int towardsP = SignOf(p->xy[0] - a->xy[0]);
  const int towardsQ = SignOf(q->xy[0] - a->xy[0]);
  if (towardsP != 0 || towardsQ != 0) {
    return towardsP == towardsQ;
  }
  return SignOf(p->xy[1] - a->xy[1]) == SignOf(q->xy[1] - a->xy[1]);
}

// tri_Find_Direction by one look at all half-edges of a.
int SearchRing(const TVertex* a, const TVertex* p, TEdge** out) {
  TEdge* e = a->first;
  TSide here = side(a, p, e->dest);
  do {
    if (here == kOnLine && AreOnOneRay(a, p, e->dest)) {
      *out = e;
      return 0;
    }
    const TSide next = side(a, p, e->next->dest);
    if (here == kRight && next == kLeft) {
      *out = e;
      return 1;
    }
    here = next;
    e = e->next;
  } while (e != a->first);
  return -1;
}

enum class Step { kLeft, kRight, kOnSegment, kArrived, kLost };

// The triangles that a segment crosses, one after the other.
//
//        left --- ahead    The segment enters a triangle across the half-edge left → right and
//      ·  |  \   /         leaves it between the vertex ahead and the one on its other side.
//   from -+---\-/---- to
//      ·  |    /
//        right
//
// No walk goes on for ever: the three rings of each triangle agree, so it can be entered across
// the same edge from one triangle only, and the first has `from` behind it, which is on the segment
// and would end the walk.
class Corridor {
 public:
  /// The segment leaves `from` between e and e->next.
  Corridor(const TVertex* from, const TVertex* to, const TEdge* e)
      : from_(from), to_(to), crossed_(e->next->twin->next) {
    isLost_ = crossed_->twin->next != e->twin;
  }

  TEdge* Crossed() const { return crossed_; }
  TVertex* Left() const { return crossed_->twin->dest; }
  TVertex* Right() const { return crossed_->dest; }
  TVertex* Ahead() const { return crossed_->next->dest; }

  /// Crosses the next edge if the vertex ahead is on its left or right. Lost if there is no
  /// triangle, or if its side cannot be told because a predicate overflowed.
  Step Advance() {
    TEdge* const leftToAhead = crossed_->next;
    TEdge* const rightToAhead = crossed_->twin->prev;
    if (isLost_ || leftToAhead->twin->next != rightToAhead->twin) {
      return Step::kLost;
    }
    if (leftToAhead->dest == to_) {
      return Step::kArrived;
    }
    const double turn = orient2d(from_->xy, to_->xy, leftToAhead->dest->xy);
    if (turn > 0) {
      crossed_ = rightToAhead->twin;
      return Step::kLeft;
    }
    if (turn < 0) {
      crossed_ = leftToAhead;
      return Step::kRight;
    }
    return turn == 0 ? Step::kOnSegment : Step::kLost;
  }

 private:
  const TVertex* from_;
  const TVertex* to_;
  TEdge* crossed_;
  bool isLost_;
};

// The result of SearchRing at a hub, found by walking up to it from p. Null if a vertex is in the
// way.
TEdge* SearchFromFarEnd(const TVertex* hub, const TVertex* p) {
  TEdge* e = nullptr;
  if (SearchRing(p, hub, &e) != 1) {
    return nullptr;
  }
  Corridor corridor(p, hub, e);
  Step step = corridor.Advance();
  while (step == Step::kLeft || step == Step::kRight) {
    step = corridor.Advance();
  }
  return step == Step::kArrived ? corridor.Crossed()->next->twin : nullptr;
}

}  // namespace

int tri_Find_Direction(TVertex* a, TVertex* p, TEdge** out) {
  if (a->first == nullptr || p->first == nullptr) {
    return -1;
  }
  TEdge* found = FindEdge(a, p);
  if (found != nullptr) {
    *out = found;
    return 0;
  }
  if (IsHub(a) && !IsHub(p)) {
    found = SearchFromFarEnd(a, p);
    if (found != nullptr) {
      *out = found;
      return 1;
    }
  }
  return SearchRing(a, p, out);
}

bool tri_Near_Line(const TrimakeState& state, double dx, double dy, double invLen2,
                   const TVertex* q, const TVertex* a) {
  const double ux = q->xy[0] - a->xy[0];
  const double uy = q->xy[1] - a->xy[1];
  const double t = dx * ux + dy * uy;
  const double h = ux * ux + uy * uy - t * invLen2 * t;
  return state.nearTolerance2 >= std::fabs(h) || state.relativeTolerance2 >= std::fabs(h * invLen2);
}

bool tri_Is_Between(double dx, double dy, double invLen2, const TVertex* q, const TVertex* a) {
  const double t = dx * (q->xy[0] - a->xy[0]) + dy * (q->xy[1] - a->xy[1]);
  return t > 0 && t * invLen2 < 1;
}

TCrossing tri_Check_Crossings(TrimakeState& state, double dx, double dy, double invLen2, TVertex* a,
                              TEdge* e, TVertex* p, TVertex** out) {
  // A piece from or to a crossing is off the line of the whole segment by the crossing's rounding,
  // but a vertex on the whole segment is on the breakline none the less. A vertex near the line but
  // not between the ends would lead back.
  const TPoint* const p0 = &state.points[state.segmentFrom];
  const TPoint* const p1 = &state.points[state.segmentTo];
  const bool isPiece = side(p0, p1, a) != kOnLine || side(p0, p1, p) != kOnLine;
  const auto isMet = [&](const TVertex* q) {
    return (tri_Near_Line(state, dx, dy, invLen2, q, a) ||
            (isPiece && side(p0, p1, q) == kOnLine)) &&
           tri_Is_Between(dx, dy, invLen2, q, a);
  };

  Corridor corridor(a, p, e);
  for (TVertex* const q : {corridor.Left(), corridor.Right()}) {
    if (isMet(q)) {
      *out = q;
      return kVertex;
    }
  }
  while (corridor.Crossed()->info == nullptr) {
    TVertex* const ahead = corridor.Ahead();
    const Step step = corridor.Advance();
    if (step == Step::kArrived) {
      return kFree;
    }
    if (step == Step::kLost) {
      return kNoCorridor;
    }
    if (step == Step::kOnSegment || isMet(ahead)) {
      *out = ahead;
      return kVertex;
    }
  }
  return tri_Cross_Breakline(state, corridor.Crossed(), a, p, out);
}

}  // namespace zyl::geometry::internal
