#include "zyl/geometry/transformation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <type_traits>

#include "zyl/geometry/matrix4.h"

namespace {

using zyl::geometry::Coord3D;
using zyl::geometry::Matrix4;
using zyl::geometry::Transformation;
using zyl::geometry::Transformation3D;

static_assert(std::is_abstract_v<Transformation> && std::has_virtual_destructor_v<Transformation>);

// Columns (2, 0, 1), (0, 4, 0), (1, 0, 1), translation (1, 2, 3), and a last row that must not
// count.
struct Coefficients {
  double k[16] = {2, 0, 1, 9, 0, 4, 0, 8, 1, 0, 1, 7, 1, 2, 3, 0};
};

TEST(Transformation3D, HoldsItsCoefficientsColumnByColumn) {
  Coefficients given;
  const Transformation3D t(given.k);
  double out[16] = {};
  t.AsCoefficients(out);
  EXPECT_TRUE(std::equal(out, out + 16, given.k));
  EXPECT_EQ(t.transform(Coord3D(1, 10, 100)), Coord3D(103, 42, 104));
  EXPECT_EQ(t.transform(Coord3D()), Coord3D(1, 2, 3));
  Transformation3D other;
  other = t;
  EXPECT_EQ(other.transform(Coord3D()), Coord3D(1, 2, 3));
}

TEST(Transformation3D, TranslatesByItsFourthColumn) {
  double k[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1};
  EXPECT_EQ(Transformation3D(k).transform(Coord3D(1, 1, 1)), Coord3D(6, 7, 8));
  EXPECT_EQ(Transformation3D(k).inverse_transform(Coord3D(6, 7, 8)), Coord3D(1, 1, 1));
}

TEST(Transformation3D, BecomesAMatrixThatMapsPointsAlike) {
  Coefficients given;
  const Matrix4 m{Transformation3D(given.k)};
  EXPECT_EQ(m * Coord3D(1, 10, 100), Coord3D(103, 42, 104));
  EXPECT_EQ(m[0][3], 1);
  EXPECT_EQ(m[3][0], 9);

  struct Doubling : Transformation3D {
    void AsCoefficients(double* out) const override {
      std::fill_n(out, 16, 0.0);
      out[0] = out[5] = out[10] = 2;
    }
  };
  EXPECT_EQ(Matrix4(Doubling()) * Coord3D(1, 2, 3), Coord3D(2, 4, 6));
}

// The determinant is 4, and the map's last row is not the zero one given.
TEST(Transformation3D, InverseLeadsBack) {
  Coefficients given;
  const std::unique_ptr<const Transformation> t = std::make_unique<Transformation3D>(given.k);
  EXPECT_EQ(t->inverse_transform(Coord3D(103, 42, 104)), Coord3D(1, 10, 100));
}

TEST(Transformation3D, AMapWithoutInverseThrows) {
  Coefficients given;
  given.k[5] = 0;
  EXPECT_THROW(Transformation3D(given.k).inverse_transform(Coord3D()),
               Matrix4::NonInvertableException);
}

}  // namespace
