#include "zyl/geometry/square_matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <random>
#include <type_traits>

#include "support/exact.h"
#include "zyl/geometry/matrix3.h"
#include "zyl/geometry/matrix4.h"

namespace {

using zyl::geometry::Matrix3;
using zyl::geometry::Matrix4;

template <typename Matrix>
constexpr std::size_t kOrder = std::is_same_v<Matrix, Matrix3> ? 3 : 4;

// What both classes promise. Whole numbers keep the arithmetic exact, so that the laws of matrices
// hold to the last bit.
template <typename Matrix>
class SquareMatrix : public testing::Test {
 protected:
  static constexpr int kN = static_cast<int>(kOrder<Matrix>);
  static constexpr unsigned kSeed = 21;

  Matrix Random(int limit = 20) {
    std::uniform_int_distribution<int> entry(-limit, limit);
    Matrix a;
    for (auto& row : a.m) {
      for (double& element : row) {
        element = entry(random_);
      }
    }
    return a;
  }

  static Matrix Transposed(Matrix a) {
    a.Transpose();
    return a;
  }

  static double ExactDeterminant(const Matrix& a) {
    std::array<exact::Row<kOrder<Matrix>>, kOrder<Matrix>> rows;
    for (std::size_t r = 0; r < kOrder<Matrix>; ++r) {
      for (std::size_t c = 0; c < kOrder<Matrix>; ++c) {
        rows[r][c] = a.m[r][c];
      }
    }
    return exact::Determinant(rows).get_d();
  }

  // The determinant is linear in each row, so that the row e_c picks out one cofactor.
  static double ExactCofactor(Matrix a, int r, int c) {
    for (double& element : a.m[r]) {
      element = 0;
    }
    a.m[r][c] = 1;
    return ExactDeterminant(a);
  }

