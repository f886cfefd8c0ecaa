#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

namespace render {

// Runs work(i) for i from 0 to count - 1 on the machine's cores (the calling thread among them)
// and returns when all are done. work must be safe to run at the same time for different i.
template <typename Work>
void ParallelFor(std::size_t count, Work&& work) {
  const std::size_t cores = std::max(1u, std::thread::hardware_concurrency());
  const std::size_t threads = std::min(cores, count);
  if (threads <= 1) {
    for (std::size_t i = 0; i < count; ++i) work(i);
    return;
  }
  std::atomic<std::size_t> next{0};
  const auto run = [&] {
    for (std::size_t i = next++; i < count; i = next++) work(i);
  };
  std::vector<std::thread> helpers;
  for (std::size_t t = 1; t < threads; ++t) helpers.emplace_back(run);
  run();
  for (std::thread& helper : helpers) helper.join();
}

}  // namespace render
