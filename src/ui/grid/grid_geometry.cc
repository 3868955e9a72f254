#include "ui/grid/grid_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <string>

namespace vistaplot {

namespace {

constexpr int kLeastWidth = 6;
constexpr int kBorderReach = 4;  // pixels to either side of a border
constexpr int kStripMargin = 12;
constexpr int kLeastStripDigits = 3;

int ColumnPixels(const Sheet& sheet, int col, const GridSizes& sizes) {
  const int twips = sheet.ColumnWidth(col);
  if (twips <= 0) return sizes.default_width;
  return std::max(static_cast<int>(std::lround(twips / sizes.twips_per_pixel)), kLeastWidth);
}

}  // namespace

void GridGeometry::Measure(const Sheet& sheet, const GridSizes& sizes) {
  sizes_ = sizes;
  rows_ = std::max(sheet.MaxRow, 0);
  cols_ = rows_ == 0 ? 0 : std::max(sheet.MaxCol, 0);
  if (cols_ == 0) rows_ = 0;
  sheet_fixed_rows_ = std::clamp(sheet.FixedRows, 0, rows_);
  sheet_fixed_cols_ = std::clamp(sheet.FixedCols, 0, cols_);
  edges_.assign(1, 0);
  for (int col = 1; col <= cols_; ++col) {
    edges_.push_back(edges_.back() + ColumnPixels(sheet, col, sizes));
  }
  const auto digits = static_cast<int>(std::to_string(rows_).size());
  strip_width_ = std::max(digits, kLeastStripDigits) * sizes.digit_width + kStripMargin;
  FreezeHeadings();
}

void GridGeometry::SetView(QSize view) {
  view_ = view;
  FreezeHeadings();
}

// At least a third of the view is left to the cells that scroll.
void GridGeometry::FreezeHeadings() {
  const int most_width = (view_.width() - strip_width_) * 2 / 3;
  const int most_height = (view_.height() - StripHeight()) * 2 / 3;
  fixed_cols_ = sheet_fixed_cols_;
  while (fixed_cols_ > 0 && Edge(fixed_cols_) > most_width) --fixed_cols_;
  fixed_rows_ = std::min(sheet_fixed_rows_, std::max(most_height / sizes_.row_height, 0));
  ScrollTo(scrolled_rows_, scrolled_pixels_);
}

void GridGeometry::ScrollTo(int rows, int pixels) {
  scrolled_rows_ = std::clamp(rows, 0, MostScrolledRows());
  scrolled_pixels_ = std::clamp(pixels, 0, MostScrolledPixels());
}

int GridGeometry::FrozenWidth() const {
  return strip_width_ + Edge(fixed_cols_);
}

int GridGeometry::FrozenHeight() const {
  return StripHeight() + fixed_rows_ * sizes_.row_height;
}

int GridGeometry::PageRows() const {
  return std::max((view_.height() - FrozenHeight()) / sizes_.row_height, 1);
}

int GridGeometry::MostScrolledRows() const {
  return std::max(rows_ - fixed_rows_ - PageRows(), 0);
}

int GridGeometry::MostScrolledPixels() const {
  return std::max(Edge(cols_) - Edge(fixed_cols_) - (view_.width() - FrozenWidth()), 0);
}

GridSpan GridGeometry::ScrollingRows() const {
  const int first = fixed_rows_ + 1 + scrolled_rows_;
  const int room = std::max(view_.height() - FrozenHeight(), 0);
  const int shown = (room + sizes_.row_height - 1) / sizes_.row_height;
  return {first, std::min(first + shown - 1, rows_)};
}

GridSpan GridGeometry::ScrollingCols() const {
  if (view_.width() <= FrozenWidth()) return {};
  const int first = ColumnAt(FrozenWidth());
  return {first, std::min(ColumnAt(view_.width() - 1), cols_)};
}

int GridGeometry::Left(int col) const {
  const int left = strip_width_ + Edge(col - 1);
  return col <= fixed_cols_ ? left : left - scrolled_pixels_;
}

int GridGeometry::Width(int col) const {
  return Edge(col) - Edge(col - 1);
}

int GridGeometry::Top(int row) const {
  const int above = row <= fixed_rows_ ? row - 1 : row - 1 - scrolled_rows_;
  return StripHeight() + above * sizes_.row_height;
}

QRect GridGeometry::Place(const CellRange& range) const {
  const int left = Left(range.SelStartCol);
  const int top = Top(range.SelStartRow);
  const int right = Left(range.SelEndCol) + Width(range.SelEndCol);
  const int bottom = Top(range.SelEndRow) + sizes_.row_height;
  return {left, top, right - left, bottom - top};
}

GridCell GridGeometry::CellAt(QPoint point) const {
  return {RowAt(point.y()), ColumnAt(point.x())};
}

int GridGeometry::ColumnAt(int x) const {
  if (x < strip_width_) return 0;
  int along = x - strip_width_;
  if (x >= FrozenWidth()) along += scrolled_pixels_;
  const auto behind = std::upper_bound(edges_.begin(), edges_.end(), along);
  return static_cast<int>(behind - edges_.begin());
}

int GridGeometry::RowAt(int y) const {
  if (y < StripHeight()) return 0;
  int row = 1 + (y - StripHeight()) / sizes_.row_height;
  if (y >= FrozenHeight()) row += scrolled_rows_;
  return std::min(row, rows_ + 1);
}

std::optional<int> GridGeometry::BorderAt(QPoint point) const {
  if (point.y() >= StripHeight() || point.x() < strip_width_) return std::nullopt;
  const auto is_near = [&](int border) { return std::abs(border - point.x()) <= kBorderReach; };
  if (fixed_cols_ > 0 && is_near(FrozenWidth())) return fixed_cols_;
  const int col = ColumnAt(point.x());
  for (const int candidate : {col - 1, col}) {
    if (candidate < 1 || candidate > cols_) continue;
    const int border = Left(candidate) + Width(candidate);
    const bool is_hidden = candidate > fixed_cols_ && border < FrozenWidth();
    if (!is_hidden && is_near(border)) return candidate;
  }
  return std::nullopt;
}

QPoint GridGeometry::ScrollToShow(GridCell cell) const {
  QPoint scroll(scrolled_pixels_, scrolled_rows_);
  if (cell.row > fixed_rows_) {
    const int place = cell.row - fixed_rows_ - 1;
    scroll.setY(std::clamp(scrolled_rows_, std::max(place - PageRows() + 1, 0), place));
  }
  if (cell.col > fixed_cols_ && cell.col <= cols_) {
    const int left = Edge(cell.col - 1) - Edge(fixed_cols_);
    const int room = view_.width() - FrozenWidth();
    const int least = std::min(left, left + Width(cell.col) - room);
    scroll.setX(std::clamp(scrolled_pixels_, least, left));
  }
  return scroll;
}

}  // namespace vistaplot
