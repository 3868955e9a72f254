#include "table/sheet_display.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

#include "base/text.h"

namespace vistaplot {

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
