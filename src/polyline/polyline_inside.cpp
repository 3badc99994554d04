#include <memory>

#include "polyline/polygon_set.h"
#include "zyl/geometry/polyline3d.h"

namespace zyl::geometry {

using internal::PolygonSet;

// A vertex that cannot be added for want of memory only shortens the polygon.
bool Polyline3D::IsPointInside(const Point3D& p) const {
  constexpr int kPolygon = 1;
  const std::unique_ptr<PolygonSet, internal::PolygonSetRelease> set(
      internal::PolygonSet_CreateFor(Size()));
  if (set == nullptr) {
    return false;
  }
  for (const Point3D& vertex : points_) {
    internal::PolygonSet_AddPoint(set.get(), kPolygon, vertex.x, vertex.y, vertex.z);
  }
  if (closed_ && !points_.empty()) {
    const Point3D& first = points_.front();
    internal::PolygonSet_AddPoint(set.get(), kPolygon, first.x, first.y, first.z);
  }
  internal::PolygonSet_Triangulate(set.get());
  return internal::PolygonSet_IsPointInside(set.get(), kPolygon, p.x, p.y, p.z) != 0;
}

bool Polyline3D::IsPointInside(const double& x, const double& y, const double& z) const {
  return IsPointInside(Point3D(x, y, z));
}

}  // namespace zyl::geometry
