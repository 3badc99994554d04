#pragma once

/// @file
/// What Matrix3 and Matrix4 have in common: storage, access and arithmetic by element.
///
/// Sums and products stand inline, so that loops over arrays of matrices and points vectorise; they
/// follow the caller's compiler flags, as in coord.h. Determinant and inverse are compiled.

#include <utility>

namespace zyl::geometry::internal {

/// @addtogroup matrices
/// @{

/// N × N doubles held row by row, acting on column vectors; base of the class `Matrix` itself.
///
/// Indices are not checked. Nothing allocates or fails; NaN and infinities spread as IEEE
/// arithmetic has it.
template <typename Matrix, int N>
struct SquareMatrix {
  /// m[r][c] is the element in row r and column c.
  double m[N][N];

  /// Makes this the identity.
  void SetIdentity() { Self() = Matrix(); }

  /// Exact, without tolerance.
  bool IsIdentity() const { return *this == Matrix::Identity; }

  /// Row r, as N consecutive doubles.
  double* operator[](int r) { return m[r]; }
  /// Row r, as N consecutive doubles.
  const double* operator[](int r) const { return m[r]; }

  /// All N² doubles, row by row.
  operator double*() { return m[0]; }
  /// All N² doubles, row by row.
  operator const double*() const { return m[0]; }

  /// Writes the N² doubles to `out`, row by row.
  void AsCoefficients(double* out) const {
    for (int r = 0; r < N; ++r) {
      for (int c = 0; c < N; ++c) {
        out[N * r + c] = m[r][c];
      }
    }
  }

  /// Exchanges rows and columns.
  void Transpose() {
    for (int r = 1; r < N; ++r) {
      for (int c = 0; c < r; ++c) {
        std::swap(m[r][c], m[c][r]);
      }
    }
  }

  /// Exact, without tolerance; NaN equals nothing.
  bool operator==(const Matrix& b) const {
    bool equal = true;
    for (int r = 0; r < N; ++r) {
      for (int c = 0; c < N; ++c) {
        equal &= m[r][c] == b.m[r][c];
      }
    }
    return equal;
  }
  /// Negation of ==, hence true where a NaN is compared.
  bool operator!=(const Matrix& b) const { return !(*this == b); }

  /// Applied to a vector, the product acts as b first and then as this.
  Matrix operator*(const Matrix& b) const {
    // For all a compiler knows the caller's result overlaps an operand; this array does not.
    double product[N * N];
    Multiply(product, b);
    return Matrix(product);
  }
  /// Becomes this·b, not b·this. b may be this.
  Matrix& operator*=(const Matrix& b) { return Self() = *this * b; }

  /// Multiplies every element.
  Matrix operator*(double s) const {
    Matrix scaled = Self();
    return scaled *= s;
  }
  /// Multiplies every element.
  Matrix& operator*=(double s) {
    for (auto& row : m) {
      for (double& element : row) {
        element *= s;
      }
    }
    return Self();
  }

  /// Adds element by element.
  Matrix operator+(const Matrix& b) const {
    Matrix sum = Self();
    return sum += b;
  }
  /// Subtracts element by element.
  Matrix operator-(const Matrix& b) const {
    Matrix difference = Self();
    return difference -= b;
  }
  /// Adds element by element. b may be this.
  Matrix& operator+=(const Matrix& b) {
    for (int r = 0; r < N; ++r) {
      for (int c = 0; c < N; ++c) {
        m[r][c] += b.m[r][c];
      }
    }
    return Self();
  }
  /// Subtracts element by element. b may be this.
  Matrix& operator-=(const Matrix& b) {
    for (int r = 0; r < N; ++r) {
      for (int c = 0; c < N; ++c) {
        m[r][c] -= b.m[r][c];
      }
    }
    return Self();
  }

 protected:
  /// Identity.
  constexpr SquareMatrix() : m{} {
    for (int i = 0; i < N; ++i) {
      m[i][i] = 1.0;
    }
  }

  /// The N² doubles at p, row by row.
  constexpr explicit SquareMatrix(const double* p) : m{} {
    for (int r = 0; r < N; ++r) {
      for (int c = 0; c < N; ++c) {
        m[r][c] = p[N * r + c];
      }
    }
  }

  /// What both classes call TransposeTo.
  void CopyTransposedTo(SquareMatrix& out) const {
    for (int r = 0; r < N; ++r) {
      for (int c = 0; c < N; ++c) {
        out.m[c][r] = m[r][c];
      }
    }
  }

 private:
  Matrix& Self() { return static_cast<Matrix&>(*this); }
  const Matrix& Self() const { return static_cast<const Matrix&>(*this); }

  // Writes this·b, row by row. Each element is summed in the order of the columns of this, which
  // leaves the elements of one row independent of each other and so open to vectorisation.
  void Multiply(double* const out, const Matrix& b) const {
    for (int r = 0; r < N; ++r) {
      for (int c = 0; c < N; ++c) {
        double sum = m[r][0] * b.m[0][c];
        for (int k = 1; k < N; ++k) {
          sum += m[r][k] * b.m[k][c];
        }
        out[N * r + c] = sum;
      }
    }
  }
};

/// @}

}  // namespace zyl::geometry::internal
