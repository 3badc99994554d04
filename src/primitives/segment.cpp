#include "zyl/geometry/segment.h"

#include <cmath>

#include "primitives/nearest_distance.h"

namespace zyl::geometry {

namespace {

// Compared with |u|²·|v|² − (u·v)² and with the numerators of the two fractions, which are of the
// second and fourth power of a length: absolute, so that lengths of about 1 are served best.
constexpr double kNegligible = 1e-7;

Coord3D UnitVector(const Coord3D& from, const Coord3D& to) {
  Coord3D unit = to - from;
  unit.Normalise();
  return unit;
}

// Angle between two unit vectors. Rounding must not push the cosine out of the domain of acos; NaN
// passes both comparisons and stays.
double AngleBetweenUnits(const Coord3D& a, const Coord3D& b) {
  double cosine = a.Dot(b);
  if (cosine > 1.0) {
    cosine = 1.0;
  } else if (cosine < -1.0) {
    cosine = -1.0;
  }
  return std::acos(cosine);
}

// Where the perpendicular from a point meets the infinite line of a segment.
struct Foot {
  Coord3D unit;     // direction of the line
  double distance;  // of the point from the line
  double along;     // from the start to the foot

  Foot(const Segment& segment, const Coord3D& p) : unit(UnitVector(segment.start, segment.end)) {
    const double radius = segment.start.Distance(p);
    const double angle = AngleBetweenUnits(UnitVector(segment.start, p), unit);
    distance = radius * std::sin(angle);
    along = radius * std::cos(angle);
  }

  Coord3D Point(const Coord3D& start) const { return start + unit * along; }
};

// Position along a segment as a fraction of its length, divided out last.
struct Fraction {
  double numerator;
  double denominator;

  double Value() const {
    return std::fabs(numerator) < kNegligible ? 0.0 : numerator / denominator;
  }

  // Becomes value/whole, held between 0 and 1.
  void SetWithin(double value, double whole) {
    if (value < 0.0) {
      numerator = 0.0;
    } else if (value > whole) {
      numerator = denominator;
    } else {
      numerator = value;
      denominator = whole;
    }
  }
};

}  // namespace

double Segment::AngleBetween(const Segment& other) {
  return AngleBetweenUnits(UnitVector(other.start, other.end), UnitVector(start, end));
}

void Segment::DistanceAlong(const Coord3D& p, double& distance, double& along) {
  const Foot foot(*this, p);
  distance = foot.distance;
  along = foot.along;
}

Coord3D Segment::ProjectPoint(const Coord3D& p) { return Foot(*this, p).Point(start); }

// A NaN foot fails both comparisons and is answered as it is.
Coord3D Segment::GetNearestPoint(const Coord3D& p, double& distance) {
  const Foot foot(*this, p);
  if (foot.along > Length()) {
    distance = p.Distance(end);
    return end;
  }
  if (foot.along < 0.0) {
    distance = p.Distance(start);
    return start;
  }
  distance = foot.distance;
  return foot.Point(start);
}

// Minimises |w + s·u − t·v| over the unit square of (s, t). The minimum of the quadratic form is
// taken on the infinite lines; where s leaves [0, 1] it is moved to the border and t found anew,
// then the same with t (D. Sunday, "Distance between 3D Lines and Segments", 2001).
Coord3D Segment::GetNearestPoint(const Segment& other, double& distance) {
  const Coord3D u = end - start;
  const Coord3D v = other.end - other.start;
  const Coord3D w = start - other.start;
  const double a = u.Dot(u);
  const double b = u.Dot(v);
  const double c = v.Dot(v);
  const double d = u.Dot(w);
  const double e = v.Dot(w);
  const double determinant = a * c - b * b;

  Fraction s{0.0, 1.0};
  Fraction t{e, c};
  if (!(determinant < kNegligible)) {
    s = {b * e - c * d, determinant};
    if (s.numerator < 0.0) {
      s.numerator = 0.0;
    } else if (s.numerator > s.denominator) {
      s.numerator = s.denominator;
      t.numerator = e + b;
    } else {
      t = {a * e - b * d, determinant};
    }
  }
  if (t.numerator < 0.0) {
    t.numerator = 0.0;
    s.SetWithin(-d, a);
  } else if (t.numerator > t.denominator) {
    t.numerator = t.denominator;
    s.SetWithin(b - d, a);
  }

  const Coord3D alongThis = u * s.Value();
  const Coord3D alongOther = v * t.Value();
  distance = (w + alongThis - alongOther).Magnitude();
  return start + alongThis;
}

double Segment::Distance(const Coord3D& p) { return internal::NearestDistance(*this, p); }

double Segment::Distance(const Segment& other) { return internal::NearestDistance(*this, other); }

}  // namespace zyl::geometry
