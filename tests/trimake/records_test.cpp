#include "trimake/records.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/hand_made.h"

namespace {

using namespace zyl::geometry::internal;

class Rings : public mesh::HandMade {
 protected:
  Rings() { Place(mesh::Points(8), 3); }
};

// Halves that were given back serve again, and an edge is never made by half.
TEST_F(Rings, ASupplyThatRunsOutGivesNoEdge) {
  TEdge* const only = Join(0, 1);
  ASSERT_NE(only, nullptr);
  EXPECT_EQ(Join(2, 3), nullptr);
  EXPECT_TRUE(Around(2).empty());
  EXPECT_EQ(Around(0), std::vector<int>{1});
  tri_Delete_Edge(state_, V(0), only);
  EXPECT_NE(Join(2, 3), nullptr);
  EXPECT_EQ(Join(4, 5), nullptr);
}

TEST_F(Rings, CreatedVerticesAreNumberedOnAndFillTheirHunks) {
  for (int i = 0; i < 401; ++i) {
    const TVertex* const v = tri_New_Vertex(state_, i, -i, 2 * i);
    ASSERT_TRUE(v->number == 8 + i && v->source == 8 + i && v->first == nullptr);
    ASSERT_TRUE(v->xy[0] == i && v->xy[1] == -i && v->point->z == 2 * i && v->point->flag == 0);
  }
  EXPECT_EQ(state_.vertexCount, 409);
  EXPECT_EQ(state_.firstVertexHunk->next->used, 200);
  EXPECT_EQ(state_.vertexHunk->used, 1);
  tri_Free_Vertex_Hunks(state_);
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
