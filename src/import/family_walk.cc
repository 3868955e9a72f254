#include "import/family_walk.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <utility>

#include "base/lanes.h"

namespace vistaplot {
namespace {

/// The walks of `kLanes` issues side by side; the members are those of GrowthWalk.
template <std::size_t kLanes>
struct WalkLanes {
  typename Lanes<kLanes>::Floats growth, peak, lowest_ratio, square_sum;
  typename Lanes<kLanes>::Ints lowest_day, first_used;
};

/// The first used day of one issue from `day` on; `end_day` + 1 when there is none.
int FirstUsedDay(std::span<const float> prices, int day, int end_day) {
  for (; day <= end_day; ++day) {
    const float before = prices[static_cast<std::size_t>(day - 1)];
    if (before > 0.0F && prices[static_cast<std::size_t>(day)] != before) {
      break;
    }
  }
  return day;
}

/// a[0], b[0], a[1], b[1], ... of the first or the second half of the lanes of `a` and `b`.
template <bool kSecondHalf, class Floats, std::size_t... kLane>
[[gnu::always_inline]] inline void Interleave(Floats& result,
                                              const Floats& a,
                                              const Floats& b,
                                              std::index_sequence<kLane...> /*lanes*/) {
  constexpr std::size_t kCount = sizeof...(kLane);
  result = __builtin_shufflevector(
      a, b, (kLane / 2 + kLane % 2 * kCount + (kSecondHalf ? kCount / 2 : 0))...);
}

/// Rows of an issue each become rows of a day each: log2(kLanes) perfect shuffles.
template <std::size_t kLanes>
[[gnu::always_inline]] inline void Transpose(
    std::array<typename Lanes<kLanes>::Floats, kLanes>& rows) {
  constexpr std::make_index_sequence<kLanes> kAll;
  for (std::size_t round = 1; round < kLanes; round *= 2) {
    const auto before = rows;
    for (std::size_t j = 0; j < kLanes / 2; ++j) {
      Interleave<false>(rows[2 * j], before[j], before[j + kLanes / 2], kAll);
      Interleave<true>(rows[2 * j + 1], before[j], before[j + kLanes / 2], kAll);
    }
  }
}

/// One day of every lane. With `kAllUsed` false, lanes whose first used day is still to come stay
/// as they are.
template <std::size_t kLanes, bool kAllUsed>
[[gnu::always_inline]] inline void Step(WalkLanes<kLanes>& walk,
                                        const typename Lanes<kLanes>::Floats& before,
                                        const typename Lanes<kLanes>::Floats& price,
                                        int day) {
  const auto ratio = price / before;
  const auto growth = walk.growth * ratio;
  const auto peak = growth > walk.peak ? growth : walk.peak;
  const auto of_peak = growth / peak;
  const auto lower = of_peak < walk.lowest_ratio;
  const auto lowest_ratio = lower ? of_peak : walk.lowest_ratio;
  const auto lowest_day = lower ? day - typename Lanes<kLanes>::Ints{} : walk.lowest_day;
  const auto below_peak = (growth - peak) * 100.0F / peak;
  const auto square_sum = walk.square_sum + below_peak * below_peak;
  if constexpr (kAllUsed) {
    walk.growth = growth;
    walk.peak = peak;
    walk.lowest_ratio = lowest_ratio;
    walk.lowest_day = lowest_day;
    walk.square_sum = square_sum;
  } else {
    const auto used = walk.first_used <= day;
    walk.growth = used ? growth : walk.growth;
    walk.peak = used ? peak : walk.peak;
    walk.lowest_ratio = used ? lowest_ratio : walk.lowest_ratio;
    walk.lowest_day = used ? lowest_day : walk.lowest_day;
    walk.square_sum = used ? square_sum : walk.square_sum;
  }
}

/// Prices of kLanes issues on `count` <= kLanes days from `day` on, a day each in `days`; days
/// behind them hold the last one.
template <std::size_t kLanes>
[[gnu::always_inline]] inline void ReadDays(
    const std::array<const float*, kLanes>& rows,
    int day,
    int count,
    std::array<typename Lanes<kLanes>::Floats, kLanes>& days) {
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    if (count == static_cast<int>(kLanes)) {
      std::memcpy(&days[lane], rows[lane] + day, sizeof(days[lane]));
    } else {
      for (std::size_t j = 0; j < kLanes; ++j) {
        days[lane][j] = rows[lane][day + std::min(static_cast<int>(j), count - 1)];
      }
    }
  }
  Transpose<kLanes>(days);
}

/// Days `first_day` to `end_day` of the issues whose prices `rows` point to (index = market day).
template <std::size_t kLanes>
[[gnu::always_inline]] inline void WalkBlock(const std::array<const float*, kLanes>& rows,
                                             int first_day,
                                             int end_day,
                                             WalkLanes<kLanes>& result) {
  WalkLanes<kLanes> walk = result;  // a copy that stays in registers
  int all_used_from = first_day;
  typename Lanes<kLanes>::Floats before{};
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    all_used_from = std::max(all_used_from, static_cast<int>(walk.first_used[lane]));
    before[lane] = rows[lane][first_day - 1];
  }
  std::array<typename Lanes<kLanes>::Floats, kLanes> days;
  for (int day = first_day; day <= end_day; day += static_cast<int>(kLanes)) {
    const int count = std::min(static_cast<int>(kLanes), end_day - day + 1);
    ReadDays<kLanes>(rows, day, count, days);
    if (count == static_cast<int>(kLanes) && day >= all_used_from) {
      for (std::size_t j = 0; j < kLanes; ++j) {
        Step<kLanes, true>(walk, before, days[j], day + static_cast<int>(j));
        before = days[j];
      }
    } else {
      for (std::size_t j = 0; j < static_cast<std::size_t>(count); ++j) {
        Step<kLanes, false>(walk, before, days[j], day + static_cast<int>(j));
        before = days[j];
      }
    }
  }
  result = walk;
}

