#pragma once

// The plane that a polygon lies in, and the change to the coordinates of that plane.

#include <array>

#include "trimake/records.h"

namespace zyl::geometry::internal {

/// 4 × 4 matrix, row by row, for row vectors: x' = m[0]·x + m[4]·y + m[8]·z + m[12], and y' and z'
/// the same with the next two columns.
using TMatrix = std::array<double, 16>;

enum TFrameForm { kWorldToLocal, kLocalToWorld };

/// Rotation to or from the frame whose z axis is the unit normal (nx, ny, nz) and whose y axis is
/// at right angles to the world's x axis: (0, 0, 1) gives the world's axes, (0, 0, -1) the same
/// with y and z reversed. No translation.
void tri_Frame_From_Normal(double nx, double ny, double nz, TFrameForm form, TMatrix& out);

/// World-to-local matrix of the plane that fits the points best: their mean becomes the origin,
/// the plane's normal the z axis.
///
/// Fits z, y and x in turn as a function of the other two coordinates by least squares and takes
/// the plane with the smallest sum of distances. A fit whose determinant is at most 1e-4 in
/// magnitude, in the units of the coordinates to the fourth power, does not count; nor does one
/// whose distances are not finite. If none is left, as of points on one line or of a polygon a few
/// centimetres across, `toLocal` is the identity. With a mean beyond 1e30 the frame has no inverse
/// that tri_Invert_Matrix could find, and where the square of a slope overflows `toLocal` is NaN.
void tri_Fit_Plane(int count, const TPoint* points, TMatrix& toLocal);

/// Inverse by Gauss-Jordan elimination with partial pivoting. A column without a pivot of at least
/// 1e-30 is passed over: a singular matrix gives something finite, not its inverse.
void tri_Invert_Matrix(const TMatrix& in, TMatrix& out);

}  // namespace zyl::geometry::internal
