#pragma once

// Numbers that look random and are the same everywhere: a picture drawn again is the same picture.

#include <random>

namespace gallery {

class Scatter {
 public:
  explicit Scatter(unsigned seed) : engine_(seed) {}

  /// Evenly spread over [low, high). The standard fixes the engine, but not its distributions.
  double Between(double low, double high) {
    return low + (high - low) * (static_cast<double>(engine_()) / 4294967296.0);
  }

  /// Heaped up around `centre` within ±3·spread, with about the standard deviation `spread`.
  double Around(double centre, double spread) {
    double sum = 0;
    for (int i = 0; i < 3; ++i) {
      sum += Between(-1, 1);
    }
    return centre + sum * spread;
  }

 private:
  std::mt19937 engine_;
};

}  // namespace gallery
