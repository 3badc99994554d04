// Voxelation beside the plain way to write it: three levels of pointers to std::set.
//
// Both sides fill a grid with the same boxes and answer the same queries. The argument of each
// benchmark is the mean side of the boxes in tenths of a voxel. The counters of the filling tell
// what lives on the heap afterwards, allocator overhead included.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <random>
#include <set>
#include <vector>

#include "zyl/geometry/extent.h"
#include "zyl/geometry/voxelation.h"

namespace {

std::size_t bytesOnHeap = 0;

std::size_t SizeOf(void* block) { return malloc_usable_size(block) + sizeof(std::size_t); }

}  // namespace

void* operator new(std::size_t size) {
  void* const block = std::malloc(size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  bytesOnHeap += SizeOf(block);
  return block;
}

void operator delete(void* block) noexcept {
  if (block != nullptr) {
    bytesOnHeap -= SizeOf(block);
    std::free(block);
  }
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Extent;
using zyl::geometry::Voxelation;

constexpr int kVoxels = 64;  // along each axis, each of unit size
constexpr int kBoxes = 100000;

class PlainGrid {
 public:
  void AddExtent(const Extent& e, std::int64_t id) {
    for (int i = Index(e.min.x); i <= Index(e.max.x); ++i) {
      for (int j = Index(e.min.y); j <= Index(e.max.y); ++j) {
        for (int k = Index(e.min.z); k <= Index(e.max.z); ++k) {
          std::unique_ptr<std::set<std::int64_t>>& voxel = voxels_[k][j][i];
          if (voxel == nullptr) {
            voxel = std::make_unique<std::set<std::int64_t>>();
          }
          voxel->insert(id);
        }
      }
    }
  }

  bool CollectIDsNear(std::set<std::int64_t>& ids, const Coord3D& centre, double rx, double ry,
                      double rz) const {
    for (int k = Index(centre.z - rz); k <= Index(centre.z + rz); ++k) {
      for (int j = Index(centre.y - ry); j <= Index(centre.y + ry); ++j) {
        for (int i = Index(centre.x - rx); i <= Index(centre.x + rx); ++i) {
          CollectIDsAt(ids, i, j, k);
        }
      }
    }
    return !ids.empty();
  }

  bool CollectIDsAt(std::set<std::int64_t>& ids, int i, int j, int k) const {
    if (voxels_[k][j][i] != nullptr) {
      ids.insert(voxels_[k][j][i]->begin(), voxels_[k][j][i]->end());
    }
    return !ids.empty();
  }

 private:
  static int Index(double coordinate) {
    return std::min(kVoxels - 1, std::max(0, static_cast<int>(coordinate)));
  }

  using Row = std::unique_ptr<std::unique_ptr<std::set<std::int64_t>>[]>;
  using Plane = std::unique_ptr<Row[]>;

  std::unique_ptr<Plane[]> voxels_ = [] {
    auto planes = std::make_unique<Plane[]>(kVoxels);
    for (int k = 0; k < kVoxels; ++k) {
      planes[k] = std::make_unique<Row[]>(kVoxels);
      for (int j = 0; j < kVoxels; ++j) {
        planes[k][j] = std::make_unique<std::unique_ptr<std::set<std::int64_t>>[]>(kVoxels);
      }
    }
    return planes;
  }();
};

struct IndexedGrid : Voxelation {
  IndexedGrid()
      : Voxelation(Coord3D(0, 0, 0), Coord3D(kVoxels, kVoxels, kVoxels), kVoxels, kVoxels,
                   kVoxels) {}
};

// Boxes anywhere in the grid, their sides from 0 to twice the mean.
std::vector<Extent> Boxes(double meanSide) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> corner(0, kVoxels);
  std::uniform_real_distribution<double> side(0, 2 * meanSide);
  std::vector<Extent> boxes(kBoxes);
  for (Extent& box : boxes) {
    box.min = {corner(random), corner(random), corner(random)};
    box.max = box.min + Coord3D(side(random), side(random), side(random));
  }
  return boxes;
}

template <class Grid>
void Fill(const std::vector<Extent>& boxes, Grid& grid) {
  for (int i = 0; i < kBoxes; ++i) {
    grid.AddExtent(boxes[i], i);
  }
}

template <class Grid>
void AddExtent(benchmark::State& state) {
  const std::vector<Extent> boxes = Boxes(static_cast<double>(state.range(0)) / 10);
  std::size_t bytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const std::size_t before = bytesOnHeap;
    auto grid = std::make_unique<Grid>();
    state.ResumeTiming();
    Fill(boxes, *grid);
    state.PauseTiming();
    bytes = bytesOnHeap - before;
    grid.reset();
    state.ResumeTiming();
  }
  state.counters["bytes/box"] = static_cast<double>(bytes) / kBoxes;
  state.SetItemsProcessed(state.iterations() * kBoxes);
}

// Asks at points anywhere in the grid.
template <class Grid, class Query>
void Ask(benchmark::State& state, Query query) {
  Grid grid;
  Fill(Boxes(static_cast<double>(state.range(0)) / 10), grid);
  std::mt19937_64 random(2);
  std::uniform_real_distribution<double> coordinate(0, kVoxels);
  std::size_t found = 0;
  for (auto _ : state) {
    std::set<std::int64_t> ids;
    query(grid, ids, Coord3D(coordinate(random), coordinate(random), coordinate(random)));
    found += ids.size();
    benchmark::DoNotOptimize(ids);
  }
  state.counters["ids/query"] =
      static_cast<double>(found) / static_cast<double>(state.iterations());
}

template <class Grid>
void CollectIDsNear(benchmark::State& state) {
  Ask<Grid>(state, [](const Grid& grid, std::set<std::int64_t>& ids, const Coord3D& centre) {
    grid.CollectIDsNear(ids, centre, 1.5, 1.5, 1.5);
  });
}

template <class Grid>
void CollectIDsAt(benchmark::State& state) {
  Ask<Grid>(state, [](const Grid& grid, std::set<std::int64_t>& ids, const Coord3D& p) {
    grid.CollectIDsAt(ids, static_cast<int>(p.x), static_cast<int>(p.y), static_cast<int>(p.z));
  });
}

void Sides(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(0)->Arg(5)->Arg(10)->Arg(30)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_TEMPLATE(AddExtent, PlainGrid)->Apply(Sides);
BENCHMARK_TEMPLATE(AddExtent, IndexedGrid)->Apply(Sides);
BENCHMARK_TEMPLATE(CollectIDsNear, PlainGrid)->Apply(Sides);
BENCHMARK_TEMPLATE(CollectIDsNear, IndexedGrid)->Apply(Sides);
BENCHMARK_TEMPLATE(CollectIDsAt, PlainGrid)->Apply(Sides);
BENCHMARK_TEMPLATE(CollectIDsAt, IndexedGrid)->Apply(Sides);

}  // namespace
