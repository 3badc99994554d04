// Stages B to D of the in-sphere determinant (Shewchuk 1997, section 4.4).
//
// The points are taken round a ring: the cofactor of the one at i is made of the cross products of
// the following ones, so that one formula serves all of them. `Ring` counts round.

#include <cmath>

#include "predicates/difference.h"
#include "predicates/predicates.h"

namespace zyl::geometry::internal {
namespace {

template <typename T, int N>
struct Ring {
  T entry[N];

  T& operator[](int i) { return entry[i % N]; }
  const T& operator[](int i) const { return entry[i % N]; }
};

// What the adaptive stages know of the four points relative to the fifth.
struct Tetrahedron {
  Ring<Vec3, 4> point;
  Ring<Expansion<4>, 4> next;  // of each point and the one after it
  Ring<Expansion<4>, 4> skip;  // of each point and the one after that
};

// p |a|^2.
template <int N>
Expansion<12 * N> Lifted(const Expansion<N>& p, const Vec3& a) {
  return (p * a.x * a.x + p * a.y * a.y) + p * a.z * a.z;
}

// The i-th summand of the determinant; from one to the next the sign alternates.
Expansion<288> Summand(const Tetrahedron& t, int i) {
  const Expansion<24> volume =
      t.next[i + 1] * t.point[i + 3].z +
      (t.next[i + 2] * t.point[i + 1].z - t.skip[i + 1] * t.point[i + 2].z);
  return Lifted(volume, t.point[i]);
}

// First-order effect of the tails on the determinant, rounded.
double Correction(const Tetrahedron& t, const Ring<Vec3, 4>& tail) {
  Ring<double, 4> next, nextTail, skip, skipTail;
  for (int i = 0; i < 4; ++i) {
    const Ring<Vec3, 4>& p = t.point;
    next[i] = t.next[i].MostSignificant();
    skip[i] = t.skip[i].MostSignificant();
    nextTail[i] = CrossCorrection(p[i], tail[i], p[i + 1], tail[i + 1]);
    skipTail[i] = CrossCorrection(p[i], tail[i], p[i + 2], tail[i + 2]);
  }

  const auto volume = [](const Ring<Vec3, 4>& p, const Ring<double, 4>& ofNext,
                         const Ring<double, 4>& ofSkip, int i) {
    return p[i + 1].z.value * ofNext[i + 2] - p[i + 2].z.value * ofSkip[i + 1] +
           p[i + 3].z.value * ofNext[i + 1];
  };
  const auto dot = [](const Vec3& p, const Vec3& q) {
    return p.x.value * q.x.value + p.y.value * q.y.value + p.z.value * q.z.value;
  };
  double ofVolume[4];
  double ofLift[4];
  for (int i = 0; i < 4; ++i) {
    ofVolume[i] = dot(t.point[i], t.point[i]) *
                  (volume(t.point, nextTail, skipTail, i) + volume(tail, next, skip, i));
    ofLift[i] = dot(t.point[i], tail[i]) * volume(t.point, next, skip, i);
  }
  return ((ofVolume[1] + ofVolume[3]) - (ofVolume[0] + ofVolume[2])) +
         2.0 * ((ofLift[1] + ofLift[3]) - (ofLift[0] + ofLift[2]));
}

// Stage D: from the coordinates of the five points themselves, not from their differences. Kept out
// of its caller, so that the 180 KiB of stack which it takes are not part of every stage's frame.
[[gnu::noinline]] double insphereexact(const double* const (&points)[5], double splitter) {
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

}  // namespace

double insphereadapt(const double* pa, const double* pb, const double* pc, const double* pd,
                     const double* pe, double permanent, const PredicateState& state) {
  const double* const points[5] = {pa, pb, pc, pd, pe};
  Tetrahedron t;
  for (int i = 0; i < 4; ++i) {
    t.point[i] = Difference3(points[i], pe, state.splitter);
  }
  for (int i = 0; i < 4; ++i) {
    t.next[i] = Cross(t.point[i], t.point[i + 1]);
    t.skip[i] = Cross(t.point[i], t.point[i + 2]);
  }
  double det = estimate((Summand(t, 1) - Summand(t, 0)) + (Summand(t, 3) - Summand(t, 2)));
  if (!(std::fabs(det) < state.isperrboundB * permanent)) {
    return det;
  }

  Ring<Vec3, 4> tail;
  bool exact = true;
  for (int i = 0; i < 4; ++i) {
    tail[i] = Tail3(points[i], pe, t.point[i], state.splitter);
    exact = exact && IsZero(tail[i]);
  }
  if (exact) {
    return det;
  }
  const double errbound = state.isperrboundC * permanent + state.resulterrbound * std::fabs(det);
  det += Correction(t, tail);
  if (!(std::fabs(det) < errbound)) {
    return det;
  }
  return insphereexact(points, state.splitter);
}

}  // namespace zyl::geometry::internal
