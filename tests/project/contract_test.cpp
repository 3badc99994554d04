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

// Whether all these are member functions of exactly this type, const qualifier included.
template <class Signature, class Class>
using Member = Signature Class::*;
template <class Signature, class... Classes>
constexpr bool Has(Member<Signature, Classes>...) {
  return true;
}

// The same for free and static functions.
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

using C2 = const Coord2D&;
using C3 = const Coord3D&;
using P3 = const Point3D&;
using D3 = const Direction&;

// Vector types.

static_assert(IsPlain<Coord2D>(2) && IsPlain<Coord3D>(3) && IsPlain<Coord4D>(4) &&
              IsPlain<Point3D>(3) && IsPlain<Direction>(3));
static_assert(offsetof(Coord3D, y) == kDouble && offsetof(Coord3D, z) == 2 * kDouble &&
              offsetof(Point3D, y) == kDouble && offsetof(Point3D, z) == 2 * kDouble &&
              offsetof(Direction, y) == kDouble && offsetof(Direction, z) == 2 * kDouble &&
              offsetof(Coord4D, z) == 2 * kDouble && offsetof(Coord4D, w) == 3 * kDouble);
static_assert(!std::is_same_v<Coord3D, Point3D> && !std::is_base_of_v<Coord3D, Direction>);

static_assert([] {
  using T = Coord3D;
  return Makes<T> && Makes<T, double, double, double> && Makes<T, double*> &&
         std::is_convertible_v<P3, Coord3D> && Has<Coord3D&(C3)>(&T::operator=) &&
         Has<const Coord3D&(double)>(&T::operator=, &T::operator*=) &&
         Has<const Coord3D(C3) const>(&T::operator*, &T::operator+, &T::operator-) &&
         Has<const Coord3D(double) const>(&T::operator*) &&
         Has<const Coord3D() const>(&T::operator-) &&
         Has<const Coord3D&(C3)>(&T::operator+=, &T::operator-=) &&
         Has<bool(C3) const>(&T::operator==, &T::operator!=, &T::operator<) &&
         Has<double&(int)>(&T::operator[]) && Has<double(int) const>(&T::operator[]) &&
         Has<double(C3) const>(&T::Dot, &T::Distance, &T::SquaredDistance, &T::Angle) &&
         Has<double() const>(&T::Magnitude, &T::MagnitudeSquared) &&
         Has<double(C3, const Matrix3&)>(&T::SquaredDistance) &&
         IsFree<bool(C3, C3, double)>(&T::Parallel) && Has<Coord3D(C3) const>(&T::Cross) &&
         Has<Coord3D(C3)>(&T::maximum, &T::minimum) && Has<Coord3D(C3, C3, double)>(&T::Rotate) &&
         Has<Coord3D(const Plane&) const>(&T::Project);
}());

static_assert([] {
  using T = Direction;
  return Makes<T> && Makes<T, double, double, double> && Makes<T, C3, C3> &&
         std::is_convertible_v<C3, Direction> && Has<Direction&(D3)>(&T::operator=) &&
         Has<double()>(&T::GetXDirection, &T::GetYDirection, &T::GetZDirection) &&
         Has<const Direction(double) const>(&T::operator*, &T::operator/) &&
         Has<const Direction(D3) const>(&T::operator+, &T::operator-) &&
         Has<const Direction() const>(&T::operator-) &&
         Has<const Direction&(double)>(&T::operator*=, &T::operator/=) &&
         Has<const Direction&(D3)>(&T::operator+=, &T::operator-=) &&
         Has<double(int)>(&T::operator[]) && Has<double(D3) const>(&T::Dot) &&
         Has<double(C3) const>(&T::Dot) && Has<Direction(D3) const>(&T::Cross) &&
         Has<void()>(&T::Normalize, &Coord3D::Normalise) &&
         Has<void(double, double, double)>(&T::SetDirection) &&
         Has<void(double, double)>(&T::SetDirectionByBearingDegrees) &&
         Has<void(Matrix4&, Matrix4&) const>(&Coord3D::GetZUpTransform, &T::GetZUpTransform,
                                             &Plane::GetZUpTransform);
}());

// Matrices and transformations.

