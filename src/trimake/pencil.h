#pragma once

// The circles through the two ends of an edge, and which of them vertices lie on.
//
// From a vertex v on one side of the edge L→R the two ends are seen under an angle, the same from
// everywhere on one circle of the pencil, and larger from inside that circle. The cotangent of the
// angle, (v − L)·(v − R) / (v − L)×(v − R), so orders the vertices along the pencil, and in-circle
// comes down to one comparison of two fractions:
//
//     incircle(L, R, c, d) = dot(c) cross(d) − dot(d) cross(c)
//
// A merge compares each vertex with several others over one base; what it shows of itself is
// computed once. A sign beyond the rounding errors counts, any other is settled by the predicates,
// so that the answers are theirs.

#include <cmath>

#include "trimake/records.h"

namespace zyl::geometry::internal {

/// What a vertex shows of itself over the base L→R.
struct TApex {
  const TVertex* vertex;
  double dot;
  double cross;  ///< twice the area of the triangle L, R, vertex
  double size;   ///< |dot| + |cross|, no less than |v − L| |v − R|
};

/// Pencil of circles through L and R. Reads the vertices for as long as it lives.
class TPencil {
 public:
  TPencil(const TVertex* L, const TVertex* R)
      : L_(L), R_(R), xL_(L->xy[0]), yL_(L->xy[1]), xR_(R->xy[0]), yR_(R->xy[1]) {}

  TApex At(const TVertex* v) const {
    const double ux = v->xy[0] - xL_, uy = v->xy[1] - yL_;
    const double wx = v->xy[0] - xR_, wy = v->xy[1] - yR_;
    const double dot = ux * wx + uy * wy;
    const double cross = ux * wy - uy * wx;
    return {v, dot, cross, std::fabs(dot) + std::fabs(cross)};
  }

  /// Whether a is on or to the left of L→R, and neither of the two.
  bool Faces(const TApex& a) const {
    return std::fabs(a.cross) >= kCrossError * a.size ? a.cross > 0 : SettleFaces(a.vertex);
  }

  /// Whether d is inside the circle through L, R and c. No such circle holds L or R.
  bool Holds(const TApex& c, const TApex& d) const {
    const double inside = c.dot * d.cross - d.dot * c.cross;
    return std::fabs(inside) >= kCircleError * (c.size * d.size) ? inside > 0
                                                                 : SettleHolds(c.vertex, d.vertex);
  }

 private:
  // With e = 2^-53 and s = |v − L| |v − R|: dot and cross, of four differences that are each off
  // by a factor of 1 ± e, are off by no more than 4es, and s² = dot² + cross². The difference of
  // their products is therefore off by no more than 20e times both s, and s is below the computed
  // size but for some 10es. Both constants leave room for the terms of second order.
  // For L and R themselves all terms are 0, and both tests say no without being in doubt.
  static constexpr double kCrossError = 0x1p-50;
  static constexpr double kCircleError = 3 * 0x1p-50;

  bool SettleFaces(const TVertex* v) const;
  bool SettleHolds(const TVertex* c, const TVertex* d) const;

  const TVertex* L_;
  const TVertex* R_;
  double xL_, yL_, xR_, yR_;
};

}  // namespace zyl::geometry::internal
