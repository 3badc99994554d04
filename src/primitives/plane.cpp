#include "zyl/geometry/plane.h"

#include <cmath>

#include "zyl/geometry/matrix4.h"
#include "zyl/geometry/triangle.h"

namespace zyl::geometry {

Plane::Plane(double a_, double b_, double c_, double d_) : a(a_), b(b_), c(c_), d(d_) {
  Normalize();
}

Plane::Plane(const Plane& other) : Plane(other.a, other.b, other.c, other.d) {}

Plane::Plane(const Direction& normal, double d_) : Plane(normal.x, normal.y, normal.z, d_) {}

Plane::Plane(const Direction& normal, const Coord3D& p) : Plane(normal, -normal.Dot(p)) {}

Plane::Plane(const Direction& normal, const Point3D& p) : Plane(normal, Coord3D(p)) {}

Plane::Plane(const Coord3D& p0, const Coord3D& p1, const Coord3D& p2) { Init(p0, p1, p2); }

Plane::Plane(const Coord3D* const points) { Init(points[0], points[1], points[2]); }

Plane::Plane(const Triangle& triangle) { Init(triangle.p0, triangle.p1, triangle.p2); }

Plane::Plane(const Coord3D& p, const Coord3D& q, double dip) { Init(p, q, dip); }

Plane::Plane(const Coord3D& p, double strike, double dip) {
  Init(p, Coord3D(p.x + std::sin(strike), p.y + std::cos(strike), p.z), dip);
}

// Nothing but a constructor can return a plane whose last bits are certain to stay: whether a
// returned variable is copied, and so normalised, is left to the compiler.
Plane::Plane(const Coord3D& normal, double d_, AsGiven)
    : a(normal.x), b(normal.y), c(normal.z), d(d_) {}

void Plane::Init(const Coord3D& p0, const Coord3D& p1, const Coord3D& p2) {
  const Coord3D normal = (p1 - p0).Cross(p2 - p0);
  a = normal.x;
  b = normal.y;
  c = normal.z;
  d = -normal.Dot(p0);
  Normalize();
}

void Plane::Init(const Point3D& p0, const Point3D& p1, const Point3D& p2) {
  Init(Coord3D(p0), Coord3D(p1), Coord3D(p2));
}

// The normal is that of the strike and the line of steepest descent, turned to the side of the dip;
// in a horizontal plane, where it leans to no side, the product of the two points down.
void Plane::Init(const Coord3D& p, const Coord3D& q, double dip) {
  Direction strike(q.x - p.x, q.y - p.y, 0.0);
  strike.Normalize();
  const Direction dipDirection(strike.y, -strike.x, 0.0);
  const double cosine = std::cos(dip);
  const Direction descent(cosine * strike.y, -cosine * strike.x, -std::sin(dip));

  Direction normal = strike.Cross(descent);
  normal.Normalize();
  if (normal.Dot(dipDirection) <= 0.0) {
    normal = -normal;
  }
  a = normal.x;
  b = normal.y;
  c = normal.z;
  d = -normal.Dot(p);
}

double Plane::Distance(const Coord3D& p, bool absolute) const {
  const double height = a * p.x + b * p.y + c * p.z + d;
  return absolute ? std::fabs(height) : height;
}

double Plane::Orientation(const Coord3D& p) const { return Distance(p, false); }

bool Plane::Intersect(const Plane& other, Direction& direction, Point3D& point) const {
  constexpr double kParallel = 1e-5;  // sine of the angle between unit normals
  const Coord3D line = Normal().Cross(other.Normal());
  const double length = line.Magnitude();
  if (length < kParallel) {
    return false;
  }
  const Coord3D moment = line.Cross(other.Normal() * d - Normal() * other.d);
  const double squared = line.MagnitudeSquared();
  point = Point3D(moment.x / squared, moment.y / squared, moment.z / squared);
  direction = Direction(line) / length;
  return true;
}

void Plane::GetZUpTransform(Matrix4& toZUp, Matrix4& fromZUp) const {
  Normal().GetZUpTransform(toZUp, fromZUp);
}

int Plane::Normalize() {
  const double squared = a * a + b * b + c * c;
  if (squared > 0.0) {
    const double length = std::sqrt(squared);
    a /= length;
    b /= length;
    c /= length;
    d /= length;
    return 0;
  }
  return -1;
}

void Plane::Reverse() {
  a = -a;
  b = -b;
  c = -c;
  d = -d;
}

Coord3D Coord3D::Project(const Plane& plane) const {
  const Coord3D normal = plane.Normal();
  const double height = (*this + normal * plane.d).Dot(normal);
  return *this - normal * height;
}

// The foot of the origin and a second point, far enough along the normal for the difference of the
// images to keep the normal's digits where the translation is large.
Plane Matrix4::operator*(const Plane& plane) const {
  constexpr double kAlongNormal = 100.0;
  const Coord3D foot = plane.Normal() * -plane.d;
  const Coord3D footImage = *this * foot;
  Coord3D normal = *this * (foot + plane.Normal() * kAlongNormal) - footImage;
  const double length = normal.Magnitude();
  if (length != 0.0) {
    normal *= 1.0 / length;
  }
  return Plane(normal, -normal.Dot(footImage), Plane::AsGiven());
}

}  // namespace zyl::geometry
