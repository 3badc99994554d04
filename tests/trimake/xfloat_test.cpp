#include "trimake/xfloat.h"

#include <gmpxx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/generate.h"

namespace {

using zyl::geometry::internal::XFloat;

constexpr std::uint64_t kBias = (std::uint64_t{1} << 63) - 1;
constexpr std::size_t kBits = 320;
constexpr std::uint64_t kTop = std::uint64_t{1} << 63;

XFloat X(double d) { return XFloat::FromDouble(d); }

mpz_class Integer(const XFloat& x) {
  mpz_class value;
  mpz_import(value.get_mpz_t(), XFloat::kLimbs, 1, 8, 0, 0, &x.significand[0]);
  return value;
}

// ±magnitude × 2^-319 × 2^(exponent − bias), cut to 320 bits: what each operation has to give.
XFloat Truncated(bool negative, mpz_class magnitude, std::uint64_t exponent) {
  XFloat x;
  if (magnitude == 0) {
    return x;
  }
  const std::size_t length = mpz_sizeinbase(magnitude.get_mpz_t(), 2);
  magnitude <<= 2 * kBits - length;
  magnitude >>= kBits;
  x.sign = negative;
  x.exponent = exponent + length - kBits;
  mpz_export(&x.significand[0], nullptr, 1, 8, 0, 0, magnitude.get_mpz_t());
  return x;
}

XFloat ExpectedSum(const XFloat& a, const XFloat& b) {
  if (a.IsZero() || b.IsZero()) {
    return a.IsZero() ? b : a;
  }
  const XFloat& high = a.exponent >= b.exponent ? a : b;
  const XFloat& low = a.exponent >= b.exponent ? b : a;
  const std::uint64_t shift = std::min<std::uint64_t>(high.exponent - low.exponent, kBits);
  mpz_class sum = Integer(low) >> static_cast<unsigned>(shift);
  if (high.sign != low.sign) {
    sum = -sum;
  }
  sum += Integer(high);
  return Truncated((high.sign != 0) == (sum > 0), abs(sum), high.exponent);
}

XFloat ExpectedProduct(const XFloat& a, const XFloat& b) {
  const mpz_class high = Integer(a) * Integer(b) >> kBits;
  return Truncated(a.sign != b.sign, high, a.exponent + b.exponent - kBias + 1);
}

bool AreSame(const XFloat& a, const XFloat& b) {
  return a.sign == b.sign && a.exponent == b.exponent && a.significand == b.significand;
}

// Limbs of random bits, of zeros and of ones, so that carries and borrows run far.
XFloat RandomNumber(std::mt19937_64& random) {
  XFloat x = X(1);
  x.exponent += random() % 700;
  x.sign = random() % 2;
  for (std::uint64_t& limb : x.significand) {
    const std::uint64_t kind = random() % 4;
    limb = kind == 0 ? 0 : kind == 1 ? ~std::uint64_t{0} : random();
  }
  x.significand[0] |= kTop;
  return random() % 50 == 0 ? XFloat() : x;
}

// A second number: any, or one close by, so that differences cancel, down to a single bit, or one
// so far away that its bits are shifted out but for the last ones.
XFloat Companion(const XFloat& a, int round, std::mt19937_64& random) {
  XFloat b = RandomNumber(random);
  if (a.IsZero() || b.IsZero()) {
    return b;
  }
  if (round % 8 == 0) {
    b.significand = a.significand;
    b.significand[Below(random, XFloat::kLimbs)] ^= 1;
    b.significand[0] |= kTop;
  }
  if (round % 2 == 0) {
    b.exponent = a.exponent + random() % 3 - 1 + (round % 4 == 0 ? 0 : kBits);
  }
  return b;
}

TEST(XFloat, OperationsTruncateLikeUnlimitedIntegersCutTo320Bits) {
  const std::uint64_t seed = 66;
  std::mt19937_64 random(seed);
  for (int i = 0; i < 100000; ++i) {
    const XFloat a = RandomNumber(random);
    const XFloat b = Companion(a, i, random);
    XFloat minusB = b;
    minusB.sign ^= !b.IsZero();
    const XFloat difference = ExpectedSum(a, minusB);
    ASSERT_TRUE(AreSame(XFloat::Add(a, b), ExpectedSum(a, b)) &&
                AreSame(XFloat::Subtract(a, b), difference) &&
                AreSame(XFloat::Multiply(a, b), ExpectedProduct(a, b)) &&
                XFloat::Compare(a, b) == (difference.IsZero() ? 0
                                          : difference.sign   ? -1
                                                              : 1))
        << "seed " << seed << ", round " << i;
  }
}

TEST(XFloat, EveryNormalDoubleComesBackUnchanged) {
  const std::uint64_t seed = 67;
  std::mt19937_64 random(seed);
  for (int i = 0; i < 100000; ++i) {
    const double d = std::ldexp(static_cast<double>(random() >> 11 | 1) * (i % 2 ? 1 : -1),
                                static_cast<int>(random() % 1960) - 1020);
    ASSERT_EQ(X(d).ToDouble(), d) << "seed " << seed;
  }
  for (const double d : {1.0, -1.0, 2.2250738585072014e-308, 1.7976931348623157e308}) {
    EXPECT_EQ(X(d).ToDouble(), d);
  }
  for (const double d : {0.0, -0.0, 5e-324, -2.225073858507201e-308}) {  // subnormals are zero
    EXPECT_TRUE(AreSame(X(d), XFloat()) && X(d).IsZero() && !std::signbit(X(d).ToDouble())) << d;
  }
}

TEST(XFloat, RoundsToTheNearestDoubleTiesToEven) {
  const double ulp = std::ldexp(1, -52), tiny = std::ldexp(1, -300);
  const double cases[][4] = {{1, ulp / 2, 0, 1},
                             {1 + ulp, ulp / 2, 0, 1 + 2 * ulp},
                             {1, ulp / 2, tiny, 1 + ulp},
                             {1 + ulp, ulp / 2, -tiny, 1 + ulp},
                             {-1 - ulp, -ulp / 2, 0, -1 - 2 * ulp},
                             {2 - ulp, ulp / 2, 0, 2}};  // all ones: the carry changes the exponent
  for (const auto& [a, b, c, sum] : cases) {
    EXPECT_EQ(XFloat::Add(XFloat::Add(X(a), X(b)), X(c)).ToDouble(), sum);
  }
}

TEST(XFloat, WhatNoDoubleHoldsBecomesZeroOrPositiveInfinity) {
  const double greatest = std::numeric_limits<double>::max(), tiny = std::ldexp(1, -1022);
  const XFloat halfUlp = X(std::ldexp(1, 970));
  EXPECT_EQ(XFloat::Add(X(greatest), halfUlp).ToDouble(), kInfinity);
  EXPECT_EQ(XFloat::Subtract(X(-greatest), halfUlp).ToDouble(), kInfinity);
  EXPECT_EQ(XFloat::Multiply(X(-greatest), X(2)).ToDouble(), kInfinity);
  EXPECT_EQ(XFloat::Multiply(X(tiny), X(0.5)).ToDouble(), 0);
  EXPECT_EQ(XFloat::Subtract(X(-tiny), X(-2 * tiny)).ToDouble(), tiny);
  // Infinity and NaN are read as numbers of the next binade, and behave as such.
  EXPECT_EQ(X(-kInfinity).ToDouble(), kInfinity);
  EXPECT_EQ(X(kNaN).ToDouble(), kInfinity);
  EXPECT_EQ(XFloat::Compare(X(-kInfinity), X(-greatest)), -1);
  EXPECT_EQ(XFloat::Subtract(X(kInfinity), X(greatest)).ToDouble(), std::ldexp(1, 971));
}

}  // namespace
