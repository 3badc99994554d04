#include "trimake/xfloat.h"

#include <gmpxx.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace {

using zyl::geometry::internal::XFloat;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::uint64_t kBias = (std::uint64_t{1} << 63) - 1;
constexpr std::size_t kBits = 320;

XFloat X(double d) { return XFloat::FromDouble(d); }

XFloat PowerOfTwo(std::uint64_t e) {
  XFloat x = X(1);
  x.exponent += e;
  return x;
}

mpz_class Integer(const XFloat& x) {
  mpz_class value;
  for (const std::uint64_t limb : x.significand) {
    value = (value << 64) + mpz_class(static_cast<unsigned long>(limb >> 32)) * 4294967296_mpz +
            mpz_class(static_cast<unsigned long>(limb & 0xffffffff));
  }
  return value;
}

// ±magnitude × 2^-319 × 2^(exponent − bias), cut to 320 bits: what each operation has to give.
XFloat Truncated(bool negative, mpz_class magnitude, std::uint64_t exponent) {
  XFloat x;
  if (magnitude == 0) {
    return x;
  }
  const std::size_t length = mpz_sizeinbase(magnitude.get_mpz_t(), 2);
  if (length > kBits) {
    magnitude >>= length - kBits;
  } else {
    magnitude <<= kBits - length;
  }
  x.sign = negative;
  x.exponent = exponent + length - kBits;
  for (std::size_t i = 0; i < XFloat::kLimbs; ++i) {
    const mpz_class high = magnitude >> (kBits - 64 * i - 32);
    const mpz_class low = magnitude >> (kBits - 64 * i - 64);
    x.significand[i] = ((high.get_ui() & 0xffffffffULL) << 32) | (low.get_ui() & 0xffffffffULL);
  }
  return x;
}

XFloat ExpectedSum(const XFloat& a, const XFloat& b) {
  if (a.IsZero() || b.IsZero()) {
    return a.IsZero() ? b : a;
  }
  const XFloat& high = a.exponent >= b.exponent ? a : b;
  const XFloat& low = a.exponent >= b.exponent ? b : a;
  mpz_class sum = Integer(low) >> (high.exponent - low.exponent);
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

void ExpectSame(const XFloat& actual, const XFloat& expected) {
  EXPECT_EQ(actual.sign, expected.sign);
  EXPECT_EQ(actual.exponent, expected.exponent);
  EXPECT_EQ(actual.significand, expected.significand);
}

// Limbs of random bits, of zeros and of ones, so that carries and borrows run far.
XFloat RandomNumber(std::mt19937_64& random) {
  XFloat x = PowerOfTwo(random() % 700);
  x.sign = random() % 2;
  for (std::uint64_t& limb : x.significand) {
    const std::uint64_t kind = random() % 4;
    limb = kind == 0 ? 0 : kind == 1 ? ~std::uint64_t{0} : random();
  }
  x.significand[0] |= std::uint64_t{1} << 63;
  return x;
}

TEST(XFloat, OperationsTruncateLikeUnlimitedIntegersCutTo320Bits) {
  const std::uint64_t seed = 66;
  std::mt19937_64 random(seed);
  for (int i = 0; i < 100000 && !HasFailure(); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << seed << ", round " << i);
    const XFloat a = RandomNumber(random);
    XFloat b = RandomNumber(random);
    if (i % 4 == 0) {  // close by, so that differences cancel
      b.exponent = a.exponent + random() % 3 - 1;
    }
    if (i % 8 == 0) {  // and further down
      b.significand = a.significand;
      b.significand[static_cast<std::size_t>(i) / 8 % XFloat::kLimbs] ^= 1;
      b.significand[0] |= std::uint64_t{1} << 63;
    }
    XFloat minusB = b;
    minusB.sign ^= 1;
    ExpectSame(XFloat::Add(a, b), ExpectedSum(a, b));
    ExpectSame(XFloat::Subtract(a, b), ExpectedSum(a, minusB));
    ExpectSame(XFloat::Multiply(a, b), ExpectedProduct(a, b));
    const XFloat difference = ExpectedSum(a, minusB);
    EXPECT_EQ(XFloat::Compare(a, b), difference.IsZero() ? 0 : difference.sign ? -1 : 1);
  }
}

