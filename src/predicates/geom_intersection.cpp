#include <algorithm>
#include <cmath>
#include <utility>

#include "zyl/geometry/geom.h"
#include "zyl/geometry/plane.h"
#include "zyl/geometry/segment.h"

using namespace zyl::geometry;

namespace {

bool SameXY(const Coord3D& p, const Coord3D& q) { return p.x == q.x && p.y == q.y; }

bool IsInBox(const Coord3D& p, const Coord3D& a, const Coord3D& b) {
  return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
         p.y <= std::max(a.y, b.y);
}

// End points of an edge, the lexicographically smaller first.
struct Edge {
  const Coord3D* start;
  const Coord3D* end;

  Edge(const Coord3D& a, const Coord3D& b) : start(&a), end(&b) {
    if (IsBehind(a, b)) {
      std::swap(start, end);
    }
  }

  static bool IsBehind(const Coord3D& a, const Coord3D& b) {
    return a.x > b.x || (a.x == b.x && a.y > b.y);
  }
};

// Crossing point of two edges that cross. Both edges and their ends are put in order first, so that
// the operations, and with them the bits of the result, do not depend on how they are given.
Intersection2D_e CrossingPoint(Edge first, Edge second, Intersection& out) {
  if (Edge::IsBehind(*first.start, *second.start)) {
    std::swap(first, second);
  }
  const double ax = first.end->x - first.start->x;
  const double ay = first.end->y - first.start->y;
  const double bx = second.end->x - second.start->x;
  const double by = second.end->y - second.start->y;
  const double den = bx * ay - by * ax;
  if (den == 0.0) {
    return INTERSECT2D_UNDEFINED;
  }
  const double t =
      ((second.start->y - first.start->y) * bx - (second.start->x - first.start->x) * by) / den;
  out.point.x = t * ax + first.start->x;
  out.point.y = t * ay + first.start->y;
  return INTERSECT2D_CROSSING;
}

Intersection2D_e MeetAt(const Coord3D& p, Intersection2D_e how, Intersection& out) {
  out.point.x = p.x;
  out.point.y = p.y;
  return how;
}

// Number of the coordinate along which the normal is longest, if it is longer there than along
// both others; -1 where there is a tie or z wins.
int LongestOfXY(const Plane& plane) {
  const double nx = std::fabs(plane.a);
  const double ny = std::fabs(plane.b);
  const double nz = std::fabs(plane.c);
  if (nx > ny && nx > nz) {
    return 0;
  }
  return ny > nx && ny > nz ? 1 : -1;
}

// The point dropped along the axis nearest to the plane's normal. If that is none, as for a normal
// with equal x and y and no z, a view along z would see the plane on edge.
class Projection {
 public:
  explicit Projection(const Plane& plane) : dropped_(LongestOfXY(plane)) {
    if (dropped_ < 0) {
      dropped_ = plane.c != 0.0 ? 2 : 0;
    }
  }

  Coord3D operator()(const Coord3D& p) const {
    return {dropped_ == 0 ? p.y : p.x, dropped_ == 2 ? p.y : p.z, 0.0};
  }

 private:
  int dropped_;
};

bool IsCollinear(Orientation_e o) { return o == ORIENT_COLLINEAR; }

// Where the sides of three edges place a point. A point on the line of one edge is on the edge if
// it is on the same side of the other two.
Orientation_e PlaceBySides(Orientation_e o1, Orientation_e o2, Orientation_e o3) {
  if (o1 == ORIENT_UNDEFINED || o2 == ORIENT_UNDEFINED || o3 == ORIENT_UNDEFINED) {
    return ORIENT_OUTSIDE;
  }
  if (o1 == o2 && o2 == o3) {
    return IsCollinear(o1) ? ORIENT_OUTSIDE : ORIENT_INSIDE;
  }
  const bool isOnEdge = (IsCollinear(o1) && !IsCollinear(o2) && o2 == o3) ||
                        (IsCollinear(o2) && !IsCollinear(o3) && o3 == o1) ||
                        (IsCollinear(o3) && !IsCollinear(o1) && o1 == o2);
  return isOnEdge ? ORIENT_ON_EDGE : ORIENT_OUTSIDE;
}

double Along(const Plane& plane, const Direction& direction) {
  return plane.a * direction.x + plane.b * direction.y + plane.c * direction.z;
}

// Parameter at which the line from p meets the plane; `den` is the direction's share along the
// normal.
double ParameterOfHit(const Plane& plane, const Coord3D& p, double den) {
  return -(plane.a * p.x + plane.b * p.y + plane.c * p.z + plane.d) / den;
}

void SetHit(const Coord3D& p, const Direction& direction, double t, Intersection& out) {
  out.point = Coord3D(p.x + t * direction.x, p.y + t * direction.y, p.z + t * direction.z);
  out.parameter = t;
}

}  // namespace

