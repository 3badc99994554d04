#include "survey_data.h"

#include <filesystem>
#include <map>

#include "csv_reader.h"

namespace survey {
namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Ellipsoid;
using zyl::geometry::Plane;
using zyl::geometry::Point3D;
using zyl::geometry::Polyline3D;

constexpr double kRadiansPerDegree = 0.017453292519943295;

Coord3D Position(const CsvRow& row) { return {row.numbers[0], row.numbers[1], row.numbers[2]}; }

// Rows of a table in which no id may stand twice.
std::vector<CsvRow> ReadNamedRows(const std::string& path, const std::string& columns) {
  std::vector<CsvRow> rows = ReadCsvFile(path, columns);
  std::map<std::string, int> lineOf;
  for (const CsvRow& row : rows) {
    const auto [entry, isNew] = lineOf.emplace(row.id, row.line);
    if (!isNew) {
      throw InputError(
          path, row.line,
          "id \"" + row.id + "\" already stands in line " + std::to_string(entry->second));
    }
  }
  return rows;
}

}  // namespace

std::vector<Collar> ReadCollars(const std::string& path) {
  std::vector<Collar> collars;
  for (const CsvRow& row : ReadNamedRows(path, "id,x,y,z")) {
    collars.push_back({row.id, Position(row)});
  }
  if (collars.empty()) {
    throw InputError(path + ": holds no collar");
  }
  return collars;
}

Polyline3D ReadOutline(const std::string& path) {
  const std::vector<CsvRow> rows = ReadCsvFile(path, "x,y,z");
  std::vector<Point3D> corners;
  corners.reserve(rows.size());
  for (const CsvRow& row : rows) {
    corners.emplace_back(row.numbers[0], row.numbers[1], row.numbers[2]);
  }
  Polyline3D outline(corners);
  if (outline.Size() < 3) {
    throw InputError(path + ": an outline needs three corners, found " +
                     std::to_string(outline.Size()));
  }
  outline.SetClosed(true);
  outline.SetName(std::filesystem::path(path).stem().string());
  return outline;
}

std::vector<Structure> ReadStructures(const std::string& path) {
  std::vector<Structure> structures;
  for (const CsvRow& row : ReadNamedRows(path, "id,x,y,z,strike,dip")) {
    const Coord3D at = Position(row);
    const double strike = row.numbers[3];
    const double dip = row.numbers[4];
    if (dip < 0 || dip > 90) {
      throw InputError(path, row.line, "dip is not between 0 and 90 degrees");
    }
    const Plane plane(at, strike * kRadiansPerDegree, dip * kRadiansPerDegree);
    structures.push_back({row.id, at, strike, dip, plane});
  }
  return structures;
}

std::vector<Search> ReadSearches(const std::string& path) {
  std::vector<Search> searches;
  const std::string columns = "id,x,y,z,major,semi_major,minor,bearing,inclination,rotation";
  for (const CsvRow& row : ReadNamedRows(path, columns)) {
    const Coord3D radii(row.numbers[3], row.numbers[4], row.numbers[5]);
    const Coord3D angles(row.numbers[6], row.numbers[7], row.numbers[8]);
    if (!(radii.x > 0 && radii.y > 0 && radii.z > 0)) {
      throw InputError(path, row.line, "a radius is not positive");
    }
    searches.push_back({row.id, Position(row), Ellipsoid(radii, angles)});
  }
  return searches;
}

}  // namespace survey
