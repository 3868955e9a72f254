// Which funds the charts of prices draw and over which days: the state that those charts share.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "analytics/chart_prices.h"
#include "table/sheet.h"

namespace vistaplot {

struct GraphSelection {
  /// Table column of the fund at position p at index p - 1; SelectedCount entries, each 2 or more.
  std::vector<std::int16_t> SelectedColumns;
  std::int16_t SelectedCount = 0;
  std::int16_t CurrentFund = 0;  ///< position drawn one at a time; 0: no selection was made yet
  std::int16_t FirstFund = 0;    ///< first and last position that the last chart drew
  std::int16_t LastFund = 0;
  std::int16_t FirstDay = 0;         ///< market day of the last chart's first row
  std::int16_t ChartDays = 0;        ///< the last chart's rows that hold market days
  std::int16_t TimePeriodIndex = 0;  ///< 0 "One Month" to 9 "All"; see time_periods.h
  /// Base of chart column c at index c - 1, 0 where nothing was drawn: of a price column the first
  /// positive value drawn, of an overlay column its first value that is not 0.
  std::vector<float> PriceBase;

  /// The table column of the fund at `position`; 0 for a position outside 1 to SelectedCount.
  int ColumnOf(int position) const;
};

/// How the selected ranges are read.
enum class SelectionUse {
  kFunds,        ///< every column of every range
  kCorrelation,  ///< a range ends once two funds are known; fewer than two are refused
};

/// True when a redraw must read the selection first: it was asked for, or there is none.
bool NeedsSelection(const GraphSelection& selection, bool reselect);

/// What refuses a correlation of fewer than two funds.
inline constexpr std::string_view kTwoFundsNeeded =
    "Two funds must be selected to graph correlation";

/// Reads the ranges selected on `prices` into `selection`: the columns of each range in turn, the
/// date column and columns behind MaxCol left out, duplicates kept. CurrentFund becomes 1.
///
/// @return  empty, or the message that refuses the selection; CurrentFund then stays.
[[nodiscard]] std::string ReadGraphSelection(const Sheet& prices,
                                             SelectionUse use,
                                             GraphSelection& selection);

/// The position `step` (+1 or -1) beside CurrentFund, around the ends: next after SelectedCount is
/// 1, previous before 1 is SelectedCount.
std::int16_t SteppedFund(const GraphSelection& selection, int step);

// The prices of one fund of the data table, as the indicators read them.

/// Market days 1 to a chart's last one in single precision; days behind the sheet's last row are 0.
/// The sheet must stay as it is while this lives.
class FundPrices {
 public:
  /// @param first_day   market day of the chart's first row, 1 or more
  /// @param chart_days  rows that are market days
  FundPrices(const Sheet& prices, int table_column, int first_day, int chart_days);
  FundPrices(const FundPrices&) = delete;
  FundPrices& operator=(const FundPrices&) = delete;

  ChartPrices Chart() const { return {.values = values_, .history = history_}; }

 private:
  std::vector<float> copy_;  ///< where the sheet does not hold the days as they are needed
  std::span<const float> values_;
  int history_ = 0;
};

}  // namespace vistaplot
