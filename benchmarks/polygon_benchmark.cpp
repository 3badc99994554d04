// Point in polygon beside CGAL's bounded_side_2 on the filtered kernel, which walks around the ring
// for each point and is exact as well. IsPointInside triangulates the ring for every question;
// LocatePoint is what a question costs once that is done. Rings are concave, in a horizontal plane;
// the points are spread over the box around them. Times are those of one question.

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Polygon_2_algorithms.h>
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <memory>
#include <random>
#include <vector>

#include "trimake/location.h"
#include "zyl/geometry/polyline3d.h"

namespace {

using namespace zyl::geometry::internal;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;
using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;

constexpr std::size_t kQuestions = 1024;
constexpr double kRadius = 500;

double Uniform(std::mt19937_64& random, double from, double to) {
  return std::uniform_real_distribution<double>(from, to)(random);
}

std::vector<Point3D> Ring(std::size_t n, std::size_t which = 0) {
  std::mt19937_64 random(n + which);
  std::vector<Point3D> ring;
  for (std::size_t i = 0; i < n; ++i) {
    const double angle = 2 * 3.141592653589793 * static_cast<double>(i) / static_cast<double>(n);
    const double radius = Uniform(random, 0.5 * kRadius, kRadius);
    ring.emplace_back(radius * std::cos(angle), radius * std::sin(angle), 300);
  }
  return ring;
}

std::vector<Point3D> Questions() {
  std::mt19937_64 random(1);
  std::vector<Point3D> points;
  for (std::size_t i = 0; i < kQuestions; ++i) {
    const double x = Uniform(random, -kRadius, kRadius);
    points.emplace_back(x, Uniform(random, -kRadius, kRadius), 300);
  }
  return points;
}

// Asks one question after the other, over and over.
template <typename Ask>
void Run(benchmark::State& state, Ask ask) {
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ask(i));
    i = (i + 1) % kQuestions;
  }
}

// Asks so many rings in turn. A processor soon knows the branches that one small ring takes.
template <std::size_t kRings>
void IsPointInside(benchmark::State& state) {
  const std::size_t n = static_cast<std::size_t>(state.range(0));
  std::vector<Polyline3D> polylines;
  for (std::size_t i = 0; i < kRings; ++i) {
    polylines.emplace_back(Ring(n, i));
    polylines.back().SetClosed(true);
  }
  const std::vector<Point3D> questions = Questions();
  Run(state, [&](std::size_t i) { return polylines[i % kRings].IsPointInside(questions[i]); });
}

void LocatePoint(benchmark::State& state) {
  struct Release {
    void operator()(tri_Polygon* polygon) const { tri_Free_Polygon(polygon); }
  };
  std::vector<TPoint> ring;
  for (const Point3D& p : Ring(static_cast<std::size_t>(state.range(0)))) {
    ring.push_back({p.x, p.y, p.z, 0});
  }
  int error = 0;
  const std::unique_ptr<tri_Polygon, Release> polygon(
      tri_Triangulate_Polygon(static_cast<int>(ring.size()), ring.data(), nullptr, &error));
  const std::vector<Point3D> questions = Questions();
  Run(state, [&](std::size_t i) {
    return tri_Locate_Point(polygon.get(), &questions[i].x, nullptr, 0.0);
  });
}

void CgalBoundedSide2(benchmark::State& state) {
  std::vector<Kernel::Point_2> ring;
  for (const Point3D& p : Ring(static_cast<std::size_t>(state.range(0)))) {
    ring.emplace_back(p.x, p.y);
  }
  std::vector<Kernel::Point_2> questions;
  for (const Point3D& p : Questions()) {
    questions.emplace_back(p.x, p.y);
  }
  Run(state, [&](std::size_t i) {
    return CGAL::bounded_side_2(ring.begin(), ring.end(), questions[i], Kernel());
  });
}

void Sizes(benchmark::internal::Benchmark* b) {
  b->Arg(4)->Arg(10)->Arg(100)->Arg(1000)->Arg(10000);
}

BENCHMARK_TEMPLATE(IsPointInside, 1)->Apply(Sizes);
BENCHMARK_TEMPLATE(IsPointInside, 64)->Apply(Sizes);
BENCHMARK(LocatePoint)->Apply(Sizes);
BENCHMARK(CgalBoundedSide2)->Apply(Sizes);

}  // namespace
