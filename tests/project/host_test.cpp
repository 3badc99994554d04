// What crosses the border between the library and its host: exceptions, containers that one side
// fills and the other frees, and virtual functions that the host overrides. On Windows each side
// may have a run-time library of its own, and none of this would work.

#include <cstdio>
#include <new>
#include <set>
#include <string>
#include <vector>

#include "zyl/geometry/geometry.h"

namespace {

using namespace zyl::geometry;

int failures = 0;

void Expect(bool holds, const char* what) {
  if (!holds) {
    std::printf("not so: %s\n", what);
    ++failures;
  }
}

template <typename Exception, typename Call>
bool Throws(Call call) {
  try {
    call();
  } catch (const Exception&) {
    return true;
  } catch (...) {
  }
  return false;
}

template <typename Matrix>
bool RefusesToInvertASingularOne() {
  Matrix singular;
  singular[1][1] = 0;
  return Throws<typename Matrix::NonInvertableException>([&] { singular.Invert(); });
}

struct Shift : Transformation3D {
  void AsCoefficients(double* out) const override {
    Transformation3D::AsCoefficients(out);
    out[12] = 7;
  }
};

bool ContainersChangeHands() {
  std::vector<Point3D> corners = {{0, 0, 5}, {4, 0, 5}, {4, 4, 5}, {0, 4, 5}};
  Polyline3D ring(corners);
  ring.SetName("a name too long to be kept within the string itself");
  ring.SetClosed(true);
  ring.GetPointVector().resize(1000);
  ring = Polyline3D(corners);
  std::string text = ring.PrintDebug();
  text += text;

  Voxelation grid(Coord3D(0, 0, 0), Coord3D(4, 4, 4), 4, 4, 4);
  grid.AddPoint(Coord3D(1, 1, 1), 17);
  std::set<int64> ids = {3};
  return grid.CollectIDsIn(ids, Extent(Coord3D(0, 0, 0), Coord3D(4, 4, 4))) &&
         ids == std::set<int64>{3, 17} && ring.GetPointVector() == corners;
}

}  // namespace

int main() {
  Expect(RefusesToInvertASingularOne<Matrix3>(), "a Matrix3 that is singular is caught");
  Expect(RefusesToInvertASingularOne<Matrix4>(), "a Matrix4 that is singular is caught");
  Expect(Throws<std::bad_alloc>(
             [] { Voxelation(Coord3D(0, 0, 0), Coord3D(1, 1, 1), 1 << 30, 1 << 30, 1 << 30); }),
         "a grid that memory cannot hold is caught");
  Expect(Matrix4(Shift()).GetColumn(3).x == 7, "an overridden function is called");
  Expect(ContainersChangeHands(), "containers change hands");
  return failures;
}
