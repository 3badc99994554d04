// The boundary of the cavity that a segment leaves, and the edges that go from it.

#include <cstdio>

#include "trimake/breaklines.h"
#include "trimake/orientation.h"

namespace zyl::geometry::internal {
namespace {

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
                      int* count, TChainEntry** list) {
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
  *count = entries->count - first;
  *list = static_cast<TChainEntry*>(entries->data) + first;
  return 0;
}

}  // namespace zyl::geometry::internal
