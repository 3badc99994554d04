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
  zyl::geometry::Coord3D Point() {
    std::uniform_real_distribution<double> uniform(-10, 10);
    return {uniform(random), uniform(random), uniform(random)};
  }
};
