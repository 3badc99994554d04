#include "trimake/adjacency.h"

#include <algorithm>
#include <climits>
#include <cstdint>

#include "trimake/allocation.h"
#include "trimake/fork_join.h"
#include "trimake/parallel_sort.h"

namespace zyl::geometry::internal {
namespace {

using Corners = PagedVector<const int>;
using Neighbours = PagedVector<int>;

// One edge of one triangle, under the name that it has from either side.
struct EdgeKey {
  int low;
  int high;      // larger vertex number
  int triangle;  // 0-based
  int edge;
};

// By descending high, then descending low. One comparison of 64 bits: most keys of a vertex differ
// in `low` only, and a branch on `high` would not pay. With the low half first in memory they are
// one load.
struct DescendingKeys {
  static std::uint64_t Whole(const EdgeKey& key) {
    return std::uint64_t{static_cast<std::uint32_t>(key.high)} << 32 |
           static_cast<std::uint32_t>(key.low);
  }
  int operator()(const EdgeKey& a, const EdgeKey& b) const {
    return Whole(b) > Whole(a) ? 1 : Whole(b) < Whole(a) ? -1 : 0;
  }
};

EdgeKey KeyOf(const Corners& corners, int triangle, int edge) {
  const std::size_t first = 3 * static_cast<std::size_t>(triangle);
  const int a = corners[first + static_cast<std::size_t>(edge)];
  const int b = corners[first + static_cast<std::size_t>(edge == 2 ? 0 : edge + 1)];
  return {std::min(a, b), std::max(a, b), triangle, edge};
}

template <typename Visit>
void ForEachKey(const Corners& corners, Visit visit) {
  const int triangleCount = static_cast<int>(corners.Size() / 3);
  for (int t = 0; t < triangleCount; ++t) {
    for (int k = 0; k < 3; ++k) {
      visit(KeyOf(corners, t, k));
    }
  }
}

// A key's bucket: all keys of an edge share one, and buckets are in the order of the keys. With
// shift 0 it is the larger vertex, and in a mesh of vertices all in use it always is 0.
struct Bucket {
  int shift;
  std::size_t operator()(const EdgeKey& key) const {
    return static_cast<std::size_t>(key.high >> shift);
  }
};

Bucket ChooseBuckets(int largest, std::size_t room) {
  int shift = 0;
  while (static_cast<std::size_t>(largest >> shift) >= room) {
    ++shift;
  }
  return {shift};
}

// Writes the keys bucket after bucket, the highest first (a counting sort): triangles come in the
// order of their lowest vertex, so that this stays close to sequential access, and a bucket is left
// with a handful of keys. `scratch` counts the keys of each bucket, then says where the next goes.
void FillBuckets(const Corners& corners, Bucket bucketOf, std::size_t bucketCount,
                 const Neighbours& scratch, EdgeKey* keys) {
  for (std::size_t b = 0; b < bucketCount; ++b) {
    scratch[b] = 0;
  }
  ForEachKey(corners, [&](const EdgeKey& key) { ++scratch[bucketOf(key)]; });
  int next = 0;
  for (std::size_t b = bucketCount; b-- > 0;) {
    const int count = scratch[b];
    scratch[b] = next;
    next += count;
  }
  ForEachKey(corners, [&](const EdgeKey& key) { keys[scratch[bucketOf(key)]++] = key; });
}

int& EntryOf(const EdgeKey& key, const Neighbours& neighbours) {
  return neighbours[3 * static_cast<std::size_t>(key.triangle) +
                    static_cast<std::size_t>(key.edge)];
}

// Pairs the triangles that each run of equal keys names. Returns whether a run is longer than two.
bool LinkRuns(const EdgeKey* first, const EdgeKey* end, const Neighbours& neighbours) {
  const DescendingKeys compare;
  bool crowded = false;
  while (first != end) {
    const EdgeKey* behind = first + 1;
    while (behind != end && compare(*behind, *first) == 0) {
      ++behind;
    }
    if (behind - first == 2) {
      EntryOf(first[0], neighbours) = first[1].triangle + 1;
      EntryOf(first[1], neighbours) = first[0].triangle + 1;
      first = behind;
      continue;
    }
    crowded = crowded || behind - first > 2;
    for (; first != behind; ++first) {
      EntryOf(*first, neighbours) = 0;
    }
  }
  return crowded;
}

// Whole buckets that follow each other, and what is found in them.
struct Stretch {
  EdgeKey* begin;
  EdgeKey* end;
  Bucket bucketOf;
  const Neighbours& neighbours;
  bool crowded = false;

  // Behind the bucket of `key`.
  EdgeKey* EndOfBucket(EdgeKey* key) const {
    const std::size_t bucket = bucketOf(*key);
    do {
      ++key;
    } while (key != end && bucketOf(*key) == bucket);
    return key;
  }
};

void LinkBuckets(Stretch& stretch) {
  EdgeKey* bucket = stretch.begin;
  while (bucket != stretch.end) {
    EdgeKey* const behind = stretch.EndOfBucket(bucket);
    tri_Parallel_Sort(bucket, static_cast<std::size_t>(behind - bucket), DescendingKeys());
    stretch.crowded = LinkRuns(bucket, behind, stretch.neighbours) || stretch.crowded;
    bucket = behind;
  }
}

// Keys on which one thread is busy for some tenths of a millisecond: less is not worth waking
// another one.
constexpr std::ptrdiff_t kForkAbove = 10000;

// Sorts and links the keys of a stretch, the two halves of a long one at the same time: no key of
// one has anything to do with a key of the other.
void LinkStretch(void* argument) {
  Stretch& stretch = *static_cast<Stretch*>(argument);
  EdgeKey* const middle = stretch.EndOfBucket(stretch.begin + (stretch.end - stretch.begin) / 2);
  if (middle - stretch.begin <= kForkAbove || stretch.end - middle <= kForkAbove) {
    LinkBuckets(stretch);
    return;
  }
  Stretch first{stretch.begin, middle, stretch.bucketOf, stretch.neighbours};
  Stretch second{middle, stretch.end, stretch.bucketOf, stretch.neighbours};
  RunBoth(&LinkStretch, &first, &second);
  stretch.crowded = first.crowded || second.crowded;
}

MallocArray<EdgeKey> AllocateKeys(int triangleCount) {
  if (triangleCount < 1 || triangleCount > INT_MAX / 3) {
    return nullptr;
  }
  return TryNewArray<EdgeKey>(3 * static_cast<std::size_t>(triangleCount));
}

}  // namespace

int tri_Build_Adjacency(int triangleCount, const int* triangles, int* neighbours) {
  const MallocArray<EdgeKey> keys = AllocateKeys(triangleCount);
  if (keys == nullptr) {
    return 0;
  }
  const std::size_t count = 3 * static_cast<std::size_t>(triangleCount);
  const Corners corners(triangles, count);
  const Neighbours across(neighbours, count);

  const int largest = *std::max_element(triangles, triangles + count);
  const Bucket bucketOf = ChooseBuckets(largest, count);
  const std::size_t bucketCount = static_cast<std::size_t>(largest >> bucketOf.shift) + 1;
  FillBuckets(corners, bucketOf, bucketCount, across, keys.get());

  Stretch all{keys.get(), keys.get() + count, bucketOf, across};
  LinkStretch(&all);
  return all.crowded ? -largest : largest;
}

}  // namespace zyl::geometry::internal
