// A polyline put together step by step beside a plain vector, and what it answers to any query;
// then names: any text is read as an integer or as 0, and every integer comes back.

#include <algorithm>
#include <string>
#include <vector>

#include "input.h"
#include "zyl/geometry/direction.h"
#include "zyl/geometry/polyline3d.h"

namespace {

using namespace zyl::geometry;

bool IsUsual(const Point3D& p) { return p == p; }

void Edit(Polyline3D& line, std::vector<Point3D>& model, fuzz::Input& input) {
  const int edit = input.Byte() % 4;
  if (edit == 2) {
    line.Reverse();
    std::reverse(model.begin(), model.end());
  } else if (edit == 3) {
    line.SetClosed(input.Byte() % 2 == 0);
  } else {
    model.push_back(input.Next<Point3D>());
    line.Add(model.back());
  }
}

void CheckPoints(const Polyline3D& line, const std::vector<Point3D>& model) {
  FUZZ_CHECK(line.Size() == model.size());
  bool allUsual = true;
  for (unsigned int i = 0; i < line.Size(); ++i) {
    FUZZ_CHECK(line[i] == model[i] || !IsUsual(model[i]));
    allUsual = allUsual && IsUsual(model[i]);
  }
  const Polyline3D copy(line);
  FUZZ_CHECK((copy == line) == allUsual);
  FUZZ_CHECK((copy != line) != allUsual);
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
  std::vector<Point3D> model;
  const int steps = input.Byte() % 64;
  for (int i = 0; i < steps && input.Left() > 0; ++i) {
    Edit(line, model, input);
  }
  CheckPoints(line, model);

  const Point3D p = input.Next<Point3D>();
  line.GetCenterPoint();
  line.PrintDebug();
  line.IsClockwise();
  line.IsPointOnEdge(p, true, input.Coordinate());
  FUZZ_CHECK(model.empty() || !IsUsual(model[0]) || model.size() < 2 || model[0] == model[1] ||
             line.IsPointOnEdge(model[0], false, 1e300) || input.IsRaw());
  Direction normal(0, 0, 7);
  line.GetPolygonNormal(normal);
  std::vector<Point3D> left, right;
  line.GetPointNormals(left, right, input.Coordinate());
  FUZZ_CHECK(left.size() == model.size() && right.size() == model.size());
  CheckNames(input);
}
