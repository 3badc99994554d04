#pragma once
// Sums the bits of results, so that two builds can be compared by a line of text.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

namespace determinism {

/// Running FNV-1a hash (G. Fowler, L. C. Noll, P. Vo) over the bytes of everything added.
class Digest {
 public:
  void Add(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    // The sign and payload of a NaN are the processor's choice.
    AddBits(value == value ? bits : 0x7ff8000000000000u);
  }
  void Add(int value) { AddBits(static_cast<std::uint64_t>(static_cast<std::int64_t>(value))); }
  void Add(bool value) { AddBits(value ? 1u : 0u); }
  void Add(std::int64_t value) { AddBits(static_cast<std::uint64_t>(value)); }
  void Add(const std::string& text) {
    for (const char c : text) {
      AddBits(static_cast<unsigned char>(c));
    }
  }
  /// Anything with fields x, y and z.
  template <class Point>
  void AddPoint(const Point& p) {
    Add(p.x);
    Add(p.y);
    Add(p.z);
  }
  void AddAll(const double* values, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      Add(values[i]);
    }
  }

  std::uint64_t Value() const { return hash_; }

 private:
  void AddBits(std::uint64_t bits) {
    for (int i = 0; i < 8; ++i) {
      hash_ = (hash_ ^ (bits & 0xff)) * 0x100000001b3u;
      bits >>= 8;
    }
  }

  std::uint64_t hash_ = 0xcbf29ce484222325u;
};

/// Numbers that are the same everywhere: the standard's own distributions are not.
class Numbers {
 public:
  explicit Numbers(std::uint64_t seed) : state_(seed) {}

  /// Xorshift generator (G. Marsaglia, Xorshift RNGs, 2003).
  std::uint64_t Next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    state_ ^= state_ << 17;
    return state_;
  }
  /// From 0 to below `count`.
  int Below(int count) { return static_cast<int>(Next() % static_cast<std::uint64_t>(count)); }
  /// A multiple of 2^-32 in [-1, 1).
  double Real() {
    return static_cast<double>(static_cast<std::int32_t>(Next() >> 32)) / 2147483648.0;
  }
  /// A survey coordinate.
  double Far() { return 450000.0 + 1000.0 * Real(); }
  /// A small integer: coincidences are frequent.
  double Whole() { return Below(9) - 4; }

 private:
  std::uint64_t state_;
};

}  // namespace determinism
