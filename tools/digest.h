#pragma once

// Sums the bits of results, so that two builds can be compared by a line of text.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace determinism {

/// Running FNV-1a hash (G. Fowler, L. C. Noll, P. Vo) over the bytes of everything added.
class Digest {
 public:
  /// Numbers, texts, and anything with fields x, y and z.
  template <class... Values>
  void Add(const Values&... values) {
    (AddOne(values), ...);
  }
  void AddAll(const double* values, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      AddOne(values[i]);
    }
  }

  std::uint64_t Value() const { return hash_; }

 private:
  void AddOne(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    // The sign and payload of a NaN are the processor's choice.
    AddBits(value == value ? bits : 0x7ff8000000000000u);
  }
  void AddOne(int value) { AddOne(std::int64_t{value}); }
  void AddOne(bool value) { AddOne(std::int64_t{value}); }
  void AddOne(std::int64_t value) { AddBits(static_cast<std::uint64_t>(value)); }
  void AddOne(const std::string& text) {
    for (const char c : text) {
      AddBits(static_cast<unsigned char>(c));
    }
  }
  template <class Point>
  void AddOne(const Point& p) {
    Add(p.x, p.y, p.z);
  }

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
