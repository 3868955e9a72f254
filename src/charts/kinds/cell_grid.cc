#include "charts/kinds/cell_grid.h"

#include <algorithm>

namespace vistaplot {
namespace {

constexpr int kFewestNeighbours = 3;

}  // namespace

CellGrid::CellGrid(const ChartView& view)
    : rows_(view.rowcount()),
      columns_(view.ColumnCount()),
      values_(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_)) {
  const auto step = static_cast<std::size_t>(columns_);
  for (int column = 1; column <= columns_; ++column) {
    std::size_t at = static_cast<std::size_t>(column - 1);
    for (const double value : view.ColumnData(column)) {
      if (at >= values_.size()) break;
      values_[at] = value;
      at += step;
      if (!std::isfinite(value)) continue;
      lowest_ = filled_ == 0 ? value : std::min(lowest_, value);
      highest_ = filled_ == 0 ? value : std::max(highest_, value);
      ++filled_;
    }
  }
}

int CellGrid::RankOf(double value, bool lower_is_better) const {
  const auto better = [&](double other) {
    return std::isfinite(other) && (lower_is_better ? other < value : other > value);
  };
  return 1 + static_cast<int>(std::count_if(values_.begin(), values_.end(), better));
}

std::optional<double> CellGrid::PlateauOf(GridCell cell) const {
  double sum = 0.0;
  int count = 0;
  const int last_row = std::min(rows_, cell.row + 1);
  const int last_column = std::min(columns_, cell.column + 1);
  for (int row = std::max(1, cell.row - 1); row <= last_row; ++row) {
    for (int column = std::max(1, cell.column - 1); column <= last_column; ++column) {
      if (GridCell{row, column} == cell || !Filled(row, column)) continue;
      sum += At(row, column);
      ++count;
    }
  }
  if (count < kFewestNeighbours) return std::nullopt;
  return sum / count;
}

std::optional<GridCell> CellGrid::BestPlateau(bool lower_is_better) const {
  std::optional<GridCell> best;
  double best_mean = 0.0;
  for (int row = 1; row <= rows_; ++row) {
    for (int column = 1; column <= columns_; ++column) {
      if (!Filled(row, column)) continue;
      const std::optional<double> mean = PlateauOf({row, column});
      if (!mean) continue;
      const bool better = lower_is_better ? *mean < best_mean : *mean > best_mean;
      if (best && !better) continue;
      best = {row, column};
      best_mean = *mean;
    }
  }
  return best;
}

}  // namespace vistaplot
