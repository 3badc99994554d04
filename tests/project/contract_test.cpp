// The exported surface, pinned at compile time: programs are linked against every signature, const
// qualifier, field order, size and enum value, and a change to one of them breaks them.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "zyl/geometry/geometry.h"

namespace {

using namespace zyl::geometry;

// Whether this is a member function of exactly this type, const qualifier included.
template <class Signature, class Class>
constexpr bool IsMember(Signature Class::*) {
  return true;
}

// The same for free and static functions.
template <class Signature>
constexpr bool IsFree(Signature*) {
  return true;
}

// Whether Class(Arguments...) is an object.
template <class Construction>
struct Makes;
template <class Class, class... Arguments>
struct Makes<Class(Arguments...)> : std::is_constructible<Class, Arguments...> {};

// A value of `count` doubles that may be stored in arrays and copied as bytes.
template <class T, std::size_t count>
constexpr bool IsPlain() {
  return std::is_standard_layout_v<T> && std::is_trivially_copyable_v<T> &&
         !std::is_polymorphic_v<T> && sizeof(T) == count * sizeof(double);
}

#include "contract.h"  // made from contract.txt

// Types of fields, conversions, and what kinds of classes there are.
static_assert(std::is_standard_layout_v<Plane> && sizeof(Plane) == 4 * sizeof(double));
static_assert(std::is_trivially_copyable_v<Voxelation::Location> &&
              sizeof(Voxelation::Location) == 3 * sizeof(int) &&
              offsetof(Voxelation::Location, k) == 2 * sizeof(int));
static_assert(std::is_same_v<decltype(Extent::min), Coord3D> &&
              std::is_same_v<decltype(Bounds3D::max), Coord3D> &&
              std::is_same_v<decltype(Extent2D::min), Coord2D> &&
              std::is_same_v<decltype(Bounds2D::max), Coord2D> &&
              std::is_same_v<decltype(Triangle::p0), Point3D> &&
              std::is_same_v<zyl::geometry::int64, std::int64_t>);
static_assert(!std::is_same_v<Coord3D, Point3D> && !std::is_base_of_v<Coord3D, Direction> &&
              std::is_convertible_v<const Point3D&, Coord3D> &&
              std::is_convertible_v<const Coord3D&, Direction>);

template <class Matrix>
constexpr bool IsMatrix = std::is_same_v<decltype(Matrix::Identity), const Matrix>&&
    std::is_empty_v<typename Matrix::NonInvertableException>&& std::is_convertible_v<
        Matrix&, double*>&& std::is_convertible_v<const Matrix&, const double*>;
static_assert(IsMatrix<Matrix3> && IsMatrix<Matrix4>);

static_assert(std::is_abstract_v<Transformation> && std::has_virtual_destructor_v<Transformation> &&
              sizeof(Transformation) == sizeof(void*));
static_assert(std::is_base_of_v<Transformation, Transformation3D> &&
              std::is_polymorphic_v<Transformation3D>);
static_assert(!std::is_polymorphic_v<Polyline3D> && !std::is_polymorphic_v<Voxelation>);
static_assert(std::is_copy_constructible_v<Voxelation> &&
              std::is_nothrow_move_constructible_v<Voxelation> &&
              std::is_nothrow_move_assignable_v<Voxelation>);

// What a compiler cannot say: the static identities are set before main, and a shared library's
// virtual operations are called through the host's own pointers.
TEST(Contract, LoadsWithIdentitiesSetAndTransformationsCallable) {
  EXPECT_TRUE(Matrix3().IsIdentity());
  EXPECT_TRUE(Matrix4().IsIdentity());
  double shift[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1};
  const Transformation3D moved(shift);
  const Transformation& mapping = moved;
  EXPECT_EQ(mapping.transform(Coord3D(0, 0, 0)), Coord3D(1, 2, 3));
  EXPECT_EQ(mapping.inverse_transform(Coord3D(1, 2, 3)), Coord3D(0, 0, 0));
}

}  // namespace
