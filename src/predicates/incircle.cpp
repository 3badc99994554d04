// Stages B to D of the in-circle determinant (Shewchuk 1997, section 4.4).

#include <cmath>

#include "predicates/difference.h"
#include "predicates/predicates.h"

namespace zyl::geometry::internal {
namespace {

using Sum = ExpansionSum<1152>;

// (b x c) |a|^2 of the heads.
Expansion<32> Lifted(const Expansion<4>& bc, const Vec2& a) {
  return bc * a.x * a.x + bc * a.y * a.y;
}

// First-order effect of the tails on (b x c) |a|^2.
double Correction(const Vec2& a, const Vec2& at, const Vec2& b, const Vec2& bt, const Vec2& c,
                  const Vec2& ct) {
  return (a.x.value * a.x.value + a.y.value * a.y.value) * CrossCorrection(b, bt, c, ct) +
         2.0 * (a.x.value * at.x.value + a.y.value * at.y.value) * RoundedCross(b, c);
}

// Along one axis, with u the head and v the tail of the coordinate:
// (heads + tails) (u + v)^2 - heads u^2 = tails u^2 + (heads + tails) v (2u + v).
void AddTailsAlong(Sum& sum, const Factor& u, const Factor& v, const Expansion<12>& tails,
                   const Expansion<16>& both) {
  sum.Add(tails * u * u);
  if (v.value != 0.0) {
    const Expansion<32> timesV = both * v;
    sum.Add(timesV * Factor(2.0 * u.value, u.splitter));
    sum.Add(timesV * v);
  }
}

// Full effect of the tails on (b x c) |a|^2, where bc is the product of the heads.
void AddTails(Sum& sum, const Expansion<4>& bc, const Vec2& a, const Vec2& at, const Vec2& b,
              const Vec2& bt, const Vec2& c, const Vec2& ct) {
  const Expansion<12> tails = CrossOfTails(b, bt, c, ct);
  const Expansion<16> both = bc + tails;
  AddTailsAlong(sum, a.x, at.x, tails, both);
  AddTailsAlong(sum, a.y, at.y, tails, both);
}

}  // namespace

double incircleadapt(const double* pa, const double* pb, const double* pc, const double* pd,
                     double permanent, const PredicateState& state) {
  const Vec2 a = Difference2(pa, pd, state.splitter);
  const Vec2 b = Difference2(pb, pd, state.splitter);
  const Vec2 c = Difference2(pc, pd, state.splitter);
  const Expansion<4> bc = Cross(b, c);
  const Expansion<4> ca = Cross(c, a);
  const Expansion<4> ab = Cross(a, b);
  const Expansion<96> heads = (Lifted(bc, a) + Lifted(ca, b)) + Lifted(ab, c);
  double det = estimate(heads);
  if (!(std::fabs(det) < state.iccerrboundB * permanent)) {
    return det;
  }

  const Vec2 at = Tail2(pa, pd, a, state.splitter);
  const Vec2 bt = Tail2(pb, pd, b, state.splitter);
  const Vec2 ct = Tail2(pc, pd, c, state.splitter);
  if (IsZero(at) && IsZero(bt) && IsZero(ct)) {
    return det;
  }
  const double errbound = state.iccerrboundC * permanent + state.resulterrbound * std::fabs(det);
  det += (Correction(a, at, b, bt, c, ct) + Correction(b, bt, c, ct, a, at)) +
         Correction(c, ct, a, at, b, bt);
  if (!(std::fabs(det) < errbound)) {
    return det;
  }

  Sum sum(heads);
  AddTails(sum, bc, a, at, b, bt, c, ct);
  AddTails(sum, ca, b, bt, c, ct, a, at);
  AddTails(sum, ab, c, ct, a, at, b, bt);
  return sum.MostSignificant();
}

}  // namespace zyl::geometry::internal
