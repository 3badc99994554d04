// Stages B to D of the orientation in space (Shewchuk 1997, section 4.3).

#include <cmath>

#include "predicates/difference.h"
#include "predicates/predicates.h"

namespace zyl::geometry::internal {
namespace {

using Sum = ExpansionSum<192>;

// First-order effect of the tails on a.z (b x c).
double Correction(const Vec3& a, const Vec3& at, const Vec3& b, const Vec3& bt, const Vec3& c,
                  const Vec3& ct) {
  return a.z.value * CrossCorrection(b, bt, c, ct) + at.z.value * RoundedCross(b, c);
}

// Full effect of the tails on a.z (b x c), where bc is the product of the heads.
void AddTails(Sum& sum, const Expansion<4>& bc, const Vec3& a, const Vec3& at, const Vec3& b,
              const Vec3& bt, const Vec3& c, const Vec3& ct) {
  const Expansion<12> tails = CrossOfTails(b, bt, c, ct);
  sum.Add(tails * a.z);
  sum.Add((bc + tails) * at.z);
}

}  // namespace

double orient3dadapt(const double* pa, const double* pb, const double* pc, const double* pd,
                     double permanent, const PredicateState& state) {
  const Vec3 a = Difference3(pa, pd, state.splitter);
  const Vec3 b = Difference3(pb, pd, state.splitter);
  const Vec3 c = Difference3(pc, pd, state.splitter);
  const Expansion<4> bc = Cross(b, c);
  const Expansion<4> ca = Cross(c, a);
  const Expansion<4> ab = Cross(a, b);
  const Expansion<24> heads = (bc * a.z + ca * b.z) + ab * c.z;
  double det = estimate(heads);
  if (!(std::fabs(det) < state.o3derrboundB * permanent)) {
    return det;
  }

  const Vec3 at = Tail3(pa, pd, a, state.splitter);
  const Vec3 bt = Tail3(pb, pd, b, state.splitter);
  const Vec3 ct = Tail3(pc, pd, c, state.splitter);
  if (IsZero(at) && IsZero(bt) && IsZero(ct)) {
    return det;
  }
  const double errbound = state.o3derrboundC * permanent + state.resulterrbound * std::fabs(det);
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
