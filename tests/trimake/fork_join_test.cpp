#include "trimake/fork_join.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>
#include <tbb/task_arena.h>
#include <tbb/task_group.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

namespace {

// Whether it came true within five seconds.
bool WaitFor(const std::atomic<bool>& event) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (!event && std::chrono::steady_clock::now() < end) {
    std::this_thread::yield();
  }
  return event;
}

void Call(void* task) { (*static_cast<std::function<void()>*>(task))(); }

// One thread of an arena forks and waits for what a worker took over; another one has a task for
// whoever is free. The waiting thread is not: the task could be a query, which would begin in the
// middle of the one that forked. After a while the task's owner runs it.
TEST(ForkJoin, AThreadThatWaitsTakesOnNoTaskOfTheHost) {
  const tbb::global_control threads(tbb::global_control::max_allowed_parallelism, 3);
  tbb::task_arena arena(3, 2);
  std::atomic<bool> isForked{false};
  std::atomic<bool> hasTaskRun{false};
  std::thread::id runner;
  std::thread owner([&] {
    WaitFor(isForked);
    arena.execute([&] {
      tbb::task_group group;
      group.run([&] {
        runner = std::this_thread::get_id();
        hasTaskRun = true;
      });
      std::this_thread::sleep_for(std::chrono::milliseconds(200));
      group.wait();
    });
  });
  std::function<void()> first = [&] {
    isForked = true;
    WaitFor(hasTaskRun);
  };
  std::function<void()> second = [&] { WaitFor(isForked); };
  arena.execute([&] { zyl::geometry::internal::RunBoth(&Call, &first, &second); });
  owner.join();
  EXPECT_TRUE(hasTaskRun);
  EXPECT_NE(runner, std::this_thread::get_id());
}

}  // namespace
