// Planes on a lower-hemisphere equal-area net: great circles of two planes, poles of measurements
// around them, and the line that the two planes share.

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "look.h"
#include "pictures.h"
#include "scatter.h"
#include "zyl/geometry/direction.h"
#include "zyl/geometry/plane.h"

namespace gallery {
namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Direction;
using zyl::geometry::Plane;
using zyl::geometry::Point3D;

constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kRadius = 205;
constexpr svg::Spot kCentre{236, 244};
const Coord3D kOrigin;

// Degrees; the plane dips to the right of its strike.
struct Attitude {
  double strike;
  double dip;
};

Plane PlaneOf(const Attitude& attitude) {
  return Plane(kOrigin, attitude.strike * kRadiansPerDegree, attitude.dip * kRadiansPerDegree);
}

Coord3D Bearing(double bearing, double inclination) {
  Direction direction;
  direction.SetDirectionByBearingDegrees(bearing, inclination);
  return {direction.x, direction.y, direction.z};
}

// Where a line through the centre of the sphere leaves its lower half, after J. H. Lambert's
// projection, which keeps areas: points of equal density on the sphere have equal density here.
svg::Spot OnNet(Coord3D direction) {
  if (direction.z > 0) {
    direction *= -1;
  }
  const double stretch = kRadius / std::sqrt(1 - direction.z);
  return {kCentre.x + direction.x * stretch, kCentre.y - direction.y * stretch};
}

// From one end of the strike line through the dip to the other end.
std::vector<svg::Spot> GreatCircle(const Attitude& attitude) {
  const Coord3D normal = PlaneOf(attitude).Normal();
  Coord3D strike = Bearing(attitude.strike, 0);
  std::vector<svg::Spot> points;
  for (int pitch = 0; pitch <= 180; pitch += 3) {
    Coord3D line = strike.Rotate(kOrigin, normal, -pitch * kRadiansPerDegree);
    line.z = pitch % 180 == 0 ? 0 : line.z;  // the ends are level
    points.push_back(OnNet(line));
  }
  return points;
}

// What lies at `angle` degrees from the north pole of the net.
std::vector<svg::Spot> SmallCircle(double angle) {
  Coord3D rim = Bearing(angle, 0);
  std::vector<svg::Spot> points;
  for (int turn = 0; turn <= 180; turn += 3) {
    Coord3D line = rim.Rotate(kOrigin, Coord3D(0, 1, 0), turn * kRadiansPerDegree);
    line.z = turn % 180 == 0 ? 0 : line.z;
    points.push_back(OnNet(line));
  }
  return points;
}

void DrawNet(svg::SvgWriter& picture) {
  picture.Circle(kCentre, kRadius, "disc");
  for (int step = 10; step < 180; step += 10) {
    picture.Polyline(SmallCircle(step), "faint");
    const double dip = step <= 90 ? step : 180 - step;
    picture.Polyline(GreatCircle({step <= 90 ? 0.0 : 180.0, dip}), "faint");
  }
  picture.Circle(kCentre, kRadius, "axis");
  for (int bearing = 0; bearing < 360; bearing += 10) {
    const Coord3D rim = Bearing(bearing, 0);
    const double outer = kRadius + (bearing % 90 == 0 ? 9 : 5);
    picture.Line({kCentre.x + rim.x * kRadius, kCentre.y - rim.y * kRadius},
                 {kCentre.x + rim.x * outer, kCentre.y - rim.y * outer}, "axis");
  }
  const double label = kRadius + 20;
  picture.Text({kCentre.x, kCentre.y - label + 7}, "middle", "N");
  picture.Text({kCentre.x + label, kCentre.y + 5}, "middle", "E");
  picture.Text({kCentre.x, kCentre.y + label + 4}, "middle", "S");
  picture.Text({kCentre.x - label, kCentre.y + 5}, "middle", "W");
}

void DrawPoles(svg::SvgWriter& picture, const std::string& style, const Attitude& mean,
               Scatter& scatter, int count) {
  for (int i = 0; i < count; ++i) {
    const Attitude measured{scatter.Around(mean.strike, 7), scatter.Around(mean.dip, 4)};
    picture.Circle(OnNet(PlaneOf(measured).Normal()), 4, style);
  }
}

// Whole degrees, of at least so many digits.
std::string Degrees(double angle, int digits) {
  char text[32];
  std::snprintf(text, sizeof text, "%0*.0f°", digits, angle);
  return text;
}

std::string StrikeAndDip(const Attitude& plane) {
  return "strike " + Degrees(plane.strike, 3) + ", dip " + Degrees(plane.dip, 1);
}

// Trend and plunge of a line, as a geologist writes them.
std::string TrendAndPlunge(const Coord3D& line) {
  const Coord3D down = line.z > 0 ? -line : line;
  const double trend = std::atan2(down.x, down.y) / kRadiansPerDegree;
  const double plunge = std::asin(-down.z) / kRadiansPerDegree;
  return "plunges " + Degrees(plunge, 1) + " towards " +
         Degrees(trend < 0 ? trend + 360 : trend, 3);
}

void DrawNote(svg::SvgWriter& picture, double y, const KeyEntry& entry, const std::string& note) {
  DrawKeyEntry(picture, {486, y}, entry);
  picture.Text({515, y + 18}, "small", note);
}

}  // namespace

void DrawStereonet(std::ostream& out) {
  const Attitude bedding{35, 32};
  const Attitude joints{285, 68};
  svg::SvgWriter picture(out, 720, 490,
                         Look(".disc{fill:#fbfdfe}\n"
                              ".bedding{fill:none;stroke:#0072b2;stroke-width:2.4}\n"
                              ".joints{fill:none;stroke:#d55e00;stroke-width:2.4}\n"
                              ".bedpole{fill:#0072b2;stroke:#fff;stroke-width:.8}\n"
                              ".jointpole{fill:#d55e00;stroke:#fff;stroke-width:.8}\n"
                              ".shared{fill:#fff;stroke:#223344;stroke-width:2}\n"));
  DrawNet(picture);
  Scatter scatter(2);
  DrawPoles(picture, "bedpole", bedding, scatter, 40);
  DrawPoles(picture, "jointpole", joints, scatter, 30);
  picture.Polyline(GreatCircle(bedding), "bedding");
  picture.Polyline(GreatCircle(joints), "joints");

  Direction along;
  Point3D through;
  PlaneOf(bedding).Intersect(PlaneOf(joints), along, through);
  const Coord3D line(along.x, along.y, along.z);
  picture.Circle(OnNet(line), 6, "shared");

  DrawNote(picture, 150, {KeyEntry::kLine, "bedding", "bedding"}, StrikeAndDip(bedding));
  DrawNote(picture, 200, {KeyEntry::kDot, "bedpole", "poles of bedding"}, "40 measurements");
  DrawNote(picture, 250, {KeyEntry::kLine, "joints", "joints"}, StrikeAndDip(joints));
  DrawNote(picture, 300, {KeyEntry::kDot, "jointpole", "poles of joints"}, "30 measurements");
  DrawNote(picture, 350, {KeyEntry::kDot, "shared", "their common line"}, TrendAndPlunge(line));
  picture.Finish();
}

}  // namespace gallery
