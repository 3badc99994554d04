// Polylines, and the questions a polygon answers.

#include <cassert>
#include <vector>

#include "zyl/geometry/geometry.h"

using zyl::geometry::Coord3D;
using zyl::geometry::Direction;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

namespace {

void Inside() {
  //! [inside]
  // The list ends where it began: three points, closed.
  const Polyline3D lease(std::vector<Point3D>{{0, 0, 5}, {4, 0, 5}, {4, 3, 5}, {0, 0, 5}});
  assert(lease.Size() == 3 && lease.IsClosed());

  assert(lease.IsPointInside(Point3D(3, 1, 5)));
  assert(!lease.IsPointInside(Point3D(1, 2, 5)));
  assert(lease.IsPointInside(Point3D(4, 1, 5)));    // on the boundary
  assert(lease.IsPointInside(Point3D(3, 1, 900)));  // height over its plane does not matter
  //! [inside]
}

void EvenOdd() {
  //! [even-odd]
  // A five-pointed star drawn in one stroke. Its middle is walked round twice: outside.
  const Polyline3D star(std::vector<Point3D>{
      {0, 10, 0}, {6, -8, 0}, {-10, 3, 0}, {10, 3, 0}, {-6, -8, 0}, {0, 10, 0}});

  assert(star.IsPointInside(Point3D(0, 8, 0)));   // in the top point
  assert(!star.IsPointInside(Point3D(0, 0, 0)));  // in the middle
  //! [even-odd]
}

void Shape() {
  //! [shape]
  // A ring in a vertical plane, running clockwise as seen from the north, to which its normal
  // points.
  const Polyline3D face(
      std::vector<Point3D>{{0, 7, 0}, {3, 7, 0}, {3, 7, 2}, {0, 7, 2}, {0, 7, 0}});
  Direction normal;
  face.GetPolygonNormal(normal);

  assert(normal.x == 0 && normal.y == 1 && normal.z == 0);
  assert(face.IsClockwise());
  assert(face.IsPointOnEdge(Point3D(3, 7, 1), false, 0));
  //! [shape]
}

void Editing() {
  //! [editing]
  Polyline3D line;
  line.Add(0, 0, 0);
  line.Add(10, 0, 0);
  line.Add(10, 5, 0);
  line.SetName("12 haul road");
  line.Translate(Point3D(0, 0, 100));

  assert(line[2] == Point3D(10, 5, 100));
  assert(line.GetNameAsInt() == 12);
  line.Reverse();
  assert(line[0] == Point3D(10, 5, 100) && !line.IsClosed());
  //! [editing]
}

}  // namespace

int main() {
  Inside();
  EvenOdd();
  Shape();
  Editing();
}
