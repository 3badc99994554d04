// The four predicates beside CGAL's filtered kernel, which answers the same questions exactly: on
// random points; on points that are on a line, plane, circle or sphere but for the rounding of
// their coordinates; on points that are there exactly, though their differences are rounded; and on
// a small grid, where some are there by chance. `call` is the time of one call.

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "predicates/predicates.h"

namespace {

using namespace zyl::geometry::internal;
using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using Rng = std::mt19937_64;
using Point = std::array<double, 3>;

enum Input { kRandom, kNearlyDegenerate, kDegenerate, kGrid };
constexpr std::size_t kSets = 4096;

double Uniform(Rng& rng) { return std::uniform_real_distribution<double>(-1, 1)(rng); }

// 40 bits, so that three times the number is exact, at one of many exponents.
double Short(Rng& rng) {
  return std::ldexp(std::round(std::ldexp(Uniform(rng), 40)), -40 - static_cast<int>(rng() % 20));
}

Point Random(Rng& rng) { return {Uniform(rng), Uniform(rng), Uniform(rng)}; }

Point OnGrid(Rng& rng) {
  const auto coordinate = [&] { return static_cast<double>(rng() % 9) - 4; };
  return {coordinate(), coordinate(), coordinate()};
}

// Changes of sign and exchanges of axes keep the distance from the origin.
Point Image(Rng& rng, Point p, std::size_t axes) {
  for (std::size_t i = 0; i < axes; ++i) {
    std::swap(p[i], p[rng() % axes]);
    p[i] = rng() % 2 == 0 ? p[i] : -p[i];
  }
  return p;
}

struct Orient2D {
  static constexpr std::size_t kPoints = 3;
  using Peer = Kernel::Orientation_2;
  using PeerPoint = Kernel::Point_2;
  static double Ask(const Point* p) { return orient2d(p[0].data(), p[1].data(), p[2].data()); }
  static Point Near(Rng& rng) {
    const double x = Uniform(rng);
    return {x, 0.3 * x + 0.1, 0};
  }
  static Point On(Rng& rng, const Point&) {
    const double x = Short(rng);
    return {x, 3 * x, 0};
  }
};

struct Orient3D {
  static constexpr std::size_t kPoints = 4;
  using Peer = Kernel::Orientation_3;
  using PeerPoint = Kernel::Point_3;
  static double Ask(const Point* p) {
    return orient3d(p[0].data(), p[1].data(), p[2].data(), p[3].data());
  }
  static Point Near(Rng& rng) {
    const double x = Uniform(rng);
    const double y = Uniform(rng);
    return {x, y, 0.3 * x + 0.7 * y + 0.1};
  }
  static Point On(Rng& rng, const Point&) {
    const double x = Short(rng);
    return {x, Uniform(rng), 3 * x};
  }
};

struct InCircle {
  static constexpr std::size_t kPoints = 4;
  using Peer = Kernel::Side_of_oriented_circle_2;
  using PeerPoint = Kernel::Point_2;
  static double Ask(const Point* p) {
    return incircle(p[0].data(), p[1].data(), p[2].data(), p[3].data());
  }
  static Point Near(Rng& rng) {
    const double angle = 4 * Uniform(rng);
    return {std::cos(angle), std::sin(angle), 0};
  }
  static Point On(Rng& rng, const Point& seed) { return Image(rng, seed, 2); }
};

struct InSphere {
  static constexpr std::size_t kPoints = 5;
  using Peer = Kernel::Side_of_oriented_sphere_3;
  using PeerPoint = Kernel::Point_3;
  static double Ask(const Point* p) {
    return insphere(p[0].data(), p[1].data(), p[2].data(), p[3].data(), p[4].data());
  }
  static Point Near(Rng& rng) {
    const Point p = Random(rng);
    const double length = std::sqrt(p[0] * p[0] + p[1] * p[1] + p[2] * p[2]);
    return {p[0] / length, p[1] / length, p[2] / length};
  }
  static Point On(Rng& rng, const Point& seed) { return Image(rng, seed, 3); }
};

template <typename Predicate>
std::vector<Point> Points(Input input) {
  Rng rng(7);
  std::vector<Point> points;
  for (std::size_t set = 0; set < kSets; ++set) {
    const Point seed = Random(rng);
    for (std::size_t i = 0; i < Predicate::kPoints; ++i) {
      points.push_back(input == kRandom             ? Random(rng)
                       : input == kNearlyDegenerate ? Predicate::Near(rng)
                       : input == kDegenerate       ? Predicate::On(rng, seed)
                                                    : OnGrid(rng));
    }
  }
  return points;
}

void PerCall(benchmark::State& state) {
  using benchmark::Counter;
  state.counters["call"] = Counter(kSets, Counter::kIsIterationInvariantRate | Counter::kInvert);
}

template <typename Predicate>
void Ours(benchmark::State& state, Input input) {
  exactinit();
  const std::vector<Point> points = Points<Predicate>(input);
  for (auto _ : state) {
    for (std::size_t i = 0; i < points.size(); i += Predicate::kPoints) {
      benchmark::DoNotOptimize(Predicate::Ask(&points[i]));
    }
  }
  PerCall(state);
}

template <typename Predicate>
auto AskCgal(const typename Predicate::PeerPoint* p) {
  const typename Predicate::Peer ask{};
  if constexpr (Predicate::kPoints == 3) {
    return ask(p[0], p[1], p[2]);
  } else if constexpr (Predicate::kPoints == 4) {
    return ask(p[0], p[1], p[2], p[3]);
  } else {
    return ask(p[0], p[1], p[2], p[3], p[4]);
  }
}

template <typename Predicate>
void Cgal(benchmark::State& state, Input input) {
  using PeerPoint = typename Predicate::PeerPoint;
  std::vector<PeerPoint> points;
  for (const Point& p : Points<Predicate>(input)) {
    if constexpr (std::is_same_v<PeerPoint, Kernel::Point_2>) {
      points.emplace_back(p[0], p[1]);
    } else {
      points.emplace_back(p[0], p[1], p[2]);
    }
  }
  for (auto _ : state) {
    for (std::size_t i = 0; i < points.size(); i += Predicate::kPoints) {
      benchmark::DoNotOptimize(AskCgal<Predicate>(&points[i]));
    }
  }
  PerCall(state);
}

template <typename Predicate>
void Register(const std::string& predicate) {
  const std::pair<const char*, Input> inputs[] = {{"random", kRandom},
                                                  {"nearlyDegenerate", kNearlyDegenerate},
                                                  {"degenerate", kDegenerate},
                                                  {"grid", kGrid}};
  for (const auto& [name, input] : inputs) {
    const std::string both = predicate + "/" + name;
    benchmark::RegisterBenchmark((both + "/ours").c_str(), Ours<Predicate>, input);
    benchmark::RegisterBenchmark((both + "/CGAL").c_str(), Cgal<Predicate>, input);
  }
}

const bool kRegistered = [] {
  Register<Orient2D>("orient2d");
  Register<Orient3D>("orient3d");
  Register<InCircle>("incircle");
  Register<InSphere>("insphere");
  return true;
}();

}  // namespace
