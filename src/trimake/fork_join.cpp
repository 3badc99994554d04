#include "trimake/fork_join.h"

#ifdef ZYL_GEOMETRY_USE_TBB
#include <tbb/task_arena.h>
#include <tbb/task_group.h>
#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif
#endif

namespace zyl::geometry::internal {

#ifdef ZYL_GEOMETRY_USE_TBB

namespace {

// A task and the thread that handed it over or waits for it. ThreadSanitizer is told where one's
// writes reach the other, for it cannot see into oneTBB's stock library, where that happens.
void PassOn([[maybe_unused]] void* argument) {
#ifdef __SANITIZE_THREAD__
  __tsan_release(argument);
#endif
}

void TakeOver([[maybe_unused]] void* argument) {
#ifdef __SANITIZE_THREAD__
  __tsan_acquire(argument);
#endif
}

}  // namespace

// While the calling thread waits for the other task it may take on further ones. Outside the
// isolated region these could be tasks of the host, and such a task may well ask for another
// triangulation: on this thread, in the middle of this one.
void RunBoth(void (*task)(void*), void* first, void* second) {
  bool forked = false;
  try {
    tbb::this_task_arena::isolate([&] {
      tbb::task_group group;
      PassOn(first);
      group.run([task, first] {
        TakeOver(first);
        task(first);
        PassOn(first);
      });
      forked = true;
      task(second);
      group.wait();
      TakeOver(first);
    });
  } catch (...) {
    if (!forked) {
      task(first);
      task(second);
    }
  }
}

#else

void RunBoth(void (*task)(void*), void* first, void* second) {
  task(first);
  task(second);
}

#endif

}  // namespace zyl::geometry::internal
