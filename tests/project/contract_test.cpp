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

// Whether these enumerators have the values 0, 1, 2...
template <auto... enumerators>
constexpr bool CountUp() {
  int next = 0;
  return ((enumerators == next++) && ...);
}

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

using V = Coord3D;
static_assert(Makes<V> && Makes<V, double, double, double> && Makes<V, double*> &&
              std::is_convertible_v<P3, V> && Has<V&(C3)>(&V::operator=) &&
              Has<const V&(double)>(&V::operator=, &V::operator*=) &&
              Has<const V(C3) const>(&V::operator*, &V::operator+, &V::operator-) &&
              Has<const V(double) const>(&V::operator*) && Has<const V() const>(&V::operator-) &&
              Has<const V&(C3)>(&V::operator+=, &V::operator-=) &&
              Has<bool(C3) const>(&V::operator==, &V::operator!=, &V::operator<) &&
              Has<double&(int)>(&V::operator[]) && Has<double(int) const>(&V::operator[]) &&
              Has<double(C3) const>(&V::Dot, &V::Distance, &V::SquaredDistance, &V::Angle) &&
              Has<double() const>(&V::Magnitude, &V::MagnitudeSquared) &&
              Has<double(C3, const Matrix3&)>(&V::SquaredDistance) &&
              IsFree<bool(C3, C3, double)>(&V::Parallel) && Has<V(C3) const>(&V::Cross) &&
              Has<V(C3)>(&V::maximum, &V::minimum) && Has<V(C3, C3, double)>(&V::Rotate) &&
              Has<V(const Plane&) const>(&V::Project));

using D = Direction;
static_assert(Makes<D> && Makes<D, double, double, double> && Makes<D, C3, C3> &&
              std::is_convertible_v<C3, D> && Has<D&(D3)>(&D::operator=) &&
              Has<double()>(&D::GetXDirection, &D::GetYDirection, &D::GetZDirection) &&
              Has<const D(double) const>(&D::operator*, &D::operator/) &&
              Has<const D(D3) const>(&D::operator+, &D::operator-) &&
              Has<const D() const>(&D::operator-) &&
              Has<const D&(double)>(&D::operator*=, &D::operator/=) &&
              Has<const D&(D3)>(&D::operator+=, &D::operator-=) &&
              Has<double(int)>(&D::operator[]) && Has<double(D3) const>(&D::Dot) &&
              Has<double(C3) const>(&D::Dot) && Has<D(D3) const>(&D::Cross) &&
              Has<void()>(&D::Normalize, &V::Normalise) &&
              Has<void(double, double, double)>(&D::SetDirection) &&
              Has<void(double, double)>(&D::SetDirectionByBearingDegrees) &&
              Has<void(Matrix4&, Matrix4&) const>(&V::GetZUpTransform, &D::GetZUpTransform,
                                                  &Plane::GetZUpTransform));

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

static_assert(Makes<Matrix3, const Matrix4&> && Has<Coord2D(C2) const>(&Matrix3::operator*) &&
              Has<void(double)>(&Matrix3::Rotate) &&
              Has<void(double, double)>(&Matrix3::Translate) &&
              Has<void(C2)>(&Matrix3::Translate) && Has<void(Matrix3&)>(&Matrix3::TransposeTo));

static_assert(Makes<Matrix4, const double (&)[4][4]> && Makes<Matrix4, const Transformation3D&> &&
              Has<void(const double (&)[4][4])>(&Matrix4::Create) &&
              Has<Point3D(P3) const>(&Matrix4::operator*) &&
              Has<Plane(const Plane&) const>(&Matrix4::operator*) &&
              Has<void(double)>(&Matrix4::RotateX, &Matrix4::RotateY, &Matrix4::RotateZ) &&
              Has<void(double, double, double)>(&Matrix4::Rotate, &Matrix4::Scale,
                                                &Matrix4::Translate) &&
              Has<void(double, C3)>(&Matrix4::Rotate) && Has<void(C3)>(&Matrix4::Translate) &&
              Has<void(Matrix4&) const>(&Matrix4::TransposeTo) &&
              Has<void() const>(&Matrix4::ToString));

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

