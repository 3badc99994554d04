#include "trimake/pencil.h"

#include "trimake/orientation.h"

namespace zyl::geometry::internal {

bool TPencil::SettleFaces(const TVertex* v) const { return v != L_ && v != R_ && !cw(L_, R_, v); }

bool TPencil::SettleHolds(const TVertex* c, const TVertex* d) const {
  return d != L_ && d != R_ && !notInside(L_, R_, c, d);
}

}  // namespace zyl::geometry::internal
