// Sections through the centre of a search ellipsoid, and samples that it reaches.

#include <cmath>
#include <vector>

#include "look.h"
#include "pictures.h"
#include "scatter.h"
#include "zyl/geometry/direction.h"
#include "zyl/geometry/ellipsoid.h"

namespace gallery {
namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Direction;
using zyl::geometry::Ellipsoid;

constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kBearing = 60;
constexpr double kInclination = -15;
constexpr double kScale = 1.45;  // pixels a metre

// A plane through the centre of the ellipsoid, spanned by two unit vectors at right angles.
struct Section {
  Coord3D right;
  Coord3D up;
  svg::Spot centre;  // on the sheet

  Coord3D InSpace(double x, double y) const { return right * x + up * y; }
  svg::Spot OnSheet(double x, double y) const {
    return {centre.x + x * kScale, centre.y - y * kScale};
  }
};

// The distance that the ellipsoid measures, as a part of its reach: 1 on its surface.
double Reach(const Ellipsoid& ellipsoid, const Coord3D& offset) {
  Coord3D centre;
  return std::sqrt(centre.SquaredDistance(offset, ellipsoid.matrix)) / ellipsoid.radii.x;
}

std::vector<svg::Spot> Contour(const Ellipsoid& ellipsoid, const Section& section, double reach) {
  std::vector<svg::Spot> points;
  for (int degrees = 0; degrees < 360; ++degrees) {
    const double x = std::cos(degrees * kRadiansPerDegree);
    const double y = std::sin(degrees * kRadiansPerDegree);
    const double length = reach / Reach(ellipsoid, section.InSpace(x, y));
    points.push_back(section.OnSheet(x * length, y * length));
  }
  return points;
}

void DrawSurface(svg::SvgWriter& picture, const Ellipsoid& ellipsoid, const Section& section) {
  picture.Polygon(Contour(ellipsoid, section, 1), "surface");
  picture.Polygon(Contour(ellipsoid, section, 2.0 / 3), "contour");
  picture.Polygon(Contour(ellipsoid, section, 1.0 / 3), "contour");
}

// One sample somewhere in each square of a grid.
void DrawSamples(svg::SvgWriter& picture, const Ellipsoid& ellipsoid, const Section& section,
                 Scatter& scatter) {
  for (int i = -4; i <= 4; ++i) {
    for (int j = -4; j <= 4; ++j) {
      const double x = 21 * i + scatter.Between(-8, 8);
      const double y = 21 * j + scatter.Between(-8, 8);
      const bool reached = Reach(ellipsoid, section.InSpace(x, y)) <= 1;
      picture.Circle(section.OnSheet(x, y), 4, reached ? "dot" : "pale");
    }
  }
}

void DrawArrow(svg::SvgWriter& picture, svg::Spot from, svg::Spot to) {
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  const double length = std::hypot(dx, dy);
  const double ux = dx / length * 7;
  const double uy = dy / length * 7;
  picture.Line(from, to, "axis");
  picture.Polygon(
      {to, {to.x - ux - uy / 2, to.y - uy + ux / 2}, {to.x - ux + uy / 2, to.y - uy - ux / 2}},
      "head-of-arrow");
}

// A line at `angle` degrees clockwise from up, and the arc to it from `zero` degrees.
void DrawAngle(svg::SvgWriter& picture, const Section& section, double zero, double angle,
               double length, const char* style, const std::string& label) {
  const auto at = [&](double degrees, double distance) {
    return section.OnSheet(std::sin(degrees * kRadiansPerDegree) * distance,
                           std::cos(degrees * kRadiansPerDegree) * distance);
  };
  std::vector<svg::Spot> arc;
  for (int i = 0; i <= 20; ++i) {
    arc.push_back(at(zero + (angle - zero) * i / 20, 0.6 * length));
  }
  picture.Line(at(zero, 0), at(zero, 0.8 * length), "dashed");
  picture.Line(at(angle, 0), at(angle, length), style);
  picture.Polyline(arc, "arc");
  const svg::Spot middle = at((zero + angle) / 2, 0.6 * length + 13);
  picture.Text({middle.x, middle.y + 5}, "middle", label);
}

}  // namespace

void DrawEllipsoidSections(std::ostream& out) {
  const Ellipsoid ellipsoid(Coord3D(100, 45, 30), Coord3D(kBearing, kInclination, 0));
  Direction along;
  along.SetDirectionByBearingDegrees(kBearing, 0);
  const Section level{Coord3D(1, 0, 0), Coord3D(0, 1, 0), {178, 210}};
  const Section upright{Coord3D(along.x, along.y, along.z), Coord3D(0, 0, 1), {526, 210}};

  svg::SvgWriter picture(out, 704, 420,
                         Look(".surface{fill:#dcebf5;stroke:#0072b2;stroke-width:2.2}\n"
                              ".contour{fill:none;stroke:#0072b2;stroke-width:.9;opacity:.7}\n"
                              ".major{stroke:#d55e00;stroke-width:2.2}\n"
                              ".bearing{stroke:#d55e00;stroke-width:1.4;stroke-dasharray:7 3}\n"
                              ".arc{fill:none;stroke:#d55e00;stroke-width:1.4}\n"
                              ".head-of-arrow{fill:#667788}\n"));
  Scatter scatter(11);
  picture.Text({level.centre.x, 30}, "head", "level section");
  picture.Text({upright.centre.x, 30}, "head", "upright section along the bearing");
  DrawSurface(picture, ellipsoid, level);
  DrawAngle(picture, level, 0, kBearing, 100, "bearing", "60°");
  DrawSamples(picture, ellipsoid, level, scatter);
  DrawSurface(picture, ellipsoid, upright);
  DrawAngle(picture, upright, 90, 90 - kInclination, 100, "major", "−15°");
  DrawSamples(picture, ellipsoid, upright, scatter);
  DrawArrow(picture, {24, 98}, {24, 66});
  picture.Text({24, 58}, "middle", "N");
  DrawArrow(picture, {352, 98}, {352, 66});
  picture.Text({352, 58}, "middle", "up");
  DrawKey(picture, {352, 398},
          {{KeyEntry::kDot, "dot", "within reach"},
           {KeyEntry::kDot, "pale", "beyond it"},
           {KeyEntry::kLine, "bearing", "bearing"},
           {KeyEntry::kLine, "major", "major axis"},
           {KeyEntry::kLine, "contour", "⅓, ⅔ of the way"}});
  picture.Finish();
}

}  // namespace gallery
