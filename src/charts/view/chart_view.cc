#include "charts/view/chart_view.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "charts/view/palette.h"

namespace vistaplot {
namespace {

constexpr double kTitleSize = 12.0;  // points, where a builder states none

}  // namespace

ChartDataPoint& ChartDataPoints::Item(int point) {
  if (items.empty() || items.back().first < point) {
    return items.emplace_back(point, ChartDataPoint{}).second;
  }
  const auto place = std::lower_bound(
      items.begin(), items.end(), point, [](const auto& item, int p) { return item.first < p; });
  if (place->first == point) return place->second;
  return items.insert(place, {point, ChartDataPoint{}})->second;
}

void ChartView::ToDefaults() {
  ChartType = kChartCombination;
  TitleText.clear();
  title = {};
  title.VtFont.Size = kTitleSize;
  Legend = {};
  Footnote = {};
  WhyEmpty.clear();
  Plot = {};
  facts = {};
  row_count_ = 0;
  column_count_ = 0;
  row_ = 1;
  column_ = 1;
  row_labels_.Resize(0);
  column_labels_.Resize(0);
}

void ChartView::rowcount(int rows) {
  row_count_ = std::max(rows, 0);
  const auto size = static_cast<std::size_t>(row_count_);
  for (int c = 0; c < column_count_; ++c) data_[static_cast<std::size_t>(c)].resize(size, kEmpty);
  row_labels_.Resize(row_count_);
}

void ChartView::ColumnCount(int columns) {
  const auto size = static_cast<std::size_t>(std::max(columns, 0));
  if (data_.size() < size) data_.resize(size);
  for (auto c = static_cast<std::size_t>(column_count_); c < size; ++c) {
    data_[c].assign(static_cast<std::size_t>(row_count_), kEmpty);
  }
  column_count_ = std::max(columns, 0);
  column_labels_.Resize(column_count_);
  if (Plot.SeriesCollection.size() > size) Plot.SeriesCollection.resize(size);
  while (Plot.SeriesCollection.size() < size) {
    ChartSeries& series = Plot.SeriesCollection.emplace_back();
    series.Pen.VtColor = DefaultSeriesColor(static_cast<int>(Plot.SeriesCollection.size()));
  }
}

void ChartView::SetColumnLabel(int column, std::string_view text) {
  if (column < 1 || column > column_count_) return;
  column_labels_.Set(column, text);
}

std::string ChartView::RowLabelAt(int row) const {
  if (row < 1 || row > row_count_) return {};
  return row_labels_.At(row);
}

std::string ChartView::ColumnLabelAt(int column) const {
  if (column < 1 || column > column_count_) return {};
  return column_labels_.At(column);
}

void ChartView::EmptyAllPoints() {
  for (int c = 0; c < column_count_; ++c) {
    std::vector<double>& column = data_[static_cast<std::size_t>(c)];
    std::fill(column.begin(), column.end(), kEmpty);
  }
}

bool ChartView::HasPoint(int row, int column) const {
  return std::isfinite(DataAt(row, column));
}

double ChartView::DataAt(int row, int column) const {
  if (!Inside(row, column)) return kEmpty;
  return data_[static_cast<std::size_t>(column - 1)][static_cast<std::size_t>(row - 1)];
}

const std::vector<double>& ChartView::ColumnData(int column) const {
  return data_.at(static_cast<std::size_t>(column - 1));
}

void ChartView::SuspendRedraw(bool suspend) {
  const bool was_suspended = std::exchange(suspended_, suspend);
  if (was_suspended && !suspend) Refresh();
}

void ChartView::Refresh() {
  if (!suspended_ && changed_) changed_();
}

void ChartLabels::Resize(int count) {
  slots_.resize(static_cast<std::size_t>(count));
  if (slots_.empty()) long_texts_.clear();
}

std::string ChartLabels::At(int number) const {
  const Slot& slot = slots_[static_cast<std::size_t>(number - 1)];
  if (slot.length == kUnset) return letter_ + std::to_string(number);
  if (slot.length != kLong) return {slot.text.data(), slot.length};
  std::size_t index = 0;
  std::memcpy(&index, slot.text.data(), sizeof(index));
  return long_texts_[index];
}

void ChartLabels::SetLong(Slot& slot, std::string_view text) {
  std::size_t index = long_texts_.size();
  if (slot.length == kLong) {
    std::memcpy(&index, slot.text.data(), sizeof(index));
    long_texts_[index] = text;
    return;
  }
  long_texts_.emplace_back(text);
  std::memcpy(slot.text.data(), &index, sizeof(index));
  slot.length = kLong;
}

}  // namespace vistaplot
