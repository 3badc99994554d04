#pragma once

// One framed view of the ground on paper: how it is looked at, what part of it is shown, and where.

#include <string>
#include <vector>

#include "svg/svg_writer.h"
#include "zyl/geometry/coord.h"
#include "zyl/geometry/polyline3d.h"

namespace survey {

/// How the ground is looked at. Two unit vectors span the paper; the look is square to both.
struct View {
  zyl::geometry::Coord3D origin;
  zyl::geometry::Coord3D right{1, 0, 0};
  zyl::geometry::Coord3D up{0, 1, 0};

  /// East and north of p, or along and up the plane looked at, in metres.
  zyl::geometry::Coord2D At(const zyl::geometry::Coord3D& p) const;
};

/// Unit normal of the outline's plane, not pointing down. (0, 0, 1) if it has no plane.
zyl::geometry::Coord3D UpperNormal(const zyl::geometry::Polyline3D& outline);

/// The look square at an outline's plane from its upper side, with its strike to the right and the
/// way up dip upwards; a level outline is looked at with north up.
View SquareTo(const zyl::geometry::Polyline3D& outline);

/// Part of what a view shows, in metres.
struct Window {
  zyl::geometry::Coord2D min;
  zyl::geometry::Coord2D max;

  /// Holds exactly the point p.
  explicit Window(const zyl::geometry::Coord2D& p) : min(p), max(p) {}
  void Add(const zyl::geometry::Coord2D& p);
  /// Grows by this share of its larger side all round, and to one metre at the least.
  void Widen(double share);
};

class Panel {
 public:
  /// Shows `window` as large as fits `frame`, in the middle, and beyond it what the frame holds.
  Panel(const View& view, const Window& window, const svg::Box& frame);

  const svg::Box& Frame() const { return frame_; }
  double PixelsPerMetre() const { return scale_; }

  svg::Spot operator()(const zyl::geometry::Coord3D& p) const { return At(view_.At(p)); }
  svg::Spot At(const zyl::geometry::Coord2D& p) const;

  /// Thin lines at round coordinates, about `intervals` of them across, with figures outside the
  /// frame.
  void DrawGrid(svg::SvgWriter& svg, int intervals) const;

 private:
  View view_;
  svg::Box frame_;
  double scale_;
  zyl::geometry::Coord2D middle_;
};

/// The largest of 1, 2 and 5 times a power of ten that is not above `length`.
double RoundLength(double length);

/// A number of metres with its thousands set apart.
std::string Grouped(double metres, int decimals = 0);

}  // namespace survey
