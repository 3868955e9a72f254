// Charts and pictures for tests of the layout: a font whose letters are all equally wide, charts
// from rows of numbers, and the items of a picture by kind.
#pragma once

#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/number_text.h"
#include "base/text.h"
#include "charts/layout/layout.h"
#include "charts/view/chart_picture.h"
#include "charts/view/chart_view.h"

namespace vistaplot::test {

/// Every character of UTF-8 text is 0.6 of the font's size wide.
class EvenTextMeasure : public TextMeasure {
 public:
  double Width(std::string_view text, int pixel_size, bool /*bold*/) const override {
    double letters = 0.0;
    for (const char c : text) {
      if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) letters += 1.0;
    }
    return 0.6 * pixel_size * letters;
  }
};

inline constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

/// Fills `view` from lines of blank-separated numbers, row 1 first; "-" leaves a cell empty.
inline void FillCellView(std::string_view lines, ChartView& view) {
  int row = 0;
  for (const std::string_view line : Split(lines, '\n')) {
    const auto cells = Split(line, ' ');
    view.rowcount(++row);
    view.ColumnCount(static_cast<int>(cells.size()));
    for (std::size_t i = 0; i < cells.size(); ++i) {
      view.SetData(row, static_cast<int>(i) + 1, LeadingNumber(cells[i]), cells[i] == "-");
    }
  }
}

/// A chart of lines with the settings that a price chart has: hidden value axes, legend at the
/// right, title "NAV" at the top left. One vector of values a series; row labels are "d1", "d2",
/// ...
inline ChartView LineChart(const std::vector<std::vector<double>>& series) {
  ChartView view;
  view.TitleText = "NAV";
  view.facts.unit = ValueUnit::kChange;
  view.title.Location.LocationType = kLocationTopLeft;
  view.Legend.Location = {true, kLocationRight};
  view.rowcount(static_cast<int>(series.front().size()));
  view.ColumnCount(static_cast<int>(series.size()));
  for (std::size_t axis = 1; axis < 4; ++axis) view.Plot.Axis[axis].AxisScale.Hide = true;
  view.Plot.Axis[0].CategoryScale.Auto = false;
  for (int row = 1; row <= view.rowcount(); ++row) {
    view.SetRowLabel(row, std::string("d").append(std::to_string(row)));
  }
  for (int c = 1; c <= view.ColumnCount(); ++c) {
    for (int row = 1; row <= view.rowcount(); ++row) {
      const double value =
          series[static_cast<std::size_t>(c - 1)][static_cast<std::size_t>(row - 1)];
      view.SetData(row, c, value, std::isnan(value));
    }
  }
  return view;
}

inline ChartPicture LayOut(const ChartView& view,
                           PictureSize size = {},
                           LayoutOptions options = {}) {
  return LayoutChart(view, size, EvenTextMeasure(), options);
}

/// The items of one kind, in paint order.
template <class Item>
std::vector<Item> ItemsOf(const ChartPicture& picture) {
  std::vector<Item> items;
  for (const PictureItem& item : picture.items) {
    if (const Item* found = std::get_if<Item>(&item)) items.push_back(*found);
  }
  return items;
}

/// The box that a horizontal text covers, by the even font.
inline PictureBox BoxOf(const DrawText& text) {
  const double width = EvenTextMeasure().Width(text.text, text.pixel_size, text.bold);
  const double left = text.align == TextAlign::kLeft     ? text.at.x
                      : text.align == TextAlign::kCenter ? text.at.x - width / 2.0
                                                         : text.at.x - width;
  return {left, text.at.y - 0.75 * text.pixel_size, left + width, text.at.y};
}

}  // namespace vistaplot::test
