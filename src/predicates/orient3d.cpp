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

// e z, where z is there at all.
template <int N>
void AddProduct(Sum& sum, const Expansion<N>& e, const Factor& z) {
  if (z.value != 0.0) {
    sum.Add(e * z);
  }
}

// xt yt (z + zt): of the tails of x and y, what is left of a cross product.
void AddTails(Sum& sum, const Factor& xt, const Factor& yt, const Factor& z, const Factor& zt) {
  if (xt.value != 0.0 && yt.value != 0.0) {
    const Expansion<2> product = Product(xt, yt);
    AddProduct(sum, product, z);
    AddProduct(sum, product, zt);
  }
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
  AddProduct(sum, bct, a.z);
  AddProduct(sum, cat, b.z);
  AddProduct(sum, abt, c.z);
  AddProduct(sum, bc, at.z);
  AddProduct(sum, ca, bt.z);
  AddProduct(sum, ab, ct.z);
  AddTails(sum, at.x, bt.y, c.z, ct.z);
  AddTails(sum, -at.x, ct.y, b.z, bt.z);
  AddTails(sum, bt.x, ct.y, a.z, at.z);
  AddTails(sum, -bt.x, at.y, c.z, ct.z);
  AddTails(sum, ct.x, at.y, b.z, bt.z);
  AddTails(sum, -ct.x, bt.y, a.z, at.z);
  AddProduct(sum, bct, at.z);
  AddProduct(sum, cat, bt.z);
  AddProduct(sum, abt, ct.z);
  return sum.MostSignificant();
}

}  // namespace zyl::geometry::internal
