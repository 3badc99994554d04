#pragma once

/// @file
/// Polylines and polygons in space: editing them, and the questions they answer.

#include <string>
#include <vector>

#include "zyl/geometry/coord.h"
#include "zyl/geometry/export.h"

namespace zyl::geometry {

struct Direction;

/// @addtogroup polygons
/// @{

/// Which coordinate Polyline3D::GetAsArray reads. Callers pass the numbers; do not renumber.
enum CoordinateType : int {
  COORDINATE_X = 0,  ///< East.
  COORDINATE_Y = 1,  ///< North.
  COORDINATE_Z = 2   ///< Up.
};

/// Points in order, with a name, a colour and a flag that says whether the last joins the first.
///
/// A closed polyline stores every vertex once: its last edge, back to the first point, is implied
/// by the flag. The constructors from a point list recognise a list that ends where it began, drop
/// that last point and set the flag; nothing else edits the points or the flag on its own.
/// If memory runs out, an operation throws std::bad_alloc and leaves the polyline as it was. Point
/// indices and coordinate arrays are not checked. What looks at the points costs one or a few
/// passes over them, IsPointInside more.
///
///     const std::vector<Point3D> corners = {{0, 0, 5}, {4, 0, 5}, {4, 3, 5}, {0, 0, 5}};
///     const Polyline3D lease(corners);         // three points, closed
///     lease.IsPointInside(Point3D(3, 1, 5));   // true
///     lease.IsPointInside(Point3D(1, 2, 5));   // false
class ZYL_GEOMETRY_API Polyline3D {
 public:
  /// Open, without points and without a name.
  Polyline3D() = default;
  /// Name, colour, closed flag and points as they are; a point list is not looked at again.
  Polyline3D(const Polyline3D& other) = default;
  /// Leaves `other` valid, with unspecified contents.
  Polyline3D(Polyline3D&& other) noexcept = default;
  /// Polyline of the given points, closed if the last one exactly repeats the first.
  Polyline3D(const std::vector<Point3D>& points);
  /// The same of points given by coordinate: point i is (x[i], y[i], z[i]).
  Polyline3D(unsigned int count, double* const x, double* const y, double* const z);
  /// The same of an array. A null array gives an empty polyline.
  Polyline3D(unsigned int count, const Point3D* const points);
  ~Polyline3D() = default;

  /// Full copy; if memory runs out, this polyline stays as it was.
  Polyline3D& operator=(const Polyline3D& other);
  /// Leaves `other` valid, with unspecified contents.
  Polyline3D& operator=(Polyline3D&& other) noexcept = default;

  /// Number of stored points; the implied end of a closed polyline does not count.
  unsigned int Size() const { return static_cast<unsigned int>(points_.size()); }
  /// The stored point i; the index is not checked. Edits leave the closed flag alone.
  Point3D& operator[](unsigned int i) { return points_[i]; }
  /// The stored point i; the index is not checked.
  const Point3D& operator[](unsigned int i) const { return points_[i]; }
  /// The stored points themselves. Edits through the reference leave the closed flag alone.
  std::vector<Point3D>& GetPointVector() { return points_; }
  /// The stored points themselves.
  const std::vector<Point3D>& GetPointVector() const { return points_; }

  /// Whether the last point joins the first. Says nothing of whether they are equal.
  bool IsClosed() const { return closed_; }
  /// Caller's colour code, which the library never interprets.
  int GetColour() { return colour_; }
  /// Caller's colour code, which the library never interprets.
  int GetColour() const { return colour_; }
  /// Copy of the name; a const polyline gives a reference to it.
  std::string GetName() { return name_; }
  /// The stored name.
  const std::string& GetName() const { return name_; }
  /// The integer that the name begins with, after white space and an optional sign. 0 if there is
  /// none or it does not fit an int.
  int GetNameAsInt();
  /// The integer that the name begins with, or 0, as above.
  int GetNameAsInt() const;

  /// Appends one coordinate of every point to `out`. A type other than 0, 1 and 2 appends nothing.
  void GetAsArray(CoordinateType type, std::vector<double>& out) const;
  /// Mean of the stored points; NaN if there are none.
  const Point3D GetCenterPoint() const;
  /// "Closed " or "Open ", then "x:y:z, " for every point, with six significant digits and a point
  /// for the decimal mark in every locale.
  std::string PrintDebug() const;

