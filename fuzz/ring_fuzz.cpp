// Point in polygon. Any ring and any query has to be answered, twice the same; a flat ring of small
// integers, so small that it is asked in the world's own coordinates, has to be answered as the
// exact even-odd rule has it.

#include <cmath>
#include <cstddef>
#include <vector>

#include "input.h"
#include "support/even_odd.h"
#include "zyl/geometry/polyline3d.h"

namespace {

using exact::Place;
using exact::Point2;
using exact::Ring2;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

// At this scale no plane fits, and x and y are taken as they are.
constexpr double kUnit = 1.0 / 4096;
constexpr std::size_t kMostPoints = 250;

bool CrossesItself(const Ring2& ring) {
  for (std::size_t i = 0; i < ring.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (exact::CrossProperly(ring[i], ring[(i + 1) % ring.size()], ring[j],
                               ring[(j + 1) % ring.size()])) {
        return true;
      }
    }
  }
  return false;
}

bool IsOnEdge(const Ring2& ring, const Point2& query) {
  for (std::size_t i = 0; i < ring.size(); ++i) {
    if (exact::IsOnSegment(ring[i], ring[(i + 1) % ring.size()], query)) {
      return true;
    }
  }
  return false;
}

// Three different points, not all on one line.
bool HasArea(const Ring2& ring) {
  for (const Point2& p : ring) {
    for (const Point2& q : ring) {
      if (exact::Orient2D(ring[0].data(), p.data(), q.data()) != 0) {
        return true;
      }
    }
  }
  return false;
}

void CheckLattice(fuzz::Input& input) {
  const auto next = [&input] {
    return Point2{input.SmallInteger() * kUnit, input.SmallInteger() * kUnit};
  };
  const Point2 query = next();
  Ring2 ring;
  Polyline3D polyline;
  while (input.Left() > 0 && ring.size() < 60) {
    ring.push_back(next());
    polyline.Add(ring.back()[0], ring.back()[1], 0);
  }
  polyline.SetClosed(true);
  const bool isInside = polyline.IsPointInside(query[0], query[1], 0);
  if (ring.size() < 3 || !HasArea(ring)) {
    FUZZ_CHECK(!isInside);
    return;
  }
  // Where the ring crosses itself there is a corner that the oracle does not know of, and its edges
  // are rounded with it.
  if (IsOnEdge(ring, query) && CrossesItself(ring)) {
    return;
  }
  const Place place = exact::EvenOdd(ring, query);
  FUZZ_CHECK(isInside == (place != Place::kOutside));
}

void CheckAny(fuzz::Input& input) {
  const auto next = [&input] {
    return Point3D{input.Coordinate(), input.Coordinate(), input.Coordinate()};
  };
  const Point3D query = next();
  Polyline3D polyline;
  polyline.SetClosed(input.Byte() % 2 == 0);
  while (input.Left() > 0 && polyline.Size() < kMostPoints) {
    polyline.Add(next());
  }
  const bool isInside = polyline.IsPointInside(query);
  FUZZ_CHECK(polyline.IsPointInside(query) == isInside);
  FUZZ_CHECK(!isInside || (!std::isnan(query.x) && !std::isnan(query.y) && !std::isnan(query.z)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  if (input.Byte() % 2 == 0) {
    CheckLattice(input);
  } else {
    input.DrawKind();
    CheckAny(input);
  }
  return 0;
}
