#pragma once

// Differences of points with their rounding errors: what stages B to D of the predicates share.

#include <cmath>

#include "predicates/expansion.h"

namespace zyl::geometry::internal {

/// A vector whose coordinates are about to be multiplied.
struct Vec2 {
  Factor x, y;
};

struct Vec3 : Vec2 {
  Factor z;
};

/// p - q, rounded.
inline Vec2 Difference2(const double* p, const double* q, double splitter) {
  return {Factor(p[0] - q[0], splitter), Factor(p[1] - q[1], splitter)};
}

inline Vec3 Difference3(const double* p, const double* q, double splitter) {
  return {Difference2(p, q, splitter), Factor(p[2] - q[2], splitter)};
}

/// The part of p - q that rounding took from `head`.
inline Vec2 Tail2(const double* p, const double* q, const Vec2& head, double splitter) {
  return {Factor(two_diff_tail(p[0], q[0], head.x.value), splitter),
          Factor(two_diff_tail(p[1], q[1], head.y.value), splitter)};
}

inline Vec3 Tail3(const double* p, const double* q, const Vec3& head, double splitter) {
  return {Tail2(p, q, head, splitter), Factor(two_diff_tail(p[2], q[2], head.z.value), splitter)};
}

inline bool IsZero(const Vec2& v) { return v.x.value == 0.0 && v.y.value == 0.0; }
inline bool IsZero(const Vec3& v) {
  return IsZero(static_cast<const Vec2&>(v)) && v.z.value == 0.0;
}

/// Dot product, rounded.
inline double Dot(const Vec3& p, const Vec3& q) {
  return p.x.value * q.x.value + p.y.value * q.y.value + p.z.value * q.z.value;
}

/// x and y part of the cross product: b.x c.y - c.x b.y, exactly.
inline Expansion<4> Cross(const Vec2& b, const Vec2& c) {
  return two_two_diff(two_product(b.x, c.y), two_product(c.x, b.y));
}

/// The same rounded.
inline double RoundedCross(const Vec2& b, const Vec2& c) {
  return b.x.value * c.y.value - b.y.value * c.x.value;
}

/// What the tails bt and ct add to the cross product of b and c, up to first order and rounded.
inline double CrossCorrection(const Vec2& b, const Vec2& bt, const Vec2& c, const Vec2& ct) {
  return (b.x.value * ct.y.value + c.y.value * bt.x.value) -
         (b.y.value * ct.x.value + c.x.value * bt.y.value);
}

/// What the tails add to the cross product of b and c, exactly.
inline Expansion<12> CrossOfTails(const Vec2& b, const Vec2& bt, const Vec2& c, const Vec2& ct) {
  return (Cross(bt, c) + Cross(b, ct)) + Cross(bt, ct);
}

/// Whether a determinant of the given degree in differences of the points, whose permanent is at
/// most `permanent`, is exact as stage A has it: the rule on grids, and a short cut.
///
/// It is if all coordinates are multiples of a unit u, a power of two, and the permanent is below
/// 2^50 u^degree. Then the result of every step is a multiple of a power of u, and none of those
/// that matter, not being multiplied by 0 later on, is too long for a double. Adding 1.5 * 2^53 u
/// and taking it off again leaves no other coordinates as they were.
template <int Dimension, typename... Point>
bool IsExact(int degree, double permanent, const Point*... points) {
  if (!std::isfinite(permanent)) {
    return false;
  }
  int exponent = 0;
  std::frexp(permanent, &exponent);
  const double shift = std::ldexp(1.5, 53 + (exponent - 50) / degree + 1);
  const auto isMultiple = [shift](const double* p) {
    bool multiple = true;
    for (int i = 0; i < Dimension; ++i) {
      multiple = multiple && (p[i] + shift) - shift == p[i];
    }
    return multiple;
  };
  return permanent == 0.0 || (isMultiple(points) && ...);
}

}  // namespace zyl::geometry::internal
