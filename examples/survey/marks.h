#pragma once

// Draws one thing of a survey into a panel.

#include <string>
#include <vector>

#include "findings.h"
#include "panel.h"
#include "survey_data.h"
#include "svg/svg_writer.h"

namespace survey {

/// A disc, a lozenge or a ring: the answers differ in shape as well as in colour. `role` is a style
/// of its own beside the answer's.
void DrawMark(svg::SvgWriter& svg, const svg::Spot& at, Answer answer, const std::string& role = {},
              const std::string& title = {});

void DrawGround(svg::SvgWriter& svg, const Panel& panel, const zyl::geometry::Polyline3D& outline,
                const std::string& style);

/// Edges are solid where the outline bounds ground, and dashed where it walks the same edge an even
/// number of times, so that the same ground lies on both sides.
void DrawEdges(svg::SvgWriter& svg, const Panel& panel, const zyl::geometry::Polyline3D& outline,
               const std::string& style);

/// Where a structure's plane cuts the level of its measurement, as a line through the whole panel.
void DrawTrace(svg::SvgWriter& svg, const Panel& panel, const Structure& structure);

/// The customary mark: a stroke along the strike, a tick down dip, and the dip in degrees.
void DrawStrikeAndDip(svg::SvgWriter& svg, const Panel& panel, const Structure& structure);

/// The ellipsoid's outline in plan.
void DrawSearch(svg::SvgWriter& svg, const Panel& panel, const Search& search);

/// The circle, and a cross at its centre.
void DrawCircle(svg::SvgWriter& svg, const Panel& panel, const zyl::geometry::EncCircle& circle);

void DrawCollars(svg::SvgWriter& svg, const Panel& panel, const std::vector<Collar>& collars,
                 const std::vector<Answer>& answers, const std::string& role);

/// Writes its id beside every collar on the boundary.
void LabelBoundary(svg::SvgWriter& svg, const Panel& panel, const std::vector<Collar>& collars,
                   const std::vector<Answer>& answers);

/// In the upper right corner of a panel with north up.
void DrawNorthArrow(svg::SvgWriter& svg, const svg::Box& frame);

/// In the lower left corner.
void DrawScaleBar(svg::SvgWriter& svg, const Panel& panel);

}  // namespace survey
