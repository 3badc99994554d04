#include "trimake/local_frame.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

namespace zyl::geometry::internal {
namespace {

using Vector = std::array<double, 3>;

constexpr TMatrix kIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

// Smallest determinant of a fit that counts, and smallest pivot that is divided by. Absolute, not
// scaled by the data: both decide which frame a polygon gets, and so where its points fall.
constexpr double kSmallestDeterminant = 0.0001;
constexpr double kSmallestPivot = 1e-30;

// Mean of the points, and the sums of the products of their offsets from it.
struct Spread {
  Vector mean;
  double sums[3][3];
};

Vector OffsetFrom(const Vector& mean, const TPoint& p) {
  return {p.x - mean[0], p.y - mean[1], p.z - mean[2]};
}

Spread SpreadOf(int count, const TPoint* points) {
  Spread spread = {};
  for (int i = 0; i < count; ++i) {
    spread.mean[0] += points[i].x;
    spread.mean[1] += points[i].y;
    spread.mean[2] += points[i].z;
  }
  for (double& coordinate : spread.mean) {
    coordinate /= count;
  }
  for (int i = 0; i < count; ++i) {
    const Vector d = OffsetFrom(spread.mean, points[i]);
    for (std::size_t u = 0; u < 3; ++u) {
      for (std::size_t v = 0; v < 3; ++v) {
        spread.sums[u][v] += d[u] * d[v];
      }
    }
  }
  return spread;
}

// Plane through the mean on which coordinate w is a·du + b·dv of the other two coordinates.
struct Fit {
  Vector normal;  // not of unit length
  double score;   // 1 plus the sum of the distances; infinite or NaN if there is no such plane
};

Fit FitCoordinate(std::size_t w, const Spread& spread, int count, const TPoint* points) {
  const std::size_t u = w == 0 ? 1 : 0;
  const std::size_t v = w == 2 ? 1 : 2;
  const double(&s)[3][3] = spread.sums;

  const double determinant = s[u][u] * s[v][v] - s[u][v] * s[u][v];
  if (!(std::fabs(determinant) > kSmallestDeterminant)) {
    return {{}, std::numeric_limits<double>::infinity()};
  }
  const double a = (s[u][w] * s[v][v] - s[v][w] * s[u][v]) / determinant;
  const double b = (s[v][w] * s[u][u] - s[u][w] * s[u][v]) / determinant;

  const double length = std::sqrt(a * a + b * b + 1);
  double distances = 0;
  for (int i = 0; i < count; ++i) {
    const Vector d = OffsetFrom(spread.mean, points[i]);
    const double residual = a * d[u] + b * d[v] - d[w];
    distances += std::fabs(residual) / length;
  }
  Fit fit = {{}, 1.0 + distances};
  fit.normal[u] = a;
  fit.normal[v] = b;
  fit.normal[w] = -1;
  return fit;
}

std::array<Vector, 3> AxesFromNormal(const Vector& n) {
  if (n[0] == 1 || n[0] == -1) {
    return {{{0, 0, n[0]}, {0, 1, 0}, {n[0], 0, 0}}};
  }
  const double s = std::sqrt(n[1] * n[1] + n[2] * n[2]);
  return {{{s, -n[0] * n[1] / s, -n[0] * n[2] / s}, {0, n[2] / s, -n[1] / s}, n}};
}

}  // namespace

void tri_Frame_From_Normal(double nx, double ny, double nz, TFrameForm form, TMatrix& out) {
  const std::array<Vector, 3> axes = AxesFromNormal({nx, ny, nz});
  out = kIdentity;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    for (std::size_t i = 0; i < 3; ++i) {
      out[form == kLocalToWorld ? 4 * axis + i : 4 * i + axis] = axes[axis][i];
    }
  }
}

void tri_Fit_Plane(int count, const TPoint* points, TMatrix& toLocal) {
  const Spread spread = SpreadOf(count, points);
  Fit best = {{}, std::numeric_limits<double>::infinity()};
  for (std::size_t w = 3; w-- > 0;) {
    const Fit fit = FitCoordinate(w, spread, count, points);
    if (fit.score < best.score) {  // never true of a NaN
      best = fit;
    }
  }
  if (best.score == std::numeric_limits<double>::infinity()) {
    toLocal = kIdentity;
    return;
  }
  const Vector& n = best.normal;
  const double length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
  TMatrix toWorld;
  tri_Frame_From_Normal(n[0] / length, n[1] / length, n[2] / length, kLocalToWorld, toWorld);
  for (std::size_t i = 0; i < 3; ++i) {
    toWorld[12 + i] = spread.mean[i];
  }
  tri_Invert_Matrix(toWorld, toLocal);
}

void tri_Invert_Matrix(const TMatrix& in, TMatrix& out) {
  TMatrix work = in;
  out = kIdentity;
  for (std::size_t column = 0; column < 4; ++column) {
    std::size_t pivot = column;
    for (std::size_t row = column + 1; row < 4; ++row) {
      if (std::fabs(work[4 * row + column]) > std::fabs(work[4 * pivot + column])) {
        pivot = row;
      }
    }
    const double divisor = work[4 * pivot + column];
    if (std::fabs(divisor) < kSmallestPivot) {
      continue;
    }
    for (std::size_t k = 0; k < 4; ++k) {
      std::swap(work[4 * pivot + k], work[4 * column + k]);
      std::swap(out[4 * pivot + k], out[4 * column + k]);
      work[4 * column + k] /= divisor;
      out[4 * column + k] /= divisor;
    }
    for (std::size_t row = 0; row < 4; ++row) {
      const double factor = work[4 * row + column];
      if (row == column) {
        continue;
      }
      for (std::size_t k = 0; k < 4; ++k) {
        work[4 * row + k] -= factor * work[4 * column + k];
        out[4 * row + k] -= factor * out[4 * column + k];
      }
    }
  }
}

}  // namespace zyl::geometry::internal
