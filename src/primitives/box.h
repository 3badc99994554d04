#pragma once

// What a box does on each of its axes, written once for boxes in the plane and in space.
//
// A Box has two corners `min` and `max`; a corner has the fields x and y, or x, y and z.

#include <type_traits>

#include "zyl/geometry/coord.h"

namespace zyl::geometry::internal {

// Whether `test`, given the pointer to one coordinate field after another, holds for all of them.
template <class Corner, class Test>
bool EveryAxis(Test test) {
  if constexpr (std::is_same_v<Corner, Coord3D>) {
    return test(&Corner::x) && test(&Corner::y) && test(&Corner::z);
  } else {
    return test(&Corner::x) && test(&Corner::y);
  }
}

template <class Corner, class Action>
void ForEachAxis(Action action) {
  EveryAxis<Corner>([&](auto axis) {
    action(axis);
    return true;
  });
}

template <class Box>
using CornerOf = decltype(Box::min);

// A NaN coordinate keeps boxes neither from touching nor from overlapping.
template <class Box>
bool Touch(const Box& a, const Box& b) {
  return EveryAxis<CornerOf<Box>>(
      [&](auto axis) { return !(b.min.*axis > a.max.*axis) && !(a.min.*axis > b.max.*axis); });
}

template <class Box>
bool Overlap(const Box& a, const Box& b) {
  return EveryAxis<CornerOf<Box>>(
      [&](auto axis) { return !(b.min.*axis >= a.max.*axis) && !(a.min.*axis >= b.max.*axis); });
}

template <class Box>
bool LiesWithin(const Box& a, const Box& b) {
  return EveryAxis<CornerOf<Box>>(
      [&](auto axis) { return a.min.*axis >= b.min.*axis && b.max.*axis >= a.max.*axis; });
}

template <class Box>
bool LiesStrictlyWithin(const Box& a, const Box& b) {
  return EveryAxis<CornerOf<Box>>(
      [&](auto axis) { return a.min.*axis > b.min.*axis && b.max.*axis > a.max.*axis; });
}

// The result is built aside, so that `common` may be `a` or `b`.
template <class Box>
bool Intersect(const Box& a, const Box& b, Box& common) {
  Box result;
  const bool solid = EveryAxis<CornerOf<Box>>([&](auto axis) {
    result.min.*axis = a.min.*axis > b.min.*axis ? a.min.*axis : b.min.*axis;
    result.max.*axis = a.max.*axis < b.max.*axis ? a.max.*axis : b.max.*axis;
    return result.min.*axis < result.max.*axis;
  });
  common = solid ? result : Box();
  return solid;
}

template <class Box>
void Widen(const CornerOf<Box>& by, Box& box) {
  ForEachAxis<CornerOf<Box>>([&](auto axis) {
    box.min.*axis -= by.*axis;
    box.max.*axis += by.*axis;
  });
}

}  // namespace zyl::geometry::internal
