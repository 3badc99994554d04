// A concave ring with a hole in it, and its constrained triangulation.

#include <vector>

#include "look.h"
#include "pictures.h"
#include "triangles.h"
#include "view.h"

namespace gallery {
namespace {

using zyl::geometry::Point3D;

using Ring = std::vector<Point3D>;

const Ring kShore = {{4, 30, 0},  {10, 46, 0}, {19, 40, 0}, {24, 54, 0}, {36, 59, 0}, {41, 47, 0},
                     {52, 52, 0}, {60, 61, 0}, {74, 57, 0}, {69, 47, 0}, {82, 48, 0}, {94, 56, 0},
                     {98, 41, 0}, {87, 33, 0}, {95, 22, 0}, {88, 7, 0},  {77, 14, 0}, {70, 3, 0},
                     {57, 8, 0},  {61, 20, 0}, {50, 27, 0}, {44, 14, 0}, {34, 3, 0},  {21, 7, 0},
                     {26, 20, 0}, {13, 15, 0}};
const Ring kIsland = {{66, 30, 0}, {73, 39, 0}, {81, 36, 0}, {79, 26, 0}, {71, 23, 0}};

std::vector<svg::Spot> OnSheet(const View& view, const Point3D* points, std::size_t count) {
  std::vector<svg::Spot> corners;
  for (std::size_t i = 0; i < count; ++i) {
    corners.push_back(view(points[i].x, points[i].y));
  }
  return corners;
}

}  // namespace

void DrawTriangulation(std::ostream& out) {
  svg::SvgWriter picture(out, 640, 440,
                         Look(".corner{fill:#0072b2;stroke:#fff;stroke-width:.8}\n"));
  const View view({50, 32}, 6, {316, 208});
  for (const ShadedTriangle& triangle : Triangulate({kShore, kIsland})) {
    picture.Polygon(OnSheet(view, triangle.corners, 3), triangle.inside ? "inside" : "outside");
  }
  for (const Ring& ring : {kShore, kIsland}) {
    picture.Polygon(OnSheet(view, ring.data(), ring.size()), "ring");
  }
  for (const Ring& ring : {kShore, kIsland}) {
    for (const Point3D& p : ring) {
      picture.Circle(view(p.x, p.y), 3.6, "corner");
    }
  }
  DrawKey(picture, {320, 424},
          {{KeyEntry::kArea, "inside", "inside"},
           {KeyEntry::kArea, "outside", "outside"},
           {KeyEntry::kLine, "ring", "edges that had to be there"}});
  picture.Finish();
}

}  // namespace gallery
