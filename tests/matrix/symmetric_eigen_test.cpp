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

// Eigenvalues in decreasing order by Jacobi's rotations (C. G. J. Jacobi, 1846), in long double:
// each turns one element beside the diagonal to zero, until all are.
std::array<long double, 3> JacobiValues(const Elements& a) {
  long double m[3][3] = {{a[0], a[1], a[2]}, {a[1], a[3], a[4]}, {a[2], a[4], a[5]}};
  for (int sweep = 0; sweep < 60; ++sweep) {
    for (int p = 0; p < 2; ++p) {
      for (int q = p + 1; q < 3; ++q) {
        const long double angle = std::atan2(2 * m[p][q], m[q][q] - m[p][p]) / 2;
        const long double c = std::cos(angle), s = std::sin(angle);
        const auto turn = [c, s](long double& x, long double& y) {
          const long double turned = c * x - s * y;
          y = s * x + c * y;
          x = turned;
        };
        for (int k = 0; k < 3; ++k) {
          turn(m[k][p], m[k][q]);
        }
        for (int k = 0; k < 3; ++k) {
          turn(m[p][k], m[q][k]);
        }
      }
    }
  }
  std::array<long double, 3> values = {m[0][0], m[1][1], m[2][2]};
  std::sort(values.rbegin(), values.rend());
  return values;
}

// A v = λ v for each pair, the values are Jacobi's, and the vectors form a rotation.
void Check(const Elements& a) {
  const SymmetricEigen eigen = Decompose(a);
  const std::array<long double, 3> values = JacobiValues(a);
  double scale = 0;
  for (const double element : a) {
    scale = std::max(scale, std::fabs(element));
  }
  for (int i = 0; i < 3; ++i) {
    const Coord3D v = eigen.vectors.GetColumn(i);
    const Coord3D image(a[0] * v.x + a[1] * v.y + a[2] * v.z, a[1] * v.x + a[3] * v.y + a[4] * v.z,
                        a[2] * v.x + a[4] * v.y + a[5] * v.z);
    EXPECT_LE(image.Distance(v * eigen.values[i]), 1e-14 * scale);
    EXPECT_NEAR(v.Magnitude(), 1, 1e-14);
    EXPECT_NEAR(eigen.values[i], static_cast<double>(values[static_cast<std::size_t>(i)]),
                1e-14 * scale);
  }
  EXPECT_NEAR(eigen.vectors.Det(), 1, 1e-13);
}

TEST(SymmetricEigen, AgreesWithJacobisRotations) {
  std::mt19937_64 random(20240611);
  std::uniform_real_distribution<double> uniform(-1, 1);
  for (int i = 0; i < 5000; ++i) {
    Elements a;
    for (double& element : a) {
      // Every other matrix of a few whole numbers: zeros and repeated eigenvalues are among them.
      element = i % 2 == 0 ? uniform(random) : std::round(1.4 * uniform(random));
    }
    if (i % 3 == 0) {
      a[2] = 0;  // tridiagonal as it is
    }
    if (i % 7 == 0) {
      a[5] = 1e-9 * a[5];
    }
    Check(a);
  }
}

TEST(SymmetricEigen, EndsOnNaNAndInfinity) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  Decompose({kInf, 1, 1, 1, 1, 1});
  EXPECT_TRUE(std::isnan(Decompose({1, NAN, 1, 1, 1, 1}).values[0]));
}

}  // namespace
