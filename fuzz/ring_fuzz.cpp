// Point in polygon. Any ring and any query has to be answered, twice the same; a flat ring of small
// integers, so small that it is asked in the world's own coordinates, has to be answered as the
// exact even-odd rule has it.

#include <cmath>

#include "input.h"
#include "support/polylines.h"

namespace {

using namespace rings;

void CheckLattice(fuzz::Input& input) {
  const auto next = [&input] {
    return Point2{1.0 * input.SmallInteger(), 1.0 * input.SmallInteger()};
  };
  const Point2 query = next();
  Ring2 ring;
  while (input.Left() > 0 && ring.size() < 60) {
    ring.push_back(next());
  }
  FUZZ_CHECK(AnswersByEvenOddRule(ring, query, 1.0 / 4096));
}

void CheckAny(fuzz::Input& input) {
  const Point3D query = input.Next<Point3D>();
  Polyline3D polyline;
  polyline.SetClosed(input.Byte() % 2 == 0);
  while (input.Left() > 0 && polyline.Size() < 250) {
    polyline.Add(input.Next<Point3D>());
  }
  const bool isInside = polyline.IsPointInside(query);
  FUZZ_CHECK(polyline.IsPointInside(query) == isInside);
  FUZZ_CHECK(!isInside || (!std::isnan(query.x) && !std::isnan(query.y) && !std::isnan(query.z)));
}

}  // namespace

void fuzz::Run(Input& input) {
  if (input.Byte() % 2 == 0) {
    CheckLattice(input);
  } else {
    input.DrawKind();
    CheckAny(input);
  }
}
