#include "ui/grid/grid_painter.h"

#include <QPolygonF>
#include <QRegion>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

#include "base/number_text.h"
#include "base/text.h"
#include "table/sheet_text.h"

namespace vistaplot {

namespace {

constexpr int kRowPadding = 6;
constexpr int kDefaultMargin = 16;
constexpr double kTwipsPerDigit = 110.0;
constexpr double kLineShare = 0.16;   // of the text's colour in the lines between cells
constexpr double kEdgeShare = 0.45;   // in the line that closes the headings
constexpr double kStripShare = 0.65;  // in the letters and numbers of the strips
constexpr double kFaintShare = 0.55;  // in the text of cells that tell nothing new
constexpr int kArrow = 4;             // half the width of a sorted column's arrow, in pixels
constexpr int kArrowRoom = 14;
constexpr double kChosenShare = 0.28;  // of the highlight's colour over selected cells

QColor Mixed(const QColor& ground, const QColor& ink, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return {mix(ground.red(), ink.red()),
          mix(ground.green(), ink.green()),
          mix(ground.blue(), ink.blue())};
}

QFont Bold(QFont font) {
  font.setBold(true);
  return font;
}

/// Cells that scroll together.
struct Pane {
  GridSpan rows;
  GridSpan cols;
  QRect clip;
  bool is_heading = false;
  bool is_bold = false;
};

bool IsEmpty(const GridSpan& span) {
  return span.last < span.first;
}

class GridPainter {
 public:
  GridPainter(QPainter& painter, const GridScene& scene, GridFonts& fonts)
      : painter_(painter),
        scene_(scene),
        geometry_(scene.geometry),
        palette_(scene.palette),
        fonts_(fonts) {
    scene_.places.resize(static_cast<std::size_t>(std::max(geometry_.Cols(), 0)));
  }

  void Paint() {
    painter_.fillRect(QRect(QPoint(), geometry_.View()), palette_.color(QPalette::Window));
    const GridSpan rows{1, geometry_.FixedRows()};
    const GridSpan cols{1, geometry_.FixedCols()};
    const GridSpan more_rows = geometry_.ScrollingRows();
    const GridSpan more_cols = geometry_.ScrollingCols();
    PaintPane(MakePane(more_rows, more_cols, false, false));
    PaintPane(MakePane(more_rows, cols, true, false));
    PaintPane(MakePane(rows, more_cols, true, true));
    PaintPane(MakePane(rows, cols, true, true));
    PaintCurrent();
    PaintLetters(cols);
    PaintLetters(more_cols);
    PaintNumbers(rows);
    PaintNumbers(more_rows);
    PaintEdges();
  }

 private:
  static CellRange RangeOf(const GridSpan& rows, const GridSpan& cols) {
    return {.SelStartRow = rows.first,
            .SelStartCol = cols.first,
            .SelEndRow = rows.last,
            .SelEndCol = cols.last};
  }

  QRect Frozen(const GridSpan& rows, const GridSpan& cols) const {
    const int left = cols.first > geometry_.FixedCols() ? geometry_.FrozenWidth() : 0;
    const int top = rows.first > geometry_.FixedRows() ? geometry_.FrozenHeight() : 0;
    return QRect(QPoint(), geometry_.View()).adjusted(left, top, 0, 0);
  }

  Pane MakePane(const GridSpan& rows, const GridSpan& cols, bool is_heading, bool is_bold) const {
    Pane pane{.rows = rows, .cols = cols, .clip = {}, .is_heading = is_heading, .is_bold = is_bold};
    if (IsEmpty(rows) || IsEmpty(cols)) return pane;
    pane.clip = geometry_.Place(RangeOf(rows, cols)) & Frozen(rows, cols);
    return pane;
  }