Intersection2D_e geom_EdgeIntersectEdge2D(const Coord3D& a, const Coord3D& b, const Coord3D& c,
                                          const Coord3D& d, Intersection& out, double tolerance) {
  const Orientation_e o1 = geom_Orient2D(a, b, c, tolerance);
  const Orientation_e o2 = geom_Orient2D(a, b, d, tolerance);
  if (o1 == o2 && !IsCollinear(o1)) {
    return INTERSECT2D_NONE;
  }
  const Orientation_e o3 = geom_Orient2D(c, d, a, tolerance);
  const Orientation_e o4 = geom_Orient2D(c, d, b, tolerance);
  if (o3 == o4 && !IsCollinear(o3)) {
    return INTERSECT2D_NONE;
  }
  if (!IsCollinear(o1) && !IsCollinear(o2) && !IsCollinear(o3) && !IsCollinear(o4)) {
    return CrossingPoint(Edge(a, b), Edge(c, d), out);
  }

  const bool aOn = IsCollinear(o3) && IsInBox(a, c, d);
  const bool bOn = IsCollinear(o4) && IsInBox(b, c, d);
  const bool cOn = IsCollinear(o1) && IsInBox(c, a, b);
  const bool dOn = IsCollinear(o2) && IsInBox(d, a, b);
  if (aOn && bOn) {
    return INTERSECT2D_FIRST_ON_SECOND;
  }
  if (cOn && dOn) {
    return INTERSECT2D_SECOND_ON_FIRST;
  }
  // An end of the second edge that is on the first but elsewhere makes a common stretch.
  const auto meetAtEndOfFirst = [&](const Coord3D& p, Intersection2D_e shared,
                                    Intersection2D_e alone) {
    if ((cOn && !SameXY(c, p)) || (dOn && !SameXY(d, p))) {
      return INTERSECT2D_OVERLAP;
    }
    return MeetAt(p, cOn || dOn ? shared : alone, out);
  };
  if (aOn) {
    return meetAtEndOfFirst(a, INTERSECT2D_SHARED_FIRST_START, INTERSECT2D_FIRST_START);
  }
  if (bOn) {
    return meetAtEndOfFirst(b, INTERSECT2D_SHARED_FIRST_END, INTERSECT2D_FIRST_END);
  }
  if (cOn) {
    return MeetAt(c, INTERSECT2D_SECOND_START, out);
  }
  return dOn ? MeetAt(d, INTERSECT2D_SECOND_END, out) : INTERSECT2D_NONE;
}

Orientation_e geom_PointInside3Points(const Coord3D& p, const Plane& plane, const Coord3D& a,
                                      const Coord3D& b, const Coord3D& c) {
  const Projection project(plane);
  const Coord3D q = project(p);
  const Coord3D qa = project(a);
  const Coord3D qb = project(b);
  const Coord3D qc = project(c);
  if (q == qa || q == qb || q == qc) {
    return ORIENT_ON_VERTEX;
  }
  return PlaceBySides(geom_Orient2D(qa, qb, q, 0.0), geom_Orient2D(qb, qc, q, 0.0),
                      geom_Orient2D(qc, qa, q, 0.0));
}

Orientation_e geom_PointInside3Points(const Coord3D& p, const Coord3D& a, const Coord3D& b,
                                      const Coord3D& c) {
  return geom_PointInside3Points(p, Plane(a, b, c), a, b, c);
}

Orientation_e geom_PointInside3Points(const Coord3D& p, const Plane& plane,
                                      const Coord3D* triangle) {
  return geom_PointInside3Points(p, plane, triangle[0], triangle[1], triangle[2]);
}

Orientation_e geom_PointInside3Points(const Coord3D& p, const Coord3D* triangle) {
  return geom_PointInside3Points(p, Plane(triangle), triangle);
}

int geom_RayHitPlane(const Ray& ray, const Plane& plane, Intersection& out) {
  out.parameter = -1.0;
  const double den = Along(plane, ray.direction);
  if (den == 0.0) {
    return -1;
  }
  SetHit(ray.origin, ray.direction, ParameterOfHit(plane, ray.origin, den), out);
  return 0;
}

int geom_RayHitPlane(const Ray& ray, const Coord3D& p1, const Coord3D& p2, const Coord3D& p3,
                     Intersection& out) {
  return geom_RayHitPlane(ray, Plane(p1, p2, p3), out);
}

int geom_RayHitPlane(const Ray& ray, const Coord3D* points, Intersection& out) {
  return geom_RayHitPlane(ray, Plane(points), out);
}

int geom_SegmentHitPlane(const Segment& segment, const Plane& plane, Intersection& out) {
  out.parameter = -1.0;
  const Coord3D v = segment.end - segment.start;
  const double length = v.Magnitude();
  if (length == 0.0) {
    return -1;
  }
  const Direction u(v.x / length, v.y / length, v.z / length);
  const double den = Along(plane, u);
  if (den == 0.0) {
    return -1;
  }
  const double t = ParameterOfHit(plane, segment.start, den);
  if (t < 0.0 || t > length) {
    return -1;
  }
  SetHit(segment.start, u, t, out);
  return 0;
}

void geom_TransformTo2D(const Coord3D& p, const Plane& plane, Coord3D& out) {
  const Coord3D from = p;  // `out` may be p
  switch (LongestOfXY(plane)) {
    case 0:
      out = Coord3D(from.y, from.z, from.x);
      break;
    case 1:
      out = Coord3D(from.x, from.z, from.y);
      break;
    default:
      out = from;
      break;
  }
}

void geom_TransformTo2D(const Plane& plane, Coord3D& p) { geom_TransformTo2D(p, plane, p); }
