#include "calc/signal_run.h"

#include <array>
#include <cmath>
#include <string_view>

#include "calc/signal_cases.h"
#include "calc/signal_sheets.h"
#include "calc/signal_walk.h"
#include "formats/detail_file.h"
#include "formats/summary_file.h"

namespace vistaplot {
namespace {

constexpr int kHeadingRows = 2;

/// What the columns of the summary sheet mean, in their order. "First day": the first one of the
/// range on which both funds have a price.
constexpr std::array<std::string_view, kSummaryFields.size()> kSumTips = {
    "Number of the test case",
    "Bought at so many signals in the market",
    "Sold at so many signals in the market",
    "Annual gain in percent: (end value ^ (1 / years) - 1) x 100; years are calendar days from the "
    "first day to the end day / 365",
    "Switches / years; the first position and the close on the end day count as switches",
    "Maximum draw-down: largest fall below an earlier high, in percent of it",
    "Day of the lowest point of the maximum draw-down",
    "Ulcer index: root of (sum of the squared falls below the high in percent / market days from "
    "the first day to the end day)",
    "Ulcer performance index: (ANN % - 5.4) / UI; 0 where UI is 0",
    "Trades that gained x 100 / switches"};

/// A figure that is not finite in single precision is undefined and shows 0, as in the summary of a
/// family: a gain of one day, counted as a year's, may have no end.
double Shown(double figure) {
  return std::isfinite(static_cast<float>(figure)) ? figure : 0.0;
}

SummaryRecord RecordOf(int number,
                       const SignalThresholds& thresholds,
                       const CaseStatistics& statistics) {
  return {.case_number = number,
          .buy_signals = thresholds.buy,
          .sell_signals = thresholds.sell,
          .annual_percent = Shown(statistics.annual_percent),
          .switches_per_year = statistics.switches_per_year,
          .draw_down_percent = statistics.drawdown_percent,
          .draw_down_date = statistics.drawdown_date > 0
                                ? std::optional<DateSerial>(statistics.drawdown_date)
                                : std::nullopt,
          .ulcer_index = statistics.ulcer_index,
          .ulcer_performance = Shown(statistics.ulcer_performance),
          .winners_percent = statistics.percent_winners};
}

class Run {
 public:
  Run(const SignalData& data, const SignalTest& test, const SignalTargets& targets)
      : market_(data.Market()), test_(test), targets_(targets), cases_(market_, test_) {}

  SignalOutcome Execute(Progress& progress) {
    SignalOutcome outcome{.finished = 0, .cases = cases_.Count(), .error = {}};
    for (int number = 1; number <= outcome.cases && !outcome.error; ++number) {
      outcome.error = RunCase(number);
      if (outcome.error) break;
      outcome.finished = number;
      progress.ShowMeter(100.0 * number / outcome.cases);
      if (number < outcome.cases && progress.StopWanted()) break;
    }
    Finish(outcome.finished);
    return outcome;
  }

 private:
  std::optional<RuntimeError> RunCase(int number) {
    const SignalThresholds thresholds = cases_.Thresholds(number);
    CaseLog log;
    const bool wants_log = targets_.wants_detail || targets_.files.WantLog();
    const CaseWalk walk =
        wants_log ? WalkCase(market_, test_, thresholds, &log) : cases_.Walk(number);
    if (auto fault = FaultOf(walk, market_, test_)) return fault;
    const auto texts =
        TextsOf(RecordOf(number, thresholds, ComputeStatistics(walk, market_, test_)));
    sum_.SetRow(number + kHeadingRows, texts);
    targets_.files.AddSummary(texts);
    targets_.files.AddSignals(log, market_);
    targets_.files.AddCurve(log, market_);
    if (targets_.wants_detail) AddTrades(TextsOfTrades(log, thresholds, market_));
    const Status spilt = targets_.files.Spill();
    return spilt ? std::nullopt : std::optional(spilt.Error());
  }

  void AddTrades(const std::vector<TradeTexts>& trades) {
    ++detail_row_;  // the first position closes no trade but takes a row
    for (const TradeTexts& texts : trades) {
      detail_.SetRow(detail_row_ + kHeadingRows, texts);
      ++detail_row_;
    }
    targets_.files.AddTrades(trades);
  }

  void Finish(int finished) {
    DataTable& table = targets_.table;
    Sheet& sum = table.SheetAt(kSumSheet);
    sum_.Write(sum);
    sum.heading_tips.assign(kSumTips.begin(), kSumTips.end());
    table.NotifyContent(kSumSheet);
    if (targets_.wants_detail) {
      detail_.Write(table.SheetAt(kDetailSheet));
      table.NotifyContent(kDetailSheet);
    }
    if (finished == 0) return;
    CaseLog last;
    WalkCase(market_, test_, cases_.Thresholds(finished), &last);
    WriteGains(last.curve, table);
  }

  SignalMarket market_;
  const SignalTest& test_;
  const SignalTargets& targets_;
  SignalCases cases_;
  TextSheet sum_{kSummaryFields};
  TextSheet detail_{kDetailFields};
  int detail_row_ = 0;
};

}  // namespace

SignalOutcome RunSignalTest(const SignalData& data,
                            const SignalTest& test,
                            const SignalTargets& targets,
                            Progress& progress) {
  return Run(data, test, targets).Execute(progress);
}

}  // namespace vistaplot
