#include "zyl/geometry/transformation.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "zyl/geometry/matrix4.h"

namespace {

using namespace zyl::geometry;

// Columns (2, 0, 1), (0, 4, 0), (1, 0, 1), translation (1, 2, 3), determinant 4, and a last row
// that must not count.
struct Transformations : testing::Test {
  double k[16] = {2, 0, 1, 9, 0, 4, 0, 8, 1, 0, 1, 7, 1, 2, 3, 0};
};

TEST_F(Transformations, MapPointsThereAndBack) {
  Transformation3D copy;
  copy = Transformation3D(k);
  const Transformation& t = copy;
  EXPECT_EQ(t.transform(Coord3D(1, 10, 100)), Coord3D(103, 42, 104));
  EXPECT_EQ(t.inverse_transform(Coord3D(103, 42, 104)), Coord3D(1, 10, 100));
  double out[16] = {};
  copy.AsCoefficients(out);
  EXPECT_TRUE(std::equal(out, out + 16, k));
  k[5] = 0;
  EXPECT_THROW(Transformation3D(k).inverse_transform(Coord3D()), Matrix4::NonInvertableException);
}

TEST_F(Transformations, BecomeMatricesByWhatAsCoefficientsSays) {
  const Matrix4 m{Transformation3D(k)};
  EXPECT_EQ(m * Coord3D(1, 10, 100), Coord3D(103, 42, 104));
  EXPECT_EQ(m[3][0], 9);
  struct Doubling : Transformation3D {
    void AsCoefficients(double* out) const override {
      std::fill_n(out, 16, 0.0);
      out[0] = out[5] = out[10] = 2;
    }
  };
  EXPECT_EQ(Matrix4(Doubling()) * Coord3D(1, 2, 3), Coord3D(2, 4, 6));
}

}  // namespace
