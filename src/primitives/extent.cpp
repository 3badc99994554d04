#include "zyl/geometry/extent.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "primitives/box.h"
#include "zyl/geometry/polyline3d.h"
#include "zyl/geometry/segment.h"

namespace zyl::geometry {

namespace {

// In the units of the coordinates; at least one side has to reach it.
constexpr double kShortestValidSide = 1e-5;

// The ring round the bottom, then the one round the top.
//
//     3 ─── 2        7 ─── 6
//     │     │   and  │     │  above it
//     0 ─── 1        4 ─── 5
std::array<Coord3D, 8> Corners(const Coord3D& min, const Coord3D& max) {
  return {Coord3D(min.x, min.y, min.z), Coord3D(max.x, min.y, min.z), Coord3D(max.x, max.y, min.z),
          Coord3D(min.x, max.y, min.z), Coord3D(min.x, min.y, max.z), Coord3D(max.x, min.y, max.z),
          Coord3D(max.x, max.y, max.z), Coord3D(min.x, max.y, max.z)};
}

constexpr std::size_t kEdges[12][2] = {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {0, 4}, {1, 5},
                                       {2, 6}, {3, 7}, {4, 5}, {5, 6}, {6, 7}, {7, 4}};

// Whether the quarter is the one of larger x, of larger y.
constexpr bool kQuarters[4][2] = {{true, true}, {true, false}, {false, false}, {false, true}};

void AppendRing(const Coord3D* corners, Polyline3D& ring) {
  for (int i = 0; i < 4; ++i) {
    ring.Add(corners[i].x, corners[i].y, corners[i].z);
  }
  ring.SetClosed(true);
}

}  // namespace

Extent::Extent(const Coord3D& a, const Coord3D& b, const Coord3D& c) : Extent(a) {
  AddPoint(b);
  AddPoint(c);
}

bool Extent::IsValid() const {
  const Coord3D sides = Sides();
  return std::fabs(sides.x) >= kShortestValidSide || std::fabs(sides.y) >= kShortestValidSide ||
         std::fabs(sides.z) >= kShortestValidSide;
}

bool Extent::Hit(const Extent& o) const { return internal::Touch(*this, o); }

bool Extent::IsOverlapping(const Extent& o) const { return internal::Overlap(*this, o); }

bool Extent::IsCoveredBy(const Extent& o) const { return internal::LiesWithin(*this, o); }

bool Extent::IsInside(const Extent& o) const { return internal::LiesStrictlyWithin(*this, o); }

bool Extent::IsInside(const Coord3D& p) const { return internal::LiesWithin(Extent(p), *this); }

bool Extent::GetIntersection(const Extent& o, Extent& out) const {
  return internal::Intersect(*this, o, out);
}

double Extent::Distance(const Coord3D& p) const {
  Coord3D nearest = p;
  internal::ForEachAxis<Coord3D>([&](double Coord3D::*axis) {
    if (min.*axis > p.*axis) {
      nearest.*axis = min.*axis;
    } else if (p.*axis > max.*axis) {
      nearest.*axis = max.*axis;
    }
  });
  return p.Distance(nearest);
}

double Extent::Distance(const Segment& s) const {
  const std::array<Coord3D, 8> corners = Corners(min, max);
  double nearest = std::numeric_limits<double>::quiet_NaN();
  for (const auto& [from, to] : kEdges) {
    nearest = std::fmin(nearest, Segment(corners[from], corners[to]).Distance(s));
  }
  nearest = std::fmin(nearest, Distance(s.start));
  return std::fmin(nearest, Distance(s.end));
}

std::vector<Coord3D> Extent::GetCornerPoints() const {
  const std::array<Coord3D, 8> corners = Corners(min, max);
  return {corners.begin(), corners.end()};
}

std::vector<Extent> Extent::GetOctants() const {
  const Coord3D c = Centroid();
  std::vector<Extent> octants;
  octants.reserve(8);
  for (const bool upper : {true, false}) {
    for (const auto& [right, far] : kQuarters) {
      octants.emplace_back(Coord3D(right ? c.x : min.x, far ? c.y : min.y, upper ? c.z : min.z),
                           Coord3D(right ? max.x : c.x, far ? max.y : c.y, upper ? max.z : c.z));
    }
  }
  return octants;
}

void Extent::GetTopBottomPolygons(Polyline3D& top, Polyline3D& bottom) {
  const std::array<Coord3D, 8> corners = Corners(min, max);
  AppendRing(&corners[0], bottom);
  AppendRing(&corners[4], top);
}

void Extent::Expand(double d) { internal::Widen(Coord3D(d, d, d), *this); }

void Extent::ExpandKeepingAspect(double f) { internal::Widen(Sides() * f * 0.5, *this); }

}  // namespace zyl::geometry

zyl::geometry::Extent FindPointsExtent(const std::vector<zyl::geometry::Point3D>& points) {
  if (points.empty()) {
    return {};
  }
  zyl::geometry::Extent extent(points.front());
  for (const zyl::geometry::Point3D& p : points) {
    extent.AddPoint(p);
  }
  return extent;
}
