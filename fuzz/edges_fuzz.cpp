// How two edges in the plane meet: the answer has to mirror itself when the edges or their ends are
// exchanged, and the crossing point has to be the same to the last bit.

#include <cmath>
#include <cstring>
#include <initializer_list>

#include "input.h"
#include "zyl/geometry/geom.h"
#include "zyl/geometry/segment.h"

namespace {

using namespace zyl::geometry;

// The answers for the same edges named the other way round, by the number of the answer.
constexpr Intersection2D_e kExchanged[] = {
    INTERSECT2D_UNDEFINED,        INTERSECT2D_NONE,
    INTERSECT2D_CROSSING,         INTERSECT2D_SECOND_ON_FIRST,
    INTERSECT2D_FIRST_ON_SECOND,  INTERSECT2D_SECOND_START,
    INTERSECT2D_SECOND_END,       INTERSECT2D_FIRST_START,
    INTERSECT2D_FIRST_END,        INTERSECT2D_SHARED_FIRST_START,
    INTERSECT2D_SHARED_FIRST_END, INTERSECT2D_OVERLAP};

bool IsShared(Intersection2D_e meeting) {
  return meeting == INTERSECT2D_SHARED_FIRST_START || meeting == INTERSECT2D_SHARED_FIRST_END;
}

}  // namespace

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
  const Intersection2D_e mirrored = meet(2, 3, 0, 1, exchanged);
  const Intersection2D_e turned = meet(1, 0, 3, 2, reversed);
  if (!isTame) {
    return;
  }
  const bool isCrossing = meeting == INTERSECT2D_CROSSING;
  FUZZ_CHECK((mirrored == INTERSECT2D_CROSSING) == isCrossing);
  FUZZ_CHECK((turned == INTERSECT2D_CROSSING) == isCrossing);
  FUZZ_CHECK(IsShared(meeting) ? IsShared(mirrored)
                               : mirrored == kExchanged[meeting] ||
                                     meeting == INTERSECT2D_FIRST_ON_SECOND);  // also if identical
  FUZZ_CHECK(!isCrossing || std::memcmp(&forward.point, &exchanged.point, 2 * sizeof(double)) == 0);
  FUZZ_CHECK(!isCrossing || std::memcmp(&forward.point, &reversed.point, 2 * sizeof(double)) == 0);
}
