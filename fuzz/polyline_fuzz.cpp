// A program that edits a polyline, step by step, beside a plain vector that is edited the same way;
// then names: any text is read as an integer or as 0, and every integer comes back.

#include <string>
#include <vector>

#include "input.h"
#include "zyl/geometry/direction.h"
#include "zyl/geometry/polyline3d.h"

namespace {

using namespace zyl::geometry;

constexpr unsigned int kMostPoints = 200;

bool IsUsual(const Point3D& p) { return p == p; }

void Edit(Polyline3D& line, std::vector<Point3D>& model, fuzz::Input& input) {
  switch (input.Byte() % 6) {
    case 0:
    case 1:
      model.push_back(input.Next<Point3D>());
      line.Add(model.back());
      break;
    case 2: {
      const std::size_t n = input.Byte() % kMostPoints, before = model.size();
      line.Resize(static_cast<unsigned int>(n));
      model.resize(n > 0 ? n : before);
      for (std::size_t i = before; i < n; ++i) {
        line[static_cast<unsigned int>(i)] = model[i];
      }
      break;
    }
    case 3:
      line.Reverse();
      model = std::vector<Point3D>(model.rbegin(), model.rend());
      break;
    case 4: {
      const int coordinate = input.Byte() % 5 - 1;
      const double value = input.Coordinate();
      line.Set(value, coordinate);
      double Point3D::*const fields[] = {&Point3D::x, &Point3D::y, &Point3D::z};
      for (std::size_t i = 0; coordinate >= 0 && coordinate <= 2 && i < model.size(); ++i) {
        model[i].*fields[coordinate] = value;
      }
      break;
    }
    default:
      line.SetClosed(input.Byte() % 2 == 0);
      break;
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
