#include "trimake/fork_join.h"

#ifdef ZYL_GEOMETRY_USE_TBB
#include <tbb/task_arena.h>
#include <tbb/task_group.h>
#endif

namespace zyl::geometry::internal {

#ifdef ZYL_GEOMETRY_USE_TBB

// While the calling thread waits for the other task it may take on further ones. Outside the
// isolated region these could be tasks of the host, and such a task may well ask for another
// triangulation: on this thread, in the middle of this one.
void RunBoth(void (*task)(void*), void* first, void* second) {
  bool forked = false;
  try {
    tbb::this_task_arena::isolate([&] {
      tbb::task_group group;
      group.run([task, first] { task(first); });
      forked = true;
      task(second);
      group.wait();
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
