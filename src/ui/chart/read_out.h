// What is read off a chart at one row: the day, and each series' value there, as text.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "charts/view/chart_picture.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

struct ReadOutEntry {
  int series = 0;  ///< from 1, as in clicks
  PictureColor mark;
  std::string label;
  std::string value;  ///< a dash where the series has no point
};

struct ReadOut {
  std::string heading;  ///< the row's label, or the X value
  std::vector<ReadOutEntry> entries;
};

/// The text of a point as the screen knows it (a price), for charts that hold something else
/// (changes); empty when it knows none. Series and point count from 1.
using PointText = std::function<std::string(int series, int point)>;

/// Reads row `row` of `view`, which has it. Rebased charts give the percent change since the
/// series' start, "+12.34%", behind `price_text`'s price if there is one; others the value itself.
/// `dark` chooses the colours that the chart has on dark ground.
ReadOut ReadRow(const ChartView& view, int row, const PointText& price_text, bool dark);

/// From which row on no series of a chart over days changes any more: what histories that have
/// ended look like. 0 when the last kQuietRows rows hold a change, and for charts over values.
inline constexpr int kQuietRows = 10;
int QuietFrom(const ChartView& view);

/// "+12.34%" of a fractional change 0.1234; "−" for less, "0.00%" for none.
std::string PercentText(double change);

/// "03/15/91, AAA 101.50 +1.50%, BBB −2.00%".
std::string LineText(const ReadOut& read_out);

/// The same with one line an entry.
std::string ListText(const ReadOut& read_out);

}  // namespace vistaplot
