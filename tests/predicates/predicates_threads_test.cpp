#include <gtest/gtest.h>

#include <atomic>
#include <cfloat>
#include <cmath>

#include "predicates/predicates.h"
#include "support/exact.h"
#include "support/threads.h"
#include "zyl/geometry/geom.h"

namespace {

using namespace zyl::geometry::internal;
using exact::SignOf;

// The only test of its program: the state can be uninitialised but once. The points are beside a
// line, where the determinant in plain doubles has the wrong sign.
TEST(PredicateThreads, InitialisationMayRunBesidePredicates) {
  if (FLT_EVAL_METHOD != 0) {
    GTEST_SKIP() << "in wider registers each thread has to initialise for itself";
  }
  const double a[2] = {0.5 + std::ldexp(3, -53), 0.5 + std::ldexp(5, -53)};
  const double b[2] = {12, 12}, c[2] = {24, 24};
  const double plain = (a[0] - c[0]) * (b[1] - c[1]) - (a[1] - c[1]) * (b[0] - c[0]);
  const int sign = exact::Orient2D(a, b, c);
  const auto isExact = [&] { return SignOf(orient2d(a, b, c)) == sign; };
  EXPECT_EQ(predicateState().ccwerrboundA, 0);
  EXPECT_EQ(predicateState().splitter, 0);
  EXPECT_EQ(orient2d(a, b, c), plain);
  ASSERT_FALSE(isExact());

  std::atomic<int> started{0};
  const auto countWrong = [&] {
    const bool initialises = started++ % 2 == 0;
    while (started < 6) {
      std::this_thread::yield();
    }
    if (initialises) {
      geom_Init();
    }
    bool exactBefore = initialises;
    int wrong = 0;
    for (int i = 0; i < 20000; ++i) {
      wrong += exactBefore && !isExact();
      exactBefore = exactBefore || isExact();
    }
    return wrong;
  };
  EXPECT_EQ(OnThreads(6, countWrong), std::vector<int>(6));
  EXPECT_TRUE(isExact());
}

}  // namespace
