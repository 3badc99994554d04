// Boxes, segments, triangles and planes of any numbers have to answer; touching is mutual where
// small integers leave nothing to rounding, and a box that has grown holds what it has grown by.

#include "input.h"
#include "zyl/geometry/extent.h"
#include "zyl/geometry/geom.h"
#include "zyl/geometry/plane.h"
#include "zyl/geometry/segment.h"
#include "zyl/geometry/triangle.h"

namespace {

using namespace zyl::geometry;

void CheckBoxes(const Extent& a, const Extent& b, const Coord3D& p, bool isExact) {
  a.Hit(b);
  a.IsOverlapping(b);
  a.IsInside(b);
  Extent common;
  a.GetIntersection(b, common);
  a.GetOctants();
  a.Distance(p);
  a.Distance(Segment(p, b.min));
  a.GetVolume();
  Extent grown = a;
  grown.Union(b);
  grown.AddPoint(p);
  FUZZ_CHECK(!isExact || (a.IsCoveredBy(grown) && b.IsCoveredBy(grown) && grown.IsInside(p)));
}

void AskSegments(Segment s, Segment t, const Coord3D& p) {
  double distance = 0;
  s.GetNearestPoint(p, distance);
  s.GetNearestPoint(t, distance);
  s.Distance(t);
  s.AngleBetween(t);
  s.ProjectPoint(p);
}

void CheckTriangles(Triangle a, Triangle b, Segment s, const Coord3D& p, bool isExact) {
  double distance = 0;
  a.GetNearestPoint(p, distance);
  a.GetNearestPoint(s, distance);
  a.Intersect(s);
  Plane(a).Distance(p, true);
  FUZZ_CHECK(a.IsTouching(b) == b.IsTouching(a) || !isExact);
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
  const Triangle a{Point3D(c[0]), Point3D(c[1]), Point3D(c[2])};
  const Triangle b{Point3D(c[3]), Point3D(c[4]), Point3D(c[5])};
  CheckBoxes(Extent(c[0], c[1]), Extent(c[2], c[3]), c[4], isExact);
  AskSegments(Segment(c[0], c[1]), Segment(c[2], c[3]), c[4]);
  CheckTriangles(a, b, Segment(c[5], c[6]), c[6], isExact);
}
