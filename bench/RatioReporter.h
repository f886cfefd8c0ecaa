#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

// The console report, followed by the ratios of our benchmarks to the peer's measured in the
// same run: "ours / peer" below 1 means we are faster.
class RatioReporter : public benchmark::ConsoleReporter {
public:
  using Pair = std::pair<std::string, std::string>;  // (ours, peer)
  explicit RatioReporter(std::vector<Pair> pairs) : m_pairs(std::move(pairs)) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    // With repetitions the median stands for the benchmark; without, its one run.
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Iteration) {
        m_times[run.run_name.str()] = run.GetAdjustedRealTime();
      } else if (run.aggregate_name == "median") {
        m_times[run.run_name.str()] = run.GetAdjustedRealTime();
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void Finalize() override {
    ConsoleReporter::Finalize();
    std::printf("\nRatios (ours / peer, below 1 is faster):\n");
    for (const auto& [ours, peer] : m_pairs) {
      if (!m_times.count(ours) || !m_times.count(peer) || m_times[peer] == 0) continue;
      std::printf("  %-40s / %-40s %6.3f\n", ours.c_str(), peer.c_str(), m_times[ours] / m_times[peer]);
    }
  }

private:
  std::vector<Pair> m_pairs;
  std::map<std::string, double> m_times;
};
