// Many threads, one polygon.

#include <cassert>
#include <future>
#include <vector>

#include "zyl/geometry/geometry.h"

using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

int main() {
  //! [threads]
  // Const queries may run at once, on one object or on many; nothing has to be locked or set up.
  const Polyline3D lease(
      std::vector<Point3D>{{0, 0, 0}, {8, 0, 0}, {8, 8, 0}, {4, 2, 0}, {0, 8, 0}, {0, 0, 0}});
  const auto countInside = [&lease](int row) {
    int inside = 0;
    for (int column = 0; column < 8; ++column) {
      inside += lease.IsPointInside(Point3D(column + 0.5, row + 0.5, 0)) ? 1 : 0;
    }
    return inside;
  };

  std::vector<std::future<int>> rows;
  for (int row = 0; row < 8; ++row) {
    rows.push_back(std::async(std::launch::async, countInside, row));
  }
  int inside = 0;
  for (std::future<int>& row : rows) {
    inside += row.get();
  }
  //! [threads]
  int again = 0;
  for (int row = 0; row < 8; ++row) {
    again += countInside(row);
  }
  assert(inside == again);
  assert(inside == 40);
}
