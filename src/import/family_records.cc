#include "import/family_records.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "base/lanes.h"
#include "base/text.h"
#include "marketdata/service.h"

namespace vistaplot {

namespace {

constexpr std::size_t kSymbolWidth = 5;
constexpr std::size_t kNameWidth = 40;
constexpr int kIssuesPerMeterStep = 64;  // a repaint costs more than reading an issue

}  // namespace

void FamilyRecords::Resize(int count, int days) {
  count_ = count;
  days_ = days;
  stride_ = RowLength();
  const auto records = static_cast<std::size_t>(count);
  symbols_.assign(records, {});
  names_.assign(records, {});
  prices_.resize(records * stride_);
}

bool FitsFamilyRecords(const MarketCalendar& calendar, Dialogs& dialogs) {
  if (calendar.MaxNumDays <= kMaxFamilyDays) {
    return true;
  }
  dialogs.Say("The market-data service holds " + std::to_string(calendar.MaxNumDays) +
              " days; family calculations use at most " + std::to_string(kMaxFamilyDays));
  return false;
}

void FillFamilyRecords(QuotelineApi& api,
                       MarketData& market,
                       std::span<const std::string> symbols,
                       FamilyRecords& records,
                       Dialogs& dialogs,
                       Progress& progress) {
  const int count = static_cast<int>(symbols.size());
  records.Resize(count, market.calendar.MaxNumDays);
  for (int k = 1; k <= count; ++k) {
    const std::string& symbol = symbols[static_cast<std::size_t>(k - 1)];
    records.Symbol(k) = PadRight(symbol, kSymbolWidth);
    FetchHistoryOrReport(api, market, symbol, records.Prices(k), dialogs);
    records.Name(k) = PadRight(IssueName(api, market, symbol), kNameWidth);
    if (k % kIssuesPerMeterStep == 0 || k == count) {
      progress.ShowMeter(100.0 * k / count);
    }
  }
}

namespace {

constexpr std::size_t kLanes = 8;

/// One number of each of eight issues.
using Floats = Lanes<kLanes>::Floats;
using Ints = Lanes<kLanes>::Ints;

/// The walks of eight issues side by side; the members are those of GrowthWalk.
struct WalkLanes {
  Floats growth, peak, lowest_ratio, square_sum;
  Ints lowest_day, first_used;
};

using Rows = std::array<const float*, kLanes>;

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

/// The prices of one day (index = market day).
[[gnu::always_inline]] inline void ReadDay(const Rows& rows, int day, Floats& prices) {
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    prices[lane] = rows[lane][day];
  }
}

/// Days `first_day` to `end_day`. Lanes whose first used day is still to come stay as they are.
[[gnu::always_inline]] inline void WalkDays(const Rows& rows,
                                            int first_day,
                                            int end_day,
                                            WalkLanes& result) {
  WalkLanes walk = result;  // a copy that stays in registers
  Floats before{};
  Floats price{};
  ReadDay(rows, first_day - 1, before);
  for (int day = first_day; day <= end_day; ++day) {
    ReadDay(rows, day, price);
    const Floats growth = walk.growth * (price / before);
    const Floats peak = growth > walk.peak ? growth : walk.peak;
    const Floats of_peak = growth / peak;
    const Floats below_peak = (growth - peak) * 100.0F / peak;
    const Floats square_sum = walk.square_sum + below_peak * below_peak;
    const Ints used = walk.first_used <= day;
    const Ints lower = (of_peak < walk.lowest_ratio) & used;
    walk.growth = used ? growth : walk.growth;
    walk.peak = used ? peak : walk.peak;
    walk.lowest_ratio = lower ? of_peak : walk.lowest_ratio;
    walk.lowest_day = lower ? day - Ints{} : walk.lowest_day;
    walk.square_sum = used ? square_sum : walk.square_sum;
    before = price;
  }
  result = walk;
}

void WalkAnywhere(const Rows& rows, int first_day, int end_day, WalkLanes& walk) {
  WalkDays(rows, first_day, end_day, walk);
}

using Walk = void(const Rows& rows, int first_day, int end_day, WalkLanes& walk);

#if defined(__x86_64__)
/// The same in registers of eight numbers: half the time, and the same bits.
[[gnu::target("avx2")]] void WalkWide(const Rows& rows, int first, int end, WalkLanes& walk) {
  WalkDays(rows, first, end, walk);
}

Walk* BestWalk() {
  return BestLaneForm() == LaneForm::kEight ? WalkWide : WalkAnywhere;
}
#else
Walk* BestWalk() {
  return WalkAnywhere;
}
#endif

/// One lane as it is before its first used day.
void SetLane(WalkLanes& lanes, std::size_t lane, int first_used) {
  const GrowthWalk start;
  lanes.growth[lane] = start.growth;
  lanes.peak[lane] = start.peak;
  lanes.lowest_ratio[lane] = start.lowest_ratio;
  lanes.square_sum[lane] = start.square_sum;
  lanes.lowest_day[lane] = start.lowest_day;
  lanes.first_used[lane] = first_used;
}

GrowthWalk WalkOfLane(const WalkLanes& lanes, std::size_t lane, int end_day) {
  const int first_used = lanes.first_used[lane];
  return {.growth = lanes.growth[lane],
          .peak = lanes.peak[lane],
          .lowest_ratio = lanes.lowest_ratio[lane],
          .square_sum = lanes.square_sum[lane],
          .first = first_used <= end_day ? first_used - 1 : 0,
          .lowest_day = lanes.lowest_day[lane]};
}

}  // namespace

std::vector<GrowthWalk> WalkGrowth(const FamilyRecords& records, int begin_day, int end_day) {
  const int first_day = begin_day + 2;
  const auto count = static_cast<std::size_t>(records.Count());
  if (end_day < first_day) {
    return std::vector<GrowthWalk>(count);
  }
  Walk* const walk_days = BestWalk();
  std::vector<GrowthWalk> walks;
  walks.reserve(count);
  for (int k = 1; k <= records.Count(); k += static_cast<int>(kLanes)) {
    Rows rows{};
    WalkLanes lanes{};
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      // Lanes behind the last record repeat it.
      const std::span<const float> prices =
          records.Prices(std::min(k + static_cast<int>(lane), records.Count()));
      rows[lane] = prices.data();
      SetLane(lanes, lane, FirstUsedDay(prices, first_day, end_day));
    }
    walk_days(rows, first_day, end_day, lanes);
    for (std::size_t lane = 0; lane < kLanes && walks.size() < count; ++lane) {
      walks.push_back(WalkOfLane(lanes, lane, end_day));
    }
  }
  return walks;
}

}  // namespace vistaplot
