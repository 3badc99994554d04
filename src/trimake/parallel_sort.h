#pragma once

// Quicksort that sorts large parts at the same time. After J. L. Bentley and M. D. McIlroy,
// "Engineering a Sort Function" (1993): the pivot is a median of medians, records equal to it stop
// both scans and so spread over both parts.

#include <cstddef>
#include <utility>

#include "trimake/fork_join.h"

namespace zyl::geometry::internal {

template <typename Record, typename Compare>
class ParallelSorter {
 public:
  explicit ParallelSorter(const Compare& compare) : compare_(compare) {}

  // After a lopsided split the pivot is the median of the first half, once that is sorted: then a
  // quarter of all records is not above it and a quarter not below. Those equal to it may change
  // sides, but no more than half of either quarter, so that at least an eighth stays on each side.
  // The recursion is therefore no deeper than some 5·log2(count).
  void Sort(Record* records, std::size_t count) const {
    if (count <= kSelectionLimit) {
      SortBySelection(records, count);
      return;
    }
    const Record* const pivot = ChoosePivot(records, count);
    if (pivot == nullptr) {
      return;
    }
    std::size_t left = Partition(records, count, *pivot);
    if (left <= count / 8 || left >= 7 * (count / 8)) {
      Sort(records, count / 2);
      left = Partition(records, count, records[count / 4]);
    }
    SortParts({this, records, left}, {this, records + left, count - left});
  }

 private:
  static constexpr std::size_t kSelectionLimit = 16;
  static constexpr std::size_t kMedianOfNineFrom = 24;
  static constexpr std::size_t kForkAbove = 500;

  struct Part {
    const ParallelSorter* sorter;
    Record* records;
    std::size_t count;

    static void Sort(void* part) {
      const Part& p = *static_cast<Part*>(part);
      p.sorter->Sort(p.records, p.count);
    }
  };

  static void SortParts(Part left, Part right) {
    if (left.count > kForkAbove && right.count > kForkAbove) {
      RunBoth(&Part::Sort, &left, &right);
    } else {
      Part::Sort(&left);
      Part::Sort(&right);
    }
  }

  void SortBySelection(Record* records, std::size_t count) const {
    for (std::size_t unsorted = count; unsorted > 1; --unsorted) {
      std::size_t greatest = 0;
      for (std::size_t i = 1; i < unsorted; ++i) {
        greatest = compare_(records[i], records[greatest]) > 0 ? i : greatest;
      }
      if (greatest != unsorted - 1) {
        std::swap(records[greatest], records[unsorted - 1]);
      }
    }
  }

  // The median of three records, or of three such medians. Null if all records are equal, which is
  // looked at only if the last three were.
  const Record* ChoosePivot(const Record* r, std::size_t n) const {
    const Record* a = r;
    const Record* b = r + n / 2;
    const Record* c = r + n - 1;
    if (n >= kMedianOfNineFrom) {
      const std::size_t s = n / 8;
      a = Median(r, r + 3 * s, r + 6 * s);
      b = Median(r + s, r + 4 * s, r + 7 * s);
      c = Median(r + 2 * s, r + 5 * s, r + n - 1);
    }
    if (compare_(*a, *b) == 0 && compare_(*b, *c) == 0 && AllEqual(r, n)) {
      return nullptr;
    }
    return Median(a, b, c);
  }

  const Record* Median(const Record* a, const Record* b, const Record* c) const {
    if (compare_(*b, *a) < 0) {
      std::swap(a, b);
    }
    if (compare_(*c, *b) >= 0) {
      return b;
    }
    return compare_(*c, *a) < 0 ? a : c;
  }

  bool AllEqual(const Record* records, std::size_t count) const {
    for (std::size_t i = 1; i < count; ++i) {
      if (compare_(records[i], records[0]) != 0) {
        return false;
      }
    }
    return true;
  }

  // Moves the records above the pivot behind those below it and returns the number in front. The
  // pivot is one of the records, by value: its own place may be overwritten. Every scan ends at a
  // record that is not on its side, the pivot or one already exchanged. Neither part is empty: a
  // pivot is never the only greatest record.
  std::size_t Partition(Record* records, std::size_t count, const Record pivot) const {
    Record* low = records;
    Record* high = records + count - 1;
    for (;;) {
      while (compare_(*low, pivot) < 0) {
        ++low;
      }
      while (compare_(*high, pivot) > 0) {
        --high;
      }
      if (low >= high) {
        break;
      }
      std::swap(*low++, *high--);
    }
    return static_cast<std::size_t>(low - records) + (low == high ? 1 : 0);
  }

  const Compare& compare_;
};

/// Sorts records in place. `compare(a, b)` is negative, zero or positive as a stands before b, with
/// b or behind it; it is called from several threads at once. Not stable.
/// O(n log n) comparisons also where most records are equal.
template <typename Record, typename Compare>
void tri_Parallel_Sort(Record* records, std::size_t count, const Compare& compare) {
  ParallelSorter<Record, Compare>(compare).Sort(records, count);
}

}  // namespace zyl::geometry::internal
