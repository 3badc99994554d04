#include "trimake/records.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

using namespace zyl::geometry::internal;

// A state of its own with a few vertices and half-edges, as a build would have them.
class Rings : public testing::Test {
 protected:
  explicit Rings(int edges = 20) : edges_(static_cast<std::size_t>(edges)), vertices_(8) {
    state_.unusedEdges = edges_.data();
    state_.unusedEnd = edges_.data() + edges_.size();
    std::memset(vertices_.data(), 0, vertices_.size() * sizeof(TVertex));
  }

  TVertex* V(std::size_t i) { return &vertices_[i]; }

  TEdge* Join(TVertex* a, TVertex* b, TEdge* afterA = nullptr, TEdge* afterB = nullptr) {
    return tri_Make_Edge(state_, a, b, afterA, afterB, false, false).edge;
  }

  // Destinations round the ring of v, from `first`, checking the links on the way.
  std::vector<TVertex*> Around(TVertex* v) {
    std::vector<TVertex*> seen;
    TEdge* e = v->first;
    do {
      EXPECT_EQ(e->next->prev, e);
      EXPECT_EQ(e->twin->twin, e);
      EXPECT_EQ(e->twin->dest, v);
      seen.push_back(e->dest);
      e = e->next;
    } while (e != v->first);
    return seen;
  }

  TrimakeState state_{};
  std::vector<TEdge> edges_;
  std::vector<TVertex> vertices_;
};

TEST_F(Rings, AnEdgeGoesInAfterTheNamedOneAndFirstMovesOnlyIfAsked) {
  TEdge* const toB = Join(V(0), V(1));
  EXPECT_EQ(toB->next, toB);
  EXPECT_EQ(toB->prev, toB);
  TEdge* const toC = Join(V(0), V(2), toB);
  tri_Make_Edge(state_, V(0), V(3), toB, nullptr, false, false);
  EXPECT_EQ(Around(V(0)), (std::vector<TVertex*>{V(1), V(3), V(2)}));
  tri_Make_Edge(state_, V(4), V(0), nullptr, toC, false, true);
  EXPECT_EQ(Around(V(0)), (std::vector<TVertex*>{V(4), V(1), V(3), V(2)}));
  EXPECT_EQ(Around(V(4)), (std::vector<TVertex*>{V(0)}));
}

TEST_F(Rings, ADeletedFirstPassesToTheNext) {
  TEdge* const toB = Join(V(0), V(1));
  TEdge* const toC = Join(V(0), V(2), toB);
  Join(V(1), V(2), toB->twin, toC->twin);
  tri_Delete_Edge(state_, V(0), toB);
  EXPECT_EQ(Around(V(0)), (std::vector<TVertex*>{V(2)}));
  EXPECT_EQ(Around(V(1)), (std::vector<TVertex*>{V(2)}));
  tri_Delete_Edge(state_, V(2), toC->twin);
  EXPECT_EQ(V(0)->first, nullptr);
  EXPECT_EQ(Around(V(2)), (std::vector<TVertex*>{V(1)}));
}

// Halves that were given back serve again, and an edge is never made by half.
TEST_F(Rings, ASupplyThatRunsOutGivesNoEdge) {
  state_.unusedEnd = state_.unusedEdges + 3;
  TEdge* const only = Join(V(0), V(1));
  ASSERT_NE(only, nullptr);
  EXPECT_EQ(Join(V(2), V(3)), nullptr);
  EXPECT_EQ(V(2)->first, nullptr);
  EXPECT_EQ(Around(V(0)), (std::vector<TVertex*>{V(1)}));
  tri_Delete_Edge(state_, V(0), only);
  EXPECT_NE(Join(V(2), V(3)), nullptr);
  EXPECT_EQ(Join(V(4), V(5)), nullptr);
}

TEST(Storage, CreatedVerticesAreNumberedOnThroughTheirHunks) {
  TrimakeState state{};
  state.pointCount = 50;
  state.vertexCount = 40;
  for (int i = 0; i < 401; ++i) {
    const TVertex* const v = tri_New_Vertex(state, i, -i, 2 * i);
    ASSERT_EQ(v->number, 40 + i);
    ASSERT_EQ(v->source, 50 + i);
    ASSERT_EQ(v->first, nullptr);
    ASSERT_EQ(v->xy[0], v->point->x);
    ASSERT_EQ(v->xy[1], v->point->y);
    ASSERT_EQ(v->point->z, 2 * i);
    ASSERT_EQ(v->point->flag, 0);
  }
  EXPECT_EQ(state.vertexCount, 441);
  EXPECT_EQ(state.pointCount, 451);
  EXPECT_EQ(state.firstVertexHunk->used, 200);
  EXPECT_EQ(state.firstVertexHunk->next->used, 200);
  EXPECT_EQ(state.vertexHunk->used, 1);
  int free = 0;
  for (const TEdge* e = state.freeEdges; e != nullptr; e = e->next) {
    ++free;
  }
  EXPECT_EQ(free, 3 * 1200);
  tri_Free_Vertex_Hunks(state);
  EXPECT_EQ(state.firstVertexHunk, nullptr);
  EXPECT_EQ(state.vertexHunk, nullptr);
}

TEST(Storage, BreaklineRecordsComeOneByOneAndAreFreedTogether) {
  TrimakeState state{};
  for (int i = 0; i < 1001; ++i) {
    TInfo* const info = tri_New_TInfo(state);
    ASSERT_EQ(info->count, 1);
    ASSERT_EQ(info->head->next, nullptr);
    info->head->from = i;
    TIndex* const index = tri_New_TIndex(state);
    *index = {info->head, i, i + 1};
  }
  EXPECT_EQ(state.firstInfoHunk->records[499].head->from, 499);
  EXPECT_EQ(state.firstIndexHunk->next->records[0].from, 500);
  EXPECT_EQ(state.infoHunk->used, 1);
  tri_Free_TIndex_Hunks(state);
  tri_Free_TInfo_Hunks(state);
  EXPECT_EQ(state.firstIndexHunk, nullptr);
  EXPECT_EQ(state.infoHunk, nullptr);
}

TEST(TArray, GrowsInWholeSteps) {
  TArray* const list = TArray::Create(3 * sizeof(int), 1000);
  EXPECT_EQ(list->data, nullptr);
  *static_cast<int*>(list->Reserve(1)) = 7;
  EXPECT_EQ(list->capacity, 1000);
  list->Reserve(999);
  EXPECT_EQ(list->capacity, 1000);
  int* const last = static_cast<int*>(list->Reserve(1));
  EXPECT_EQ(list->capacity, 2000);
  EXPECT_EQ(last, static_cast<int*>(list->data) + 3000);
  EXPECT_EQ(*static_cast<int*>(list->data), 7);
  list->Drop(2);
  EXPECT_EQ(list->count, 999);
  list->Drop(5000);
  int count = -1;
  void* const data = list->Take(&count);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(list->data, nullptr);
  std::free(data);
  std::free(list);
}

TEST(TArray, RefusesMoreThanItCanCountAndStaysAsItWas) {
  TArray* const list = TArray::Create(1, 10);
  list->Reserve(3);
  EXPECT_THROW(list->Reserve(2147483647), OutOfMemory);
  EXPECT_EQ(list->count, 3);
  EXPECT_EQ(list->capacity, 10);
  std::free(list->data);
  std::free(list);
}

}  // namespace
