#pragma once

/// @file
/// Tests whose answer is the sign of a determinant, never spoilt by rounding: orientation,
/// in-circle and in-sphere; and the intersection and containment tests built on them.
///
/// Call geom_Init once before the first of them. Until then signs are those of the determinants in
/// plain doubles, or any where these are 0, and nothing reports it. Signs are exact for coordinates
/// that are 0 or of a magnitude from 2^-142 to 2^201; beyond, products may overflow or vanish, and
/// the answer is one of those listed, though not always the right one. All functions are pure: any
/// number of threads may call them at once, also while one calls geom_Init for the first time.

#include "zyl/geometry/coord.h"
#include "zyl/geometry/export.h"

namespace zyl::geometry {

class Plane;
struct Segment;
struct Ray;
struct Intersection;

/// @addtogroup predicates
/// @{

/// Answer of an orientation or containment test. Programs compare and store the numbers.
enum Orientation_e {
  ORIENT_UNDEFINED = 0,         ///< The reference points are degenerate, or a coordinate is NaN.
  ORIENT_BELOW = 1,             ///< On the side of a plane from which a, b, c appear clockwise.
  ORIENT_ABOVE = 2,             ///< On the side from which they appear counterclockwise.
  ORIENT_COPLANAR = 3,          ///< In the plane.
  ORIENT_CLOCKWISE = 4,         ///< Point c lies to the right of the line from a to b.
  ORIENT_COUNTERCLOCKWISE = 5,  ///< Point c lies to its left.
  ORIENT_COLLINEAR = 6,         ///< Point c lies on it.
  ORIENT_ON = 7,                ///< On the circle or sphere.
  ORIENT_INSIDE = 8,            ///< Inside the circle, sphere or triangle.
  ORIENT_OUTSIDE = 9,           ///< Outside.
  ORIENT_ON_EDGE = 10,          ///< On an edge of the triangle.
  ORIENT_ON_VERTEX = 11         ///< On one of its vertices.
};

/// How a first edge a→b and a second edge c→d meet in the x-y plane.
enum Intersection2D_e {
  INTERSECT2D_UNDEFINED = 0,           ///< They cross, but the rounded directions are parallel.
  INTERSECT2D_NONE = 1,                ///< They do not meet, or one has no length.
  INTERSECT2D_CROSSING = 2,            ///< They cross at a point interior to both.
  INTERSECT2D_FIRST_ON_SECOND = 3,     ///< Both a and b lie on c→d.
  INTERSECT2D_SECOND_ON_FIRST = 4,     ///< Both c and d lie on a→b.
  INTERSECT2D_FIRST_START = 5,         ///< Only a lies on the other edge.
  INTERSECT2D_FIRST_END = 6,           ///< Only b does.
  INTERSECT2D_SECOND_START = 7,        ///< Only c does.
  INTERSECT2D_SECOND_END = 8,          ///< Only d does.
  INTERSECT2D_SHARED_FIRST_START = 9,  ///< All they share is a, which is also c or d.
  INTERSECT2D_SHARED_FIRST_END = 10,   ///< All they share is b, which is also c or d.
  INTERSECT2D_OVERLAP = 11             ///< They share a stretch, and neither contains the other.
};

/// @}

}  // namespace zyl::geometry

/// @addtogroup predicates
/// @{

/// Makes the tests below exact. May be called again, from any thread at any time.
///
/// Where doubles are computed in wider x87 registers (32-bit x86 without SSE2) it also sets the
/// calling thread to the precision of doubles, and every thread has to call it. Elsewhere one call
/// serves all threads.
ZYL_GEOMETRY_API void geom_Init();

