#include "trimake/records.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace {

using namespace zyl::geometry::internal;

// A state of its own with a few vertices and half-edges, as a build would have them.
class Rings : public testing::Test {
 protected:
  Rings() {
    state_.unusedEdges = edges_;
    state_.unusedEnd = edges_ + 20;
  }

  TEdge* Join(int a, int b, TEdge* afterA = nullptr, TEdge* afterB = nullptr, bool first = false) {
    return tri_Make_Edge(state_, v_ + a, v_ + b, afterA, afterB, false, first).edge;
  }

  // Destinations round the ring of v, from `first`, checking the links on the way.
  std::vector<long> Around(int v) {
    std::vector<long> seen;
    for (TEdge* e = v_[v].first; e != nullptr && (seen.empty() || e != v_[v].first); e = e->next) {
      EXPECT_TRUE(e->next->prev == e && e->twin->twin == e && e->twin->dest == v_ + v);
      seen.push_back(e->dest - v_);
    }
    return seen;
  }

  TrimakeState state_{};
  TEdge edges_[20] = {};
  TVertex v_[8] = {};
};

using Numbers = std::vector<long>;

TEST_F(Rings, AnEdgeGoesInAfterTheNamedOneAndFirstMovesOnlyIfAsked) {
  TEdge* const toB = Join(0, 1);
  TEdge* const toC = Join(0, 2, toB);
  Join(0, 3, toB);
  EXPECT_EQ(Around(0), (Numbers{1, 3, 2}));
  Join(4, 0, nullptr, toC, true);
  EXPECT_EQ(Around(0), (Numbers{4, 1, 3, 2}));
  EXPECT_EQ(Around(4), (Numbers{0}));
}

TEST_F(Rings, ADeletedFirstPassesToTheNext) {
  TEdge* const toB = Join(0, 1);
  TEdge* const toC = Join(0, 2, toB);
  Join(1, 2, toB->twin, toC->twin);
  tri_Delete_Edge(state_, v_, toB);
  EXPECT_EQ(Around(0), (Numbers{2}));
  EXPECT_EQ(Around(1), (Numbers{2}));
  tri_Delete_Edge(state_, v_ + 2, toC->twin);
  EXPECT_EQ(Around(0), Numbers{});
  EXPECT_EQ(Around(2), (Numbers{1}));
}

// Halves that were given back serve again, and an edge is never made by half.
TEST_F(Rings, ASupplyThatRunsOutGivesNoEdge) {
  state_.unusedEnd = state_.unusedEdges + 3;
  TEdge* const only = Join(0, 1);
  ASSERT_NE(only, nullptr);
  EXPECT_EQ(Join(2, 3), nullptr);
  EXPECT_EQ(Around(2), Numbers{});
  EXPECT_EQ(Around(0), (Numbers{1}));
  tri_Delete_Edge(state_, v_, only);
  EXPECT_NE(Join(2, 3), nullptr);
  EXPECT_EQ(Join(4, 5), nullptr);
}

TEST(Storage, CreatedVerticesAreNumberedOnThroughTheirHunks) {
  TrimakeState state{};
  state.pointCount = 50;
  state.vertexCount = 40;
  for (int i = 0; i < 401; ++i) {
    const TVertex* const v = tri_New_Vertex(state, i, -i, 2 * i);
    ASSERT_TRUE(v->number == 40 + i && v->source == 50 + i && v->first == nullptr);
    ASSERT_TRUE(v->xy[0] == i && v->point->x == i && v->xy[1] == -i && v->point->y == -i);
    ASSERT_TRUE(v->point->z == 2 * i && v->point->flag == 0);
  }
  EXPECT_EQ(state.vertexCount, 441);
  EXPECT_EQ(state.pointCount, 451);
  EXPECT_EQ(state.firstVertexHunk->next->used, 200);
  EXPECT_EQ(state.vertexHunk->used, 1);
  int free = 0;
  for (const TEdge* e = state.freeEdges; e != nullptr; e = e->next) {
    ++free;
  }
  EXPECT_EQ(free, 3 * 1200);
  tri_Free_Vertex_Hunks(state);
  EXPECT_TRUE(state.firstVertexHunk == nullptr && state.vertexHunk == nullptr);
}

TEST(Storage, BreaklineRecordsComeOneByOneAndAreFreedTogether) {
  TrimakeState state{};
  for (int i = 0; i < 1001; ++i) {
    TInfo* const info = tri_New_TInfo(state);
    ASSERT_TRUE(info->count == 1 && info->head->next == nullptr);
    info->head->from = i;
    *tri_New_TIndex(state) = {info->head, i, i + 1};
  }
  EXPECT_EQ(state.firstInfoHunk->records[499].head->from, 499);
  EXPECT_EQ(state.firstIndexHunk->next->records[0].from, 500);
  EXPECT_EQ(state.infoHunk->used, 1);
  tri_Free_TIndex_Hunks(state);
  tri_Free_TInfo_Hunks(state);
  EXPECT_TRUE(state.firstIndexHunk == nullptr && state.infoHunk == nullptr);
}

// And refuses more than it can count, staying as it was.
TEST(TArray, GrowsInWholeSteps) {
  TArray* const list = TArray::Create(3 * sizeof(int), 1000);
  EXPECT_EQ(list->data, nullptr);
  *static_cast<int*>(list->Reserve(1)) = 7;
  list->Reserve(999);
  EXPECT_EQ(list->capacity, 1000);
  int* const last = static_cast<int*>(list->Reserve(1));
  EXPECT_EQ(list->capacity, 2000);
  EXPECT_EQ(last, static_cast<int*>(list->data) + 3000);
  EXPECT_EQ(*static_cast<int*>(list->data), 7);
  EXPECT_THROW(list->Reserve(2147483647), OutOfMemory);
  EXPECT_EQ(list->capacity, 2000);
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

}  // namespace
