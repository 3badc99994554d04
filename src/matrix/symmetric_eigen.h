#pragma once

// Eigenvalues and eigenvectors of a symmetric 3 × 3 matrix.

#include "zyl/geometry/matrix3.h"

namespace zyl::geometry::internal {

/// Eigenvalues in decreasing order, and unit eigenvectors, the columns of a rotation.
struct SymmetricEigen {
  double values[3];
  Matrix3 vectors;
};

/// Decomposes the matrix with diagonal xx, yy, zz. Householder's reduction to tridiagonal form and
/// QL iterations with implicit shifts, at most 32 for each eigenvalue: should one not converge by
/// then, as with NaN or infinite elements, it is returned as it stands.
SymmetricEigen DecomposeSymmetric(double xx, double xy, double xz, double yy, double yz, double zz);

}  // namespace zyl::geometry::internal
