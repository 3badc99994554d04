#pragma once

// Where a point of the x-y plane, y up, stands on a picture, y down.

#include "svg/svg_writer.h"

namespace gallery {

class View {
 public:
  /// `origin` stands at `at`, and a unit is `scale` pixels long on both axes.
  View(svg::Spot origin, double scale, svg::Spot at) : origin_(origin), scale_(scale), at_(at) {}

  svg::Spot operator()(double x, double y) const {
    return {at_.x + (x - origin_.x) * scale_, at_.y - (y - origin_.y) * scale_};
  }
  /// A length in pixels.
  double Length(double length) const { return length * scale_; }

 private:
  svg::Spot origin_;
  double scale_;
  svg::Spot at_;
};

}  // namespace gallery
