// Triangulation of loose points and of one closed ring, beside CGAL on the same points.
//
//     triangulation_benchmark --benchmark_filter=Uniform
//
// "CPU" is the processor time of all threads: the sort behind the neighbours puts two to work.
// "Triangles" asks for vertices and triangles (of the ring also for its segments), "Neighbours"
// for the triangles across every edge besides.

#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <utility>
#include <vector>

#include "trimake/delaunay.h"

namespace {

using zyl::geometry::internal::TPoint;
using zyl::geometry::internal::tri_Triangulate;
using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using Delaunay = CGAL::Delaunay_triangulation_2<Kernel>;
using Constrained = CGAL::Constrained_Delaunay_triangulation_2<Kernel>;
using Points = std::vector<TPoint>;

constexpr unsigned kSeed = 1;

Points Uniform(int n) {
  std::mt19937_64 random(kSeed);
  std::uniform_real_distribution<double> coordinate(0, 1000);
  Points points;
  for (int i = 0; i < n; ++i) {
    const double x = coordinate(random);
    points.push_back({x, coordinate(random), 0, 1});
  }
  return points;
}

Points Grid(int n) {
  const int side = static_cast<int>(std::lround(std::sqrt(n)));
  Points points;
  for (int i = 0; i < side * side; ++i) {
    points.push_back({static_cast<double>(i % side), static_cast<double>(i / side), 0, 1});
  }
  std::shuffle(points.begin(), points.end(), std::mt19937_64(kSeed));
  return points;
}

// A closed boundary with bays and headlands of all sizes, in order.
Points Ring(int n) {
  std::mt19937_64 random(kSeed);
  std::uniform_real_distribution<double> phase(0, 6.283185307179586);
  double phases[12];
  std::generate(std::begin(phases), std::end(phases), [&] { return phase(random); });
  Points points;
  for (int i = 0; i < n; ++i) {
    const double angle = 6.283185307179586 * i / n;
    double radius = 1000;
    for (int k = 0; k < 12; ++k) {
      radius += 250 * std::pow(0.6, k) * std::sin(std::exp2(k) * angle + phases[k]);
    }
    points.push_back({radius * std::cos(angle), radius * std::sin(angle), 0, i == 0 ? 1 : 0});
  }
  points.push_back({points[0].x, points[0].y, 0, 0});
  return points;
}

enum Outputs { kTriangles, kNeighbours };

void Triangulate(benchmark::State& state, const Points& points, Outputs outputs) {
  int triangleCount = 0;
  for (auto _ : state) {
    int vertexCount = 0;
    TPoint* vertices = nullptr;
    int* triangles = nullptr;
    void* edgeInfo = nullptr;
    int* neighbours = nullptr;
    const bool hasBreaklines = points[1].flag == 0;
    const int result =
        tri_Triangulate(static_cast<int>(points.size()), points.data(), &triangleCount,
                        &vertexCount, &vertices, &triangles, hasBreaklines ? &edgeInfo : nullptr,
                        outputs == kNeighbours ? &neighbours : nullptr, 0, 0);
    if (result != 0) {
      state.SkipWithError("not triangulated");
    }
    std::free(vertices);
    std::free(triangles);
    std::free(edgeInfo);
    std::free(neighbours);
  }
  state.counters["triangles"] = triangleCount;
}

std::vector<Kernel::Point_2> ForCgal(const Points& points) {
  std::vector<Kernel::Point_2> converted;
  for (const TPoint& p : points) {
    converted.emplace_back(p.x, p.y);
  }
  return converted;
}

void TriangulateWithCgal(benchmark::State& state, const Points& points) {
  const std::vector<Kernel::Point_2> converted = ForCgal(points);
  std::size_t triangleCount = 0;
  for (auto _ : state) {
    const Delaunay mesh(converted.begin(), converted.end());
    triangleCount = mesh.number_of_faces();
  }
  state.counters["triangles"] = static_cast<double>(triangleCount);
}

void ConstrainWithCgal(benchmark::State& state, const Points& ring) {
  std::vector<Kernel::Point_2> converted = ForCgal(ring);
  converted.pop_back();
  std::vector<std::pair<std::size_t, std::size_t>> edges;
  for (std::size_t i = 0; i < converted.size(); ++i) {
    edges.emplace_back(i, (i + 1) % converted.size());
  }
  std::size_t triangleCount = 0;
  for (auto _ : state) {
    Constrained mesh;
    mesh.insert_constraints(converted.begin(), converted.end(), edges.begin(), edges.end());
    triangleCount = mesh.number_of_faces();
  }
  state.counters["triangles"] = static_cast<double>(triangleCount);
}

void UniformTriangles(benchmark::State& state) {
  Triangulate(state, Uniform(static_cast<int>(state.range(0))), kTriangles);
}
void UniformNeighbours(benchmark::State& state) {
  Triangulate(state, Uniform(static_cast<int>(state.range(0))), kNeighbours);
}
void UniformCgal(benchmark::State& state) {
  TriangulateWithCgal(state, Uniform(static_cast<int>(state.range(0))));
}
void GridTriangles(benchmark::State& state) {
  Triangulate(state, Grid(static_cast<int>(state.range(0))), kTriangles);
}
void GridNeighbours(benchmark::State& state) {
  Triangulate(state, Grid(static_cast<int>(state.range(0))), kNeighbours);
}
void GridCgal(benchmark::State& state) {
  TriangulateWithCgal(state, Grid(static_cast<int>(state.range(0))));
}
void RingTriangles(benchmark::State& state) {
  Triangulate(state, Ring(static_cast<int>(state.range(0))), kTriangles);
}
void RingNeighbours(benchmark::State& state) {
  Triangulate(state, Ring(static_cast<int>(state.range(0))), kNeighbours);
}
void RingCgal(benchmark::State& state) {
  ConstrainWithCgal(state, Ring(static_cast<int>(state.range(0))));
}

// From 10 000 to 1 000 000 points; the growth is that of the times.
BENCHMARK(UniformTriangles)->RangeMultiplier(10)->Range(10000, 1000000)->MeasureProcessCPUTime();
BENCHMARK(UniformNeighbours)->Arg(1000000)->MeasureProcessCPUTime();
BENCHMARK(UniformCgal)->RangeMultiplier(10)->Range(10000, 1000000)->MeasureProcessCPUTime();
BENCHMARK(GridTriangles)->Arg(1000000)->MeasureProcessCPUTime();
BENCHMARK(GridNeighbours)->Arg(1000000)->MeasureProcessCPUTime();
BENCHMARK(GridCgal)->Arg(1000000)->MeasureProcessCPUTime();
BENCHMARK(RingTriangles)->Arg(100000)->MeasureProcessCPUTime();
BENCHMARK(RingNeighbours)->Arg(100000)->MeasureProcessCPUTime();
BENCHMARK(RingCgal)->Arg(100000)->MeasureProcessCPUTime();

}  // namespace
