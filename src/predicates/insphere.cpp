// The in-sphere determinant (Shewchuk 1997, section 4.4).
//
// The points are taken round a ring: the cofactor of the one at i is made of the cross products of
// the following ones, so that one formula serves all of them. `Ring` counts round.

#include <algorithm>
#include <cmath>

#include "predicates/difference.h"
#include "predicates/predicates.h"
#include "predicates/triple.h"

namespace zyl::geometry::internal {
namespace {

template <typename T, int N>
struct Ring {
  T entry[N];

  T& operator[](int i) { return entry[i % N]; }
  const T& operator[](int i) const { return entry[i % N]; }
};

using Points = const double* const[5];
using Heads = Ring<Vec3, 4>;  // of the first four points relative to the fifth

// Stage A's determinant with the magnitudes of its terms added up.
double Permanent(const Heads& p) {
  const auto cross = [&](int i, int j) {
    return std::fabs(p[i].x.value * p[j].y.value) + std::fabs(p[j].x.value * p[i].y.value);
  };
  const auto summand = [&](int i) {
    const double volume = cross(i + 2, i + 3) * std::fabs(p[i + 1].z.value) +
                          cross(i + 1, i + 3) * std::fabs(p[i + 2].z.value) +
                          cross(i + 1, i + 2) * std::fabs(p[i + 3].z.value);
    return volume * Dot(p[i], p[i]);
  };
  return ((summand(0) + summand(1)) + summand(2)) + summand(3);
}

// v |a|^2.
template <int N>
Expansion<12 * N> Lifted(const Expansion<N>& v, const Vec3& a) {
  return (v * a.x * a.x + v * a.y * a.y) + v * a.z * a.z;
}

// The i-th summand of the determinant of the heads; from one to the next the sign alternates.
Expansion<288> Summand(const Heads& p, int i) {
  const Expansion<24> volume =
      Cross(p[i + 1], p[i + 2]) * p[i + 3].z +
      (Cross(p[i + 2], p[i + 3]) * p[i + 1].z - Cross(p[i + 1], p[i + 3]) * p[i + 2].z);
  return Lifted(volume, p[i]);
}

// Kept out of its caller, as is insphereexact, so that its 30 KiB of stack do not add to the 180
// KiB of that.
[[gnu::noinline]] double EstimateByExpansion(const Heads& p) {
  return estimate((Summand(p, 1) - Summand(p, 0)) + (Summand(p, 3) - Summand(p, 2)));
}

// What stages B and C share.
struct Crosses {
  Ring<Triple, 4> next;  // of each point and the one after it
  Ring<Triple, 4> skip;  // of each point and the one after that
};

Crosses CrossesOf(const Heads& p) {
  Crosses crosses;
  for (int i = 0; i < 4; ++i) {
    crosses.next[i] = TripleCross(p[i], p[i + 1]);
    crosses.skip[i] = TripleCross(p[i], p[i + 2]);
  }
  return crosses;
}

Estimate EstimateHeads(const Heads& p, const Crosses& crosses, double permanent) {
  Triple sum;
  for (int i = 0; i < 4; ++i) {
    Triple volume;
    volume.AddProduct(crosses.next[i + 2], p[i + 1].z);
    volume.AddProduct(crosses.skip[i + 1], -p[i + 2].z);
    volume.AddProduct(crosses.next[i + 1], p[i + 3].z);
    Triple lift;
    lift.AddProduct(p[i].x, p[i].x);
    lift.AddProduct(p[i].y, p[i].y);
    lift.AddProduct(p[i].z, p[i].z);
    sum.AddProduct(i % 2 == 0 ? -volume : volume, lift, p[i].x.splitter);
  }
  return EstimateOf(sum, permanent);
}

// First-order effect of the tails on the determinant, rounded.
double Correction(const Heads& p, const Crosses& crosses, const Heads& tail) {
  Ring<double, 4> next, nextTail, skip, skipTail;
  for (int i = 0; i < 4; ++i) {
    next[i] = crosses.next[i].Rounded();
    skip[i] = crosses.skip[i].Rounded();
    nextTail[i] = CrossCorrection(p[i], tail[i], p[i + 1], tail[i + 1]);
    skipTail[i] = CrossCorrection(p[i], tail[i], p[i + 2], tail[i + 2]);
  }

  const auto volume = [](const Heads& z, const Ring<double, 4>& ofNext,
                         const Ring<double, 4>& ofSkip, int i) {
    return z[i + 1].z.value * ofNext[i + 2] - z[i + 2].z.value * ofSkip[i + 1] +
           z[i + 3].z.value * ofNext[i + 1];
  };
  double ofVolume[4];
  double ofLift[4];
  for (int i = 0; i < 4; ++i) {
    ofVolume[i] =
        Dot(p[i], p[i]) * (volume(p, nextTail, skipTail, i) + volume(tail, next, skip, i));
    ofLift[i] = Dot(p[i], tail[i]) * volume(p, next, skip, i);
  }
  return ((ofVolume[1] + ofVolume[3]) - (ofVolume[0] + ofVolume[2])) +
         2.0 * ((ofLift[1] + ofLift[3]) - (ofLift[0] + ofLift[2]));
}

// Stage D: from the coordinates of the five points themselves, not from their differences.
[[gnu::noinline]] double insphereexact(const Points& points, double splitter) {
  constexpr double kOrigin[3] = {0.0, 0.0, 0.0};
  Ring<Vec3, 5> p;
  for (int i = 0; i < 5; ++i) {
    p[i] = Difference3(points[i], kOrigin, splitter);
  }
  Ring<Expansion<4>, 5> next, skip;
  for (int i = 0; i < 5; ++i) {
    next[i] = Cross(p[i], p[i + 1]);
    skip[i] = Cross(p[i], p[i + 2]);
  }

  // Determinants of three points in a row, and of two in a row with the second next.
  Ring<Expansion<24>, 5> row, gap;
  for (int i = 0; i < 5; ++i) {
    row[i] = next[i] * p[i + 2].z + (next[i + 1] * p[i].z - skip[i] * p[i + 1].z);
    gap[i] = next[i] * p[i + 3].z + (skip[i + 1] * p[i].z + skip[i + 3] * p[i + 1].z);
  }
  const auto summand = [&](int i) {
    return Lifted((row[i + 2] + gap[i + 1]) - (gap[i + 3] + row[i + 1]), p[i]);
  };
  return ((summand(0) + summand(1)) + ((summand(2) + summand(3)) + summand(4))).MostSignificant();
}

double insphereadapt(const Points& points, const Heads& p, double permanent,
                     const PredicateState& state) {
  const Crosses crosses = CrossesOf(p);
  const Estimate heads = EstimateHeads(p, crosses, permanent);
  if (!(std::fabs(heads.det) < state.isperrboundB * permanent)) {
    return heads.det;
  }

  Heads tail;
  bool exact = true;
  for (int i = 0; i < 4; ++i) {
    tail[i] = Tail3(points[i], points[4], p[i], state.splitter);
    exact = exact && IsZero(tail[i]);
  }
  if (exact) {
    return heads.error == 0.0 ? heads.det : EstimateByExpansion(p);
  }
  const double errbound =
      state.isperrboundC * permanent + state.resulterrbound * std::fabs(heads.det) + heads.error;
  const double det = heads.det + Correction(p, crosses, tail);
  if (!(std::fabs(det) < errbound)) {
    return det;
  }
  return insphereexact(points, state.splitter);
}

}  // namespace

double insphere(const double* pa, const double* pb, const double* pc, const double* pd,
                const double* pe) {
  const double aex = pa[0] - pe[0], aey = pa[1] - pe[1], aez = pa[2] - pe[2];
  const double bex = pb[0] - pe[0], bey = pb[1] - pe[1], bez = pb[2] - pe[2];
  const double cex = pc[0] - pe[0], cey = pc[1] - pe[1], cez = pc[2] - pe[2];
  const double dex = pd[0] - pe[0], dey = pd[1] - pe[1], dez = pd[2] - pe[2];

  const double ab = aex * bey - bex * aey, bc = bex * cey - cex * bey;
  const double cd = cex * dey - dex * cey, da = dex * aey - aex * dey;
  const double ac = aex * cey - cex * aey, bd = bex * dey - dex * bey;

  const double abc = aez * bc - bez * ac + cez * ab;
  const double bcd = bez * cd - cez * bd + dez * bc;
  const double cda = cez * da + dez * ac + aez * cd;
  const double dab = dez * ab + aez * bd + bez * da;

  const double alift = aex * aex + aey * aey + aez * aez;
  const double blift = bex * bex + bey * bey + bez * bez;
  const double clift = cex * cex + cey * cey + cez * cez;
  const double dlift = dex * dex + dey * dey + dez * dez;
  const double det = (dlift * abc - clift * dab) + (blift * cda - alift * bcd);

  // As in incircle, a bound on the permanent from the largest distance R from pe: four summands of
  // three volumes of R^3 times R^2, and room for roundings.
  const PredicateState& state = predicateState();
  const double lift = std::max(std::max(alift, blift), std::max(clift, dlift));
  const double bound = 12.00001 * lift * lift * std::sqrt(lift);
  if (std::fabs(det) > state.isperrboundA * bound || IsExact<3>(5, bound, pa, pb, pc, pd, pe)) {
    return det;
  }

  const Points points = {pa, pb, pc, pd, pe};
  Heads heads;
  for (int i = 0; i < 4; ++i) {
    heads[i] = Difference3(points[i], pe, state.splitter);
  }
  const double permanent = Permanent(heads);
  if (!(std::fabs(det) <= state.isperrboundA * permanent)) {
    return det;
  }
  return insphereadapt(points, heads, permanent, state);
}

}  // namespace zyl::geometry::internal
