#include "table/sheet_text.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

#include "base/text.h"

namespace vistaplot {

namespace {

bool AnyHolds(const std::vector<CellRange>& ranges, int row, int col) {
  return std::any_of(
      ranges.begin(), ranges.end(), [&](const CellRange& range) { return Holds(range, row, col); });
}

// The lines from 1 to `count` that one of the ranges takes, in order.
std::vector<int> TakenLines(const std::vector<CellRange>& ranges,
                            int CellRange::*first,
                            int CellRange::*last,
                            int count) {
  std::vector<bool> is_taken(static_cast<std::size_t>(std::max(count, 0)) + 1, false);
  for (const CellRange& range : ranges) {
    for (int line = range.*first; line <= range.*last; ++line) {
      is_taken[static_cast<std::size_t>(line)] = true;
    }
  }
  std::vector<int> lines;
  for (int line = 1; line <= count; ++line) {
    if (is_taken[static_cast<std::size_t>(line)]) lines.push_back(line);
  }
  return lines;
}

std::vector<CellRange> UsedParts(const Sheet& sheet, const std::vector<CellRange>& ranges) {
  const CellRange extent{
      .SelStartRow = 1, .SelStartCol = 1, .SelEndRow = sheet.MaxRow, .SelEndCol = sheet.MaxCol};
  std::vector<CellRange> parts;
  for (const CellRange& range : ranges) {
    const CellRange part = Common(range, extent);
    if (!IsEmpty(part)) parts.push_back(part);
  }
  return parts;
}

}  // namespace

std::string SheetCsv(const Sheet& sheet, CellEnds ends) {
  std::string csv;
  for (int row = 1; row <= sheet.MaxRow; ++row) {
    for (int col = 1; col <= sheet.MaxCol; ++col) {
      if (col > 1) csv += ',';
      const std::string text = sheet.CellText(row, col);
      AppendCsvField(csv, ends == CellEnds::kTrimmed ? TrimRightBlanks(text) : text);
    }
    csv += "\r\n";
  }
  return csv;
}

std::string TabbedText(const Sheet& sheet, const std::vector<CellRange>& ranges) {
  const std::vector<CellRange> parts = UsedParts(sheet, ranges);
  const std::vector<int> rows =
      TakenLines(parts, &CellRange::SelStartRow, &CellRange::SelEndRow, sheet.MaxRow);
  const std::vector<int> cols =
      TakenLines(parts, &CellRange::SelStartCol, &CellRange::SelEndCol, sheet.MaxCol);
  std::string text;
  for (const int row : rows) {
    for (const int col : cols) {
      if (col != cols.front()) text += '\t';
      if (AnyHolds(parts, row, col)) text += TrimRightBlanks(sheet.CellText(row, col));
    }
    text += '\n';
  }
  return text;
}

namespace {

constexpr float kNoPrice = -1.0F;
constexpr int kFirstPriceRow = 2;  // row of element 0 of a PriceBlock

bool IsPrice(float value) {
  return value != kNoPrice;
}

}  // namespace

int FirstRowToShow(const Sheet& sheet) {
  const int opening = std::max(sheet.FixedRows, 0) + 1;
  int first = sheet.MaxRow + 1;
  for (int col = sheet.FixedCols + 1; col <= sheet.MaxCol; ++col) {
    const std::span<const float> prices = sheet.PriceBlock(col);
    const auto found = std::find_if(prices.begin(), prices.end(), IsPrice);
    if (found == prices.end()) continue;
    first = std::min(first, kFirstPriceRow + static_cast<int>(found - prices.begin()));
  }
  return first > sheet.MaxRow ? opening : std::max(first, opening);
}

bool IsTitle(const Sheet& sheet, int row, int col) {
  if (col != 1 || row > sheet.FixedRows) return false;
  for (int behind = 2; behind <= sheet.MaxCol; ++behind) {
    if (!sheet.CellText(row, behind).empty()) return false;
  }
  return sheet.MaxCol > 1;
}

bool IsFaint(const Sheet& sheet, int row, int col) {
  const std::span<const float> prices = sheet.PriceBlock(col);
  const int at = row - kFirstPriceRow;
  if (at < 0 || static_cast<std::size_t>(at) >= prices.size()) return false;
  const auto index = static_cast<std::size_t>(at);
  return !IsPrice(prices[index]) || (index > 0 && prices[index] == prices[index - 1]);
}

std::string HeadingTip(const Sheet& sheet, int col) {
  const auto index = static_cast<std::size_t>(col) - 1;
  if (col >= 1 && index < sheet.heading_tips.size()) return sheet.heading_tips[index];
  if (col < 1 || sheet.PriceBlock(col).empty()) return {};
  return "Daily prices of " + std::string(TrimBlanks(sheet.CellText(1, col))) +
         ". Faint: no price yet (-1), or the price of the day before again";
}

int PlacesFromPoint(const std::string& text) {
  const std::string_view number = TrimBlanks(text);
  const std::size_t point = number.find('.');
  return point == std::string_view::npos ? 0 : static_cast<int>(number.size() - point);
}

}  // namespace vistaplot
