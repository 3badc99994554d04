#include "trimake/allocation.h"

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace zyl::geometry::internal {

#if defined(__linux__)
void UseHugePages(void* memory, std::size_t size) {
  constexpr std::size_t kHugePage = std::size_t{1} << 21;
  const std::size_t beyond = reinterpret_cast<std::uintptr_t>(memory) % kHugePage;
  const std::size_t skipped = beyond == 0 ? 0 : kHugePage - beyond;
  if (size >= skipped + kHugePage) {
    // Only advice: where it is refused, the block is as good with pages of the usual size.
    const std::size_t whole = (size - skipped) / kHugePage * kHugePage;
    static_cast<void>(madvise(static_cast<char*>(memory) + skipped, whole, MADV_HUGEPAGE));
  }
}
#else
void UseHugePages(void*, std::size_t) {}
#endif

}  // namespace zyl::geometry::internal
