#include <cmath>

#include "predicates/predicates.h"
#include "zyl/geometry/geom.h"

using namespace zyl::geometry;

namespace {

// A point as the predicates read it.
struct Doubles {
  double at[3];

  explicit Doubles(const Coord3D& p) : at{p.x, p.y, p.z} {}
  operator const double*() const { return at; }
};

bool SameXY(const Coord3D& p, const Coord3D& q) { return p.x == q.x && p.y == q.y; }

// NaN, which only overflow or NaN coordinates make, is none of the three.
Orientation_e BySign(double det, Orientation_e positive, Orientation_e negative,
                     Orientation_e zero) {
  return det > 0.0 ? positive : det < 0.0 ? negative : det == 0.0 ? zero : ORIENT_UNDEFINED;
}

Orientation_e InBall(double det) { return BySign(det, ORIENT_INSIDE, ORIENT_OUTSIDE, ORIENT_ON); }

}  // namespace

void geom_Init() { internal::exactinit(); }

Orientation_e geom_Orient2D(const Coord3D& a, const Coord3D& b, const Coord3D& c,
                            double tolerance) {
  if (SameXY(a, b)) {
    return ORIENT_UNDEFINED;
  }
  if (SameXY(c, a) || SameXY(c, b)) {
    return ORIENT_COLLINEAR;
  }
  const double det = internal::orient2d(Doubles(a), Doubles(b), Doubles(c));
  if (tolerance > std::fabs(det)) {
    return ORIENT_COLLINEAR;
  }
  return BySign(det, ORIENT_COUNTERCLOCKWISE, ORIENT_CLOCKWISE, ORIENT_COLLINEAR);
}

Orientation_e geom_Orient3D(const Coord3D& a, const Coord3D& b, const Coord3D& c,
                            const Coord3D& d) {
  const double ux = b.x - a.x, uy = b.y - a.y, uz = b.z - a.z;
  const double wx = c.x - a.x, wy = c.y - a.y, wz = c.z - a.z;
  const double nx = uy * wz - uz * wy;
  const double ny = uz * wx - ux * wz;
  const double nz = ux * wy - uy * wx;
  if (nx == 0.0 && ny == 0.0 && nz == 0.0) {
    return ORIENT_UNDEFINED;
  }
  const double det = internal::orient3d(Doubles(a), Doubles(b), Doubles(c), Doubles(d));
  return BySign(det, ORIENT_BELOW, ORIENT_ABOVE, ORIENT_COPLANAR);
}

Orientation_e geom_InCircle(const Coord3D& a, const Coord3D& b, const Coord3D& c,
                            const Coord3D& d) {
  const Orientation_e turn = geom_Orient2D(a, b, c, 0.0);
  if (turn == ORIENT_COUNTERCLOCKWISE) {
    return InBall(internal::incircle(Doubles(a), Doubles(b), Doubles(c), Doubles(d)));
  }
  if (turn == ORIENT_CLOCKWISE) {
    return InBall(internal::incircle(Doubles(c), Doubles(b), Doubles(a), Doubles(d)));
  }
  return ORIENT_UNDEFINED;
}

Orientation_e geom_InSphere(const Coord3D& a, const Coord3D& b, const Coord3D& c, const Coord3D& d,
                            const Coord3D& e, bool asGiven) {
  const Orientation_e side = geom_Orient3D(a, b, c, d);
  if (side != ORIENT_BELOW && side != ORIENT_ABOVE) {
    return ORIENT_UNDEFINED;
  }
  const bool exchange = !asGiven && side == ORIENT_ABOVE;
  const Coord3D& second = exchange ? c : b;
  const Coord3D& third = exchange ? b : c;
  return InBall(
      internal::insphere(Doubles(a), Doubles(second), Doubles(third), Doubles(d), Doubles(e)));
}
