// The chart as the builders see it: settings and data by the names that every builder uses, no
// drawing. charts/layout.h turns a view into lines and texts; a skin or an export replays those.
//
// Rows (categories), columns (series), points and axes' sub-objects count from 1, axes from 0.
// Lengths of the plot rectangle are inches, fonts points, pens pixels.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "charts/chart_codes.h"

namespace vistaplot {

struct ChartColor {
  int red = 0;
  int green = 0;
  int blue = 0;
  void Set(int r, int g, int b) { *this = {r, g, b}; }
  bool operator==(const ChartColor&) const = default;
};

struct ChartFont {
  double Size = 8.0;  ///< points
  ChartColor VtColor;
};

struct ChartLocation {
  bool Visible = false;
  int LocationType = kLocationTop;
};

struct ChartTextLayout {
  int Orientation = kOrientationHorizontal;
};

/// Title, legend or footnote.
struct ChartText {
  std::string Text;
  ChartFont VtFont;
  ChartLocation Location;
  ChartTextLayout TextLayout;
};

struct ChartPen {
  double Width = 1.0;  ///< pixels; 0 is the thinnest line
  ChartColor VtColor;
  int style = kPenSolid;
};

struct ChartMarker {
  double Size = 6.0;  ///< points
  bool Visible = false;
  int style = kMarkerNone;
  ChartPen Pen;

  bool operator==(const ChartMarker& other) const;
};

struct ChartPointLabel {
  int Component = 0;
  std::string Text;
  ChartFont VtFont;
  ChartTextLayout TextLayout;
  int LocationType = 0;
};

/// What one point has of its own; a point without an entry follows its series.
struct ChartDataPoint {
  ChartMarker Marker;
  std::optional<ChartPointLabel> DataPointLabel;
};

struct ChartSeries {
  struct {
    bool Show = false;
  } SeriesMarker;
  int SeriesType = kSeriesLine;
  bool showline = true;
  ChartPen Pen;
  struct {
    ChartColor GainColor{0, 128, 0};
    ChartColor LossColor{192, 0, 0};
  } HiLo;
  /// Points with settings of their own, by point number; Item(p) makes one.
  struct {
    std::map<int, ChartDataPoint> items;
    ChartDataPoint& Item(int point) { return items[point]; }
  } DataPoints;
};

struct ChartAxis {
  struct {
    bool Auto = true;
    ChartFont VtFont;
    ChartTextLayout TextLayout;
  } Labels;  ///< the axis's first (and only) row of labels
  struct {
    bool Visible = false;
    std::string Text;
    ChartFont VtFont;
  } AxisTitle;
  struct {
    bool Auto = true;
    int DivisionsPerLabel = 1;
    int DivisionsPerTick = 1;
    bool LabelTick = false;
  } CategoryScale;
  struct {
    bool Auto = true;  ///< false once a bound is set
    double Minimum = 0.0;
    double Maximum = 0.0;
  } ValueScale;
  struct {
    bool Hide = false;
  } AxisScale;
  struct {
    ChartPen MajorPen;
    ChartPen MinorPen;
  } AxisGrid;
  struct {
    int Style = kTickOutside;
  } Tick;
};

struct ChartPoint {
  double X = 0.0;
  double Y = 0.0;
};

struct ChartPlot {
  bool AutoLayout = true;
  struct {
    ChartPoint Min;
    ChartPoint Max;
  } LocationRect;  ///< inches from the chart's lower left corner
  bool UniformAxis = true;
  std::vector<ChartSeries> SeriesCollection;  ///< series s at index s - 1
  std::array<ChartAxis, 4> Axis;              ///< 0 categories, 1 to 3 values (3: depth)
  struct {
    struct {
      int Base = 0;
      int DisplayType = 0;
    } Surface;
  } Elevation;

  ChartSeries& Series(int s) { return SeriesCollection.at(static_cast<std::size_t>(s - 1)); }
  const ChartSeries& Series(int s) const {
    return SeriesCollection.at(static_cast<std::size_t>(s - 1));
  }
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
  ChartView();

  /// Every setting and all data back to the view's defaults: no rows, no columns.
  void ToDefaults();

  int ChartType = kChartCombination;
  std::string TitleText;
  ChartText title;
  ChartText Legend;
  ChartText Footnote;
  ChartPlot Plot;

  int rowcount() const { return row_count_; }
  int ColumnCount() const { return column_count_; }

  /// Sizes the grid; what stays inside keeps its value, new points are empty, new rows and columns
  /// have default labels ("R1", "C1"), new series default settings.
  void rowcount(int rows);
  void ColumnCount(int columns);

  /// The row and column that RowLabel and ColumnLabel set; also outside the grid (then ignored).
  void row(int number) { row_ = number; }
  void Column(int number) { column_ = number; }
  void RowLabel(std::string_view text) { SetRowLabel(row_, text); }
  void ColumnLabel(std::string_view text) { SetColumnLabel(column_, text); }

  void SetRowLabel(int row, std::string_view text);
  void SetColumnLabel(int column, std::string_view text);
  const std::string& RowLabelAt(int row) const;
  const std::string& ColumnLabelAt(int column) const;

  /// One data point; outside the grid it is ignored. null_flag true leaves the point empty, and a
  /// value that is not finite is kept but neither drawn nor dumped.
  void SetData(int row, int column, double value, bool null_flag);

  /// Every point of the grid empty.
  void EmptyAllPoints();

  bool HasPoint(int row, int column) const;  ///< not empty and finite
  double DataAt(int row, int column) const;  ///< not a number where empty

  /// The values of one column, row 1 first; empty points are not a number. Valid until resized.
  const std::vector<double>& ColumnData(int column) const;

  /// Suspends the observer while a builder fills the grid; false tells it once.
  void SuspendRedraw(bool suspend);

  /// Tells the observer that the chart has changed and wants painting.
  void Refresh();
  void SetObserver(std::function<void()> changed) { changed_ = std::move(changed); }

 private:
  int row_count_ = 0;
  int column_count_ = 0;
  int row_ = 1;
  int column_ = 1;
  bool suspended_ = false;
  std::vector<std::vector<double>> data_;  ///< column by column
  std::vector<std::string> row_labels_;
  std::vector<std::string> column_labels_;
  std::function<void()> changed_;
};

}  // namespace vistaplot
