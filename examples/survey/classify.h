#pragma once

// Where collars stand relative to outlines.

#include <vector>

#include "survey_data.h"

namespace survey {

enum class Answer { kOutside, kOnBoundary, kInside };

/// Where `p` lies as seen square to the plane of `outline`: in plan for a level outline; for a
/// dipping one, where a hole drilled square to it would pass.
///
/// On the boundary means exactly on it, without tolerance: in plan for a level outline, in space
/// for any other. An edge that the outline walks an even number of times bounds nothing, but a
/// corner always does.
Answer Classify(const zyl::geometry::Polyline3D& outline, const zyl::geometry::Coord3D& p);

/// Answers for every collar against every outline, as [outline][collar], worked out by `threads`
/// threads, one at the least. The answers do not depend on their number.
std::vector<std::vector<Answer>> ClassifyAll(const Survey& survey, unsigned threads);

}  // namespace survey
