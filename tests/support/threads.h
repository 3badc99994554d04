#pragma once

// The same work on several threads at once.

#include <gtest/gtest.h>

#include <cstddef>
#include <thread>
#include <vector>

/// What each of so many threads gets from `work`.
template <class Work>
auto OnThreads(std::size_t count, Work work) {
  std::vector<decltype(work())> results(count);
  std::vector<std::thread> threads;
  for (auto& result : results) {
    threads.emplace_back([&] { result = work(); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  return results;
}

/// The same, and expects it to be what one thread gets alone, which is returned. That one comes
/// last: whatever is done once in a process is done on several threads at once.
template <class Work>
auto ExpectTheSameOnThreads(std::size_t count, Work work) {
  const auto results = OnThreads(count, work);
  const auto expected = work();
  for (const auto& each : results) {
    EXPECT_EQ(each, expected);
  }
  return expected;
}
