#pragma once

// Software floating point with a significand of 320 bits, for the few decisions of the
// triangulator whose double value is too close to zero to be trusted. It truncates and has no
// infinities; the exact predicates are a separate mechanism and do not use it.

#include <array>
#include <cstddef>
#include <cstdint>

namespace zyl::geometry::internal {

/// Number of magnitude 1.f × 2^e with 319 bits of f; nothing is allocated or shared.
///
/// Sums, differences and products of doubles are exact as long as 320 bits hold them; beyond that
/// the low bits are cut off, never rounded. Exponents wrap modulo 2^64, which doubles reach only
/// by more than fifty successive squarings.
struct XFloat {
  static constexpr std::size_t kLimbs = 5;

  /// Bit 0 set means negative; the other bits are 0. Zero has sign 0.
  std::uint16_t sign = 0;
  /// e + 2^63 − 1; 0 for zero.
  std::uint64_t exponent = 0;
  /// Most significant limb first, the leading 1 in the top bit of limb 0; all 0 for zero.
  std::array<std::uint64_t, kLimbs> significand{};

  /// Exact value of d; zero for a subnormal. An infinity or a NaN is taken for the number that its
  /// bits would be if the greatest exponent meant nothing special: at least 2^1024.
  static XFloat FromDouble(double d);

  /// Nearest double, ties to even. +0.0 for zero and for magnitudes below 2^-1022; +infinity,
  /// for negative values too, if the result is beyond the range of doubles.
  double ToDouble() const;

  /// a + b. The number with the smaller exponent is first cut to the last bit of the other.
  static XFloat Add(const XFloat& a, const XFloat& b);

  /// a − b, as the sum of a and −b.
  static XFloat Subtract(const XFloat& a, const XFloat& b);

  /// a × b. Of the 640 bits of the product the upper 320 are kept; if the first of them is 0, the
  /// last bit of the result is 0.
  static XFloat Multiply(const XFloat& a, const XFloat& b);

  /// −1 if a < b, 0 if a = b, 1 if a > b.
  static int Compare(const XFloat& a, const XFloat& b);

  bool IsZero() const { return significand[0] >> 63 == 0; }
};

}  // namespace zyl::geometry::internal
