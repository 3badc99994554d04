// How one side of a cavity is triangulated: always on with the vertex closest to a base.

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "trimake/allocation.h"
#include "trimake/breaklines.h"
#include "trimake/xfloat.h"

namespace zyl::geometry::internal {
namespace {

// Two squared heights closer than this are compared in XFloat, whatever their rounding error.
constexpr double kNearTie = 1e-10;

// Error of a squared height, as a multiple of the squared distance from the base's start: 19
// roundings of 2^-53 add up in it, rounded up to a power of two.
constexpr double kHeightError = 0x1p-48;

// Far above the rounding error of the height of a box, and far below what it can be useful for.
constexpr double kBoxError = 0x1p-40;

// Entries of a chain that share a box. Chains of a few blocks are not worth the boxes.
constexpr int kBlock = 64;
constexpr int kShortChain = 4 * kBlock;

struct Box {
  double minX, minY, maxX, maxY;
};

struct Height {
  double squared;
  double error;
};

bool MayBeBelow(const Height& a, const Height& b) {
  return a.squared - a.error <= b.squared + b.error;
}

bool IsNearTie(const Height& a, const Height& b) {
  const double gap = std::fabs(a.squared - b.squared);
  return gap < kNearTie || gap <= a.error + b.error;
}

// Line through a and b, over which heights are taken.
class Base {
 public:
  Base(const TVertex* a, const TVertex* b)
      : a_(a), vx_(b->xy[0] - a->xy[0]), vy_(b->xy[1] - a->xy[1]), v2_(vx_ * vx_ + vy_ * vy_) {}

  bool IsPoint() const { return v2_ == 0; }

  Height HeightOf(const TVertex* q) const {
    const double ux = q->xy[0] - a_->xy[0];
    const double uy = q->xy[1] - a_->xy[1];
    const double u2 = ux * ux + uy * uy;
    const double t = ux * vx_ + uy * vy_;
    return {u2 - t * t / v2_, kHeightError * u2};
  }

  /// Whether all of the box is certainly higher than `height`. False for NaN.
  bool IsExceededBy(const Box& box, const Height& height) const {
    const double cx = (box.minX + box.maxX) / 2 - a_->xy[0];
    const double cy = (box.minY + box.maxY) / 2 - a_->xy[1];
    const double rx = (box.maxX - box.minX) / 2;
    const double ry = (box.maxY - box.minY) / 2;
    const double reach = std::fabs(vx_) * ry + std::fabs(vy_) * rx;
    const double error =
        kBoxError * (std::fabs(vx_) * (std::fabs(cy) + ry) + std::fabs(vy_) * (std::fabs(cx) + rx));
    const double least = std::fabs(vx_ * cy - vy_ * cx) - reach - error;
    return least > 0 && least * least > (height.squared + height.error) * v2_ * (1 + kBoxError);
  }

 private:
  const TVertex* a_;
  double vx_;
  double vy_;
  double v2_;
};

XFloat Difference(double a, double b) {
  return XFloat::Subtract(XFloat::FromDouble(a), XFloat::FromDouble(b));
}

XFloat Dot(const XFloat& ux, const XFloat& uy, const XFloat& vx, const XFloat& vy) {
  return XFloat::Add(XFloat::Multiply(ux, vx), XFloat::Multiply(uy, vy));
}

// The same in extended precision, times |b − a|².
class ExtendedBase {
 public:
  ExtendedBase(const TVertex* a, const TVertex* b)
      : a_(a),
        vx_(Difference(b->xy[0], a->xy[0])),
        vy_(Difference(b->xy[1], a->xy[1])),
        v2_(Dot(vx_, vy_, vx_, vy_)) {}

  bool IsPoint() const { return v2_.IsZero(); }

  XFloat HeightOf(const TVertex* q) const {
    const XFloat ux = Difference(q->xy[0], a_->xy[0]);
    const XFloat uy = Difference(q->xy[1], a_->xy[1]);
    const XFloat t = Dot(ux, uy, vx_, vy_);
    return XFloat::Subtract(XFloat::Multiply(Dot(ux, uy, ux, uy), v2_), XFloat::Multiply(t, t));
  }

 private:
  const TVertex* a_;
  XFloat vx_;
  XFloat vy_;
  XFloat v2_;
};

Box BoxAround(const TChainEntry* entries) {
  const double* const first = entries[0].vertex->xy;
  Box box{first[0], first[1], first[0], first[1]};
  for (int i = 1; i < kBlock; ++i) {
    const double* const q = entries[i].vertex->xy;
    box = {std::min(box.minX, q[0]), std::min(box.minY, q[1]), std::max(box.maxX, q[0]),
           std::max(box.maxY, q[1])};
  }
  return box;
}

// Triangulates one side of a cavity.
class Filler {
 public:
  Filler(TrimakeState& state, int k, const TChainEntry* chain);

  int Fill(int start, int end, TEdge* atStart);

 private:
  template <class Visit>
  void ForEachLow(int start, int end, const Base& base, const Height& lowest, Visit visit) const;
  int Closest(int start, int end) const;
  int ClosestExtended(int start, int end, const Base& base, const Height& lowest) const;
  TEdgePair Join(int from, TEdge* afterFrom, int to, TEdge* afterTo);

