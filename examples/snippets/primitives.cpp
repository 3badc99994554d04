// Planes, segments, triangles, search ellipsoids and enclosing circles.

#include <cassert>
#include <cmath>
#include <vector>

#include "zyl/geometry/geometry.h"

using zyl::geometry::Coord3D;
using zyl::geometry::Direction;
using zyl::geometry::Ellipsoid;
using zyl::geometry::EncCircle;
using zyl::geometry::Plane;
using zyl::geometry::Point3D;
using zyl::geometry::Segment;
using zyl::geometry::SmallestEnclosingCircle;
using zyl::geometry::Triangle;

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;

bool Near(double a, double b) { return std::abs(a - b) < 1e-9; }

void StrikeAndDip() {
  //! [strike and dip]
  // A fault through `outcrop` that strikes north and dips 30 degrees to the right of it, the east.
  const Coord3D outcrop(100, 200, 50);
  const Plane fault(outcrop, 0.0, 30 * kRadiansPerDegree);

  assert(fault.Distance(Coord3D(100, 200, 60), false) > 0);       // above it
  assert(fault.Distance(Coord3D(100, 900, 50), false) == 0);      // along strike
  assert(Near(fault.Distance(Coord3D(200, 200, 50), true), 50));  // 100 m east, level
  //! [strike and dip]
}

void CommonLine() {
  //! [common line]
  const Plane floor(0, 0, 1, 0);  // z = 0
  const Plane wall(1, 0, 0, -3);  // x = 3
  Direction along;
  Point3D through;

  assert(floor.Intersect(wall, along, through));
  assert(along.y == 1 && through == Point3D(3, 0, 0));
  assert(!floor.Intersect(Plane(0, 0, 1, -5), along, through));  // parallel
  //! [common line]
}

void Nearest() {
  //! [nearest]
  Segment pipe(Coord3D(0, 0, 0), Coord3D(10, 0, 0));
  double distance = 0;
  assert(pipe.GetNearestPoint(Coord3D(13, 4, 0), distance) == Coord3D(10, 0, 0));
  assert(distance == 5);

  geom_Init();  // a triangle decides by the predicates
  Triangle roof{Point3D(0, 0, 3), Point3D(4, 0, 3), Point3D(0, 4, 3)};
  assert(roof.Distance(Coord3D(1, 1, 8)) == 5);
  assert(roof.Intersect(Segment(Coord3D(1, 1, 0), Coord3D(1, 1, 9))));
  //! [nearest]
}

void Search() {
  //! [ellipsoid]
  // Looks 100 m along a bearing of 60 degrees, 50 m across it and 20 m up and down.
  const Ellipsoid search(Coord3D(100, 50, 20), Coord3D(60, 0, 0));
  Coord3D centre(1000, 2000, 300);
  const double reach = search.radii.x * search.radii.x;

  Direction along;
  along.SetDirectionByBearingDegrees(60, 0);
  const Coord3D sample = centre + Coord3D(along.x, along.y, along.z) * 99;
  assert(centre.SquaredDistance(sample, search.matrix) < reach);
  assert(centre.SquaredDistance(centre + Coord3D(0, 0, 21), search.matrix) > reach);
  //! [ellipsoid]
}

void Enclosing() {
  //! [enclosing circle]
  const std::vector<Point3D> collars = {{0, 0, 12}, {4, 0, 15}, {2, 1, 11}, {2, -1, 14}};
  const EncCircle circle = SmallestEnclosingCircle(collars);  // heights do not matter

  assert(circle.x == 2 && circle.y == 0 && circle.radius == 2);
  //! [enclosing circle]
}

}  // namespace

int main() {
  StrikeAndDip();
  CommonLine();
  Nearest();
  Search();
  Enclosing();
}