void WalkFour(const std::array<const float*, 4>& rows, int first, int end, WalkLanes<4>& walk) {
  WalkBlock<4>(rows, first, end, walk);
}

/// One lane as it is before its first used day.
template <std::size_t kLanes>
void SetLane(WalkLanes<kLanes>& lanes, std::size_t lane, int first_used) {
  const GrowthWalk start;
  lanes.growth[lane] = start.growth;
  lanes.peak[lane] = start.peak;
  lanes.lowest_ratio[lane] = start.lowest_ratio;
  lanes.square_sum[lane] = start.square_sum;
  lanes.lowest_day[lane] = start.lowest_day;
  lanes.first_used[lane] = first_used;
}

template <std::size_t kLanes>
GrowthWalk WalkOfLane(const WalkLanes<kLanes>& lanes, std::size_t lane, int end_day) {
  const int first_used = lanes.first_used[lane];
  return {.growth = lanes.growth[lane],
          .peak = lanes.peak[lane],
          .lowest_ratio = lanes.lowest_ratio[lane],
          .square_sum = lanes.square_sum[lane],
          .first = first_used <= end_day ? first_used - 1 : 0,
          .lowest_day = lanes.lowest_day[lane]};
}

/// Walks all records, kLanes at a time, with `walk_block`. Lanes beyond the last record repeat it.
template <std::size_t kLanes, class Block>
std::vector<GrowthWalk> WalkAll(const FamilyRecords& records,
                                int begin_day,
                                int end_day,
                                Block walk_block) {
  const int first_day = begin_day + 2;
  const auto count = static_cast<std::size_t>(records.Count());
  if (end_day < first_day) {
    return std::vector<GrowthWalk>(count);
  }
  std::vector<GrowthWalk> walks;
  walks.reserve(count);
  for (int k = 1; k <= records.Count(); k += static_cast<int>(kLanes)) {
    std::array<const float*, kLanes> rows{};
    WalkLanes<kLanes> lanes{};
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      const std::span<const float> prices =
          records.Prices(std::min(k + static_cast<int>(lane), records.Count()));
      rows[lane] = prices.data();
      SetLane(lanes, lane, FirstUsedDay(prices, first_day, end_day));
    }
    walk_block(rows, first_day, end_day, lanes);
    for (std::size_t lane = 0; lane < kLanes && walks.size() < count; ++lane) {
      walks.push_back(WalkOfLane(lanes, lane, end_day));
    }
  }
  return walks;
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void WalkEight(const std::array<const float*, 8>& rows,
                                       int first,
                                       int end,
                                       WalkLanes<8>& walk) {
  WalkBlock<8>(rows, first, end, walk);
}
#endif

}  // namespace

std::vector<GrowthWalk> WalkGrowth(const FamilyRecords& records, int begin_day, int end_day) {
#if defined(__x86_64__)
  if (BestLaneForm() == LaneForm::kEight) {
    return WalkAll<8>(records, begin_day, end_day, WalkEight);
  }
#endif
  return WalkGrowthByFours(records, begin_day, end_day);
}

std::vector<GrowthWalk> WalkGrowthByFours(const FamilyRecords& records,
                                          int begin_day,
                                          int end_day) {
  return WalkAll<4>(records, begin_day, end_day, WalkFour);
}

}  // namespace vistaplot
