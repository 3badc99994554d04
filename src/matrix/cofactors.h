#pragma once

// Determinant, adjugate and inverse of Matrix3 and Matrix4 by cofactors, compiled with the
// library's own flags because an exactly zero determinant decides whether there is an inverse.
//
// A cofactor is a minor with a sign. Each minor is evaluated as if alone, from its rows and columns
// in ascending order, but all of a matrix are formed at once: those of a Matrix4 then share their
// 2 × 2 minors, and each vector instruction does the work of two.

#include <cstring>

namespace zyl::geometry::internal {

/// Two numbers that undergo the same arithmetic, in one vector register.
using Two [[gnu::vector_size(2 * sizeof(double))]] = double;

/// Reads and writes where nothing is aligned to more than a double.
inline Two Load(const double* from) {
  Two numbers;
  std::memcpy(&numbers, from, sizeof numbers);
  return numbers;
}
inline void Store(Two numbers, double* to) { std::memcpy(to, &numbers, sizeof numbers); }

/// Two rows of a matrix side by side; indexed like one of them.
template <int N>
class TwoRows {
 public:
  TwoRows(const double (&first)[N], const double (&second)[N]) {
    for (int c = 0; c + 1 < N; c += 2) {
      const Two a = Load(first + c);
      const Two b = Load(second + c);
      columns_[c] = Two{a[0], b[0]};
      columns_[c + 1] = Two{a[1], b[1]};
    }
    if (N % 2 == 1) {
      columns_[N - 1] = Two{first[N - 1], second[N - 1]};
    }
  }
  Two operator[](int c) const { return columns_[c]; }

 private:
  Two columns_[N];
};

/// Determinant of two columns of two rows. A row is an array of doubles or a TwoRows.
template <typename Upper, typename Lower>
auto Det2(const Upper& upper, const Lower& lower, int left, int right) {
  return upper[left] * lower[right] - upper[right] * lower[left];
}

/// Determinant of a row, whose elements are given, above the 2 × 2 minors that belong to them.
template <typename Top, typename Minor>
auto Det3(Top a, Top b, Top c, Minor withoutA, Minor withoutB, Minor withoutC) {
  return a * withoutA - b * withoutB + c * withoutC;
}

/// What three rows, one of them a TwoRows, leave without each of their columns in turn.
struct FourMinors {
  Two without[4];

  template <typename Top, typename Middle, typename Bottom>
  FourMinors(const Top& top, const Middle& middle, const Bottom& bottom) {
    const auto m01 = Det2(middle, bottom, 0, 1);
    const auto m02 = Det2(middle, bottom, 0, 2);
    const auto m03 = Det2(middle, bottom, 0, 3);
    const auto m12 = Det2(middle, bottom, 1, 2);
    const auto m13 = Det2(middle, bottom, 1, 3);
    const auto m23 = Det2(middle, bottom, 2, 3);
    without[0] = Det3(top[1], top[2], top[3], m23, m13, m12);
    without[1] = Det3(top[0], top[2], top[3], m23, m03, m02);
    without[2] = Det3(top[0], top[1], top[3], m13, m03, m01);
    without[3] = Det3(top[0], top[1], top[2], m12, m02, m01);
  }
};

/// The same for two rows, one of which may be a TwoRows.
template <typename Minor>
struct ThreeMinors {
  Minor without[3];

  template <typename Upper, typename Lower>
  ThreeMinors(const Upper& upper, const Lower& lower)
      : without{Det2(upper, lower, 1, 2), Det2(upper, lower, 0, 2), Det2(upper, lower, 0, 1)} {}
};

/// All minors: without row 0 or row 1, and without row 2 or row 3, if there is one.
template <int N>
struct Minors;

template <>
struct Minors<4> {
  FourMinors upper;
  FourMinors lower;

  // Left to itself clang calls this, and a determinant pays for all the minors of an inverse.
  [[gnu::always_inline]] explicit Minors(const double (&m)[4][4])
      : upper(TwoRows<4>(m[1], m[0]), m[2], m[3]), lower(m[0], m[1], TwoRows<4>(m[3], m[2])) {}
};

template <>
struct Minors<3> {
  ThreeMinors<Two> upper;
  ThreeMinors<double> lower;

  explicit Minors(const double (&m)[3][3])
      : upper(TwoRows<3>(m[1], m[0]), m[2]), lower(m[0], m[1]) {}
};

/// Expansion along the first column.
inline double Expand(const double (&m)[3][3], const Minors<3>& minors) {
  const Two upper = minors.upper.without[0];
  return m[0][0] * upper[0] - m[1][0] * upper[1] + m[2][0] * minors.lower.without[0];
}

inline double Expand(const double (&m)[4][4], const Minors<4>& minors) {
  const Two upper = minors.upper.without[0];
  const Two lower = minors.lower.without[0];
  return m[0][0] * upper[0] - m[1][0] * upper[1] + m[2][0] * lower[0] - m[3][0] * lower[1];
}

/// Transposed minors times `factor`, with the signs of cofactors. The elements are written two at
/// a time from the first on, as the caller's copy will read them: a read across two recent writes
/// has to wait for both.
template <typename Matrix>
Matrix Adjugate(const Minors<3>& minors, double factor) {
  const auto& upper = minors.upper.without;
  const auto& lower = minors.lower.without;
  const Two factors{factor, -factor};
  Matrix adjugate;
  double* const out = adjugate.m[0];
  Store(upper[0] * factors, out);
  Store(Two{lower[0], upper[1][0]} * factors, out + 2);
  Store(Two{upper[1][1], lower[1]} * factors, out + 4);
  Store(upper[2] * factors, out + 6);
  out[8] = lower[2] * factor;
  return adjugate;
}

template <typename Matrix>
Matrix Adjugate(const Minors<4>& minors, double factor) {
  const Two even{factor, -factor};
  const Two odd{-factor, factor};
  Matrix adjugate;
  for (int c = 0; c < 4; ++c) {
    const Two factors = c % 2 == 0 ? even : odd;
    Store(minors.upper.without[c] * factors, &adjugate.m[c][0]);
    Store(minors.lower.without[c] * factors, &adjugate.m[c][2]);
  }
  return adjugate;
}

/// Throws Matrix::NonInvertableException if the determinant is exactly 0.
template <typename Matrix, int N>
Matrix Inverse(const double (&m)[N][N]) {
  const Minors<N> minors(m);
  const double determinant = Expand(m, minors);
  if (determinant == 0.0) {
    throw typename Matrix::NonInvertableException();
  }
  return Adjugate<Matrix>(minors, 1.0 / determinant);
}

}  // namespace zyl::geometry::internal
