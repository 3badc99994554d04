// Questions whose answers are exact, and the tests built on them.

#include <cassert>

#include "zyl/geometry/geometry.h"

using namespace zyl::geometry;

namespace {

void Sides() {
  //! [orientation]
  // `c` lies off the line through `a` and `b` by one unit in the last place of its y.
  const Coord3D a(12, 12, 0), b(24, 24, 0), c(0.5, 0.50000000000000011, 0);
  const double rounded = (a.x - c.x) * (b.y - c.y) - (a.y - c.y) * (b.x - c.x);

  assert(rounded == 0);                                          // sees no difference
  assert(geom_Orient2D(a, b, c, 0) == ORIENT_COUNTERCLOCKWISE);  // it is to the left
  assert(geom_Orient2D(a, b, Coord3D(0.5, 0.5, 0), 0) == ORIENT_COLLINEAR);
  //! [orientation]
}

void Circles() {
  //! [circle]
  const Coord3D east(5, 0, 0), north(0, 5, 0), west(-5, 0, 0);

  assert(geom_InCircle(east, north, west, Coord3D(3, -4, 0)) == ORIENT_ON);
  assert(geom_InCircle(east, north, west, Coord3D(3, -3.999, 0)) == ORIENT_INSIDE);
  assert(geom_InCircle(west, north, east, Coord3D(3, -3.999, 0)) == ORIENT_INSIDE);  // either way
  //! [circle]
}

void Edges() {
  //! [edges]
  Intersection at;
  assert(geom_EdgeIntersectEdge2D(Coord3D(0, 0, 0), Coord3D(2, 2, 0),  //
                                  Coord3D(0, 2, 0), Coord3D(2, 0, 0), at,
                                  0) == INTERSECT2D_CROSSING);
  assert(at.point.x == 1 && at.point.y == 1);

  assert(geom_EdgeIntersectEdge2D(Coord3D(0, 0, 0), Coord3D(2, 0, 0),  //
                                  Coord3D(1, 0, 0), Coord3D(3, 0, 0), at,
                                  0) == INTERSECT2D_OVERLAP);
  //! [edges]
}

void PlaneHits() {
  //! [plane hit]
  const Plane level(0, 0, 1, -2);  // z = 2
  Intersection hit;

  assert(geom_RayHitPlane(Ray(Coord3D(0, 0, 5), Direction(0, 0, -1)), level, hit) == 0);
  assert(hit.point == Coord3D(0, 0, 2) && hit.parameter == 3);
  assert(geom_SegmentHitPlane(Segment(Coord3D(0, 0, 5), Coord3D(0, 0, 3)), level, hit) == -1);
  //! [plane hit]
}

}  // namespace

int main() {
  //! [init]
  geom_Init();  // once, before the first question
  //! [init]
  Sides();
  Circles();
  Edges();
  PlaneHits();
}
