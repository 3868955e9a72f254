// The chart as the builders see it: settings and data by the names that every builder uses, no
// drawing. charts/layout/layout.h turns a view into lines and texts; a skin or an export replays
// those. Rows (categories) and columns (series) count from 1.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "charts/view/chart_facts.h"
#include "charts/view/chart_settings.h"

namespace vistaplot {

// The labels of a chart's rows or columns.

/// Texts numbered from 1, each a letter and its number ("R1") until it is set. Short ones, such as
/// dates, need no memory of their own: a chart of 12,000 dates is labelled anew at every step of a
/// scroll bar.
class ChartLabels {
 public:
  explicit ChartLabels(char letter) : letter_(letter) {}

  /// How many there are; those that come are not set.
  void Resize(int count);

  /// `number` is 1 to the count.
  void Set(int number, std::string_view text) {
    Slot& slot = slots_[static_cast<std::size_t>(number - 1)];
    if (text.size() > kShort) {
      SetLong(slot, text);
      return;
    }
    std::copy(text.begin(), text.end(), slot.text.begin());
    slot.length = static_cast<std::uint8_t>(text.size());
  }
  std::string At(int number) const;

 private:
  static constexpr std::size_t kShort = 15;
  static constexpr std::uint8_t kUnset = 254;
  static constexpr std::uint8_t kLong = 255;  // the text holds an index into long_texts_

  struct Slot {
    std::array<char, kShort> text{};
    std::uint8_t length = kUnset;
  };

  void SetLong(Slot& slot, std::string_view text);

  char letter_;
  std::vector<Slot> slots_;
  std::vector<std::string> long_texts_;
};

/// A click on a point; setting Cancel suppresses the selection.
struct PointSelection {
  int Series = 0;
  int DataPoint = 0;
  int MouseFlags = 0;
  bool Cancel = false;
};

class ChartView {
 public:
  /// Every setting and all data back to the view's defaults: no rows, no columns.
  void ToDefaults();

  int ChartType = kChartCombination;
  std::string TitleText;
  ChartText title;
  ChartText Legend;
  ChartText Footnote;
  /// What stands in place of a refused chart, or on one without any value. Not part of the dump.
  std::string WhyEmpty;
  ChartPlot Plot;
  ChartFacts facts;

  /// The chart above or below on the same screen: where both have the same rows, their day axes
  /// lie below each other to the pixel. Set by the screen, outlives this view, kept by ToDefaults.
  const ChartView* days_with = nullptr;

  int rowcount() const { return row_count_; }
  int ColumnCount() const { return column_count_; }

  /// Sizes the grid; what stays inside keeps its value, new points are empty, new rows and columns
  /// have default labels ("R1", "C1"), new series default settings with the colour that palette.h
  /// gives their number. Below 0 counts as 0.
  void rowcount(int rows);
  void ColumnCount(int columns);

  /// The row and column that RowLabel and ColumnLabel set; also outside the grid (then ignored).
  void row(int number) { row_ = number; }
  void Column(int number) { column_ = number; }
  void RowLabel(std::string_view text) { SetRowLabel(row_, text); }
  void ColumnLabel(std::string_view text) { SetColumnLabel(column_, text); }

  /// Labels outside the grid are ignored when set, and empty when read.
  void SetRowLabel(int row, std::string_view text) {
    if (row >= 1 && row <= row_count_) row_labels_.Set(row, text);
  }
  void SetColumnLabel(int column, std::string_view text);
  std::string RowLabelAt(int row) const;
  std::string ColumnLabelAt(int column) const;

  /// One data point; outside the grid it is ignored. null_flag true leaves the point empty, and a
  /// value that is not finite is kept but neither drawn nor dumped.
  void SetData(int row, int column, double value, bool null_flag) {
    if (!Inside(row, column)) return;
    data_[static_cast<std::size_t>(column - 1)][static_cast<std::size_t>(row - 1)] =
        null_flag ? kEmpty : value;
  }

  /// Every point of the grid empty.
  void EmptyAllPoints();

  bool HasPoint(int row, int column) const;  ///< not empty and finite
  double DataAt(int row, int column) const;  ///< not a number where empty or outside

  /// The values of one column of the grid, row 1 first; empty points are not a number. Valid until
  /// the grid is sized anew.
  const std::vector<double>& ColumnData(int column) const;

  /// True holds back what Refresh tells while a builder fills the grid; false then tells it once.
  void SuspendRedraw(bool suspend);

  /// Tells the observer that the chart has changed and wants painting.
  void Refresh();
  void SetObserver(std::function<void()> changed) { changed_ = std::move(changed); }

 private:
  static constexpr double kEmpty = std::numeric_limits<double>::quiet_NaN();

  bool Inside(int row, int column) const {
    return row >= 1 && row <= row_count_ && column >= 1 && column <= column_count_;
  }

  int row_count_ = 0;
  int column_count_ = 0;
  int row_ = 1;
  int column_ = 1;
  bool suspended_ = false;
  std::vector<std::vector<double>> data_;  ///< column by column; may be more than are in use
  ChartLabels row_labels_{'R'};
  ChartLabels column_labels_{'C'};
  std::function<void()> changed_;
};

/// Holds a view's redraw back for a scope; tells the observer once at its end.
class RedrawPause {
 public:
  explicit RedrawPause(ChartView& view) : view_(view) { view_.SuspendRedraw(true); }
  ~RedrawPause() { view_.SuspendRedraw(false); }
  RedrawPause(const RedrawPause&) = delete;
  RedrawPause& operator=(const RedrawPause&) = delete;

 private:
  ChartView& view_;
};

}  // namespace vistaplot
