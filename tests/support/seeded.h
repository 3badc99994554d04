#pragma once

// A fixture that draws random numbers and names its seed with every failure.

#include <gtest/gtest.h>

#include <random>

#include "zyl/geometry/coord.h"

template <unsigned kSeed>
struct Seeded : testing::Test {
  testing::ScopedTrace trace{__FILE__, __LINE__, kSeed};
  std::mt19937 random{kSeed};

  /// A point, or a vector, of coordinates between -10 and 10.
  zyl::geometry::Coord3D Point() { return Drawn(std::uniform_real_distribution<double>(-10, 10)); }

  /// Of whole numbers between -5 and 5: few enough that many cases are degenerate.
  zyl::geometry::Coord3D WholePoint() { return Drawn(std::uniform_int_distribution<int>(-5, 5)); }

 private:
  template <typename Distribution>
  zyl::geometry::Coord3D Drawn(Distribution coordinate) {
    zyl::geometry::Coord3D p;
    for (int axis = 0; axis < 3; ++axis) {
      p[axis] = coordinate(random);
    }
    return p;
  }
};
