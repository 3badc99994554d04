// A host's smallest program: it has to compile against the installed headers, load the library and
// get right answers from it.

#include <zyl/geometry/geometry.h>

#include <cstdio>
#include <vector>

int main() {
  using zyl::geometry::Coord3D;
  using zyl::geometry::Point3D;
  using zyl::geometry::Polyline3D;

  geom_Init();
  const bool left = geom_Orient2D(Coord3D(0, 0, 0), Coord3D(1, 0, 0), Coord3D(0, 1, 0), 0.0) ==
                    zyl::geometry::ORIENT_COUNTERCLOCKWISE;

  const Polyline3D ring(
      std::vector<Point3D>{{0, 0, 5}, {4, 0, 5}, {4, 4, 5}, {0, 4, 5}, {0, 0, 5}});
  const bool inside = ring.IsPointInside(Point3D(1, 1, 5));
  const bool outside = !ring.IsPointInside(Point3D(5, 1, 5));

  std::printf("%d.%d.%d: %d %d %d\n", ZYL_GEOMETRY_VERSION_MAJOR, ZYL_GEOMETRY_VERSION_MINOR,
              ZYL_GEOMETRY_VERSION_PATCH, left, inside, outside);
  return left && inside && outside ? 0 : 1;
}