template <class M, int N, class Column>
constexpr bool IsMatrix() {
  return Has<Column(int) const>(&M::GetColumn) && Has<void(int, const Column&)>(&M::SetColumn) &&
         IsPlain<M>(N * N) && std::is_same_v<decltype(M::Identity), const M> &&
         std::is_empty_v<typename M::NonInvertableException> && Makes<M> &&
         Makes<M, const double*> && std::is_convertible_v<M&, double*> &&
         std::is_convertible_v<const M&, const double*> &&
         Has<M&(const M&)>(&M::operator=, &M::operator*=, &M::operator+=, &M::operator-=) &&
         Has<M(const M&) const>(&M::operator*, &M::operator+, &M::operator-) &&
         Has<M&(double)>(&M::operator*=) && Has<M(double) const>(&M::operator*) &&
         Has<bool(const M&) const>(&M::operator==, &M::operator!=) &&
         Has<double*(int)>(&M::operator[]) && Has<const double*(int) const>(&M::operator[]) &&
         Has<Coord3D(C3) const>(&M::operator*) &&
         Has<void()>(&M::SetIdentity, &M::Transpose, &M::Invert) && Has<void(double)>(&M::Scale) &&
         Has<void(double*) const>(&M::AsCoefficients) && Has<bool() const>(&M::IsIdentity) &&
         Has<double(int, int) const>(&M::Cofactor) && Has<double() const>(&M::Det) &&
         Has<M() const>(&M::Adjoint, &M::Inverse);
}
static_assert(IsMatrix<Matrix3, 3, Coord3D>() && IsMatrix<Matrix4, 4, Coord4D>());

static_assert([] {
  using T = Matrix3;
  return Makes<T, const Matrix4&> && Has<Coord2D(C2) const>(&T::operator*) &&
         Has<void(double)>(&T::Rotate) && Has<void(double, double)>(&T::Translate) &&
         Has<void(C2)>(&T::Translate) && Has<void(Matrix3&)>(&T::TransposeTo);
}());

static_assert([] {
  using T = Matrix4;
  return Makes<T, const double(&)[4][4]> && Makes<T, const Transformation3D&> &&
         Has<void(const double(&)[4][4])>(&T::Create) && Has<Point3D(P3) const>(&T::operator*) &&
         Has<Plane(const Plane&) const>(&T::operator*) &&
         Has<void(double)>(&T::RotateX, &T::RotateY, &T::RotateZ) &&
         Has<void(double, double, double)>(&T::Rotate, &T::Scale, &T::Translate) &&
         Has<void(double, C3)>(&T::Rotate) && Has<void(C3)>(&T::Translate) &&
         Has<void(Matrix4&) const>(&T::TransposeTo) && Has<void() const>(&T::ToString);
}());

static_assert(std::is_abstract_v<Transformation> && std::has_virtual_destructor_v<Transformation> &&
              sizeof(Transformation) == sizeof(void*));
static_assert(std::is_base_of_v<Transformation, Transformation3D> &&
              std::is_polymorphic_v<Transformation3D>);
static_assert(Makes<Transformation3D> && Makes<Transformation3D, double*>);
static_assert(Has<Coord3D(C3) const>(&Transformation::transform, &Transformation::inverse_transform,
                                     &Transformation3D::transform,
                                     &Transformation3D::inverse_transform));
static_assert(Has<void(double*) const>(&Transformation3D::AsCoefficients));

// Boxes.

template <class Box, class Corner, class Bounds>
constexpr bool IsBox() {
  return std::is_same_v<decltype(Box::min), Corner> &&
         std::is_same_v<decltype(Bounds::max), Corner> && Makes<Box> && Makes<Box, const Corner&> &&
         Makes<Box, const Corner&, const Corner&> && Makes<Box, const Bounds&> &&
         Makes<Box, const Extent_type_s&> && Has<Box&(const Box&)>(&Box::operator=) &&
         Has<void()>(&Box::SetEmpty) && Has<bool() const>(&Box::IsValid) &&
         Has<void(const Corner&)>(&Box::AddPoint) &&
         Has<bool(const Box&, Box&) const>(&Box::GetIntersection) &&
         Has<bool(const Box&) const>(&Box::Hit, &Box::IsOverlapping, &Box::IsCoveredBy,
                                     &Box::IsInside) &&
         Has<bool(const Corner&) const>(&Box::IsInside) &&
         Has<Corner() const>(&Box::Sides, &Box::Centroid) && Has<void(double)>(&Box::Expand) &&
         Has<std::vector<Corner>() const>(&Box::GetCornerPoints);
}
static_assert(IsBox<Extent, Coord3D, Bounds3D>() && IsBox<Extent2D, Coord2D, Bounds2D>());
static_assert(IsPlain<Extent>(6) && IsPlain<Bounds3D>(6) && IsPlain<Extent_type_s>(7) &&
              IsPlain<Extent2D>(4) && IsPlain<Bounds2D>(4));
