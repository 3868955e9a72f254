#include "ui/grid/sheet_pages.h"

#include <QDate>
#include <QFontInfo>
#include <QFontMetricsF>
#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <utility>

#include "base/number_text.h"
#include "base/text.h"
#include "table/sheet_text.h"
#include "ui/controls/widgets.h"

namespace vistaplot {

namespace {

constexpr double kLineSpacing = 1.25;  ///< of the font's height
constexpr double kGapLetters = 1.5;    ///< between columns, in average letters
constexpr int kFrameLines = 2;         ///< above the cells (the title) and below them (the number)

constexpr double kSmaller = 0.97;  ///< from try to try
constexpr int kMostTries = 30;
constexpr double kLeastLetters = 0.7;  ///< of their size, to fit all columns on a page
constexpr double kRounding = 0.99;     ///< widths do not shrink quite as the letters' size does
constexpr double kTrace = 1e-6;

/// Widths of texts letter by letter: a sheet has millions of cells. Pairs of letters stand no wider
/// apart than that.
class LetterWidths {
 public:
  LetterWidths(const QFont& font, QPaintDevice* device) : metrics_(font, device) {
    for (std::size_t code = 0; code < widths_.size(); ++code) {
      widths_[code] = metrics_.horizontalAdvance(QChar(static_cast<char16_t>(code)));
    }
  }

  double Average() const { return metrics_.averageCharWidth(); }

  double Width(std::string_view text) const {
    double width = 0.0;
    for (const char character : text) {
      const auto code = static_cast<unsigned char>(character);
      if (code >= widths_.size()) return metrics_.horizontalAdvance(QtText(text));
      width += widths_[code];
    }
    return width;
  }

 private:
  QFontMetricsF metrics_;
  std::array<double, 128> widths_{};
};

std::size_t Index(int number) {
  return static_cast<std::size_t>(number - 1);
}

}  // namespace

SheetPages::SheetPages(
    const Sheet& sheet, const QFont& font, QPaintDevice* device, QSizeF page, QString title)
    : sheet_(sheet), title_(std::move(title)), font_(font), device_(device), page_(page) {
  if (sheet_.MaxRow < 1 || sheet_.MaxCol < 1) return;
  UseFont(font);
  FitToWidth();
  CutPages();
}

void SheetPages::UseFont(const QFont& font) {
  font_ = font;
  bold_ = font;
  bold_.setBold(true);
  line_ = QFontMetricsF(font_, device_).height() * kLineSpacing;
  MeasureColumns();
}

// Smaller letters where the columns then stand side by side, or where one alone is too wide.
void SheetPages::FitToWidth() {
  natural_width_ = std::accumulate(widths_.begin(), widths_.end(), 0.0);
  const double widest = HeadingWidth() + *std::max_element(widths_.begin(), widths_.end());
  double fit = std::min(1.0, page_.width() / widest);
  const double side_by_side = page_.width() / natural_width_;
  if (side_by_side >= kLeastLetters) fit = std::min(fit, side_by_side);
  if (fit >= 1.0) return;
  // Letters do not shrink evenly: whole pixels and hints keep some as wide as they were.
  QFont smaller = font_;
  double size = QFontInfo(font_).pointSizeF() * fit * kRounding;
  for (int tries = 0; tries < kMostTries; ++tries, size *= kSmaller) {
    smaller.setPointSizeF(size);
    UseFont(smaller);
    const double all = std::accumulate(widths_.begin(), widths_.end(), 0.0);
    const double one = HeadingWidth() + *std::max_element(widths_.begin(), widths_.end());
    if ((fit == side_by_side ? all : one) <= page_.width()) return;
  }
}

double SheetPages::HeadingWidth() const {
  const int fixed = std::clamp(sheet_.FixedCols, 0, sheet_.MaxCol);
  return std::accumulate(widths_.begin(), widths_.begin() + fixed, 0.0);
}

void SheetPages::MeasureColumns() {
  const LetterWidths letters(bold_, device_);
  gap_ = kGapLetters / 2.0 * letters.Average();
  widths_.clear();
  numbers_.clear();
  for (int col = 1; col <= sheet_.MaxCol; ++col) {
    double widest = 0.0;
    for (int row = 1; row <= sheet_.MaxRow; ++row) {
      if (IsTitle(sheet_, row, col)) continue;
      widest = std::max(widest, letters.Width(TrimBlanks(sheet_.CellText(row, col))));
    }
    widths_.push_back(widest + 2.0 * gap_);
    const int data_row = std::min(sheet_.FixedRows + 1, sheet_.MaxRow);
    numbers_.push_back(col > sheet_.FixedCols &&
                       WholeNumber(sheet_.CellText(data_row, col)).has_value());
  }
}

// Blocks of columns side by side on pages of that width, behind the heading columns.
std::vector<SheetPage> SheetPages::BlocksWithin(double width) const {
  const int fixed = std::clamp(sheet_.FixedCols, 0, sheet_.MaxCol);
  const double heading = HeadingWidth();
  std::vector<SheetPage> blocks;
  double used = heading;
  for (int col = fixed + 1; col <= sheet_.MaxCol; ++col) {
    if (blocks.empty() || used + widths_[Index(col)] > width + kTrace) {
      blocks.push_back({.first_row = 1, .last_row = 0, .first_col = col, .last_col = col});
      used = heading;
    }
    blocks.back().last_col = col;
    used += widths_[Index(col)];
  }
  if (blocks.empty()) {
    blocks.push_back({.first_row = 1, .last_row = 0, .first_col = fixed + 1, .last_col = fixed});
  }
  return blocks;
}

// As few blocks as the page allows, all about as wide: no column is left alone on the last one.
std::vector<SheetPage> SheetPages::ColumnBlocks() const {
  constexpr int kSteps = 20;
  std::vector<SheetPage> blocks = BlocksWithin(page_.width());
  double too_narrow = 0.0;
  double enough = page_.width();
  for (int step = 0; step < kSteps && blocks.size() > 1; ++step) {
    const double width = (too_narrow + enough) / 2.0;
    std::vector<SheetPage> narrower = BlocksWithin(width);
    if (narrower.size() > blocks.size()) {
      too_narrow = width;
    } else {
      enough = width;
      blocks = std::move(narrower);
    }
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
  painter.drawText(name,
                   Qt::AlignLeft | Qt::AlignVCenter,
                   QFontMetricsF(bold_, device_).elidedText(title_, Qt::ElideRight, page_.width()));
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
                   Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("Printed ") + QDate::currentDate().toString(u"MM/dd/yyyy"));
  painter.drawText(foot,
                   Qt::AlignRight | Qt::AlignVCenter,
                   QStringLiteral("Page %1 of %2").arg(index + 1).arg(pages_.size()));
}

// Over the columns behind it, as far as the page goes.
void SheetPages::PaintTitle(QPainter& painter, const std::string& title, QPointF at) const {
  const QRectF place(at.x(), at.y(), page_.width() - at.x(), line_);
  const QString shown =
      QFontMetricsF(bold_, device_).elidedText(QtText(title), Qt::ElideRight, place.width());
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, shown);
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
    const std::string cell = sheet_.CellText(row, col);
    if (IsTitle(sheet_, row, col)) {
      PaintTitle(painter, OneLine(TrimBlanks(cell)), {left + gap_, at.y()});
    } else if (const QString text = QtText(TrimBlanks(cell)); !text.isEmpty()) {
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
