#include "matrix/symmetric_eigen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>

namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::internal::DecomposeSymmetric;
using zyl::geometry::internal::SymmetricEigen;

using Elements = std::array<double, 6>;  // xx, xy, xz, yy, yz, zz

SymmetricEigen Decompose(const Elements& a) {
  return DecomposeSymmetric(a[0], a[1], a[2], a[3], a[4], a[5]);
}

// A v = λ v for each pair, the values decrease, and the vectors form a rotation.
void Check(const Elements& a) {
  const auto [values, vectors] = Decompose(a);
  double scale = 0;
  for (const double element : a) {
    scale = std::max(scale, std::fabs(element));
  }
  for (int i = 0; i < 3; ++i) {
    const Coord3D v = vectors.GetColumn(i);
    const Coord3D image(a[0] * v.x + a[1] * v.y + a[2] * v.z, a[1] * v.x + a[3] * v.y + a[4] * v.z,
                        a[2] * v.x + a[4] * v.y + a[5] * v.z);
    EXPECT_LE(image.Distance(v * values[i]), 1e-14 * scale);
    for (int j = 0; j < 3; ++j) {
      EXPECT_NEAR(v.Dot(vectors.GetColumn(j)), i == j ? 1 : 0, 1e-14);
    }
  }
  EXPECT_TRUE(values[0] >= values[1] && values[1] >= values[2]);
  EXPECT_NEAR(vectors.Det(), 1, 1e-13);
}

TEST(SymmetricEigen, DiagonalisesByARotation) {
  std::mt19937_64 random(20240611);
  std::uniform_real_distribution<double> uniform(-1, 1);
  for (int i = 0; i < 5000; ++i) {
    Elements a;
    for (double& element : a) {
      // Every other matrix of a few whole numbers: zeros and repeated eigenvalues are among them.
      element = i % 2 == 0 ? uniform(random) : std::round(1.4 * uniform(random));
    }
    a[2] *= i % 3 == 0 ? 0 : 1;  // tridiagonal as it is
    a[5] *= i % 7 == 0 ? 1e-9 : 1;
    Check(a);
  }
}

TEST(SymmetricEigen, EndsOnNaNAndInfinity) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  Decompose({kInf, 1, 1, 1, 1, 1});
  EXPECT_TRUE(std::isnan(Decompose({1, NAN, 1, 1, 1, 1}).values[0]));
}

}  // namespace