static_assert(offsetof(Extent, max) == 3 * kDouble && offsetof(Bounds3D, max) == 3 * kDouble &&
              offsetof(Extent2D, max) == 2 * kDouble && offsetof(Bounds2D, max) == 2 * kDouble);

static_assert([] {
  using T = Extent;
  return Makes<T, C3, C3, C3> && Makes<T, double, double, double, double, double, double> &&
         Has<bool(const Extent&) const>(&T::operator==, &T::operator!=) &&
         Has<void(const Extent&)>(&T::Union) && Has<double() const>(&T::GetVolume) &&
         Has<void(double)>(&T::ExpandKeepingAspect) && Has<double(C3) const>(&T::Distance) &&
         Has<double(const Segment&) const>(&T::Distance) &&
         Has<std::vector<Extent>() const>(&T::GetOctants) &&
         Has<void(Polyline3D&, Polyline3D&)>(&T::GetTopBottomPolygons) &&
         IsFree<Extent(const std::vector<Point3D>&)>(&::FindPointsExtent);
}());

static_assert([] {
  using T = Extent2D;
  return Makes<T, double, double, double, double> && Makes<T, const Extent&> &&
         Has<Extent2D&(const Bounds2D&)>(&T::operator=) &&
         Has<Extent2D&(const Extent&)>(&T::operator=) &&
         Has<Extent2D&(const Extent_type_s&)>(&T::operator=) &&
         Has<bool(double, double) const>(&T::IsInside) && Has<double(bool) const>(&T::GetArea);
}());

// Planes, linear primitives, triangles, ellipsoids and circles.

static_assert(std::is_standard_layout_v<Plane> && sizeof(Plane) == 4 * kDouble &&
              offsetof(Plane, b) == kDouble && offsetof(Plane, c) == 2 * kDouble &&
              offsetof(Plane, d) == 3 * kDouble);
static_assert([] {
  using T = Plane;
  return Makes<T> && Makes<T, double, double, double, double> && Makes<T, const Plane&> &&
         Makes<T, D3, double> && Makes<T, D3, C3> && Makes<T, D3, P3> && Makes<T, C3, C3, C3> &&
         Makes<T, const Coord3D*> && Makes<T, const Triangle&> && Makes<T, C3, C3, double> &&
         Makes<T, C3, double, double> && Has<Plane&(const Plane&)>(&T::operator=) &&
         Has<double(C3, bool) const>(&T::Distance) && Has<double(C3) const>(&T::Orientation) &&
         Has<Coord3D() const>(&T::Normal) && Has<int()>(&T::Normalize) &&
         Has<void(double)>(&T::Move) && Has<void()>(&T::Reverse) &&
         Has<bool(const Plane&, Direction&, Point3D&) const>(&T::Intersect);
}());

static_assert(IsPlain<Segment>(6) && IsPlain<Ray>(6) && IsPlain<Intersection>(4));
static_assert(offsetof(Segment, end) == 3 * kDouble && offsetof(Ray, direction) == 3 * kDouble &&
              offsetof(Intersection, parameter) == 3 * kDouble);
static_assert(Makes<Segment> && Makes<Segment, C3, C3> && Makes<Segment, P3, P3>);
static_assert(Makes<Ray> && Makes<Ray, C3, C3> && Makes<Ray, C3, D3>);
static_assert(Makes<Intersection> && Makes<Intersection, C3, double> &&
              Makes<Intersection, double, double, double, double>);
