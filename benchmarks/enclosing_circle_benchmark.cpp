// SmallestEnclosingCircle beside the two solvers of CGAL that answer the same question, in double
// arithmetic as well.
//
// The arguments are the number of points and their shape: 0 a square, 1 a disc, 2 a normal
// distribution, 3 a circle, 4 and 5 the disc and the circle as a site of 10 m in project
// coordinates, where single coordinates are coarser than the circle ought to be.

#include <CGAL/Min_circle_2.h>
#include <CGAL/Min_circle_2_traits_2.h>
#include <CGAL/Min_sphere_of_points_d_traits_2.h>
#include <CGAL/Min_sphere_of_spheres_d.h>
#include <CGAL/Simple_cartesian.h>
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

#include "zyl/geometry/enclosing_circle.h"

namespace {

using zyl::geometry::Point3D;
using Kernel = CGAL::Simple_cartesian<double>;
using MinCircle = CGAL::Min_circle_2<CGAL::Min_circle_2_traits_2<Kernel>>;
using MinSphere =
    CGAL::Min_sphere_of_spheres_d<CGAL::Min_sphere_of_points_d_traits_2<Kernel, double>>;

enum Shape { kSquare, kDisc, kNormal, kCircle, kFarDisc, kFarCircle };

std::vector<Point3D> Points(const benchmark::State& state) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> unit(-1, 1);
  std::normal_distribution<double> normal;
  const auto count = static_cast<std::size_t>(state.range(0));
  const auto shape = static_cast<Shape>(state.range(1));
  std::vector<Point3D> points;
  while (points.size() < count) {
    Point3D p(unit(random), unit(random), unit(random));
    const double r = std::sqrt(p.x * p.x + p.y * p.y);
    switch (shape) {
      case kDisc:
      case kFarDisc:
        if (r > 1)
          continue;
        break;
      case kNormal:
        p = {normal(random), normal(random), 0};
        break;
      case kCircle:
      case kFarCircle:
        p = {p.x / r, p.y / r, 0};
        break;
      default:
        break;
    }
    if (shape >= kFarDisc) {
      p = {450000 + 10 * p.x, 6500000 + 10 * p.y, p.z};
    }
    points.push_back(p);
  }
  return points;
}

std::vector<Kernel::Point_2> Planar(const std::vector<Point3D>& points) {
  std::vector<Kernel::Point_2> planar;
  for (const Point3D& p : points) {
    planar.emplace_back(p.x, p.y);
  }
  return planar;
}

void Library(benchmark::State& state) {
  const std::vector<Point3D> points = Points(state);
  for (auto _ : state) {
    const zyl::geometry::EncCircle circle = zyl::geometry::SmallestEnclosingCircle(points);
    benchmark::DoNotOptimize(circle);
    state.counters["radius"] = circle.radius;
  }
}

void CgalMinCircle(benchmark::State& state) {
  const std::vector<Kernel::Point_2> points = Planar(Points(state));
  for (auto _ : state) {
    const MinCircle circle(points.begin(), points.end(), true);
    benchmark::DoNotOptimize(circle);
    state.counters["radius"] = std::sqrt(circle.circle().squared_radius());
  }
}

void CgalMinSphere(benchmark::State& state) {
  const std::vector<Kernel::Point_2> points = Planar(Points(state));
  for (auto _ : state) {
    MinSphere sphere(points.begin(), points.end());
    const double radius = sphere.radius();
    benchmark::DoNotOptimize(radius);
    state.counters["radius"] = radius;
  }
}

void Arguments(benchmark::internal::Benchmark* benchmark) {
  for (const int shape : {kSquare, kDisc, kNormal, kCircle, kFarDisc, kFarCircle}) {
    for (const int count : {10, 1000, 100000, 1000000}) {
      benchmark->Args({count, shape});
    }
  }
  benchmark->Unit(benchmark::kMicrosecond);
}

BENCHMARK(Library)->Apply(Arguments);
BENCHMARK(CgalMinCircle)->Apply(Arguments);
BENCHMARK(CgalMinSphere)->Apply(Arguments);

}  // namespace
