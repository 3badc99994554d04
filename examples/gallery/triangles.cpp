#include "triangles.h"

#include "trimake/polygon.h"

namespace gallery {

using zyl::geometry::Coord3D;
using zyl::geometry::Point3D;
using zyl::geometry::internal::TPoint;
using zyl::geometry::internal::tri_Free_Polygon;
using zyl::geometry::internal::tri_Polygon;
using zyl::geometry::internal::tri_Triangulate_Polygon;

std::vector<ShadedTriangle> Triangulate(const std::vector<std::vector<Point3D>>& rings) {
  std::vector<TPoint> points;
  Coord3D sum;
  for (const std::vector<Point3D>& ring : rings) {
    for (std::size_t i = 0; i <= ring.size(); ++i) {
      const Point3D& p = ring[i % ring.size()];
      points.push_back({p.x, p.y, p.z, i == 0 ? 1 : 0});
      sum += Coord3D(p);
    }
  }
  int error = 0;
  const double up[3] = {0, 0, 1};
  tri_Polygon* const polygon =
      tri_Triangulate_Polygon(static_cast<int>(points.size()), points.data(), up, &error);
  if (polygon == nullptr) {
    return {};
  }
  // Under a vertical normal the polygon's frame is the world's, moved to the mean of its points.
  const Coord3D mean = sum * (1.0 / static_cast<double>(points.size()));
  std::vector<ShadedTriangle> triangles(static_cast<std::size_t>(polygon->triangleCount));
  for (std::size_t t = 0; t < triangles.size(); ++t) {
    for (std::size_t k = 0; k < 3; ++k) {
      const TPoint& p = polygon->vertices[polygon->triangles[3 * t + k] - 1];
      triangles[t].corners[k] = Point3D(p.x + mean.x, p.y + mean.y, mean.z);
    }
    triangles[t].inside = polygon->inside[t] != 0;
  }
  tri_Free_Polygon(polygon);
  return triangles;
}

}  // namespace gallery