static_assert(Has<double() const>(&Segment::Length) &&
              Has<double(const Segment&)>(&Segment::AngleBetween));
static_assert(Has<void(C3, double&, double&)>(&Segment::DistanceAlong) &&
              Has<Coord3D(C3)>(&Segment::ProjectPoint));

static_assert(IsPlain<Triangle>(9) && offsetof(Triangle, p1) == 3 * kDouble &&
              offsetof(Triangle, p2) == 6 * kDouble &&
              std::is_same_v<decltype(Triangle::p0), Point3D>);
static_assert(Has<Bounds3D() const>(&Triangle::GetExtent));
static_assert(Has<bool(const Segment&)>(&Triangle::Intersect) &&
              Has<bool(const Triangle&)>(&Triangle::IsTouching));
static_assert(Has<Coord3D(C3, double&)>(&Segment::GetNearestPoint, &Triangle::GetNearestPoint));
static_assert(Has<Coord3D(const Segment&, double&)>(&Segment::GetNearestPoint,
                                                    &Triangle::GetNearestPoint));
static_assert(Has<double(C3)>(&Segment::Distance, &Triangle::Distance));
static_assert(Has<double(const Segment&)>(&Segment::Distance, &Triangle::Distance));

static_assert(IsPlain<Ellipsoid>(18) && offsetof(Ellipsoid, ratios) == 3 * kDouble &&
              offsetof(Ellipsoid, angles) == 6 * kDouble &&
              offsetof(Ellipsoid, matrix) == 9 * kDouble);
static_assert(Makes<Ellipsoid> && Makes<Ellipsoid, C3, C3>);

static_assert(IsPlain<EncCircle>(3) && offsetof(EncCircle, y) == kDouble &&
              offsetof(EncCircle, radius) == 2 * kDouble);
static_assert(IsFree<EncCircle(const std::vector<Point3D>&)>(&SmallestEnclosingCircle));
static_assert(IsFree<EncCircle(const Polyline3D&)>(&SmallestEnclosingCircle));
static_assert(IsFree<EncCircle(unsigned int, double*, double*, double*)>(&SmallestEnclosingCircle));
static_assert(IsFree<EncCircle(unsigned int, const Point3D*)>(&SmallestEnclosingCircle));

// Polylines.

using Count = unsigned int;
static_assert([] {
  using T = Polyline3D;
  return !std::is_polymorphic_v<Polyline3D> && Makes<T> && Makes<T, const std::vector<Point3D>&> &&
         Makes<T, Count, double*, double*, double*> && Makes<T, Count, const Point3D*> &&
         Has<Polyline3D&(const Polyline3D&)>(&T::operator=) && Has<void(Polyline3D&)>(&T::Swap) &&
         Has<bool(const Polyline3D&) const>(&T::operator==, &T::operator!=) &&
         Has<Count() const>(&T::Size) && Has<void(Count)>(&T::Resize) &&
         Has<Point3D&(Count)>(&T::operator[]) && Has<const Point3D&(Count) const>(&T::operator[]) &&
         Has<std::vector<Point3D>&()>(&T::GetPointVector) &&
         Has<const std::vector<Point3D>&() const>(&T::GetPointVector) &&
         Has<void(const double&, const double&, const double&)>(&T::Add) &&
         Has<void(P3)>(&T::Add, &T::Translate) && Has<void()>(&T::Clear, &T::Reverse) &&
         Has<void(const double&, const int&)>(&T::Set) &&
         Has<void(CoordinateType, std::vector<double>&) const>(&T::GetAsArray) &&
         Has<const Point3D() const>(&T::GetCenterPoint) &&
         Has<bool() const>(&T::IsClosed, &T::IsClockwise) && Has<void(bool)>(&T::SetClosed) &&
         Has<int()>(&T::GetColour, &T::GetNameAsInt) &&
         Has<int() const>(&T::GetColour, &T::GetNameAsInt) &&
         Has<void(const int&)>(&T::SetColour, &T::SetNameAsInt) &&
         Has<std::string()>(&T::GetName) && Has<const std::string&() const>(&T::GetName) &&
         Has<void(const std::string&)>(&T::SetName) && Has<std::string() const>(&T::PrintDebug) &&
         Has<void(Direction&) const>(&T::GetPolygonNormal) &&
         Has<void(std::vector<Point3D>&, std::vector<Point3D>&, const double&)>(
             &T::GetPointNormals) &&
         Has<bool(P3, bool, double) const>(&T::IsPointOnEdge) &&
         Has<bool(P3) const>(&T::IsPointInside) &&
         Has<bool(const double&, const double&, const double&) const>(&T::IsPointInside);
}());

