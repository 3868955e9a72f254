// Vistaplot summary files (*.SSM): one record of 77 bytes a test case of a signal combination.
// docs/formats/ssm.md has every byte.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "base/date.h"
#include "base/records.h"
#include "formats/text_lines.h"

namespace vistaplot {

// clang-format off
inline constexpr std::array<FixedField, 10> kSummaryFields{{
    {"case number", 0, 4, "", " CASE  "},
    {"buy signals in", 5, 4, "  BUY  ", "SIGS IN"},
    {"sell signals in", 10, 4, " SELL  ", "SIGS IN"},
    {"average annual %", 15, 8, "  AVG  ", " ANN % "},
    {"switches per year", 24, 4, "", "  S/Y  "},
    {"maximum draw-down %", 29, 8, "", " MDD % "},
    {"date of maximum draw-down", 38, 8, "  MDD  ", "  DATE "},
    {"ulcer index", 47, 8, "", "  UI   "},
    {"ulcer performance index", 56, 8, "", "  UPI  "},
    {"% winners", 65, 8, "   %  ", "WINNERS"},
}};
// clang-format on

inline constexpr TextRecordForm kSummaryForm{kSummaryFields, 77, '\t'};
static_assert(FieldsFit(kSummaryFields, 73));

/// One test case as plain values; percents are percents (12.5), not fractions.
struct SummaryRecord {
  int case_number = 0;
  int buy_signals = 0;   ///< threshold of signal files that are in the market
  int sell_signals = 0;  ///< likewise
  double annual_percent = 0.0;
  double switches_per_year = 0.0;
  double draw_down_percent = 0.0;
  std::optional<DateSerial> draw_down_date = {};  ///< none is written as blanks
  double ulcer_index = 0.0;
  double ulcer_performance = 0.0;
  double winners_percent = 0.0;
};

/// The record's texts by their patterns ("###0", "###0.000", "#0.0", "mm/dd/yy", "###0.00"), not
/// cut: what a sheet shows of it, and what AppendTextRecord(bytes, kSummaryForm, texts) writes.
std::array<std::string, 10> TextsOf(const SummaryRecord& record);

}  // namespace vistaplot
