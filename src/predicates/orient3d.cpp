// Stages B to D of the orientation in space (Shewchuk 1997, section 4.3).

#include <cmath>

#include "predicates/difference.h"
#include "predicates/predicates.h"
#include "predicates/triple.h"

namespace zyl::geometry::internal {
namespace {

using Sum = ExpansionSum<192>;

// The determinant of the heads.
Expansion<24> Heads(const Vec3& a, const Vec3& b, const Vec3& c) {
  return (Cross(b, c) * a.z + Cross(c, a) * b.z) + Cross(a, b) * c.z;
}

Estimate EstimateHeads(const Vec3& a, const Vec3& b, const Vec3& c, double permanent) {
  Triple sum;
  sum.AddProduct(TripleCross(b, c), a.z);
  sum.AddProduct(TripleCross(c, a), b.z);
  sum.AddProduct(TripleCross(a, b), c.z);
  return EstimateOf(sum, permanent);
}

// First-order effect of the tails on a.z (b x c).
double Correction(const Vec3& a, const Vec3& at, const Vec3& b, const Vec3& bt, const Vec3& c,
                  const Vec3& ct) {
  return a.z.value * CrossCorrection(b, bt, c, ct) + at.z.value * RoundedCross(b, c);
}

// Full effect of the tails on a.z (b x c).
void AddTails(Sum& sum, const Vec3& a, const Vec3& at, const Vec3& b, const Vec3& bt, const Vec3& c,
              const Vec3& ct) {
  const Expansion<12> tails = CrossOfTails(b, bt, c, ct);
  sum.Add(tails * a.z);
  sum.Add((Cross(b, c) + tails) * at.z);
}

}  // namespace

double orient3dadapt(const double* pa, const double* pb, const double* pc, const double* pd,
                     double det, double permanent, const PredicateState& state) {
  if (IsExact<3>(3, permanent, pa, pb, pc, pd)) {
    return det;
  }

  const Vec3 a = Difference3(pa, pd, state.splitter);
  const Vec3 b = Difference3(pb, pd, state.splitter);
  const Vec3 c = Difference3(pc, pd, state.splitter);
  const Estimate heads = EstimateHeads(a, b, c, permanent);
  if (!(std::fabs(heads.det) < state.o3derrboundB * permanent)) {
    return heads.det;
  }

  const Vec3 at = Tail3(pa, pd, a, state.splitter);
  const Vec3 bt = Tail3(pb, pd, b, state.splitter);
  const Vec3 ct = Tail3(pc, pd, c, state.splitter);
  if (IsZero(at) && IsZero(bt) && IsZero(ct)) {
    return heads.error == 0.0 ? heads.det : estimate(Heads(a, b, c));
  }
  const double errbound =
      state.o3derrboundC * permanent + state.resulterrbound * std::fabs(heads.det) + heads.error;
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
