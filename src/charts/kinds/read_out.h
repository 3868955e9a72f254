// What is read off a chart at one row: the day, and each series' value there, as text and as
// numbers. The kind of figure fills it; a window and a script show the same.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "charts/kinds/draw_context.h"
#include "charts/view/chart_picture.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

/// A number that a script is told: "ABC upper band 20", 101.5, +1.5 %.
struct ReadOutValue {
  std::string name;
  std::string text;               ///< as the line shows it
  double value = 0.0;             ///< the price on the price scale, else the value drawn
  std::optional<double> percent;  ///< change since the base, not rounded; on the price scale only
};

struct ReadOutEntry {
  int series = 0;     ///< from 1, as in clicks
  PictureColor mark;  ///< alpha 0: it has none
  std::string label;
  std::string text;                  ///< a dash where the series has no point
  std::vector<ReadOutValue> values;  ///< none without a point; a bar has four
  std::optional<PicturePoint> at;    ///< its point: position and value, not yet on a picture
};

struct ReadOut {
  std::string heading;  ///< the row's label, the X value, "period 23"; may be empty
  std::string at;       ///< what a script is told of the place: the heading, or the box's date
  std::vector<ReadOutEntry> entries;
};

inline constexpr const char* kNoReading = "–";

/// What is read off at a row of `view`, by its kind of figure; empty for a row that it has not.
/// `dark` chooses the colours that the chart has on dark ground. `column` is used by charts over
/// two parameters.
ReadOut ReadRow(const ChartView& view, int row, bool dark, int column = 0);

/// The name of a series in a read-out: its facts', else its column's label.
std::string ReadOutName(const ChartView& view, const DrawnSeries& series);

/// One series' value as entry text and number, by the view's unit and the series' base: "101.5
/// +1.50%" on the price scale, the bare change without a base, else the value itself.
///
/// @param computed  the value is no price that was loaded
ReadOutValue ReadValue(const ChartView& view,
                       const DrawnSeries& series,
                       double value,
                       bool computed);

/// The price that a value stands for; nothing where its series has no base.
std::optional<double> PriceOf(const ChartView& view, const DrawnSeries& series, double value);

/// A price as the read-out shows it: one that was loaded in full, a computed one to five digits or
/// two decimals.
std::string PriceText(double price, bool computed);

/// A plain value with enough decimals for its size, without an exponent where it can be.
std::string PlainValueText(double value);

/// "+12.34%" of a fractional change 0.1234; "−" for less, "0.00%" for none.
std::string PercentText(double change);

/// "03/15/91, AAA 101.50 +1.50%, BBB −2.00%".
std::string LineText(const ReadOut& read_out);

/// The same with one line an entry.
std::string ListText(const ReadOut& read_out);

/// The row of the last price of all issues on the chart, when every one's history has ended by
/// then; 0 when it ended before the first row. Nothing when one goes on or ends behind the chart.
std::optional<int> HistoriesEnd(const ChartView& view);

}  // namespace vistaplot
