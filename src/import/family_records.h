// The price histories of a family's issues, side by side, as the family calculations read them.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "base/dialogs.h"
#include "base/progress.h"
#include "marketdata/market_data.h"
#include "marketdata/quoteline_api.h"

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

}  // namespace vistaplot
