#include "trimake/xfloat.h"

#include <cmath>
#include <cstddef>
#include <cstring>

namespace zyl::geometry::internal {
namespace {

using Limb = std::uint64_t;
using Significand = std::array<Limb, XFloat::kLimbs>;

constexpr std::size_t kLimbs = XFloat::kLimbs;
constexpr std::size_t kBits = 64 * kLimbs;
constexpr Limb kTopBit = Limb{1} << 63;
constexpr std::uint64_t kBias = kTopBit - 1;

// Of an IEEE double.
constexpr int kFractionBits = 52;
constexpr std::uint64_t kDoubleBias = 1023;

struct WideProduct {
  Limb high;
  Limb low;
};

// 64 × 64 → 128 bits by halves. A wider type of the compiler would be no faster here.
WideProduct MultiplyLimbs(Limb a, Limb b) {
  constexpr Limb kHalf = 0xffffffff;
  const Limb low = (a & kHalf) * (b & kHalf);
  const Limb cross1 = (a >> 32) * (b & kHalf) + (low >> 32);
  const Limb cross2 = (a & kHalf) * (b >> 32) + (cross1 & kHalf);
  const Limb high = (a >> 32) * (b >> 32) + (cross1 >> 32) + (cross2 >> 32);
  return {high, (cross2 << 32) | (low & kHalf)};
}

// Adds `from` and the carry to `to`; returns the carry out.
Limb AddLimb(Limb& to, Limb from, Limb carry) {
  const Limb sum = to + carry;
  const Limb total = sum + from;
  const Limb out = (sum < carry) | (total < from);
  to = total;
  return out;
}

Limb SubtractLimb(Limb& to, Limb from, Limb borrow) {
  const Limb rest = to - borrow;
  const Limb out = (to < borrow) | (rest < from);
  to = rest - from;
  return out;
}

// bits < 320; what leaves the field at the bottom is lost.
Significand ShiftedRight(const Significand& s, std::size_t bits) {
  const std::size_t limbs = bits / 64;
  const std::size_t rest = bits % 64;
  Significand shifted{};
  for (std::size_t i = limbs; i < kLimbs; ++i) {
    shifted[i] = s[i - limbs] >> rest;
    if (rest > 0 && i > limbs) {
      shifted[i] |= s[i - limbs - 1] << (64 - rest);
    }
  }
  return shifted;
}

// bits < 320; what leaves the field at the top is 0 in every use.
Significand ShiftedLeft(const Significand& s, std::size_t bits) {
  const std::size_t limbs = bits / 64;
  const std::size_t rest = bits % 64;
  Significand shifted{};
  for (std::size_t i = limbs; i < kLimbs; ++i) {
    shifted[i - limbs] = s[i] << rest;
    if (rest > 0 && i + 1 < kLimbs) {
      shifted[i - limbs] |= s[i + 1] >> (64 - rest);
    }
  }
  return shifted;
}

std::size_t LeadingZeros(const Significand& s) {
  std::size_t limb = 0;
  while (limb < kLimbs && s[limb] == 0) {
    ++limb;
  }
  std::size_t zeros = 64 * limb;
  if (limb < kLimbs) {
    Limb value = s[limb];
    for (std::size_t step = 32; step > 0; step /= 2) {
      if (value >> (64 - step) == 0) {
        value <<= step;
        zeros += step;
      }
    }
  }
  return zeros;
}

XFloat Negated(const XFloat& x) {
  XFloat negated = x;
  negated.sign = x.IsZero() ? 0 : x.sign ^ 1;
  return negated;
}

int CompareMagnitudes(const XFloat& a, const XFloat& b) {
  if (a.exponent != b.exponent) {
    return a.exponent < b.exponent ? -1 : 1;
  }
  if (a.significand != b.significand) {
    return a.significand < b.significand ? -1 : 1;
  }
  return 0;
}

// |a| + |b| with the sign of a, for a.exponent ≥ b.exponent.
XFloat AddMagnitudes(const XFloat& a, const XFloat& b) {
  const std::uint64_t gap = a.exponent - b.exponent;
  if (gap >= kBits) {
    return a;
  }
  const Significand addend = ShiftedRight(b.significand, static_cast<std::size_t>(gap));
  XFloat sum = a;
  Limb carry = 0;
  for (std::size_t i = kLimbs; i-- > 0;) {
    carry = AddLimb(sum.significand[i], addend[i], carry);
  }
  if (carry != 0) {
    sum.significand = ShiftedRight(sum.significand, 1);
    sum.significand[0] |= kTopBit;
    ++sum.exponent;
  }
  return sum;
}

// |a| − |b| with the sign of a, for |a| ≥ |b|.
XFloat SubtractMagnitudes(const XFloat& a, const XFloat& b) {
  const std::uint64_t gap = a.exponent - b.exponent;
  if (gap >= kBits) {
    return a;
  }
  const Significand subtrahend = ShiftedRight(b.significand, static_cast<std::size_t>(gap));
  XFloat difference = a;
  Limb borrow = 0;
  for (std::size_t i = kLimbs; i-- > 0;) {
    borrow = SubtractLimb(difference.significand[i], subtrahend[i], borrow);
  }
  const std::size_t zeros = LeadingZeros(difference.significand);
  if (zeros == kBits) {
    return XFloat();
  }
  difference.significand = ShiftedLeft(difference.significand, zeros);
  difference.exponent -= zeros;
  return difference;
}

}  // namespace

XFloat XFloat::FromDouble(double d) {
  std::uint64_t bits;
  std::memcpy(&bits, &d, sizeof bits);
  const std::uint64_t exponent = (bits >> kFractionBits) & 0x7ff;
  XFloat x;
  if (exponent == 0) {
    return x;
  }
  x.sign = static_cast<std::uint16_t>(bits >> 63);
  x.exponent = kBias + exponent - kDoubleBias;
  x.significand[0] = kTopBit | (bits << (63 - kFractionBits));
  return x;
}

double XFloat::ToDouble() const {
  if (IsZero() || exponent < kBias - (kDoubleBias - 1)) {
    return 0.0;
  }
  if (exponent > kBias + kDoubleBias) {
    return HUGE_VAL;
  }
  constexpr int kDropped = 63 - kFractionBits;
  constexpr Limb kHalf = Limb{1} << (kDropped - 1);
  const Limb fraction = (significand[0] & ~kTopBit) >> kDropped;
  Limb below = significand[0] & (kHalf - 1);
  for (std::size_t i = 1; i < kLimbs; ++i) {
    below |= significand[i];
  }
  const bool up = (significand[0] & kHalf) != 0 && (below != 0 || (fraction & 1) != 0);

  // Rounding up a fraction of all ones carries into the exponent, as it should.
  std::uint64_t bits = ((exponent - kBias + kDoubleBias) << kFractionBits) + fraction + up;
  if (bits >> kFractionBits == 0x7ff) {
    return HUGE_VAL;
  }
  bits |= static_cast<std::uint64_t>(sign) << 63;
  double d;
  std::memcpy(&d, &bits, sizeof d);
  return d;
}

XFloat XFloat::Add(const XFloat& a, const XFloat& b) {
  if (a.IsZero()) {
    return b;
  }
  if (b.IsZero()) {
    return a;
  }
  if (a.sign == b.sign) {
    return a.exponent >= b.exponent ? AddMagnitudes(a, b) : AddMagnitudes(b, a);
  }
  return CompareMagnitudes(a, b) >= 0 ? SubtractMagnitudes(a, b) : SubtractMagnitudes(b, a);
}

XFloat XFloat::Subtract(const XFloat& a, const XFloat& b) { return Add(a, Negated(b)); }

XFloat XFloat::Multiply(const XFloat& a, const XFloat& b) {
  if (a.IsZero() || b.IsZero()) {
    return XFloat();
  }
  // Schoolbook rows from the last limb of a upwards. A number that was a double has one limb that
  // is not 0, a difference of two mostly one or two.
  std::array<Limb, 2 * kLimbs> product{};
  for (std::size_t i = kLimbs; i-- > 0;) {
    if (a.significand[i] == 0) {
      continue;
    }
    Limb carry = 0;
    for (std::size_t j = kLimbs; j-- > 0;) {
      WideProduct term = MultiplyLimbs(a.significand[i], b.significand[j]);
      term.high += AddLimb(term.low, carry, 0);
      term.high += AddLimb(product[i + j + 1], term.low, 0);
      carry = term.high;
    }
    product[i] = carry;
  }

  XFloat result;
  result.sign = a.sign ^ b.sign;
  result.exponent = a.exponent + b.exponent - kBias;
  for (std::size_t i = 0; i < kLimbs; ++i) {
    result.significand[i] = product[i];
  }
  if (result.IsZero()) {
    result.significand = ShiftedLeft(result.significand, 1);
  } else {
    ++result.exponent;
  }
  return result;
}

int XFloat::Compare(const XFloat& a, const XFloat& b) {
  if (a.IsZero()) {
    return b.IsZero() ? 0 : b.sign != 0 ? 1 : -1;
  }
  if (b.IsZero() || a.sign != b.sign) {
    return a.sign != 0 ? -1 : 1;
  }
  const int order = CompareMagnitudes(a, b);
  return a.sign != 0 ? -order : order;
}

}  // namespace zyl::geometry::internal
