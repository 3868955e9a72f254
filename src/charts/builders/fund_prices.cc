#include "charts/builders/fund_prices.h"

#include <cstddef>

namespace vistaplot {

FundPrices::FundPrices(const Sheet& prices, int table_column, int first_day, int chart_days)
    : history_(first_day - 1) {
  const int days = history_ + chart_days;
  const auto count = static_cast<std::size_t>(days);
  const std::span<const float> block = prices.PriceBlock(table_column);
  if (block.size() >= count) {
    values_ = block.first(count);
  } else {
    copy_ = prices.ColumnSingles(table_column, 2, days);
    values_ = copy_;
  }
}

}  // namespace vistaplot
