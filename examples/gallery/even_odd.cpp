// A star drawn in one stroke: how often it is walked round in each region, what the triangles
// beneath say, and what IsPointInside answers for a grid of points.

#include <cmath>
#include <string>
#include <vector>

#include "look.h"
#include "pictures.h"
#include "triangles.h"
#include "view.h"
#include "zyl/geometry/polyline3d.h"

namespace gallery {
namespace {

using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

constexpr double kFullTurn = 6.283185307179586;
constexpr int kPoints = 7;
constexpr int kStep = 3;

Point3D OnCircle(double radius, double turns) {
  return {radius * std::sin(turns * kFullTurn), radius * std::cos(turns * kFullTurn), 0};
}

// Every third corner of a heptagon, the first again at the end.
std::vector<Point3D> Star() {
  std::vector<Point3D> star;
  for (int i = 0; i < kPoints; ++i) {
    star.push_back(OnCircle(1, static_cast<double>(i * kStep % kPoints) / kPoints));
  }
  return star;
}

std::vector<svg::Spot> OnSheet(const View& view, const std::vector<Point3D>& points) {
  std::vector<svg::Spot> corners;
  for (const Point3D& p : points) {
    corners.push_back(view(p.x, p.y));
  }
  return corners;
}

void DrawNumber(svg::SvgWriter& picture, const View& view, const Point3D& at,
                const std::string& number) {
  const svg::Spot p = view(at.x, at.y);
  picture.Text({p.x, p.y + 4}, "small middle", number);
}

void DrawRegions(svg::SvgWriter& picture, const View& view, const std::vector<Point3D>& star) {
  for (const ShadedTriangle& triangle : Triangulate({star})) {
    picture.Polygon(OnSheet(view, {triangle.corners, triangle.corners + 3}),
                    triangle.inside ? "inside" : "outside");
  }
  picture.Polygon(OnSheet(view, star), "ring");
  DrawNumber(picture, view, Point3D(0, 0, 0), "3");
  for (int i = 0; i < kPoints; ++i) {
    const double turns = static_cast<double>(i) / kPoints;
    DrawNumber(picture, view, OnCircle(0.265, turns + 0.5 / kPoints), "2");
    DrawNumber(picture, view, OnCircle(0.56, turns), "1");
  }
}

void DrawAnswers(svg::SvgWriter& picture, const View& view, const std::vector<Point3D>& star) {
  Polyline3D ring(star);
  ring.SetClosed(true);
  constexpr int kHalf = 16;
  for (int row = kHalf; row >= -kHalf; --row) {
    for (int column = -kHalf; column <= kHalf; ++column) {
      const Point3D p(column / static_cast<double>(kHalf), row / static_cast<double>(kHalf), 0);
      if (p.x * p.x + p.y * p.y <= 1) {
        picture.Circle(view(p.x, p.y), 3, ring.IsPointInside(p) ? "yes" : "no");
      }
    }
  }
  picture.Polygon(OnSheet(view, star), "thin");
}

}  // namespace

void DrawEvenOdd(std::ostream& out) {
  svg::SvgWriter picture(out, 660, 402,
                         Look(".yes{fill:#0072b2}\n.no{fill:#e3c9a4}\n"
                              ".thin{fill:none;stroke:#667788;stroke-width:.8}\n"));
  const std::vector<Point3D> star = Star();
  const View regions({0, 0}, 148, {168, 198});
  const View answers({0, 0}, 148, {492, 198});
  picture.Text({168, 28}, "head", "how often it goes round");
  picture.Text({492, 28}, "head", "IsPointInside");
  DrawRegions(picture, regions, star);
  DrawAnswers(picture, answers, star);
  DrawKey(picture, {330, 384},
          {{KeyEntry::kArea, "inside", "odd: inside"},
           {KeyEntry::kArea, "outside", "even: outside"},
           {KeyEntry::kDot, "yes", "true"},
           {KeyEntry::kDot, "no", "false"}});
  picture.Finish();
}

}  // namespace gallery