/// Side of c seen along the line from a to b in the x-y plane: ORIENT_COUNTERCLOCKWISE if left,
/// ORIENT_CLOCKWISE if right, ORIENT_COLLINEAR if on it. z is ignored.
///
/// `tolerance` is twice an area: c counts as on the line if the triangle a, b, c has less than half
/// of that area. At 0 or less only exact collinearity counts.
/// ORIENT_UNDEFINED if a and b coincide in x and y; otherwise a c that coincides with either is
/// ORIENT_COLLINEAR. With NaN coordinates that leaves ORIENT_UNDEFINED.
ZYL_GEOMETRY_API zyl::geometry::Orientation_e geom_Orient2D(const zyl::geometry::Coord3D& a,
                                                            const zyl::geometry::Coord3D& b,
                                                            const zyl::geometry::Coord3D& c,
                                                            double tolerance);

/// Side of d of the plane through a, b, c: ORIENT_ABOVE where they appear counterclockwise,
/// ORIENT_BELOW where they appear clockwise, ORIENT_COPLANAR in the plane.
///
/// ORIENT_UNDEFINED if the cross product of b - a and c - a comes out as zero in plain doubles, or
/// on NaN coordinates. That product is rounded: points in line of which it is not zero give
/// ORIENT_COPLANAR, for every d.
ZYL_GEOMETRY_API zyl::geometry::Orientation_e geom_Orient3D(const zyl::geometry::Coord3D& a,
                                                            const zyl::geometry::Coord3D& b,
                                                            const zyl::geometry::Coord3D& c,
                                                            const zyl::geometry::Coord3D& d);

/// ORIENT_INSIDE, ORIENT_ON or ORIENT_OUTSIDE: d and the circle through a, b, c in the x-y plane,
/// in whichever order they run. z is ignored. ORIENT_UNDEFINED if a, b, c are collinear, or on NaN
/// coordinates.
ZYL_GEOMETRY_API zyl::geometry::Orientation_e geom_InCircle(const zyl::geometry::Coord3D& a,
                                                            const zyl::geometry::Coord3D& b,
                                                            const zyl::geometry::Coord3D& c,
                                                            const zyl::geometry::Coord3D& d);

/// ORIENT_INSIDE, ORIENT_ON or ORIENT_OUTSIDE: e and the sphere through a, b, c, d.
///
/// With `asGiven` the answer is for d below a, b, c (ORIENT_BELOW of geom_Orient3D), and inside and
/// outside come out exchanged where d is above; without it the order of the points does not matter.
/// ORIENT_UNDEFINED if a, b, c, d are coplanar, or on NaN coordinates. Needs up to 200 KiB of
/// stack.
ZYL_GEOMETRY_API zyl::geometry::Orientation_e geom_InSphere(const zyl::geometry::Coord3D& a,
                                                            const zyl::geometry::Coord3D& b,
                                                            const zyl::geometry::Coord3D& c,
                                                            const zyl::geometry::Coord3D& d,
                                                            const zyl::geometry::Coord3D& e,
                                                            bool asGiven);

/// How the edge a→b meets the edge c→d in the x-y plane; z is ignored.
///
/// A point lies on an edge if geom_Orient2D with `tolerance` finds it collinear and it is within
/// the box of the edge. Where the edges meet in a single point, `out.point.x` and `.y` receive it:
/// the end point as given, or the crossing point, rounded but the same bits in whichever order and
/// direction the edges are given. All else in `out` stays as it was.
/// INTERSECT2D_UNDEFINED is possible only by rounding: for edges that do cross but whose
/// differences of coordinates, or the products of those, round to parallel directions. Edges
/// without length give INTERSECT2D_NONE, and so do NaN coordinates unless the other end of that
/// edge is also an end of the other edge.
ZYL_GEOMETRY_API zyl::geometry::Intersection2D_e geom_EdgeIntersectEdge2D(
    const zyl::geometry::Coord3D& a, const zyl::geometry::Coord3D& b,
    const zyl::geometry::Coord3D& c, const zyl::geometry::Coord3D& d,
    zyl::geometry::Intersection& out, double tolerance);

