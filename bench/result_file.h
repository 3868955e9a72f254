// Results of a test from a seed, the same on every machine.
#pragma once

#include <cstdint>
#include <string>

namespace vistaplot::bench {

inline constexpr int kSummaryRecords = 9999;

/// A Zephyrine summary file of long records over a grid of 100 by 100 parameters. False when it
/// cannot be written.
bool WriteSummaryFile(const std::string& path, int records, std::uint64_t seed);

}  // namespace vistaplot::bench
