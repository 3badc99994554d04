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

// xt yt (z + zt): of the tails of x and y, what is left of a cross product.
void AddTails(Sum& sum, const Factor& xt, const Factor& yt, const Factor& z, const Factor& zt) {
  const Expansion<2> product = Product(xt, yt);
  sum.Add(product * z);
  sum.Add(product * zt);
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
  const Expansion<4> bc = Cross(b, c);
  const Expansion<4> ca = Cross(c, a);
  const Expansion<4> ab = Cross(a, b);
  const Expansion<24> heads = (bc * a.z + ca * b.z) + ab * c.z;
  det = estimate(heads);
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

  const Expansion<8> bct = Cross(bt, c) + Cross(b, ct);
  const Expansion<8> cat = Cross(ct, a) + Cross(c, at);
  const Expansion<8> abt = Cross(at, b) + Cross(a, bt);
  Sum sum(heads);
  sum.Add(bct * a.z);
  sum.Add(cat * b.z);
  sum.Add(abt * c.z);
  sum.Add(bc * at.z);
  sum.Add(ca * bt.z);
  sum.Add(ab * ct.z);
  AddTails(sum, at.x, bt.y, c.z, ct.z);
  AddTails(sum, -at.x, ct.y, b.z, bt.z);
  AddTails(sum, bt.x, ct.y, a.z, at.z);
  AddTails(sum, -bt.x, at.y, c.z, ct.z);
  AddTails(sum, ct.x, at.y, b.z, bt.z);
  AddTails(sum, -ct.x, bt.y, a.z, at.z);
  sum.Add(bct * at.z);
  sum.Add(cat * bt.z);
  sum.Add(abt * ct.z);
  return sum.MostSignificant();
}

}  // namespace zyl::geometry::internal
