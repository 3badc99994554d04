#include "predicates/predicates.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/exact.h"

namespace {

using namespace zyl::geometry::internal;
using exact::SignOf;

// Beside the line y = x the plain determinant is rounding noise.
TEST(Orient2D, HasTheExactSignOneUlpFromTheLine) {
  exactinit();
  const double ulp = std::ldexp(1.0, -53);  // of the numbers from 0.5 to 1
  const double b[2] = {12, 12}, c[2] = {24, 24};
  for (int i = 0; i < 256; ++i) {
    for (int j = 0; j < 256; ++j) {
      const double a[2] = {0.5 + i * ulp, 0.5 + j * ulp};
      ASSERT_EQ(SignOf(orient2d(a, b, c)), exact::Orient2D(a, b, c)) << i << ", " << j;
    }
  }
}

}  // namespace
