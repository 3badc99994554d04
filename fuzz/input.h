#pragma once
// Reads a fuzzer's bytes as the numbers that geometry is asked about. Past the end everything is 0,
// so that every input, the empty one included, means something.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace fuzz {

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  std::size_t Left() const { return size_; }

  std::uint8_t Byte() {
    std::uint8_t byte = 0;
    Read(&byte, sizeof byte);
    return byte;
  }

  /// An int from low to high, both included.
  int Int(int low, int high) {
    std::uint32_t bits = 0;
    Read(&bits, sizeof bits);
    const auto range = static_cast<std::uint32_t>(high) - static_cast<std::uint32_t>(low) + 1u;
    const std::uint32_t offset = range == 0 ? bits : bits % range;
    return static_cast<int>(static_cast<std::uint32_t>(low) + offset);
  }

  /// Any 64 bits as a double: NaN, infinities and subnormals included.
  double RawDouble() {
    double value = 0;
    Read(&value, sizeof value);
    return value;
  }

  /// Anything made of three coordinates.
  template <class Point>
  Point Next() {
    return Point{Coordinate(), Coordinate(), Coordinate()};
  }

  int SmallInteger() { return Byte() % 17 - 8; }

  /// A coordinate in one of the three kinds that a run of coordinates is drawn in: raw doubles,
  /// small integers (coincidences), and neighbours of one within a few ulps (near coincidences).
  double Coordinate() {
    switch (kind_) {
      case 0:
        return RawDouble();
      case 1:
        return SmallInteger();
      default: {
        const int ulps = Byte() % 9 - 4;
        return 1.0 + ulps * std::ldexp(1.0, -52) + Byte() % 2;
      }
    }
  }

  /// Chooses the kind of the coordinates that follow.
  void DrawKind() { kind_ = Byte() % 3; }

 private:
  void Read(void* target, std::size_t count) {
    const std::size_t taken = count < size_ ? count : size_;
    if (taken > 0) {
      std::memcpy(target, data_, taken);
    }
    data_ += taken;
    size_ -= taken;
  }

  const std::uint8_t* data_;
  std::size_t size_;
  int kind_ = 0;
};

/// Ends the program, which is how a fuzzer and a replay learn of a fault.
[[noreturn]] inline void Fail(const char* what, const char* file, int line) {
  std::fprintf(stderr, "%s:%d: %s does not hold\n", file, line, what);
  std::abort();
}

/// The target: asks about what it reads and checks the answers.
void Run(Input& input);

}  // namespace fuzz

#define FUZZ_CHECK(condition) \
  ((condition) ? static_cast<void>(0) : fuzz::Fail(#condition, __FILE__, __LINE__))
