#include "zyl/geometry/voxelation.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <utility>

#include "voxel/id_list.h"
#include "zyl/geometry/extent.h"

namespace zyl::geometry {

namespace {

using internal::IdList;

std::size_t VoxelCount(int nx, int ny, int nz) {
  const std::size_t x = static_cast<std::size_t>(nx);
  const std::size_t y = static_cast<std::size_t>(ny);
  const std::size_t z = static_cast<std::size_t>(nz);
  if (x > std::numeric_limits<std::size_t>::max() / sizeof(IdList) / y / z) {
    throw std::bad_alloc();
  }
  return x * y * z;
}

// Index along one axis. Compared as a double, since far outside it does not fit an int.
int Index(double coordinate, double origin, double size, int count) {
  if (!(size > 0.0)) {
    return 0;
  }
  const double fraction = ((coordinate - origin) / size) * count;
  if (fraction >= count) {
    return count - 1;
  }
  return fraction > 0.0 ? static_cast<int>(fraction) : 0;
}

// Face of the lattice below the voxel of that index along one axis.
double Face(double index, double origin, double size, int count) {
  return index * size / count + origin;
}

// What a query meets on its way through the voxels, the same identifier often in many of them.
//
// A small table remembers the last identifier of each hash value, which stops most repetitions; the
// sort drops the others. Asking the result for each of them would cost more, and in ascending order
// every identifier beyond what the result held goes straight to its end.
class Gathering {
 public:
  void Add(int64 id) {
    // The golden ratio as a fraction of 2^64 (Knuth, The Art of Computer Programming 3, 6.4).
    int64& last = last_[(static_cast<std::uint64_t>(id) * 0x9E3779B97F4A7C15u) >> (64 - kHashBits)];
    if (last != id) {
      ids_.Insert(id);
      last = id;
    }
  }

  void MoveInto(std::set<int64>& result) {
    ids_.Sort();
    for (const int64 id : ids_) {
      result.insert(result.end(), id);
    }
  }

 private:
  static constexpr int kHashBits = 8;

