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

// Whether the foot of q on the segment lies between its ends.
bool IsBetweenEnds(double dx, double dy, double invLen2, const TVertex* q, const TVertex* a) {
  const double t = dx * (q->xy[0] - a->xy[0]) + dy * (q->xy[1] - a->xy[1]);
  return t > 0 && t * invLen2 < 1;
}

// Where the current segment and the newest of a list cross, at the mean of their two heights.
// Parallel ones, which touch in more than one point, share the middle of the older segment.
TPoint CrossingPoint(const TrimakeState& state, const TInfo* info) {
  const TPoint& s = state.points[info->head->from];
  const TPoint& e = state.points[info->head->to];
  const TPoint& p0 = state.points[state.segmentFrom];
  const TPoint& p1 = state.points[state.segmentTo];
  const double ex = e.x - s.x, ey = e.y - s.y, ez = e.z - s.z;
  const double sx = p1.x - p0.x, sy = p1.y - p0.y, sz = p1.z - p0.z;
  const double den = ey * sx - ex * sy;
  if (den == 0) {
    const double z1 = (s.z + e.z) * 0.5;
    const double z2 = (p0.z + p1.z) * 0.5;
    return {(s.x + e.x) * 0.5, (s.y + e.y) * 0.5, (z1 + z2) * 0.5, 0};
  }
  const double t = ((p0.y - s.y) * sx - (p0.x - s.x) * sy) / den;
  const double u = ((p0.y - s.y) * ex - (p0.x - s.x) * ey) / den;
  const double z1 = s.z + t * ez;
  const double z2 = p0.z + u * sz;
  return {s.x + t * ex, s.y + t * ey, (z1 + z2) * 0.5, 0};
}

// A half-edge across a segment and the corners, counterclockwise, of its two triangles.
struct Quadrilateral {
  explicit Quadrilateral(TEdge* c)
      : edge(c),
        left(c->twin->dest),
        before(c->prev->dest),
        right(c->dest),
        beyond(c->next->dest) {}

  // Whether the four triangles that w would make with the sides are counterclockwise.
  bool IsSeenFrom(const TPoint& w) const {
    return ccw(&w, left, before) && ccw(&w, before, right) && ccw(&w, right, beyond) &&
           ccw(&w, beyond, left);
  }

  TEdge* edge;
  TVertex* left;
  TVertex* before;
  TVertex* right;
  TVertex* beyond;
};

// Squared distance within which input points are one vertex.
constexpr double kSamePlace2 = 1e-16;

bool IsSamePlace(const TPoint& w, const TVertex* v) {
  const double dx = w.x - v->xy[0];
  const double dy = w.y - v->xy[1];
  return dx * dx + dy * dy <= kSamePlace2;
}

TInfo* CopyOf(TrimakeState& state, const TInfo* info) {
  TInfo* const copy = tri_New_TInfo(state);
  copy->count = info->count;
  TIndex* to = copy->head;
  for (const TIndex* from = info->head; from != nullptr; from = from->next) {
    *to = {from->next != nullptr ? tri_New_TIndex(state) : nullptr, from->from, from->to};
    to = to->next;
  }
  return copy;
}

// Replaces the edge of the quadrilateral, a breakline, by edges from its corners to the vertex w;
// those to the left and to the right carry its list on. A damaged ring may have the same vertex
// before and beyond, which is joined once. The edge to `start`, if there is one, is marked.
TCrossing Split(TrimakeState& state, const Quadrilateral& q, TVertex* w, const TVertex* start) {
  const struct {
    TVertex* vertex;
    TEdge* after;
    TInfo* info;
  } corners[] = {
      {q.left, q.edge->prev, q.edge->info},
      {q.before, q.edge->prev->twin->prev, nullptr},
      {q.right, q.edge->twin->prev, CopyOf(state, q.edge->info)},
      {q.beyond, q.edge->next->twin, nullptr},
  };
  tri_Delete_Edge(state, q.left, q.edge);
  TEdge* last = nullptr;
  TCrossing result = kNewVertex;
  for (const auto& corner : corners) {
    if (&corner == &corners[3] && q.beyond == q.before) {
      continue;
    }
    const TEdgePair made = tri_Make_Edge(state, w, corner.vertex, last, corner.after, false, false);
    if (made.edge == nullptr) {
      return kNoCorridor;
    }
    last = made.edge;
    made.edge->info = corner.info;
    made.twin->info = corner.info;
    if (corner.vertex == start) {
      tri_Mark_Edge(state, made.edge);
      result = kNewNeighbour;
    }
  }
  return result;
}

// Gives the breakline of the half-edge c a vertex where the current segment, from `start`, crosses
// it. Where that falls on an end of c and would turn a triangle over, the end is the vertex.
TCrossing CrossBreakline(TrimakeState& state, TEdge* c, const TVertex* start, TVertex** out) {
  const Quadrilateral q(c);
  const TPoint point = CrossingPoint(state, c->info);
  if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
    return kNoCorridor;
  }
  if (!q.IsSeenFrom(point)) {
    for (TVertex* const end : {q.left, q.right}) {
      if (IsSamePlace(point, end)) {
        *out = end;
        return kVertex;
      }
    }
  }
  if (state.crossingsLeft-- <= 0) {
    return kNoCorridor;
  }
  *out = tri_New_Vertex(state, point.x, point.y, point.z);
  const TCrossing result = Split(state, q, *out, start);
  tri_Legalise_Around(state, *out);
  return result;
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

TCrossing tri_Check_Crossings(TrimakeState& state, double dx, double dy, double invLen2, TVertex* a,
                              TEdge* e, TVertex* p, TVertex** out) {
  // A vertex near the line but off the segment would lead back.
  const auto isMet = [&](const TVertex* q) {
    return tri_Near_Line(state, dx, dy, invLen2, q, a) && IsBetweenEnds(dx, dy, invLen2, q, a);
  };
  Corridor corridor(a, p, e);
  for (TVertex* const q : {corridor.Left(), corridor.Right()}) {
    if (isMet(q)) {
      *out = q;
      return kVertex;
    }
  }
  for (;;) {
    if (corridor.Crossed()->info != nullptr) {
      return CrossBreakline(state, corridor.Crossed(), a, out);
    }
    TVertex* const ahead = corridor.Ahead();
    switch (corridor.Advance()) {
      case Step::kArrived:
        return kFree;
      case Step::kLost:
        return kNoCorridor;
      case Step::kOnSegment:
        *out = ahead;
        return kVertex;
      case Step::kLeft:
      case Step::kRight:
        if (isMet(ahead)) {
          *out = ahead;
          return kVertex;
        }
    }
  }
}

}  // namespace zyl::geometry::internal
