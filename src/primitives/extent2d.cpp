#include "zyl/geometry/extent2d.h"

#include <cmath>

#include "primitives/box.h"
#include "zyl/geometry/extent.h"

namespace zyl::geometry {

namespace {

// In the units of the coordinates; both sides have to exceed it.
constexpr double kLongestInvalidSide = 1e-5;

}  // namespace

Extent2D::Extent2D(const Extent& e) : Extent2D(e.min.x, e.min.y, e.max.x, e.max.y) {}

Extent2D::Extent2D(const Extent_type_s& record)
    : Extent2D(record.minX, record.minY, record.maxX, record.maxY) {}

bool Extent2D::IsValid() const {
  const Coord2D sides = Sides();
  return std::fabs(sides.x) > kLongestInvalidSide && std::fabs(sides.y) > kLongestInvalidSide;
}

bool Extent2D::Hit(const Extent2D& o) const { return internal::Touch(*this, o); }

bool Extent2D::IsOverlapping(const Extent2D& o) const { return internal::Overlap(*this, o); }

bool Extent2D::IsCoveredBy(const Extent2D& o) const { return internal::LiesWithin(*this, o); }

bool Extent2D::IsInside(const Extent2D& o) const { return internal::LiesStrictlyWithin(*this, o); }

bool Extent2D::IsInside(double x, double y) const { return IsInside(Coord2D(x, y)); }

bool Extent2D::IsInside(const Coord2D& p) const { return internal::LiesWithin(Extent2D(p), *this); }

bool Extent2D::GetIntersection(const Extent2D& o, Extent2D& out) const {
  return internal::Intersect(*this, o, out);
}

double Extent2D::GetArea(bool absolute) const {
  const double area = (max.y - min.y) * (max.x - min.x);
  return absolute ? std::fabs(area) : area;
}

std::vector<Coord2D> Extent2D::GetCornerPoints() const {
  return {min, {max.x, min.y}, max, {min.x, max.y}};
}

void Extent2D::Expand(double d) { internal::Widen(Coord2D(d, d), *this); }

}  // namespace zyl::geometry
