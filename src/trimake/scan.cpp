#include "trimake/scan.h"

#include <cstddef>
#include <vector>

namespace zyl::geometry::internal {

tri_Scan::tri_Scan(const int* neighbours, int triangleCount)
    : neighbours_(neighbours),
      visited_(std::make_unique<bool[]>(static_cast<std::size_t>(triangleCount))) {}

// The stack is the path from the start to the triangle last entered: with which edge to go on in
// each triangle on it.
void tri_Scan::Run(int start) {
  if (!Enter(start)) {
    return;
  }
  Seed(start);
  struct Edge {
    int triangle;
    int k;
  };
  std::vector<Edge> path;
  Edge next{start, 0};
  for (;;) {
    if (next.k == 3) {
      if (path.empty()) {
        return;
      }
      next = path.back();
      path.pop_back();
      continue;
    }
    const auto [t, k] = next;
    ++next.k;
    const int neighbour = neighbours_[3 * t + k] - 1;
    if (MayCross(t, k) && neighbour >= 0 && Enter(neighbour)) {
      Propagate(t, k, neighbour);
      path.push_back(next);
      next = {neighbour, 0};
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
