#pragma once

// Rings of many shapes and sizes, and planes in space to put them on.

#include <algorithm>
#include <cmath>
#include <numeric>

#include "support/even_odd.h"
#include "support/generate.h"

namespace rings {

using exact::Point2;
using exact::Ring2;

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

// On one circle, as nearly as doubles allow.
inline Ring2 Convex(int n, std::mt19937_64& random) {
  std::vector<double> angles = Generate(n, [&](int) { return Uniform(random, 0, kTurn); });
  std::sort(angles.begin(), angles.end());
  Ring2 ring;
  for (const double angle : angles) {
    ring.push_back(Polar(1, angle));
  }
  return ring;
}

inline Ring2 Concave(int n, std::mt19937_64& random) {
  return Generate(n, [&](int i) { return Polar(Uniform(random, 0.3, 1), kTurn * i / n); });
}

// Out along a spiral of nearly three turns, and back between them.
inline Ring2 Spiral(int n, std::mt19937_64&) {
  const int out = n / 2;
  return Generate(n, [&](int i) {
    const double along = i < out ? 1.0 * i / out : 1.0 * (n - 1 - i) / (n - out);
    return Polar((i < out ? 0.3 : 0.15) + 0.7 * along, kTurn * 2.9 * along);
  });
}

// A back at y = 0 and teeth up to y = 1.
inline Ring2 Comb(int n, std::mt19937_64&) {
  return Generate(n, [&](int i) {
    return i < 2 ? Point2{1.0 - i, 0} : Point2{(i - 2.0) / (n - 2), i % 2 == 0 ? 0.1 : 1};
  });
}

// A thousand times as long as wide, with uneven sides.
inline Ring2 Sliver(int n, std::mt19937_64& random) {
  const int lower = n / 2;
  return Generate(n, [&](int i) {
    const double along = i < lower ? 1.0 * i / lower : 1.0 * (n - i) / (n - lower);
    return Point2{along, (i < lower ? 0 : 1e-3) + Uniform(random, 0, 4e-4)};
  });
}

// A star that steps over nearly a third of its corners at a time and comes to each once.
inline Ring2 Star(int n, std::mt19937_64&) {
  int step = n / 3;
  while (std::gcd(step, n) != 1) {
    --step;
  }
  return Generate(n, [&](int i) { return Polar(1, kTurn * i * step / n); });
}

// Swirling arms around a core: constraints that leave walks little choice but to go round.
inline Ring2 Pinwheel(int arms, double twist) {
  return Generate(2 * arms, [&](int i) {
    const double angle = kTurn * (i / 2) / arms;
    return i % 2 == 0 ? Polar(0.2, angle) : Polar(1, angle + twist);
  });
}

// Anywhere in a square, and then back over most of the way: pieces run along each other that others
// cross in between, at points that are rounded.
inline Ring2 Retraced(int n, std::mt19937_64& random) {
  Ring2 ring = Generate((n + 2) / 2, [&](int) {
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
inline Ring2 GridWalk(int n, int side, std::mt19937_64& random) {
  const auto next = [&] { return std::floor(Uniform(random, 0, side + 1)); };
  return Generate(n, [&](int) { return Point2{next(), next()}; });
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
