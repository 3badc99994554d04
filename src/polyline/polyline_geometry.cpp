#include <algorithm>
#include <cmath>
#include <memory>

#include "matrix/symmetric_eigen.h"
#include "polyline/polygon_set.h"
#include "zyl/geometry/direction.h"
#include "zyl/geometry/matrix4.h"
#include "zyl/geometry/plane.h"
#include "zyl/geometry/polyline3d.h"

namespace zyl::geometry {
namespace {

// Slopes and heights closer than this count as equal: the single-precision value of 1e-7. Compared
// with differences of x-y slopes and of z.
constexpr double kSameSlope = 1.0000000116860974e-7;

// Normals shorter than the root of this are left as they are.
constexpr double kShortestNormal2 = 0.0001;

// Stands for a negative tolerance in x-y, in the units of a cross product.
constexpr double kDefaultTolerance = 0.01;

// Whether the three have one x-y slope, and the outer two one height. Where b shares the x of
// another the heights alone decide.
bool PassForCollinear(const Point3D& a, const Point3D& b, const Point3D& c) {
  const bool isLevel = std::fabs((a.z - b.z) - (c.z - b.z)) <= kSameSlope;
  if (a.x == b.x || c.x == b.x) {
    return isLevel;
  }
  const double slopeA = (a.y - b.y) / (a.x - b.x);
  const double slopeC = (c.y - b.y) / (c.x - b.x);
  if (std::fabs(slopeC - slopeA) >= kSameSlope) {
    return false;
  }
  return isLevel;
}

bool AllPassForCollinear(const std::vector<Point3D>& points) {
  return std::all_of(points.begin() + 2, points.end(), [&points](const Point3D& p) {
    return PassForCollinear(points[0], points[1], p);
  });
}

// Direction of least spread about the centroid.
Direction LeastSpread(const std::vector<Point3D>& points, const Point3D& centroid) {
  double xx = 0, xy = 0, xz = 0, yy = 0, yz = 0, zz = 0;
  for (const Point3D& p : points) {
    const double dx = p.x - centroid.x;
    const double dy = p.y - centroid.y;
    const double dz = p.z - centroid.z;
    xx += dx * dx;
    xy += dx * dy;
    xz += dx * dz;
    yy += dy * dy;
    yz += dy * dz;
    zz += dz * dz;
  }
  const double share = 1.0 / static_cast<double>(points.size());
  const internal::SymmetricEigen eigen = internal::DecomposeSymmetric(
      xx * share, xy * share, xz * share, yy * share, yz * share, zz * share);
  return Direction(eigen.vectors.GetColumn(2));
}

// The component of largest magnitude; x before y before z where they tie.
double LargestComponent(const Direction& n) {
  const double x = std::fabs(n.x);
  const double y = std::fabs(n.y);
  const double z = std::fabs(n.z);
  if (x >= y && x >= z) {
    return n.x;
  }
  return y >= x && y >= z ? n.y : n.z;
}

Direction UnitFrom(const Point3D& from, const Point3D& to) {
  Direction direction{Coord3D(from), Coord3D(to)};
  direction.Normalize();
  return direction;
}

Point3D Offset(const Point3D& p, const Direction& along, double distance) {
  return {p.x + distance * along.x, p.y + distance * along.y, p.z + distance * along.z};
}

// False of NaN.
bool IsBeyond(double value, double a, double b, double tolerance) {
  const double low = b > a ? a : b;
  const double high = b > a ? b : a;
  return value < low - tolerance || value > high + tolerance;
}

// Strict, and of the cross product: the distance of p from the line times the length of the edge.
// Where a coordinate is NaN so is that, and p is not on the edge.
bool IsOnEdgeXY(const Point3D& p, const Point3D& a, const Point3D& b, double tolerance) {
  const double t = tolerance < 0.0 ? kDefaultTolerance : tolerance;
  if (IsBeyond(p.x, a.x, b.x, t) || IsBeyond(p.y, a.y, b.y, t)) {
    return false;
  }
  return t > std::fabs((a.y - p.y) * (b.x - a.x) - (a.x - p.x) * (b.y - a.y));
}

// What is not shown to be off the edge is on it. On an edge so short that the square of its squared
// length vanishes, the distance from the line is NaN, and the box decides.
bool IsOnEdgeInSpace(const Point3D& p, const Point3D& a, const Point3D& b, double tolerance) {
  if (IsBeyond(p.x, a.x, b.x, tolerance) || IsBeyond(p.y, a.y, b.y, tolerance) ||
      IsBeyond(p.z, a.z, b.z, tolerance)) {
    return false;
  }
  const Coord3D edge = Coord3D(b) - Coord3D(a);
  const double length2 = edge.Dot(edge);
  if (length2 == 0.0) {
    return false;
  }
  const Coord3D across = (Coord3D(p) - Coord3D(a)).Cross(edge).Cross(edge);
  return !(std::sqrt(across.MagnitudeSquared() / (length2 * length2)) > tolerance);
}

}  // namespace

void Polyline3D::GetPolygonNormal(Direction& normal) const {
  if (points_.size() < 3 || AllPassForCollinear(points_)) {
    return;
  }
  Direction n = LeastSpread(points_, GetCenterPoint());
  const double length2 = n.x * n.x + n.y * n.y + n.z * n.z;
  if (length2 >= kShortestNormal2) {
    n /= std::sqrt(length2);
  }
  normal = LargestComponent(n) < 0.0 ? -n : n;
}

void Polyline3D::GetPointNormals(std::vector<Point3D>& first, std::vector<Point3D>& second,
                                 const double& offset) {
  const double distance = offset;  // it may be in one of the vectors that grow
  Direction normal;
  GetPolygonNormal(normal);
  const std::size_t n = points_.size();
  for (std::size_t i = 0; i < n; ++i) {
    const Direction before = UnitFrom(points_[i == 0 ? n - 1 : i - 1], points_[i]);
    const Direction after = UnitFrom(points_[i], points_[(i + 1) % n]);
    Direction side = normal.Cross(before + after);
    side.Normalize();
    first.push_back(Offset(points_[i], side, distance));
    second.push_back(Offset(points_[i], side, -distance));
  }
}

bool Polyline3D::IsClockwise() const {
  if (points_.empty()) {
    return false;
  }
  constexpr int kPolygon = 1;
  const std::unique_ptr<internal::PolygonSet, internal::PolygonSetRelease> set(
      internal::PolygonSet_CreateFor(Size()));
  if (set == nullptr) {
    return false;
  }
  Direction normal;
  GetPolygonNormal(normal);
  Matrix4 toZUp;
  Matrix4 fromZUp;
  Plane(normal, points_.front()).GetZUpTransform(toZUp, fromZUp);
  const auto add = [&](const Point3D& p) {
    const Point3D turned = toZUp * p;
    internal::PolygonSet_AddPoint(set.get(), kPolygon, turned.x, turned.y, turned.z);
  };
  std::for_each(points_.begin(), points_.end(), add);
  if (closed_) {
    add(points_.front());
  }
  return internal::PolygonSet_IsClockwise(set.get(), kPolygon) != 0;
}

bool Polyline3D::IsPointOnEdge(const Point3D& p, bool inXY, double tolerance) const {
  const auto isOn = inXY ? IsOnEdgeXY : IsOnEdgeInSpace;
  for (std::size_t i = 1; i < points_.size(); ++i) {
    if (isOn(p, points_[i - 1], points_[i], tolerance)) {
      return true;
    }
  }
  return closed_ && !points_.empty() && isOn(p, points_.back(), points_.front(), tolerance);
}

}  // namespace zyl::geometry
