// Points, vectors and directions.

#include <cassert>
#include <cmath>

#include "zyl/geometry/geometry.h"

using zyl::geometry::Coord3D;
using zyl::geometry::Direction;
using zyl::geometry::Matrix4;

namespace {

bool Near(double a, double b) { return std::abs(a - b) < 1e-9; }

void Arithmetic() {
  //! [arithmetic]
  const Coord3D a(3, 4, 0);
  const Coord3D up(0, 0, 1);

  assert(a.Magnitude() == 5);
  assert(a.Dot(up) == 0);
  assert(a.Cross(up) == Coord3D(4, -3, 0));
  assert(a + up * 2 == Coord3D(3, 4, 2));
  assert(a.SquaredDistance(up) == 26);
  //! [arithmetic]
}

void Bearings() {
  //! [bearing]
  // The toe of a hole drilled 100 m to the north-east, 30 degrees below the horizontal.
  const Coord3D collar(450000, 6500000, 300);
  Direction hole;
  hole.SetDirectionByBearingDegrees(45, -30);
  const Coord3D toe = collar + Coord3D(hole.x, hole.y, hole.z) * 100;

  assert(Near(toe.z, 250));
  assert(Near(toe.x - collar.x, toe.y - collar.y));  // as far east as north
  assert(Near(collar.Distance(toe), 100));
  //! [bearing]
}

void Rotation() {
  //! [rotation]
  // A quarter turn about the vertical through (1, 1, 0): right-handed, so from east to north.
  const double quarter = std::acos(0.0);
  const Coord3D turned = Coord3D(3, 1, 5).Rotate(Coord3D(1, 1, 0), Coord3D(0, 0, 1), quarter);

  assert(Near(turned.x, 1) && Near(turned.y, 3) && Near(turned.z, 5));
  //! [rotation]
}

void VerticalFrame() {
  //! [z-up]
  // Into the frame in which a direction points up, and back.
  const Coord3D normal(2, -1, 2);
  Matrix4 toZUp, fromZUp;
  normal.GetZUpTransform(toZUp, fromZUp);

  const Coord3D up = toZUp * normal;
  assert(Near(up.x, 0) && Near(up.y, 0) && Near(up.z, 3));
  assert(Near((fromZUp * up).Distance(normal), 0));
  //! [z-up]
}

}  // namespace

int main() {
  Arithmetic();
  Bearings();
  Rotation();
  VerticalFrame();
}
