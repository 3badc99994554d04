// Prints one line per subsystem: the digest of a large fixed workload over every exported operation
// and the engine behind them. The lines have to be the same from every compiler, optimisation level
// and word size, with and without oneTBB; scripts/determinism.sh compares them.
//
// Left out is what rests on the platform's sin, cos and acos, whose last bit is its own choice:
// Coord3D::Angle, Parallel and Rotate, bearings, dipping planes, ellipsoids, the rotations of the
// matrices, Segment::AngleBetween, DistanceAlong and what is built on it (ProjectPoint, nearest
// points of a segment or triangle to a point).

#include <cstdlib>
#include <set>
#include <vector>

#include "digest.h"
#include "predicates/predicates.h"
#include "trimake/delaunay.h"
#include "trimake/records.h"
#include "zyl/geometry/geometry.h"

namespace {

using namespace zyl::geometry;
using determinism::Digest;
using determinism::Numbers;

Coord3D FarCoord(Numbers& numbers) {
  const double x = numbers.Far();
  const double y = numbers.Far();
  return {x, y, numbers.Far()};
}

Coord3D WholeCoord(Numbers& numbers) {
  const double x = numbers.Whole();
  const double y = numbers.Whole();
  return {x, y, numbers.Whole()};
}

Coord3D RealCoord(Numbers& numbers) {
  const double x = numbers.Real();
  const double y = numbers.Real();
  return {x, y, numbers.Real()};
}

Digest Vectors() {
  Digest digest;
  Numbers numbers(1);
  for (int i = 0; i < 20000; ++i) {
    Coord3D a = i % 2 == 0 ? FarCoord(numbers) : WholeCoord(numbers);
    const Coord3D b = RealCoord(numbers);
    digest.Add(a.Dot(b));
    digest.AddPoint(a.Cross(b));
    digest.Add(a.Magnitude());
    digest.Add(a.Distance(b));
    digest.Add(a < b);
    digest.AddPoint(a.maximum(b));
    digest.AddPoint(a.minimum(b));
    Coord3D unit = a;
    unit.Normalise();
    digest.AddPoint(unit);
    Direction direction(a, b);
    direction.Normalize();
    digest.AddPoint(direction);
    Matrix4 up;
    Matrix4 down;
    direction.GetZUpTransform(up, down);
    digest.AddAll(up, 16);
    digest.AddAll(down, 16);
    digest.Add(a.SquaredDistance(b, Matrix3(up)));
  }
  return digest;
}

Matrix4 RandomMatrix(Numbers& numbers) {
  double values[16];
  for (double& value : values) {
    value = numbers.Real();
  }
  return Matrix4(static_cast<const double*>(values));
}

Digest Matrices() {
  Digest digest;
  Numbers numbers(2);
  for (int i = 0; i < 5000; ++i) {
    Matrix4 m = RandomMatrix(numbers);
    const Matrix4 other = RandomMatrix(numbers);
    m *= other;
    m += other * 0.5;
    m.Scale(1.5, 0.5, 3.0);
    m.Translate(numbers.Far(), 2, 3);
    digest.AddAll(m, 16);
    digest.Add(m.Det());
    digest.AddAll(m.Inverse(), 16);
    digest.AddPoint(m * RealCoord(numbers));
    double coefficients[16];
    m.AsCoefficients(coefficients);
    const Transformation3D transformation(coefficients);
    digest.AddPoint(transformation.transform(RealCoord(numbers)));
    digest.AddPoint(transformation.inverse_transform(RealCoord(numbers)));

    Matrix3 n(m);
    n *= Matrix3(other);
    n.Translate(3, 4);
    n.Scale(0.7);
    digest.AddAll(n, 9);
    digest.Add(n.Det());
    digest.AddAll(n.Inverse(), 9);
    digest.AddPoint(n * RealCoord(numbers));
    const double x = numbers.Real();
    const Coord2D planar = n * Coord2D(x, numbers.Real());
    digest.Add(planar.x);
    digest.Add(planar.y);
  }
  return digest;
}

Digest Primitives() {
  Digest digest;
  Numbers numbers(3);
  for (int i = 0; i < 10000; ++i) {
    const Coord3D a = i % 2 == 0 ? FarCoord(numbers) : WholeCoord(numbers);
    const Coord3D b = i % 2 == 0 ? FarCoord(numbers) : WholeCoord(numbers);
    const Coord3D c = i % 2 == 0 ? FarCoord(numbers) : WholeCoord(numbers);
    const Coord3D d = i % 3 == 0 ? FarCoord(numbers) : WholeCoord(numbers);
    const Plane plane(a, b, c);
    const Plane other(b, c, d);
    digest.AddPoint(plane.Normal());
    digest.Add(plane.Distance(d, false));
    digest.AddPoint(d.Project(plane));
    Direction along;
    Point3D common;
    digest.Add(plane.Intersect(other, along, common));
    digest.AddPoint(along);
    digest.AddPoint(common);

    Segment first(a, b);
    Segment second(c, d);
    double distance = 0;
    digest.AddPoint(first.GetNearestPoint(second, distance));
    digest.Add(distance);
    Intersection hit;
    digest.Add(geom_SegmentHitPlane(first, other, hit));
    digest.AddPoint(hit.point);
    digest.Add(geom_RayHitPlane(Ray(a, d), other, hit));
    digest.Add(hit.parameter);

    Extent box(a, b, c);
    box.Expand(0.1);
    box.ExpandKeepingAspect(0.3);
    digest.Add(box.Distance(d));
    digest.Add(box.Distance(second));
    digest.Add(box.GetVolume());
    for (const Extent& octant : box.GetOctants()) {
      digest.AddPoint(octant.Centroid());
    }

    Triangle triangle;
    triangle.p0 = Point3D(a);
    triangle.p1 = Point3D(b);
    triangle.p2 = Point3D(c);
    Triangle moved = triangle;
    moved.p0 = Point3D(d);
    digest.Add(triangle.Intersect(second));
    digest.Add(triangle.IsTouching(moved));
  }
  return digest;
}

Digest Predicates() {
  Digest digest;
  Numbers numbers(4);
  for (int i = 0; i < 50000; ++i) {
    Coord3D p[5];
    for (Coord3D& point : p) {
      point = i % 3 == 0   ? FarCoord(numbers)
              : i % 3 == 1 ? WholeCoord(numbers)
                           : RealCoord(numbers);
    }
    // Values, not only signs: the stage in which each call ends shows in them.
    using namespace zyl::geometry::internal;
    digest.Add(orient2d(&p[0].x, &p[1].x, &p[2].x));
    digest.Add(orient3d(&p[0].x, &p[1].x, &p[2].x, &p[3].x));
    digest.Add(incircle(&p[0].x, &p[1].x, &p[2].x, &p[3].x));
    digest.Add(insphere(&p[0].x, &p[1].x, &p[2].x, &p[3].x, &p[4].x));
    digest.Add(static_cast<int>(geom_InCircle(p[0], p[1], p[2], p[3])));
    digest.Add(static_cast<int>(geom_InSphere(p[0], p[1], p[2], p[3], p[4], false)));
    Intersection crossing;
    digest.Add(static_cast<int>(geom_EdgeIntersectEdge2D(p[0], p[1], p[2], p[3], crossing, 0.0)));
    digest.AddPoint(crossing.point);
    digest.Add(static_cast<int>(geom_PointInside3Points(p[3], p[0], p[1], p[2])));
  }
  return digest;
}

std::vector<Point3D> Cloud(Numbers& numbers, int count, bool isWhole) {
  std::vector<Point3D> points;
  for (int i = 0; i < count; ++i) {
    points.emplace_back(isWhole ? WholeCoord(numbers) : FarCoord(numbers));
  }
  return points;
}

Digest Circles() {
  Digest digest;
  Numbers numbers(5);
  for (int i = 0; i < 2000; ++i) {
    const EncCircle circle = SmallestEnclosingCircle(Cloud(numbers, numbers.Below(40), i % 2 == 0));
    digest.Add(circle.x);
    digest.Add(circle.y);
    digest.Add(circle.radius);
  }
  return digest;
}

Digest Polylines() {
  Digest digest;
  Numbers numbers(6);
  for (int i = 0; i < 1500; ++i) {
    const std::vector<Point3D> points = Cloud(numbers, 3 + numbers.Below(30), i % 2 == 0);
    Polyline3D ring(points);
    ring.SetClosed(i % 3 != 0);
    digest.AddPoint(ring.GetCenterPoint());
    digest.Add(ring.PrintDebug());
    digest.Add(ring.IsClockwise());
    Direction normal;
    ring.GetPolygonNormal(normal);
    digest.AddPoint(normal);
    for (int query = 0; query < 4; ++query) {
      const Point3D p(i % 2 == 0 ? WholeCoord(numbers) : FarCoord(numbers));
      digest.Add(ring.IsPointInside(p));
      digest.Add(ring.IsPointOnEdge(p, query % 2 == 0, 0.5));
    }
    digest.Add(ring.IsPointInside(points[0]));
  }
  return digest;
}

// Everything that one build hands out; `breaklines` is the share of points joined to the one
// before.
void AddBuild(Digest& digest, Numbers& numbers, int count, bool isWhole, int breaklines) {
  using namespace zyl::geometry::internal;
  std::vector<TPoint> points;
  for (int i = 0; i < count; ++i) {
    const double x = isWhole ? numbers.Below(60) : numbers.Far();
    const double y = isWhole ? numbers.Below(60) : numbers.Far();
    points.push_back({x, y, numbers.Real(), numbers.Below(100) < breaklines ? 0 : 1});
  }
  int triangleCount = 0;
  int vertexCount = 0;
  TPoint* vertices = nullptr;
  int* triangles = nullptr;
  void* edgeInfo = nullptr;
  int* neighbours = nullptr;
  digest.Add(tri_Triangulate(count, points.data(), &triangleCount, &vertexCount, &vertices,
                             &triangles, &edgeInfo, &neighbours, 0.0, 0.0));
  for (int i = 0; i < vertexCount; ++i) {
    digest.AddPoint(vertices[i]);
  }
  const TEdgeInfo* const info = static_cast<const TEdgeInfo*>(edgeInfo);
  for (int i = 0; i < 3 * triangleCount; ++i) {
    digest.Add(triangles[i]);
    digest.Add(neighbours[i]);
    digest.Add(info[i].count);
    for (const TIndex* segment = info[i].list; segment != nullptr; segment = segment->next) {
      digest.Add(segment->from);
      digest.Add(segment->to);
    }
  }
  std::free(vertices);
  std::free(triangles);
  std::free(edgeInfo);
  std::free(neighbours);
}

Digest Engine() {
  Digest digest;
  Numbers numbers(7);
  internal::tri_SetQuiet(1);
  for (int i = 0; i < 400; ++i) {
    AddBuild(digest, numbers, 3 + numbers.Below(60), i % 2 == 0, i % 5 * 25);
  }
  AddBuild(digest, numbers, 30000, false, 0);
  AddBuild(digest, numbers, 3000, true, 0);
  AddBuild(digest, numbers, 2000, false, 10);
  internal::tri_SetQuiet(0);
  return digest;
}

Digest Voxels() {
  Digest digest;
  Numbers numbers(8);
  Voxelation index(Coord3D(449000, 449000, 449000), Coord3D(451000, 451000, 451000), 20, 15, 10);
  for (int i = 0; i < 2000; ++i) {
    const Coord3D a = FarCoord(numbers);
    index.AddPoint(a, i);
    index.AddExtent(Extent(a, a + RealCoord(numbers) * 200.0), i);
    Voxelation::Location at;
    index.Locate(a, at);
    digest.Add(at.i + 100 * at.j + 10000 * at.k);
    Extent voxel;
    index.GetVoxelExtent(at, voxel);
    digest.AddPoint(voxel.min);
    digest.AddPoint(voxel.max);
  }
  for (int i = 0; i < 200; ++i) {
    std::set<zyl::geometry::int64> ids;
    index.CollectIDsNear(ids, FarCoord(numbers), 100, 150, 200);
    for (const zyl::geometry::int64 id : ids) {
      digest.Add(id);
    }
  }
  return digest;
}

void Print(const char* name, const Digest& digest) {
  std::printf("%-12s %016llx\n", name, static_cast<unsigned long long>(digest.Value()));
}

}  // namespace

int main() {
  geom_Init();
  Print("vectors", Vectors());
  Print("matrices", Matrices());
  Print("primitives", Primitives());
  Print("predicates", Predicates());
  Print("circles", Circles());
  Print("polylines", Polylines());
  Print("engine", Engine());
  Print("voxels", Voxels());
}
