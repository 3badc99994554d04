#include "trimake/breaklines.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace zyl::geometry::internal {
namespace {

// Both ends of a segment are one vertex if neither coordinate differs by more.
constexpr double kSameCoordinate = 2.220446049250313e-16;

constexpr int kGrowth = 10;

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
    std::fputs("**trimake, Error inserting breakline\n", stdout);
  }
}

bool AreSamePlace(const TVertex* a, const TVertex* b) {
  return std::fabs(a->xy[0] - b->xy[0]) <= kSameCoordinate &&
         std::fabs(a->xy[1] - b->xy[1]) <= kSameCoordinate;
}

// A segment crosses an older one in one point. Where they are nearly parallel, rounded crossing
// points may make it cross back, but not for ever.
int MostCrossings(int olderSegments) {
  constexpr int kMostOlder = 100000000;
  return 2 * std::min(olderSegments, kMostOlder) + 2;
}

// Inserts one segment of the input. Its path comes to no vertex twice, so that every vertex there
// is or may be made is a step at most; the budget is for a tolerance, or for rounded crossings,
// that lead it in a circle.
int InsertWhole(TrimakeState& state, TVertex* v, TVertex* target, int olderSegments) {
  state.crossingsLeft = MostCrossings(olderSegments);
  state.stepsLeft = state.vertexCount + std::min(state.crossingsLeft, INT_MAX - state.vertexCount);
  int result = 0;
  while (v != nullptr) {
    if (tri_Insert_Segment(state, v, target, &v) < 0) {
      ReportError(state);
      result = -1;
    }
    if (state.stepsLeft <= 0 || state.crossingsLeft <= 0) {
      break;
    }
  }
  return result;
}

// Marks the edges that run from *a straight towards p, and moves *a along them. Returns 0 if that
// leads to p, 1 if the way from *a is between *out and its next, -1 if there is none.
int FollowEdges(TrimakeState& state, TVertex** a, TVertex* p, TEdge** out) {
  while (state.stepsLeft-- > 0) {
    const int found = tri_Find_Direction(*a, p, out);
    if (found != 0) {
      return found;
    }
    tri_Mark_Edge(state, *out);
    *a = (*out)->dest;
    if (*a == p) {
      return 0;
    }
  }
  return -1;
}

// Clears the corridor from a to p, which crosses no breakline and meets no vertex, puts the marked
// edge into it and fills both sides. With k and l vertices on them, k + l − 5 edges go and as many
// come, so that the free half-edges suffice.
int ReplaceCrossed(TrimakeState& state, TVertex* a, TEdge* e, TVertex* p) {
  TVertex* end = nullptr;
  TChainEntry* list = nullptr;
  int k = 0;
  if (tri_Collect_Chain(state, true, a, e, p, &end, &k, &list) < 0 ||
      tri_Fill_Chain(state, k, list) < 0) {
    return -1;
  }
  int l = 0;
  TEdge* const lastPosition = list[k - 1].edge;
  if (tri_Collect_Chain(state, false, p, lastPosition, a, &end, &l, &list) < 0 ||
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
  while (state.stepsLeft > 0) {
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
  const WorkingList flips(state.flips, sizeof(TEdge*));
  state.crossingWarned = false;
  int result = 0;
  int segments = 0;
  for (int i = 1; i < n; ++i) {
    TVertex* const v = &vertices[inverseMap[indexMap[i]]];
    TVertex* const target = &vertices[inverseMap[indexMap[i - 1]]];
    if (state.points[i].flag != 0 || AreSamePlace(v, target)) {
      continue;
    }
    state.segmentFrom = i - 1;
    state.segmentTo = i;
    if (InsertWhole(state, v, target, segments++) < 0) {
      result = -1;
    }
  }
  state.crossingWarned = false;
  return result;
}

}  // namespace zyl::geometry::internal
