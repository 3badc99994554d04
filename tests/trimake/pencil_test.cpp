#include "trimake/pencil.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "predicates/predicates.h"
#include "support/exact.h"

namespace {

using namespace zyl::geometry::internal;

// Grids far from the origin, whose points are cocircular and collinear again and again; the same a
// few last bits off; and magnitudes that make either factor vanish beside the other.
double Hard(int kind, double offset, std::mt19937& random) {
  const auto cell = [&random] { return static_cast<double>(random() % 7); };
  const double c = cell();
  return kind == 0   ? c
         : kind == 1 ? offset + c
         : kind == 2 ? std::nextafter(1 + c, cell())
                     : std::ldexp(c - 3, static_cast<int>(random() % 120) - 60);
}

TEST(Pencil, AnswersLikeExactArithmetic) {
  exactinit();
  std::mt19937 random(42);
  int ties = 0;
  for (int round = 0; round < 100000; ++round) {
    TVertex v[4] = {};
    for (TVertex& vertex : v) {
      vertex.xy[0] = Hard(round % 4, 450000.1, random);
      vertex.xy[1] = Hard(round % 4, 6500000.1, random);
    }
    const auto& [L, R, c, d] = v;
    const TPencil pencil(&L, &R);
    const auto isAt = [&c = c](const TVertex& end) {
      return c.xy[0] == end.xy[0] && c.xy[1] == end.xy[1];
    };
    if (!isAt(L) && !isAt(R)) {
      ASSERT_EQ(pencil.Faces(pencil.At(&c)), exact::Orient2D(L.xy, R.xy, c.xy) >= 0)
          << "round " << round;
    }
    const int inside = exact::InCircle(L.xy, R.xy, c.xy, d.xy);
    ASSERT_EQ(pencil.Holds(pencil.At(&c), pencil.At(&d)), inside > 0) << "round " << round;
    ties += inside == 0;
    for (const TVertex* end : {&L, &R}) {  // neither faces its own base nor lies in a circle
      ASSERT_FALSE(pencil.Faces(pencil.At(end)));
      ASSERT_FALSE(pencil.Holds(pencil.At(&c), pencil.At(end)));
    }
  }
  EXPECT_GT(ties, 5000);
}

}  // namespace
