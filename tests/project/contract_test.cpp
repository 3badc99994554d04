// The exported surface, pinned at compile time: programs are linked against every signature, const
// qualifier, field order, size and enum value below, and a change to one of them breaks them.

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "zyl/geometry/geometry.h"

namespace {

using namespace zyl::geometry;

// Whether a class has a member function of exactly this type, const qualifier included.
template <class Signature, class Class>
constexpr bool Has(Signature Class::*) {
  return true;
}

// The same for a free function.
template <class Signature>
constexpr bool IsFree(Signature*) {
  return true;
}

template <class T, class... Arguments>
constexpr bool Makes = std::is_constructible_v<T, Arguments...>;

// A value of `count` doubles that may be stored in arrays and copied as bytes.
template <class T>
constexpr bool IsPlain(std::size_t count) {
  return std::is_standard_layout_v<T> && std::is_trivially_copyable_v<T> &&
         !std::is_polymorphic_v<T> && sizeof(T) == count * sizeof(double);
}

constexpr std::size_t kDouble = sizeof(double);

// Vector types.

static_assert(IsPlain<Coord2D>(2) && IsPlain<Coord3D>(3) && IsPlain<Coord4D>(4));
static_assert(IsPlain<Point3D>(3) && IsPlain<Direction>(3));
static_assert(offsetof(Coord3D, x) == 0 && offsetof(Coord3D, y) == kDouble &&
              offsetof(Coord3D, z) == 2 * kDouble);
static_assert(offsetof(Point3D, y) == kDouble && offsetof(Point3D, z) == 2 * kDouble);
static_assert(offsetof(Direction, y) == kDouble && offsetof(Direction, z) == 2 * kDouble);
static_assert(offsetof(Coord4D, z) == 2 * kDouble && offsetof(Coord4D, w) == 3 * kDouble);
static_assert(!std::is_same_v<Coord3D, Point3D> && !std::is_base_of_v<Coord3D, Direction>);

static_assert(Makes<Coord3D> && Makes<Coord3D, double, double, double>);
static_assert(Makes<Coord3D, double*> && std::is_convertible_v<const Point3D&, Coord3D>);
static_assert(Has<Coord3D&(const Coord3D&)>(&Coord3D::operator=));
static_assert(Has<const Coord3D&(double)>(&Coord3D::operator=));
static_assert(Has<const Coord3D(const Coord3D&) const>(&Coord3D::operator*));
static_assert(Has<const Coord3D(double) const>(&Coord3D::operator*));
static_assert(Has<const Coord3D(const Coord3D&) const>(&Coord3D::operator+));
static_assert(Has<const Coord3D(const Coord3D&) const>(&Coord3D::operator-));
static_assert(Has<const Coord3D() const>(&Coord3D::operator-));
static_assert(Has<const Coord3D&(double)>(&Coord3D::operator*=));
static_assert(Has<const Coord3D&(const Coord3D&)>(&Coord3D::operator+=));
static_assert(Has<const Coord3D&(const Coord3D&)>(&Coord3D::operator-=));
static_assert(Has<bool(const Coord3D&) const>(&Coord3D::operator==));
static_assert(Has<bool(const Coord3D&) const>(&Coord3D::operator!=));
static_assert(Has<bool(const Coord3D&) const>(&Coord3D::operator<));
static_assert(Has<double&(int)>(&Coord3D::operator[]));
static_assert(Has<double(int) const>(&Coord3D::operator[]));
static_assert(Has<double(const Coord3D&) const>(&Coord3D::Dot));
static_assert(Has<Coord3D(const Coord3D&) const>(&Coord3D::Cross));
static_assert(Has<double() const>(&Coord3D::Magnitude));
static_assert(Has<double() const>(&Coord3D::MagnitudeSquared));
static_assert(Has<double(const Coord3D&) const>(&Coord3D::Distance));
static_assert(Has<double(const Coord3D&) const>(&Coord3D::SquaredDistance));
static_assert(Has<double(const Coord3D&, const Matrix3&)>(&Coord3D::SquaredDistance));
static_assert(Has<void()>(&Coord3D::Normalise));
static_assert(Has<double(const Coord3D&) const>(&Coord3D::Angle));
static_assert(
    std::is_same_v<decltype(&Coord3D::Parallel), bool (*)(const Coord3D&, const Coord3D&, double)>);
static_assert(Has<Coord3D(const Coord3D&)>(&Coord3D::maximum));
static_assert(Has<Coord3D(const Coord3D&)>(&Coord3D::minimum));
static_assert(Has<Coord3D(const Coord3D&, const Coord3D&, double)>(&Coord3D::Rotate));
static_assert(Has<void(Matrix4&, Matrix4&) const>(&Coord3D::GetZUpTransform));
static_assert(Has<Coord3D(const Plane&) const>(&Coord3D::Project));

static_assert(Makes<Direction> && Makes<Direction, double, double, double>);
static_assert(Makes<Direction, const Coord3D&, const Coord3D&>);
static_assert(std::is_convertible_v<const Coord3D&, Direction>);
static_assert(Has<Direction&(const Direction&)>(&Direction::operator=));
static_assert(Has<void(double, double, double)>(&Direction::SetDirection));
static_assert(Has<double()>(&Direction::GetXDirection));
static_assert(Has<double()>(&Direction::GetYDirection));
static_assert(Has<double()>(&Direction::GetZDirection));
static_assert(Has<const Direction(double) const>(&Direction::operator*));
static_assert(Has<const Direction(const Direction&) const>(&Direction::operator+));
static_assert(Has<const Direction(const Direction&) const>(&Direction::operator-));
static_assert(Has<const Direction() const>(&Direction::operator-));
static_assert(Has<const Direction(double) const>(&Direction::operator/));
static_assert(Has<const Direction&(double)>(&Direction::operator*=));
static_assert(Has<const Direction&(const Direction&)>(&Direction::operator+=));
static_assert(Has<const Direction&(const Direction&)>(&Direction::operator-=));
static_assert(Has<const Direction&(double)>(&Direction::operator/=));
static_assert(Has<double(int)>(&Direction::operator[]));
static_assert(Has<double(const Direction&) const>(&Direction::Dot));
static_assert(Has<double(const Coord3D&) const>(&Direction::Dot));
static_assert(Has<Direction(const Direction&) const>(&Direction::Cross));
static_assert(Has<void()>(&Direction::Normalize));
static_assert(Has<void(Matrix4&, Matrix4&) const>(&Direction::GetZUpTransform));
static_assert(Has<void(double, double)>(&Direction::SetDirectionByBearingDegrees));

// Matrices and transformations.

static_assert(IsPlain<Matrix3>(9) && IsPlain<Matrix4>(16));
static_assert(std::is_same_v<decltype(Matrix3::Identity), const Matrix3>);
static_assert(std::is_same_v<decltype(Matrix4::Identity), const Matrix4>);
static_assert(std::is_empty_v<Matrix3::NonInvertableException> &&
              std::is_empty_v<Matrix4::NonInvertableException>);

static_assert(Makes<Matrix3> && Makes<Matrix3, const double*> && Makes<Matrix3, const Matrix4&>);
static_assert(Has<Matrix3&(const Matrix3&)>(&Matrix3::operator=));
static_assert(Has<void()>(&Matrix3::SetIdentity));
static_assert(Has<double*(int)>(&Matrix3::operator[]));
static_assert(Has<const double*(int) const>(&Matrix3::operator[]));
static_assert(std::is_convertible_v<Matrix3&, double*> &&
              std::is_convertible_v<const Matrix3&, const double*>);
static_assert(Has<Coord3D(int) const>(&Matrix3::GetColumn));
static_assert(Has<void(int, const Coord3D&)>(&Matrix3::SetColumn));
static_assert(Has<void(double*) const>(&Matrix3::AsCoefficients));
static_assert(Has<bool(const Matrix3&) const>(&Matrix3::operator==));
static_assert(Has<bool(const Matrix3&) const>(&Matrix3::operator!=));
static_assert(Has<bool() const>(&Matrix3::IsIdentity));
static_assert(Has<Matrix3(const Matrix3&) const>(&Matrix3::operator*));
static_assert(Has<Matrix3&(const Matrix3&)>(&Matrix3::operator*=));
static_assert(Has<Matrix3(double) const>(&Matrix3::operator*));
static_assert(Has<Matrix3&(double)>(&Matrix3::operator*=));
static_assert(Has<Matrix3(const Matrix3&) const>(&Matrix3::operator+));
static_assert(Has<Matrix3(const Matrix3&) const>(&Matrix3::operator-));
static_assert(Has<Matrix3&(const Matrix3&)>(&Matrix3::operator+=));
static_assert(Has<Matrix3&(const Matrix3&)>(&Matrix3::operator-=));
static_assert(Has<Coord3D(const Coord3D&) const>(&Matrix3::operator*));
static_assert(Has<Coord2D(const Coord2D&) const>(&Matrix3::operator*));
static_assert(Has<void(double)>(&Matrix3::Rotate));
static_assert(Has<void(double, double)>(&Matrix3::Translate));
static_assert(Has<void(const Coord2D&)>(&Matrix3::Translate));
static_assert(Has<void(double)>(&Matrix3::Scale));
static_assert(Has<void()>(&Matrix3::Transpose));
static_assert(Has<void(Matrix3&)>(&Matrix3::TransposeTo));
static_assert(Has<double(int, int) const>(&Matrix3::Cofactor));
static_assert(Has<double() const>(&Matrix3::Det));
static_assert(Has<Matrix3() const>(&Matrix3::Adjoint));
static_assert(Has<Matrix3() const>(&Matrix3::Inverse));
static_assert(Has<void()>(&Matrix3::Invert));

static_assert(Makes<Matrix4> && Makes<Matrix4, const double*> &&
              Makes<Matrix4, const double (&)[4][4]> && Makes<Matrix4, const Transformation3D&>);
static_assert(Has<Matrix4&(const Matrix4&)>(&Matrix4::operator=));
static_assert(Has<void(const double (&)[4][4])>(&Matrix4::Create));
static_assert(Has<void()>(&Matrix4::SetIdentity));
static_assert(Has<double*(int)>(&Matrix4::operator[]));
static_assert(Has<const double*(int) const>(&Matrix4::operator[]));
static_assert(std::is_convertible_v<Matrix4&, double*> &&
              std::is_convertible_v<const Matrix4&, const double*>);
static_assert(Has<Coord4D(int) const>(&Matrix4::GetColumn));
static_assert(Has<void(int, const Coord4D&)>(&Matrix4::SetColumn));
static_assert(Has<void(double*) const>(&Matrix4::AsCoefficients));
static_assert(Has<bool(const Matrix4&) const>(&Matrix4::operator==));
static_assert(Has<bool(const Matrix4&) const>(&Matrix4::operator!=));
static_assert(Has<bool() const>(&Matrix4::IsIdentity));
static_assert(Has<Matrix4(const Matrix4&) const>(&Matrix4::operator*));
static_assert(Has<Matrix4&(const Matrix4&)>(&Matrix4::operator*=));
static_assert(Has<Matrix4(double) const>(&Matrix4::operator*));
static_assert(Has<Matrix4&(double)>(&Matrix4::operator*=));
static_assert(Has<Matrix4(const Matrix4&) const>(&Matrix4::operator+));
static_assert(Has<Matrix4(const Matrix4&) const>(&Matrix4::operator-));
static_assert(Has<Matrix4&(const Matrix4&)>(&Matrix4::operator+=));
static_assert(Has<Matrix4&(const Matrix4&)>(&Matrix4::operator-=));
static_assert(Has<Coord3D(const Coord3D&) const>(&Matrix4::operator*));
static_assert(Has<Point3D(const Point3D&) const>(&Matrix4::operator*));
static_assert(Has<Plane(const Plane&) const>(&Matrix4::operator*));
static_assert(Has<void(double)>(&Matrix4::RotateX));
static_assert(Has<void(double)>(&Matrix4::RotateY));
static_assert(Has<void(double)>(&Matrix4::RotateZ));
static_assert(Has<void(double, double, double)>(&Matrix4::Rotate));
static_assert(Has<void(double, const Coord3D&)>(&Matrix4::Rotate));
static_assert(Has<void(double, double, double)>(&Matrix4::Scale));
static_assert(Has<void(double)>(&Matrix4::Scale));
static_assert(Has<void(double, double, double)>(&Matrix4::Translate));
static_assert(Has<void(const Coord3D&)>(&Matrix4::Translate));
static_assert(Has<void()>(&Matrix4::Transpose));
static_assert(Has<void(Matrix4&) const>(&Matrix4::TransposeTo));
static_assert(Has<double(int, int) const>(&Matrix4::Cofactor));
static_assert(Has<double() const>(&Matrix4::Det));
static_assert(Has<Matrix4() const>(&Matrix4::Adjoint));
static_assert(Has<Matrix4() const>(&Matrix4::Inverse));
static_assert(Has<void()>(&Matrix4::Invert));
static_assert(Has<void() const>(&Matrix4::ToString));

static_assert(std::is_abstract_v<Transformation> && std::has_virtual_destructor_v<Transformation> &&
              sizeof(Transformation) == sizeof(void*));
static_assert(std::is_base_of_v<Transformation, Transformation3D> &&
              std::is_polymorphic_v<Transformation3D>);
static_assert(Makes<Transformation3D> && Makes<Transformation3D, double*>);
static_assert(Has<Coord3D(const Coord3D&) const>(&Transformation::transform));
static_assert(Has<Coord3D(const Coord3D&) const>(&Transformation::inverse_transform));
static_assert(Has<Coord3D(const Coord3D&) const>(&Transformation3D::transform));
static_assert(Has<Coord3D(const Coord3D&) const>(&Transformation3D::inverse_transform));
static_assert(Has<void(double*) const>(&Transformation3D::AsCoefficients));

// Boxes.

static_assert(IsPlain<Extent>(6) && IsPlain<Bounds3D>(6) && IsPlain<Extent_type_s>(7));
static_assert(IsPlain<Extent2D>(4) && IsPlain<Bounds2D>(4));
static_assert(offsetof(Extent, min) == 0 && offsetof(Extent, max) == 3 * kDouble);
static_assert(offsetof(Bounds3D, min) == 0 && offsetof(Bounds3D, max) == 3 * kDouble);
static_assert(offsetof(Extent2D, max) == 2 * kDouble && offsetof(Bounds2D, max) == 2 * kDouble);

static_assert(Makes<Extent> && Makes<Extent, const Coord3D&> &&
              Makes<Extent, const Coord3D&, const Coord3D&> &&
              Makes<Extent, const Coord3D&, const Coord3D&, const Coord3D&> &&
              Makes<Extent, double, double, double, double, double, double> &&
              Makes<Extent, const Bounds3D&> && Makes<Extent, const Extent_type_s&>);
static_assert(Has<Extent&(const Extent&)>(&Extent::operator=));
static_assert(Has<bool(const Extent&) const>(&Extent::operator==));
static_assert(Has<bool(const Extent&) const>(&Extent::operator!=));
static_assert(Has<void()>(&Extent::SetEmpty));
static_assert(Has<bool() const>(&Extent::IsValid));
static_assert(Has<void(const Coord3D&)>(&Extent::AddPoint));
static_assert(Has<void(const Extent&)>(&Extent::Union));
static_assert(Has<bool(const Extent&, Extent&) const>(&Extent::GetIntersection));
static_assert(Has<bool(const Extent&) const>(&Extent::Hit));
static_assert(Has<bool(const Extent&) const>(&Extent::IsOverlapping));
static_assert(Has<bool(const Extent&) const>(&Extent::IsCoveredBy));
static_assert(Has<bool(const Extent&) const>(&Extent::IsInside));
static_assert(Has<bool(const Coord3D&) const>(&Extent::IsInside));
static_assert(Has<Coord3D() const>(&Extent::Sides));
static_assert(Has<Coord3D() const>(&Extent::Centroid));
static_assert(Has<double() const>(&Extent::GetVolume));
static_assert(Has<void(double)>(&Extent::Expand));
static_assert(Has<void(double)>(&Extent::ExpandKeepingAspect));
static_assert(Has<double(const Coord3D&) const>(&Extent::Distance));
static_assert(Has<double(const Segment&) const>(&Extent::Distance));
static_assert(Has<std::vector<Coord3D>() const>(&Extent::GetCornerPoints));
static_assert(Has<std::vector<Extent>() const>(&Extent::GetOctants));
static_assert(Has<void(Polyline3D&, Polyline3D&)>(&Extent::GetTopBottomPolygons));
static_assert(
    std::is_same_v<decltype(&::FindPointsExtent), Extent (*)(const std::vector<Point3D>&)>);

static_assert(Makes<Extent2D> && Makes<Extent2D, double, double, double, double> &&
              Makes<Extent2D, const Coord2D&> && Makes<Extent2D, const Coord2D&, const Coord2D&> &&
              Makes<Extent2D, const Bounds2D&> && Makes<Extent2D, const Extent&> &&
              Makes<Extent2D, const Extent_type_s&>);
static_assert(Has<Extent2D&(const Extent2D&)>(&Extent2D::operator=));
static_assert(Has<Extent2D&(const Bounds2D&)>(&Extent2D::operator=));
static_assert(Has<Extent2D&(const Extent&)>(&Extent2D::operator=));
static_assert(Has<Extent2D&(const Extent_type_s&)>(&Extent2D::operator=));
static_assert(Has<void()>(&Extent2D::SetEmpty));
static_assert(Has<bool() const>(&Extent2D::IsValid));
static_assert(Has<void(const Coord2D&)>(&Extent2D::AddPoint));
static_assert(Has<bool(const Extent2D&, Extent2D&) const>(&Extent2D::GetIntersection));
static_assert(Has<bool(const Extent2D&) const>(&Extent2D::Hit));
static_assert(Has<bool(const Extent2D&) const>(&Extent2D::IsOverlapping));
static_assert(Has<bool(const Extent2D&) const>(&Extent2D::IsCoveredBy));
static_assert(Has<bool(const Extent2D&) const>(&Extent2D::IsInside));
static_assert(Has<bool(double, double) const>(&Extent2D::IsInside));
static_assert(Has<bool(const Coord2D&) const>(&Extent2D::IsInside));
static_assert(Has<Coord2D() const>(&Extent2D::Sides));
static_assert(Has<Coord2D() const>(&Extent2D::Centroid));
static_assert(Has<double(bool) const>(&Extent2D::GetArea));
static_assert(Has<void(double)>(&Extent2D::Expand));
static_assert(Has<std::vector<Coord2D>() const>(&Extent2D::GetCornerPoints));

// Planes, linear primitives, triangles, ellipsoids and circles.

static_assert(std::is_standard_layout_v<Plane> && sizeof(Plane) == 4 * kDouble);
static_assert(offsetof(Plane, b) == kDouble && offsetof(Plane, c) == 2 * kDouble &&
              offsetof(Plane, d) == 3 * kDouble);
static_assert(Makes<Plane> && Makes<Plane, double, double, double, double> &&
              Makes<Plane, const Plane&> && Makes<Plane, const Direction&, double> &&
              Makes<Plane, const Direction&, const Coord3D&> &&
              Makes<Plane, const Direction&, const Point3D&> &&
              Makes<Plane, const Coord3D&, const Coord3D&, const Coord3D&> &&
              Makes<Plane, const Coord3D*> && Makes<Plane, const Triangle&> &&
              Makes<Plane, const Coord3D&, const Coord3D&, double> &&
              Makes<Plane, const Coord3D&, double, double>);
static_assert(Has<Plane&(const Plane&)>(&Plane::operator=));
static_assert(Has<double(const Coord3D&, bool) const>(&Plane::Distance));
static_assert(Has<double(const Coord3D&) const>(&Plane::Orientation));
static_assert(Has<Coord3D() const>(&Plane::Normal));
static_assert(Has<int()>(&Plane::Normalize));
static_assert(Has<void(double)>(&Plane::Move));
static_assert(Has<void()>(&Plane::Reverse));
static_assert(Has<bool(const Plane&, Direction&, Point3D&) const>(&Plane::Intersect));
static_assert(Has<void(Matrix4&, Matrix4&) const>(&Plane::GetZUpTransform));

static_assert(IsPlain<Segment>(6) && IsPlain<Ray>(6) && IsPlain<Intersection>(4));
static_assert(offsetof(Segment, end) == 3 * kDouble && offsetof(Ray, direction) == 3 * kDouble &&
              offsetof(Intersection, parameter) == 3 * kDouble);
static_assert(Makes<Segment> && Makes<Segment, const Coord3D&, const Coord3D&> &&
              Makes<Segment, const Point3D&, const Point3D&>);
static_assert(Has<double() const>(&Segment::Length));
static_assert(Has<double(const Segment&)>(&Segment::AngleBetween));
static_assert(Has<void(const Coord3D&, double&, double&)>(&Segment::DistanceAlong));
static_assert(Has<Coord3D(const Coord3D&)>(&Segment::ProjectPoint));
static_assert(Has<Coord3D(const Coord3D&, double&)>(&Segment::GetNearestPoint));
static_assert(Has<Coord3D(const Segment&, double&)>(&Segment::GetNearestPoint));
static_assert(Has<double(const Coord3D&)>(&Segment::Distance));
static_assert(Has<double(const Segment&)>(&Segment::Distance));
static_assert(Makes<Ray> && Makes<Ray, const Coord3D&, const Coord3D&> &&
              Makes<Ray, const Coord3D&, const Direction&>);
static_assert(Makes<Intersection> && Makes<Intersection, const Coord3D&, double> &&
              Makes<Intersection, double, double, double, double>);

static_assert(IsPlain<Triangle>(9) && offsetof(Triangle, p1) == 3 * kDouble &&
              offsetof(Triangle, p2) == 6 * kDouble);
static_assert(std::is_same_v<decltype(Triangle::p0), Point3D>);
static_assert(Has<Bounds3D() const>(&Triangle::GetExtent));
static_assert(Has<Coord3D(const Coord3D&, double&)>(&Triangle::GetNearestPoint));
static_assert(Has<Coord3D(const Segment&, double&)>(&Triangle::GetNearestPoint));
static_assert(Has<double(const Coord3D&)>(&Triangle::Distance));
static_assert(Has<double(const Segment&)>(&Triangle::Distance));
static_assert(Has<bool(const Segment&)>(&Triangle::Intersect));
static_assert(Has<bool(const Triangle&)>(&Triangle::IsTouching));

static_assert(IsPlain<Ellipsoid>(18) && offsetof(Ellipsoid, ratios) == 3 * kDouble &&
              offsetof(Ellipsoid, angles) == 6 * kDouble &&
              offsetof(Ellipsoid, matrix) == 9 * kDouble);
static_assert(Makes<Ellipsoid> && Makes<Ellipsoid, const Coord3D&, const Coord3D&>);

static_assert(IsPlain<EncCircle>(3) && offsetof(EncCircle, y) == kDouble &&
              offsetof(EncCircle, radius) == 2 * kDouble);
static_assert(IsFree<EncCircle(const std::vector<Point3D>&)>(&SmallestEnclosingCircle));
static_assert(IsFree<EncCircle(const Polyline3D&)>(&SmallestEnclosingCircle));
static_assert(IsFree<EncCircle(unsigned int, double*, double*, double*)>(&SmallestEnclosingCircle));
static_assert(IsFree<EncCircle(unsigned int, const Point3D*)>(&SmallestEnclosingCircle));

// Polylines.

static_assert(!std::is_polymorphic_v<Polyline3D>);
static_assert(Makes<Polyline3D> && Makes<Polyline3D, const std::vector<Point3D>&> &&
              Makes<Polyline3D, unsigned int, double*, double*, double*> &&
              Makes<Polyline3D, unsigned int, const Point3D*>);
static_assert(Has<Polyline3D&(const Polyline3D&)>(&Polyline3D::operator=));
static_assert(Has<void(Polyline3D&)>(&Polyline3D::Swap));
static_assert(Has<bool(const Polyline3D&) const>(&Polyline3D::operator==));
static_assert(Has<bool(const Polyline3D&) const>(&Polyline3D::operator!=));
static_assert(Has<unsigned int() const>(&Polyline3D::Size));
static_assert(Has<Point3D&(unsigned int)>(&Polyline3D::operator[]));
static_assert(Has<const Point3D&(unsigned int) const>(&Polyline3D::operator[]));
static_assert(Has<std::vector<Point3D>&()>(&Polyline3D::GetPointVector));
static_assert(Has<const std::vector<Point3D>&() const>(&Polyline3D::GetPointVector));
static_assert(Has<void(const double&, const double&, const double&)>(&Polyline3D::Add));
static_assert(Has<void(const Point3D&)>(&Polyline3D::Add));
static_assert(Has<void()>(&Polyline3D::Clear));
static_assert(Has<void(unsigned int)>(&Polyline3D::Resize));
static_assert(Has<void()>(&Polyline3D::Reverse));
static_assert(Has<void(const double&, const int&)>(&Polyline3D::Set));
static_assert(Has<void(const Point3D&)>(&Polyline3D::Translate));
static_assert(Has<void(CoordinateType, std::vector<double>&) const>(&Polyline3D::GetAsArray));
static_assert(Has<const Point3D() const>(&Polyline3D::GetCenterPoint));
static_assert(Has<bool() const>(&Polyline3D::IsClosed));
static_assert(Has<void(bool)>(&Polyline3D::SetClosed));
static_assert(Has<int()>(&Polyline3D::GetColour));
static_assert(Has<int() const>(&Polyline3D::GetColour));
static_assert(Has<void(const int&)>(&Polyline3D::SetColour));
static_assert(Has<std::string()>(&Polyline3D::GetName));
static_assert(Has<const std::string&() const>(&Polyline3D::GetName));
static_assert(Has<void(const std::string&)>(&Polyline3D::SetName));
static_assert(Has<int()>(&Polyline3D::GetNameAsInt));
static_assert(Has<int() const>(&Polyline3D::GetNameAsInt));
static_assert(Has<void(const int&)>(&Polyline3D::SetNameAsInt));
static_assert(Has<std::string() const>(&Polyline3D::PrintDebug));
static_assert(Has<void(Direction&) const>(&Polyline3D::GetPolygonNormal));
static_assert(Has<void(std::vector<Point3D>&, std::vector<Point3D>&, const double&)>(
    &Polyline3D::GetPointNormals));
static_assert(Has<bool() const>(&Polyline3D::IsClockwise));
static_assert(Has<bool(const Point3D&, bool, double) const>(&Polyline3D::IsPointOnEdge));
static_assert(Has<bool(const Point3D&) const>(&Polyline3D::IsPointInside));
static_assert(
    Has<bool(const double&, const double&, const double&) const>(&Polyline3D::IsPointInside));

// The voxel index.

static_assert(std::is_same_v<zyl::geometry::int64, std::int64_t>);
static_assert(std::is_trivially_copyable_v<Voxelation::Location> &&
              sizeof(Voxelation::Location) == 3 * sizeof(int) &&
              offsetof(Voxelation::Location, k) == 2 * sizeof(int));
static_assert(!std::is_polymorphic_v<Voxelation> && std::is_copy_constructible_v<Voxelation> &&
              std::is_nothrow_move_constructible_v<Voxelation> &&
              std::is_nothrow_move_assignable_v<Voxelation>);
static_assert(Makes<Voxelation> && Makes<Voxelation, const Bounds3D&, int, int, int> &&
              Makes<Voxelation, const Coord3D&, const Coord3D&, int, int, int>);
static_assert(Has<Voxelation&(const Voxelation&)>(&Voxelation::operator=));
static_assert(Has<bool(const Coord3D&, const Coord3D&, int, int, int)>(&Voxelation::Initialise));
static_assert(Has<bool(const Bounds3D&, int, int, int)>(&Voxelation::Initialise));
static_assert(Has<bool(double, double, double, Voxelation::Location&) const>(&Voxelation::Locate));
static_assert(Has<bool(const Coord3D&, Voxelation::Location&) const>(&Voxelation::Locate));
static_assert(Has<bool(int*) const>(&Voxelation::GetDimensions));
static_assert(Has<bool(const Voxelation::Location&, Extent&)>(&Voxelation::GetVoxelExtent));
static_assert(Has<bool(const Coord3D&, int64)>(&Voxelation::AddPoint));
static_assert(Has<bool(const Extent&, int64)>(&Voxelation::AddExtent));
static_assert(
    Has<bool(const Coord3D&, const Coord3D&, const Coord3D&, int64)>(&Voxelation::AddTriangle));
static_assert(Has<bool(Coord3D*, int64)>(&Voxelation::AddTriangle));
static_assert(Has<bool()>(&Voxelation::Clear));
static_assert(Has<bool(std::set<int64>&, int, int, int) const>(&Voxelation::CollectIDsAt));
static_assert(Has<bool(std::set<int64>&, Voxelation::Location&) const>(&Voxelation::CollectIDsAt));
static_assert(Has<bool(std::set<int64>&, const Coord3D&, double, double, double) const>(
    &Voxelation::CollectIDsNear));
static_assert(Has<bool(std::set<int64>&, const Extent&) const>(&Voxelation::CollectIDsIn));

// Predicates and intersection tests.

static_assert(ORIENT_UNDEFINED == 0 && ORIENT_BELOW == 1 && ORIENT_ABOVE == 2 &&
              ORIENT_COPLANAR == 3 && ORIENT_CLOCKWISE == 4 && ORIENT_COUNTERCLOCKWISE == 5 &&
              ORIENT_COLLINEAR == 6 && ORIENT_ON == 7 && ORIENT_INSIDE == 8 &&
              ORIENT_OUTSIDE == 9 && ORIENT_ON_EDGE == 10 && ORIENT_ON_VERTEX == 11);
static_assert(INTERSECT2D_UNDEFINED == 0 && INTERSECT2D_NONE == 1 && INTERSECT2D_CROSSING == 2 &&
              INTERSECT2D_FIRST_ON_SECOND == 3 && INTERSECT2D_SECOND_ON_FIRST == 4 &&
              INTERSECT2D_FIRST_START == 5 && INTERSECT2D_FIRST_END == 6 &&
              INTERSECT2D_SECOND_START == 7 && INTERSECT2D_SECOND_END == 8 &&
              INTERSECT2D_SHARED_FIRST_START == 9 && INTERSECT2D_SHARED_FIRST_END == 10 &&
              INTERSECT2D_OVERLAP == 11);

using Point = const Coord3D&;
static_assert(IsFree<void()>(&geom_Init));
static_assert(IsFree<Orientation_e(Point, Point, Point, double)>(&geom_Orient2D));
static_assert(IsFree<Orientation_e(Point, Point, Point, Point)>(&geom_Orient3D));
static_assert(IsFree<Orientation_e(Point, Point, Point, Point)>(&geom_InCircle));
static_assert(IsFree<Orientation_e(Point, Point, Point, Point, Point, bool)>(&geom_InSphere));
static_assert(IsFree<Intersection2D_e(Point, Point, Point, Point, Intersection&, double)>(
    &geom_EdgeIntersectEdge2D));
static_assert(
    IsFree<Orientation_e(Point, const Plane&, Point, Point, Point)>(&geom_PointInside3Points));
static_assert(IsFree<Orientation_e(Point, Point, Point, Point)>(&geom_PointInside3Points));
static_assert(IsFree<Orientation_e(Point, const Plane&, const Coord3D*)>(&geom_PointInside3Points));
static_assert(IsFree<Orientation_e(Point, const Coord3D*)>(&geom_PointInside3Points));
static_assert(IsFree<int(const Ray&, const Plane&, Intersection&)>(&geom_RayHitPlane));
static_assert(IsFree<int(const Ray&, Point, Point, Point, Intersection&)>(&geom_RayHitPlane));
static_assert(IsFree<int(const Ray&, const Coord3D*, Intersection&)>(&geom_RayHitPlane));
static_assert(IsFree<int(const Segment&, const Plane&, Intersection&)>(&geom_SegmentHitPlane));
static_assert(IsFree<void(Point, const Plane&, Coord3D&)>(&geom_TransformTo2D));
static_assert(IsFree<void(const Plane&, Coord3D&)>(&geom_TransformTo2D));

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
