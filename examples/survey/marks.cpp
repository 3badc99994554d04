#include "marks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

#include "report.h"

namespace survey {

using zyl::geometry::Coord3D;
using zyl::geometry::EncCircle;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;

// Unit vectors on paper along a structure's strike and down its dip.
struct Bearings {
  svg::Spot strike;
  svg::Spot dip;

  explicit Bearings(const Structure& structure) {
    const double bearing = structure.strike * kRadiansPerDegree;
    strike = {std::sin(bearing), -std::cos(bearing)};
    dip = {-strike.y, strike.x};
  }
};

svg::Spot Moved(const svg::Spot& from, const svg::Spot& direction, double pixels) {
  return {from.x + direction.x * pixels, from.y + direction.y * pixels};
}

// Whether a collar's mark at `spot` reaches into the box.
bool Touches(const svg::Box& box, const svg::Spot& spot) {
  constexpr double kReach = 3;
  return spot.x > box.x - kReach && spot.x < box.x + box.width + kReach &&
         spot.y > box.y - kReach && spot.y < box.y + box.height + kReach;
}

// Room for the label of a collar: below or above it, to the right or to the left, where it touches
// the fewest others.
svg::Box LabelRoom(const Panel& panel, const std::vector<Collar>& collars, const Collar& collar) {
  const svg::Spot at = panel(collar.position);
  const double width = 6.5 * static_cast<double>(collar.id.size()) + 6;
  constexpr double kHeight = 14;
  svg::Box best{at.x - 3 - width, at.y + 2, width, kHeight};
  std::ptrdiff_t fewest = static_cast<std::ptrdiff_t>(collars.size());
  for (const double y : {at.y + 2, at.y - 2 - kHeight}) {
    for (const double x : {at.x + 3, at.x - 3 - width}) {
      const svg::Box room{x, y, width, kHeight};
      if (x + width > panel.Frame().x + panel.Frame().width) {
        continue;
      }
      const std::ptrdiff_t touched =
          std::count_if(collars.begin(), collars.end(), [&](const Collar& other) {
            return &other != &collar && Touches(room, panel(other.position));
          });
      if (touched < fewest) {
        fewest = touched;
        best = room;
      }
    }
  }
  return best;
}

}  // namespace

void DrawMark(svg::SvgWriter& svg, const svg::Spot& at, Answer answer, const std::string& role,
              const std::string& title) {
  const std::string style = role + Name(answer);
  if (answer == Answer::kOnBoundary) {
    constexpr double r = 5.2;
    svg.Polygon({{at.x, at.y - r}, {at.x + r, at.y}, {at.x, at.y + r}, {at.x - r, at.y}}, style,
                title);
  } else {
    svg.Circle(at, answer == Answer::kInside ? 3.6 : 3.0, style, title);
  }
}

void DrawGround(svg::SvgWriter& svg, const Panel& panel, const Polyline3D& outline,
                const std::string& style) {
  std::vector<svg::Spot> corners;
  for (const Point3D& corner : outline.GetPointVector()) {
    corners.push_back(panel(corner));
  }
  svg.Polygon(corners, style);
}

void DrawEdges(svg::SvgWriter& svg, const Panel& panel, const Polyline3D& outline,
               const std::string& style) {
  std::map<std::pair<Coord3D, Coord3D>, int> walks;
  Coord3D from = outline.GetPointVector().back();
  for (const Coord3D to : outline.GetPointVector()) {
    ++walks[std::minmax(from, to)];
    from = to;
  }
  for (const auto& [edge, count] : walks) {
    svg.Line(panel(edge.first), panel(edge.second), style + (count % 2 == 0 ? " cut" : ""));
  }
}

void DrawTrace(svg::SvgWriter& svg, const Panel& panel, const Structure& structure) {
  const Bearings bearings(structure);
  const svg::Spot at = panel(structure.position);
  const double reach = panel.Frame().width + panel.Frame().height;
  svg.Line(Moved(at, bearings.strike, -reach), Moved(at, bearings.strike, reach), "trace");
}

void DrawStrikeAndDip(svg::SvgWriter& svg, const Panel& panel, const Structure& structure) {
  const Bearings bearings(structure);
  const svg::Spot at = panel(structure.position);
  svg.Line(Moved(at, bearings.strike, -14), Moved(at, bearings.strike, 14), "dip");
  svg.Line(at, Moved(at, bearings.dip, 8), "dip");
  const svg::Spot label = Moved(at, bearings.dip, 18);
  svg.Text({label.x, label.y + 4}, "halo middle structure",
           structure.id + " " + Grouped(structure.dip) + "°");
}

