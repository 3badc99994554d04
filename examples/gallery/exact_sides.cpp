// Neighbouring doubles in x and in y, and the side of a line on which each of the points they make
// lies. The numbers are those of L. Kettner, K. Mehlhorn, S. Pion, S. Schirra and C. Yap,
// "Classroom Examples of Robustness Problems in Geometric Computations" (2008), figure 2.

#include "look.h"
#include "pictures.h"
#include "zyl/geometry/geom.h"

namespace gallery {
namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Orientation_e;

constexpr int kSide = 128;                       // points along a side of the patch
constexpr double kPixels = 2;                    // for each of them
constexpr double kUlp = 1.1102230246251565e-16;  // of the doubles from 0.5 to 1

const Coord3D kFirst(0.50000000000002531, 0.5000000000000171, 0);  // the lower left one
const Coord3D kFrom(17.300000000000001, 17.300000000000001, 0);
const Coord3D kTo(24.00000000000005, 24.0000000000000517765, 0);

using SideOf = Orientation_e (*)(const Coord3D&);

Orientation_e Exact(const Coord3D& p) { return geom_Orient2D(kFrom, kTo, p, 0); }

Orientation_e Rounded(const Coord3D& p) {
  const double left = (kFrom.x - p.x) * (kTo.y - p.y);
  const double right = (kFrom.y - p.y) * (kTo.x - p.x);
  const double determinant = left - right;
  return determinant > 0   ? zyl::geometry::ORIENT_COUNTERCLOCKWISE
         : determinant < 0 ? zyl::geometry::ORIENT_CLOCKWISE
                           : zyl::geometry::ORIENT_COLLINEAR;
}

const char* StyleOf(Orientation_e side) {
  switch (side) {
    case zyl::geometry::ORIENT_COUNTERCLOCKWISE:
      return "left";
    case zyl::geometry::ORIENT_CLOCKWISE:
      return "right";
    default:
      return "on";
  }
}

// A row at a time, neighbours of the same side as one rectangle.
void DrawPatch(svg::SvgWriter& picture, svg::Spot corner, SideOf sideOf) {
  for (int j = 0; j < kSide; ++j) {
    const auto sideAt = [&](int i) {
      return sideOf(Coord3D(kFirst.x + i * kUlp, kFirst.y + j * kUlp, 0));
    };
    for (int i = 0, end = 0; i < kSide; i = end) {
      const Orientation_e side = sideAt(i);
      for (end = i + 1; end < kSide && sideAt(end) == side; ++end) {
      }
      picture.Rectangle({corner.x + i * kPixels, corner.y + (kSide - 1 - j) * kPixels,
                         (end - i) * kPixels, kPixels},
                        StyleOf(side));
    }
  }
  picture.Rectangle({corner.x, corner.y, kSide * kPixels, kSide * kPixels}, "axis");
}

}  // namespace

void DrawExactSides(std::ostream& out) {
  svg::SvgWriter picture(out, 640, 372, Look(R"(
.left{fill:#56a0d3}
.right{fill:#f0c27b}
.on{fill:#23303c}
.left,.right,.on{shape-rendering:crispEdges}
)"));
  const svg::Spot rounded{36, 48};
  const svg::Spot exact{348, 48};
  const double half = kSide * kPixels / 2;
  picture.Text({rounded.x + half, 32}, "head", "determinant in doubles");
  picture.Text({exact.x + half, 32}, "head", "geom_Orient2D");
  DrawPatch(picture, rounded, Rounded);
  DrawPatch(picture, exact, Exact);
  picture.Text({320, 324}, "small middle",
               "128 × 128 points whose coordinates are neighbouring doubles, beside a line");
  DrawKey(picture, {320, 352},
          {{KeyEntry::kArea, "left", "left of it"},
           {KeyEntry::kArea, "on", "on it"},
           {KeyEntry::kArea, "right", "right of it"}});
  picture.Finish();
}

}  // namespace gallery
