// Price histories from a seed, the same on every machine: integers and + - * / of doubles alone, no
// library's random numbers.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vistaplot::bench {

inline constexpr int kIssues = 255;
inline constexpr int kDays = 12000;
inline constexpr std::uint64_t kSeed = 20240607;

/// "F000", "F001", ...; issues count from 0.
std::string SymbolOf(int issue);

/// Dates of the first `count` market days, as date serials: Monday to Friday from 2 January 1975.
std::vector<int> MarketDays(int count);

/// Prices in cents, one a day, 0 = none yet: a walk in percent. Every fourth issue starts late.
std::vector<int> WalkPrices(int issue, int days, std::uint64_t seed);

/// The bytes of a signal file; files count from 0. A system holds a position for 5 to 60 of the
/// days, then turns.
std::string SignalFileText(int file, const std::vector<int>& days, std::uint64_t seed);

/// A wide CSV file: Date, then one column an issue, empty where there is no price. False when it
/// cannot be written.
bool WriteWideCsv(const std::string& path, int issues, int days, std::uint64_t seed);

}  // namespace vistaplot::bench
