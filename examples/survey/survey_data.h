#pragma once

// What a survey consists of, and the reading of it. Every reader throws InputError with file and
// line. Coordinates are metres on a grid: x east, y north, z up.

#include <string>
#include <vector>

#include "zyl/geometry/coord.h"
#include "zyl/geometry/ellipsoid.h"
#include "zyl/geometry/plane.h"
#include "zyl/geometry/polyline3d.h"

namespace survey {

struct Collar {
  std::string id;
  zyl::geometry::Coord3D position;
};

/// A structure measured at one point. It dips to the right of its strike; its plane's positive side
/// is the upper one.
struct Structure {
  std::string id;
  zyl::geometry::Coord3D position;
  double strike;  // degrees clockwise from north
  double dip;     // degrees down from the horizontal, 0 to 90
  zyl::geometry::Plane plane;
};

/// Where to look for collars round a point, farther along some directions than along others.
struct Search {
  std::string id;
  zyl::geometry::Coord3D centre;
  zyl::geometry::Ellipsoid ellipsoid;
};

struct Survey {
  std::vector<Collar> collars;
  std::vector<zyl::geometry::Polyline3D> outlines;  // closed, each with a name
  std::vector<Structure> structures;
  std::vector<Search> searches;
};

/// Columns id,x,y,z. An id that stands twice is a fault, and so is a file without collars.
std::vector<Collar> ReadCollars(const std::string& path);

/// Columns x,y,z: the corners of one ring in their order, three or more. A last corner equal to the
/// first may be there or not. The file's name without folder and extension becomes the ring's.
zyl::geometry::Polyline3D ReadOutline(const std::string& path);

/// Columns id,x,y,z,strike,dip.
std::vector<Structure> ReadStructures(const std::string& path);

/// Columns id,x,y,z,major,semi_major,minor,bearing,inclination,rotation: the radii, all positive,
/// and the angles in degrees that turn them.
std::vector<Search> ReadSearches(const std::string& path);

}  // namespace survey
