// The numeric codes that the builders set on a chart view, with what each must look like.
#pragma once

namespace vistaplot {

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

}  // namespace vistaplot
