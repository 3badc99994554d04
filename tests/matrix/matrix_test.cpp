// Matrices: what both classes promise, and then what each has of its own.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

#include "support/seeded.h"
#include "zyl/geometry/matrix3.h"
#include "zyl/geometry/matrix4.h"

namespace {

using namespace zyl::geometry;

// Whole numbers keep the arithmetic exact, so that the laws of matrices hold to the last bit.
template <typename Matrix>
struct SquareMatrix : Seeded<21> {
  static constexpr int kN = std::is_same_v<Matrix, Matrix3> ? 3 : 4;

  Matrix Random(int limit) {
    Matrix a;
    for (int i = 0; i < kN * kN; ++i) {
      a[i / kN][i % kN] = Whole(-limit, limit);
    }
    return a;
  }
};
using Matrices = testing::Types<Matrix3, Matrix4>;
TYPED_TEST_SUITE(SquareMatrix, Matrices, );

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
    const int r = k / TestFixture::kN, c = k % TestFixture::kN;
    ASSERT_EQ(b[r][c], r == 1 ? a[c][2] : a[r][c]);
  }
}

TYPED_TEST(SquareMatrix, ObeysTheLawsOfTheRing) {
  for (int i = 0; i < 200; ++i) {
    const TypeParam a = this->Random(20), b = this->Random(20), c = this->Random(20);
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
  TypeParam a, ones;
  a[0][0] = 1e16;
  a[0][1] = 1;
  a[0][2] = -1e16;
  ones[0][0] = ones[1][0] = ones[2][0] = 1;
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

constexpr double kValues[9] = {1, 2, 3, 4, 5, 6, 7, 8, 10};

TEST(Matrix3, TakesTheLinearPartOfAMatrix4) {
  Matrix4 a;
  a.Translate(7, 8, 9);
  a[3][0] = 5;
  EXPECT_TRUE(Matrix3(a).IsIdentity());
  a[1][2] = 6;
  EXPECT_EQ(Matrix3(a)[1][2], 6);
}

TEST(Matrix3, MapsSpaceLinearlyAndThePlaneAffinely) {
  const Matrix3 m(kValues);
  EXPECT_EQ(m * Coord3D(1, 10, 100), Coord3D(321, 654, 1087));
  const Coord2D image = m * Coord2D(10, 100);
  EXPECT_TRUE(image.x == 213 && image.y == 546);
}

// The matrix has a last row of its own; each builder still is a product with an elementary matrix.
TEST(Matrix3, RotateAndTranslateActAfterWhatIsThereAndScaleBefore) {
  const double sine = std::sin(0.5), cosine = std::cos(0.5);
  const double rotation[9] = {cosine, -sine, 0, sine, cosine, 0, 0, 0, 1};
  const double translation[9] = {1, 0, 2, 0, 1, 3, 0, 0, 1};
  const double scaling[9] = {4, 0, 0, 0, 4, 0, 0, 0, 1};
  Matrix3 rotated(kValues), translated(kValues), scaled(kValues);
  rotated.Rotate(0.5);
  translated.Translate(Coord2D(2, 3));
  scaled.Scale(4);
  EXPECT_EQ(rotated, Matrix3(rotation) * Matrix3(kValues));
  EXPECT_EQ(translated, Matrix3(translation) * Matrix3(kValues));
  EXPECT_EQ(scaled, Matrix3(kValues) * Matrix3(scaling));
}

void ExpectNear(const Coord3D& a, const Coord3D& b) {
  EXPECT_NEAR(a.Distance(b), 0, 4e-15) << a.x << ' ' << a.y << ' ' << a.z;
}

TEST(Matrix4, IsCreatedTransposedFromItsOwnStorageToo) {
  Matrix4 m;
  m[0][3] = 7;
  m.Create(m.m);
  EXPECT_EQ(m[3][0], 7);
}

TEST(Matrix4, PointsAreTranslatedAndNotDividedByTheLastRow) {
  Matrix4 m;
  m.Translate(Coord3D(10, 20, 30));
  m.SetColumn(3, Coord4D(5, 6, 7, 8));  // the last row
  EXPECT_EQ(m * Coord3D(1, 2, 3), Coord3D(11, 22, 33));
  EXPECT_EQ(m * Point3D(1, 2, 3), Point3D(11, 22, 33));
  m.SetColumn(0, Coord4D(1e16, 1, -1e16, 3));  // from the left, 1e16 + 1 loses the 1
  EXPECT_EQ((m * Coord3D(1, 1, 1)).x, 3);
}

TEST(Matrix4, RotationsAreRightHanded) {
  Matrix4 x, y, z, all;
  x.RotateX(kPi / 2);
  y.RotateY(kPi / 2);
  z.RotateZ(kPi / 2);
  ExpectNear(x * Coord3D(1, 2, 3), Coord3D(1, -3, 2));
  ExpectNear(y * Coord3D(1, 2, 3), Coord3D(3, 2, -1));
  ExpectNear(z * Coord3D(1, 2, 3), Coord3D(-2, 1, 3));
  all.Rotate(kPi / 2, kPi / 2, kPi / 2);
  EXPECT_EQ(all, z * y * x);
}

// A third of a turn about the diagonal exchanges the axes in a ring.
TEST(Matrix4, TurnsAboutAnAxisOfAnyLength) {
  Matrix4 m;
  m.Rotate(2 * kPi / 3, Coord3D(5, 5, 5));
  ExpectNear(m * Coord3D(1, 2, 3), Coord3D(3, 1, 2));
  m.Rotate(1.0, Coord3D());
  EXPECT_TRUE(std::isnan(m[0][0]));
}

TEST(Matrix4, BuildersActAfterWhatIsAlreadyThere) {
  Matrix4 m;
  m.Translate(5, 7, 9);
  m.Scale(2);
  m.Scale(1, 3, 5);
  EXPECT_EQ(m * Coord3D(1, 1, 1), Coord3D(12, 48, 100));
  m.SetColumn(3, Coord4D(1, 0, 0, 1));  // a last row of its own is what Translate adds
  m.Translate(10, 20, 30);
  EXPECT_EQ(m * Coord3D(1, 0, 0), Coord3D(32, 82, 150));
}

TEST(Matrix4, ToStringPrintsToTheStandardOutput) {
  Matrix4 m;
  m[0][1] = 1.0 / 3;
  m[1][3] = -1e-20;
  testing::internal::CaptureStdout();
  m.ToString();
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "1  0.333333  0  0  \n"
            "0  1  0  -1e-20  \n"
            "0  0  1  0  \n"
            "0  0  0  1  \n");
}

}  // namespace
