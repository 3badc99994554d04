// Empty circles: C. L. Lawson, "Software for C1 surface interpolation", Mathematical Software III
// (1977), with an explicit list of edges in place of recursion. Breaklines are left alone, as in
// D. T. Lee and A. K. Lin, "Generalized Delaunay triangulation for planar graphs" (1986).

#include "trimake/breaklines.h"
#include "trimake/quadrilateral.h"

namespace zyl::geometry::internal {
namespace {

// Flips per queued edge before the list is given up. Exact signs need no such end: each flip lowers
// the triangulation lifted to the paraboloid.
constexpr long long kMostFlips = 10001;

// Whether a flip is due: the edge is free, and the corner opposite one of its triangles is inside
// the circle of the other. Not if a predicate overflows to NaN. On sound triangles the flip is then
// possible; on others it is refused where it would turn a triangle over.
bool IsIllegal(const TQuadrilateral& q) {
  return q.edge->info == nullptr && q.IsWhole() &&
         incircle(q.right->xy, q.beyond->xy, q.left->xy, q.before->xy) > 0 && q.IsConvex();
}

}  // namespace

void tri_Flip(TrimakeState& state, const TQuadrilateral& q) {
  TEdge* const afterBeyond = q.edge->next->twin;
  TEdge* const afterBefore = q.edge->twin->next->twin;
  tri_Delete_Edge(state, q.left, q.edge);
  tri_Make_Edge(state, q.beyond, q.before, afterBeyond, afterBefore, false, false);
}

void tri_Queue_Edge(TrimakeState& state, TEdge* edge) {
  *static_cast<TEdge**>(state.flips->Reserve(1)) = edge;
}

void tri_Legalise(TrimakeState& state) {
  TArray* const list = state.flips;
  long long budget = kMostFlips * list->count;
  while (list->count > 0 && budget > 0) {
    TEdge* const edge = static_cast<TEdge**>(list->data)[list->count - 1];
    list->Drop(1);
    const TQuadrilateral q(edge);
    if (IsIllegal(q)) {
      TEdge* const sides[] = {edge->next, edge->prev, edge->twin->next, edge->twin->prev};
      tri_Flip(state, q);
      for (TEdge* const side : sides) {
        tri_Queue_Edge(state, side);
      }
      --budget;
    }
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
