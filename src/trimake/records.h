#pragma once

// Records and storage of the triangulator: points, vertices, half-edges, breakline lists, the
// growable array, the blocks they are carved from and the state that one build keeps.
//
// A triangulation is held by its vertices: each owns a ring of the half-edges that leave it, in
// counterclockwise order. Triangles are not stored, they are read off the rings. Nothing here
// decides anything about geometry.

#include <cstddef>
#include <exception>

namespace zyl::geometry::internal {

struct TEdge;
struct TInfo;

/// Point record of the input and of the output vertex array.
struct TPoint {
  double x;
  double y;
  double z;  ///< carried along; the construction is two-dimensional
  int flag;  ///< 0: a breakline joins this point to the one before it in the array
};

/// Vertex of the triangulation.
///
/// `xy` is what every predicate reads. It holds the x and y of `point`, so that a test costs one
/// memory access and not two; tri_New_Vertex and the driver set both together. Only a rotated
/// retry lets them differ: it turns `xy` about the centre of its run and puts it back before it
/// returns. A breakline pass and the extraction therefore see the two equal.
struct TVertex {
  double xy[2];
  const TPoint* point;  ///< in the caller's input array, or in a hunk for a created vertex
  TEdge* first;         ///< any half-edge of an inner vertex, the one after the exterior gap of a
                        ///< hull vertex, null while there is none
  int number;           ///< 0-based: sorted order of the input, then order of creation
  int source;           ///< index of the input point; created vertices go on from the input count
};

/// Half-edge; it leaves the vertex whose ring holds it.
struct TEdge {
  TVertex* dest;
  TEdge* twin;  ///< same edge, in the ring of `dest`
  TEdge* next;  ///< counterclockwise neighbour in the ring; link of the free list
  TEdge* prev;  ///< clockwise neighbour in the ring
  TInfo* info;  ///< breaklines along the edge, shared with `twin`; non-null: never flipped
};

/// Input points between which a breakline segment runs; part of a list.
struct TIndex {
  TIndex* next;
  int from;  ///< index of the point before
  int to;    ///< index of the point whose flag is 0
};

/// Head of the list of breakline segments along an edge, newest first.
struct TInfo {
  int count;  ///< at least 1
  TIndex* head;
};

/// One pair of the edge-information buffer: breakline segments along one edge of a triangle.
/// Three pairs a triangle, edge k joining the corners k and (k + 1) mod 3, stand at the front of
/// the buffer; the lists lie behind them, each in one piece.
struct TEdgeInfo {
  int count;           ///< 0 if the edge is no breakline
  const TIndex* list;  ///< null if the edge is no breakline
};

/// The one error of the engine: an allocator's message on its way to the driver, never further.
class OutOfMemory : public std::exception {
 public:
  /// `message` has to be a literal: nothing can be copied once memory is short.
  explicit OutOfMemory(const char* message) noexcept : message_(message) {}
  const char* what() const noexcept override { return message_; }

 private:
  const char* message_;
};

/// Growable array of plain records. Made by Create; the record and its data come from malloc.
/// Reserve throws OutOfMemory and then leaves the array as it was.
struct TArray {
  int capacity;
  int count;
  int elementSize;  ///< in bytes
  int step;         ///< capacity is a multiple of it
  void* data;

  /// An empty array without a data block. Throws OutOfMemory.
  static TArray* Create(int elementSize, int step);

  /// Adds k elements, uninitialised, and returns the first of them. Earlier addresses die if the
  /// capacity grows.
  void* Reserve(int k) {
    if (k > capacity - count) {
      Grow(k);
    }
    void* const added = static_cast<char*>(data) + static_cast<std::ptrdiff_t>(count) * elementSize;
    count += k;
    return added;
  }

  /// Takes the last k elements away, at most all. Keeps the block.
  void Drop(int k) { count = k < count ? count - k : 0; }

  /// Hands the data block over to the caller (free), and the count if asked for; the record is
  /// left without data and is still the caller's to free.
  void* Take(int* takenCount);

 private:
  // Makes room for k more elements.
  void Grow(int k);
};

/// Block of created vertices with their coordinates and six half-edges for each.
struct TVertexHunk {
  TVertex* vertices;
  TEdge* edges;
  TPoint* points;
  TVertexHunk* next;
  int used;
};

/// Block of breakline references.
struct TIndexHunk {
  TIndex* records;
  TIndexHunk* next;
  int used;
};

/// Block of breakline list heads, each with a first reference of its own.
struct TInfoHunk {
  TInfo* records;
  TInfoHunk* next;
  int used;
};

constexpr int kVerticesPerHunk = 200;
constexpr int kEdgesPerVertex = 6;  // a planar triangulation has fewer than 3 edges a vertex
constexpr int kIndexesPerHunk = 500;
constexpr int kInfosPerHunk = 500;

/// What a build keeps; one instance per thread, all zero until the thread's first build.
struct TrimakeState {
  bool quiet;             ///< print nothing to standard output; outlives the build
  bool extendedFallback;  ///< settle near ties of computed distances in XFloat
  bool crossingWarned;    ///< the crossing warning of this breakline pass has been printed

  double nearTolerance2;      ///< squared tolerances of the breakline pass, not negative
  double relativeTolerance2;  ///< the same, relative to the length of the segment

  const TPoint* points;  ///< input array of the build
  int pointCount;        ///< input points, plus one for each created vertex
  int vertexCount;       ///< distinct points, plus one for each created vertex
  int retryDepth;        ///< limits the rotated retries of a build

