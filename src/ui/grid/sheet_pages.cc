#include "ui/grid/sheet_pages.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "base/text.h"
#include "ui/controls/qt_text.h"

namespace vistaplot {

namespace {

constexpr double kLineSpacing = 1.25;  ///< of the font's height
constexpr double kGapLetters = 1.5;    ///< between columns, in average letters
constexpr int kFrameLines = 2;         ///< above the cells (the name) and below them (the number)

std::size_t Index(int number) {
  return static_cast<std::size_t>(number - 1);
}

}  // namespace

SheetPages::SheetPages(const Sheet& sheet, const QFont& font, QPaintDevice* device, QSizeF page)
    : sheet_(sheet), font_(font), bold_(font), device_(device), page_(page) {
  bold_.setBold(true);
  line_ = QFontMetricsF(font_, device_).height() * kLineSpacing;
  if (sheet_.MaxRow < 1 || sheet_.MaxCol < 1) return;
  MeasureColumns();
  CutPages();
}

// By the longest text of each column: texts of one length differ little in width.
void SheetPages::MeasureColumns() {
  const QFontMetricsF metrics(bold_, device_);
  gap_ = kGapLetters / 2.0 * metrics.averageCharWidth();
  for (int col = 1; col <= sheet_.MaxCol; ++col) {
    std::string longest;
    for (int row = 1; row <= sheet_.MaxRow; ++row) {
      std::string text = sheet_.CellText(row, col);
      if (text.size() > longest.size()) longest = std::move(text);
    }
    const double width = metrics.horizontalAdvance(QtText(longest)) + 2.0 * gap_;
    widths_.push_back(std::min(width, page_.width()));
    const int data_row = std::min(sheet_.FixedRows + 1, sheet_.MaxRow);
    numbers_.push_back(col > sheet_.FixedCols &&
                       WholeNumber(sheet_.CellText(data_row, col)).has_value());
  }
}

// Blocks of columns side by side on the page, behind the heading columns where these leave room.
std::vector<SheetPage> SheetPages::ColumnBlocks() const {
  const int fixed = std::clamp(sheet_.FixedCols, 0, sheet_.MaxCol);
  double heading = 0.0;
  for (int col = 1; col <= fixed; ++col) heading += widths_[Index(col)];
  std::vector<SheetPage> blocks;
  double used = heading;
  for (int col = fixed + 1; col <= sheet_.MaxCol; ++col) {
    const double width = widths_[Index(col)];
    if (blocks.empty() || used + width > page_.width()) {
      blocks.push_back({.first_row = 1, .last_row = 0, .first_col = col, .last_col = col});
      used = heading;
    }
    blocks.back().last_col = col;
    used += width;
  }
  if (blocks.empty()) {
    blocks.push_back({.first_row = 1, .last_row = 0, .first_col = fixed + 1, .last_col = fixed});
  }
  return blocks;
}

void SheetPages::CutPages() {
  const int fixed = std::clamp(sheet_.FixedRows, 0, sheet_.MaxRow);
  const int lines = static_cast<int>(page_.height() / line_) - 2 * kFrameLines - fixed;
  const int rows = std::max(lines, 1);
  for (SheetPage page : ColumnBlocks()) {
    page.first_row = fixed + 1;
    do {
      page.last_row = std::min(page.first_row + rows - 1, sheet_.MaxRow);
      pages_.push_back(page);
      page.first_row = page.last_row + 1;
    } while (page.first_row <= sheet_.MaxRow);
  }
}

void SheetPages::Paint(QPainter& painter, std::size_t index) const {
  const SheetPage& page = pages_[index];
  painter.setPen(Qt::black);
  painter.setFont(bold_);
  const QRectF name(0.0, 0.0, page_.width(), line_);
  painter.drawText(name, Qt::AlignLeft | Qt::AlignVCenter, QtText(sheet_.SheetName));
  double top = kFrameLines * line_;
  for (int row = 1; row < page.first_row && row <= sheet_.FixedRows; ++row, top += line_) {
    PaintRow(painter, page, row, top);
  }
  painter.setFont(font_);
  painter.fillRect(QRectF(0.0, top, page_.width(), line_ / 24.0), Qt::black);
  for (int row = page.first_row; row <= page.last_row; ++row, top += line_) {
    PaintRow(painter, page, row, top);
  }
  const QRectF foot(0.0, page_.height() - line_, page_.width(), line_);
  painter.drawText(foot,
                   Qt::AlignRight | Qt::AlignVCenter,
                   QStringLiteral("Page %1 of %2").arg(index + 1).arg(pages_.size()));
}

void SheetPages::PaintRow(QPainter& painter, const SheetPage& page, int row, double top) const {
  const int fixed = std::min(sheet_.FixedCols, page.first_col - 1);
  const double left = PaintCells(painter, row, 1, fixed, {0.0, top});
  PaintCells(painter, row, page.first_col, page.last_col, {left, top});
}

// Returns where the next cell begins.
double SheetPages::PaintCells(QPainter& painter, int row, int first, int last, QPointF at) const {
  double left = at.x();
  for (int col = first; col <= last; ++col) {
    const double width = widths_[Index(col)];
    const QString text = QtText(TrimBlanks(sheet_.CellText(row, col)));
    if (!text.isEmpty()) {
      const auto side = numbers_[Index(col)] ? Qt::AlignRight : Qt::AlignLeft;
      painter.drawText(QRectF(left + gap_, at.y(), width - 2.0 * gap_, line_),
                       static_cast<int>(side | Qt::AlignVCenter),
                       text);
    }
    left += width;
  }
  return left;
}

}  // namespace vistaplot
