#include "trimake/records.h"

#include <climits>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace zyl::geometry::internal {
namespace {

thread_local TrimakeState threadState{};

struct VertexBlock {
  TVertexHunk header;
  TVertex vertices[kVerticesPerHunk];
  TPoint points[kVerticesPerHunk];
  TEdge edges[kVerticesPerHunk * kEdgesPerVertex];
};

struct IndexBlock {
  TIndexHunk header;
  TIndex records[kIndexesPerHunk];
};

struct InfoBlock {
  TInfoHunk header;
  TInfo records[kInfosPerHunk];
  TIndex indexes[kInfosPerHunk];
};

// Blocks begin with their header, which is what a chain links and frees.
template <class Block>
Block* NewBlock(const char* message) {
  void* const memory = std::malloc(sizeof(Block));
  if (memory == nullptr) {
    throw OutOfMemory(message);
  }
  return new (memory) Block;
}

// Current hunk with a record to spare. `create` makes one if there is none or if it is full.
template <class Hunk, class Create>
Hunk* HunkWithRoom(Hunk*& first, Hunk*& current, int capacity, Create create) {
  if (current == nullptr || current->used == capacity) {
    Hunk* const made = create();
    (current == nullptr ? first : current->next) = made;
    current = made;
  }
  return current;
}

template <class Hunk>
void FreeHunks(Hunk*& first, Hunk*& current) {
  while (first != nullptr) {
    Hunk* const next = first->next;
    std::free(first);
    first = next;
  }
  current = nullptr;
}

}  // namespace

TArray* TArray::Create(int elementSize, int step) {
  void* const memory = std::malloc(sizeof(TArray));
  if (memory == nullptr) {
    throw OutOfMemory("tri_Create_Delaunay: out of memory");
  }
  return new (memory) TArray{0, 0, elementSize, step, nullptr};
}

void TArray::Grow(int k) {
  const std::int64_t wanted = std::int64_t{count} + k;
  const std::int64_t rounded = (wanted - 1 + step) / step * step;
  const bool fits = rounded <= INT_MAX && rounded <= PTRDIFF_MAX / elementSize;
  void* const grown =
      fits ? std::realloc(data, static_cast<std::size_t>(rounded * elementSize)) : nullptr;
  if (grown == nullptr) {
    throw OutOfMemory("tri_Create_Delaunay: out of memory");
  }
  data = grown;
  capacity = static_cast<int>(rounded);
}

void* TArray::Take(int* takenCount) {
  void* const taken = data;
  if (takenCount != nullptr) {
    *takenCount = count;
  }
  data = nullptr;
  capacity = 0;
  count = 0;
  return taken;
}

TrimakeState& tri_State() { return threadState; }

TVertexHunk* tri_Create_Hunk(TrimakeState& state) {
  VertexBlock* const block = NewBlock<VertexBlock>("tri_Create_Hunk: out of memory");
  block->header = {block->vertices, block->edges, block->points, nullptr, 0};
  for (int i = 0; i < kVerticesPerHunk; ++i) {
    const int number = state.vertexCount - 1 + i;
    const int source = state.pointCount - 1 + i;
    block->vertices[i] = {{0, 0}, &block->points[i], nullptr, number, source};
  }
  constexpr int kEdges = kVerticesPerHunk * kEdgesPerVertex;
  for (int i = kEdges - 1; i >= 0; --i) {
    ring::Push(state, &block->edges[i]);
  }
  return &block->header;
}

TVertex* tri_New_Vertex(TrimakeState& state, double x, double y, double z) {
  ++state.pointCount;
  ++state.vertexCount;
  TVertexHunk* const hunk = HunkWithRoom(state.firstVertexHunk, state.vertexHunk, kVerticesPerHunk,
                                         [&state] { return tri_Create_Hunk(state); });
  const int slot = hunk->used++;
  hunk->points[slot] = {x, y, z, 0};
  TVertex* const vertex = &hunk->vertices[slot];
  vertex->xy[0] = x;
  vertex->xy[1] = y;
  return vertex;
}

TIndexHunk* tri_Create_TIndex_Hunk() {
  // The message is compared by callers: "out or memory" stands.
  IndexBlock* const block = NewBlock<IndexBlock>("tri_Create_TIndex_Hunk: out or memory");
  block->header = {block->records, nullptr, 0};
  return &block->header;
}

TIndex* tri_New_TIndex(TrimakeState& state) {
  TIndexHunk* const hunk =
      HunkWithRoom(state.firstIndexHunk, state.indexHunk, kIndexesPerHunk, tri_Create_TIndex_Hunk);
  return &hunk->records[hunk->used++];
}

TInfoHunk* tri_Create_TInfo_Hunk() {
  InfoBlock* const block = NewBlock<InfoBlock>("tri_Create_TInfo_Hunk: out of memory");
  block->header = {block->records, nullptr, 0};
  return &block->header;
}

// A record is made ready when it is handed out: most builds need only a few of a hunk.
TInfo* tri_New_TInfo(TrimakeState& state) {
  TInfoHunk* const hunk =
      HunkWithRoom(state.firstInfoHunk, state.infoHunk, kInfosPerHunk, tri_Create_TInfo_Hunk);
  InfoBlock* const block = reinterpret_cast<InfoBlock*>(hunk);
  const int slot = hunk->used++;
  block->indexes[slot].next = nullptr;
  block->records[slot] = {1, &block->indexes[slot]};
  return &block->records[slot];
}

void tri_Free_Vertex_Hunks(TrimakeState& state) {
  FreeHunks(state.firstVertexHunk, state.vertexHunk);
}

void tri_Free_TIndex_Hunks(TrimakeState& state) {
  FreeHunks(state.firstIndexHunk, state.indexHunk);
}

void tri_Free_TInfo_Hunks(TrimakeState& state) { FreeHunks(state.firstInfoHunk, state.infoHunk); }

}  // namespace zyl::geometry::internal
