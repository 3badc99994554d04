#include "panel.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "zyl/geometry/direction.h"

namespace survey {
namespace {

using zyl::geometry::Coord2D;
using zyl::geometry::Coord3D;
using zyl::geometry::Direction;
using zyl::geometry::Polyline3D;

constexpr const char* kThinSpace = "\xE2\x80\x89";

// Multiples of `step` from low to high, a hundred at the most.
std::vector<double> RoundValues(double low, double high, double step) {
  std::vector<double> values;
  const double first = std::ceil(low / step);
  for (int i = 0; i < 100 && (first + i) * step <= high; ++i) {
    values.push_back((first + i) * step);
  }
  return values;
}

}  // namespace

Coord2D View::At(const Coord3D& p) const {
  const Coord3D offset = p - origin;
  return {offset.Dot(right), offset.Dot(up)};
}

Coord3D UpperNormal(const Polyline3D& outline) {
  Direction normal(0, 0, 1);
  outline.GetPolygonNormal(normal);
  const Coord3D n(normal.x, normal.y, normal.z);
  return n.z < 0 ? -n : n;
}

View SquareTo(const Polyline3D& outline) {
  const Coord3D normal = UpperNormal(outline);
  Coord3D strike(-normal.y, normal.x, 0);
  if (strike.Magnitude() == 0) {
    strike = Coord3D(1, 0, 0);
  }
  strike.Normalise();
  return {outline.GetCenterPoint(), strike, normal.Cross(strike)};
}

void Window::Add(const Coord2D& p) {
  min = {std::min(min.x, p.x), std::min(min.y, p.y)};
  max = {std::max(max.x, p.x), std::max(max.y, p.y)};
}

void Window::Widen(double share) {
  const double side = std::max(max.x - min.x, max.y - min.y);
  const double margin = std::max(side * share, 0.5);
  min = {min.x - margin, min.y - margin};
  max = {max.x + margin, max.y + margin};
}

Panel::Panel(const View& view, const Window& window, const svg::Box& frame)
    : view_(view),
      frame_(frame),
      scale_(std::min(frame.width / (window.max.x - window.min.x),
                      frame.height / (window.max.y - window.min.y))),
      middle_((window.min.x + window.max.x) / 2, (window.min.y + window.max.y) / 2) {}

svg::Spot Panel::At(const Coord2D& p) const {
  return {frame_.x + frame_.width / 2 + (p.x - middle_.x) * scale_,
          frame_.y + frame_.height / 2 - (p.y - middle_.y) * scale_};
}

void Panel::DrawGrid(svg::SvgWriter& svg, int intervals) const {
  const double halfWidth = frame_.width / 2 / scale_;
  const double halfHeight = frame_.height / 2 / scale_;
  const double step = RoundLength(2 * std::max(halfWidth, halfHeight) / intervals);
  const int decimals = step < 1 ? 1 : 0;
  for (const double x : RoundValues(middle_.x - halfWidth, middle_.x + halfWidth, step)) {
    const svg::Spot top{At({x, 0}).x, frame_.y};
    const svg::Spot bottom{top.x, frame_.y + frame_.height};
    svg.Line(top, bottom, "grid");
    svg.Text({bottom.x, bottom.y + 16}, "tick middle", Grouped(x, decimals));
  }
  for (const double y : RoundValues(middle_.y - halfHeight, middle_.y + halfHeight, step)) {
    const svg::Spot left{frame_.x, At({0, y}).y};
    svg.Line(left, {left.x + frame_.width, left.y}, "grid");
    svg.Text({left.x - 7, left.y + 4}, "tick end", Grouped(y, decimals));
  }
}

double RoundLength(double length) {
  const double power = std::pow(10.0, std::floor(std::log10(length)));
  const double share = length / power;
  return (share >= 5 ? 5 : share >= 2 ? 2 : 1) * power;
}

std::string Grouped(double metres, int decimals) {
  char buffer[400];  // the longest double has 309 digits before the point
  char* const end = std::to_chars(buffer, buffer + sizeof buffer, std::abs(metres),
                                  std::chars_format::fixed, decimals)
                        .ptr;
  std::string digits(buffer, end);
  const std::size_t whole =
      digits.find('.') == std::string::npos ? digits.size() : digits.find('.');
  for (std::size_t at = whole; at > 3; at -= 3) {
    digits.insert(at - 3, kThinSpace);
  }
  return metres < 0 ? "\xE2\x88\x92" + digits : digits;
}

}  // namespace survey
