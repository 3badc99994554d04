#pragma once

// What all pictures of the gallery have in common: the style sheet and the key under a picture.

#include <string>
#include <vector>

#include "svg/svg_writer.h"

namespace gallery {

/// Style sheet of a picture; `own` is what this one adds.
std::string Look(const std::string& own = "");

/// One entry of a key: how the sample looks, and what it means.
struct KeyEntry {
  enum Sample { kArea, kLine, kDot };

  Sample sample;
  std::string style;
  std::string meaning;
};

/// Draws one entry: the sample at `at`, its meaning to the right of it.
void DrawKeyEntry(svg::SvgWriter& picture, svg::Spot at, const KeyEntry& entry);

/// Draws the entries in a row about `middle`.
void DrawKey(svg::SvgWriter& picture, svg::Spot middle, const std::vector<KeyEntry>& entries);

}  // namespace gallery
