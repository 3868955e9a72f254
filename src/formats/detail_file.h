// Vistaplot detail files (*.SDT): one record of 40 bytes a trade of a signal combination.
// docs/formats/sdt.md has every byte.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "base/date.h"
#include "base/records.h"
#include "formats/text_lines.h"

namespace vistaplot {

// clang-format off
inline constexpr std::array<FixedField, 5> kDetailFields{{
    {"buy signals in", 0, 4, "  BUY  ", "SIGS IN"},
    {"sell signals in", 5, 4, " SELL  ", "SIGS IN"},
    {"buy date", 10, 8, "  BUY  ", "  DATE "},
    {"trade date", 19, 8, " TRADE ", " DATE  "},
    {"trade gain", 28, 8, " TRADE ", " GAIN  "},
}};
// clang-format on

inline constexpr TextRecordForm kDetailForm{kDetailFields, 40, '\t'};
static_assert(FieldsFit(kDetailFields, 36));

/// One closed trade as plain values.
struct DetailRecord {
  int buy_signals = 0;   ///< threshold of signal files that are in the market
  int sell_signals = 0;  ///< likewise
  DateSerial buy_date = 0;
  DateSerial trade_date = 0;  ///< of the sale
  double gain_percent = 0.0;
};

/// The record's texts by their patterns ("###0", "mm/dd/yy", "###0.000"), not cut: what a sheet
/// shows of it, and what AppendTextRecord(bytes, kDetailForm, texts) writes.
std::array<std::string, 5> TextsOf(const DetailRecord& record);

}  // namespace vistaplot
