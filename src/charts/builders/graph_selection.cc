#include "charts/builders/graph_selection.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace vistaplot {

namespace {

constexpr int kFirstFundColumn = 2;  // column 1 holds the dates
constexpr std::size_t kCorrelatedFunds = 2;
constexpr std::size_t kMostEntries = std::numeric_limits<std::int16_t>::max();

void AppendRange(const Sheet& prices,
                 const CellRange& range,
                 SelectionUse use,
                 std::vector<std::int16_t>& columns) {
  const int first = std::max(range.SelStartCol, kFirstFundColumn);
  const int last = std::min(range.SelEndCol, prices.MaxCol);
  for (int column = first; column <= last && columns.size() < kMostEntries; ++column) {
    columns.push_back(static_cast<std::int16_t>(column));
    if (use == SelectionUse::kCorrelation && columns.size() >= kCorrelatedFunds) return;
  }
}

}  // namespace

int GraphSelection::ColumnOf(int position) const {
  if (position < 1 || position > static_cast<int>(SelectedColumns.size())) return 0;
  return SelectedColumns[static_cast<std::size_t>(position - 1)];
}

bool NeedsSelection(const GraphSelection& selection, bool reselect) {
  return reselect || selection.SelectedCount == 0 || selection.CurrentFund == 0;
}

std::string ReadGraphSelection(const Sheet& prices, SelectionUse use, GraphSelection& selection) {
  selection.SelectedColumns.clear();
  for (const CellRange& range : prices.selection) {
    AppendRange(prices, range, use, selection.SelectedColumns);
  }
  selection.SelectedCount = static_cast<std::int16_t>(selection.SelectedColumns.size());
  if (selection.SelectedCount == 0) return "Please select a fund on the Graph Data tab";
  if (use == SelectionUse::kCorrelation && selection.SelectedColumns.size() < kCorrelatedFunds) {
    return std::string(kTwoFundsNeeded);
  }
  selection.CurrentFund = 1;
  return {};
}

std::int16_t SteppedFund(const GraphSelection& selection, int step) {
  const int position = selection.CurrentFund + step;
  if (position > selection.SelectedCount) return 1;
  return position < 1 ? selection.SelectedCount : static_cast<std::int16_t>(position);
}

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
