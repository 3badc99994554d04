#include "polyline/polygon_set.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

#include "trimake/location.h"
#include "trimake/polygon.h"

namespace zyl::geometry::internal {
namespace {

constexpr int kDefaultCapacity = 500;
constexpr int kGrowth = 500;

// Enlarges the block if that is not null. Null, with the block as it was, if memory runs out.
template <typename T>
T* Reallocate(T* block, int count) {
  if (static_cast<std::size_t>(count) > PTRDIFF_MAX / sizeof(T)) {
    return nullptr;
  }
  return static_cast<T*>(std::realloc(block, static_cast<std::size_t>(count) * sizeof(T)));
}

template <typename T>
T* Allocate(int count) {
  return Reallocate<T>(nullptr, count);
}

void Ungroup(PolygonSet& set) {
  std::free(set.polygonStart);
  std::free(set.polygonAux);
  set.polygonStart = nullptr;
  set.polygonAux = nullptr;
  set.polygonCount = 0;
  set.firstPolygonId = -1;
}

// Numbers the polygons and tells each point its own. Returns how many there are.
int NumberPolygons(PolygonSet& set) {
  int polygon = -1;
  for (int i = 0; i < set.pointCount; ++i) {
    if (i == 0 || set.points[i].polygonId != set.points[i - 1].polygonId) {
      ++polygon;
    }
    set.points[i].polygonIndex = polygon;
  }
  return polygon + 1;
}

int IdOfPolygon(const PolygonSet& set, int polygon) {
  return set.points[set.polygonStart[polygon]].polygonId;
}

bool IdsAreConsecutive(const PolygonSet& set) {
  for (int g = 0; g < set.polygonCount; ++g) {
    if (IdOfPolygon(set, g) != std::int64_t{IdOfPolygon(set, 0)} + g) {
      return false;
    }
  }
  return true;
}

int FirstPointOf(const PolygonSet& set, int polygonId) {
  for (int i = 0; i < set.pointCount; ++i) {
    if (set.points[i].polygonId == polygonId) {
      return i;
    }
  }
  return -1;
}

// The points of one polygon.
struct Outline {
  const PolygonSetPoint* points;
  int count;