  IdList ids_;
  // Starts with identifiers that are never looked up where they stand: 0 has the hash value 0, and
  // 1 has another.
  int64 last_[1 << kHashBits] = {1};
};

}  // namespace

Voxelation::Voxelation() = default;

Voxelation::Voxelation(const Coord3D& min, const Coord3D& max, int nx, int ny, int nz) {
  Initialise(min, max, nx, ny, nz);
}

Voxelation::Voxelation(const Bounds3D& bounds, int nx, int ny, int nz)
    : Voxelation(bounds.min, bounds.max, nx, ny, nz) {}

Voxelation::Voxelation(const Voxelation& other)
    : origin_(other.origin_), size_(other.size_), nx_(other.nx_), ny_(other.ny_), nz_(other.nz_) {
  if (other.voxels_ != nullptr) {
    const std::size_t count = VoxelCount(nx_, ny_, nz_);
    voxels_ = std::make_unique<IdList[]>(count);
    for (std::size_t v = 0; v < count; ++v) {
      voxels_[v] = other.voxels_[v];
    }
  }
}

Voxelation::Voxelation(Voxelation&& other) noexcept { Swap(other); }

Voxelation::~Voxelation() = default;

Voxelation& Voxelation::operator=(const Voxelation& other) {
  Voxelation copy(other);
  Swap(copy);
  return *this;
}

Voxelation& Voxelation::operator=(Voxelation&& other) noexcept {
  Voxelation moved(std::move(other));
  Swap(moved);
  return *this;
}

bool Voxelation::Initialise(const Coord3D& min, const Coord3D& max, int nx, int ny, int nz) {
  if (nx <= 0 || ny <= 0 || nz <= 0 || min.SquaredDistance(max) == 0.0) {
    return false;
  }
  std::unique_ptr<IdList[]> voxels = std::make_unique<IdList[]>(VoxelCount(nx, ny, nz));
  Free();
  voxels_ = std::move(voxels);
  origin_ = min;
  size_ = max - min;
  nx_ = nx;
  ny_ = ny;
  nz_ = nz;
  return true;
}

bool Voxelation::Initialise(const Bounds3D& bounds, int nx, int ny, int nz) {
  return Initialise(bounds.min, bounds.max, nx, ny, nz);
}

bool Voxelation::GetDimensions(int* dims) const {
  if (voxels_ == nullptr) {
    return false;
  }
  dims[0] = nx_;
  dims[1] = ny_;
  dims[2] = nz_;
  return true;
}

bool Voxelation::Locate(double x, double y, double z, Location& loc) const {
  if (voxels_ == nullptr) {
    return false;
  }
  loc.i = Index(x, origin_.x, size_.x, nx_);
  loc.j = Index(y, origin_.y, size_.y, ny_);
  loc.k = Index(z, origin_.z, size_.z, nz_);
  return true;
}

bool Voxelation::Locate(const Coord3D& p, Location& loc) const {
  return Locate(p.x, p.y, p.z, loc);
}

bool Voxelation::GetVoxelExtent(const Location& loc, Extent& out) {
  return GetExtent(loc, out, false);
}

bool Voxelation::GetExtent(int i, int j, int k, Extent& out, bool enlarge) {
  if (voxels_ == nullptr) {
    return false;
  }
  out.min = {Face(i, origin_.x, size_.x, nx_), Face(j, origin_.y, size_.y, ny_),
             Face(k, origin_.z, size_.z, nz_)};
  out.max = {Face(i + 1.0, origin_.x, size_.x, nx_), Face(j + 1.0, origin_.y, size_.y, ny_),
             Face(k + 1.0, origin_.z, size_.z, nz_)};
  if (enlarge) {
    const Coord3D h = (out.max - out.min) * 0.005;
    out.min -= h;
    out.max += h;
  }
  return true;
}

bool Voxelation::GetExtent(const Location& loc, Extent& out, bool enlarge) {
  return GetExtent(loc.i, loc.j, loc.k, out, enlarge);
}

// Calls `visit` with the list of every voxel between two corners of the grid, in the order in which
// the voxels lie in memory. None if the corners are inverted on an axis.
template <class Visit>
void Voxelation::VisitVoxels(const Location& low, const Location& high, Visit visit) const {
  for (int k = low.k; k <= high.k; ++k) {
    for (int j = low.j; j <= high.j; ++j) {
      const std::size_t row =
          static_cast<std::size_t>(k) * static_cast<std::size_t>(ny_) + static_cast<std::size_t>(j);
      IdList* const voxels = voxels_.get() + row * static_cast<std::size_t>(nx_);
      for (int i = low.i; i <= high.i; ++i) {
        visit(voxels[i]);
      }
    }
  }
}

bool Voxelation::AddPoint(const Coord3D& p, int64 id) {
  Location loc;
  if (!Locate(p, loc)) {
    return false;
  }
  VisitVoxels(loc, loc, [id](IdList& voxel) { voxel.Insert(id); });
  return true;
}

bool Voxelation::AddExtent(const Extent& e, int64 id) {
  Location low;
  Location high;
  if (!Locate(e.min, low) || !Locate(e.max, high)) {
    return false;
  }
  VisitVoxels(low, high, [id](IdList& voxel) { voxel.Insert(id); });
  return true;
}

bool Voxelation::AddTriangle(const Coord3D& a, const Coord3D& b, const Coord3D& c, int64 id) {
  return AddExtent(Extent(a, b, c), id);
}

bool Voxelation::AddTriangle(Coord3D* const triangle, int64 id) {
  return AddTriangle(triangle[0], triangle[1], triangle[2], id);
}

bool Voxelation::Clear() {
  if (voxels_ == nullptr) {
    return false;
  }
  VisitVoxels({0, 0, 0}, {nx_ - 1, ny_ - 1, nz_ - 1}, [](IdList& voxel) { voxel.Clear(); });
  return true;
}

bool Voxelation::CollectIDsAt(std::set<int64>& ids, int i, int j, int k) const {
  Location loc{i, j, k};
  return CollectIDsAt(ids, loc);
}

// Within one voxel hardly any identifier comes twice, so that gathering them first would not pay.
bool Voxelation::CollectIDsAt(std::set<int64>& ids, Location& loc) const {
  if (voxels_ == nullptr) {
    return false;
  }
  const bool inGrid =
      loc.i >= 0 && loc.i < nx_ && loc.j >= 0 && loc.j < ny_ && loc.k >= 0 && loc.k < nz_;
  if (inGrid) {
    VisitVoxels(loc, loc, [&ids](const IdList& voxel) { ids.insert(voxel.begin(), voxel.end()); });
  }
  return !ids.empty();
}

bool Voxelation::CollectIDsNear(std::set<int64>& ids, const Coord3D& centre, double rx, double ry,
                                double rz) const {
  Location low;
  Location high;
  if (!Locate(centre.x - rx, centre.y - ry, centre.z - rz, low) ||
      !Locate(centre.x + rx, centre.y + ry, centre.z + rz, high)) {
    return false;
  }
  Gathering gathering;
  VisitVoxels(low, high, [&gathering](const IdList& voxel) {
    for (const int64 id : voxel) {
      gathering.Add(id);
    }
  });
  gathering.MoveInto(ids);
  return !ids.empty();
}

bool Voxelation::CollectIDsIn(std::set<int64>& ids, const Extent& e) const {
  const Coord3D halfSides = e.Sides() * 0.5;
  return CollectIDsNear(ids, e.Centroid(), halfSides.x, halfSides.y, halfSides.z);
}

void Voxelation::Free() {
  voxels_.reset();
  origin_ = Coord3D();
  size_ = Coord3D();
  nx_ = 0;
  ny_ = 0;
  nz_ = 0;
}

void Voxelation::Swap(Voxelation& other) noexcept {
  std::swap(voxels_, other.voxels_);
  std::swap(origin_, other.origin_);
  std::swap(size_, other.size_);
  std::swap(nx_, other.nx_);
  std::swap(ny_, other.ny_);
  std::swap(nz_, other.nz_);
}

}  // namespace zyl::geometry
