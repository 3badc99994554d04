#include "trimake/breaklines.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace zyl::geometry::internal {
namespace {

// Both ends of a segment are one vertex if neither coordinate differs by more.
constexpr double kSameCoordinate = 2.220446049250313e-16;

constexpr int kGrowth = 10;

// Setbacks of one segment, and changes of aim within one step, before it is given up.
constexpr int kMostSetbacks = 32;
constexpr int kMostRounds = 32;

// Working list of a pass, in the state while the pass lasts.
class WorkingList {
 public:
  WorkingList(TArray*& slot, std::size_t elementSize)
      : slot_(slot = TArray::Create(static_cast<int>(elementSize), kGrowth)) {}
  ~WorkingList() {
    std::free(slot_->Take(nullptr));
    std::free(slot_);
    slot_ = nullptr;
  }
  WorkingList(const WorkingList&) = delete;
  WorkingList& operator=(const WorkingList&) = delete;

 private:
  TArray*& slot_;
};

void ReportError(const TrimakeState& state) {
  if (!state.quiet) {
    static_cast<void>(std::fputs("**trimake, Error inserting breakline\n", stdout));
  }
}

bool AreSamePlace(const TVertex* a, const TVertex* b) {
  return std::fabs(a->xy[0] - b->xy[0]) <= kSameCoordinate &&
         std::fabs(a->xy[1] - b->xy[1]) <= kSameCoordinate;
}

// Inserts one segment of the input. Each call brings it to a vertex further on its way. Tolerances,
// and breaklines bent on their way, may lead it back, but not more than a few times.
int InsertWhole(TrimakeState& state, TVertex* v, TVertex* target) {
  const double dx = target->xy[0] - v->xy[0];
  const double dy = target->xy[1] - v->xy[1];
  long long budget = 4LL * state.vertexCount;  // the vertices, and the breaklines between them
  int setbacks = 0;
  int result = 0;
  while (v != nullptr) {
    const TVertex* const before = v;
    if (tri_Insert_Segment(state, v, target, &v) < 0) {
      ReportError(state);
      result = -1;
    }
    if (v != nullptr) {
      const double advance = dx * (v->xy[0] - before->xy[0]) + dy * (v->xy[1] - before->xy[1]);
      setbacks += advance > 0 ? 0 : 1;
      if (setbacks > kMostSetbacks || --budget < 0) {
        ReportError(state);
        return result;
      }
    }
  }
  return result;
}

// Marks the edges that run from *a straight towards p, and moves *a along them. Returns 0 if that
// leads to p, 1 if the way from *a is between *out and its next, -1 if there is none. Ends because
// each step goes on along the same line, and not past p.
int FollowEdges(TrimakeState& state, TVertex** a, TVertex* p, TEdge** out) {
  while (*a != p) {
    const int found = tri_Find_Direction(*a, p, out);
    if (found != 0) {
      return found;
    }
    TVertex* const to = (*out)->dest;
    const double dx = to->xy[0] - (*a)->xy[0];
    const double dy = to->xy[1] - (*a)->xy[1];
    if (to != p && !(dx * (p->xy[0] - to->xy[0]) + dy * (p->xy[1] - to->xy[1]) > 0)) {
      return -1;
    }
    tri_Mark_Edge(state, *out);
    *a = to;
  }
  return 0;
}

// Clears the corridor from a to p, which crosses no breakline and meets no vertex, puts the marked
// edge into it and fills both sides. With k and l vertices on them, k + l − 5 edges go and as many
// come, so that the free half-edges suffice.
int ReplaceCrossed(TrimakeState& state, TVertex* a, TEdge* e, TVertex* p) {
  TChainEntry* list = nullptr;
  int k = 0;
  if (tri_Collect_Chain(state, true, a, e, p, &k, &list) < 0 ||
      tri_Fill_Chain(state, k, list) < 0) {
    return -1;
  }
  int l = 0;
  TEdge* const lastPosition = list[k - 1].edge;
  if (tri_Collect_Chain(state, false, p, lastPosition, a, &l, &list) < 0 ||
      tri_Fill_Chain(state, l, list) < 0) {
    return -1;
  }
  const TEdgePair made = tri_Make_Edge(state, a, p, list[l - 1].edge, list[0].edge, false, false);
  if (made.edge == nullptr) {
    return -1;
  }
  tri_Mark_Edge(state, made.edge);
  tri_Legalise(state);
  return 0;
}

}  // namespace

void tri_Mark_Edge(TrimakeState& state, TEdge* edge) {
  if (edge->info == nullptr) {
    edge->info = tri_New_TInfo(state);
    edge->twin->info = edge->info;
    edge->info->head->from = state.segmentFrom;
    edge->info->head->to = state.segmentTo;
  } else {
    TIndex* const index = tri_New_TIndex(state);
    *index = {edge->info->head, state.segmentFrom, state.segmentTo};
    edge->info->head = index;
    ++edge->info->count;
  }
}

int tri_Insert_Segment(TrimakeState& state, TVertex* from, TVertex* target, TVertex** next) {
  *next = nullptr;
  TVertex* a = from;
  TVertex* p = target;
  for (int rounds = 0; rounds < kMostRounds; ++rounds) {
    TEdge* e = nullptr;
    const int found = FollowEdges(state, &a, p, &e);
    if (found <= 0) {
      return found;
    }
    const double dx = p->xy[0] - a->xy[0];
    const double dy = p->xy[1] - a->xy[1];
    const double invLen2 = 1 / (dx * dx + dy * dy);
    switch (tri_Check_Crossings(state, dx, dy, invLen2, a, e, p, next)) {
      case kFree: {
        const int result = ReplaceCrossed(state, a, e, p);
        state.chain->Drop(state.chain->count);
        state.flips->Drop(state.flips->count);
        return result;
      }
      case kVertex:
      case kNewVertex:
        p = *next;
        break;
      case kThinned:
        break;
      case kNewNeighbour:
        return 0;
      case kNoCorridor:
        return -1;
    }
  }
  return -1;
}

int tri_Insert_Breaklines(TrimakeState& state, int n, const int* inverseMap, const int* indexMap,
                          TVertex* vertices) {
  const WorkingList chain(state.chain, sizeof(TChainEntry));
  const WorkingList flips(state.flips, sizeof(void*));
  const WorkingList unsettled(state.unsettled, sizeof(void*));
  state.crossingWarned = false;
  int result = 0;
  for (int i = 1; i < n; ++i) {
    TVertex* const v = &vertices[inverseMap[indexMap[i]]];
    TVertex* const target = &vertices[inverseMap[indexMap[i - 1]]];
    if (state.points[i].flag != 0 || AreSamePlace(v, target)) {
      continue;
    }
    state.segmentFrom = i - 1;
    state.segmentTo = i;
    if (InsertWhole(state, v, target) < 0) {
      result = -1;
    }
  }
  for (int i = 0; i < state.unsettled->count; ++i) {
    tri_Legalise_Around(state, static_cast<TVertex**>(state.unsettled->data)[i]);
  }
  state.crossingWarned = false;
  return result;
}

}  // namespace zyl::geometry::internal
