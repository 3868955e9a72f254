#include "calc/signal_walk.h"

#include <cassert>
#include <cmath>

namespace vistaplot {

namespace {

enum class Position { kNone, kIn, kOut };

/// The state of one case; the floats of CaseWalk are stored single, what lies between is double.
class Simulation {
 public:
  Simulation(const SignalMarket& market,
             const SignalTest& test,
             const SignalThresholds& thresholds,
             CaseLog* log)
      : market_(market), test_(test), thresholds_(thresholds), log_(log) {}

  CaseWalk Run() {
    for (int day = test_.start_day; day <= test_.end_day; ++day) {
      if (market_.IsPriced(day)) {
        VisitPricedDay(day);
      } else {
        VisitUnpricedDay(day);
      }
    }
    return walk_;
  }

 private:
  double Price(Position position, int day) const {
    return position == Position::kIn ? market_.InPrice(day) : market_.OutPrice(day);
  }

  /// The position after `day`; `leaves` puts a case out of the market that does not buy.
  Position Decide(int day, Position current, bool leaves) const {
    const bool enough = market_.CountOf(day) >= thresholds_.buy;
    if (!test_.two_dimensional) {
      return enough ? Position::kIn : Position::kOut;
    }
    if (enough && market_.Rises(day)) {
      return Position::kIn;
    }
    const bool sells = market_.CountOf(day) <= thresholds_.sell && market_.Falls(day);
    return sells || leaves ? Position::kOut : current;
  }

  void VisitPricedDay(int day) {
    const bool is_first = walk_.first_day == 0;
    if (is_first) {
      walk_.first_day = day;
    } else {
      ValueDay(day);
    }
    const Position previous = position_;
    position_ = Decide(day, previous, is_first);
    if (position_ != previous || day == test_.end_day) {
      Switch(day, previous);
    }
    if (log_ != nullptr) {
      log_->curve.push_back({day, walk_.equity});
    }
  }

  void ValueDay(int day) {
    const double base = walk_.base;
    walk_.equity = static_cast<float>(base * Price(position_, day) / Price(position_, entry_day_));
    if (walk_.equity > walk_.peak) {
      walk_.peak = walk_.equity;
    }
    if (walk_.peak == 0.0F) {
      return;
    }
    const double equity = walk_.equity;
    const double peak = walk_.peak;
    const double ratio = equity / peak;
    if (ratio < static_cast<double>(walk_.lowest_ratio)) {
      walk_.lowest_ratio = static_cast<float>(ratio);
      walk_.lowest_day = day;
    }
    const double below = (equity - peak) * 100.0 / peak;
    walk_.ulcer_sum = static_cast<float>(static_cast<double>(walk_.ulcer_sum) + below * below);
  }

  void Switch(int day, Position previous) {
    const int switch_day = test_.SwitchDay(day);
    if (previous != Position::kNone) {
      CloseTrade(switch_day, previous);
    }
    ++walk_.switches;
    walk_.wins += trade_ratio_ > 1.0F ? 1 : 0;
    if (position_ != previous && position_ != composite_) {
      composite_ = position_;
      LogSignal(day);
    }
    entry_day_ = switch_day;
  }

  void CloseTrade(int switch_day, Position held) {
    trade_ratio_ = static_cast<float>(Price(held, switch_day) / Price(held, entry_day_));
    walk_.base = walk_.base * trade_ratio_;
    if (log_ != nullptr) {
      log_->trades.push_back({entry_day_, switch_day, trade_ratio_});
    }
  }

  void VisitUnpricedDay(int day) {
    const Position previous = composite_;
    composite_ = Decide(day, previous, day == 1);
    if (composite_ != Position::kNone && (composite_ != previous || day == test_.start_day)) {
      LogSignal(day);
    }
  }

  void LogSignal(int day) {
    if (log_ != nullptr) {
      log_->composite.push_back({day, composite_ == Position::kIn});
    }
  }

  const SignalMarket& market_;
  const SignalTest& test_;
  const SignalThresholds& thresholds_;
  CaseLog* log_;
  CaseWalk walk_;
  Position position_ = Position::kNone;
  Position composite_ = Position::kNone;  ///< of the composite signal's last line
  int entry_day_ = 0;
  float trade_ratio_ = 1.0F;  ///< of the trade closed last
};

}  // namespace

CaseWalk WalkCase(const SignalMarket& market,
                  const SignalTest& test,
                  const SignalThresholds& thresholds,
                  CaseLog* log) {
  return Simulation(market, test, thresholds, log).Run();
}

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
