#include "trimake/scan.h"

#include <cstddef>

namespace zyl::geometry::internal {

tri_Scan::tri_Scan(const int* neighbours, int triangleCount)
    : neighbours_(neighbours), visited_(static_cast<std::size_t>(triangleCount)) {}

// A stack entry is a triangle and the edge it was last left across, -1 if it is yet to be entered.
// Below an entry with -1 stands the triangle that it is entered from.
void tri_Scan::Run(int start) {
  struct Step {
    int triangle;
    int edge;
  };
  std::vector<Step> stack = {{start, -1}};
  while (!stack.empty()) {
    const auto [t, left] = stack.back();
    stack.pop_back();
    if (left == -1) {
      if (visited_[static_cast<std::size_t>(t)]) {
        continue;
      }
      visited_[static_cast<std::size_t>(t)] = true;
      if (!Accept(t)) {
        continue;
      }
      if (stack.empty()) {
        Seed(t);
      } else {
        Propagate(stack.back().triangle, stack.back().edge, t);
      }
    }
    const int next = left + 1;
    if (next < 3) {
      stack.push_back({t, next});
      const int neighbour = neighbours_[3 * t + next] - 1;
      if (neighbour >= 0 && MayCross(t, next)) {
        stack.push_back({neighbour, -1});
      }
    }
  }
}

bool tri_Scan::Accept(int) { return true; }

bool tri_Scan::MayCross(int, int) { return true; }

void tri_Scan::Propagate(int, int, int to) { Seed(to); }

tri_Scan_Inside::tri_Scan_Inside(const int* neighbours, int triangleCount,
                                 const TEdgeInfo* edgeInfo, int state, int* inside)
    : tri_Scan(neighbours, triangleCount), edgeInfo_(edgeInfo), state_(state), inside_(inside) {}

void tri_Scan_Inside::Seed(int t) { inside_[t] = state_; }

void tri_Scan_Inside::Propagate(int from, int k, int to) {
  inside_[to] = IsBoundary(edgeInfo_[3 * from + k]) ? !inside_[from] : inside_[from];
}

}  // namespace zyl::geometry::internal