  // Free half-edges: those given back, last in first out, before those never used.
  TEdge* freeEdges;
  TEdge* unusedEdges;
  TEdge* unusedEnd;

  TVertexHunk* firstVertexHunk;
  TVertexHunk* vertexHunk;
  TIndexHunk* firstIndexHunk;
  TIndexHunk* indexHunk;
  TInfoHunk* firstInfoHunk;
  TInfoHunk* infoHunk;

  // Breakline pass.
  int segmentFrom;  ///< input indices of the segment being inserted
  int segmentTo;
  TArray* chain;      ///< crossed-chain list
  TArray* flips;      ///< edges whose circles are to be checked
  TArray* unsettled;  ///< vertices around which circles are left for the end of the pass

  // Where tri_Triangulate wants the results; null if not wanted.
  int* outVertexCount;
  TPoint** outVertices;
  int** outTriangles;
  void** outEdgeInfo;
};

/// State of the calling thread. Fetch it once per call and pass it down: the look-up is not free.
TrimakeState& tri_State();

/// Makes a vertex hunk numbered for the vertex being created, its half-edges on the free list.
/// All tri_Create and tri_New operations throw OutOfMemory.
TVertexHunk* tri_Create_Hunk(TrimakeState& state);

/// A vertex without edges at (x, y, z), flag 0, with the next number and the next source.
TVertex* tri_New_Vertex(TrimakeState& state, double x, double y, double z);

TIndexHunk* tri_Create_TIndex_Hunk();

/// An uninitialised reference.
TIndex* tri_New_TIndex(TrimakeState& state);

TInfoHunk* tri_Create_TInfo_Hunk();

/// A list of one reference, whose `from` and `to` are uninitialised and whose `next` is null.
TInfo* tri_New_TInfo(TrimakeState& state);

/// Free the hunks of a chain and reset it.
void tri_Free_Vertex_Hunks(TrimakeState& state);
void tri_Free_TIndex_Hunks(TrimakeState& state);
void tri_Free_TInfo_Hunks(TrimakeState& state);

/// Both halves of an edge.
struct TEdgePair {
  TEdge* edge;
  TEdge* twin;
};

namespace ring {

inline TEdge* Pop(TrimakeState& state) {
  TEdge* const edge = state.freeEdges;
  if (edge != nullptr) {
    state.freeEdges = edge->next;
    return edge;
  }
  return state.unusedEdges != state.unusedEnd ? state.unusedEdges++ : nullptr;
}

inline void Push(TrimakeState& state, TEdge* edge) {
  edge->next = state.freeEdges;
  state.freeEdges = edge;
}

// Puts `edge` into the ring of v after `after`, or makes it the ring of a vertex that has none.
inline void Splice(TVertex* v, TEdge* edge, TEdge* after, bool makeFirst) {
  if (v->first == nullptr) {
    edge->next = edge;
    edge->prev = edge;
    v->first = edge;
    return;
  }
  TEdge* const before = after->next;
  edge->prev = after;
  edge->next = before;
  after->next = edge;
  before->prev = edge;
  if (makeFirst) {
    v->first = edge;
  }
}

// The last half-edge of a vertex leaves it without a ring. Whether an edge that goes was `first` is
// as good as random in a merge: `first` is selected and stored in any case, without a branch.
inline void Unlink(TVertex* v, TEdge* edge) {
  TEdge* const next = edge->next;
  if (next == edge) {
    v->first = nullptr;
    return;
  }
  TEdge* const first = v->first;
  v->first = first == edge ? next : first;
  edge->prev->next = next;
  next->prev = edge->prev;
}

}  // namespace ring

// Ring links are written by the two operations below and by the release of whole rings in a
// rotated retry, nowhere else. Each puts a record into one cycle or takes one out, so that `next`
// always leads back to where a walk began, however odd the geometry: no walk once round a ring
// needs a budget.

/// Joins a and b. The half-edge at a goes into the ring after `afterA` and becomes `first` if
/// `makeFirstA`; a vertex without a ring ignores both. The same at b.
/// Returns two null pointers, and changes nothing, if fewer than two half-edges are free.
inline TEdgePair tri_Make_Edge(TrimakeState& state, TVertex* a, TVertex* b, TEdge* afterA,
                               TEdge* afterB, bool makeFirstA, bool makeFirstB) {
  TEdge* const e = ring::Pop(state);
  TEdge* const t = ring::Pop(state);
  if (t == nullptr) {
    if (e != nullptr) {
      ring::Push(state, e);
    }
    return {nullptr, nullptr};
  }
  e->dest = b;
  e->twin = t;
  e->info = nullptr;
  t->dest = a;
  t->twin = e;
  t->info = nullptr;
  ring::Splice(a, e, afterA, makeFirstA);
  ring::Splice(b, t, afterB, makeFirstB);
  return {e, t};
}

/// Removes the edge of which e, in the ring of v, is one half. A `first` that goes passes to the
/// next of its ring, null if that was the last.
inline void tri_Delete_Edge(TrimakeState& state, TVertex* v, TEdge* e) {
  TVertex* const w = e->dest;
  TEdge* const t = e->twin;
  ring::Unlink(v, e);
  ring::Push(state, e);
  ring::Unlink(w, t);
  ring::Push(state, t);
}

}  // namespace zyl::geometry::internal
