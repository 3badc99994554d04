#pragma once

// A number carried as three doubles: what stage B of `incircle` and `insphere` needs for the
// estimate of a long expansion, at a fraction of the cost of forming it.
//
// Sums cascade: what rounding takes from the first double is added to the second, and what it takes
// from there to the third (T. Ogita, S. M. Rump & S. Oishi, "Accurate Sum and Dot Product", SIAM
// Journal on Scientific Computing 26 (2005), Algorithm 4.8 with K = 3). With M the sum of the
// magnitudes of all that is added up, the doubles are of the order of M, eps M and eps^2 M, and the
// error is of the order of eps^3 M, however much of the sum cancels.

#include <cmath>

#include "predicates/difference.h"

namespace zyl::geometry::internal {

class Triple {
 public:
  void AddProduct(const Factor& a, const Factor& b) {
    const Two ab = two_product(a, b);
    AddFirst(ab.high);
    AddSecond(ab.low);
  }

  void AddProduct(const Triple& a, const Factor& b) {
    const Two first = two_product(a.first_, b);
    const Two second = two_product(a.second_, b);
    AddFirst(first.high);
    AddSecond(first.low);
    AddSecond(second.high);
    third_ += second.low + a.third_ * b.value;
  }

  void AddProduct(const Triple& a, const Triple& b, double splitter) {
    const Factor aFirst(a.first_, splitter);
    const Factor bFirst(b.first_, splitter);
    const Two firsts = two_product(aFirst, bFirst);
    const Two mixed1 = two_product(b.second_, aFirst);
    const Two mixed2 = two_product(a.second_, bFirst);
    AddFirst(firsts.high);
    AddSecond(firsts.low);
    AddSecond(mixed1.high);
    AddSecond(mixed2.high);
    third_ += (mixed1.low + mixed2.low) +
              (a.first_ * b.third_ + a.second_ * b.second_ + a.third_ * b.first_);
  }

  Triple operator-() const {
    Triple negative;
    negative.first_ = -first_;
    negative.second_ = -second_;
    negative.third_ = -third_;
    return negative;
  }

  /// Off by one rounding, and by the error of the three doubles.
  double Rounded() const {
    const Two sum = two_sum(first_, second_);
    return sum.high + (sum.low + third_);
  }

 private:
  void AddFirst(double term) {
    const Two sum = two_sum(first_, term);
    first_ = sum.high;
    AddSecond(sum.low);
  }

  void AddSecond(double term) {
    const Two sum = two_sum(second_, term);
    second_ = sum.high;
    third_ += sum.low;
  }

  double first_ = 0.0;
  double second_ = 0.0;
  double third_ = 0.0;
};

/// x and y part of the cross product of b and c.
inline Triple TripleCross(const Vec2& b, const Vec2& c) {
  Triple product;
  product.AddProduct(b.x, c.y);
  product.AddProduct(-b.y, c.x);
  return product;
}

/// What stage B knows of a determinant.
struct Estimate {
  double det;
  double error;  ///< More than `det` is off by, or 0 if that is less than 1.2 of its roundings.
};

/// The determinant of `incircle` or `insphere`, computed in Triple arithmetic, as a double.
///
/// Off by less than 2^-140 permanents before it is rounded: by counting roundings, 11000 eps^3 in
/// the longest, of `insphere`. A determinant that is large beside that is as good as the estimate
/// of an exact expansion, and the error bounds of stages B and C hold as they are.
inline Estimate EstimateOf(const Triple& sum, double permanent) {
  const double det = sum.Rounded();
  const double error = 0x1p-140 * permanent;
  return {det, std::fabs(det) * 0x1p-56 > error ? 0.0 : error};
}

}  // namespace zyl::geometry::internal
