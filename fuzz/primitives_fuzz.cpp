// Boxes, segments, triangles and planes of any numbers. On all they have to answer; on small
// integers the answers of different members have to agree.

#include <cmath>

#include "input.h"
#include "zyl/geometry/extent.h"
#include "zyl/geometry/extent2d.h"
#include "zyl/geometry/geom.h"
#include "zyl/geometry/plane.h"
#include "zyl/geometry/segment.h"
#include "zyl/geometry/triangle.h"

namespace {

using namespace zyl::geometry;

constexpr double kRounding = 1e-6;  // angles lose half the digits near 0; coordinates are below 10

bool IsOrdered(const Extent& box) {
  return box.min.x < box.max.x && box.min.y < box.max.y && box.min.z < box.max.z;
}

void CheckBoxes(const Extent& a, const Extent& b, const Coord3D& p, bool isExact) {
  Extent common;
  const bool meet = a.GetIntersection(b, common);
  a.GetOctants();
  a.Distance(Segment(p, b.min));
  a.GetVolume();
  if (!isExact) {
    return;
  }
  const bool isOrdered = IsOrdered(a) && IsOrdered(b);
  FUZZ_CHECK(!isOrdered || meet == a.IsOverlapping(b));
  FUZZ_CHECK(!a.IsOverlapping(b) || a.Hit(b));
  FUZZ_CHECK(!a.IsInside(b) || a.IsCoveredBy(b));
  FUZZ_CHECK(!isOrdered || (a.Distance(p) == 0) == a.IsInside(p));
  Extent grown = a;
  grown.Union(b);
  grown.AddPoint(p);
  FUZZ_CHECK(a.IsCoveredBy(grown) && b.IsCoveredBy(grown) && grown.IsInside(p));
}

void CheckSegments(Segment s, Segment t, const Coord3D& p, bool isExact) {
  double toPoint = 0, toSegment = 0;
  const Coord3D nearest = s.GetNearestPoint(p, toPoint);
  s.GetNearestPoint(t, toSegment);
  s.AngleBetween(t);
  s.ProjectPoint(p);
  if (isExact && s.Length() > 0 && p != s.start) {
    FUZZ_CHECK(std::fabs(nearest.Distance(p) - toPoint) <= kRounding);
    FUZZ_CHECK(toPoint <= p.Distance(s.start) + kRounding);
    FUZZ_CHECK(toPoint <= p.Distance(s.end) + kRounding);
  }
  if (isExact && s.Length() > 0 && t.Length() > 0) {
    FUZZ_CHECK(std::fabs(toSegment - t.Distance(s)) <= kRounding);
  }
}

void CheckTriangles(Triangle a, Triangle b, Segment s, const Coord3D& p, bool isExact) {
  double toPoint = 0, toSegment = 0;
  a.GetNearestPoint(p, toPoint);
  a.GetNearestPoint(s, toSegment);
  const bool touch = a.IsTouching(b);
  const Plane plane(a);
  if (!isExact) {
    return;
  }
  FUZZ_CHECK(touch == b.IsTouching(a));
  if (plane.Normal().Magnitude() > 0.5) {
    for (const Point3D& corner : {a.p0, a.p1, a.p2}) {
      FUZZ_CHECK(toPoint <= p.Distance(corner) + kRounding);
    }
    FUZZ_CHECK(toPoint >= plane.Distance(p, true) - kRounding);
    FUZZ_CHECK(a.Intersect(s) ? toSegment == 0 : toSegment >= 0);
  }
}

Triangle Over(const Coord3D* corners) {
  Triangle triangle;
  triangle.p0 = Point3D(corners[0]);
  triangle.p1 = Point3D(corners[1]);
  triangle.p2 = Point3D(corners[2]);
  return triangle;
}

}  // namespace

void fuzz::Run(Input& input) {
  geom_Init();
  const bool isExact = input.Byte() % 2 == 0;
  input.DrawKind();
  Coord3D c[7];
  for (Coord3D& coord : c) {
    for (int i = 0; i < 3; ++i) {
      coord[i] = isExact ? input.SmallInteger() : input.Coordinate();
    }
  }
  const Triangle a = Over(c), b = Over(c + 3);
  CheckBoxes(Extent(c[0], c[1]), Extent(c[2], c[3]), c[4], isExact);
  CheckSegments(Segment(c[0], c[1]), Segment(c[2], c[3]), c[4], isExact);
  CheckTriangles(a, b, Segment(c[5], c[6]), c[6], isExact);
}
