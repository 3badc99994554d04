#pragma once

// Orientation, in-circle and in-sphere determinants with exact signs, for the engine and for the
// exported tests. Points are two or three consecutive doubles.
//
// The algorithm is J. R. Shewchuk's, "Adaptive Precision Floating-Point Arithmetic and Fast Robust
// Geometric Predicates", Discrete & Computational Geometry 18 (1997), section 4: a determinant is
// evaluated in doubles beside a bound on its rounding error (stage A, mostly inline), and only if
// its sign is in doubt is the computation carried on (stages B, C and D), at most until it is
// exact.
//
// The sign is exact as long as nothing overflows or underflows: for all four if each coordinate is
// 0 or of a magnitude from 2^-142 to 2^201. Beyond, and for infinite or NaN coordinates, a call
// still returns, with a value that may be wrong or NaN.

#include <algorithm>
#include <atomic>
#include <cmath>

namespace zyl::geometry::internal {

/// Properties of double arithmetic and the error bounds that follow from them (section 4, Table 1).
struct PredicateState {
  double epsilon;   ///< 2^-53: the largest relative error of one rounding
  double splitter;  ///< 2^27 + 1: times it, a double falls into halves whose products are exact
  double resulterrbound;
  double ccwerrboundA, ccwerrboundB, ccwerrboundC;  // orient2d
  double o3derrboundA, o3derrboundB, o3derrboundC;  // orient3d
  double iccerrboundA, iccerrboundB, iccerrboundC;  // incircle
  double isperrboundA, isperrboundB, isperrboundC;  // insphere
};

/// Every bound is 0, so that practically every double result passes for certain.
inline constexpr PredicateState kUninitialisedState{};

/// The state in force. Writing through a pointer, set once the record behind it is complete, lets
/// `exactinit` run beside predicates on other threads: each call reads the pointer once and thereby
/// is wholly before or wholly after the initialisation. On x86 an acquiring load is a plain one.
inline std::atomic<const PredicateState*> publishedState{&kUninitialisedState};

inline const PredicateState& predicateState() {
  return *publishedState.load(std::memory_order_acquire);
}

/// Computes the state and publishes it. From any thread, at any time, any number of times. Where
/// doubles are computed in wider x87 registers, also sets the precision of the calling thread to
/// that of doubles; there, every thread that uses the predicates has to call this.
void exactinit();

// Stages B to D, for the calls whose sign stage A leaves open. `permanent` is the determinant with
// the magnitudes of its terms added up, and `det` what stage A has found.
double orient2dadapt(const double* pa, const double* pb, const double* pc, double permanent,
                     const PredicateState& state);
double orient3dadapt(const double* pa, const double* pb, const double* pc, const double* pd,
                     double det, double permanent, const PredicateState& state);
double incircleadapt(const double* pa, const double* pb, const double* pc, const double* pd,
                     double det, double permanent, const PredicateState& state);

/// Positive if pa, pb, pc run counterclockwise, negative if clockwise, 0 if collinear; about twice
/// the area of their triangle.
inline double orient2d(const double* pa, const double* pb, const double* pc) {
  const double detleft = (pa[0] - pc[0]) * (pb[1] - pc[1]);
  const double detright = (pa[1] - pc[1]) * (pb[0] - pc[0]);
  const double det = detleft - detright;

  // If the products differ in sign, or one is zero, |det| is no less than the permanent, and the
  // comparison lets it through. So it does with NaN, which no further stage would mend.
  const PredicateState& state = predicateState();
  const double permanent = std::fabs(detleft + detright);
  if (!(std::fabs(det) < state.ccwerrboundA * permanent)) {
    return det;
  }
  return orient2dadapt(pa, pb, pc, permanent, state);
}

/// Positive if pd lies below the plane through pa, pb, pc, which run counterclockwise seen from
/// above; negative if it lies above, 0 if on it; about six times the volume of the tetrahedron.
inline double orient3d(const double* pa, const double* pb, const double* pc, const double* pd) {
  const double adx = pa[0] - pd[0], ady = pa[1] - pd[1], adz = pa[2] - pd[2];
  const double bdx = pb[0] - pd[0], bdy = pb[1] - pd[1], bdz = pb[2] - pd[2];
  const double cdx = pc[0] - pd[0], cdy = pc[1] - pd[1], cdz = pc[2] - pd[2];

  const double bdxcdy = bdx * cdy, cdxbdy = cdx * bdy;
  const double cdxady = cdx * ady, adxcdy = adx * cdy;
  const double adxbdy = adx * bdy, bdxady = bdx * ady;
  const double det = adz * (bdxcdy - cdxbdy) + bdz * (cdxady - adxcdy) + cdz * (adxbdy - bdxady);

  const PredicateState& state = predicateState();
  const double permanent = (std::fabs(bdxcdy) + std::fabs(cdxbdy)) * std::fabs(adz) +
                           (std::fabs(cdxady) + std::fabs(adxcdy)) * std::fabs(bdz) +
                           (std::fabs(adxbdy) + std::fabs(bdxady)) * std::fabs(cdz);
  if (!(std::fabs(det) <= state.o3derrboundA * permanent)) {
    return det;
  }
  return orient3dadapt(pa, pb, pc, pd, det, permanent, state);
}

/// Positive if pd lies inside the circle through pa, pb, pc, negative if outside, 0 if on it, for
/// pa, pb, pc counterclockwise; for clockwise ones the sign is the other.
inline double incircle(const double* pa, const double* pb, const double* pc, const double* pd) {
  const double adx = pa[0] - pd[0], ady = pa[1] - pd[1];
  const double bdx = pb[0] - pd[0], bdy = pb[1] - pd[1];
  const double cdx = pc[0] - pd[0], cdy = pc[1] - pd[1];

  const double bdxcdy = bdx * cdy, cdxbdy = cdx * bdy;
  const double cdxady = cdx * ady, adxcdy = adx * cdy;
  const double adxbdy = adx * bdy, bdxady = bdx * ady;
  const double alift = adx * adx + ady * ady;
  const double blift = bdx * bdx + bdy * bdy;
  const double clift = cdx * cdx + cdy * cdy;
  const double det =
      alift * (bdxcdy - cdxbdy) + blift * (cdxady - adxcdy) + clift * (adxbdy - bdxady);

  // |b.x c.y| + |c.x b.y| is no more than the product of the lengths of b and c, hence the
  // permanent no more than three times the largest lift squared: what passes with that passes with
  // less. The constant has room for the roundings.
  const PredicateState& state = predicateState();
  const double lift = std::max(std::max(alift, blift), clift);
  if (std::fabs(det) > state.iccerrboundA * (3.000001 * lift * lift)) {
    return det;
  }
  const double permanent = (std::fabs(bdxcdy) + std::fabs(cdxbdy)) * alift +
                           (std::fabs(cdxady) + std::fabs(adxcdy)) * blift +
                           (std::fabs(adxbdy) + std::fabs(bdxady)) * clift;
  if (!(std::fabs(det) <= state.iccerrboundA * permanent)) {
    return det;
  }
  return incircleadapt(pa, pb, pc, pd, det, permanent, state);
}

/// Positive if pe lies inside the sphere through pa, pb, pc, pd, negative if outside, 0 if on it,
/// for pa to pd of positive `orient3d`; for the other orientation the sign is the other. Takes up
/// to 190 KiB of stack.
double insphere(const double* pa, const double* pb, const double* pc, const double* pd,
                const double* pe);

}  // namespace zyl::geometry::internal
