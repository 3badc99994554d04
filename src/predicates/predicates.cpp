#include "predicates/predicates.h"

namespace zyl::geometry::internal {
namespace {

// The error analysis needs every operation rounded once, to a double. The x87 unit starts with
// significands of 64 bits on most systems and then rounds twice; SSE2 needs nothing.
void SetDoublePrecision() {
#if defined(__i386__) && !defined(__SSE2_MATH__)
  constexpr unsigned short kPrecisionMask = 0x300;
  constexpr unsigned short kDouble = 0x200;
  unsigned short control = 0;
  __asm__ volatile("fnstcw %0" : "=m"(control));
  control = static_cast<unsigned short>((control & ~kPrecisionMask) | kDouble);
  __asm__ volatile("fldcw %0" : : "m"(control));
#endif
}

// Halves epsilon until 1 + epsilon rounds to 1, doubling the splitter at every other step. `check`
// stops a machine that never rounds to 1.
PredicateState ComputeState() {
  PredicateState state{};
  double epsilon = 1.0;
  double splitter = 1.0;
  double check = 1.0;
  double lastcheck = 0.0;
  bool everyOther = true;
  do {
    lastcheck = check;
    epsilon *= 0.5;
    if (everyOther) {
      splitter *= 2.0;
    }
    everyOther = !everyOther;
    check = 1.0 + epsilon;
  } while (check != 1.0 && check != lastcheck);
  state.epsilon = epsilon;
  state.splitter = splitter + 1.0;

  state.resulterrbound = (3.0 + 8.0 * epsilon) * epsilon;
  state.ccwerrboundA = (3.0 + 16.0 * epsilon) * epsilon;
  state.ccwerrboundB = (2.0 + 12.0 * epsilon) * epsilon;
  state.ccwerrboundC = (9.0 + 64.0 * epsilon) * epsilon * epsilon;
  state.o3derrboundA = (7.0 + 56.0 * epsilon) * epsilon;
  state.o3derrboundB = (3.0 + 28.0 * epsilon) * epsilon;
  state.o3derrboundC = (26.0 + 288.0 * epsilon) * epsilon * epsilon;
  state.iccerrboundA = (10.0 + 96.0 * epsilon) * epsilon;
  state.iccerrboundB = (4.0 + 48.0 * epsilon) * epsilon;
  state.iccerrboundC = (44.0 + 576.0 * epsilon) * epsilon * epsilon;
  state.isperrboundA = (16.0 + 224.0 * epsilon) * epsilon;
  state.isperrboundB = (5.0 + 72.0 * epsilon) * epsilon;
  state.isperrboundC = (71.0 + 1408.0 * epsilon) * epsilon * epsilon;
  return state;
}

}  // namespace

void exactinit() {
  SetDoublePrecision();
  static const PredicateState computed = ComputeState();
  publishedState.store(&computed, std::memory_order_release);
}

}  // namespace zyl::geometry::internal
