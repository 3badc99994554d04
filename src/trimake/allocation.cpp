#include "trimake/allocation.h"

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace zyl::geometry::internal {

#if defined(__linux__)
void UseHugePages(void* memory, std::size_t size) {
  constexpr std::uintptr_t kHugePage = std::uintptr_t{1} << 21;
  const std::uintptr_t begin = reinterpret_cast<std::uintptr_t>(memory);
  const std::uintptr_t first = (begin + kHugePage - 1) / kHugePage * kHugePage;
  const std::uintptr_t end = (begin + size) / kHugePage * kHugePage;
  if (first < end) {
    // Only advice: where it is refused, the block is as good with pages of the usual size.
    static_cast<void>(madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE));
  }
}
#else
void UseHugePages(void*, std::size_t) {}
#endif

}  // namespace zyl::geometry::internal
