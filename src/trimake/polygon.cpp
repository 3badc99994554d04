#include "trimake/polygon.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <memory>
#include <new>

#include "trimake/delaunay.h"
#include "trimake/orientation.h"
#include "trimake/scan.h"

namespace zyl::geometry::internal {
namespace {

struct Release {
  void operator()(TArray* array) const {
    std::free(array->data);
    std::free(array);
  }
  void operator()(tri_Polygon* polygon) const { tri_Free_Polygon(polygon); }
};
using Array = std::unique_ptr<TArray, Release>;
using Polygon = std::unique_ptr<tri_Polygon, Release>;

template <typename T>
T* Allocate(std::size_t count) {
  void* const memory = std::malloc(count * sizeof(T));
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return static_cast<T*>(memory);
}

TPoint* PointsOf(const TArray& array) { return static_cast<TPoint*>(array.data); }

void Append(const TPoint& p, TArray& array) { *static_cast<TPoint*>(array.Reserve(1)) = p; }

void CloseChain(const TPoint& first, const TPoint& last, TArray& array) {
  if (first.x != last.x || first.y != last.y || first.z != last.z) {
    Append({first.x, first.y, first.z, 0}, array);
  }
}

// The points, every chain followed by its first point again unless it ends with it.
Array CopyWithChainsClosed(int count, const TPoint* points) {
  constexpr int kRoomForClosing = 10;
  Array copy(
      TArray::Create(sizeof(TPoint), std::min(count, INT_MAX - kRoomForClosing) + kRoomForClosing));
  const TPoint* chain = points;
  Append(points[0], *copy);
  for (int i = 1; i < count; ++i) {
    if (points[i].flag != 0) {
      CloseChain(*chain, points[i - 1], *copy);
      chain = &points[i];
    }
    Append(points[i], *copy);
  }
  CloseChain(*chain, points[count - 1], *copy);
  return copy;
}

// World-to-local matrix of the plane through the mean of the points that has the given normal.
void FrameOfPlane(const double* normal, const TArray& array, TMatrix& toLocal) {
  const double length =
      std::sqrt(normal[0] * normal[0] + normal[1] * normal[1] + normal[2] * normal[2]);
  const double divisor = length > 0 ? length : 1;
  tri_Frame_From_Normal(normal[0] / divisor, normal[1] / divisor, normal[2] / divisor,
                        kWorldToLocal, toLocal);
  double mean[3] = {0, 0, 0};
  for (const TPoint *p = PointsOf(array), *end = p + array.count; p != end; ++p) {
    mean[0] += p->x;
    mean[1] += p->y;
    mean[2] += p->z;
  }
  for (double& coordinate : mean) {
    coordinate /= array.count;
  }
  for (std::size_t j = 0; j < 3; ++j) {
    toLocal[12 + j] = -(mean[0] * toLocal[j] + mean[1] * toLocal[4 + j] + mean[2] * toLocal[8 + j]);
  }
}

void MapIntoPlane(const TMatrix& m, TArray& array) {
  for (TPoint *p = PointsOf(array), *end = p + array.count; p != end; ++p) {
    const double x = m[0] * p->x + m[4] * p->y + m[8] * p->z + m[12];
    const double y = m[1] * p->x + m[5] * p->y + m[9] * p->z + m[13];
    *p = {x, y, 0, p->flag};
  }
}

bool Triangulate(const TArray& boundary, tri_Polygon& polygon) {
  void* edgeInfo = nullptr;
  tri_SetQuiet(1);
  const int result = tri_Triangulate(boundary.count, PointsOf(boundary), &polygon.triangleCount,
                                     &polygon.vertexCount, &polygon.vertices, &polygon.triangles,
                                     &edgeInfo, &polygon.neighbours, 0.0, 0.0);
  tri_SetQuiet(0);
  polygon.edgeInfo = static_cast<TEdgeInfo*>(edgeInfo);
  return result == kTriangulated && polygon.triangleCount > 0;
}

// An edge with nothing behind it, as 3·triangle + edge; the first edge of all if there is none.
int FindHullEdge(const tri_Polygon& polygon) {
  const int count = 3 * polygon.triangleCount;
  const int* const hull = std::find_if(polygon.neighbours, polygon.neighbours + count,
                                       [](int neighbour) { return neighbour <= 0; });
  return hull == polygon.neighbours + count ? 0 : static_cast<int>(hull - polygon.neighbours);
}

// Far away is outside, so that the triangle behind a hull edge is inside if that is boundary.
void MarkInside(tri_Polygon& polygon) {
  polygon.inside = Allocate<int>(static_cast<std::size_t>(polygon.triangleCount));
  std::fill_n(polygon.inside, polygon.triangleCount, -1);
  const int hullEdge = FindHullEdge(polygon);
  const int state = IsBoundary(polygon.edgeInfo[hullEdge]) ? 1 : 0;
  tri_Scan_Inside scan(polygon.neighbours, polygon.triangleCount, polygon.edgeInfo, state,
                       polygon.inside);
  scan.Run(hullEdge / 3);
}

bool IsInside(const tri_Polygon& polygon, int triangle) { return polygon.inside[triangle] == 1; }

bool IsClockwise(const tri_Polygon& polygon, int triangle) {
  const int* const corner = polygon.triangles + 3 * triangle;
  const TPoint* const vertices = polygon.vertices;
  return cw(&vertices[corner[0] - 1], &vertices[corner[1] - 1], &vertices[corner[2] - 1]);
}

// Whether the mark changes across an edge exactly if that is boundary, far away being outside.
bool IsMarkedRight(const tri_Polygon& polygon, int triangle, int k) {
  const int edge = 3 * triangle + k;
  const int across = polygon.neighbours[edge] - 1;
  const bool changes = IsInside(polygon, triangle) != (across >= 0 && IsInside(polygon, across));
  return changes == IsBoundary(polygon.edgeInfo[edge]);
}

// Whether a point in a triangle may go by the mark of that. Triangles that all turn the same way
// and fill the hull without a hole (Euler's formula counts none) cover each point once, and their
// marks agree unless a segment of the boundary is missing. Boundaries that cross at small angles,
// and run along each other besides, may leave triangles turned over, and these a segment that does
// not get past.
bool IsSound(const tri_Polygon& polygon) {
  int hullEdges = 0;
  for (int t = 0; t < polygon.triangleCount; ++t) {
    if (!IsClockwise(polygon, t)) {
      return false;
    }
    for (int k = 0; k < 3; ++k) {
      if (!IsMarkedRight(polygon, t, k)) {
        return false;
      }
      hullEdges += polygon.neighbours[3 * t + k] <= 0 ? 1 : 0;
    }
  }
  return polygon.triangleCount == 2 * polygon.vertexCount - 2 - hullEdges;
}

void KeepBoundary(TArray& array, tri_Polygon& polygon) {
  polygon.boundary = static_cast<TPoint*>(array.Take(&polygon.boundaryCount));
}

// Null if there is no triangle. Throws if memory runs out.
Polygon Build(int count, const TPoint* points, const double* normal) {
  Polygon polygon(new (Allocate<tri_Polygon>(1)) tri_Polygon{});
  const Array boundary = CopyWithChainsClosed(count, points);
  if (normal != nullptr) {
    FrameOfPlane(normal, *boundary, polygon->toLocal);
  } else {
    tri_Fit_Plane(boundary->count, PointsOf(*boundary), polygon->toLocal);
  }
  MapIntoPlane(polygon->toLocal, *boundary);
  PointsOf(*boundary)->flag = 1;
  if (!Triangulate(*boundary, *polygon)) {
    return nullptr;
  }
  MarkInside(*polygon);
  if (!IsSound(*polygon)) {
    KeepBoundary(*boundary, *polygon);
  }
  return polygon;
}

}  // namespace

tri_Polygon* tri_Triangulate_Polygon(int count, const TPoint* points, const double* normal,
                                     int* error) {
  *error = 0;
  if (count < 1) {
    return nullptr;
  }
  try {
    return Build(count, points, normal).release();
  } catch (const std::exception&) {
    return nullptr;
  }
}

void tri_Free_Polygon(tri_Polygon* polygon) {
  if (polygon == nullptr) {
    return;
  }
  std::free(polygon->vertices);
  std::free(polygon->triangles);
  std::free(polygon->edgeInfo);
  std::free(polygon->neighbours);
  std::free(polygon->inside);
  std::free(polygon->boundary);
  std::free(polygon);
}

}  // namespace zyl::geometry::internal
