// Where a segment crosses an older breakline: the new vertex, and what is done if none can be put
// there because the triangles beside the breakline are thinner than the coordinates are precise.

#include <cassert>
#include <cmath>
#include <initializer_list>

#include "trimake/breaklines.h"
#include "trimake/quadrilateral.h"

namespace zyl::geometry::internal {
namespace {

// Distance within which input points are one vertex, and lines may be bent to spare a triangle.
constexpr double kSamePlace = 1e-8;

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
TCrossing Split(TrimakeState& state, const TQuadrilateral& q, TVertex* w, const TVertex* start) {
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
  assert(w->first == nullptr);  // the first edge needs no place in the ring
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

// Whether q is between the ends of a-b, and close enough for a breakline to pass through either.
bool IsAsGoodAsOn(const TVertex* q, const TVertex* a, const TVertex* b) {
  const double dx = b->xy[0] - a->xy[0];
  const double dy = b->xy[1] - a->xy[1];
  const double length2 = dx * dx + dy * dy;
  const double cross = dx * (q->xy[1] - a->xy[1]) - dy * (q->xy[0] - a->xy[0]);
  return cross * cross <= kSamePlace * kSamePlace * length2 &&
         tri_Is_Between(dx, dy, 1 / length2, q, a);
}

// Moves w towards the middle of one of the triangles to where it sees all corners.
bool MoveIntoSight(const TQuadrilateral& q, TPoint* w) {
  for (const TVertex* const apex : {q.before, q.beyond}) {
    const double dx = (q.left->xy[0] + q.right->xy[0] + apex->xy[0]) / 3 - w->x;
    const double dy = (q.left->xy[1] + q.right->xy[1] + apex->xy[1]) / 3 - w->y;
    const double length = std::sqrt(dx * dx + dy * dy);
    for (double part = 0x1p-52; part < 1 && part * length <= kSamePlace; part *= 2) {
      const TPoint moved{w->x + part * dx, w->y + part * dy, w->z, 0};
      if (q.IsSeenFrom(moved)) {
        *w = moved;
        return true;
      }
    }
  }
  return false;
}

// Moves w to where the piece a-p crosses the edge itself, if that sees all corners. Segments that
// are very long beside their pieces cross, rounded, anywhere.
void MoveOntoEdge(const TQuadrilateral& q, const TVertex* a, const TVertex* p, TPoint* w) {
  const double left = orient2d(a->xy, p->xy, q.left->xy);
  const double right = orient2d(a->xy, p->xy, q.right->xy);
  const double t = left / (left - right);
  const TPoint moved{q.left->xy[0] + t * (q.right->xy[0] - q.left->xy[0]),
                     q.left->xy[1] + t * (q.right->xy[1] - q.left->xy[1]), w->z, 0};
  if (q.IsSeenFrom(moved)) {
    *w = moved;
  }
}

// Puts a copy of the list before that of the edge.
void AddList(TrimakeState& state, TEdge* edge, const TInfo* added) {
  TInfo* const list = CopyOf(state, added);
  if (edge->info != nullptr) {
    TIndex* last = list->head;
    while (last->next != nullptr) {
      last = last->next;
    }
    last->next = edge->info->head;
    list->count += edge->info->count;
  }
  edge->info = list;
  edge->twin->info = list;
}

// Removes a triangle beside the breakline c if a corner of it is as good as on the opposite side: a
// breakline along that side moves to the other two, and the side gives way to an edge from the
// corner to beyond it. The side may be c itself: that comes first, for it gets on, while flips of
// free sides may undo each other. Empties no circles, which would bring the triangle back: the
// corners are left for the end of the pass. Returns false if nothing changed.
bool RemoveThin(TrimakeState& state, TEdge* c) {
  for (TEdge* const side :
       {c, c->twin, c->twin->prev, c->next->twin, c->prev, c->twin->next->twin}) {
    const TQuadrilateral q(side);
    if (!IsAsGoodAsOn(q.beyond, q.left, q.right)) {
      continue;
    }
    const bool isBreakline = side->info != nullptr;
    if (isBreakline) {
      AddList(state, side->next, side->info);
      AddList(state, side->twin->prev, side->info);
      side->info = nullptr;
      side->twin->info = nullptr;
    }
    const bool isFlipped = q.IsWhole() && q.IsConvex();
    if (isFlipped) {
      tri_Flip(state, q);
    }
    if (isFlipped || isBreakline) {
      for (TVertex* const v : {q.left, q.before, q.right, q.beyond}) {
        *static_cast<TVertex**>(state.unsettled->Reserve(1)) = v;
      }
      return true;
    }
  }
  return false;
}

}  // namespace

TCrossing tri_Cross_Breakline(TrimakeState& state, TEdge* c, const TVertex* a, const TVertex* p,
                              TVertex** out) {
  const TQuadrilateral q(c);
  TPoint w = CrossingPoint(state, c->info);
  if (!std::isfinite(w.x) || !std::isfinite(w.y)) {
    return kNoCorridor;
  }
  if (!q.IsSeenFrom(w)) {
    for (TVertex* const end : {q.left, q.right}) {
      if (IsAsGoodAsOn(end, a, p)) {
        *out = end;
        return kVertex;
      }
    }
    if (!MoveIntoSight(q, &w)) {
      if (RemoveThin(state, c)) {
        return kThinned;
      }
      MoveOntoEdge(q, a, p, &w);
    }
  }
  *out = tri_New_Vertex(state, w.x, w.y, w.z);
  const TCrossing result = Split(state, q, *out, a);
  tri_Legalise_Around(state, *out);
  return result;
}

}  // namespace zyl::geometry::internal