// The shifted-out bits are lost: 2^k − 1 keeps all its ones up to k = 319, one less of them at
// 320, where the 1 falls off the end, and beyond.
TEST(XFloat, ExponentGapsAroundTheLengthOfTheSignificand) {
  for (const std::uint64_t gap : {318u, 319u, 320u, 321u, 400u}) {
    SCOPED_TRACE(gap);
    const XFloat big = PowerOfTwo(gap);
    const XFloat sum = XFloat::Add(big, X(1));
    const XFloat difference = XFloat::Subtract(X(1), big);
    EXPECT_EQ(XFloat::Compare(sum, big), gap < 320 ? 1 : 0);
    EXPECT_EQ(difference.exponent - kBias, gap < 320 ? gap - 1 : gap);
    EXPECT_EQ(difference.sign, 1);
    EXPECT_EQ(Integer(difference) == (1_mpz << 320) - 2, gap == 319);
  }
  ExpectSame(XFloat::Add(X(1), X(std::ldexp(1, -400))), X(1));
}

TEST(XFloat, EveryNormalDoubleComesBackUnchanged) {
  const std::uint64_t seed = 67;
  std::mt19937_64 random(seed);
  for (int i = 0; i < 100000; ++i) {
    const double d = std::ldexp(static_cast<double>(random() >> 11 | 1) * (i % 2 ? 1 : -1),
                                static_cast<int>(random() % 1960) - 1020);
    ASSERT_EQ(X(d).ToDouble(), d) << "seed " << seed;
  }
  for (const double d : {0.0, 1.0, -1.0, 2.2250738585072014e-308, 1.7976931348623157e308}) {
    EXPECT_EQ(X(d).ToDouble(), d);
  }
}

TEST(XFloat, SubnormalsAndBothZerosAreZero) {
  for (const double d : {0.0, -0.0, 5e-324, -2.225073858507201e-308}) {
    EXPECT_TRUE(X(d).IsZero());
    ExpectSame(X(d), XFloat());
    EXPECT_FALSE(std::signbit(X(d).ToDouble()));
  }
  ExpectSame(XFloat::Subtract(X(0), X(0)), XFloat());
  ExpectSame(XFloat::Subtract(X(7), X(7)), XFloat());
  ExpectSame(XFloat::Multiply(X(-7), X(0)), XFloat());
  ExpectSame(XFloat::Subtract(X(0), X(7)), X(-7));
}

TEST(XFloat, RoundsToTheNearestDoubleTiesToEven) {
  const double ulp = std::ldexp(1, -52);
  const auto rounded = [](double a, double b, double c) {
    return XFloat::Add(XFloat::Add(X(a), X(b)), X(c)).ToDouble();
  };
  EXPECT_EQ(rounded(1, ulp / 2, 0), 1);
  EXPECT_EQ(rounded(1 + ulp, ulp / 2, 0), 1 + 2 * ulp);
  EXPECT_EQ(rounded(1, ulp / 2, std::ldexp(1, -300)), 1 + ulp);
  EXPECT_EQ(rounded(1 + ulp, ulp / 2, -std::ldexp(1, -300)), 1 + ulp);
  EXPECT_EQ(rounded(-1 - ulp, -ulp / 2, 0), -1 - 2 * ulp);
  EXPECT_EQ(rounded(2 - ulp, ulp / 2, 0), 2);  // all ones: the carry changes the exponent
}

TEST(XFloat, WhatNoDoubleHoldsBecomesZeroOrPositiveInfinity) {
  const double greatest = std::numeric_limits<double>::max();
  const XFloat halfUlp = X(std::ldexp(1, 970));
  EXPECT_EQ(XFloat::Add(X(greatest), halfUlp).ToDouble(), kInfinity);
  EXPECT_EQ(XFloat::Subtract(X(-greatest), halfUlp).ToDouble(), kInfinity);
  EXPECT_EQ(XFloat::Multiply(X(-greatest), X(2)).ToDouble(), kInfinity);
  const double tiny = std::ldexp(1, -1022);
  EXPECT_EQ(XFloat::Multiply(X(tiny), X(0.5)).ToDouble(), 0);
  EXPECT_EQ(XFloat::Subtract(X(-tiny), X(-std::ldexp(1.0, -1021))).ToDouble(), tiny);
  // Infinity and NaN are read as numbers of the next binade, and behave as such.
  EXPECT_EQ(X(-kInfinity).ToDouble(), kInfinity);
  EXPECT_EQ(X(kNaN).ToDouble(), kInfinity);
  EXPECT_EQ(XFloat::Compare(X(-kInfinity), X(-greatest)), -1);
  EXPECT_EQ(XFloat::Subtract(X(kInfinity), X(greatest)).ToDouble(), std::ldexp(1, 971));
}

TEST(XFloat, ComparesByValue) {
  const double ascending[] = {-kInfinity, -3, -2, -0.5, 0, 1e-300, 0.5, 1, 1 + 1e-15, 3};
  for (const double& a : ascending) {
    for (const double& b : ascending) {
      EXPECT_EQ(XFloat::Compare(X(a), X(b)), (a > b) - (a < b)) << a << ", " << b;
    }
  }
}

}  // namespace
