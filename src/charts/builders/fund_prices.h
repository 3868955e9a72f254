// The prices of one fund of the data table, as the indicators read them.
#pragma once

#include <span>
#include <vector>

#include "analytics/chart_prices.h"
#include "table/sheet.h"

namespace vistaplot {

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
