#include "trimake/extraction.h"

#include <cstdint>
#include <utility>

#include "trimake/allocation.h"
#include "trimake/orientation.h"

namespace zyl::geometry::internal {
namespace {

constexpr char kOutOfMemory[] = "tri_Create_Delaunay: out of memory";

// A corner of a triangle at v: the half-edge from v to it, and its number.
struct TCorner {
  const TEdge* edge;
  int number;
};

struct Triangles {
  MallocArray<int> corners;
  std::size_t count;
  std::uint64_t references;  // breakline segments along their edges, edge by edge
};

// Every vertex in the order of its number.
template <class Visit>
void ForEachVertex(const TrimakeState& state, const TResult& result, Visit visit) {
  for (int i = 0; i < result.count; ++i) {
    visit(result.verts[i]);
  }
  for (const TVertexHunk* hunk = state.firstVertexHunk; hunk != nullptr; hunk = hunk->next) {
    for (int i = 0; i < hunk->used; ++i) {
      visit(hunk->vertices[i]);
    }
  }
}

// Numbers of vertices. Those of the initial block follow from their addresses: to look them up
// would cost a cache miss at nearly every step around a ring.
class Numbers {
 public:
  explicit Numbers(const TResult& result)
      : begin_(AddressOf(result.verts)),
        size_(static_cast<std::uintptr_t>(result.count) * sizeof(TVertex)) {}

  int Of(const TVertex* v) const {
    const std::uintptr_t offset = AddressOf(v) - begin_;
    return offset < size_ ? static_cast<int>(offset / sizeof(TVertex)) : v->number;
  }

 private:
  static std::uintptr_t AddressOf(const TVertex* v) { return reinterpret_cast<std::uintptr_t>(v); }

