// Draws the texts of many cells at once. Cells of digits, signs and points, which are most, are set
// glyph by glyph from a table; any other text goes through the toolkit's own layout.
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPointF>
#include <QRawFont>
#include <array>
#include <string_view>
#include <vector>

namespace vistaplot {

class GridText {
 public:
  explicit GridText(const QFont& font);

  const QFont& Font() const { return font_; }
  const QFontMetrics& Metrics() const { return metrics_; }

  /// Width of a text in one line, in pixels.
  int Width(std::string_view text) const;

  /// Sets a text into a cell: at the right edge or the left one, with an ellipsis where it does not
  /// fit. `inset` pixels of a cell's right side stay free where there is room for both. The
  /// painter's font and pen are used; figures appear only when they are flushed.
  void Draw(QPainter& painter,
            const QRect& cell,
            std::string_view text,
            bool at_right,
            double inset = 0.0);

  /// Width of the last `places` figures of a number: its decimal point and what is behind it.
  double TailWidth(int places) const;

  /// Paints the figures set since the last time.
  void Flush(QPainter& painter);

 private:
  struct Figure {
    quint32 glyph = 0;
    double advance = 0.0;
  };
  /// Width of a text of figures alone; negative for any other one.
  double FigureWidth(std::string_view text) const;
  void DrawOther(QPainter& painter, const QRect& cell, std::string_view text, bool at_right);

  QFont font_;
  QFontMetrics metrics_;
  QRawFont raw_;
  std::array<Figure, 128> figures_{};  ///< by character; glyph 0 where it is no figure
  QList<quint32> glyphs_;
  QList<QPointF> positions_;
};

}  // namespace vistaplot
