#pragma once

// The same work on several threads at once.

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
