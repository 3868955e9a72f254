#include "calc/signal_cases.h"

#include <algorithm>
#include <cmath>

#include "calc/signal_walk.h"

namespace vistaplot {
namespace {

/// Cases that are calculated at a time, so that a run can be stopped and tells how far it is.
constexpr std::size_t kBatch = 16;
/// How far ahead cases are looked for that fill a batch.
constexpr int kLookAhead = 4096;

/// The finite values of `levels`, ascending, each once.
std::vector<double> Occurring(std::vector<double> levels) {
  std::erase_if(levels, [](double level) { return !std::isfinite(level); });
  std::sort(levels.begin(), levels.end());
  levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
  return levels;
}

long long Span(int from, int to) {
  return to < from ? 0 : static_cast<long long>(to) - from + 1;
}

long long SellSpan(const SignalTest& test) {
  return test.two_dimensional ? Span(test.sell_from, test.sell_to) : 1;
}

}  // namespace

long long CountCases(const SignalTest& test) {
  return Span(test.buy_from, test.buy_to) * SellSpan(test);
}

std::optional<std::string> RefuseTest(const SignalMarket& market, const SignalTest& test) {
  const long long cases = CountCases(test);
  if (cases == 0) {
    return "No test case in this range";
  }
  if (cases > kMaxCases) {
    return "The range has " + std::to_string(cases) + " test cases; a test has at most " +
           std::to_string(kMaxCases);
  }
  int first_day = test.start_day;
  while (first_day <= test.end_day && !market.IsPriced(first_day)) {
    ++first_day;
  }
  if (test.start_day < test.end_day && first_day > test.end_day) {
    return "No day on which both funds have a price";
  }
  if (first_day >= test.end_day) {
    return "The test range must span more than one day";
  }
  return std::nullopt;
}

SignalCases::SignalCases(const SignalMarket& market, const SignalTest& test)
    : market_(market),
      test_(test),
      count_(static_cast<int>(CountCases(test))),
      days_(market, test),
      buy_levels_(Occurring(days_.buy_level)),
      sell_levels_(Occurring(days_.sell_level)),
      walks_((buy_levels_.size() + 1) * (sell_levels_.size() + 1)) {}

SignalThresholds SignalCases::Thresholds(int number) const {
  const auto sells = static_cast<int>(SellSpan(test_));
  const int buy = test_.buy_from + (number - 1) / sells;
  return {buy, test_.two_dimensional ? test_.sell_from + (number - 1) % sells : buy};
}

std::size_t SignalCases::ClassOf(const SignalThresholds& thresholds) const {
  const auto buy = std::lower_bound(buy_levels_.begin(), buy_levels_.end(), thresholds.buy);
  const auto sell = std::upper_bound(sell_levels_.begin(), sell_levels_.end(), thresholds.sell);
  return static_cast<std::size_t>(buy - buy_levels_.begin()) * (sell_levels_.size() + 1) +
         static_cast<std::size_t>(sell - sell_levels_.begin());
}

const CaseWalk& SignalCases::Walk(int number) {
  std::optional<CaseWalk>& walk = walks_[ClassOf(Thresholds(number))];
  if (!walk) {
    WalkFrom(number);
  }
  return *walk;
}

void SignalCases::WalkFrom(int number) {
  std::vector<std::size_t> classes;
  std::vector<SignalThresholds> thresholds;
  const int last = number + std::min(kLookAhead, count_ - number);
  for (; number <= last && classes.size() < kBatch; ++number) {
    const SignalThresholds pair = Thresholds(number);
    const std::size_t pair_class = ClassOf(pair);
    if (!walks_[pair_class] && std::ranges::find(classes, pair_class) == classes.end()) {
      classes.push_back(pair_class);
      thresholds.push_back(pair);
    }
  }
  if (days_.are_plain) {
    Keep(classes, WalkCases(days_, thresholds));
    return;
  }
  std::vector<CaseWalk> walks;
  for (const SignalThresholds& pair : thresholds) {
    walks.push_back(WalkCase(market_, test_, pair, nullptr));
  }
  Keep(classes, walks);
}

void SignalCases::Keep(const std::vector<std::size_t>& classes,
                       const std::vector<CaseWalk>& walks) {
  for (std::size_t i = 0; i < classes.size(); ++i) {
    walks_[classes[i]] = walks[i];
  }
}

}  // namespace vistaplot
