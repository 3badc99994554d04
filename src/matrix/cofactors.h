#pragma once

// Determinant and inverse of Matrix3 and Matrix4 by cofactors, compiled with the library's own
// flags because an exactly zero determinant decides whether there is an inverse.

namespace zyl::geometry::internal {

inline double Det2(double a, double b, double c, double d) { return a * d - b * c; }

/// Determinant of the rows (a, b, c), (d, e, f), (g, h, i).
inline double Det3(double a, double b, double c, double d, double e, double f, double g, double h,
                   double i) {
  return a * Det2(e, f, h, i) - b * Det2(d, f, g, i) + c * Det2(d, e, g, h);
}

/// The i-th index, in ascending order, of those that are left without `skipped`.
inline int Remaining(int i, int skipped) { return i < skipped ? i : i + 1; }

inline double Minor(const double (&m)[3][3], int r, int c) {
  const double* const top = m[Remaining(0, r)];
  const double* const bottom = m[Remaining(1, r)];
  const int left = Remaining(0, c);
  const int right = Remaining(1, c);
  return Det2(top[left], top[right], bottom[left], bottom[right]);
}

inline double Minor(const double (&m)[4][4], int r, int c) {
  const double* const top = m[Remaining(0, r)];
  const double* const middle = m[Remaining(1, r)];
  const double* const bottom = m[Remaining(2, r)];
  const int left = Remaining(0, c);
  const int centre = Remaining(1, c);
  const int right = Remaining(2, c);
  return Det3(top[left], top[centre], top[right], middle[left], middle[centre], middle[right],
              bottom[left], bottom[centre], bottom[right]);
}

template <int N>
double Cofactor(const double (&m)[N][N], int r, int c) {
  const double minor = Minor(m, r, c);
  return (r + c) % 2 == 0 ? minor : -minor;
}

/// Expansion along the first column, `cofactors` being those of its elements.
template <int N>
double Expand(const double (&m)[N][N], const double (&cofactors)[N]) {
  double sum = m[0][0] * cofactors[0];
  for (int r = 1; r < N; ++r) {
    sum += m[r][0] * cofactors[r];
  }
  return sum;
}

template <int N>
double Determinant(const double (&m)[N][N]) {
  double cofactors[N];
  for (int r = 0; r < N; ++r) {
    cofactors[r] = Cofactor(m, r, 0);
  }
  return Expand(m, cofactors);
}

template <int N>
void WriteAdjugate(const double (&m)[N][N], double (&out)[N][N]) {
  for (int r = 0; r < N; ++r) {
    for (int c = 0; c < N; ++c) {
      out[c][r] = Cofactor(m, r, c);
    }
  }
}

/// Throws Matrix::NonInvertableException if the determinant is exactly 0.
template <typename Matrix>
Matrix InverseOf(const Matrix& a) {
  Matrix inverse;
  WriteAdjugate(a.m, inverse.m);
  const double determinant = Expand(a.m, inverse.m[0]);
  if (determinant == 0.0) {
    throw typename Matrix::NonInvertableException();
  }
  return inverse *= 1.0 / determinant;
}

}  // namespace zyl::geometry::internal
