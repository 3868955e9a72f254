// Compares what the program holds with an earlier dump: texts exactly, numbers to a relative
// tolerance.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "table/sheet.h"

namespace vistaplot {

/// The first differences in words, and how many there are in all.
struct Differences {
  static constexpr int kMostTold = 10;

  std::vector<std::string> told;
  long long count = 0;

  void Add(std::string difference);
};

/// Compares SheetCsv of `sheet` with `csv`, an earlier one. Two cells that are numbers as a whole
/// compare as numbers: |a - b| <= tolerance x the larger of |a|, |b|.
Differences CompareSheet(const Sheet& sheet, std::string_view csv, double tolerance);

/// Compares two JSON texts, members by key, items in order. The error says where one of them is no
/// JSON ("line 1, column 7: ...").
Result<Differences> CompareJson(std::string_view expected,
                                std::string_view found,
                                double tolerance);

}  // namespace vistaplot
