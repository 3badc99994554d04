#pragma once

/// @file
/// Spatial index: a grid of voxels, each with the identifiers of what touches it.

#include <cstdint>
#include <memory>
#include <set>

#include "zyl/geometry/coord.h"
#include "zyl/geometry/export.h"

namespace zyl::geometry {

struct Bounds3D;
struct Extent;

/// @addtogroup voxels
/// @{

/// Identifier that a caller gives to an object of its own; the library never interprets it.
using int64 = std::int64_t;

/// @}

namespace internal {
class IdList;
}

/// @addtogroup voxels
/// @{

/// Box divided into nx × ny × nz equal voxels, each with a set of identifiers.
///
/// Objects are registered in every voxel that their bounding box touches, and queries return
/// candidates, which the caller then tests exactly. What lies outside the box belongs to the
/// nearest voxel of its border. Without a grid (until Initialise succeeds, and in what was moved
/// from) every call returns false and does nothing.
///
/// A voxel that never held anything costs one pointer, and each identifier in a voxel at most 40
/// bytes. std::bad_alloc reaches the caller. Const calls may run at once.
///
///     Voxelation index(Coord3D(0, 0, 0), Coord3D(10, 10, 10), 10, 10, 10);
///     index.AddPoint(Coord3D(2.5, 2.5, 2.5), 7);
///     std::set<int64> candidates;
///     index.CollectIDsNear(candidates, Coord3D(3.5, 2.5, 2.5), 1, 1, 1);  // true: finds 7
class ZYL_GEOMETRY_API Voxelation {
 public:
  /// Indices of a voxel along x, y and z.
  struct Location {
    int i = 0;  ///< Along x, from 0.
    int j = 0;  ///< Along y, from 0.
    int k = 0;  ///< Along z, from 0.
  };

  /// No grid.
  Voxelation();
  /// Grid as Initialise makes it, or none where Initialise returns false.
  Voxelation(const Coord3D& min, const Coord3D& max, int nx, int ny, int nz);
  /// The same over the box between the corners of `bounds`.
  Voxelation(const Bounds3D& bounds, int nx, int ny, int nz);
  /// Copies the grid and everything in it.
  Voxelation(const Voxelation& other);
  /// Constant time; leaves `other` without a grid.
  Voxelation(Voxelation&& other) noexcept;
  ~Voxelation();
  /// If memory runs out, this stays as it was.
  Voxelation& operator=(const Voxelation& other);
  /// Constant time, but for the release of what this held; leaves `other` without a grid.
  Voxelation& operator=(Voxelation&& other) noexcept;

  /// Makes an empty grid over the box and forgets the one before.
  ///
  /// Returns false and changes nothing if a count is not positive or the squared distance between
  /// the corners is 0. A box may be flat or inverted on an axis; there every coordinate belongs to
  /// index 0. If memory runs out, or the number of voxels cannot be addressed, std::bad_alloc is
  /// thrown and the grid before remains: for a moment the two exist at once.
  bool Initialise(const Coord3D& min, const Coord3D& max, int nx, int ny, int nz);
  /// The same over the box between the corners of `bounds`.
  bool Initialise(const Bounds3D& bounds, int nx, int ny, int nz);

  /// Writes the number of voxels along x, y and z to dims[0], dims[1] and dims[2].
  bool GetDimensions(int* dims) const;
  /// Voxel that the point lies in. Along each axis what is below the box belongs to the first index
  /// and what is above, or on its upper face, to the last; a NaN coordinate to the first.
  bool Locate(double x, double y, double z, Location& loc) const;
  /// Voxel that p lies in, likewise.
  bool Locate(const Coord3D& p, Location& loc) const;
  /// Box of the voxel. An index outside the grid gives the box at that place of the same lattice.
  bool GetVoxelExtent(const Location& loc, Extent& out);

  /// Registers `id` in the voxel of p. Like every call that adds, it returns true whether or not
  /// the identifier was there already, and if memory runs out, the identifier stays in the voxels
  /// that it has reached.
  bool AddPoint(const Coord3D& p, int64 id);
  /// Registers `id` in every voxel from that of e.min to that of e.max: in none if e.min belongs to
  /// a later one on any axis. The cost is one step per voxel.
  bool AddExtent(const Extent& e, int64 id);
  /// Registers `id` in every voxel that the bounding box of the triangle touches.
  bool AddTriangle(const Coord3D& a, const Coord3D& b, const Coord3D& c, int64 id);
  /// The same of triangle[0], triangle[1] and triangle[2].
  bool AddTriangle(Coord3D* const triangle, int64 id);
  /// Forgets all identifiers and keeps the grid, and the memory of its voxels to be filled again.
  bool Clear();

  /// Adds the identifiers in one voxel to `ids`, which is never cleared, and returns whether it
  /// holds any then. Outside the grid there are none.
  bool CollectIDsAt(std::set<int64>& ids, int i, int j, int k) const;
  /// The same for the voxel at `loc`.
  bool CollectIDsAt(std::set<int64>& ids, Location& loc) const;
  /// The same for all voxels that the box centre ± (rx, ry, rz) touches. With a negative half-width
  /// that box is inverted and may touch none. The cost is one step per voxel and
  /// O(n log n) in the identifiers found there.
  bool CollectIDsNear(std::set<int64>& ids, const Coord3D& centre, double rx, double ry,
                      double rz) const;
  /// The same for the box e, by way of its centre and half of its sides.
  bool CollectIDsIn(std::set<int64>& ids, const Extent& e) const;

 private:
  void Free();
  void Swap(Voxelation& other) noexcept;
  // Box of a voxel, on request widened at each end by half a percent of the voxel's length.
  bool GetExtent(int i, int j, int k, Extent& out, bool enlarge);
  bool GetExtent(const Location& loc, Extent& out, bool enlarge);
  template <class Visit>
  void VisitVoxels(const Location& low, const Location& high, Visit visit) const;

  std::unique_ptr<internal::IdList[]> voxels_;  // [k][j][i], null if there is no grid
  Coord3D origin_;
  Coord3D size_;
  int nx_ = 0;
  int ny_ = 0;
  int nz_ = 0;
};

/// @}

}  // namespace zyl::geometry
