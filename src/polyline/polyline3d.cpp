#include "zyl/geometry/polyline3d.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <locale>
#include <sstream>
#include <utility>

namespace zyl::geometry {

namespace {

// The field of a point that a coordinate number names, or null if it names none.
double Point3D::*CoordinateField(int coordinate) {
  switch (coordinate) {
    case COORDINATE_X:
      return &Point3D::x;
    case COORDINATE_Y:
      return &Point3D::y;
    case COORDINATE_Z:
      return &Point3D::z;
    default:
      return nullptr;
  }
}

void AppendCoordinate(double value, std::string& text) {
  constexpr int kSignificantDigits = 6;
  char digits[32];  // the longest such number is -1.23457e-308
  const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value,
                                                 std::chars_format::general, kSignificantDigits);
  text.append(digits, end.ptr);
}

}  // namespace

Polyline3D::Polyline3D(const std::vector<Point3D>& points) : points_(points) { CheckClosure(); }

Polyline3D::Polyline3D(unsigned int count, double* const x, double* const y, double* const z) {
  points_.reserve(count);
  for (unsigned int i = 0; i < count; ++i) {
    points_.emplace_back(x[i], y[i], z[i]);
  }
  CheckClosure();
}

Polyline3D::Polyline3D(unsigned int count, const Point3D* const points) {
  if (points != nullptr) {
    points_.assign(points, points + count);
    CheckClosure();
  }
}

Polyline3D& Polyline3D::operator=(const Polyline3D& other) {
  Polyline3D copy(other);
  Swap(copy);
  return *this;
}

int Polyline3D::GetNameAsInt() { return std::as_const(*this).GetNameAsInt(); }

int Polyline3D::GetNameAsInt() const {
  std::istringstream text(name_);
  text.imbue(std::locale::classic());
  int value = 0;
  return text >> value ? value : 0;
}

void Polyline3D::GetAsArray(CoordinateType type, std::vector<double>& out) const {
  double Point3D::*const field = CoordinateField(type);
  if (field == nullptr) {
    return;
  }
  const std::size_t before = out.size();
  out.resize(before + points_.size());
  std::transform(points_.begin(), points_.end(), out.begin() + static_cast<std::ptrdiff_t>(before),
                 [field](const Point3D& p) { return p.*field; });
}

const Point3D Polyline3D::GetCenterPoint() const {
  Point3D sum;
  for (const Point3D& p : points_) {
    sum.x += p.x;
    sum.y += p.y;
    sum.z += p.z;
  }
  const double count = static_cast<double>(points_.size());
  return {sum.x / count, sum.y / count, sum.z / count};
}

std::string Polyline3D::PrintDebug() const {
  std::string text = closed_ ? "Closed " : "Open ";
  for (const Point3D& p : points_) {
    AppendCoordinate(p.x, text);
    text += ':';
    AppendCoordinate(p.y, text);
    text += ':';
    AppendCoordinate(p.z, text);
    text += ", ";
  }
  return text;
}

void Polyline3D::Add(const double& x, const double& y, const double& z) {
  points_.emplace_back(x, y, z);
}

void Polyline3D::Add(const Point3D& p) { points_.push_back(p); }

void Polyline3D::Resize(unsigned int n) {
  if (n > 0) {
    points_.resize(n);
  }
}

void Polyline3D::Reverse() { std::reverse(points_.begin(), points_.end()); }

void Polyline3D::Set(const double& value, const int& coordinate) {
  double Point3D::*const field = CoordinateField(coordinate);
  if (field == nullptr) {
    return;
  }
  for (Point3D& p : points_) {
    p.*field = value;
  }
}

void Polyline3D::Translate(const Point3D& offset) {
  const Point3D by = offset;  // it may be one of the points that move
  for (Point3D& p : points_) {
    p.x += by.x;
    p.y += by.y;
    p.z += by.z;
  }
}

void Polyline3D::SetNameAsInt(const int& value) { name_ = std::to_string(value); }

void Polyline3D::Swap(Polyline3D& other) noexcept {
  std::swap(name_, other.name_);
  std::swap(colour_, other.colour_);
  std::swap(closed_, other.closed_);
  std::swap(points_, other.points_);
}

bool Polyline3D::operator==(const Polyline3D& other) const {
  return name_ == other.name_ && colour_ == other.colour_ && closed_ == other.closed_ &&
         points_ == other.points_;
}

void Polyline3D::CheckClosure() {
  closed_ = points_.size() > 1 && points_.front() == points_.back();
  if (closed_) {
    points_.pop_back();
  }
}

}  // namespace zyl::geometry
