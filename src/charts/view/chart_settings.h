// The settings of a chart view, by the names that every builder uses: texts, pens, markers, series,
// axes and the plot. Rows (points), columns and series count from 1, axes from 0. Lengths of the
// plot rectangle are inches, fonts points, pens pixels.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vistaplot {

// The numeric codes that the builders set on a chart view, with what each must look like.

// ChartType
inline constexpr int kChartCombination = 9;  ///< each series by its own SeriesType
inline constexpr int kChartXY = 16;          ///< every series takes two columns, X then Y
inline constexpr int kChartStock = 20;       ///< every four columns are open, high, low, close
inline constexpr int kChartSurface = 23;     ///< three-dimensional surface
inline constexpr int kChartContour = 24;

// LocationType of title, legend and footnote
inline constexpr int kLocationTopLeft = 1;
inline constexpr int kLocationTop = 2;
inline constexpr int kLocationRight = 4;
inline constexpr int kLocationBottomRight = 7;

// Orientation of a text
inline constexpr int kOrientationHorizontal = 0;
inline constexpr int kOrientationVertical = 1;

// SeriesType
inline constexpr int kSeriesLine = 6;
inline constexpr int kSeriesCandleLine = 19;
inline constexpr int kSeriesCandleBar = 20;

// Marker style
inline constexpr int kMarkerCross = 2;  ///< an X
inline constexpr int kMarkerStar = 3;
inline constexpr int kMarkerCircle = 4;
inline constexpr int kMarkerNone = 15;

// Point label
inline constexpr int kLabelName = 8;   ///< Component: the point's name
inline constexpr int kLabelBelow = 2;  ///< LocationType: below the point

// Pens and ticks
inline constexpr int kPenNone = 0;
inline constexpr int kPenSolid = 1;
inline constexpr int kTickNone = 0;
inline constexpr int kTickOutside = 1;

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
  bool operator==(const ChartPen&) const = default;
};

struct ChartMarker {
  double Size = 6.0;  ///< points
  bool Visible = false;
  int style = kMarkerNone;
  ChartPen Pen;
  bool operator==(const ChartMarker&) const = default;
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

/// The points of a series that have settings of their own.
struct ChartDataPoints {
  /// Ascending point numbers, each once.
  std::vector<std::pair<int, ChartDataPoint>> items;

  /// The settings of point `point`, made on first use. Valid until the next point is made. Points
  /// asked for in ascending order cost constant time.
  ChartDataPoint& Item(int point);
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
  ChartDataPoints DataPoints;
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

}  // namespace vistaplot
