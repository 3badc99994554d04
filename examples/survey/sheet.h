#pragma once

// The survey as a picture to print: a plan, a look square at the first outline that dips, and a
// legend.

#include <ostream>

#include "findings.h"
#include "survey_data.h"

namespace survey {

/// Writes the sheet as SVG. Collars in the plan are marked by their answer for the first outline;
/// beside it, those near the first dipping outline by their answer for that one.
void WriteSheet(std::ostream& out, const Survey& survey, const Findings& findings);

}  // namespace survey
