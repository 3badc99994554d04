#include <gtest/gtest.h>

#include <atomic>
#include <cfloat>
#include <cmath>
#include <thread>
#include <vector>

#include "predicates/predicates.h"
#include "support/exact.h"
#include "zyl/geometry/geom.h"

namespace {

using namespace zyl::geometry::internal;
using exact::SignOf;

// Beside the line through b and c, where the determinant in plain doubles has the wrong sign.
const double kA[2] = {0.5 + std::ldexp(3, -53), 0.5 + std::ldexp(5, -53)};
const double kB[2] = {12, 12};
const double kC[2] = {24, 24};

// The only test of its program: the state can be uninitialised but once.
TEST(PredicateThreads, InitialisationMayRunBesidePredicates) {
  if (FLT_EVAL_METHOD != 0) {
    GTEST_SKIP() << "in wider registers each thread has to initialise for itself";
  }
  const double plain = (kA[0] - kC[0]) * (kB[1] - kC[1]) - (kA[1] - kC[1]) * (kB[0] - kC[0]);
  const int trueSign = exact::Orient2D(kA, kB, kC);
  ASSERT_NE(SignOf(plain), trueSign);
  EXPECT_EQ(predicateState().ccwerrboundA, 0);
  EXPECT_EQ(predicateState().splitter, 0);
  EXPECT_EQ(orient2d(kA, kB, kC), plain);

  std::atomic<int> started{0};
  std::atomic<int> wrong{0};
  std::vector<std::thread> threads;
  for (int k = 0; k < 6; ++k) {
    threads.emplace_back([&, initialises = k % 2 == 0] {
      ++started;
      while (started < 6) {
        std::this_thread::yield();
      }
      if (initialises) {
        geom_Init();
      }
      bool exactBefore = initialises;
      for (int i = 0; i < 20000; ++i) {
        const bool isExact = SignOf(orient2d(kA, kB, kC)) == trueSign;
        wrong += exactBefore && !isExact;
        exactBefore = exactBefore || isExact;
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(SignOf(orient2d(kA, kB, kC)), trueSign);
}

}  // namespace
