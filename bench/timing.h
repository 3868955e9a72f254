// Measures an operation and prints its line:
//   name TAB ours TAB median ms TAB least TAB most TAB runs TAB check value
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <vector>

namespace vistaplot::bench {

/// Runs `operation` once unmeasured, then `runs` times (at least 3). It returns its check value, a
/// number that depends on all it did; the last one is printed. `who` is "ours" or the reference
/// that the line beside it is compared with.
template <class Operation>
void Measure(const char* name, int runs, Operation operation, const char* who = "ours") {
  using Clock = std::chrono::steady_clock;
  std::vector<double> times;
  auto check = static_cast<double>(operation());
  for (int run = 0; run < runs; ++run) {
    const auto start = Clock::now();
    check = static_cast<double>(operation());
    times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
  }
  std::sort(times.begin(), times.end());
  const std::size_t middle = times.size() / 2;
  const double median =
      times.size() % 2 == 1 ? times[middle] : (times[middle - 1] + times[middle]) / 2.0;
  std::printf("%s\t%s\t%.4f\t%.4f\t%.4f\t%d\t%.9g\n",
              name,
              who,
              median,
              times.front(),
              times.back(),
              runs,
              check);
  std::fflush(stdout);
}

}  // namespace vistaplot::bench
