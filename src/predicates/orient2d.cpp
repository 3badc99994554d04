// Stages B to D of the orientation in the plane (Shewchuk 1997, section 4.2, Figure 21).

#include <cmath>

#include "predicates/difference.h"
#include "predicates/predicates.h"

namespace zyl::geometry::internal {

double orient2dadapt(const double* pa, const double* pb, const double* pc, double permanent,
                     const PredicateState& state) {
  const Vec2 a = Difference2(pa, pc, state.splitter);
  const Vec2 b = Difference2(pb, pc, state.splitter);
  const Expansion<4> B = Cross(a, b);
  double det = estimate(B);
  if (!(std::fabs(det) < state.ccwerrboundB * permanent)) {
    return det;
  }

  const Vec2 at = Tail2(pa, pc, a, state.splitter);
  const Vec2 bt = Tail2(pb, pc, b, state.splitter);
  if (IsZero(at) && IsZero(bt)) {
    return det;
  }
  const double errbound = state.ccwerrboundC * permanent + state.resulterrbound * std::fabs(det);
  det += CrossCorrection(a, at, b, bt);
  if (!(std::fabs(det) < errbound)) {
    return det;
  }

  return (((B + Cross(at, b)) + Cross(a, bt)) + Cross(at, bt)).MostSignificant();
}

}  // namespace zyl::geometry::internal
