// How two edges in the plane meet: whether they cross must not change when the edges or their ends
// are exchanged, and the crossing point has to be the same to the last bit.

#include <cmath>
#include <cstring>
#include <initializer_list>

#include "input.h"
#include "zyl/geometry/geom.h"
#include "zyl/geometry/segment.h"

using namespace zyl::geometry;

void fuzz::Run(Input& input) {
  geom_Init();
  input.DrawKind();
  const double tolerance = input.Byte() % 2 == 0 ? 0.0 : input.Coordinate();
  Coord3D p[4];
  bool isTame = tolerance <= 0;
  for (Coord3D& point : p) {
    point = Coord3D{input.Coordinate(), input.Coordinate(), input.Coordinate()};
    for (const double value : {point.x, point.y}) {
      isTame = isTame && std::fabs(value) < 1e100 && (value == 0 || std::fabs(value) > 1e-100);
    }
  }

  const auto meet = [&](int a, int b, int c, int d, Intersection& at) {
    return geom_EdgeIntersectEdge2D(p[a], p[b], p[c], p[d], at, tolerance);
  };
  Intersection forward(0, 0, 7, 9), exchanged, reversed;
  const Intersection2D_e meeting = meet(0, 1, 2, 3, forward);
  FUZZ_CHECK(meeting >= INTERSECT2D_UNDEFINED && meeting <= INTERSECT2D_OVERLAP);
  FUZZ_CHECK(forward.point.z == 7 && forward.parameter == 9);
  const bool isCrossing = meeting == INTERSECT2D_CROSSING;
  const bool exchangedCross = meet(2, 3, 0, 1, exchanged) == INTERSECT2D_CROSSING;
  const bool reversedCross = meet(1, 0, 3, 2, reversed) == INTERSECT2D_CROSSING;
  if (!isTame) {
    return;
  }
  FUZZ_CHECK(exchangedCross == isCrossing && reversedCross == isCrossing);
  FUZZ_CHECK(!isCrossing || std::memcmp(&forward.point, &exchanged.point, 2 * sizeof(double)) == 0);
  FUZZ_CHECK(!isCrossing || std::memcmp(&forward.point, &reversed.point, 2 * sizeof(double)) == 0);
}
