#pragma once

// Exact signs of the geometric determinants, by integer arithmetic of unlimited length (GMP).
//
// The oracle for everything that decides a side. It shares no code and no formula rearrangement
// with the library: the coordinates are scaled by one power of two to integers, which leaves the
// sign alone because each determinant is homogeneous, and the determinant is expanded as defined.
// Coordinates must be finite.

#include <gmpxx.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace exact {

inline int SignOf(double value) { return (value > 0) - (value < 0); }

template <std::size_t N>
using Row = std::array<mpz_class, N>;

template <std::size_t N>
mpz_class Determinant(const std::array<Row<N>, N>& rows) {
  if constexpr (N == 1) {
    return rows[0][0];
  } else {
    mpz_class sum = 0;
    for (std::size_t column = 0; column < N; ++column) {
      std::array<Row<N - 1>, N - 1> minor;
      for (std::size_t i = 1; i < N; ++i) {
        for (std::size_t j = 0, to = 0; j < N; ++j) {
          if (j != column) {
            minor[i - 1][to++] = rows[i][j];
          }
        }
      }
      const mpz_class term = rows[0][column] * Determinant<N - 1>(minor);
      sum += column % 2 == 0 ? term : mpz_class(-term);
    }
    return sum;
  }
}

/// The points' coordinates, all multiplied by the same power of two that makes them integers.
template <std::size_t Dim, std::size_t Count>
std::array<Row<Dim>, Count> ScaledToIntegers(const std::array<const double*, Count>& points) {
  constexpr int kDigits = std::numeric_limits<double>::digits;
  int lowest = std::numeric_limits<int>::max();
  for (const double* p : points) {
    for (std::size_t i = 0; i < Dim; ++i) {
      int exponent = 0;
      if (std::frexp(p[i], &exponent) != 0) {
        lowest = std::min(lowest, exponent);
      }
    }
  }
  std::array<Row<Dim>, Count> scaled;
  for (std::size_t k = 0; k < Count; ++k) {
    for (std::size_t i = 0; i < Dim; ++i) {
      int exponent = 0;
      const double significand = std::frexp(points[k][i], &exponent);
      if (significand != 0) {
        scaled[k][i] = mpz_class(std::ldexp(significand, kDigits));
        scaled[k][i] <<= static_cast<mp_bitcnt_t>(exponent - lowest);
      }
    }
  }
  return scaled;
}

/// Sign of the determinant whose rows are the points relative to the last one. If that is a point
/// more than the dimension needs, they are lifted onto the paraboloid first: each row ends with its
/// sum of squares.
template <std::size_t Dim, std::size_t Count>
int Sign(const std::array<const double*, Count>& points) {
  constexpr std::size_t kRows = Count - 1;
  const std::array<Row<Dim>, Count> p = ScaledToIntegers<Dim>(points);
  std::array<Row<kRows>, kRows> rows;
  for (std::size_t k = 0; k < kRows; ++k) {
    for (std::size_t i = 0; i < Dim; ++i) {
      rows[k][i] = p[k][i] - p[kRows][i];
      if constexpr (kRows > Dim) {
        rows[k][Dim] += rows[k][i] * rows[k][i];
      }
    }
  }
  return sgn(Determinant<kRows>(rows));
}

/// 1 if a, b, c turn counterclockwise, -1 if clockwise, 0 if they are collinear.
inline int Orient2D(const double* a, const double* b, const double* c) {
  return Sign<2, 3>({a, b, c});
}

/// 1 if d lies below the plane through a, b, c (counterclockwise seen from above), -1 above, 0 on.
inline int Orient3D(const double* a, const double* b, const double* c, const double* d) {
  return Sign<3, 4>({a, b, c, d});
}

/// 1 if d lies inside the circle through the counterclockwise a, b, c, -1 outside, 0 on it.
inline int InCircle(const double* a, const double* b, const double* c, const double* d) {
  return Sign<2, 4>({a, b, c, d});
}

/// 1 if e lies inside the sphere through a, b, c, d of positive Orient3D, -1 outside, 0 on it.
inline int InSphere(const double* a, const double* b, const double* c, const double* d,
                    const double* e) {
  return Sign<3, 5>({a, b, c, d, e});
}

}  // namespace exact
