#pragma once

#include "options.h"
#include "survey_data.h"
#include "zyl/geometry/geom.h"

namespace survey {

/// What the program works on if it is given nothing.
inline Survey ShippedSurvey() {
  geom_Init();
  const Options shipped = ParseOptions({});
  return {ReadCollars(shipped.collars),
          {ReadOutline(shipped.outlines[0]), ReadOutline(shipped.outlines[1])},
          ReadStructures(shipped.structures),
          ReadSearches(shipped.searches)};
}

}  // namespace survey
