// A polyline put together step by step answers any query; then names: any text is read as an
// integer or as 0, and every integer comes back.

#include <string>
#include <vector>

#include "input.h"
#include "zyl/geometry/direction.h"
#include "zyl/geometry/polyline3d.h"

namespace {

using namespace zyl::geometry;

void Edit(Polyline3D& line, fuzz::Input& input) {
  const int edit = input.Byte() % 4;
  if (edit == 2) {
    line.Reverse();
  } else if (edit == 3) {
    line.SetClosed(input.Byte() % 2 == 0);
  } else {
    line.Add(input.Next<Point3D>());
  }
}

void CheckNames(fuzz::Input& input) {
  Polyline3D line;
  const int number = input.Int(-2147483647 - 1, 2147483647);
  line.SetNameAsInt(number);
  FUZZ_CHECK(line.GetNameAsInt() == number);
  FUZZ_CHECK(line.GetName() == std::to_string(number));
  std::string text;
  while (input.Left() > 0) {
    text.push_back(static_cast<char>(input.Byte()));
  }
  line.SetName(text);
  line.GetNameAsInt();
  FUZZ_CHECK(line.GetName() == text);
}

}  // namespace

void fuzz::Run(Input& input) {
  input.DrawKind();
  Polyline3D line;
  const int steps = input.Byte() % 64;
  for (int i = 0; i < steps && input.Left() > 0; ++i) {
    Edit(line, input);
  }
  const Polyline3D copy(line);
  FUZZ_CHECK((copy == line) != (copy != line));
  line.GetCenterPoint();
  line.PrintDebug();
  line.IsClockwise();
  const Point3D p = input.Next<Point3D>();
  const double tolerance = input.Coordinate();
  line.IsPointOnEdge(p, true, tolerance);
  line.IsPointOnEdge(p, false, tolerance);
  Direction normal(0, 0, 7);
  line.GetPolygonNormal(normal);
  std::vector<Point3D> left, right;
  line.GetPointNormals(left, right, input.Coordinate());
  FUZZ_CHECK(left.size() == line.Size() && right.size() == line.Size());
  CheckNames(input);
}
