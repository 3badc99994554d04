// Prints one line per subsystem: the digest of a large fixed workload over every exported operation
// and the engine behind them. The lines have to be the same from every compiler, optimisation level
// and word size, with and without oneTBB; scripts/determinism.sh compares them.
//
// Left out is what rests on the platform's sin, cos and acos, whose last bit is its own choice:
// Coord3D::Angle, Parallel and Rotate, bearings, dipping planes, ellipsoids, the rotations of the
// matrices, Segment::AngleBetween, DistanceAlong and what is built on it (ProjectPoint, nearest
// points of a segment or triangle to a point).

#include "digest.h"

#include <cstdio>
#include <set>
#include <vector>

#include "predicates/predicates.h"
#include "support/generate.h"
#include "support/triangulation.h"
#include "zyl/geometry/geometry.h"

namespace {

using namespace zyl::geometry;
using determinism::Digest;
using determinism::Numbers;

Coord3D Far(Numbers& n) { return {n.Far(), n.Far(), n.Far()}; }
Coord3D Whole(Numbers& n) { return {n.Whole(), n.Whole(), n.Whole()}; }
Coord3D Real(Numbers& n) { return {n.Real(), n.Real(), n.Real()}; }

void Vectors(Digest& digest, Numbers& numbers, int i) {
  Coord3D a = i % 2 == 0 ? Far(numbers) : Whole(numbers);
  const Coord3D b = Real(numbers);
  Coord3D unit = a;
  unit.Normalise();
  Direction direction(a, b);
  direction.Normalize();
  Matrix4 up, down;
  direction.GetZUpTransform(up, down);
  digest.Add(a.Dot(b), a.Cross(b), a.Magnitude(), a.Distance(b), a < b, a.maximum(b), a.minimum(b),
             unit, direction);
  digest.AddAll(up, 16);
  digest.AddAll(down, 16);
  digest.Add(a.SquaredDistance(b, Matrix3(up)));
}

Matrix4 RandomMatrix(Numbers& numbers) {
  double values[16];
  for (double& value : values) {
    value = numbers.Real();
  }
  return Matrix4(static_cast<const double*>(values));
}

void Matrices(Digest& digest, Numbers& numbers, int) {
  Matrix4 m = RandomMatrix(numbers);
  const Matrix4 other = RandomMatrix(numbers);
  m *= other;
  m += other * 0.5;
  m.Scale(1.5, 0.5, 3.0);
  m.Translate(numbers.Far(), 2, 3);
  digest.AddAll(m, 16);
  digest.Add(m.Det());
  digest.AddAll(m.Inverse(), 16);
  digest.Add(m * Real(numbers));
  double coefficients[16];
  m.AsCoefficients(coefficients);
  const Transformation3D transformation(coefficients);
  digest.Add(transformation.transform(Real(numbers)));
  digest.Add(transformation.inverse_transform(Real(numbers)));

  Matrix3 n(m);
  n *= Matrix3(other);
  n.Translate(3, 4);
  n.Scale(0.7);
  digest.AddAll(n, 9);
  digest.Add(n.Det());
  digest.AddAll(n.Inverse(), 9);
  digest.Add(n * Real(numbers));
  const Coord2D planar = n * Coord2D{numbers.Real(), numbers.Real()};
  digest.Add(planar.x, planar.y);
}

void Primitives(Digest& digest, Numbers& numbers, int i) {
  Coord3D c[4];
  for (Coord3D& corner : c) {
    corner = i % (&corner == c + 3 ? 3 : 2) == 0 ? Far(numbers) : Whole(numbers);
  }
  const Plane plane(c[0], c[1], c[2]), other(c[1], c[2], c[3]);
  Direction along;
  Point3D common;
  const bool areCrossing = plane.Intersect(other, along, common);
  digest.Add(plane.Normal(), plane.Distance(c[3], false), c[3].Project(plane), areCrossing, along,
             common);

  Segment first(c[0], c[1]), second(c[2], c[3]);
  double distance = 0;
  const Coord3D nearest = first.GetNearestPoint(second, distance);
  Intersection hit;
  const auto segmentHit = geom_SegmentHitPlane(first, other, hit);
  const auto at = hit.point;
  const auto rayHit = geom_RayHitPlane(Ray(c[0], c[3]), other, hit);
  digest.Add(nearest, distance, segmentHit, at, rayHit, hit.parameter);

  Extent box(c[0], c[1], c[2]);
  box.Expand(0.1);
  box.ExpandKeepingAspect(0.3);
  digest.Add(box.Distance(c[3]), box.Distance(second), box.GetVolume());
  for (const Extent& octant : box.GetOctants()) {
    digest.Add(octant.Centroid());
  }

  Triangle triangle;
  triangle.p0 = Point3D(c[0]);
  triangle.p1 = Point3D(c[1]);
  triangle.p2 = Point3D(c[2]);
  Triangle moved = triangle;
  moved.p0 = Point3D(c[3]);
  digest.Add(triangle.Intersect(second), triangle.IsTouching(moved));
}

// Values, not only signs: the stage in which each call ends shows in them.
void Predicates(Digest& digest, Numbers& numbers, int i) {
  using namespace zyl::geometry::internal;
  Coord3D p[5];
  for (Coord3D& point : p) {
    point = i % 3 == 0 ? Far(numbers) : i % 3 == 1 ? Whole(numbers) : Real(numbers);
  }
  const double *a = &p[0].x, *b = &p[1].x, *c = &p[2].x, *d = &p[3].x, *e = &p[4].x;
  Intersection crossing;
  const int meeting = geom_EdgeIntersectEdge2D(p[0], p[1], p[2], p[3], crossing, 0.0);
  digest.Add(orient2d(a, b, c), orient3d(a, b, c, d), incircle(a, b, c, d), insphere(a, b, c, d, e),
             int{geom_InCircle(p[0], p[1], p[2], p[3])},
             int{geom_InSphere(p[0], p[1], p[2], p[3], p[4], false)}, meeting, crossing.point,
             int{geom_PointInside3Points(p[3], p[0], p[1], p[2])});
}

std::vector<Point3D> Cloud(Numbers& numbers, int count, bool isWhole) {
  std::vector<Point3D> points;
  for (int i = 0; i < count; ++i) {
    points.emplace_back(isWhole ? Whole(numbers) : Far(numbers));
  }
  return points;
}

void Circles(Digest& digest, Numbers& numbers, int i) {
  const EncCircle circle = SmallestEnclosingCircle(Cloud(numbers, numbers.Below(40), i % 2 == 0));
  digest.Add(circle.x, circle.y, circle.radius);
}

void Polylines(Digest& digest, Numbers& numbers, int i) {
  const std::vector<Point3D> points = Cloud(numbers, 3 + numbers.Below(30), i % 2 == 0);
  Polyline3D ring(points);
  ring.SetClosed(i % 3 != 0);
  Direction normal;
  ring.GetPolygonNormal(normal);
  digest.Add(ring.GetCenterPoint(), ring.PrintDebug(), ring.IsClockwise(), normal);
  for (int query = 0; query < 4; ++query) {
    const Point3D p(i % 2 == 0 ? Whole(numbers) : Far(numbers));
    digest.Add(ring.IsPointInside(p), ring.IsPointOnEdge(p, query % 2 == 0, 0.5));
  }
  digest.Add(ring.IsPointInside(points[0]));
}

// Everything that one build hands out; `breaklines` is the share of points joined to the one
// before.
void AddBuild(Digest& digest, Numbers& numbers, int count, bool isWhole, int breaklines) {
  const auto next = [&] { return isWhole ? numbers.Below(60) : numbers.Far(); };
  const mesh::Triangulation mesh = mesh::Triangulate(Generate(count, [&](int) {
    return mesh::TPoint{next(), next(), numbers.Real(), numbers.Below(100) >= breaklines};
  }));
  digest.Add(mesh.result);
  for (const mesh::TPoint& v : mesh.vertices) {
    digest.Add(v);
  }
  for (std::size_t i = 0; i < 3 * mesh.triangles.size(); ++i) {
    const mesh::Segments& segments = mesh.segments[i / 3][i % 3];
    digest.Add(mesh.triangles[i / 3][i % 3], mesh.neighbours[i / 3][i % 3],
               static_cast<int>(segments.size()));
    for (const auto& [from, to] : segments) {
      digest.Add(from, to);
    }
  }
}

void Engine(Digest& digest, Numbers& numbers, int) {
  internal::tri_SetQuiet(1);
  for (int i = 0; i < 400; ++i) {
    AddBuild(digest, numbers, 3 + numbers.Below(60), i % 2 == 0, i % 5 * 25);
  }
  AddBuild(digest, numbers, 30000, false, 0);
  AddBuild(digest, numbers, 3000, true, 0);
  AddBuild(digest, numbers, 2000, false, 10);
  internal::tri_SetQuiet(0);
}

void Voxels(Digest& digest, Numbers& numbers, int) {
  Voxelation index(Coord3D(449000, 449000, 449000), Coord3D(451000, 451000, 451000), 20, 15, 10);
  for (int i = 0; i < 2000; ++i) {
    const Coord3D a = Far(numbers);
    index.AddPoint(a, i);
    index.AddExtent(Extent(a, a + Real(numbers) * 200.0), i);
    Voxelation::Location at;
    index.Locate(a, at);
    Extent voxel;
    index.GetVoxelExtent(at, voxel);
    digest.Add(at.i + 100 * at.j + 10000 * at.k, voxel.min, voxel.max);
  }
  for (int i = 0; i < 200; ++i) {
    std::set<zyl::geometry::int64> ids;
    index.CollectIDsNear(ids, Far(numbers), 100, 150, 200);
    for (const zyl::geometry::int64 id : ids) {
      digest.Add(id);
    }
  }
}

}  // namespace

int main() {
  geom_Init();
  const struct {
    const char* name;
    void (*addRound)(Digest&, Numbers&, int);
    int rounds;
  } subsystems[] = {{"vectors", Vectors, 20000},
                    {"matrices", Matrices, 5000},
                    {"primitives", Primitives, 10000},
                    {"predicates", Predicates, 50000},
                    {"circles", Circles, 2000},
                    {"polylines", Polylines, 1500},
                    {"engine", Engine, 1},
                    {"voxels", Voxels, 1}};
  std::uint64_t seed = 0;
  for (const auto& [name, addRound, rounds] : subsystems) {
    Digest digest;
    Numbers numbers(++seed);
    for (int i = 0; i < rounds; ++i) {
      addRound(digest, numbers, i);
    }
    std::printf("%-12s %016llx\n", name, static_cast<unsigned long long>(digest.Value()));
  }
}
