#include "calc/signal_lanes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace vistaplot {
namespace {

constexpr double kLowestPlainPrice = 1e-15;
constexpr double kHighestPlainPrice = 1e15;
constexpr double kNever = std::numeric_limits<double>::infinity();

bool IsPlain(double price) {
  return price >= kLowestPlainPrice && price <= kHighestPlainPrice;
}

/// One number of each of `kLanes` cases, in one register.
template <std::size_t kLanes>
struct Lanes {
  static constexpr std::size_t kBytes = kLanes * sizeof(double);
  typedef double Doubles __attribute__((vector_size(kBytes)));
  typedef float Floats __attribute__((vector_size(kBytes / 2)));
  typedef std::int64_t Ints __attribute__((vector_size(kBytes)));
};

/// Cases side by side; floats of CaseWalk are held as doubles of the same value.
template <std::size_t kLanes>
struct CaseLanes {
  using Doubles = typename Lanes<kLanes>::Doubles;
  using Ints = typename Lanes<kLanes>::Ints;

  Doubles buy, sell;                                 ///< thresholds
  Doubles equity, base, entry, peak, lowest, ulcer;  ///< entry: price of the fund held
  Ints is_in, lowest_day, switches, wins;            ///< is_in: all bits set or none
};

/// Rounds to single precision.
template <std::size_t kLanes>
[[gnu::always_inline]] inline void RoundToSingle(typename Lanes<kLanes>::Doubles& value) {
  value = __builtin_convertvector(__builtin_convertvector(value, typename Lanes<kLanes>::Floats),
                                  typename Lanes<kLanes>::Doubles);
}

template <std::size_t kLanes>
[[gnu::always_inline]] inline bool AnySet(const typename Lanes<kLanes>::Ints& mask) {
  std::int64_t any = 0;
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    any |= mask[lane];
  }
  return any != 0;
}

/// The position after day `i`.
template <std::size_t kLanes>
[[gnu::always_inline]] inline void Decide(const PricedDays& days,
                                          std::size_t i,
                                          const CaseLanes<kLanes>& state,
                                          typename Lanes<kLanes>::Ints& next) {
  const auto buys = days.buy_level[i] >= state.buy;
  const auto sells = days.sell_level[i] <= state.sell;
  next = buys | (state.is_in & ~sells);
}

/// Takes the new low of the lanes in `lower`.
template <std::size_t kLanes>
[[gnu::always_inline]] inline void TakeLow(CaseLanes<kLanes>& state,
                                           const typename Lanes<kLanes>::Ints& lower,
                                           int day) {
  typename Lanes<kLanes>::Doubles ratio = state.equity / state.peak;
  RoundToSingle<kLanes>(ratio);
  state.lowest = lower ? ratio : state.lowest;
  state.lowest_day = lower ? day - typename Lanes<kLanes>::Ints{} : state.lowest_day;
}

/// Closes the trade of the lanes in `changed` and enters the fund of `next`.
template <std::size_t kLanes>
[[gnu::always_inline]] inline void Switch(CaseLanes<kLanes>& state,
                                          const typename Lanes<kLanes>::Ints& changed,
                                          const typename Lanes<kLanes>::Ints& next,
                                          double in_price,
                                          double out_price) {
  using Doubles = typename Lanes<kLanes>::Doubles;
  const Doubles in = in_price - Doubles{};
  const Doubles out = out_price - Doubles{};
  Doubles ratio = (state.is_in ? in : out) / state.entry;
  RoundToSingle<kLanes>(ratio);
  Doubles base = state.base * ratio;
  RoundToSingle<kLanes>(base);
  state.base = changed ? base : state.base;
  state.entry = changed ? (next ? in : out) : state.entry;
  state.switches -= changed;
  state.wins -= changed & (ratio > 1.0);
}

template <std::size_t kLanes>
[[gnu::always_inline]] inline void Begin(const PricedDays& days, CaseLanes<kLanes>& state) {
  using Doubles = typename Lanes<kLanes>::Doubles;
  Decide<kLanes>(days, 0, state, state.is_in);
  const Doubles in = days.in_at_switch[0] - Doubles{};
  const Doubles out = days.out_at_switch[0] - Doubles{};
  state.entry = state.is_in ? in : out;
  state.switches += 1;
}

template <std::size_t kLanes>
[[gnu::always_inline]] inline void WalkBlock(const PricedDays& days, CaseLanes<kLanes>& result) {
  using Doubles = typename Lanes<kLanes>::Doubles;
  using Ints = typename Lanes<kLanes>::Ints;
  CaseLanes<kLanes> state = result;  // a copy that stays in registers
  Begin<kLanes>(days, state);
  for (std::size_t i = 1; i < days.days.size(); ++i) {
    const Doubles in = days.in_prices[i] - Doubles{};
    const Doubles out = days.out_prices[i] - Doubles{};
    state.equity = state.base * (state.is_in ? in : out) / state.entry;
    RoundToSingle<kLanes>(state.equity);
    state.peak = state.equity > state.peak ? state.equity : state.peak;
    const Ints lower = state.equity < state.lowest * state.peak;
    const Doubles below = (state.equity - state.peak) * 100.0 / state.peak;
    state.ulcer += below * below;
    RoundToSingle<kLanes>(state.ulcer);
    Ints next;
    Decide<kLanes>(days, i, state, next);
    const Ints changed = days.days[i] == days.end_day ? ~Ints{} : next ^ state.is_in;
    if (AnySet<kLanes>(lower | changed)) {
      TakeLow<kLanes>(state, lower, days.days[i]);
      Switch<kLanes>(state, changed, next, days.in_at_switch[i], days.out_at_switch[i]);
      state.is_in = next;
    }
  }
  result = state;
}

