#pragma once

// Rings of many shapes and sizes, and planes in space to put them on.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <random>
#include <vector>

#include "support/even_odd.h"

namespace rings {

using exact::Point2;
using exact::Ring2;

constexpr double kTurn = 6.283185307179586;

inline double Uniform(std::mt19937_64& random, double from, double to) {
  return std::uniform_real_distribution<double>(from, to)(random);
}

// The points x, y, x, y, ...
inline Ring2 Of(const std::vector<double>& coordinates) {
  Ring2 ring;
  for (std::size_t i = 0; i < coordinates.size(); i += 2) {
    ring.push_back({coordinates[i], coordinates[i + 1]});
  }
  return ring;
}

inline Point2 Polar(double radius, double angle) {
  return {radius * std::cos(angle), radius * std::sin(angle)};
}

/// place(0) to place(n - 1).
template <class Place>
Ring2 Generate(std::size_t n, Place place) {
  Ring2 ring;
  for (std::size_t i = 0; i < n; ++i) {
    ring.push_back(place(i));
  }
  return ring;
}

inline double Ratio(std::size_t i, std::size_t n) {
  return static_cast<double>(i) / static_cast<double>(n);
}

// On one circle, as nearly as doubles allow.
inline Ring2 Convex(std::size_t n, std::mt19937_64& random) {
  std::vector<double> angles(n);
  std::generate(angles.begin(), angles.end(), [&] { return Uniform(random, 0, kTurn); });
  std::sort(angles.begin(), angles.end());
  return Generate(n, [&](std::size_t i) { return Polar(1, angles[i]); });
}

inline Ring2 Concave(std::size_t n, std::mt19937_64& random) {
  return Generate(
      n, [&](std::size_t i) { return Polar(Uniform(random, 0.3, 1), kTurn * Ratio(i, n)); });
}

// Out along a spiral of nearly three turns, and back between them.
inline Ring2 Spiral(std::size_t n, std::mt19937_64&) {
  const std::size_t out = n / 2;
  return Generate(n, [&](std::size_t i) {
    const double along = i < out ? Ratio(i, out) : Ratio(n - 1 - i, n - out);
    return Polar((i < out ? 0.3 : 0.15) + 0.7 * along, kTurn * 2.9 * along);
  });
}

// A back at y = 0 and teeth up to y = 1.
inline Ring2 Comb(std::size_t n, std::mt19937_64&) {
  return Generate(n, [&](std::size_t i) -> Point2 {
    return i < 2 ? Point2{1.0 - static_cast<double>(i), 0}
                 : Point2{Ratio(i - 2, n - 2), i % 2 == 0 ? 0.1 : 1};
  });
}

// A thousand times as long as wide, with uneven sides.
inline Ring2 Sliver(std::size_t n, std::mt19937_64& random) {
  const std::size_t lower = n / 2;
  return Generate(n, [&](std::size_t i) -> Point2 {
    const double along = i < lower ? Ratio(i, lower) : Ratio(n - i, n - lower);
    return {along, (i < lower ? 0 : 1e-3) + Uniform(random, 0, 4e-4)};
  });
}

// A star that steps over nearly a third of its corners at a time and comes to each once.
inline Ring2 Star(std::size_t n, std::mt19937_64&) {
  std::size_t step = n / 3;
  while (std::gcd(step, n) != 1) {
    --step;
  }
  return Generate(n, [&](std::size_t i) { return Polar(1, kTurn * Ratio(i * step, n)); });
}

// Swirling arms around a core: constraints that leave walks little choice but to go round.
inline Ring2 Pinwheel(std::size_t arms, double twist) {
  return Generate(2 * arms, [&](std::size_t i) {
    const double angle = kTurn * Ratio(i / 2, arms);
    return i % 2 == 0 ? Polar(0.2, angle) : Polar(1, angle + twist);
  });
}

// Anywhere in a square, and then back over most of the way: pieces run along each other that others
// cross in between, at points that are rounded.
inline Ring2 Retraced(std::size_t n, std::mt19937_64& random) {
  Ring2 ring = Generate((n + 2) / 2, [&](std::size_t) {
    return Point2{Uniform(random, -1, 1), Uniform(random, -1, 1)};
  });
  for (std::size_t i = ring.size() - 1; i-- > 1;) {
    if (random() % 3 != 0) {
      ring.push_back(ring[i]);
    }
  }
  return ring;
}

// Closed walk between the points of a small grid: crosses, touches and repeats itself at will.
inline Ring2 GridWalk(std::size_t n, int side, std::mt19937_64& random) {
  const auto next = [&] { return static_cast<double>(random() % static_cast<unsigned>(side + 1)); };
  return Generate(n, [&](std::size_t) { return Point2{next(), next()}; });
}

// A plane in space: its points are origin + s·u + t·v.
struct Plane {
  const char* name;
  std::array<double, 3> origin, u, v;

  std::array<double, 3> At(const Point2& p) const {
    std::array<double, 3> point;
    for (std::size_t i = 0; i < 3; ++i) {
      point[i] = origin[i] + p[0] * u[i] + p[1] * v[i];
    }
    return point;
  }
};

inline const Plane kPlanes[] = {
    {"horizontal", {0, 0, 5}, {10, 0, 0}, {0, 10, 0}},
    {"horizontal, in project coordinates", {450000, 6500000, 300}, {80, 60, 0}, {-60, 80, 0}},
    {"vertical, x = 3", {3, 0, 0}, {0, 10, 0}, {0, 0, 10}},
    {"vertical, y = 3", {0, 3, 0}, {10, 0, 0}, {0, 0, 10}},
    {"vertical, askew", {450000, 6500000, 300}, {30, 40, 0}, {0, 0, 50}},
    {"tilted", {1, 2, 3}, {8, 1, 4}, {-4, 4, 7}}};

}  // namespace rings
