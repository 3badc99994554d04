#include "trimake/scan.h"

#include <cstddef>
#include <vector>

namespace zyl::geometry::internal {

tri_Scan::tri_Scan(const int* neighbours, int triangleCount)
    : neighbours_(neighbours),
      visited_(std::make_unique<bool[]>(static_cast<std::size_t>(triangleCount))) {}

// The stack is the path from the start to the triangle just entered, each with the edge to try
// next.
void tri_Scan::Run(int start) {
  struct Step {
    int triangle;
    int edge;
  };
  std::vector<Step> path;
  if (Enter(start)) {
    Seed(start);
    path.push_back({start, 0});
  }
  while (!path.empty()) {
    const auto [t, k] = path.back();
    if (k == 3) {
      path.pop_back();
      continue;
    }
    ++path.back().edge;
    const int neighbour = neighbours_[3 * t + k] - 1;
    if (MayCross(t, k) && neighbour >= 0 && Enter(neighbour)) {
      Propagate(t, k, neighbour);
      path.push_back({neighbour, 0});
    }
  }
}

bool tri_Scan::Enter(int t) {
  bool& visited = visited_[static_cast<std::size_t>(t)];
  if (visited) {
    return false;
  }
  visited = true;
  return Accept(t);
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
