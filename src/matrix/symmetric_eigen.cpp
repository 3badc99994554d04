#include "matrix/symmetric_eigen.h"

#include <cmath>
#include <utility>

namespace zyl::geometry::internal {
namespace {

constexpr int kMostIterations = 32;

// A symmetric tridiagonal matrix, and the orthogonal one whose columns become the eigenvectors as
// the other becomes diagonal.
struct Tridiagonal {
  double diagonal[3];
  double beside[2];  // beside[i] joins i and i + 1
  Matrix3 vectors;
  bool isReflection;
};

// Householder's reduction (A. S. Householder, "Unitary Triangularization of a Nonsymmetric Matrix",
// 1958). For three rows it is one reflection, of the plane of y and z, that brings (xy, xz) onto
// the first of the two.
Tridiagonal Reduce(double xx, double xy, double xz, double yy, double yz, double zz) {
  if (xz == 0.0) {
    return {{xx, yy, zz}, {xy, yz}, Matrix3(), false};
  }
  const double length = std::sqrt(xy * xy + xz * xz);
  const double u = xy / length;
  const double v = xz / length;
  const double q = 2.0 * u * yz + v * (zz - yy);
  const double reflection[9] = {1, 0, 0, 0, u, v, 0, v, -u};
  return {{xx, yy + v * q, zz - v * q}, {length, yz - u * q}, Matrix3(reflection), true};
}

// First place from l on where the matrix falls apart: the element beside the diagonal is too small
// to change the sum of its neighbours.
int EndOfBlock(const Tridiagonal& t, int l) {
  int m = l;
  while (m < 2) {
    const double neighbours = std::fabs(t.diagonal[m]) + std::fabs(t.diagonal[m + 1]);
    if (std::fabs(t.beside[m]) + neighbours == neighbours) {
      break;
    }
    ++m;
  }
  return m;
}

// Turns columns i and i + 1.
void Turn(Matrix3& vectors, int i, double sine, double cosine) {
  for (int k = 0; k < 3; ++k) {
    const double first = vectors[k][i];
    const double second = vectors[k][i + 1];
    vectors[k][i + 1] = sine * first + cosine * second;
    vectors[k][i] = cosine * first - sine * second;
  }
}

// One implicit QL step on the block from l to m (A. Dubrulle, R. S. Martin, J. H. Wilkinson, "The
// Implicit QL Algorithm", 1968): a shift near the eigenvalue at l, and plane rotations from m down
// to l that chase the element it puts out of place.
void StepQL(Tridiagonal& t, int l, int m) {
  double* const d = t.diagonal;
  double* const e = t.beside;
  const double half = (d[l + 1] - d[l]) / (2.0 * e[l]);
  const double root = std::sqrt(half * half + 1.0);
  double g = d[m] - d[l] + e[l] / (half + (half < 0.0 ? -root : root));
  double sine = 1.0;
  double cosine = 1.0;
  double shift = 0.0;
  for (int i = m - 1; i >= l; --i) {
    const double f = sine * e[i];
    const double b = cosine * e[i];
    double beside = 0.0;
    if (f != 0.0 && std::fabs(f) >= std::fabs(g)) {
      const double ratio = g / f;
      const double r = std::sqrt(ratio * ratio + 1.0);
      beside = f * r;
      sine = 1.0 / r;
      cosine = ratio * sine;
    } else {
      const double ratio = g != 0.0 ? f / g : 0.0;  // nothing is out of place where both are 0
      const double r = std::sqrt(ratio * ratio + 1.0);
      beside = g * r;
      cosine = 1.0 / r;
      sine = ratio * cosine;
    }
    if (i + 1 < m) {
      e[i + 1] = beside;
    }
    g = d[i + 1] - shift;
    const double r = (d[i] - g) * sine + 2.0 * b * cosine;
    shift = sine * r;
    d[i + 1] = g + shift;
    g = cosine * r - b;
    Turn(t.vectors, i, sine, cosine);
  }
  d[l] -= shift;
  e[l] = g;
  if (m < 2) {
    e[m] = 0.0;
  }
}

void Diagonalise(Tridiagonal& t) {
  for (int l = 0; l < 3; ++l) {
    for (int i = 0; i < kMostIterations; ++i) {
      const int m = EndOfBlock(t, l);
      if (m == l) {
        break;
      }
      StepQL(t, l, m);
    }
  }
}

void SwapColumns(Matrix3& m, int i, int j) {
  for (int r = 0; r < 3; ++r) {
    std::swap(m[r][i], m[r][j]);
  }
}

// By selection: a later value goes before an earlier one only if it is greater.
void SortDecreasing(Tridiagonal& t) {
  for (int i = 0; i < 2; ++i) {
    int greatest = i;
    for (int j = i + 1; j < 3; ++j) {
      if (t.diagonal[j] > t.diagonal[greatest]) {
        greatest = j;
      }
    }
    if (greatest != i) {
      std::swap(t.diagonal[i], t.diagonal[greatest]);
      SwapColumns(t.vectors, i, greatest);
      t.isReflection = !t.isReflection;
    }
  }
}

void MakeRotation(Tridiagonal& t) {
  if (t.isReflection) {
    for (int r = 0; r < 3; ++r) {
      t.vectors[r][0] = -t.vectors[r][0];
    }
  }
}

}  // namespace

SymmetricEigen DecomposeSymmetric(double xx, double xy, double xz, double yy, double yz,
                                  double zz) {
  Tridiagonal t = Reduce(xx, xy, xz, yy, yz, zz);
  Diagonalise(t);
  SortDecreasing(t);
  MakeRotation(t);
  return {{t.diagonal[0], t.diagonal[1], t.diagonal[2]}, t.vectors};
}

}  // namespace zyl::geometry::internal
