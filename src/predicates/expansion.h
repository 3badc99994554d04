#pragma once

// Exact arithmetic on expansions: sums of doubles that do not overlap in their bits.
//
// From J. R. Shewchuk, "Adaptive Precision Floating-Point Arithmetic and Fast Robust Geometric
// Predicates", Discrete & Computational Geometry 18 (1997), section 2. Components stand in order of
// growing magnitude, and no zero is stored except the lone one of a sum that is zero. The capacity
// belongs to the type, so that an operation cannot outgrow its result. Exact if each operation
// rounds to nearest and nothing overflows or underflows; otherwise a value comes out all the same.

#include <cassert>

namespace zyl::geometry::internal {

/// high + low exactly, high being the rounded result of an operation and low its rounding error.
struct Two {
  double high;
  double low;
};

/// a + b, given that |a| >= |b| or a is 0.
inline Two fast_two_sum(double a, double b) {
  const double x = a + b;
  const double bvirt = x - a;
  return {x, b - bvirt};
}

inline Two two_sum(double a, double b) {
  const double x = a + b;
  const double bvirt = x - a;
  const double avirt = x - bvirt;
  const double bround = b - bvirt;
  const double around = a - avirt;
  return {x, around + bround};
}

/// The rounding error of x = a - b.
inline double two_diff_tail(double a, double b, double x) {
  const double bvirt = a - x;
  const double avirt = x + bvirt;
  const double bround = bvirt - b;
  const double around = a - avirt;
  return around + bround;
}

inline Two two_diff(double a, double b) {
  const double x = a - b;
  return {x, two_diff_tail(a, b, x)};
}

/// Halves of a of at most 26 bits each, so that products of halves are exact.
inline Two split(double a, double splitter) {
  const double c = splitter * a;
  const double abig = c - a;
  const double high = c - abig;
  return {high, a - high};
}

/// A number to multiply by, split once for all its products.
struct Factor {
  double value = 0;
  double splitter = 0;
  Two half{};

  Factor() = default;
  Factor(double number, double by) : value(number), splitter(by), half(split(number, by)) {}
};

inline Factor operator-(Factor f) {
  f.value = -f.value;
  f.half = {-f.half.high, -f.half.low};
  return f;
}

inline Two two_product(double a, Two halfA, const Factor& b) {
  const double x = a * b.value;
  const double err1 = x - halfA.high * b.half.high;
  const double err2 = err1 - halfA.low * b.half.high;
  const double err3 = err2 - halfA.high * b.half.low;
  return {x, halfA.low * b.half.low - err3};
}

inline Two two_product(double a, const Factor& b) {
  return two_product(a, split(a, b.splitter), b);
}

inline Two two_product(const Factor& a, const Factor& b) { return two_product(a.value, a.half, b); }

/// Sum of two expansions of any length into h, which has room for elen + flen components.
/// Returns its length.
int fast_expansion_sum_zeroelim(int elen, const double* e, int flen, const double* f, double* h);

/// Product of an expansion and b into h, which has room for 2 * elen components. Returns its
/// length.
int scale_expansion_zeroelim(int elen, const double* e, const Factor& b, double* h);

/// Exact number of at most `Capacity` components. Left unset on construction: it is large, and
/// whoever makes one fills it.
template <int Capacity>
struct Expansion {
  int length;
  double component[Capacity];

  /// Leaves out a component that is 0.
  void Append(double next) {
    if (next != 0.0) {
      assert(length < Capacity);
      component[length++] = next;
    }
  }
  double MostSignificant() const { return component[length - 1]; }
};

/// The plain sum: off by a few roundings of the last component.
template <int N>
double estimate(const Expansion<N>& e) {
  double sum = e.component[0];
  for (int i = 1; i < e.length; ++i) {
    sum += e.component[i];
  }
  return sum;
}

template <int M, int N>
Expansion<M + N> operator+(const Expansion<M>& e, const Expansion<N>& f) {
  Expansion<M + N> h;
  h.length = fast_expansion_sum_zeroelim(e.length, e.component, f.length, f.component, h.component);
  return h;
}

template <int N>
Expansion<N> operator-(const Expansion<N>& e) {
  Expansion<N> h;
  h.length = e.length;
  for (int i = 0; i < e.length; ++i) {
    h.component[i] = -e.component[i];
  }
  return h;
}

template <int M, int N>
Expansion<M + N> operator-(const Expansion<M>& e, const Expansion<N>& f) {
  return e + -f;
}

template <int N>
Expansion<2 * N> operator*(const Expansion<N>& e, const Factor& b) {
  Expansion<2 * N> h;
  h.length = scale_expansion_zeroelim(e.length, e.component, b, h.component);
  return h;
}

/// a - b of two products or differences.
inline Expansion<4> two_two_diff(Two a, Two b) {
  const Two low0 = two_diff(a.low, b.low);
  const Two high0 = two_sum(a.high, low0.high);
  const Two low1 = two_diff(high0.low, b.high);
  const Two high1 = two_sum(high0.high, low1.high);

  Expansion<4> x;
  x.length = 0;
  x.Append(low0.low);
  x.Append(low1.low);
  x.Append(high1.low);
  x.component[x.length] = high1.high;
  x.length += high1.high != 0.0 || x.length == 0;
  return x;
}

inline Expansion<2> Product(const Factor& a, const Factor& b) {
  const Two ab = two_product(a, b);
  Expansion<2> x;
  x.length = 0;
  x.Append(ab.low);
  x.component[x.length++] = ab.high;
  return x;
}

/// A long sum that grows term by term, between two buffers of which one is current.
template <int Capacity>
class ExpansionSum {
 public:
  template <int N>
  explicit ExpansionSum(const Expansion<N>& start) {
    static_assert(N <= Capacity);
    Now().length = start.length;
    for (int i = 0; i < start.length; ++i) {
      Now().component[i] = start.component[i];
    }
  }

  template <int N>
  void Add(const Expansion<N>& term) {
    if (term.MostSignificant() == 0.0) {
      return;
    }
    Expansion<Capacity>& next = buffers_[1 - now_];
    assert(Now().length + term.length <= Capacity);
    next.length = fast_expansion_sum_zeroelim(Now().length, Now().component, term.length,
                                              term.component, next.component);
    now_ = 1 - now_;
  }

  double MostSignificant() const { return buffers_[now_].MostSignificant(); }

 private:
  Expansion<Capacity>& Now() { return buffers_[now_]; }

  Expansion<Capacity> buffers_[2];
  int now_ = 0;
};

}  // namespace zyl::geometry::internal