static_assert(Makes<Extent, C3, C3, C3> &&
              Makes<Extent, double, double, double, double, double, double> &&
              Has<bool(const Extent&) const>(&Extent::operator==, &Extent::operator!=) &&
              Has<void(const Extent&)>(&Extent::Union) && Has<double() const>(&Extent::GetVolume) &&
              Has<void(double)>(&Extent::ExpandKeepingAspect) &&
              Has<double(C3) const>(&Extent::Distance) &&
              Has<double(const Segment&) const>(&Extent::Distance) &&
              Has<std::vector<Extent>() const>(&Extent::GetOctants) &&
              Has<void(Polyline3D&, Polyline3D&)>(&Extent::GetTopBottomPolygons) &&
              IsFree<Extent(const std::vector<Point3D>&)>(&::FindPointsExtent));

static_assert(Makes<Extent2D, double, double, double, double> && Makes<Extent2D, const Extent&> &&
              Has<Extent2D&(const Bounds2D&)>(&Extent2D::operator=) &&
              Has<Extent2D&(const Extent&)>(&Extent2D::operator=) &&
              Has<Extent2D&(const Extent_type_s&)>(&Extent2D::operator=) &&
              Has<bool(double, double) const>(&Extent2D::IsInside) &&
              Has<double(bool) const>(&Extent2D::GetArea));

// Planes, linear primitives, triangles, ellipsoids and circles.

static_assert(std::is_standard_layout_v<Plane> && sizeof(Plane) == 4 * kDouble &&
              offsetof(Plane, b) == kDouble && offsetof(Plane, c) == 2 * kDouble &&
              offsetof(Plane, d) == 3 * kDouble);
static_assert(Makes<Plane> && Makes<Plane, double, double, double, double> &&
              Makes<Plane, const Plane&> && Makes<Plane, D3, double> && Makes<Plane, D3, C3> &&
              Makes<Plane, D3, P3> && Makes<Plane, C3, C3, C3> && Makes<Plane, const Coord3D*> &&
              Makes<Plane, const Triangle&> && Makes<Plane, C3, C3, double> &&
              Makes<Plane, C3, double, double> && Has<Plane&(const Plane&)>(&Plane::operator=) &&
              Has<double(C3, bool) const>(&Plane::Distance) &&
              Has<double(C3) const>(&Plane::Orientation) && Has<Coord3D() const>(&Plane::Normal) &&
              Has<int()>(&Plane::Normalize) && Has<void(double)>(&Plane::Move) &&
              Has<void()>(&Plane::Reverse) &&
              Has<bool(const Plane&, Direction&, Point3D&) const>(&Plane::Intersect));

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

static_assert(CountUp<COORDINATE_X, COORDINATE_Y, COORDINATE_Z>());

using Count = unsigned int;
using Line = Polyline3D;
static_assert(
    !std::is_polymorphic_v<Line> && Makes<Line> && Makes<Line, const std::vector<Point3D>&> &&
    Makes<Line, Count, double*, double*, double*> && Makes<Line, Count, const Point3D*> &&
    Has<Line&(const Line&)>(&Line::operator=) && Has<void(Line&)>(&Line::Swap) &&
    Has<bool(const Line&) const>(&Line::operator==, &Line::operator!=) &&
    Has<Count() const>(&Line::Size) && Has<void(Count)>(&Line::Resize) &&
    Has<Point3D&(Count)>(&Line::operator[]) &&
    Has<const Point3D&(Count) const>(&Line::operator[]) &&
    Has<std::vector<Point3D>&()>(&Line::GetPointVector) &&
    Has<const std::vector<Point3D>&() const>(&Line::GetPointVector) &&
    Has<void(const double&, const double&, const double&)>(&Line::Add) &&
    Has<void(P3)>(&Line::Add, &Line::Translate) && Has<void()>(&Line::Clear, &Line::Reverse) &&
    Has<void(const double&, const int&)>(&Line::Set) &&
    Has<void(CoordinateType, std::vector<double>&) const>(&Line::GetAsArray) &&
    Has<const Point3D() const>(&Line::GetCenterPoint) &&
    Has<bool() const>(&Line::IsClosed, &Line::IsClockwise) && Has<void(bool)>(&Line::SetClosed) &&
    Has<int()>(&Line::GetColour, &Line::GetNameAsInt) &&
    Has<int() const>(&Line::GetColour, &Line::GetNameAsInt) &&
    Has<void(const int&)>(&Line::SetColour, &Line::SetNameAsInt) &&
    Has<std::string()>(&Line::GetName) && Has<const std::string&() const>(&Line::GetName) &&
    Has<void(const std::string&)>(&Line::SetName) && Has<std::string() const>(&Line::PrintDebug) &&
    Has<void(Direction&) const>(&Line::GetPolygonNormal) &&
    Has<void(std::vector<Point3D>&, std::vector<Point3D>&, const double&)>(
        &Line::GetPointNormals) &&
    Has<bool(P3, bool, double) const>(&Line::IsPointOnEdge) &&
    Has<bool(P3) const>(&Line::IsPointInside) &&
    Has<bool(const double&, const double&, const double&) const>(&Line::IsPointInside));

