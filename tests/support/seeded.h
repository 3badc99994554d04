#pragma once

// A fixture that draws random numbers and names its seed with every failure.

#include <gtest/gtest.h>

#include <cmath>

#include "support/generate.h"
#include "zyl/geometry/coord.h"

template <unsigned kSeed>
struct Seeded : testing::Test {
  testing::ScopedTrace trace{__FILE__, __LINE__, kSeed};
  std::mt19937 random{kSeed};

  /// A point, or a vector, of coordinates between -10 and 10.
  zyl::geometry::Coord3D Point() { return {Between(-10, 10), Between(-10, 10), Between(-10, 10)}; }

  /// Of whole numbers between -5 and 5: few enough that many cases are degenerate.
  zyl::geometry::Coord3D WholePoint() { return {Whole(-5, 5), Whole(-5, 5), Whole(-5, 5)}; }

  double Whole(int least, int greatest) { return std::floor(Between(least, greatest + 1)); }

  double Between(double from, double to) { return Uniform(random, from, to); }
};
