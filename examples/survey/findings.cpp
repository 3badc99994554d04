#include "findings.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "zyl/geometry/extent.h"
#include "zyl/geometry/voxelation.h"

namespace survey {
namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Ellipsoid;
using zyl::geometry::Extent;
using zyl::geometry::int64;
using zyl::geometry::Plane;
using zyl::geometry::Point3D;
using zyl::geometry::Voxelation;

constexpr double kMostVoxelsPerAxis = 256;

std::vector<Point3D> Positions(const std::vector<Collar>& collars) {
  std::vector<Point3D> positions;
  positions.reserve(collars.size());
  for (const Collar& collar : collars) {
    positions.emplace_back(collar.position);
  }
  return positions;
}

std::vector<double> Heights(const Plane& plane, const std::vector<Collar>& collars) {
  std::vector<double> heights;
  heights.reserve(collars.size());
  for (const Collar& collar : collars) {
    heights.push_back(plane.Distance(collar.position, false));
  }
  return heights;
}

// Index of the collars by place. They lie spread over a surface, so that about one voxel a collar
// covers them in plan.
Voxelation IndexCollars(const std::vector<Collar>& collars) {
  Extent box = FindPointsExtent(Positions(collars));
  box.Expand(1.0);  // a single collar has a box, too
  const Coord3D sides = box.Sides();
  const double edge = std::max(sides.x, sides.y) / std::sqrt(static_cast<double>(collars.size()));
  const auto voxelsAlong = [edge](double side) {
    const double count = std::ceil(side / edge);
    return count > 1 ? static_cast<int>(std::min(count, kMostVoxelsPerAxis)) : 1;
  };
  Voxelation index(box.min, box.max, voxelsAlong(sides.x), voxelsAlong(sides.y),
                   voxelsAlong(sides.z));
  for (std::size_t i = 0; i < collars.size(); ++i) {
    index.AddPoint(collars[i].position, static_cast<int64>(i));
  }
  return index;
}

// The voxels offer whoever stands in the ellipsoid's axis-parallel box or near it; the distance
// under the ellipsoid's own metric decides.
std::vector<std::optional<double>> Reaches(const Search& search, const Voxelation& index,
                                           const std::vector<Collar>& collars) {
  Coord3D squaredWidths;
  for (const Coord3D& axis : SemiAxes(search.ellipsoid)) {
    squaredWidths += axis * axis;
  }
  std::set<int64> candidates;
  index.CollectIDsNear(candidates, search.centre, std::sqrt(squaredWidths.x),
                       std::sqrt(squaredWidths.y), std::sqrt(squaredWidths.z));

  std::vector<std::optional<double>> reaches(collars.size());
  Coord3D centre = search.centre;
  for (const int64 id : candidates) {
    const std::size_t i = static_cast<std::size_t>(id);
    const double squared = centre.SquaredDistance(collars[i].position, search.ellipsoid.matrix);
    reaches[i] = std::sqrt(squared) / search.ellipsoid.radii.x;
  }
  return reaches;
}

}  // namespace

std::array<Coord3D, 3> SemiAxes(const Ellipsoid& ellipsoid) {
  std::array<Coord3D, 3> axes;
  for (int i = 0; i < 3; ++i) {
    const double* const row = ellipsoid.matrix[i];
    Coord3D axis(row[0], row[1], row[2]);
    axis.Normalise();
    axes[static_cast<std::size_t>(i)] = axis * ellipsoid.radii[i];
  }
  return axes;
}

Findings Examine(const Survey& survey, unsigned threads) {
  Findings findings;
  findings.answers = ClassifyAll(survey, threads);
  for (const Structure& structure : survey.structures) {
    findings.heights.push_back(Heights(structure.plane, survey.collars));
  }
  const Voxelation index = IndexCollars(survey.collars);
  for (const Search& search : survey.searches) {
    findings.reaches.push_back(Reaches(search, index, survey.collars));
  }
  findings.circle = zyl::geometry::SmallestEnclosingCircle(Positions(survey.collars));
  return findings;
}

}  // namespace survey