  const double* At(int i) const { return &points[i].x; }
};

Outline OutlineAt(const PolygonSet& set, int start) {
  int end = start;
  while (end < set.pointCount && set.points[end].polygonId == set.points[start].polygonId) {
    ++end;
  }
  return {set.points + start, end - start};
}

// Moves a point along the axes on which all points of the outline agree: into the plane of a
// horizontal polygon, say, and exactly. What is infinitely far away, or nowhere, stays there.
void MoveIntoPlane(const Outline& outline, double* p) {
  for (int axis = 0; axis < 3; ++axis) {
    int i = 1;
    while (i < outline.count && outline.At(i)[axis] == outline.At(0)[axis]) {
      ++i;
    }
    if (i == outline.count && std::isfinite(p[axis])) {
      p[axis] = outline.At(0)[axis];
    }
  }
}

bool IsInBox(const double* a, const double* b, const double* p) {
  for (int axis = 0; axis < 3; ++axis) {
    const auto [least, greatest] = std::minmax(a[axis], b[axis]);
    if (!(least <= p[axis] && p[axis] <= greatest)) {
      return false;
    }
  }
  return true;
}

// Whether a point lies exactly on the boundary: on a vertex, or on edges that make it so.
bool IsOnBoundary(const Outline& outline, const double* p) {
  TEdgesAtPoint atP(&tri_Are_In_Line);
  for (int i = 0; i < outline.count; ++i) {
    const double* const a = outline.At(i == 0 ? outline.count - 1 : i - 1);
    const double* const b = outline.At(i);
    if (std::equal(p, p + 3, b)) {
      return true;
    }
    if (IsInBox(a, b, p) && tri_Are_In_Line(a, b, p)) {
      atP.Add(a, b);
    }
  }
  return atP.AreBoundary();
}

bool Grow(PolygonSet& set) {
  if (set.capacity > INT_MAX - kGrowth) {
    return false;
  }
  PolygonSetPoint* const grown = Reallocate(set.points, set.capacity + kGrowth);
  if (grown == nullptr) {
    return false;
  }
  set.points = grown;
  set.capacity += kGrowth;
  return true;
}

tri_Polygon* TriangulateRun(const PolygonSet& set, int polygon, TPoint* scratch) {
  const Outline outline = OutlineAt(set, set.polygonStart[polygon]);
  for (int i = 0; i < outline.count; ++i) {
    const PolygonSetPoint& p = outline.points[i];
    scratch[i] = {p.x, p.y, p.z, 0};
  }
  int error = 0;
  tri_Polygon* const triangulated =
      tri_Triangulate_Polygon(outline.count, scratch, nullptr, &error);
  if (error != 0) {
    tri_Free_Polygon(triangulated);
    return nullptr;
  }
  return triangulated;
}

}  // namespace

PolygonSet* PolygonSet_Create(int capacity) {
  PolygonSet* const set = Allocate<PolygonSet>(1);
  if (set == nullptr) {
    return nullptr;
  }
  new (set) PolygonSet{};
  set->firstPolygonId = -1;
  set->capacity = capacity < 1 ? kDefaultCapacity : capacity;
  set->points = Allocate<PolygonSetPoint>(set->capacity);
  if (set->points == nullptr) {
    std::free(set);
    return nullptr;
  }
  return set;
}

PolygonSet* PolygonSet_CreateFor(unsigned int vertices) {
  constexpr unsigned int kRoom = 10;
  return PolygonSet_Create(
      static_cast<int>(std::min(vertices, static_cast<unsigned int>(INT_MAX) / kRoom) * kRoom));
}

void PolygonSet_Free(PolygonSet* set) {
  if (set == nullptr) {
    return;
  }
  PolygonSet_FreeTriangulations(set);
  Ungroup(*set);
  std::free(set->points);
  std::free(set);
}

int PolygonSet_AddPoint(PolygonSet* set, int polygonId, double x, double y, double z) {
  Ungroup(*set);
  if (set->pointCount == set->capacity && !Grow(*set)) {
    return 1;
  }
  set->points[set->pointCount++] = {polygonId, x, y, z, -1, -1, -1, -1};
  return 0;
}

void PolygonSet_Group(PolygonSet* set) {
  Ungroup(*set);
  const int count = NumberPolygons(*set);
  if (count == 0) {
    return;
  }
  set->polygonStart = Allocate<int>(count);
  set->polygonAux = Allocate<int>(count);
  if (set->polygonStart == nullptr || set->polygonAux == nullptr) {
    Ungroup(*set);
    return;
  }
  set->polygonCount = count;
  std::fill_n(set->polygonAux, count, -1);
  for (int i = set->pointCount - 1; i >= 0; --i) {
    set->polygonStart[set->points[i].polygonIndex] = i;
  }
  set->firstPolygonId = IdsAreConsecutive(*set) ? IdOfPolygon(*set, 0) : -1;
}

void PolygonSet_Triangulate(PolygonSet* set) {
  PolygonSet_FreeTriangulations(set);
  PolygonSet_Group(set);
  if (set->polygonCount == 0) {
    return;
  }
  set->triangulations = Allocate<tri_Polygon*>(set->polygonCount);
  if (set->triangulations == nullptr) {
    return;
  }
  set->triangulationCount = set->polygonCount;
  std::fill_n(set->triangulations, set->polygonCount, nullptr);
  TPoint* const scratch = Allocate<TPoint>(set->pointCount);
  if (scratch == nullptr) {
    return;
  }
  for (int g = 0; g < set->polygonCount; ++g) {
    set->triangulations[g] = TriangulateRun(*set, g, scratch);
  }
  std::free(scratch);
}

void PolygonSet_FreeTriangulations(PolygonSet* set) {
  for (int g = 0; g < set->triangulationCount; ++g) {
    tri_Free_Polygon(set->triangulations[g]);
  }
  std::free(set->triangulations);
  set->triangulations = nullptr;
  set->triangulationCount = 0;
}

int PolygonSet_FindPolygon(const PolygonSet* set, int polygonId, int* polygonIndexOut) {
  *polygonIndexOut = -1;
  if (set->polygonStart == nullptr) {
    return FirstPointOf(*set, polygonId);
  }
  std::int64_t g = 0;
  if (set->firstPolygonId >= 0) {
    g = std::int64_t{polygonId} - set->firstPolygonId;
  } else {
    while (g < set->polygonCount && IdOfPolygon(*set, static_cast<int>(g)) != polygonId) {
      ++g;
    }
  }
  if (g < 0 || g >= set->polygonCount) {
    return -1;
  }
  *polygonIndexOut = static_cast<int>(g);
  return set->polygonStart[g];
}

int PolygonSet_IsPointInside(PolygonSet* set, int polygonId, double x, double y, double z) {
  int g = -1;
  const int start = PolygonSet_FindPolygon(set, polygonId, &g);
  if (start < 0 || g < 0 || g >= set->triangulationCount || set->triangulations[g] == nullptr) {
    return 0;
  }
  double point[3] = {x, y, z};
  if (tri_Locate_Point(set->triangulations[g], point, nullptr, 0.0) != kOutside) {
    return 1;
  }
  // In the fitted plane coordinates are rounded, and vertices that are as good as one are one: both
  // may leave a point of the boundary outside.
  const Outline outline = OutlineAt(*set, start);
  MoveIntoPlane(outline, point);
  return IsOnBoundary(outline, point) ? 1 : 0;
}

double PolygonSet_SignedArea(const PolygonSet* set, int polygonId) {
  int g = -1;
  const int start = PolygonSet_FindPolygon(set, polygonId, &g);
  if (start < 0) {
    return 0;
  }
  const auto [p, count] = OutlineAt(*set, start);
  double sum = 0;
  for (int k = 1; k < count; ++k) {
    sum += (p[k - 1].y + p[k].y - p[0].y) * (p[k].x - p[k - 1].x);
  }
  return 0.5 * sum;
}

int PolygonSet_IsClockwise(const PolygonSet* set, int polygonId) {
  return PolygonSet_SignedArea(set, polygonId) > 0 ? 1 : 0;
}

}  // namespace zyl::geometry::internal
