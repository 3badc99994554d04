// The smallest enclosing circle beside the circle around the bounding box.

#include <cmath>
#include <vector>

#include "look.h"
#include "pictures.h"
#include "scatter.h"
#include "view.h"
#include "zyl/geometry/enclosing_circle.h"
#include "zyl/geometry/extent.h"

namespace gallery {
namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::EncCircle;
using zyl::geometry::Extent;
using zyl::geometry::Point3D;

std::vector<Point3D> TwoHeaps() {
  Scatter scatter(1);
  std::vector<Point3D> points;
  for (int i = 0; i < 45; ++i) {
    const double y = scatter.Around(15, 22);
    points.emplace_back(scatter.Around(-40, 25), y, 0);
  }
  for (int i = 0; i < 25; ++i) {
    const double y = scatter.Around(-25, 18);
    points.emplace_back(scatter.Around(45, 18), y, 0);
  }
  return points;
}

bool HoldsCircle(const EncCircle& circle, const Point3D& p) {
  const double distance = std::hypot(p.x - circle.x, p.y - circle.y);
  return distance > circle.radius * (1 - 1e-9);
}

}  // namespace

void DrawEnclosing(std::ostream& out) {
  const std::vector<Point3D> points = TwoHeaps();
  const EncCircle circle = zyl::geometry::SmallestEnclosingCircle(points);
  const Extent box = FindPointsExtent(points);
  const Coord3D middle = box.Centroid();

  svg::SvgWriter picture(out, 640, 480,
                         Look(".circle{fill:#eef5fa;stroke:#0072b2;stroke-width:2.2}\n"
                              ".box{fill:none;stroke:#b5c0ca;stroke-width:1}\n"
                              ".spoke{stroke:#d55e00;stroke-width:1.4}\n"));
  const View view({circle.x, circle.y}, 172 / circle.radius, {316, 212});
  const svg::Spot centre = view(circle.x, circle.y);
  picture.Circle(centre, view.Length(circle.radius), "circle");
  const svg::Spot corner = view(box.min.x, box.max.y);
  picture.Rectangle({corner.x, corner.y, view.Length(box.Sides().x), view.Length(box.Sides().y)},
                    "box");
  picture.Circle(view(middle.x, middle.y), view.Length(middle.Distance(box.max)), "dashed");
  for (const Point3D& p : points) {
    if (HoldsCircle(circle, p)) {
      picture.Line(centre, view(p.x, p.y), "spoke");
    }
  }
  for (const Point3D& p : points) {
    picture.Circle(view(p.x, p.y), HoldsCircle(circle, p) ? 6 : 4,
                   HoldsCircle(circle, p) ? "mark" : "dot");
  }
  picture.Circle(centre, 3.5, "mark");
  DrawKey(picture, {320, 462},
          {{KeyEntry::kLine, "ring", "smallest circle"},
           {KeyEntry::kDot, "mark", "points that hold it"},
           {KeyEntry::kLine, "dashed", "circle around the box"}});
  picture.Finish();
}

}  // namespace gallery
