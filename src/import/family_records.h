// The price histories of a family's issues, side by side, as the family calculations read them.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "base/dialogs.h"
#include "marketdata/market_data.h"
#include "marketdata/quoteline_library.h"

namespace vistaplot {

/// Market days that a record holds at most.
inline constexpr int kMaxFamilyDays = 12000;

/// Records count from 1, as market days do. All prices lie in one block, record after record, and
/// its memory is kept from one family to the next.
class FamilyRecords {
 public:
  /// Makes room for `count` records of `days` days; what they held is lost.
  void Resize(int count, int days);

  int Count() const { return count_; }
  int Days() const { return days_; }

  /// 5 characters, padded with blanks.
  std::string& Symbol(int k) { return symbols_[Index(k)]; }
  const std::string& Symbol(int k) const { return symbols_[Index(k)]; }

  /// 40 characters, padded with blanks.
  std::string& Name(int k) { return names_[Index(k)]; }
  const std::string& Name(int k) const { return names_[Index(k)]; }

  /// Days() + 1 prices, index = market day (0 unused); kNoPrice before the first day.
  std::span<float> Prices(int k) { return {prices_.data() + Index(k) * stride_, RowLength()}; }
  std::span<const float> Prices(int k) const {
    return {prices_.data() + Index(k) * stride_, RowLength()};
  }

 private:
  static std::size_t Index(int k) { return static_cast<std::size_t>(k - 1); }
  std::size_t RowLength() const { return static_cast<std::size_t>(days_) + 1; }

  int count_ = 0;
  int days_ = 0;
  std::size_t stride_ = 0;
  std::vector<std::string> symbols_;
  std::vector<std::string> names_;
  std::vector<float> prices_;
};

/// True when the calendar's histories fit into records; else says how many days are too many.
[[nodiscard]] bool FitsFamilyRecords(const MarketCalendar& calendar, Dialogs& dialogs);

/// Fetches symbol, name and history of each issue, record k from symbols[k - 1]. Failures are
/// reported issue by issue (see FetchHistoryOrReport). The calendar must fit into records. Ends
/// with the meter at 100.
void FillFamilyRecords(QuotelineApi& api,
                       MarketData& market,
                       std::span<const std::string> symbols,
                       FamilyRecords& records,
                       Dialogs& dialogs,
                       Progress& progress);

// Growth and draw-down of every issue of a family over a window of days. Prices in, numbers out.

/// What one issue did from its first used day to the end day; single precision at every step.
struct GrowthWalk {
  float growth = 1.0F;           ///< W: value at the end of 1 unit at day `first`
  float peak = -9999.0F;         ///< P: highest W of a used day
  float lowest_ratio = 9999.0F;  ///< m: lowest W / P of a used day; 9999 when no day was used
  float square_sum = 0.0F;       ///< S: sum of ((W - P) x 100 / P) squared, percent squared
  int first = 0;                 ///< market day before the first used one; 0 when no day was used
  int lowest_day = 0;            ///< market day of m; 0 when there is none
};

/// Walks every record from market day `begin_day` + 2 to `end_day` (both within 1 to Days()).
///
/// A day i is used from the first one on whose price differs from a positive price of the day
/// before. Of a used day: W = W p(i) / p(i-1) (the quotient first); P = W where W > P; m = W / P
/// where that is lower; S = S + ((W - P) x 100 / P)^2. The loss of the first used day is outside
/// the draw-down, as the peak starts there.
///
/// Issues are calculated side by side, days one after the other, so that every result has the bits
/// of the plain loop over one issue.
std::vector<GrowthWalk> WalkGrowth(const FamilyRecords& records, int begin_day, int end_day);

}  // namespace vistaplot