// The shadow of an ellipsoid has the sum of its axes' outer products, cut down to the two visible
// rows, for its matrix; that matrix' Cholesky factor maps the unit circle onto the shadow's edge.
void DrawSearch(svg::SvgWriter& svg, const Panel& panel, const Search& search) {
  double xx = 0, xy = 0, yy = 0;
  for (const Coord3D& axis : SemiAxes(search.ellipsoid)) {
    xx += axis.x * axis.x;
    xy += axis.x * axis.y;
    yy += axis.y * axis.y;
  }
  const double a = std::sqrt(xx);
  const double b = xy / a;
  const double c = std::sqrt(std::max(yy - b * b, 0.0));
  std::vector<svg::Spot> edge;
  for (int degrees = 0; degrees < 360; degrees += 4) {
    const double u = std::cos(degrees * kRadiansPerDegree);
    const double v = std::sin(degrees * kRadiansPerDegree);
    edge.push_back(panel.At({search.centre.x + a * u, search.centre.y + b * u + c * v}));
  }
  svg.Polygon(edge, "search");
}

void DrawCircle(svg::SvgWriter& svg, const Panel& panel, const EncCircle& circle) {
  const svg::Spot centre = panel.At({circle.x, circle.y});
  svg.Circle(centre, circle.radius * panel.PixelsPerMetre(), "circle");
  svg.Line({centre.x - 6, centre.y}, {centre.x + 6, centre.y}, "centre");
  svg.Line({centre.x, centre.y - 6}, {centre.x, centre.y + 6}, "centre");
}

void DrawCollars(svg::SvgWriter& svg, const Panel& panel, const std::vector<Collar>& collars,
                 const std::vector<Answer>& answers, const std::string& role) {
  // Those on the boundary come last, on top of their neighbours.
  for (const Answer answer : {Answer::kOutside, Answer::kInside, Answer::kOnBoundary}) {
    for (std::size_t i = 0; i < collars.size(); ++i) {
      if (answers[i] == answer) {
        DrawMark(svg, panel(collars[i].position), answer, role,
                 collars[i].id + ": " + Name(answer));
      }
    }
  }
}

void LabelBoundary(svg::SvgWriter& svg, const Panel& panel, const std::vector<Collar>& collars,
                   const std::vector<Answer>& answers) {
  for (std::size_t i = 0; i < collars.size(); ++i) {
    if (answers[i] == Answer::kOnBoundary) {
      const svg::Box room = LabelRoom(panel, collars, collars[i]);
      svg.Text({room.x + room.width / 2, room.y + room.height - 3}, "halo middle", collars[i].id);
    }
  }
}

void DrawNorthArrow(svg::SvgWriter& svg, const svg::Box& frame) {
  const svg::Spot tip{frame.x + frame.width - 34, frame.y + 32};
  svg.Polygon({tip, {tip.x - 10, tip.y + 36}, {tip.x, tip.y + 28}}, "black");
  svg.Polygon({tip, {tip.x + 10, tip.y + 36}, {tip.x, tip.y + 28}}, "white");
  svg.Text({tip.x, tip.y - 7}, "head middle", "N");
}

void DrawScaleBar(svg::SvgWriter& svg, const Panel& panel) {
  const double metres = RoundLength(panel.Frame().width / 3 / panel.PixelsPerMetre());
  const double quarter = metres / 4 * panel.PixelsPerMetre();
  const svg::Box& frame = panel.Frame();
  const svg::Spot start{frame.x + 20, frame.y + frame.height - 24};
  svg.Rectangle({frame.x, start.y - 24, 4 * quarter + 56, 48}, "plate");
  for (int i = 0; i < 4; ++i) {
    svg.Rectangle({start.x + i * quarter, start.y, quarter, 6}, i % 2 == 0 ? "black" : "white");
  }
  const int decimals = metres < 2 ? 2 : 0;
  for (const int i : {0, 2, 4}) {
    svg.Text({start.x + i * quarter, start.y - 6}, "note middle",
             Grouped(metres * i / 4, decimals) + (i == 4 ? " m" : ""));
  }
}

}  // namespace survey
