// The family summary: annualised return, draw-down, ulcer indexes and trailing gains of every issue
// just loaded, on sheet 2 of the data table.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/dialogs.h"
#include "import/family_records.h"
#include "import/price_load.h"
#include "marketdata/market_calendar.h"
#include "table/data_table.h"

namespace vistaplot {

inline constexpr int kGainPeriods = 6;

/// Yearly rate in percent that the ulcer performance index sets against the return.
inline constexpr float kYearlyRate = 5.4F;

/// Headings of the first columns of sheet 2; the six gains follow, headed "<period> day".
inline constexpr std::array<std::string_view, 7> kSummaryHeadings{
    "Symbol", "Name", "Ann %", "MDD %", "MDD Date", "UI", "UPI"};
/// What each of them means, for whoever rests at a heading.
inline constexpr std::array<std::string_view, 7> kSummaryHeadingTips{
    "Symbol of the issue; a right click on its row draws it",
    "Name of the issue",
    "Annualised return in percent, by calendar days, over the days of the analysis",
    "Maximum draw-down: the deepest fall below an earlier high, in percent",
    "Day of the deepest point of that fall",
    "Ulcer index: root mean square of the falls below the high so far, in percent",
    "Ulcer performance index: annualised return above 5.4 % a year, per ulcer index"};
inline constexpr int kSummaryColumns = static_cast<int>(kSummaryHeadings.size()) + kGainPeriods;

/// The window and the periods as the family-analysis boxes hold them.
struct FamilyWindow {
  int begin_day = 1;  ///< market days; brought into 1 to MaxNumDays
  int end_day = 1;
  /// Texts of the six gain periods in market days, e.g. "30"; they are also the headings.
  std::array<std::string, kGainPeriods> gain_days;
};

/// The figures of one issue. Each may be undefined (not finite) where prices of 0 or below are in
/// the window, or where it is beyond single precision.
struct FamilyFigures {
  double annual_percent = 0.0;     ///< (W^(1 / years) - 1) x 100
  float draw_down_percent = 0.0F;  ///< (1 - m) x 100; 0 when no day was used
  int draw_down_day = 0;           ///< market day of the deepest point; 0 when no day was used
  float ulcer_index = 0.0F;        ///< square root of S / (end - first + 1), percent
  float ulcer_performance = 0.0F;  ///< (annual % - 5.4) / ulcer index, or the difference alone
};

/// The figures of a walk that ended at `end_day`. Years are calendar days / 365 from the day before
/// the first used one; without a used day they count from date 0.
FamilyFigures FiguresOfWalk(const GrowthWalk& walk, const MarketCalendar& calendar, int end_day);

/// Gain in percent from market day `end_day` less `period` (rounded to a whole day, halves to even)
/// to `end_day`, in single precision: (p(end) / p(base) - 1) x 100. `prices` by market day, element
/// 0 unused. Nothing when the base day lies outside 1 to prices.size() - 1, has no price (at or
/// below -0.5) or the price 0.
std::optional<float> TrailingGain(std::span<const float> prices, int end_day, double period);

/// Writes sheet 2 "Summary" from filled records: headings, a row for each record, extent, widths;
/// sets SortToggle of all columns to +1. Undefined figures show "0.00".
///
/// @return  the number of issues with figures that prices of 0 or below made undefined
int WriteFamilySummary(const FamilyRecords& records,
                       const MarketCalendar& calendar,
                       const FamilyWindow& window,
                       DataTable& table);

/// Reads the calendar anew, fetches the histories of `symbols` and writes their summary. A calendar
/// that is too long for family records is reported; the summary then has headings alone.
///
/// @return  as WriteFamilySummary
int ComputeFamilySummary(const LoadServices& services,
                         std::span<const std::string> symbols,
                         const FamilyWindow& window,
                         FamilyRecords& records,
                         Progress& progress);

}  // namespace vistaplot
