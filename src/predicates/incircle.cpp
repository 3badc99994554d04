// Stages B to D of the in-circle determinant (Shewchuk 1997, section 4.4).

#include <cmath>

#include "predicates/difference.h"
#include "predicates/predicates.h"
#include "predicates/triple.h"

namespace zyl::geometry::internal {
namespace {

using Sum = ExpansionSum<1152>;

// (b x c) |a|^2 of the heads.
Expansion<32> Summand(const Vec2& a, const Vec2& b, const Vec2& c) {
  const Expansion<4> bc = Cross(b, c);
  return bc * a.x * a.x + bc * a.y * a.y;
}

// The determinant of the heads.
Expansion<96> Heads(const Vec2& a, const Vec2& b, const Vec2& c) {
  return (Summand(a, b, c) + Summand(b, c, a)) + Summand(c, a, b);
}

Estimate EstimateHeads(const Vec2& a, const Vec2& b, const Vec2& c, double permanent) {
  Triple sum;
  const auto add = [&sum](const Vec2& p, const Vec2& q, const Vec2& r) {
    Triple lift;
    lift.AddProduct(p.x, p.x);
    lift.AddProduct(p.y, p.y);
    sum.AddProduct(TripleCross(q, r), lift, p.x.splitter);
  };
  add(a, b, c);
  add(b, c, a);
  add(c, a, b);
  return EstimateOf(sum, permanent);
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

// Full effect of the tails on (b x c) |a|^2.
void AddTails(Sum& sum, const Vec2& a, const Vec2& at, const Vec2& b, const Vec2& bt, const Vec2& c,
              const Vec2& ct) {
  const Expansion<12> tails = CrossOfTails(b, bt, c, ct);
  const Expansion<16> both = Cross(b, c) + tails;
  AddTailsAlong(sum, a.x, at.x, tails, both);
  AddTailsAlong(sum, a.y, at.y, tails, both);
}

}  // namespace

double incircleadapt(const double* pa, const double* pb, const double* pc, const double* pd,
                     double det, double permanent, const PredicateState& state) {
  if (IsExact<2>(4, permanent, pa, pb, pc, pd)) {
    return det;
  }

  const Vec2 a = Difference2(pa, pd, state.splitter);
  const Vec2 b = Difference2(pb, pd, state.splitter);
  const Vec2 c = Difference2(pc, pd, state.splitter);
  const Estimate heads = EstimateHeads(a, b, c, permanent);
  if (!(std::fabs(heads.det) < state.iccerrboundB * permanent)) {
    return heads.det;
  }

  const Vec2 at = Tail2(pa, pd, a, state.splitter);
  const Vec2 bt = Tail2(pb, pd, b, state.splitter);
  const Vec2 ct = Tail2(pc, pd, c, state.splitter);
  if (IsZero(at) && IsZero(bt) && IsZero(ct)) {
    return heads.error == 0.0 ? heads.det : estimate(Heads(a, b, c));
  }
  const double errbound =
      state.iccerrboundC * permanent + state.resulterrbound * std::fabs(heads.det) + heads.error;
  det = heads.det + ((Correction(a, at, b, bt, c, ct) + Correction(b, bt, c, ct, a, at)) +
                     Correction(c, ct, a, at, b, bt));
  if (!(std::fabs(det) < errbound)) {
    return det;
  }

  Sum sum(Heads(a, b, c));
  AddTails(sum, a, at, b, bt, c, ct);
  AddTails(sum, b, bt, c, ct, a, at);
  AddTails(sum, c, ct, a, at, b, bt);
  return sum.MostSignificant();
}

}  // namespace zyl::geometry::internal
