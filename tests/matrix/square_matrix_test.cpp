#include "zyl/geometry/square_matrix.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>
#include <type_traits>

#include "zyl/geometry/matrix3.h"
#include "zyl/geometry/matrix4.h"

namespace {

using namespace zyl::geometry;

// What both classes promise. Whole numbers keep the arithmetic exact, so that the laws of matrices
// hold to the last bit.
template <typename Matrix>
class SquareMatrix : public testing::Test {
 protected:
  static constexpr int kN = std::is_same_v<Matrix, Matrix3> ? 3 : 4;

  Matrix Random(int limit) {
    std::uniform_int_distribution<int> entry(-limit, limit);
    Matrix a;
    for (int i = 0; i < kN * kN; ++i) {
      a[i / kN][i % kN] = entry(random_);
    }
    return a;
  }

 private:
  static constexpr unsigned kSeed = 21;
  testing::ScopedTrace trace_{__FILE__, __LINE__, kSeed};
  std::mt19937 random_{kSeed};
};

struct Names {
  template <typename Matrix>
  static const char* GetName(int) {
    return std::is_same_v<Matrix, Matrix3> ? "Matrix3" : "Matrix4";
  }
};

using Matrices = testing::Types<Matrix3, Matrix4>;
TYPED_TEST_SUITE(SquareMatrix, Matrices, Names);

template <typename Matrix>
Matrix Transposed(Matrix a) {
  a.Transpose();
  return a;
}

TYPED_TEST(SquareMatrix, IsABlockOfDoublesRowByRowAndTheIdentityByDefault) {
  constexpr int N = TestFixture::kN;
  TypeParam a;
  EXPECT_TRUE(a.IsIdentity());
  a[1][2] = std::numeric_limits<double>::denorm_min();
  EXPECT_FALSE(a.IsIdentity());
  EXPECT_EQ(static_cast<const double*>(a)[N + 2], a[1][2]);
  double copy[N * N] = {};
  a.AsCoefficients(copy);
  EXPECT_EQ(TypeParam(copy), a);
  a[1][2] = std::numeric_limits<double>::quiet_NaN();
  EXPECT_NE(a, a);
  a.SetIdentity();
  EXPECT_EQ(a, TypeParam::Identity);
}

TYPED_TEST(SquareMatrix, SetColumnWritesARowAndGetColumnReadsAColumn) {
  const TypeParam a = this->Random(20);
  TypeParam b = a;
  b.SetColumn(1, a.GetColumn(2));
  for (int k = 0; k < TestFixture::kN * TestFixture::kN; ++k) {
    const int r = k / TestFixture::kN;
    const int c = k % TestFixture::kN;
    ASSERT_EQ(b[r][c], r == 1 ? a[c][2] : a[r][c]);
  }
}

TYPED_TEST(SquareMatrix, ObeysTheLawsOfTheRing) {
  for (int i = 0; i < 200; ++i) {
    const TypeParam a = this->Random(20);
    const TypeParam b = this->Random(20);
    const TypeParam c = this->Random(20);
    ASSERT_EQ((a * b) * c, a * (b * c));
    ASSERT_EQ(a * (b + c) - a * c, a * b);
    ASSERT_EQ(Transposed(a * b), Transposed(b) * Transposed(a));
    TypeParam d = a;  // in-place forms may read the matrix they write
    ASSERT_EQ(d *= d, a * a);
    ASSERT_EQ(d += d, a * a * 2.0);
    ASSERT_EQ(d -= d, a * 0.0);
    TypeParam source = a;
    source.TransposeTo(d);
    ASSERT_EQ(d, Transposed(a));
    ASSERT_EQ(a * a.Adjoint(), TypeParam::Identity * a.Det());
  }
}

// 1e16 + 1 is rounded to 1e16: only a sum from the left loses the 1.
TYPED_TEST(SquareMatrix, SumsProductsFromTheLeft) {
  TypeParam a;
  const double terms[3] = {1e16, 1, -1e16};
  TypeParam ones;
  for (int k = 0; k < 3; ++k) {
    a[0][k] = terms[k];
    ones[k][0] = 1;
  }
  EXPECT_EQ((a * ones)[0][0], 0);
}

// Minors as textbooks write them, rows and columns in ascending order.
double PlainMinor(const Matrix3& m, const int* r, const int* c) {
  return m[r[0]][c[0]] * m[r[1]][c[1]] - m[r[0]][c[1]] * m[r[1]][c[0]];
}

double PlainMinor(const Matrix4& m, const int* r, const int* c) {
  const auto minor2 = [&](int left, int right) {
    return m[r[1]][c[left]] * m[r[2]][c[right]] - m[r[1]][c[right]] * m[r[2]][c[left]];
  };
  return m[r[0]][c[0]] * minor2(1, 2) - m[r[0]][c[1]] * minor2(0, 2) + m[r[0]][c[2]] * minor2(0, 1);
}

template <typename Matrix>
double PlainCofactor(const Matrix& m, int r, int c) {
  constexpr int kWithout[4][3] = {{1, 2, 3}, {0, 2, 3}, {0, 1, 3}, {0, 1, 2}};
  const double minor = PlainMinor(m, kWithout[r], kWithout[c]);
  return (r + c) % 2 == 0 ? minor : -minor;
}

bool SameBits(double a, double b) { return std::memcmp(&a, &b, sizeof(a)) == 0; }

// Fractions, and often zeros of either sign, so that rounding and the signs of zeros show.
TYPED_TEST(SquareMatrix, InverseIsBitForBitThatOfThePlainFormula) {
  constexpr int N = TestFixture::kN;
  for (int i = 0; i < 2000; ++i) {
    const TypeParam m = this->Random(i % 2 == 0 ? 2 : 1000) * (i % 3 == 0 ? -1.0 : 1 / 3.0);
    double det = m[0][0] * PlainCofactor(m, 0, 0);
    for (int r = 1; r < N; ++r) {
      det += m[r][0] * PlainCofactor(m, r, 0);
    }
    ASSERT_EQ(m.Det(), det);
    const TypeParam inverse = det == 0 ? m.Adjoint() : m.Inverse();
    const double factor = det == 0 ? 1 : 1 / det;
    for (int k = 0; k < N * N; ++k) {
      const double cofactor = PlainCofactor(m, k / N, k % N);
      ASSERT_PRED2(SameBits, m.Cofactor(k / N, k % N), cofactor);
      ASSERT_PRED2(SameBits, inverse[k % N][k / N], cofactor * factor);
    }
  }
}

TYPED_TEST(SquareMatrix, ASingularMatrixThrowsAndStaysAsItIs) {
  TypeParam a = this->Random(20);
  std::memcpy(a[1], a[0], sizeof(a.m[0]));
  const TypeParam before = a;
  EXPECT_THROW(a.Inverse(), typename TypeParam::NonInvertableException);
  EXPECT_THROW(a.Invert(), typename TypeParam::NonInvertableException);
  EXPECT_EQ(a, before);
  a[1][0] += 1;
  const TypeParam inverse = a.Inverse();
  a.Invert();
  EXPECT_EQ(a, inverse);
}

}  // namespace
