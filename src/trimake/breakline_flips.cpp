// Empty circles: C. L. Lawson, "Software for C1 surface interpolation", Mathematical Software III
// (1977), with an explicit list of edges in place of recursion. Breaklines are left alone, as in
// D. T. Lee and A. K. Lin, "Generalized Delaunay triangulation for planar graphs" (1986).

#include <initializer_list>

#include "trimake/breaklines.h"
#include "trimake/orientation.h"

namespace zyl::geometry::internal {
namespace {

// Flips per queued edge before the list is given up. Exact signs need no such end: each flip lowers
// the triangulation lifted to the paraboloid.
constexpr long long kMostFlips = 10001;

// Replaces the edge a-c by the other diagonal of its two triangles if d is inside the circle.
//
//         c              c        Neither triangle is there at the border, or beside a hole that a
//       / | \          /   \      damaged ring has; then the ends of the two sides differ. The
//      v  |  d   →    v --- d     new triangles must be counterclockwise: on sound ones that is so
//       \ | /          \   /      whenever d is inside, on others a flip would spread the damage.
//         a              a
//
// The new edge takes the two records of the old one, so that the list never holds a dead one.
bool Flip(TrimakeState& state, TEdge* ac) {
  TVertex* const a = ac->twin->dest;
  TVertex* const c = ac->dest;
  TEdge* const av = ac->next;
  TEdge* const cv = ac->twin->prev;
  TEdge* const ad = ac->prev;
  TEdge* const cd = ac->twin->next;
  TVertex* const v = av->dest;
  TVertex* const d = ad->dest;
  if (ac->info != nullptr || cv->dest != v || cd->dest != d) {
    return false;
  }
  if (!(incircle(c->xy, v->xy, a->xy, d->xy) > 0) || !ccw(v, a, d) || !ccw(v, d, c)) {
    return false;
  }
  tri_Delete_Edge(state, a, ac);
  tri_Make_Edge(state, v, d, av->twin, cd->twin, false, false);
  for (TEdge* const side : {av, cv, ad, cd}) {
    tri_Queue_Edge(state, side);
  }
  return true;
}

}  // namespace

void tri_Queue_Edge(TrimakeState& state, TEdge* edge) {
  *static_cast<TEdge**>(state.flips->Reserve(1)) = edge;
}

void tri_Legalise(TrimakeState& state) {
  TArray* const list = state.flips;
  long long budget = kMostFlips * list->count;
  while (list->count > 0 && budget > 0) {
    TEdge* const edge = static_cast<TEdge**>(list->data)[list->count - 1];
    list->Drop(1);
    budget -= Flip(state, edge) ? 1 : 0;
  }
  list->Drop(list->count);
}

void tri_Legalise_Around(TrimakeState& state, const TVertex* v) {
  TEdge* spoke = v->first;
  if (spoke == nullptr) {
    return;
  }
  do {
    tri_Queue_Edge(state, spoke);
    tri_Queue_Edge(state, spoke->twin->prev);
    spoke = spoke->next;
  } while (spoke != v->first);
  tri_Legalise(state);
}

}  // namespace zyl::geometry::internal