  TrimakeState& state_;
  const TChainEntry* chain_;
  MallocArray<Box> boxes_;
};

Filler::Filler(TrimakeState& state, int k, const TChainEntry* chain)
    : state_(state), chain_(chain) {
  if (k < kShortChain) {
    return;
  }
  const int count = k / kBlock;
  boxes_ = NewArray<Box>(static_cast<std::size_t>(count), "tri_Create_Delaunay: out of memory");
  for (int i = 0; i < count; ++i) {
    boxes_[i] = BoxAround(chain + std::ptrdiff_t{kBlock} * i);
  }
}

// Visits the inner entries in order, except for blocks that are wholly above `lowest`, which
// `visit` may lower.
template <class Visit>
void Filler::ForEachLow(int start, int end, const Base& base, const Height& lowest,
                        Visit visit) const {
  int i = start + 1;
  while (i < end) {
    const bool isBlock = boxes_ != nullptr && i % kBlock == 0 && i + kBlock <= end;
    if (isBlock && base.IsExceededBy(boxes_[i / kBlock], lowest)) {
      i += kBlock;
    } else {
      visit(i);
      ++i;
    }
  }
}

// The inner entry closest to the line through the ends, the first of equals; -1 if the ends
// coincide. The choice is exact: a vertex below the chosen one would fall inside its triangle. The
// last entry comes first: it is often the closest or close to it, and spares most blocks. Heights
// that overflow to NaN are never less, which leaves it.
int Filler::Closest(int start, int end) const {
  const Base base(chain_[start].vertex, chain_[end].vertex);
  if (base.IsPoint()) {
    return -1;
  }
  int closest = end - 1;
  Height lowest = base.HeightOf(chain_[closest].vertex);
  bool isNearTie = false;
  ForEachLow(start, end - 1, base, lowest, [&](int i) {
    const Height height = base.HeightOf(chain_[i].vertex);
    isNearTie = isNearTie || IsNearTie(height, lowest);
    if (height.squared < lowest.squared || (height.squared == lowest.squared && i < closest)) {
      closest = i;
      lowest = height;
    }
  });
  return isNearTie && state_.extendedFallback ? ClosestExtended(start, end, base, lowest) : closest;
}

// The same in extended precision, among those that the error of their double leaves in question.
int Filler::ClosestExtended(int start, int end, const Base& base, const Height& lowest) const {
  const ExtendedBase extended(chain_[start].vertex, chain_[end].vertex);
  if (extended.IsPoint()) {
    return -1;
  }
  int closest = -1;
  XFloat least;
  ForEachLow(start, end, base, lowest, [&](int i) {
    if (!MayBeBelow(base.HeightOf(chain_[i].vertex), lowest)) {
      return;
    }
    const XFloat height = extended.HeightOf(chain_[i].vertex);
    if (closest < 0 || XFloat::Compare(height, least) < 0) {
      closest = i;
      least = height;
    }
  });
  return closest;
}

TEdgePair Filler::Join(int from, TEdge* afterFrom, int to, TEdge* afterTo) {
  const TEdgePair made = tri_Make_Edge(state_, chain_[from].vertex, chain_[to].vertex, afterFrom,
                                       afterTo, false, false);
  if (made.edge != nullptr) {
    tri_Queue_Edge(state_, made.edge);
  }
  return made;
}

// Fills the polygon between the chain from `start` to `end` and its base, the segment between those
// two: the inner vertex C closest to the base makes a triangle with it, whose other sides are the
// bases of what is left.
//
//            · — C ——— ·         Around a vertex the ring runs counterclockwise, from the edge to
//        · /   /   \     \ ·     the previous entry over the cavity to the one to the next: new
//        |  /         \    |     edges go after the former, and at the start of a base after that
//      start --------- end       base (`atStart`).
//
// No vertex is within the triangle, for none is closer to the base, and no edge passes below C, for
// it would have an end there. The shorter part is filled by recursion, so the depth is at most
// log2 of the length. Returns 0, or -1 if the ends coincide or no half-edge is free.
// O(length) for each C and little for most of a long chain: n log n if C divides it evenly, n² / 64
// at worst.
int Filler::Fill(int start, int end, TEdge* atStart) {
  while (end - start >= 3) {
    const int c = Closest(start, end);
    if (c < 0) {
      return -1;
    }
    TEdgePair first{atStart, chain_[c].edge};
    if (c > start + 1) {
      first = Join(start, atStart, c, chain_[c].edge);
    }
    TEdgePair second{nullptr, first.twin};
    if (c < end - 1 && first.edge != nullptr) {
      second = Join(end, chain_[end].edge, c, first.twin);
    }
    if (first.edge == nullptr || second.twin == nullptr) {
      return -1;
    }
    const bool isStartShorter = c - start < end - c;
    const int result = isStartShorter ? Fill(start, c, first.edge) : Fill(c, end, second.twin);
    if (result < 0) {
      return result;
    }
    (isStartShorter ? start : end) = c;
    atStart = isStartShorter ? second.twin : first.edge;
  }
  return 0;
}

}  // namespace

int tri_Fill_Chain(TrimakeState& state, int k, TChainEntry* chain) {
  TChainEntry& last = chain[k - 1];
  const TEdge* const beyond = last.edge->next;
  if (Filler(state, k, chain).Fill(0, k - 1, chain[0].edge) < 0) {
    return -1;
  }
  last.edge = beyond->prev;
  return 0;
}

}  // namespace zyl::geometry::internal