/// ORIENT_INSIDE, ORIENT_OUTSIDE, ORIENT_ON_EDGE or ORIENT_ON_VERTEX: p and the triangle a, b, c,
/// in whichever order it runs.
///
/// Both are projected along the axis nearest to the normal of `plane`, which serves for nothing
/// else: how far p is from the plane does not matter. Exact within the projection.
/// ORIENT_OUTSIDE if the projected triangle has no area, unless p coincides with a vertex, and on
/// NaN coordinates.
ZYL_GEOMETRY_API zyl::geometry::Orientation_e geom_PointInside3Points(
    const zyl::geometry::Coord3D& p, const zyl::geometry::Plane& plane,
    const zyl::geometry::Coord3D& a, const zyl::geometry::Coord3D& b,
    const zyl::geometry::Coord3D& c);

/// The same with the plane of a, b, c.
ZYL_GEOMETRY_API zyl::geometry::Orientation_e geom_PointInside3Points(
    const zyl::geometry::Coord3D& p, const zyl::geometry::Coord3D& a,
    const zyl::geometry::Coord3D& b, const zyl::geometry::Coord3D& c);

/// The same for triangle[0], triangle[1], triangle[2].
ZYL_GEOMETRY_API zyl::geometry::Orientation_e geom_PointInside3Points(
    const zyl::geometry::Coord3D& p, const zyl::geometry::Plane& plane,
    const zyl::geometry::Coord3D* triangle);

/// The same with the plane of triangle[0], triangle[1], triangle[2].
ZYL_GEOMETRY_API zyl::geometry::Orientation_e geom_PointInside3Points(
    const zyl::geometry::Coord3D& p, const zyl::geometry::Coord3D* triangle);

/// Point where the line of `ray` meets `plane`, in plain doubles: 0 on a hit, else -1. NaN
/// coordinates give a hit at NaN.
///
/// `out.parameter` is in units of the length of the direction, negative for a plane behind the
/// origin. -1 if the direction is parallel to the plane, or it or the normal is zero: then the
/// parameter is -1 and the point stays as it was.
ZYL_GEOMETRY_API int geom_RayHitPlane(const zyl::geometry::Ray& ray,
                                      const zyl::geometry::Plane& plane,
                                      zyl::geometry::Intersection& out);

/// The same for the plane through p1, p2, p3.
ZYL_GEOMETRY_API int geom_RayHitPlane(const zyl::geometry::Ray& ray,
                                      const zyl::geometry::Coord3D& p1,
                                      const zyl::geometry::Coord3D& p2,
                                      const zyl::geometry::Coord3D& p3,
                                      zyl::geometry::Intersection& out);

/// The same for the plane through points[0], points[1], points[2].
ZYL_GEOMETRY_API int geom_RayHitPlane(const zyl::geometry::Ray& ray,
                                      const zyl::geometry::Coord3D* points,
                                      zyl::geometry::Intersection& out);

/// Point where `segment` meets `plane`, in plain doubles, both ends included: 0 on a hit, else -1.
/// NaN coordinates give a hit at NaN.
///
/// `out.parameter` is the distance from the start of the segment. -1 if it does not reach the
/// plane, is parallel to it or has no length, or the normal is zero: then the parameter is -1 and
/// the point stays as it was.
ZYL_GEOMETRY_API int geom_SegmentHitPlane(const zyl::geometry::Segment& segment,
                                          const zyl::geometry::Plane& plane,
                                          zyl::geometry::Intersection& out);

/// p with its coordinates reordered so that the one along the largest component of the plane's
/// normal comes last: (y, z, x), (x, z, y) or, also where no component is the largest, (x, y, z).
/// `out` may be p.
ZYL_GEOMETRY_API void geom_TransformTo2D(const zyl::geometry::Coord3D& p,
                                         const zyl::geometry::Plane& plane,
                                         zyl::geometry::Coord3D& out);

/// The same in place.
ZYL_GEOMETRY_API void geom_TransformTo2D(const zyl::geometry::Plane& plane,
                                         zyl::geometry::Coord3D& p);

/// @}
