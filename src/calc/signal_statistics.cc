#include "calc/signal_statistics.h"

#include <cassert>
#include <cmath>

namespace vistaplot {

CaseStatistics ComputeStatistics(const CaseWalk& walk,
                                 const SignalMarket& market,
                                 const SignalTest& test) {
  assert(walk.first_day > 0 && walk.first_day < test.end_day);
  const double years = (market.DateOf(test.end_day) - market.DateOf(walk.first_day)) / 365.0;
  const int days = test.end_day - walk.first_day;
  CaseStatistics statistics;
  statistics.annual_percent =
      (std::pow(static_cast<double>(walk.equity), 1.0 / years) - 1.0) * 100.0;
  statistics.switches_per_year = walk.switches / years;
  statistics.drawdown_percent = (1.0 - static_cast<double>(walk.lowest_ratio)) * 100.0;
  statistics.drawdown_date = market.DateOf(walk.lowest_day);
  statistics.ulcer_index = std::sqrt(static_cast<double>(walk.ulcer_sum) / days);
  if (statistics.ulcer_index != 0.0) {
    statistics.ulcer_performance =
        (statistics.annual_percent - kRiskFreePercent) / statistics.ulcer_index;
  }
  statistics.percent_winners = walk.wins * 100.0 / walk.switches;
  return statistics;
}

}  // namespace vistaplot
