// A price sheet, its calendar and a selection of all its funds, for tests of chart builders.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "charts/builders/graph_selection.h"
#include "charts/view/chart_view.h"
#include "support/weekday_calendar.h"
#include "table/sheet.h"

namespace vistaplot::test {

struct PriceWorld {
  /// From lines of "AAA,BBB" and then one line of prices a market day, all columns selected; the
  /// dates are the calendar's.
  explicit PriceWorld(const std::string& csv) {
    const std::vector<std::string_view> lines = Split(csv, '\n');
    calendar = WeekdayCalendar(static_cast<int>(lines.size()) - 1);
    prices.MaxRow = static_cast<int>(lines.size());
    WriteDates();
    for (int row = 1; row <= prices.MaxRow; ++row) {
      int col = 1;
      for (const auto cell : Split(lines[static_cast<std::size_t>(row - 1)], ',')) {
        prices.SetCellText(row, ++col, cell);
      }
      prices.MaxCol = col;
    }
    SelectAll();
  }

  /// One issue a history, named "F1", "F2", ...; all of one length.
  explicit PriceWorld(const std::vector<std::vector<float>>& histories) {
    const auto days = static_cast<int>(histories.front().size());
    calendar = WeekdayCalendar(days);
    prices.MaxRow = days + 1;
    WriteDates();
    for (const std::vector<float>& history : histories) {
      std::string symbol = "F";
      symbol += std::to_string(prices.MaxCol);
      prices.SetPriceColumn(++prices.MaxCol, symbol, history);
    }
    SelectAll();
  }

  void SelectAll() {
    prices.Select({.SelStartRow = 1, .SelStartCol = 1, .SelEndRow = 1, .SelEndCol = prices.MaxCol});
    EXPECT_EQ(ReadGraphSelection(prices, SelectionUse::kFunds, selection), "");
  }

  MarketCalendar calendar;
  Sheet prices;
  GraphSelection selection;
  ChartView view;

 private:
  void WriteDates() {
    prices.MaxCol = 1;
    for (int row = 2; row <= prices.MaxRow; ++row) {
      prices.SetCellText(
          row, 1, DateText(calendar.DateOf(row - 1), DatePattern::kMonthDayLongYear));
    }
  }
};

inline constexpr double kEmpty = -99.0;  // stands for an empty point

inline std::vector<double> Points(const ChartView& view, int column) {
  std::vector<double> points;
  for (int row = 1; row <= view.rowcount(); ++row) {
    points.push_back(view.HasPoint(row, column) ? view.DataAt(row, column) : kEmpty);
  }
  return points;
}

/// The names of all series, with "|" between them.
inline std::string Legend(const ChartView& view) {
  std::string names = view.ColumnLabelAt(1);
  for (int c = 2; c <= view.ColumnCount(); ++c) names.append("|").append(view.ColumnLabelAt(c));
  return names;
}

/// The marker of a point; a default one where it has none of its own.
inline ChartMarker MarkerAt(const ChartView& view, int series, int point) {
  for (const auto& [number, item] : view.Plot.Series(series).DataPoints.items) {
    if (number == point) return item.Marker;
  }
  return {};
}

}  // namespace vistaplot::test