  /// Whether `p` lies inside the polygon or exactly on its boundary.
  ///
  /// The question is put in the polygon's best-fit plane, and the distance of `p` from that plane
  /// does not matter. A polygon that crosses itself follows the even-odd rule. An open polyline
  /// answers as the ring it outlines. False if there is no polygon (fewer than three distinct
  /// points, or all on one line), if a coordinate is NaN, and if memory runs out; nothing is
  /// thrown. Wrong answers are possible if coordinates exceed 1e30. O(n log n) if few edges
  /// cross or overlap: every call builds a constrained Delaunay triangulation anew; the guide to
  /// the architecture names the sources. Any number of threads may ask at once.
  bool IsPointInside(const Point3D& p) const;
  /// The same of the point (x, y, z).
  bool IsPointInside(const double& x, const double& y, const double& z) const;

  /// Unit normal of the best-fit plane, its component of largest magnitude positive, whichever way
  /// the points run. `normal` stays as it is if there are fewer than three points or all of them
  /// pass for collinear with the first two; that test sees slopes in x-y and the z of the first
  /// and the last of three points, so that some triangles in vertical planes pass for collinear.
  void GetPolygonNormal(Direction& normal) const;
  /// Appends, for every vertex of the polyline taken as a ring, the points beside it at `offset` to
  /// the left and to the right of the mean direction of travel, seen against the polygon normal.
  /// Both are the vertex itself where there is no normal.
  void GetPointNormals(std::vector<Point3D>& first, std::vector<Point3D>& second,
                       const double& offset);
  /// Whether the polyline runs clockwise, seen against the polygon normal. False if it is empty,
  /// and if memory runs out.
  bool IsClockwise() const;
  /// Whether `p` lies on an edge, the closing edge of a closed polyline included: in the box around
  /// the edge, widened by `tolerance` on every side, and near enough to its line.
  ///
  /// In space that is a distance of `tolerance` or less. An edge without length holds nothing;
  /// otherwise what is not shown to be off an edge is on it, a point with NaN coordinates included.
  /// In x-y |edge × (p − edge start)|, the distance times the length of the edge, has to be less
  /// than `tolerance`: with 0 nothing is on an edge, and one without length holds its whole widened
  /// box. A negative tolerance stands for 0.01 in x-y.
  bool IsPointOnEdge(const Point3D& p, bool inXY, double tolerance) const;

  /// Appends (x, y, z). The closed flag is not set, even if the point repeats the first.
  void Add(const double& x, const double& y, const double& z);
  /// Appends p, likewise without a look at the first point.
  void Add(const Point3D& p);
  /// Removes all points and nothing else.
  void Clear() { points_.clear(); }
  /// Keeps the first n points, or appends points of no particular coordinates up to n of them.
  /// Resize(0) changes nothing: Clear empties a polyline.
  void Resize(unsigned int n);
  /// Turns the order of the points round; the closed flag stays.
  void Reverse();
  /// Sets coordinate 0 (x), 1 (y) or 2 (z) of every point; another number changes nothing.
  void Set(const double& value, const int& coordinate);
  /// Adds `offset` to every point.
  void Translate(const Point3D& offset);
  /// Sets the flag alone: no point is added or removed.
  void SetClosed(bool closed) { closed_ = closed; }
  /// Sets the colour code, any integer.
  void SetColour(const int& colour) { colour_ = colour; }
  /// Replaces the name; if memory runs out, the old one stays.
  void SetName(const std::string& name) { name_ = name; }
  /// Makes the decimal digits of `value` the name, with a leading '-' if it is negative.
  void SetNameAsInt(const int& value);
  /// Exchanges everything with `other`; no point is copied.
  void Swap(Polyline3D& other) noexcept;

  /// Exact equality of name, colour, closed flag and every coordinate; a NaN equals nothing.
  bool operator==(const Polyline3D& other) const;
  /// Negation of ==, hence true where a NaN is compared.
  bool operator!=(const Polyline3D& other) const { return !(*this == other); }

 protected:
  /// Sets the closed flag if there are at least two points and the last exactly repeats the first,
  /// and then removes the last; else clears the flag.
  void CheckClosure();

 private:
  std::string name_;
  int colour_ = 0;
  bool closed_ = false;
  std::vector<Point3D> points_;
};

/// @}

}  // namespace zyl::geometry