 private:
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

TYPED_TEST(SquareMatrix, IsAPlainBlockOfDoublesHeldRowByRow) {
  constexpr int N = TestFixture::kN;
  static_assert(std::is_trivially_copyable_v<TypeParam> && std::is_standard_layout_v<TypeParam>);
  static_assert(sizeof(TypeParam) == N * N * sizeof(double));
  double values[N * N];
  for (int i = 0; i < N * N; ++i) {
    values[i] = i;
  }
  const TypeParam a(values);
  EXPECT_EQ(a[1][2], N + 2);
  EXPECT_EQ(static_cast<const double*>(a)[N + 2], N + 2);
  double copy[N * N] = {};
  a.AsCoefficients(copy);
  EXPECT_EQ(TypeParam(copy), a);
}

TYPED_TEST(SquareMatrix, DefaultIsTheIdentityExactly) {
  TypeParam a;
  EXPECT_EQ(a, TypeParam::Identity);
  EXPECT_TRUE(a.IsIdentity());
  a[1][0] = std::numeric_limits<double>::denorm_min();
  EXPECT_FALSE(a.IsIdentity());
  EXPECT_NE(a, TypeParam::Identity);
  a[1][0] = std::nan("");
  EXPECT_NE(a, a);
  a.SetIdentity();
  EXPECT_TRUE(a.IsIdentity());
}

TYPED_TEST(SquareMatrix, ObeysTheLawsOfTheRing) {
  SCOPED_TRACE(TestFixture::kSeed);
  for (int i = 0; i < 200; ++i) {
    const TypeParam a = this->Random();
    const TypeParam b = this->Random();
    const TypeParam c = this->Random();
    ASSERT_EQ((a * b) * c, a * (b * c));
    ASSERT_EQ(a * (b + c), a * b + a * c);
    ASSERT_EQ((a - b) * c, a * c - b * c);
    ASSERT_EQ(a * TypeParam::Identity, a);
    ASSERT_EQ(this->Transposed(a * b), this->Transposed(b) * this->Transposed(a));
    ASSERT_EQ(a + a, a * 2.0);
  }
}

TYPED_TEST(SquareMatrix, InPlaceFormsMayReadTheMatrixTheyWrite) {
  const TypeParam a = this->Random();
  TypeParam b = a;
  EXPECT_EQ(&(b *= b), &b);
  EXPECT_EQ(b, a * a);
  b = a;
  EXPECT_EQ(b += b, a * 2.0);
  EXPECT_EQ(b -= b, a * 0.0);
  TypeParam transpose;
  b = a;
  b.TransposeTo(transpose);
  EXPECT_EQ(transpose, this->Transposed(a));
}

// 1e16 + 1 is rounded to 1e16: only a sum from the left loses the 1.
TYPED_TEST(SquareMatrix, SumsProductsFromTheLeft) {
  TypeParam row = TypeParam::Identity * 0.0;
  TypeParam column = row;
  const double terms[3] = {1e16, 1, -1e16};
  for (int k = 0; k < 3; ++k) {
    row[0][k] = terms[k];
    column[k][0] = 1;
  }
  EXPECT_EQ((row * column)[0][0], 0);
  EXPECT_EQ((this->Transposed(column) * this->Transposed(row))[0][0], 0);
}

TYPED_TEST(SquareMatrix, DeterminantsAndCofactorsAreExactOnWholeNumbers) {
  SCOPED_TRACE(TestFixture::kSeed);
  for (int i = 0; i < 100; ++i) {
    const TypeParam a = this->Random();
    const TypeParam b = this->Random();
    ASSERT_EQ(a.Det(), this->ExactDeterminant(a));
    ASSERT_EQ((a * b).Det(), a.Det() * b.Det());
    const TypeParam adjugate = a.Adjoint();
    ASSERT_EQ(a * adjugate, TypeParam::Identity * a.Det());
    for (int r = 0; r < TestFixture::kN; ++r) {
      for (int c = 0; c < TestFixture::kN; ++c) {
        ASSERT_EQ(a.Cofactor(r, c), this->ExactCofactor(a, r, c));
        ASSERT_EQ(adjugate[c][r], a.Cofactor(r, c));
      }
    }
  }
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
  SCOPED_TRACE(TestFixture::kSeed);
  for (int i = 0; i < 2000; ++i) {
    TypeParam m = this->Random(i % 2 == 0 ? 2 : 1000);
    m *= i % 3 == 0 ? -1.0 : 1 / 3.0;
    double det = m[0][0] * PlainCofactor(m, 0, 0);
    for (int r = 1; r < TestFixture::kN; ++r) {
      det += m[r][0] * PlainCofactor(m, r, 0);
    }
    ASSERT_EQ(m.Det(), det);
    if (det == 0) {
      continue;
    }
    const TypeParam inverse = m.Inverse();
    for (int r = 0; r < TestFixture::kN; ++r) {
      for (int c = 0; c < TestFixture::kN; ++c) {
        const double cofactor = PlainCofactor(m, r, c);
        ASSERT_PRED2(SameBits, m.Cofactor(r, c), cofactor);
        ASSERT_PRED2(SameBits, inverse[c][r], cofactor * (1 / det));
      }
    }
  }
}

// Adding a multiple of one row to another keeps the determinant 1 and the inverse whole.
TYPED_TEST(SquareMatrix, InverseOfAUnimodularMatrixIsExact) {
  constexpr int N = TestFixture::kN;
  TypeParam a;
  for (int i = 0; i < 3 * N; ++i) {
    TypeParam shear;
    shear[i % N][(i + 1 + i / N % (N - 1)) % N] = i % 3 == 2 ? 2 : -1;
    a *= shear;
  }
  EXPECT_FALSE(a.IsIdentity());
  EXPECT_TRUE((a * a.Inverse()).IsIdentity());
  TypeParam b = a;
  b.Invert();
  EXPECT_TRUE((b * a).IsIdentity());
}

TYPED_TEST(SquareMatrix, ASingularMatrixThrowsAndStaysAsItIs) {
  TypeParam a = this->Random();
  for (int c = 0; c < TestFixture::kN; ++c) {
    a[1][c] = a[0][c];
  }
  const TypeParam before = a;
  EXPECT_THROW(a.Inverse(), typename TypeParam::NonInvertableException);
  EXPECT_THROW(a.Invert(), typename TypeParam::NonInvertableException);
  EXPECT_EQ(a, before);
  a *= 0.0;
  EXPECT_THROW(a.Invert(), typename TypeParam::NonInvertableException);
}

// Singular but for rounding: no tolerance stands in the way.
TYPED_TEST(SquareMatrix, ANearlySingularMatrixIsInvertedWithoutATest) {
  TypeParam a;
  a[0][0] = 1e-300;
  EXPECT_EQ(a.Inverse()[0][0], 1 / 1e-300);
  a[0][0] = std::nan("");
  EXPECT_TRUE(std::isnan(a.Inverse()[1][1]));
}

}  // namespace
