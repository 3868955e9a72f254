#include "table/column.h"

#include <algorithm>
#include <utility>

#include "base/number_text.h"
#include "base/text.h"

namespace vistaplot {

namespace {

template <class T>
void Gather(std::span<T> block, const RowOrder& order) {
  std::vector<T> moved;
  moved.reserve(order.size());
  for (const std::uint32_t place : order) moved.push_back(std::move(block[place]));
  std::move(moved.begin(), moved.end(), block.begin());
}

bool HoldsRecord(const Column& column, const RecordBlock& records, int row) {
  return column.field.has_value() && records.Holds(row);
}

// Stores a text that is exactly a price's text as a price again; false when it is none.
bool SetAsPrice(Column& column, int row, std::string_view text) {
  const auto number = WholeNumber(text);
  if (!number) return false;
  const auto price = static_cast<float>(*number);
  if (NumberText(price) != text) return false;
  column.prices[static_cast<std::size_t>(row) - 2] = price;
  return true;
}

}  // namespace

void RecordBlock::Reorder(int first_row, const RowOrder& order) {
  const auto start = static_cast<std::size_t>(first_row - first_row_);
  Gather(std::span(records_.starts).subspan(start, order.size()), order);
}

int LastRow(const Column& column, const RecordBlock& records) {
  int last = static_cast<int>(column.texts.size());
  if (!column.prices.empty()) last = std::max(last, static_cast<int>(column.prices.size()) + 1);
  if (column.field) last = std::max(last, records.LastRow());
  return last;
}

StoredText CellBytes(const Column& column, const RecordBlock& records, int row) {
  if (HoldsRecord(column, records, row)) {
    return {.bytes = records.Cut(row, *column.field), .is_record = true};
  }
  const auto index = static_cast<std::size_t>(row) - 1;
  if (row < 1 || index >= column.texts.size()) return {};
  return {.bytes = column.texts[index], .is_record = false};
}

std::string CellText(const Column& column, const RecordBlock& records, int row) {
  if (column.HoldsPrice(row)) return NumberText(column.PriceAt(row));
  const StoredText stored = CellBytes(column, records, row);
  return stored.is_record ? Utf8FromWindows1252(stored.bytes) : std::string(stored.bytes);
}

double CellNumber(const Column& column, const RecordBlock& records, int row) {
  if (column.HoldsPrice(row)) return SevenDigitValue(column.PriceAt(row));
  return LeadingNumber(CellBytes(column, records, row).bytes);
}

void SetCellText(Column& column, const RecordBlock& records, int row, std::string_view text) {
  if (column.HoldsPrice(row) && SetAsPrice(column, row, text)) return;
  if (column.HoldsPrice(row) || HoldsRecord(column, records, row)) TurnIntoText(column, records);
  const auto index = static_cast<std::size_t>(row) - 1;
  if (index >= column.texts.size()) column.texts.resize(index + 1);
  column.texts[index] = text;
}

void KeepTexts(Column& column, const RecordBlock& records, int last_row) {
  const auto kept = static_cast<std::size_t>(std::min(last_row, LastRow(column, records)));
  if (column.prices.empty() && !column.field) return column.texts.resize(kept);
  std::vector<std::string> texts(kept);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    texts[i] = CellText(column, records, static_cast<int>(i) + 1);
  }
  column.texts = std::move(texts);
  column.prices = {};
  column.field.reset();
}

void TurnIntoText(Column& column, const RecordBlock& records) {
  if (column.prices.empty() && !column.field) return;
  KeepTexts(column, records, LastRow(column, records));
}

void RoundPrices(const Column& column) {
  if (column.is_rounded) return;
  for (float& price : column.prices) price = static_cast<float>(SevenDigitValue(price));
  column.is_rounded = true;
}

std::size_t LongestText(const Column& column, const RecordBlock& records) {
  std::size_t longest = 0;
  for (const std::string& text : column.texts) {
    // UTF-8 has at least as many bytes as characters.
    if (text.size() > longest) longest = std::max(longest, CharacterCount(text));
  }
  std::string buffer;
  for (const float price : column.prices) {
    buffer.clear();
    AppendNumberText(buffer, price);
    longest = std::max(longest, buffer.size());
  }
  const bool has_records = column.field && records.LastRow() >= 1;
  return has_records ? std::max(longest, column.field->width) : longest;
}

void Reorder(Column& column, int first_row, const RowOrder& order) {
  if (column.HoldsPrice(first_row)) {
    const auto start = static_cast<std::size_t>(first_row) - 2;
    Gather(std::span(column.prices).subspan(start, order.size()), order);
    return;
  }
  const auto start = static_cast<std::size_t>(first_row) - 1;
  if (column.texts.size() <= start) return;
  column.texts.resize(std::max(column.texts.size(), start + order.size()));
  Gather(std::span(column.texts).subspan(start, order.size()), order);
}

}  // namespace vistaplot
