// The smallest enclosing circle of any points has to come to an end; of points with small integer
// coordinates it has to be the smallest one, as trying all pairs and triples finds it.

#include <cmath>
#include <vector>

#include "input.h"
#include "support/smallest_circle.h"
#include "zyl/geometry/enclosing_circle.h"
#include "zyl/geometry/polyline3d.h"

using namespace zyl::geometry;

void fuzz::Run(Input& input) {
  const bool isSmall = input.Byte() % 2 == 0;
  input.DrawKind();
  const std::size_t most = isSmall ? 14 : 400;  // of few, all triples are tried
  std::vector<Point3D> points;
  while (input.Left() > 0 && points.size() < most) {
    const double x = isSmall ? input.SmallInteger() : input.Coordinate();
    const double y = isSmall ? input.SmallInteger() : input.Coordinate();
    points.emplace_back(x, y, 0.0);
  }
  const EncCircle circle = SmallestEnclosingCircle(points);
  if (isSmall && !points.empty()) {
    FUZZ_CHECK(std::fabs(circle.radius - exact::SmallestRadius(points)) <= 1e-9);
    for (const Point3D& p : points) {
      FUZZ_CHECK(std::hypot(p.x - circle.x, p.y - circle.y) <= circle.radius + 1e-9);
    }
  }
}
