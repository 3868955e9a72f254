// The sample that a new user can try the program with: all of it is made up.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/result.h"

namespace vistaplot {

struct SampleSummary {
  std::size_t funds = 0;
  std::size_t stocks = 0;
  std::size_t indexes = 0;
  std::size_t breadth = 0;
  std::size_t families = 0;
  std::size_t signals = 0;
  std::size_t results = 0;
  std::size_t days = 0;
  DateSerial first_date = 0;
  DateSerial last_date = 0;
};

/// Fills a service directory, which is made when it is not there, with the sample: issues,
/// families in all three folders, signal files and result files. Refuses, and changes nothing,
/// when the directory holds issues, or files of the sample's names with other contents.
Result<SampleSummary> FillWithSample(const std::string& directory);

// Made-up result files, one of each kind that the program imports.

/// A file of the sample: its path below the service directory and its bytes.
struct SampleFile {
  std::string path;
  std::string bytes;
};

/// RESULTS/SAMPLE.SUM, .VX1, .TXT, .SSM and .SDT. Their cases run over a grid of two parameters,
/// so that charts over two parameters have something to show.
std::vector<SampleFile> MakeSampleResults();

// A made-up market: a calendar, issues that exist nowhere and their prices. The same on every
// machine and in every run: whole-number randomness from a fixed seed, no library functions whose
// last bits differ.

enum class SampleKind { kFund, kStock, kIndex, kBreadth };

struct SampleIssue {
  SampleKind kind = SampleKind::kFund;
  std::string symbol;
  std::string name;
  std::string group;          ///< the family of its kind that it belongs to; may be empty
  std::vector<float> prices;  ///< one a day of the calendar; 0 where there is none
};

struct SampleMarket {
  std::vector<DateSerial> days;  ///< 25 years of weekdays without holidays, to 29 December 2023
  std::vector<SampleIssue> issues;
};

/// 40 funds, 20 stocks, 6 indexes, and the breadth issues $NADV and $DECL.
SampleMarket MakeSampleMarket();

}  // namespace vistaplot
