// What drawing needs beside the view: size and theme of the picture, widths of texts, colours and
// settings of series. Shared by the kinds of figures and the layout around them.
#pragma once

#include <string>
#include <string_view>

#include "charts/view/chart_picture.h"
#include "charts/view/chart_view.h"
#include "charts/view/palette.h"

namespace vistaplot {

/// How wide texts are in the font that will draw them.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  virtual double Width(std::string_view text, int pixel_size, bool bold) const = 0;
};

struct PictureSize {
  double width = 640.0;
  double height = 480.0;
};

struct DrawContext {
  const ChartView& view;
  const TextMeasure& measure;
  PictureSize size;
  ChartTheme theme;
  double scale = 1.0;   ///< of texts and margins; 1 on a picture of 640 by 480
  double detail = 1.0;  ///< device pixels a unit

  /// Whole pixels of a font size in points (96 to the inch), grown with the picture; at least 7.
  int FontPixels(double points) const;
};

/// A series that figures stand for.
struct DrawnSeries {
  int number = 0;    ///< from 1: its place in clicks, read-outs and the facts
  int settings = 0;  ///< its entry in the view's SeriesCollection, from 1
  int x_column = 0;  ///< 0: the row number is the position
  int y_column = 0;  ///< its values, or the first column of several

  /// The column whose label names it.
  int LabelColumn() const { return x_column > 0 ? x_column : y_column; }
};

inline constexpr double kPixelsPerPoint = 96.0 / 72.0;

/// The settings of entry `number` (from 1) of the view's SeriesCollection; the defaults when the
/// collection is shorter.
const ChartSeries& SettingsOf(const ChartView& view, int number);

/// The colour of entry `number`: its pen's (a black one counts as unset), or that of the series
/// whose hue it takes by the view's facts.
PictureColor SeriesInk(const ChartView& view, int number, const ChartTheme& theme);

/// A marker's colour: its own pen's, else (a black one counts as unset) the series'.
PictureColor MarkerInk(const DrawContext& context, const ChartMarker& marker, int series);

/// The shape of the markers of a whole series, or of one marker by its style.
MarkerShape SeriesMarkerShape(int number);
MarkerShape MarkerShapeOf(const ChartMarker& marker, int series);

// An entry of a legend that stands for no series.

enum class LegendFigure {
  kBand,     ///< a box of the colour
  kBest,     ///< the mark of the best cell
  kPlateau,  ///< the mark of the best neighbourhood
};

struct LegendMark {
  LegendFigure figure = LegendFigure::kBand;
  PictureColor color;
  std::string text;
};

/// Draws it into `box`.
void DrawLegendMark(const LegendMark& mark, const PictureBox& box, ChartPicture& picture);

}  // namespace vistaplot
