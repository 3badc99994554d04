#include "trimake/pencil.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "predicates/predicates.h"
#include "support/exact.h"

namespace {

using namespace zyl::geometry::internal;

TVertex VertexAt(double x, double y) { return {{x, y}, nullptr, nullptr, 0, 0}; }

// Grids far from the origin, whose points are cocircular and collinear again and again; the same a
// few last bits off; and magnitudes that make either factor vanish beside the other.
class Hard {
 public:
  TVertex Next(int kind) {
    switch (kind) {
      case 0:
        return VertexAt(Cell(), Cell());
      case 1:
        return VertexAt(450000.1 + Cell(), 6500000.1 + Cell());
      case 2:
        return VertexAt(std::nextafter(1 + Cell(), Cell()), std::nextafter(1 + Cell(), Cell()));
      default:
        return VertexAt(std::ldexp(Cell() - 3, Exponent()), std::ldexp(Cell() - 3, Exponent()));
    }
  }

 private:
  double Cell() { return static_cast<double>(random_() % 7); }
  int Exponent() { return static_cast<int>(random_() % 120) - 60; }

  std::mt19937 random_{42};  // the seed of all cases
};

TEST(Pencil, AnswersLikeExactArithmetic) {
  exactinit();
  Hard hard;
  int ties = 0;
  for (int round = 0; round < 100000; ++round) {
    const int kind = round % 4;
    const TVertex L = hard.Next(kind), R = hard.Next(kind), c = hard.Next(kind),
                  d = hard.Next(kind);
    const TPencil pencil(&L, &R);
    const bool isSame =
        exact::Orient2D(L.xy, R.xy, c.xy) == 0 &&
        ((c.xy[0] == L.xy[0] && c.xy[1] == L.xy[1]) || (c.xy[0] == R.xy[0] && c.xy[1] == R.xy[1]));
    if (!isSame) {
      ASSERT_EQ(pencil.Faces(pencil.At(&c)), exact::Orient2D(L.xy, R.xy, c.xy) >= 0)
          << "round " << round;
    }
    const int inside = exact::InCircle(L.xy, R.xy, c.xy, d.xy);
    ASSERT_EQ(pencil.Holds(pencil.At(&c), pencil.At(&d)), inside > 0) << "round " << round;
    ties += inside == 0;
  }
  EXPECT_GT(ties, 5000);
}

TEST(Pencil, TheEndsOfTheBaseNeitherFaceItNorLieInACircle) {
  exactinit();
  Hard hard;
  for (int round = 0; round < 1000; ++round) {
    const TVertex L = hard.Next(round % 4), R = hard.Next(round % 4), c = hard.Next(round % 4);
    const TPencil pencil(&L, &R);
    for (const TVertex* end : {&L, &R}) {
      EXPECT_FALSE(pencil.Faces(pencil.At(end)));
      EXPECT_FALSE(pencil.Holds(pencil.At(&c), pencil.At(end)));
    }
  }
}

}  // namespace
