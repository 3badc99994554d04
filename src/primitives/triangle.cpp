#include "zyl/geometry/triangle.h"

#include <array>
#include <cmath>
#include <limits>

#include "primitives/nearest_distance.h"
#include "zyl/geometry/geom.h"
#include "zyl/geometry/plane.h"
#include "zyl/geometry/segment.h"

namespace zyl::geometry {

namespace {

using Vertices = std::array<Coord3D, 3>;

Vertices VerticesOf(const Triangle& triangle) { return {triangle.p0, triangle.p1, triangle.p2}; }

Segment Edge(const Vertices& vertices, std::size_t i) {
  return {vertices[i], vertices[(i + 1) % 3]};
}

// Whether a segment meets a triangle in the given plane, and where.
bool Hits(const Segment& segment, const Plane& plane, const Vertices& vertices, Intersection& hit) {
  return geom_SegmentHitPlane(segment, plane, hit) != -1 &&
         geom_PointInside3Points(hit.point, plane, vertices.data()) != ORIENT_OUTSIDE;
}

bool AnyEdgeHits(const Vertices& edges, const Plane& plane, const Vertices& vertices) {
  Intersection hit;
  return Hits(Edge(edges, 0), plane, vertices, hit) || Hits(Edge(edges, 1), plane, vertices, hit) ||
         Hits(Edge(edges, 2), plane, vertices, hit);
}

// The nearest of several candidates, the first of those as near. A NaN distance never replaces a
// number, and any number replaces it.
struct Nearest {
  Coord3D point;
  double distance;

  void Consider(const Coord3D& candidate, double candidateDistance) {
    if (candidateDistance < distance || std::isnan(distance)) {
      point = candidate;
      distance = candidateDistance;
    }
  }

  template <typename Target>
  void ConsiderEdges(const Vertices& vertices, const Target& target) {
    for (std::size_t i = 0; i < 3; ++i) {
      double edgeDistance;
      const Coord3D candidate = Edge(vertices, i).GetNearestPoint(target, edgeDistance);
      Consider(candidate, edgeDistance);
    }
  }
};

}  // namespace

Bounds3D Triangle::GetExtent() const {
  const Extent box(p0, p1, p2);
  return {box.min, box.max};
}

// Edges answer NaN for their own start, and so does an edge without length for every point: the
// vertices come first, and the last line is for a triangle that is a single point.
Coord3D Triangle::GetNearestPoint(const Coord3D& p, double& distance) {
  const Vertices vertices = VerticesOf(*this);
  if (p == vertices[0] || p == vertices[1] || p == vertices[2]) {
    distance = 0.0;
    return p;
  }
  const Plane plane(vertices.data());
  const Coord3D foot = p.Project(plane);
  if (geom_PointInside3Points(foot, plane, vertices.data()) != ORIENT_OUTSIDE) {
    distance = foot.Distance(p);
    return foot;
  }
  Nearest nearest{vertices[0], std::numeric_limits<double>::quiet_NaN()};
  nearest.ConsiderEdges(vertices, p);
  if (std::isnan(nearest.distance)) {
    nearest = {vertices[0], vertices[0].Distance(p)};
  }
  distance = nearest.distance;
  return nearest.point;
}

Coord3D Triangle::GetNearestPoint(const Segment& segment, double& distance) {
  const Vertices vertices = VerticesOf(*this);
  Intersection hit;
  if (Hits(segment, Plane(*this), vertices, hit)) {
    distance = 0.0;
    return hit.point;
  }
  Nearest nearest;
  nearest.point = GetNearestPoint(segment.start, nearest.distance);
  double endDistance;
  const Coord3D nearestToEnd = GetNearestPoint(segment.end, endDistance);
  nearest.Consider(nearestToEnd, endDistance);
  nearest.ConsiderEdges(vertices, segment);
  distance = nearest.distance;
  return nearest.point;
}

double Triangle::Distance(const Coord3D& p) { return internal::NearestDistance(*this, p); }

double Triangle::Distance(const Segment& segment) {
  return internal::NearestDistance(*this, segment);
}

bool Triangle::Intersect(const Segment& segment) {
  Intersection hit;
  return Hits(segment, Plane(*this), VerticesOf(*this), hit);
}

bool Triangle::IsTouching(const Triangle& other) {
  const Vertices mine = VerticesOf(*this);
  const Vertices others = VerticesOf(other);
  return AnyEdgeHits(mine, Plane(other), others) || AnyEdgeHits(others, Plane(*this), mine);
}

}  // namespace zyl::geometry
