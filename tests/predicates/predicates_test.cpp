#include "predicates/predicates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <utility>

#include "support/exact.h"
#include "support/generate.h"

namespace {

using namespace zyl::geometry::internal;
using exact::SignOf;

constexpr std::uint64_t kSeed = 20240117;
using Rng = std::mt19937_64;

int Integer(Rng& rng, int low, int high) {
  return low + static_cast<int>(rng() % static_cast<unsigned>(high - low + 1));
}

// To the next double up or down; from 0, whose neighbours' products underflow, by an ulp of 1.
void MoveByAnUlp(Rng& rng, double& x) {
  const double direction = rng() % 2 == 0 ? kInfinity : -kInfinity;
  x = x == 0.0 ? std::copysign(std::ldexp(1, -52), direction) : std::nextafter(x, direction);
}

// A few bits anywhere in a range of 2^80: differences of such numbers do not fit a double.
double Scattered(Rng& rng) { return std::ldexp(Integer(rng, -9, 9), Integer(rng, -40, 40)); }

// Five points in space; the predicates in the plane read their x and y.
struct Points {
  double at[5][3];
  double* operator[](int i) { return at[i]; }
};

template <typename Change>
void ForEachCoordinate(Points& p, Change change) {
  for (auto& point : p.at) {
    for (int i = 0; i < 3; ++i) {
      change(point[i], i);
    }
  }
}

void PerhapsMoveOne(Rng& rng, Points& p) {
  if (rng() % 2 == 0) {
    MoveByAnUlp(rng, p[Integer(rng, 0, 4)][rng() % 3]);
  }
}

// Families of points that are degenerate, or nearly so, again and again.
void OnGrid(Rng& rng, Points& p) {
  ForEachCoordinate(p, [&](double& x, int) { x = Integer(rng, -1, 2); });
}

// As surveys have it: far from the origin in steps of a millimetre, which are no binary fraction.
void OnDecimalGridFarAway(Rng& rng, Points& p) {
  const double origin[3] = {450000, 6500000, 300};
  ForEachCoordinate(p, [&](double& x, int i) { x = origin[i] + 0.001 * Integer(rng, 0, 3); });
}

void OneUlpOffGrid(Rng& rng, Points& p) {
  OnGrid(rng, p);
  for (auto& point : p.at) {
    MoveByAnUlp(rng, point[rng() % 3]);
  }
}

void OfMixedExponents(Rng& rng, Points& p) {
  ForEachCoordinate(p, [&](double& x, int) { x = Scattered(rng); });
}

// All on the plane z = 2x, of which the x-y trace is y = 2x for every other set; or just off it.
void InPlaneOfMixedExponents(Rng& rng, Points& p) {
  const bool onLine = rng() % 2 == 0;
  for (auto& point : p.at) {
    point[0] = Scattered(rng);
    point[1] = onLine ? 2 * point[0] : Scattered(rng);
    point[2] = 2 * point[0];
  }
  PerhapsMoveOne(rng, p);
}

// Images of one point under changes of sign and exchanges of axes lie on one sphere, and, as long
// as z stays in its place, on one circle; or just off it.
void OnSphereOfMixedExponents(Rng& rng, Points& p) {
  const double x[3] = {Scattered(rng), Scattered(rng), Scattered(rng)};
  const bool planar = rng() % 2 == 0;
  for (auto& point : p.at) {
    std::copy(x, x + 3, point);
    std::swap(point[0], point[rng() % 2]);
    std::swap(point[2], point[planar ? 2 : rng() % 3]);
  }
  ForEachCoordinate(p, [&](double& c, int) { c = rng() % 2 == 0 ? c : -c; });
  PerhapsMoveOne(rng, p);
}

// From one end of the range for which the signs are promised to the other.
void AtTheEndsOfTheRange(Rng& rng, Points& p) {
  const bool large = rng() % 2 == 0;
  (rng() % 2 == 0 ? OnGrid : OneUlpOffGrid)(rng, p);
  ForEachCoordinate(p, [large](double& x, int) {
    x = std::ldexp(x, large ? 199 : std::fabs(x) < 0.5 ? -89 : -142);
  });
}

TEST(Predicates, HaveTheSignsOfExactArithmetic) {
  exactinit();
  const struct {
    const char* name;
    void (*make)(Rng&, Points&);
    int degenerate;  // of its sets at least, for each of the predicates
  } families[] = {{"OnGrid", OnGrid, 1000},
                  {"OnDecimalGridFarAway", OnDecimalGridFarAway, 1000},
                  {"OneUlpOffGrid", OneUlpOffGrid, 1000},
                  {"OfMixedExponents", OfMixedExponents, 0},
                  {"InPlaneOfMixedExponents", InPlaneOfMixedExponents, 1000},
                  {"OnSphereOfMixedExponents", OnSphereOfMixedExponents, 1000},
                  {"AtTheEndsOfTheRange", AtTheEndsOfTheRange, 1000}};
  for (const auto& family : families) {
    Rng rng(kSeed);
    int degenerate[4] = {};
    for (int round = 0; round < 36000; ++round) {
      Points p;
      family.make(rng, p);
      const auto& [a, b, c, d, e] = p.at;
      const int expected[4] = {exact::Orient2D(a, b, c), exact::Orient3D(a, b, c, d),
                               exact::InCircle(a, b, c, d), exact::InSphere(a, b, c, d, e)};
      const double found[4] = {orient2d(a, b, c), orient3d(a, b, c, d), incircle(a, b, c, d),
                               insphere(a, b, c, d, e)};
      for (int i = 0; i < 4; ++i) {
        ASSERT_EQ(SignOf(found[i]), expected[i])
            << family.name << ", predicate " << i << ", round " << round << ", seed " << kSeed;
        degenerate[i] += expected[i] == 0;
      }
    }
    EXPECT_GE(*std::min_element(degenerate, degenerate + 4), family.degenerate) << family.name;
  }
}

TEST(Predicates, ReturnTheDeterminant) {
  exactinit();
  const double a[3] = {0, 0, 0}, b[3] = {2, 0, 0}, c[3] = {0, 3, 0}, d[3] = {0, 0, -5};
  EXPECT_EQ(orient2d(a, b, c), 6);
  EXPECT_EQ(orient3d(a, b, c, d), 30);
  // Times the power of e, which is -3 of the circle x^2 - 2x + y^2 - 3y = 0, and with z^2 + 5z
  // -7 of the sphere.
  const double e[3] = {1, 1, -1};
  EXPECT_EQ(incircle(a, b, c, e), 18);
  EXPECT_EQ(insphere(a, b, c, d, e), 210);
}

// The last point is off the line, plane, circle and sphere through the others by t. The other
// coordinates swallow it, and the first three stages see it too near to zero.
TEST(Predicates, ReturnTheDeterminantFromTheExactStageToo) {
  exactinit();
  const double t = std::ldexp(1, -110);
  const double a[3] = {2, 0, 0}, b[3] = {1, 1, 0}, c[3] = {1, 0, 1}, d[3] = {1, -1, 0};
  const double e[3] = {t, 0, 0};
  EXPECT_EQ(insphere(a, b, c, d, e), 4 * t);  // of 2 (2t - t^2)
  EXPECT_EQ(incircle(a, b, d, e), 4 * t);

  const double p[3] = {1, 2, 0}, q[3] = {3, 6, 0}, above[3] = {0, t, 1}, off[3] = {0, t, 0};
  EXPECT_EQ(orient2d(p, q, off), 2 * t);
  EXPECT_EQ(orient3d(p, q, above, off), 2 * t);
}

bool IsRoundedOnce(double found, const mpq_class& expected) {
  const mpq_class error = (mpq_class(found) - expected) * mpq_class(std::ldexp(1, 52));
  return abs(error) <= abs(expected);
}

// Integers of 52 bits on a circle or sphere, one in each quadrant, but for their rounding: the
// differences are exact, and stage A's determinant is noise.
TEST(Predicates, AreRoundedOnceWhereDifferencesAreExact) {
  exactinit();
  Rng rng(kSeed);
  std::uniform_real_distribution<double> uniform(0.5, 1);
  for (int round = 0; round < 10000; ++round) {
    const double height = round % 2;  // 0 for a circle
    Points p;
    for (int k = 0; k < 5; ++k) {
      const double x = k == 4 ? 0 : uniform(rng) * (k % 2 == 0 ? 1 : -1);
      const double y = k == 4 ? 0 : uniform(rng) * (k / 2 == 0 ? 1 : -1);
      const double z = k == 4 ? 1 : uniform(rng) * -height;
      const double scale = std::ldexp(1, 51) / std::sqrt(x * x + y * y + z * z);
      p[k][0] = std::round(x * scale);
      p[k][1] = std::round(y * scale);
      p[k][2] = std::round(z * scale);
    }
    const auto& [a, b, c, d, e] = p.at;
    ASSERT_TRUE(
        height == 0
            ? IsRoundedOnce(incircle(a, b, c, d), exact::Relative<2, 4>({a, b, c, d}))
            : IsRoundedOnce(insphere(a, b, c, d, e), exact::Relative<3, 5>({a, b, c, d, e})))
        << round << ", seed " << kSeed;
  }
}

TEST(PredicateState, HoldsTheBoundsOfDoubleArithmetic) {
  exactinit();
  const PredicateState expected = {1.1102230246251565e-16, 134217729,
                                   3.3306690738754706e-16, 3.3306690738754716e-16,
                                   2.2204460492503146e-16, 1.1093356479670487e-31,
                                   7.771561172376103e-16,  3.330669073875473e-16,
                                   3.2047474274603644e-31, 1.1102230246251577e-15,
                                   4.440892098500632e-16,  5.423418723394464e-31,
                                   1.7763568394002532e-15, 5.551115123125792e-16,
                                   8.751425667295619e-31};
  EXPECT_EQ(std::memcmp(&predicateState(), &expected, sizeof expected), 0);
}

// Overflow, underflow and infinities may end in any value, but end; NaN is passed on.
TEST(Predicates, AnswerWhateverTheCoordinates) {
  exactinit();
  const double kSpecial[] = {0,        1,      -2.5,   0.1,       1e150,      -1e150, 1.5e308,
                             -1.5e308, 5e-324, 1e-160, kInfinity, -kInfinity, kNaN};
  // Whether a coordinate that the predicate reads is NaN.
  const auto hasNaN = [](const Points& p, int count, int dimension) {
    bool found = false;
    for (int i = 0; i < count * dimension; ++i) {
      found |= std::isnan(p.at[i / dimension][i % dimension]);
    }
    return found;
  };
  Rng rng(kSeed);
  for (int round = 0; round < 100000; ++round) {
    Points p;
    ForEachCoordinate(p, [&](double& x, int) { x = kSpecial[rng() % std::size(kSpecial)]; });
    const auto& [a, b, c, d, e] = p.at;
    ASSERT_TRUE(std::isnan(orient2d(a, b, c)) || !hasNaN(p, 3, 2)) << round;
    ASSERT_TRUE(std::isnan(orient3d(a, b, c, d)) || !hasNaN(p, 4, 3)) << round;
    ASSERT_TRUE(std::isnan(incircle(a, b, c, d)) || !hasNaN(p, 4, 2)) << round;
    ASSERT_TRUE(std::isnan(insphere(a, b, c, d, e)) || !hasNaN(p, 5, 3)) << round;
  }
}

}  // namespace
