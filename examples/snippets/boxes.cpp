// Axis-aligned boxes.

#include <cassert>
#include <vector>

#include "zyl/geometry/geometry.h"

using zyl::geometry::Coord2D;
using zyl::geometry::Coord3D;
using zyl::geometry::Extent;
using zyl::geometry::Extent2D;
using zyl::geometry::Point3D;

namespace {

void Bounds() {
  //! [bounds]
  const std::vector<Point3D> points = {{1, 5, 0}, {4, 2, 3}, {2, 2, -1}};
  const Extent box = FindPointsExtent(points);

  assert(box.min == Coord3D(1, 2, -1) && box.max == Coord3D(4, 5, 3));
  assert(box.Centroid() == Coord3D(2.5, 3.5, 1));
  assert(box.IsInside(Coord3D(4, 5, 3)));  // a corner belongs to the box
  assert(box.Distance(Coord3D(7, 9, 0)) == 5);
  //! [bounds]
}

void Contact() {
  //! [contact]
  const Extent left(0, 0, 0, 1, 1, 1);
  const Extent right(1, 0, 0, 2, 1, 1);  // shares a face with it
  assert(left.Hit(right));
  assert(!left.IsOverlapping(right));

  Extent common;
  assert(!left.GetIntersection(right, common));
  assert(left.GetIntersection(Extent(0.5, 0.5, 0.5, 3, 3, 3), common));
  assert(common == Extent(0.5, 0.5, 0.5, 1, 1, 1));
  //! [contact]
}

void Division() {
  //! [octants]
  const Extent room(0, 0, 0, 8, 4, 2);
  const std::vector<Extent> octants = room.GetOctants();

  assert(octants.size() == 8);
  assert(octants[0] == Extent(4, 2, 1, 8, 4, 2));  // the corner of the greatest x, y and z
  //! [octants]
}

void Plan() {
  //! [plan]
  const Extent2D sheet(Extent(1, 2, 3, 4, 5, 6));  // drops z
  assert(sheet.IsInside(Coord2D(2, 3)));
  assert(sheet.GetArea(false) == 9);
  //! [plan]
}

}  // namespace

int main() {
  Bounds();
  Contact();
  Division();
  Plan();
}
