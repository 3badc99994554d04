// How two edges in the plane meet: the answer has to mirror itself when the edges or their ends are
// exchanged, and the crossing point has to be the same to the last bit.

#include <cmath>
#include <cstring>

#include "input.h"
#include "zyl/geometry/geom.h"
#include "zyl/geometry/segment.h"

namespace {

using namespace zyl::geometry;

bool IsCrossing(Intersection2D_e meeting) { return meeting == INTERSECT2D_CROSSING; }

// The answer for the same edges named the other way round.
Intersection2D_e WithEdgesExchanged(Intersection2D_e meeting) {
  switch (meeting) {
    case INTERSECT2D_FIRST_ON_SECOND:
      return INTERSECT2D_SECOND_ON_FIRST;
    case INTERSECT2D_SECOND_ON_FIRST:
      return INTERSECT2D_FIRST_ON_SECOND;
    case INTERSECT2D_FIRST_START:
      return INTERSECT2D_SECOND_START;
    case INTERSECT2D_FIRST_END:
      return INTERSECT2D_SECOND_END;
    case INTERSECT2D_SECOND_START:
      return INTERSECT2D_FIRST_START;
    case INTERSECT2D_SECOND_END:
      return INTERSECT2D_FIRST_END;
    default:
      return meeting;
  }
}

bool IsShared(Intersection2D_e meeting) {
  return meeting == INTERSECT2D_SHARED_FIRST_START || meeting == INTERSECT2D_SHARED_FIRST_END;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  geom_Init();
  fuzz::Input input(data, size);
  input.DrawKind();
  const double tolerance = input.Byte() % 2 == 0 ? 0.0 : input.Coordinate();
  Coord3D p[4];
  bool isTame = true;
  for (Coord3D& point : p) {
    point = Coord3D{input.Coordinate(), input.Coordinate(), input.Coordinate()};
    isTame = isTame && std::fabs(point.x) < 1e100 && std::fabs(point.y) < 1e100 &&
             (point.x == 0 || std::fabs(point.x) > 1e-100) &&
             (point.y == 0 || std::fabs(point.y) > 1e-100);
  }

  Intersection forward(0, 0, 7, 9);
  const Intersection2D_e meeting =
      geom_EdgeIntersectEdge2D(p[0], p[1], p[2], p[3], forward, tolerance);
  FUZZ_CHECK(meeting >= INTERSECT2D_UNDEFINED && meeting <= INTERSECT2D_OVERLAP);
  FUZZ_CHECK(forward.point.z == 7 && forward.parameter == 9);
  if (!isTame || tolerance > 0) {
    return 0;
  }

  Intersection exchanged;
  const Intersection2D_e mirrored =
      geom_EdgeIntersectEdge2D(p[2], p[3], p[0], p[1], exchanged, tolerance);
  Intersection reversed;
  const Intersection2D_e turned =
      geom_EdgeIntersectEdge2D(p[1], p[0], p[3], p[2], reversed, tolerance);
  FUZZ_CHECK(IsCrossing(mirrored) == IsCrossing(meeting));
  FUZZ_CHECK(IsCrossing(turned) == IsCrossing(meeting));
  FUZZ_CHECK(IsShared(meeting) ? IsShared(mirrored)
                               : mirrored == WithEdgesExchanged(meeting) ||
                                     meeting == INTERSECT2D_FIRST_ON_SECOND);  // also if identical
  if (IsCrossing(meeting)) {
    FUZZ_CHECK(std::memcmp(&forward.point, &exchanged.point, 2 * sizeof(double)) == 0);
    FUZZ_CHECK(std::memcmp(&forward.point, &reversed.point, 2 * sizeof(double)) == 0);
  }
  return 0;
}
