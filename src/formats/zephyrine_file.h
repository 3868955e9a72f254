// Zephyrine summary files (*.SUM): one record of 119 bytes a test case; older ones have records of
// 98 bytes. docs/formats/sum.md has every byte.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/records.h"
#include "formats/text_lines.h"

namespace vistaplot {

// clang-format off
inline constexpr std::array<FixedField, 17> kZephyrineFields{{
    {"test case", 0, 4, "TEST", "CASE", 2000},
    {"buy ranking period", 5, 4, "", "BUY", 2000},
    {"sell ranking period", 10, 4, "", "SELL", 2000},
    {"switches per year", 15, 4, "", "S/Y", 2000},
    {"average annual %", 20, 8, "  AVG   ", "ANNUAL %", 3400},
    {"maximum draw-down %", 29, 8, "MAX DRAW", " DOWN % ", 3400},
    {"date of maximum draw-down", 38, 8, "  MDD   ", "  DATE  ", 3400},
    {"ulcer index", 47, 4, "ULCER", "INDEX", 3400},
    {"ulcer performance index", 52, 4, "ULCER", "PERF INDEX", 3400},
    {"% winners", 57, 5, "   %   ", "WINNERS", 3400},
    {"% average gain per buy", 63, 8, "% AVG GAIN", " PER BUY ", 3400},
    {"% average gain of winners", 72, 8, "% AVG GAIN", " WINNERS  ", 3400},
    {"% average loss of losers", 81, 8, "% AVG LOSS", "  LOSERS  ", 3400},
    {"average STRF", 90, 4, " AVG ", " STRF ", 2000},
    {"strategy beta", 95, 6, " STRATEGY ", "   BETA   ", 3400},
    {"strategy correlation", 102, 6, " STRATEGY ", "   CORR   ", 3400},
    {"strategy alpha", 109, 6, " STRATEGY ", "  ALPHA   ", 3400},
}};
// clang-format on

inline constexpr TextRecordForm kZephyrineForm{kZephyrineFields, 119, ' '};
static_assert(FieldsFit(kZephyrineFields, 115));

/// Short records end behind the average STRF and their tail; the fields behind read as
/// kZephyrineMissing.
inline constexpr std::size_t kShortZephyrineSize = 98;
inline constexpr std::string_view kZephyrineMissing = "  0.00";

/// The records of a file's bytes in file order. They are long where the length is a whole multiple
/// of 119 (that of an empty file included), else short; an incomplete last one is left out.
/// `bytes` are at most kMostRecordBytes.
Records ReadZephyrineRecords(std::string bytes);

}  // namespace vistaplot