  void PaintPane(const Pane& pane) {
    if (pane.clip.isEmpty()) return;
    painter_.save();
    painter_.setClipRect(pane.clip);
    const QColor ground = palette_.color(pane.is_heading ? QPalette::Button : QPalette::Base);
    painter_.fillRect(pane.clip, ground);
    PaintChosen(pane, ground);
    PaintLines(pane, ground);
    PaintTexts(pane);
    painter_.restore();
  }

  void PaintChosen(const Pane& pane, const QColor& ground) {
    QRegion chosen;
    for (CellRange range : scene_.selection.Ranges()) {
      range.SelStartRow = std::max(range.SelStartRow, pane.rows.first);
      range.SelStartCol = std::max(range.SelStartCol, pane.cols.first);
      range.SelEndRow = std::min(range.SelEndRow, pane.rows.last);
      range.SelEndCol = std::min(range.SelEndCol, pane.cols.last);
      if (range.SelStartRow > range.SelEndRow || range.SelStartCol > range.SelEndCol) continue;
      chosen += geometry_.Place(range);
    }
    const QColor tinted = Mixed(ground, palette_.color(QPalette::Highlight), kChosenShare);
    for (const QRect& part : chosen) painter_.fillRect(part, tinted);
  }

  void PaintLines(const Pane& pane, const QColor& ground) {
    // Filled, not drawn: the toolkit cuts upright lines into spans of one pixel each.
    const QColor ink = Mixed(ground, palette_.color(QPalette::Text), kLineShare);
    for (int col = pane.cols.first; col <= pane.cols.last; ++col) {
      const int x = geometry_.Left(col) + geometry_.Width(col) - 1;
      painter_.fillRect(x, pane.clip.top(), 1, pane.clip.height(), ink);
    }
    for (int row = pane.rows.first; row <= pane.rows.last; ++row) {
      const int y = geometry_.Top(row) + geometry_.RowHeight() - 1;
      painter_.fillRect(pane.clip.left(), y, pane.clip.width(), 1, ink);
    }
  }

  void PaintTexts(const Pane& pane) {
    const QColor ground = palette_.color(pane.is_heading ? QPalette::Button : QPalette::Base);
    const QColor ink = palette_.color(pane.is_heading ? QPalette::ButtonText : QPalette::Text);
    if (pane.is_bold) {
      PaintHeadings(pane, ink);
      return;
    }
    PaintCells(pane, false, ink);
    if (!pane.is_heading) PaintCells(pane, true, Mixed(ground, ink, kFaintShare));
  }

  /// A heading stands over its column as the column's first cell does; a title runs on.
  void PaintHeadings(const Pane& pane, const QColor& ink) {
    GridText& text = fonts_.heading;
    painter_.setFont(text.Font());
    painter_.setPen(ink);
    for (int col = pane.cols.first; col <= pane.cols.last; ++col) {
      const bool at_right = IsNumberColumn(col);
      for (int row = pane.rows.first; row <= pane.rows.last; ++row) {
        QRect place = CellPlace(row, col);
        if (row == scene_.sheet.FixedRows && std::abs(scene_.sheet.SortedBy) == col) {
          PaintArrow(place, at_right, ink);
          place.adjust(at_right ? kArrowRoom : 0, 0, at_right ? 0 : -kArrowRoom, 0);
        }
        const std::string cell = scene_.sheet.CellText(row, col);
        if (IsTitle(scene_.sheet, row, col)) {
          place.setRight(pane.clip.right());
          text.Draw(painter_, place, cell, false);
        } else {
          text.Draw(painter_, place, at_right ? TrimBlanks(cell) : cell, at_right);
        }
      }
    }
    text.Flush(painter_);
  }

  /// Upwards for the smallest first, downwards for the largest, on the side that the text leaves.
  void PaintArrow(const QRect& place, bool at_left, const QColor& ink) {
    const double middle_x =
        at_left ? place.left() + kArrowRoom / 2.0 + 1.0 : place.right() - kArrowRoom / 2.0;
    const double middle_y = place.center().y() + 0.5;
    const double tip = scene_.sheet.SortedBy > 0 ? -kArrow * 0.6 : kArrow * 0.6;
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(ink);
    painter_.drawPolygon(QPolygonF({{middle_x, middle_y + tip},
                                    {middle_x - kArrow, middle_y - tip},
                                    {middle_x + kArrow, middle_y - tip}}));
    painter_.restore();
  }

