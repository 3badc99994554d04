#pragma once

// Everything that the program finds out about a survey.

#include <array>
#include <optional>
#include <vector>

#include "classify.h"
#include "survey_data.h"
#include "zyl/geometry/enclosing_circle.h"

namespace survey {

struct Findings {
  // [outline][collar]
  std::vector<std::vector<Answer>> answers;
  // [structure][collar]: metres above the plane, measured square to it; negative below. A hole that
  // is drilled square to the plane meets it at this length.
  std::vector<std::vector<double>> heights;
  // [search][collar]: distance from the centre, 1 being the ellipsoid's surface. Only candidates,
  // the collars in voxels that the ellipsoid's box touches, have one.
  std::vector<std::vector<std::optional<double>>> reaches;
  // The smallest in plan round all collars.
  zyl::geometry::EncCircle circle;
};

/// Works on `threads` threads; the findings do not depend on their number.
Findings Examine(const Survey& survey, unsigned threads);

/// The three vectors from the centre of an ellipsoid to the ends of its axes.
std::array<zyl::geometry::Coord3D, 3> SemiAxes(const zyl::geometry::Ellipsoid& ellipsoid);

}  // namespace survey
