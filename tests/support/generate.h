#pragma once

// What tests make their points of.

#include <cstddef>
#include <limits>
#include <random>
#include <vector>

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kPi = 3.141592653589793;
constexpr double kTurn = 2 * kPi;

/// place(0) to place(n - 1).
template <class Place>
auto Generate(int n, Place place) {
  std::vector<decltype(place(n))> all;
  for (int i = 0; i < n; ++i) {
    all.push_back(place(i));
  }
  return all;
}

/// One of 0 to count - 1.
template <class Random>
std::size_t Below(Random& random, std::size_t count) {
  return static_cast<std::size_t>(random() % count);
}

template <class Random>
double Uniform(Random& random, double from = 0, double to = 1) {
  return std::uniform_real_distribution<double>(from, to)(random);
}