  /// The faint cells of a pane, or all others.
  void PaintCells(const Pane& pane, bool faint, const QColor& ink) {
    GridText& text = fonts_.plain;
    painter_.setFont(text.Font());
    painter_.setPen(ink);
    for (int col = pane.cols.first; col <= pane.cols.last; ++col) {
      if (!faint) MeetPlaces(pane.rows, col);
      for (int row = pane.rows.first; row <= pane.rows.last; ++row) {
        if (!pane.is_heading && IsFaint(scene_.sheet, row, col) != faint) continue;
        const std::string cell = scene_.sheet.CellText(row, col);
        const bool is_number = IsNumberCell(cell);
        text.Draw(painter_,
                  CellPlace(row, col),
                  is_number ? TrimBlanks(cell) : cell,
                  is_number,
                  is_number ? BehindPoint(cell, col) : 0.0);
      }
    }
    text.Flush(painter_);
  }

  QRect CellPlace(int row, int col) const {
    return {geometry_.Left(col),
            geometry_.Top(row),
            geometry_.Width(col) - 1,
            geometry_.RowHeight() - 1};
  }

  int& PlacesOf(int col) { return scene_.places[static_cast<std::size_t>(col) - 1]; }

  void MeetPlaces(const GridSpan& rows, int col) {
    for (int row = rows.first; row <= rows.last; ++row) {
      const std::string cell = scene_.sheet.CellText(row, col);
      if (IsNumberCell(cell)) PlacesOf(col) = std::max(PlacesOf(col), PlacesFromPoint(cell));
    }
  }

  /// What stays free at the right of a number, so that it stands on its column's decimal point.
  double BehindPoint(const std::string& cell, int col) {
    return fonts_.plain.TailWidth(PlacesOf(col)) - fonts_.plain.TailWidth(PlacesFromPoint(cell));
  }

  bool IsNumberColumn(int col) const {
    return IsNumberCell(scene_.sheet.CellText(scene_.sheet.FixedRows + 1, col));
  }

  bool TouchesColumn(int col) const {
    const auto& ranges = scene_.selection.Ranges();
    return std::any_of(ranges.begin(), ranges.end(), [col](const CellRange& range) {
      return range.SelStartCol <= col && col <= range.SelEndCol;
    });
  }

  bool TouchesRow(int row) const {
    const auto& ranges = scene_.selection.Ranges();
    return std::any_of(ranges.begin(), ranges.end(), [row](const CellRange& range) {
      return range.SelStartRow <= row && row <= range.SelEndRow;
    });
  }

  void PaintCurrent() {
    const GridCell cell = scene_.selection.Current();
    if (cell.row > geometry_.Rows() || cell.col > geometry_.Cols()) return;
    const bool is_chosen = scene_.selection.Contains(cell);
    if (!is_chosen && !scene_.has_focus) return;
    const GridSpan row{cell.row, cell.row};
    const GridSpan col{cell.col, cell.col};
    painter_.save();
    painter_.setClipRect(Frozen(row, col));
    const int width = scene_.has_focus ? 2 : 1;
    const int inset = width / 2;
    painter_.setPen(QPen(palette_.color(QPalette::Highlight), width));
    painter_.drawRect(geometry_.Place(RangeOf(row, col)).adjusted(inset, inset, -2, -2));
    painter_.restore();
  }

