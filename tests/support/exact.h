#pragma once

// Exact signs of the geometric determinants, by rational arithmetic (GMP).
//
// The oracle for everything that decides a side. It shares no code and no formula rearrangement
// with the library: every determinant is expanded as defined. Coordinates must be finite.

#include <gmpxx.h>

#include <array>
#include <cstddef>

namespace exact {

inline int SignOf(double value) { return (value > 0) - (value < 0); }

template <std::size_t N>
using Row = std::array<mpq_class, N>;

template <std::size_t N>
mpq_class Determinant(const std::array<Row<N>, N>& rows) {
  if constexpr (N == 1) {
    return rows[0][0];
  } else {
    mpq_class sum = 0;
    for (std::size_t column = 0; column < N; ++column) {
      std::array<Row<N - 1>, N - 1> minor;
      for (std::size_t i = 1; i < N; ++i) {
        for (std::size_t j = 0, to = 0; j < N; ++j) {
          if (j != column) {
            minor[i - 1][to++] = rows[i][j];
          }
        }
      }
      const mpq_class term = rows[0][column] * Determinant<N - 1>(minor);
      sum += column % 2 == 0 ? term : mpq_class(-term);
    }
    return sum;
  }
}

/// The determinant whose rows are the points relative to the last one. If that is a point more than
/// the dimension needs, they are lifted onto the paraboloid first: each row ends with its sum of
/// squares.
template <std::size_t Dim, std::size_t Count>
mpq_class Relative(const std::array<const double*, Count>& points) {
  constexpr std::size_t kRows = Count - 1;
  std::array<Row<kRows>, kRows> rows;
  for (std::size_t k = 0; k < kRows; ++k) {
    for (std::size_t i = 0; i < Dim; ++i) {
      rows[k][i] = mpq_class(points[k][i]) - points[kRows][i];
      if constexpr (kRows > Dim) {
        rows[k][Dim] += rows[k][i] * rows[k][i];
      }
    }
  }
  return Determinant<kRows>(rows);
}

/// 1 if a, b, c turn counterclockwise, -1 if clockwise, 0 if they are collinear.
inline int Orient2D(const double* a, const double* b, const double* c) {
  return sgn(Relative<2, 3>({a, b, c}));
}

/// 1 if d lies below the plane through a, b, c (counterclockwise seen from above), -1 above, 0 on.
inline int Orient3D(const double* a, const double* b, const double* c, const double* d) {
  return sgn(Relative<3, 4>({a, b, c, d}));
}

/// 1 if d lies inside the circle through the counterclockwise a, b, c, -1 outside, 0 on it.
inline int InCircle(const double* a, const double* b, const double* c, const double* d) {
  return sgn(Relative<2, 4>({a, b, c, d}));
}

/// 1 if e lies inside the sphere through a, b, c, d of positive Orient3D, -1 outside, 0 on it.
inline int InSphere(const double* a, const double* b, const double* c, const double* d,
                    const double* e) {
  return sgn(Relative<3, 5>({a, b, c, d, e}));
}

}  // namespace exact