  std::uintptr_t begin_;
  std::uintptr_t size_;
};

// Triangles of which v is the lowest-numbered corner, as pairs of consecutive half-edges (e, f);
// the corners v, f.dest, e.dest are clockwise. The pair from the last half-edge to the first is a
// triangle too unless the gap between them is the exterior, which is where `first` marks it. A
// vertex with a single edge, the end of a chain, has none.
template <class Visit>
void ForEachTriangleAt(const TVertex& v, const Numbers& numbers, Visit visit) {
  if (v.first == nullptr || v.first->next == v.first) {
    return;
  }
  const TEdge* const last = v.first->prev;
  const int firstNumber = numbers.Of(v.first->dest);
  int number = firstNumber;
  for (const TEdge* e = v.first; e != last; e = e->next) {
    const int next = numbers.Of(e->next->dest);
    if (number > v.number && next > v.number) {
      visit(TCorner{e, number}, TCorner{e->next, next});
    }
    number = next;
  }
  if (number > v.number && firstNumber > v.number && cw(&v, v.first->dest, last->dest)) {
    visit(TCorner{last, number}, TCorner{v.first, firstNumber});
  }
}

constexpr int kFarthestAhead = 20;

// Rings lie all over the block, and every step around one waits for the step before. So what the
// vertices next in turn will need is called up ahead: the farther ahead, the closer to `first`.
// GCC takes a function that only prefetches for one without effect, and drops calls that it has not
// inlined by then.
[[gnu::always_inline]] inline void FetchRingsAhead(const TVertex* v) {
  __builtin_prefetch(v[kFarthestAhead].first);
  if (const TEdge* const e = v[15].first) {
    __builtin_prefetch(e->next);
    __builtin_prefetch(e->prev);
  }
  if (const TEdge* const e = v[10].first) {
    __builtin_prefetch(e->next->next);
    __builtin_prefetch(e->prev->prev);
  }
  if (const TEdge* const e = v[5].first) {
    __builtin_prefetch(e->next->next->next);
  }
}

// All triangles, in the order of their lowest-numbered corners v.
template <class Visit>
void ForEachTriangle(const TrimakeState& state, const TResult& result, Visit visit) {
  const Numbers numbers(result);
  const int fetchUntil = result.count - kFarthestAhead;
  ForEachVertex(state, result, [&](const TVertex& v) {
    if (v.number < fetchUntil) {
      FetchRingsAhead(&v);
    }
    ForEachTriangleAt(v, numbers, [&](const TCorner& e, const TCorner& f) { visit(v, e, f); });
  });
}

// Half-edge from f.dest to e.dest seen from e.dest: the third edge of the triangle (e, f).
const TEdge* Opposite(const TEdge* e) { return e->twin->prev; }

std::uint64_t References(const TEdge* e) {
  return e->info != nullptr ? static_cast<std::uint64_t>(e->info->count) : 0;
}

// Of the pairs at a vertex at most as many are triangles as half-edges rise from it, so that all
// triangles together are no more than the edges, and those no more than half the supply.
std::size_t MostTriangles(const TrimakeState& state, const TResult& result) {
  std::size_t slots = static_cast<std::size_t>(result.count);
  for (const TVertexHunk* hunk = state.firstVertexHunk; hunk != nullptr; hunk = hunk->next) {
    slots += kVerticesPerHunk;
  }
  return slots * (kEdgesPerVertex / 2);
}

Triangles CollectTriangles(const TrimakeState& state, const TResult& result) {
  Triangles list{NewArray<int>(3 * MostTriangles(state, result), kOutOfMemory), 0, 0};
  const bool hasBreaklines = state.firstInfoHunk != nullptr;
  int* corner = list.corners.get();
  ForEachTriangle(state, result, [&](const TVertex& v, const TCorner& e, const TCorner& f) {
    corner[0] = v.number + 1;
    corner[1] = f.number + 1;
    corner[2] = e.number + 1;
    corner += 3;
    if (hasBreaklines) {
      list.references += References(e.edge) + References(f.edge) + References(Opposite(e.edge));
    }
  });
  list.count = static_cast<std::size_t>(corner - list.corners.get()) / 3;
  return list;
}

// Gives the unused end of the array back; should that fail, the caller gets it as it is.
int* Shrink(MallocArray<int> corners, std::size_t count) {
  void* const shrunk = std::realloc(corners.get(), count * sizeof(int));
  if (shrunk == nullptr) {
    return corners.release();
  }
  static_cast<void>(corners.release());
  return static_cast<int*>(shrunk);
}

// Writes the pair of one triangle edge and copies its list behind the copies made so far.
void CopyList(const TEdge* e, TEdgeInfo*& pair, TIndex*& copies) {
  *pair = {0, nullptr};
  if (e->info != nullptr) {
    *pair = {e->info->count, copies};
    for (const TIndex* index = e->info->head; index != nullptr; index = index->next) {
      TIndex* const copy = copies++;
      *copy = {index->next != nullptr ? copies : nullptr, index->from, index->to};
    }
  }
  ++pair;
}

// The pairs of all triangles, and behind them the copied lists, in one allocation.
MallocArray<char> CollectEdgeInfo(const TrimakeState& state, const TResult& result,
                                  const Triangles& list) {
  const std::uint64_t size =
      3 * std::uint64_t{list.count} * sizeof(TEdgeInfo) + list.references * sizeof(TIndex);
  if (size > PTRDIFF_MAX) {
    throw OutOfMemory(kOutOfMemory);
  }
  if (state.firstInfoHunk == nullptr) {
    return NewZeroedArray<char>(static_cast<std::size_t>(size), kOutOfMemory);
  }
  MallocArray<char> buffer = NewArray<char>(static_cast<std::size_t>(size), kOutOfMemory);
  TEdgeInfo* pair = reinterpret_cast<TEdgeInfo*>(buffer.get());
  TIndex* copies = reinterpret_cast<TIndex*>(pair + 3 * list.count);
  ForEachTriangle(state, result, [&](const TVertex&, const TCorner& e, const TCorner& f) {
    CopyList(f.edge, pair, copies);
    CopyList(Opposite(e.edge), pair, copies);
    CopyList(e.edge, pair, copies);
  });
  return buffer;
}

MallocArray<TPoint> CollectVertices(const TrimakeState& state, const TResult& result) {
  MallocArray<TPoint> vertices =
      NewArray<TPoint>(static_cast<std::size_t>(state.vertexCount), kOutOfMemory);
  TPoint* out = vertices.get();
  ForEachVertex(state, result, [&](const TVertex& v) {
    if (v.number < result.count - kFarthestAhead) {
      __builtin_prefetch(&result.points[(&v)[kFarthestAhead].source]);
    }
    if (v.source < result.pointCount) {
      *out = result.points[v.source];
    } else {
      *out = *v.point;
      out->x *= result.unscale;
      out->y *= result.unscale;
    }
    ++out;
  });
  return vertices;
}

}  // namespace

void tri_Extract(const TrimakeState& state, const TResult& result, int* outTriangleCount) {
  MallocArray<TPoint> vertices;
  if (state.outVertices != nullptr) {
    vertices = CollectVertices(state, result);
  }
  Triangles list = CollectTriangles(state, result);
  MallocArray<char> edgeInfo;
  if (state.outEdgeInfo != nullptr && list.count > 0) {
    edgeInfo = CollectEdgeInfo(state, result, list);
  }

  *outTriangleCount = static_cast<int>(list.count);
  if (list.count > 0) {
    *state.outTriangles = Shrink(std::move(list.corners), 3 * list.count);
  }
  if (state.outVertexCount != nullptr) {
    *state.outVertexCount = state.vertexCount;
  }
  if (state.outVertices != nullptr) {
    *state.outVertices = vertices.release();
  }
  if (state.outEdgeInfo != nullptr) {
    *state.outEdgeInfo = edgeInfo.release();
  }
}

}  // namespace zyl::geometry::internal