void WalkTwo(const PricedDays& days, CaseLanes<2>& state) {
  WalkBlock<2>(days, state);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void WalkFour(const PricedDays& days, CaseLanes<4>& state) {
  WalkBlock<4>(days, state);
}
#endif

/// One lane as it is before its first day.
template <std::size_t kLanes>
void SetLane(CaseLanes<kLanes>& lanes, std::size_t lane, const SignalThresholds& thresholds) {
  const CaseWalk start;
  lanes.buy[lane] = thresholds.buy;
  lanes.sell[lane] = thresholds.sell;
  lanes.equity[lane] = static_cast<double>(start.equity);
  lanes.base[lane] = static_cast<double>(start.base);
  lanes.peak[lane] = static_cast<double>(start.peak);
  lanes.lowest[lane] = static_cast<double>(start.lowest_ratio);
}

template <std::size_t kLanes>
CaseWalk WalkOfLane(const CaseLanes<kLanes>& lanes, std::size_t lane, int first_day) {
  return {.equity = static_cast<float>(lanes.equity[lane]),
          .base = static_cast<float>(lanes.base[lane]),
          .peak = static_cast<float>(lanes.peak[lane]),
          .lowest_ratio = static_cast<float>(lanes.lowest[lane]),
          .ulcer_sum = static_cast<float>(lanes.ulcer[lane]),
          .lowest_day = static_cast<int>(lanes.lowest_day[lane]),
          .first_day = first_day,
          .switches = static_cast<int>(lanes.switches[lane]),
          .wins = static_cast<int>(lanes.wins[lane])};
}

/// Walks all cases, kLanes at a time, with `walk_block`. Lanes beyond the last case repeat it.
template <std::size_t kLanes, class Block>
std::vector<CaseWalk> WalkAll(const PricedDays& days,
                              std::span<const SignalThresholds> thresholds,
                              Block walk_block) {
  if (days.days.empty()) {
    return std::vector<CaseWalk>(thresholds.size());
  }
  std::vector<CaseWalk> walks;
  walks.reserve(thresholds.size());
  for (std::size_t first = 0; first < thresholds.size(); first += kLanes) {
    CaseLanes<kLanes> lanes{};
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      SetLane(lanes, lane, thresholds[std::min(first + lane, thresholds.size() - 1)]);
    }
    walk_block(days, lanes);
    for (std::size_t lane = 0; lane < kLanes && walks.size() < thresholds.size(); ++lane) {
      walks.push_back(WalkOfLane(lanes, lane, days.days.front()));
    }
  }
  return walks;
}

}  // namespace

PricedDays::PricedDays(const SignalMarket& market, const SignalTest& test) : end_day(test.end_day) {
  for (int day = test.start_day; day <= test.end_day; ++day) {
    if (market.IsPriced(day)) {
      Add(market, test, day);
    }
  }
}

void PricedDays::Add(const SignalMarket& market, const SignalTest& test, int day) {
  const int switch_day = test.SwitchDay(day);
  const double count = market.CountOf(day);
  const bool may_buy = !test.two_dimensional || market.Rises(day);
  const bool must_leave = !test.two_dimensional || days.empty();
  days.push_back(day);
  in_prices.push_back(market.InPrice(day));
  out_prices.push_back(market.OutPrice(day));
  in_at_switch.push_back(market.InPrice(switch_day));
  out_at_switch.push_back(market.OutPrice(switch_day));
  buy_level.push_back(may_buy ? count : -kNever);
  sell_level.push_back(must_leave ? -kNever : market.Falls(day) ? count : kNever);
  are_plain = are_plain && IsPlain(in_prices.back()) && IsPlain(out_prices.back()) &&
              IsPlain(in_at_switch.back()) && IsPlain(out_at_switch.back());
}

std::vector<CaseWalk> WalkCases(const PricedDays& days,
                                std::span<const SignalThresholds> thresholds) {
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2")) {
    return WalkAll<4>(days, thresholds, WalkFour);
  }
#endif
  return WalkCasesByTwos(days, thresholds);
}

std::vector<CaseWalk> WalkCasesByTwos(const PricedDays& days,
                                      std::span<const SignalThresholds> thresholds) {
  return WalkAll<2>(days, thresholds, WalkTwo);
}

}  // namespace vistaplot
