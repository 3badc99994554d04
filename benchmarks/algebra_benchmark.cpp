// Vectors and matrices beside Eigen's fixed-size doubles: the same operation on the same numbers,
// over arrays that fit the first-level cache, both compiled with the same flags.

#include <benchmark/benchmark.h>

#include <Eigen/Dense>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "zyl/geometry/coord.h"
#include "zyl/geometry/matrix3.h"
#include "zyl/geometry/matrix4.h"

namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Matrix3;
using zyl::geometry::Matrix4;

// Kernels in both tongues; each takes two elements and returns one.
struct Zyl {
  using Vector = Coord3D;
  using M3 = Matrix3;
  using M4 = Matrix4;

  static double Dot(const Vector& a, const Vector& b) { return a.Dot(b); }
  static Vector Cross(const Vector& a, const Vector& b) { return a.Cross(b); }
  static Vector Normalise(const Vector& a, const Vector&) {
    Vector unit = a;
    unit.Normalise();
    return unit;
  }
  template <typename Matrix>
  static Vector Apply(const Matrix& m, const Vector& p) {
    return m * p;
  }
  template <typename Matrix>
  static Matrix Product(const Matrix& a, const Matrix& b) {
    return a * b;
  }
  template <typename Matrix>
  static double Determinant(const Matrix& a, const Matrix&) {
    return a.Det();
  }
  template <typename Matrix>
  static Matrix Inverse(const Matrix& a, const Matrix&) {
    return a.Inverse();
  }
};

struct Peer {
  using Vector = Eigen::Vector3d;
  using M3 = Eigen::Matrix3d;
  using M4 = Eigen::Matrix4d;

  static double Dot(const Vector& a, const Vector& b) { return a.dot(b); }
  static Vector Cross(const Vector& a, const Vector& b) { return a.cross(b); }
  static Vector Normalise(const Vector& a, const Vector&) { return a / a.norm(); }
  static Vector Apply(const M3& m, const Vector& p) { return m * p; }
  static Vector Apply(const M4& m, const Vector& p) {
    return m.topLeftCorner<3, 3>() * p + m.topRightCorner<3, 1>();
  }
  template <typename Matrix>
  static Matrix Product(const Matrix& a, const Matrix& b) {
    return a * b;
  }
  template <typename Matrix>
  static double Determinant(const Matrix& a, const Matrix&) {
    return a.determinant();
  }
  template <typename Matrix>
  static Matrix Inverse(const Matrix& a, const Matrix&) {
    return a.inverse();
  }
};

constexpr std::size_t kCount = 64;

// The element type is plain doubles in both libraries.
template <typename T>
std::vector<T> RandomArray(unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> uniform(-10, 10);
  std::vector<T> array(kCount);
  double* const begin = reinterpret_cast<double*>(array.data());
  for (std::size_t i = 0; i < kCount * (sizeof(T) / sizeof(double)); ++i) {
    begin[i] = uniform(random);
  }
  return array;
}

template <typename A, typename B, typename Kernel>
void Pairwise(benchmark::State& state, Kernel kernel) {
  const std::vector<A> a = RandomArray<A>(1);
  const std::vector<B> b = RandomArray<B>(2);
  std::vector<decltype(kernel(a[0], b[0]))> out(kCount);
  for (auto _ : state) {
    for (std::size_t i = 0; i < kCount; ++i) {
      out[i] = kernel(a[i], b[i]);
    }
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<benchmark::IterationCount>(kCount));
}

// One matrix on many points, as maps are used.
template <typename Side, typename Matrix>
void Points(benchmark::State& state) {
  const Matrix m = RandomArray<Matrix>(3)[0];
  using Vector = typename Side::Vector;
  Pairwise<Vector, Vector>(
      state, [m](const Vector& p, const Vector&) -> Vector { return Side::Apply(m, p); });
}

template <typename Side>
void Register(const std::string& side) {
  using V = typename Side::Vector;
  using M3 = typename Side::M3;
  using M4 = typename Side::M4;
  const auto add = [&side](const std::string& name, auto&& body) {
    benchmark::RegisterBenchmark((name + "/" + side).c_str(), body);
  };
  using State = benchmark::State;
  add("dot", [](State& s) { Pairwise<V, V>(s, [](auto& a, auto& b) { return Side::Dot(a, b); }); });
  add("cross",
      [](State& s) { Pairwise<V, V>(s, [](auto& a, auto& b) { return Side::Cross(a, b); }); });
  add("normalise",
      [](State& s) { Pairwise<V, V>(s, [](auto& a, auto& b) { return Side::Normalise(a, b); }); });
  add("points3", Points<Side, M3>);
  add("points4", Points<Side, M4>);
  add("product3",
      [](State& s) { Pairwise<M3, M3>(s, [](auto& a, auto& b) { return Side::Product(a, b); }); });
  add("product4",
      [](State& s) { Pairwise<M4, M4>(s, [](auto& a, auto& b) { return Side::Product(a, b); }); });
  add("determinant3", [](State& s) {
    Pairwise<M3, M3>(s, [](auto& a, auto& b) { return Side::Determinant(a, b); });
  });
  add("determinant4", [](State& s) {
    Pairwise<M4, M4>(s, [](auto& a, auto& b) { return Side::Determinant(a, b); });
  });
  add("inverse3",
      [](State& s) { Pairwise<M3, M3>(s, [](auto& a, auto& b) { return Side::Inverse(a, b); }); });
  add("inverse4",
      [](State& s) { Pairwise<M4, M4>(s, [](auto& a, auto& b) { return Side::Inverse(a, b); }); });
}

const bool kRegistered = [] {
  Register<Zyl>("zyl");
  Register<Peer>("eigen");
  return true;
}();

}  // namespace
