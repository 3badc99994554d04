#pragma once

// Two calls that may run at the same time: all that the engine knows of the task runtime.

namespace zyl::geometry::internal {

/// Calls task(first) and task(second), possibly at once, and returns when both have returned. They
/// may only touch what they are handed: either may run on a thread of the runtime, whose
/// thread_local data belongs to somebody else. Neither may throw. Never fails: where the runtime
/// has no memory for a task, or is not built in, the calls are made one after the other.
void RunBoth(void (*task)(void*), void* first, void* second);

}  // namespace zyl::geometry::internal