// The voxel index.

using Location = Voxelation::Location;
static_assert(std::is_same_v<zyl::geometry::int64, std::int64_t>);
static_assert(std::is_trivially_copyable_v<Location> && sizeof(Location) == 3 * sizeof(int) &&
              offsetof(Location, k) == 2 * sizeof(int));
using Grid = Voxelation;
static_assert(
    !std::is_polymorphic_v<Grid> && std::is_copy_constructible_v<Grid> &&
    std::is_nothrow_move_constructible_v<Grid> && std::is_nothrow_move_assignable_v<Grid> &&
    Makes<Grid> && Makes<Grid, const Bounds3D&, int, int, int> &&
    Makes<Grid, C3, C3, int, int, int> && Has<Grid&(const Grid&)>(&Grid::operator=) &&
    Has<bool(C3, C3, int, int, int)>(&Grid::Initialise) &&
    Has<bool(const Bounds3D&, int, int, int)>(&Grid::Initialise) &&
    Has<bool(double, double, double, Location&) const>(&Grid::Locate) &&
    Has<bool(C3, Location&) const>(&Grid::Locate) && Has<bool(int*) const>(&Grid::GetDimensions) &&
    Has<bool(const Location&, Extent&)>(&Grid::GetVoxelExtent) &&
    Has<bool(C3, int64)>(&Grid::AddPoint) && Has<bool(const Extent&, int64)>(&Grid::AddExtent) &&
    Has<bool(C3, C3, C3, int64)>(&Grid::AddTriangle) &&
    Has<bool(Coord3D*, int64)>(&Grid::AddTriangle) && Has<bool()>(&Grid::Clear) &&
    Has<bool(std::set<int64>&, int, int, int) const>(&Grid::CollectIDsAt) &&
    Has<bool(std::set<int64>&, Location&) const>(&Grid::CollectIDsAt) &&
    Has<bool(std::set<int64>&, C3, double, double, double) const>(&Grid::CollectIDsNear) &&
    Has<bool(std::set<int64>&, const Extent&) const>(&Grid::CollectIDsIn));

// Predicates and intersection tests.

static_assert(CountUp<ORIENT_UNDEFINED, ORIENT_BELOW, ORIENT_ABOVE, ORIENT_COPLANAR,
                      ORIENT_CLOCKWISE, ORIENT_COUNTERCLOCKWISE, ORIENT_COLLINEAR, ORIENT_ON,
                      ORIENT_INSIDE, ORIENT_OUTSIDE, ORIENT_ON_EDGE, ORIENT_ON_VERTEX>());
static_assert(
    CountUp<INTERSECT2D_UNDEFINED, INTERSECT2D_NONE, INTERSECT2D_CROSSING,
            INTERSECT2D_FIRST_ON_SECOND, INTERSECT2D_SECOND_ON_FIRST, INTERSECT2D_FIRST_START,
            INTERSECT2D_FIRST_END, INTERSECT2D_SECOND_START, INTERSECT2D_SECOND_END,
            INTERSECT2D_SHARED_FIRST_START, INTERSECT2D_SHARED_FIRST_END, INTERSECT2D_OVERLAP>());

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
