#include "trimake/extraction.h"

#include <cstdint>
#include <utility>

#include "trimake/orientation.h"

namespace zyl::geometry::internal {
namespace {

constexpr char kOutOfMemory[] = "tri_Create_Delaunay: out of memory";

// A corner of a triangle at v: the half-edge from v to it, and its number.
struct TCorner {
  const TEdge* edge;
  int number;
};

// Every vertex in the order of its number.
template <class Visit>
void ForEachVertex(const TrimakeState& state, const TVertex* verts, int count, Visit visit) {
  for (int i = 0; i < count; ++i) {
    visit(verts[i]);
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
  Numbers(const TVertex* verts, int count)
      : begin_(AddressOf(verts)), size_(static_cast<std::uintptr_t>(count) * sizeof(TVertex)) {}

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

// The triangles as they are found. Two a vertex are more than there are unless some overlap.
class Collector {
 public:
  Collector(int vertices, bool hasBreaklines)
      : room_(2 * static_cast<std::size_t>(vertices)), hasBreaklines_(hasBreaklines) {
    found_.corners = NewArray<int>(3 * room_, kOutOfMemory);
    if (hasBreaklines_) {
      found_.infos = NewArray<const TInfo*>(3 * room_, kOutOfMemory);
    }
  }

  void Add(const TVertex& v, const TCorner& e, const TCorner& f) {
    if (found_.count == room_) {
      DoubleRoom();
    }
    int* const corners = found_.corners.get() + 3 * found_.count;
    corners[0] = v.number + 1;
    corners[1] = f.number + 1;
    corners[2] = e.number + 1;
    if (hasBreaklines_) {
      const TInfo** const infos = found_.infos.get() + 3 * found_.count;
      infos[0] = f.edge->info;
      infos[1] = e.edge->twin->prev->info;
      infos[2] = e.edge->info;
    }
    ++found_.count;
  }

  TTriangles Take() {
    Resize(found_.corners, 3 * found_.count, kOutOfMemory);
    return std::move(found_);
  }

 private:
  void DoubleRoom() {
    room_ *= 2;
    Resize(found_.corners, 3 * room_, kOutOfMemory);
    if (hasBreaklines_) {
      Resize(found_.infos, 3 * room_, kOutOfMemory);
    }
  }

  TTriangles found_{nullptr, nullptr, 0};
  std::size_t room_;
  bool hasBreaklines_;
};

// Returns the place behind the copies.
TIndex* CopyList(const TIndex* index, TIndex* copies) {
  for (; index != nullptr; index = index->next) {
    TIndex* const copy = copies++;
    *copy = {index->next != nullptr ? copies : nullptr, index->from, index->to};
  }
  return copies;
}

// The edges that breaklines run along, as 3·triangle + k.
struct Constrained {
  MallocArray<std::size_t> edges;
  std::size_t count;
  std::uint64_t references;  // breakline segments along them, edge by edge
};

// In the mesh of a polygon every third edge or so is one, as good as at random: they are picked out
// without a branch.
Constrained FindConstrained(const TTriangles& triangles) {
  constexpr TInfo kNone{0, nullptr};
  const std::size_t all = 3 * triangles.count;
  Constrained found{NewArray<std::size_t>(all, kOutOfMemory), 0, 0};
  for (std::size_t i = 0; i < all; ++i) {
    const TInfo* const info = triangles.infos.get()[i];
    found.edges.get()[found.count] = i;
    found.count += info != nullptr ? 1 : 0;
    found.references += static_cast<std::uint64_t>((info != nullptr ? info : &kNone)->count);
  }
  return found;
}

// The pairs of all triangles, and behind them the copied lists, in one allocation.
MallocArray<char> CollectEdgeInfo(const TTriangles& triangles) {
  Constrained constrained{nullptr, 0, 0};
  if (triangles.infos != nullptr) {
    constrained = FindConstrained(triangles);
  }
  const std::uint64_t size = 3 * std::uint64_t{triangles.count} * sizeof(TEdgeInfo) +
                             constrained.references * sizeof(TIndex);
  if (size > PTRDIFF_MAX) {
    throw OutOfMemory(kOutOfMemory);
  }
  MallocArray<char> buffer = NewZeroedArray<char>(static_cast<std::size_t>(size), kOutOfMemory);
  TEdgeInfo* const pairs = reinterpret_cast<TEdgeInfo*>(buffer.get());
  TIndex* copies = reinterpret_cast<TIndex*>(pairs + 3 * triangles.count);
  for (std::size_t i = 0; i < constrained.count; ++i) {
    const std::size_t edge = constrained.edges.get()[i];
    const TInfo* const info = triangles.infos.get()[edge];
    pairs[edge] = {info->count, copies};
    copies = CopyList(info->head, copies);
  }
  return buffer;
}

MallocArray<TPoint> CollectVertices(const TrimakeState& state, const TResult& result) {
  MallocArray<TPoint> vertices =
      NewArray<TPoint>(static_cast<std::size_t>(state.vertexCount), kOutOfMemory);
  TPoint* out = vertices.get();
  ForEachVertex(state, result.verts, result.count, [&](const TVertex& v) {
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

TTriangles tri_Collect_Triangles(const TrimakeState& state, const TVertex* verts, int count) {
  Collector collector(state.vertexCount, state.firstInfoHunk != nullptr);
  const Numbers numbers(verts, count);
  const int fetchUntil = count - kFarthestAhead;
  ForEachVertex(state, verts, count, [&](const TVertex& v) {
    if (v.number < fetchUntil) {
      FetchRingsAhead(&v);
    }
    ForEachTriangleAt(v, numbers,
                      [&](const TCorner& e, const TCorner& f) { collector.Add(v, e, f); });
  });
  return collector.Take();
}

void tri_Extract(const TrimakeState& state, const TResult& result, TTriangles triangles,
                 int* outTriangleCount) {
  MallocArray<TPoint> vertices;
  if (state.outVertices != nullptr) {
    vertices = CollectVertices(state, result);
  }
  MallocArray<char> edgeInfo;
  if (state.outEdgeInfo != nullptr && triangles.count > 0) {
    edgeInfo = CollectEdgeInfo(triangles);
  }

  *outTriangleCount = static_cast<int>(triangles.count);
  if (triangles.count > 0) {
    *state.outTriangles = triangles.corners.release();
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