  void PaintStripCell(const QRect& place, const QString& text, bool is_chosen) {
    const QColor ground = palette_.color(QPalette::Button);
    const QColor ink = palette_.color(QPalette::ButtonText);
    const QColor tinted = Mixed(ground, palette_.color(QPalette::Highlight), kChosenShare);
    painter_.fillRect(place, is_chosen ? tinted : ground);
    const QColor line = Mixed(ground, ink, kLineShare);
    painter_.fillRect(place.right(), place.top(), 1, place.height(), line);
    painter_.fillRect(place.left(), place.bottom(), place.width(), 1, line);
    painter_.setPen(is_chosen ? ink : Mixed(ground, ink, kStripShare));
    painter_.drawText(place.adjusted(0, 0, -1, -1), Qt::AlignCenter | Qt::TextSingleLine, text);
  }

  void PaintLetters(const GridSpan& cols) {
    const int left = cols.first > geometry_.FixedCols() ? geometry_.FrozenWidth() : 0;
    painter_.save();
    painter_.setFont(fonts_.plain.Font());
    painter_.setClipRect(left, 0, geometry_.View().width() - left, geometry_.StripHeight());
    for (int col = cols.first; col <= cols.last; ++col) {
      const QRect place(geometry_.Left(col), 0, geometry_.Width(col), geometry_.StripHeight());
      PaintStripCell(place, ColumnLetters(col), TouchesColumn(col));
    }
    painter_.restore();
  }

  void PaintNumbers(const GridSpan& rows) {
    painter_.setFont(fonts_.plain.Font());
    for (int row = rows.first; row <= rows.last; ++row) {
      const QRect place(0, geometry_.Top(row), geometry_.StripWidth(), geometry_.RowHeight());
      PaintStripCell(place, QString::number(row), TouchesRow(row));
    }
  }

  void PaintEdges() {
    if (geometry_.Rows() == 0) return;
    const QRect corner(0, 0, geometry_.StripWidth(), geometry_.StripHeight());
    PaintStripCell(corner, {}, false);
    const GridSpan rows = geometry_.ScrollingRows();
    const GridSpan cols = geometry_.ScrollingCols();
    const int last_row = std::max(rows.last, geometry_.FixedRows());
    const int last_col = std::max(cols.last, geometry_.FixedCols());
    if (last_row < 1 || last_col < 1) return;
    const int right = geometry_.Left(last_col) + geometry_.Width(last_col) - 1;
    const int bottom = geometry_.Top(last_row) + geometry_.RowHeight() - 1;
    const QColor ink =
        Mixed(palette_.color(QPalette::Button), palette_.color(QPalette::ButtonText), kEdgeShare);
    painter_.fillRect(geometry_.FrozenWidth() - 1, 0, 1, bottom + 1, ink);
    painter_.fillRect(0, geometry_.FrozenHeight() - 1, right + 1, 1, ink);
  }

  QPainter& painter_;
  const GridScene& scene_;
  const GridGeometry& geometry_;
  const QPalette& palette_;
  GridFonts& fonts_;
};

}  // namespace

QString ColumnLetters(int col) {
  constexpr int kLetters = 26;
  QString letters;
  for (int rest = col; rest > 0; rest = (rest - 1) / kLetters) {
    letters.prepend(QChar(u'A' + (rest - 1) % kLetters));
  }
  return letters;
}

bool IsNumberCell(std::string_view text) {
  return WholeNumber(text).has_value();
}

GridFonts::GridFonts(const QFont& font) : plain(font), heading(Bold(font)) {}

GridSizes GridFonts::Sizes() const {
  const int digit_width = plain.Metrics().horizontalAdvance(u'0');
  return {.row_height = plain.Metrics().height() + kRowPadding,
          .digit_width = digit_width,
          .default_width = plain.Width("00/00/0000") + kDefaultMargin,
          .twips_per_pixel = std::min(static_cast<double>(kTwipsPerPixel),
                                      kTwipsPerDigit / std::max(digit_width, 1))};
}

void PaintGrid(QPainter& painter, const GridScene& scene, GridFonts& fonts) {
  GridPainter(painter, scene, fonts).Paint();
}

}  // namespace vistaplot
