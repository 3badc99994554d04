#include "sheet.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>

#include "marks.h"
#include "panel.h"
#include "report.h"
#include "svg/svg_writer.h"

namespace survey {
namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

constexpr double kDegreesPerRadian = 57.29577951308232;

constexpr double kSheetWidth = 1240;
constexpr double kSheetHeight = 876;
constexpr svg::Box kPlanFrame{86, 84, 750, 750};
constexpr svg::Box kSideFrame{924, 128, 280, 214};
constexpr double kMarginalX = 884;

// What the title and the legend have room for, of outlines and of searches.
constexpr std::size_t kMostListed = 3;

// Colours by Okabe and Ito, which the colour-blind tell apart.
constexpr const char* kStyleSheet = R"(
text { font-family: "Helvetica Neue", Helvetica, Arial, "Liberation Sans", sans-serif;
       font-size: 12.5px; fill: #222 }
.title { font-size: 21px; font-weight: bold }
.head { font-weight: bold }
.note, .tick { font-size: 11px; fill: #555 }
.middle { text-anchor: middle }
.end { text-anchor: end }
.halo { font-size: 10.5px; paint-order: stroke; stroke: white; stroke-width: 3px;
        stroke-linejoin: round }
.structure { fill: #6f4520 }
.frame { fill: none; stroke: #222; stroke-width: 1.2 }
.grid { stroke: #dcdcdc; stroke-width: 0.8 }
.ground0 { fill: #efe6cf; fill-opacity: 0.62; fill-rule: evenodd }
.ground1 { fill: #009e73; fill-opacity: 0.20; fill-rule: evenodd }
.ground2 { fill: #56b4e9; fill-opacity: 0.18; fill-rule: evenodd }
.edge0, .edge1, .edge2 { stroke-width: 1.7; stroke-linecap: round }
.edge0 { stroke: #222 }
.edge1 { stroke: #007a59 }
.edge2 { stroke: #2b7fb5 }
.cut { stroke-width: 1; stroke-dasharray: 4 3; stroke-linecap: butt }
.trace { stroke: #8c5a2b; stroke-width: 1; stroke-dasharray: 9 4 2 4 }
.dip { stroke: #8c5a2b; stroke-width: 2.6; stroke-linecap: round }
.circle { fill: none; stroke: #777; stroke-width: 1.2; stroke-dasharray: 0.1 4;
          stroke-linecap: round }
.centre { stroke: #777; stroke-width: 1 }
.search { fill: #cc79a7; fill-opacity: 0.14; stroke: #cc79a7; stroke-width: 1.6 }
.reached { fill: none; stroke: #b0558a; stroke-width: 1.4 }
.inside { fill: #0072b2; stroke: white; stroke-width: 0.6 }
.boundary { fill: #e69f00; stroke: #222; stroke-width: 1 }
.outside { fill: white; stroke: #6d6d6d; stroke-width: 1.3 }
.black { fill: #222; stroke: #222; stroke-width: 0.8 }
.plate { fill: white; fill-opacity: 0.85 }
.white { fill: white; stroke: #222; stroke-width: 0.8 }
)";

// Outlines beyond the third share their looks with those before them.
std::string Styled(const char* name, std::size_t outline) {
  return name + std::to_string(outline % 3);
}

std::string Degrees(double degrees) { return Grouped(degrees) + "°"; }

Panel PlanPanel(const Survey& survey, const Findings& findings) {
  const auto& circle = findings.circle;
  Window window({circle.x - circle.radius, circle.y - circle.radius});
  window.Add({circle.x + circle.radius, circle.y + circle.radius});
  for (const Polyline3D& outline : survey.outlines) {
    for (const Point3D& corner : outline.GetPointVector()) {
      window.Add({corner.x, corner.y});
    }
  }
  window.Widen(0.03);
  return Panel(View(), window, kPlanFrame);
}

void DrawPlan(svg::SvgWriter& svg, const Survey& survey, const Findings& findings) {
  const Panel panel = PlanPanel(survey, findings);
  panel.DrawGrid(svg, 5);
  svg.OpenClippedGroup(kPlanFrame);
  for (std::size_t k = 0; k < survey.outlines.size(); ++k) {
    DrawGround(svg, panel, survey.outlines[k], Styled("ground", k));
  }
  DrawCircle(svg, panel, findings.circle);
  for (const Search& search : survey.searches) {
    DrawSearch(svg, panel, search);
  }
  for (const Structure& structure : survey.structures) {
    DrawTrace(svg, panel, structure);
  }
  // The first outline, whose answers the collars show, lies on top.
  for (std::size_t k = survey.outlines.size(); k-- > 0;) {
    DrawEdges(svg, panel, survey.outlines[k], Styled("edge", k));
  }
  DrawCollars(svg, panel, survey.collars, findings.answers[0], "collar ");
  for (const auto& reaches : findings.reaches) {
    for (std::size_t i = 0; i < reaches.size(); ++i) {
      if (IsReached(reaches[i])) {
        svg.Circle(panel(survey.collars[i].position), 6.2, "reached");
      }
    }
  }
  for (const Structure& structure : survey.structures) {
    DrawStrikeAndDip(svg, panel, structure);
  }
  LabelBoundary(svg, panel, survey.collars, findings.answers[0]);
  svg.CloseGroup();
  DrawNorthArrow(svg, kPlanFrame);
  DrawScaleBar(svg, panel);
  svg.Rectangle(kPlanFrame, "frame");
}

// The look square at outline k, with the collars as the holes drilled square to it would pass.
void DrawSide(svg::SvgWriter& svg, const Survey& survey, const Findings& findings, std::size_t k) {
  const Polyline3D& outline = survey.outlines[k];
  const View view = SquareTo(outline);
  Window window(view.At(outline[0]));
  for (const Point3D& corner : outline.GetPointVector()) {
    window.Add(view.At(corner));
  }
  window.Widen(0.06);
  const Panel panel(view, window, kSideFrame);

  const Coord3D normal = UpperNormal(outline);
  const double dip = std::acos(std::min(normal.z, 1.0)) * kDegreesPerRadian;
  const double bearing = std::atan2(normal.x, normal.y) * kDegreesPerRadian;
  svg.Text({kMarginalX, 96}, "head", outline.GetName() + ", seen square to its plane");
  svg.Text({kMarginalX, 114}, "note",
           "dips " + Degrees(dip) + " towards " + Degrees(bearing < 0 ? bearing + 360 : bearing) +
               "; metres along strike and up dip");
  panel.DrawGrid(svg, 4);
  svg.OpenClippedGroup(kSideFrame);
  DrawGround(svg, panel, outline, Styled("ground", k));
  DrawEdges(svg, panel, outline, Styled("edge", k));
  DrawCollars(svg, panel, survey.collars, findings.answers[k], "hole ");
  svg.CloseGroup();
  svg.Rectangle(kSideFrame, "frame");
}

// Lines of the legend, from the top down.
class Legend {
 public:
  Legend(svg::SvgWriter& svg, double top) : svg_(svg), y_(top) {}

  void Head(const std::string& text) {
    y_ += 14;
    svg_.Text({kMarginalX, y_}, "head", text);
    y_ += 22;
  }
  // The middle of the next line's sample.
  svg::Spot Sample() const { return {kMarginalX + 16, y_ - 4}; }
  void Row(const std::string& text, const std::string& figure = {}) {
    svg_.Text({kMarginalX + 40, y_}, "row", text);
    if (!figure.empty()) {
      svg_.Text({kSideFrame.x + kSideFrame.width, y_}, "end", figure);
    }
    y_ += 21;
  }

 private:
  svg::SvgWriter& svg_;
  double y_;
};

void ListAnswers(svg::SvgWriter& svg, Legend& legend, const std::string& outline,
                 const std::vector<Answer>& answers) {
  legend.Head("Collars against " + outline);
  for (const Answer answer : {Answer::kInside, Answer::kOnBoundary, Answer::kOutside}) {
    DrawMark(svg, legend.Sample(), answer);
    legend.Row(answer == Answer::kOnBoundary ? "exactly on the boundary" : Name(answer),
               std::to_string(Count(answers, answer)));
  }
}

void DrawLegend(svg::SvgWriter& svg, double top, const Survey& survey, const Findings& findings) {
  Legend legend(svg, top);
  const std::size_t outlines = std::min(survey.outlines.size(), kMostListed);
  for (std::size_t k = 0; k < outlines; ++k) {
    ListAnswers(svg, legend, survey.outlines[k].GetName(), findings.answers[k]);
  }
  legend.Head("Plan");
  for (std::size_t k = 0; k < outlines; ++k) {
    const svg::Spot at = legend.Sample();
    svg.Rectangle({at.x - 13, at.y - 6, 26, 12}, Styled("ground", k));
    svg.Line({at.x - 13, at.y + 6}, {at.x + 13, at.y + 6}, Styled("edge", k));
    legend.Row(survey.outlines[k].GetName());
  }
  svg::Spot at = legend.Sample();
  svg.Line({at.x - 13, at.y}, {at.x + 13, at.y}, "edge0 cut");
  legend.Row("edge walked there and back");
  if (!survey.structures.empty()) {
    at = legend.Sample();
    svg.Line({at.x - 16, at.y}, {at.x + 16, at.y}, "trace");
    svg.Line({at.x - 9, at.y}, {at.x + 9, at.y}, "dip");
    svg.Line(at, {at.x, at.y + 6}, "dip");
    legend.Row("strike and dip, trace at its level");
  }
  for (std::size_t k = 0; k < survey.searches.size() && k < kMostListed; ++k) {
    at = legend.Sample();
    svg.Circle(at, 7, "search");
    svg.Circle(at, 4, "reached");
    legend.Row("search " + survey.searches[k].id + ", collars in it",
               std::to_string(CountReached(findings.reaches[k])));
  }
  at = legend.Sample();
  svg.Circle(at, 8, "circle");
  legend.Row("smallest circle, radius", Grouped(findings.circle.radius, 1) + " m");
}

std::string Title(const Survey& survey) {
  std::string title = std::to_string(survey.collars.size()) + " collars against ";
  const std::size_t count = survey.outlines.size();
  for (std::size_t k = 0; k < count && k < kMostListed; ++k) {
    title += (k == 0 ? "" : k + 1 == count ? " and " : ", ") + survey.outlines[k].GetName();
  }
  return title + (count > kMostListed ? " and others" : "");
}

bool Dips(const Polyline3D& outline) { return UpperNormal(outline).z < 0.9998; }  // by a degree

}  // namespace

void WriteSheet(std::ostream& out, const Survey& survey, const Findings& findings) {
  svg::SvgWriter svg(out, kSheetWidth, kSheetHeight, kStyleSheet);
  svg.Text({kPlanFrame.x, 44}, "title", Title(survey));
  svg.Text({kPlanFrame.x, 66}, "note",
           "Metres east and north; collars marked by where they stand against " +
               survey.outlines[0].GetName());
  DrawPlan(svg, survey, findings);

  const auto dipping = std::find_if(survey.outlines.begin(), survey.outlines.end(), Dips);
  double legendTop = kPlanFrame.y;
  if (dipping != survey.outlines.end()) {
    DrawSide(svg, survey, findings,
             static_cast<std::size_t>(std::distance(survey.outlines.begin(), dipping)));
    legendTop = kSideFrame.y + kSideFrame.height + 40;
  }
  DrawLegend(svg, legendTop, survey, findings);
  svg.Finish();
}

}  // namespace survey