// The voxel index.

using Location = Voxelation::Location;
static_assert(std::is_same_v<zyl::geometry::int64, std::int64_t>);
static_assert(std::is_trivially_copyable_v<Location> && sizeof(Location) == 3 * sizeof(int) &&
              offsetof(Location, k) == 2 * sizeof(int));
static_assert([] {
  using T = Voxelation;
  return !std::is_polymorphic_v<Voxelation> && std::is_copy_constructible_v<Voxelation> &&
         std::is_nothrow_move_constructible_v<Voxelation> &&
         std::is_nothrow_move_assignable_v<Voxelation> && Makes<T> &&
         Makes<T, const Bounds3D&, int, int, int> && Makes<T, C3, C3, int, int, int> &&
         Has<Voxelation&(const Voxelation&)>(&T::operator=) &&
         Has<bool(C3, C3, int, int, int)>(&T::Initialise) &&
         Has<bool(const Bounds3D&, int, int, int)>(&T::Initialise) &&
         Has<bool(double, double, double, Location&) const>(&T::Locate) &&
         Has<bool(C3, Location&) const>(&T::Locate) && Has<bool(int*) const>(&T::GetDimensions) &&
         Has<bool(const Location&, Extent&)>(&T::GetVoxelExtent) &&
         Has<bool(C3, int64)>(&T::AddPoint) && Has<bool(const Extent&, int64)>(&T::AddExtent) &&
         Has<bool(C3, C3, C3, int64)>(&T::AddTriangle) &&
         Has<bool(Coord3D*, int64)>(&T::AddTriangle) && Has<bool()>(&T::Clear) &&
         Has<bool(std::set<int64>&, int, int, int) const>(&T::CollectIDsAt) &&
         Has<bool(std::set<int64>&, Location&) const>(&T::CollectIDsAt) &&
         Has<bool(std::set<int64>&, C3, double, double, double) const>(&T::CollectIDsNear) &&
         Has<bool(std::set<int64>&, const Extent&) const>(&T::CollectIDsIn);
}());

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

static_assert(IsFree<void()>(&geom_Init));
static_assert(IsFree<Orientation_e(C3, C3, C3, double)>(&geom_Orient2D));
static_assert(IsFree<Orientation_e(C3, C3, C3, C3, C3, bool)>(&geom_InSphere));
static_assert(
    IsFree<Intersection2D_e(C3, C3, C3, C3, Intersection&, double)>(&geom_EdgeIntersectEdge2D));
static_assert(IsFree<Orientation_e(C3, const Plane&, C3, C3, C3)>(&geom_PointInside3Points));
static_assert(IsFree<Orientation_e(C3, C3, C3, C3)>(&geom_Orient3D) &&
              IsFree<Orientation_e(C3, C3, C3, C3)>(&geom_InCircle) &&
              IsFree<Orientation_e(C3, C3, C3, C3)>(&geom_PointInside3Points));
static_assert(IsFree<Orientation_e(C3, const Plane&, const Coord3D*)>(&geom_PointInside3Points));
static_assert(IsFree<Orientation_e(C3, const Coord3D*)>(&geom_PointInside3Points));
static_assert(IsFree<int(const Ray&, const Plane&, Intersection&)>(&geom_RayHitPlane));
static_assert(IsFree<int(const Ray&, C3, C3, C3, Intersection&)>(&geom_RayHitPlane));
static_assert(IsFree<int(const Ray&, const Coord3D*, Intersection&)>(&geom_RayHitPlane));
static_assert(IsFree<int(const Segment&, const Plane&, Intersection&)>(&geom_SegmentHitPlane));
static_assert(IsFree<void(C3, const Plane&, Coord3D&)>(&geom_TransformTo2D));
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
