// Voxels of an index that hold what a box was filed under, seen from above and aside.

#include <set>
#include <vector>

#include "look.h"
#include "pictures.h"
#include "zyl/geometry/extent.h"
#include "zyl/geometry/matrix4.h"
#include "zyl/geometry/voxelation.h"

namespace gallery {
namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Extent;
using zyl::geometry::int64;
using zyl::geometry::Matrix4;
using zyl::geometry::Voxelation;

constexpr int kX = 6, kY = 5, kZ = 4;

// Turned so that the faces towards greater z, smaller y and greater x are seen.
Matrix4 Camera() {
  Matrix4 camera;
  camera.Translate(-kX / 2.0, -kY / 2.0, -kZ / 2.0);
  camera.RotateZ(-0.6);
  camera.RotateX(-1.05);
  camera.Scale(54);
  return camera;
}

class Sheet {
 public:
  explicit Sheet(svg::SvgWriter& picture) : picture_(picture), camera_(Camera()) {}

  svg::Spot At(const Coord3D& p) const {
    const Coord3D seen = camera_ * p;
    return {kCentre.x + seen.x, kCentre.y - seen.y};
  }
  void Line(const char* style, const Coord3D& from, const Coord3D& to) {
    picture_.Line(At(from), At(to), style);
  }
  // Face of a box at right angles to the axis; `upper` is the one of greater coordinate.
  void Face(const char* style, const Extent& box, int axis, bool upper) {
    const int u = (axis + 1) % 3;
    const int v = (axis + 2) % 3;
    Coord3D corner = upper ? box.max : box.min;
    std::vector<svg::Spot> corners;
    for (const int turn : {0, 1, 3, 2}) {
      corner[u] = turn & 1 ? box.max[u] : box.min[u];
      corner[v] = turn & 2 ? box.max[v] : box.min[v];
      corners.push_back(At(corner));
    }
    picture_.Polygon(corners, style);
  }
  void SeenFaces(const char* style, const Extent& box) {
    Face(style, box, 2, true);
    Face(style, box, 1, false);
    Face(style, box, 0, true);
  }

 private:
  static constexpr svg::Spot kCentre{320, 205};

  svg::SvgWriter& picture_;
  Matrix4 camera_;
};

void DrawWalls(Sheet& sheet) {
  const Extent room(0, 0, 0, kX, kY, kZ);
  sheet.Face("wall", room, 2, false);
  sheet.Face("wall", room, 1, true);
  sheet.Face("wall", room, 0, false);
  for (int i = 0; i <= kX; ++i) {
    sheet.Line("faint", Coord3D(i, 0, 0), Coord3D(i, kY, 0));
    sheet.Line("faint", Coord3D(i, kY, 0), Coord3D(i, kY, kZ));
  }
  for (int j = 0; j <= kY; ++j) {
    sheet.Line("faint", Coord3D(0, j, 0), Coord3D(kX, j, 0));
    sheet.Line("faint", Coord3D(0, j, 0), Coord3D(0, j, kZ));
  }
  for (int k = 0; k <= kZ; ++k) {
    sheet.Line("faint", Coord3D(0, 0, k), Coord3D(0, kY, k));
    sheet.Line("faint", Coord3D(0, kY, k), Coord3D(kX, kY, k));
  }
}

bool IsTouched(const Voxelation& index, int i, int j, int k) {
  std::set<int64> ids;
  return i < kX && j >= 0 && k < kZ && index.CollectIDsAt(ids, i, j, k);
}

// Far voxels first; only faces that no touched voxel hides.
int DrawTouched(Sheet& sheet, Voxelation& index) {
  int count = 0;
  for (int k = 0; k < kZ; ++k) {
    for (int j = kY - 1; j >= 0; --j) {
      for (int i = 0; i < kX; ++i) {
        if (!IsTouched(index, i, j, k)) {
          continue;
        }
        ++count;
        Extent voxel;
        Voxelation::Location location;
        location.i = i;
        location.j = j;
        location.k = k;
        index.GetVoxelExtent(location, voxel);
        if (!IsTouched(index, i, j, k + 1)) {
          sheet.Face("top", voxel, 2, true);
        }
        if (!IsTouched(index, i, j - 1, k)) {
          sheet.Face("front", voxel, 1, false);
        }
        if (!IsTouched(index, i + 1, j, k)) {
          sheet.Face("side", voxel, 0, true);
        }
      }
    }
  }
  return count;
}

}  // namespace

void DrawVoxels(std::ostream& out) {
  const Extent box(1.35, 1.3, 0.75, 4.25, 3.6, 2.3);
  Voxelation index(Coord3D(0, 0, 0), Coord3D(kX, kY, kZ), kX, kY, kZ);
  index.AddExtent(box, 1);

  svg::SvgWriter picture(out, 640, 470,
                         Look(".wall{fill:#fafbfc;stroke:#b5c0ca;stroke-width:1}\n"
                              ".top,.front,.side{stroke:#5b97bd;stroke-width:1;fill-opacity:.22;"
                              "stroke-linejoin:round}\n"
                              ".top{fill:#cfe5f3}\n.front{fill:#a9cfe6}\n.side{fill:#8bbbd9}\n"
                              ".box{fill:#e8a15a;stroke:#b35309;stroke-width:1.4;"
                              "stroke-linejoin:round}\n"));
  Sheet sheet(picture);
  DrawWalls(sheet);
  sheet.SeenFaces("box", box);
  const int count = DrawTouched(sheet, index);
  DrawKey(picture, {320, 452},
          {{KeyEntry::kArea, "box", "box"},
           {KeyEntry::kArea, "top", std::to_string(count) + " voxels hold it"},
           {KeyEntry::kArea, "wall", "grid of " + std::to_string(kX * kY * kZ)}});
  picture.Finish();
}

}  // namespace gallery
