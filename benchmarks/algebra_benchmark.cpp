// Vectors and matrices beside Eigen's fixed-size doubles: the same operation on the same numbers,
// over arrays that fit the first-level cache, both compiled with the same flags.

#include <benchmark/benchmark.h>

#include <Eigen/Dense>
#include <cstddef>
#include <new>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "zyl/geometry/coord.h"
#include "zyl/geometry/matrix3.h"
#include "zyl/geometry/matrix4.h"

namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Matrix3;
using zyl::geometry::Matrix4;

// What the two libraries spell differently.
double Dot(const Coord3D& a, const Coord3D& b) { return a.Dot(b); }
double Dot(const Eigen::Vector3d& a, const Eigen::Vector3d& b) { return a.dot(b); }

Coord3D Cross(const Coord3D& a, const Coord3D& b) { return a.Cross(b); }
Eigen::Vector3d Cross(const Eigen::Vector3d& a, const Eigen::Vector3d& b) { return a.cross(b); }

Coord3D Unit(Coord3D a) {
  a.Normalise();
  return a;
}
Eigen::Vector3d Unit(const Eigen::Vector3d& a) { return a / a.norm(); }

template <typename Matrix>
Coord3D Apply(const Matrix& m, const Coord3D& p) {
  return m * p;
}
Eigen::Vector3d Apply(const Eigen::Matrix3d& m, const Eigen::Vector3d& p) { return m * p; }
Eigen::Vector3d Apply(const Eigen::Matrix4d& m, const Eigen::Vector3d& p) {
  return m.topLeftCorner<3, 3>() * p + m.topRightCorner<3, 1>();
}

double Determinant(const Matrix3& a) { return a.Det(); }
double Determinant(const Matrix4& a) { return a.Det(); }
template <int N>
double Determinant(const Eigen::Matrix<double, N, N>& a) {
  return a.determinant();
}

// Both refuse a determinant of exactly 0.
Matrix3 Inverse(const Matrix3& a) { return a.Inverse(); }
Matrix4 Inverse(const Matrix4& a) { return a.Inverse(); }
template <int N>
Eigen::Matrix<double, N, N> Inverse(const Eigen::Matrix<double, N, N>& a) {
  Eigen::Matrix<double, N, N> inverse;
  bool invertible = false;
  a.computeInverseWithCheck(inverse, invertible, 0.0);
  if (!invertible) {
    throw Matrix3::NonInvertableException();
  }
  return inverse;
}

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

// The kernel takes an element of each of two arrays. Its result is constructed where it stays, as
// that of `const Matrix3 c = a * b;`.
template <typename Element, typename Kernel>
void Add(const std::string& name, Kernel kernel) {
  using Result = std::invoke_result_t<Kernel, const Element&, const Element&>;
  benchmark::RegisterBenchmark(name.c_str(), [kernel](benchmark::State& state) {
    const std::vector<Element> a = RandomArray<Element>(1);
    const std::vector<Element> b = RandomArray<Element>(2);
    std::vector<Result> out(kCount);
    for (auto _ : state) {
      for (std::size_t i = 0; i < kCount; ++i) {
        new (&out[i]) Result(kernel(a[i], b[i]));
      }
      benchmark::DoNotOptimize(out.data());
      benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<benchmark::IterationCount>(kCount));
  });
}

template <typename Vector, typename Matrix>
void AddMatrix(const std::string& size, const std::string& side) {
  using M = const Matrix&;
  using V = const Vector&;
  // One matrix on many points, as maps are used.
  Add<Vector>("points" + size + side,
              [m = RandomArray<Matrix>(3)[0]](V p, V) -> Vector { return Apply(m, p); });
  Add<Matrix>("product" + size + side, [](M a, M b) -> Matrix { return a * b; });
  Add<Matrix>("determinant" + size + side, [](M a, M) { return Determinant(a); });
  Add<Matrix>("inverse" + size + side, [](M a, M) { return Inverse(a); });
}

template <typename Vector, typename M3, typename M4>
void AddSide(const std::string& side) {
  using V = const Vector&;
  Add<Vector>("dot" + side, [](V a, V b) { return Dot(a, b); });
  Add<Vector>("cross" + side, [](V a, V b) { return Cross(a, b); });
  Add<Vector>("normalise" + side, [](V a, V) { return Unit(a); });
  AddMatrix<Vector, M3>("3", side);
  AddMatrix<Vector, M4>("4", side);
}

template <typename Matrix>
void AddUncheckedInverse(const std::string& name) {
  Add<Matrix>(name, [](const Matrix& a, const Matrix&) -> Matrix { return a.inverse(); });
}

const bool kRegistered = [] {
  AddSide<Coord3D, Matrix3, Matrix4>("/zyl");
  AddSide<Eigen::Vector3d, Eigen::Matrix3d, Eigen::Matrix4d>("/eigen");
  AddUncheckedInverse<Eigen::Matrix3d>("inverse3/eigen_unchecked");
  AddUncheckedInverse<Eigen::Matrix4d>("inverse4/eigen_unchecked");
  return true;
}();

}  // namespace
