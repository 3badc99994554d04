#include "classify.h"

#include <algorithm>
#include <future>

#include "zyl/geometry/geom.h"

namespace survey {
namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::ORIENT_CLOCKWISE;
using zyl::geometry::ORIENT_COUNTERCLOCKWISE;
using zyl::geometry::Orientation_e;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

bool IsBetween(double value, double a, double b) {
  return std::min(a, b) <= value && value <= std::max(a, b);
}

// Exact: three points are collinear in space just if they are so in x-y, in y-z and in z-x.
bool IsOnEdge(const Coord3D& a, const Coord3D& b, const Coord3D& p) {
  if (!IsBetween(p.x, a.x, b.x) || !IsBetween(p.y, a.y, b.y) || !IsBetween(p.z, a.z, b.z)) {
    return false;
  }
  const auto turns = [](Orientation_e orientation) {
    return orientation == ORIENT_CLOCKWISE || orientation == ORIENT_COUNTERCLOCKWISE;
  };
  const auto rotated = [](const Coord3D& c) { return Coord3D(c.y, c.z, c.x); };
  const Coord3D a1 = rotated(a), b1 = rotated(b), p1 = rotated(p);
  return !turns(geom_Orient2D(a, b, p, 0.0)) && !turns(geom_Orient2D(a1, b1, p1, 0.0)) &&
         !turns(geom_Orient2D(rotated(a1), rotated(b1), rotated(p1), 0.0));
}

bool IsOnBoundary(const Polyline3D& outline, const Coord3D& p) {
  const std::vector<Point3D>& corners = outline.GetPointVector();
  int edgesThroughP = 0;
  Coord3D from = corners.back();
  for (const Coord3D to : corners) {
    if (p == to) {
      return true;
    }
    if (IsOnEdge(from, to, p)) {
      ++edgesThroughP;
    }
    from = to;
  }
  return edgesThroughP % 2 == 1;
}

bool IsLevel(const Polyline3D& outline) {
  const std::vector<Point3D>& corners = outline.GetPointVector();
  return std::all_of(corners.begin(), corners.end(),
                     [&](const Point3D& corner) { return corner.z == corners.front().z; });
}

}  // namespace

Answer Classify(const Polyline3D& outline, const Coord3D& p) {
  const double z = IsLevel(outline) ? outline[0].z : p.z;
  if (IsOnBoundary(outline, Coord3D(p.x, p.y, z))) {
    return Answer::kOnBoundary;
  }
  return outline.IsPointInside(p.x, p.y, p.z) ? Answer::kInside : Answer::kOutside;
}

std::vector<std::vector<Answer>> ClassifyAll(const Survey& survey, unsigned threads) {
  const std::size_t count = survey.collars.size();
  std::vector<std::vector<Answer>> answers(survey.outlines.size(), std::vector<Answer>(count));
  // Every thread takes each `threads`-th collar and writes to slots of its own.
  const auto work = [&](std::size_t first) {
    for (std::size_t i = first; i < count; i += threads) {
      for (std::size_t k = 0; k < answers.size(); ++k) {
        answers[k][i] = Classify(survey.outlines[k], survey.collars[i].position);
      }
    }
  };
  std::vector<std::future<void>> workers;
  for (unsigned t = 0; t < threads; ++t) {
    workers.push_back(std::async(std::launch::async, work, t));
  }
  for (std::future<void>& worker : workers) {
    worker.get();
  }
  return answers;
}

}  // namespace survey
