#include "table/sheet.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstdint>
#include <utility>

#include "base/number_text.h"
#include "base/text.h"
#include "table/sorting.h"

namespace vistaplot {

namespace {

// Widths for the usual proportional screen font, whose digits are 110 twips wide at most.
constexpr int kTwipsPerCharacter = 110;
constexpr int kTwipsOfMargin = 220;

// True when all values are numbers that a text of digits can show.
bool AreFinite(std::span<const float> values) {
  constexpr std::uint32_t kExponent = 0x7F800000;
  std::uint32_t found = 0;
  for (const float value : values) {
    const std::uint32_t bits = std::bit_cast<std::uint32_t>(value) & kExponent;
    found |= bits == kExponent ? 1U : 0U;
  }
  return found == 0;
}

template <class T, class Read>
std::vector<T> ReadRows(int first_row, int count, Read read) {
  std::vector<T> numbers(static_cast<std::size_t>(std::max(count, 0)));
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    numbers[i] = static_cast<T>(read(first_row + static_cast<int>(i)));
  }
  return numbers;
}

}  // namespace

void Sheet::ClearAll() {
  for (Column& column : columns_) {
    const int width = column.width;
    column = Column();
    column.width = width;
  }
  records_ = RecordBlock();
  SortedBy = 0;
  heading_tips.clear();
}

std::string Sheet::CellText(int row, int col) const {
  const Column* column = Find(col);
  return column == nullptr ? std::string() : vistaplot::CellText(*column, records_, row);
}

double Sheet::CellNumber(int row, int col) const {
  const Column* column = Find(col);
  return column == nullptr ? 0.0 : vistaplot::CellNumber(*column, records_, row);
}

void Sheet::SetCellText(int row, int col, std::string_view text) {
  assert(row >= 1 && col >= 1);
  vistaplot::SetCellText(Make(col), records_, row, text);
}

void Sheet::SetPriceColumn(int col, std::string_view heading, std::vector<float> values) {
  Column& column = Make(col);
  const bool are_finite = AreFinite(values);
  column.field.reset();
  column.texts.assign(1, std::string(heading));
  column.prices = std::move(values);
  column.is_rounded = false;
  if (!are_finite) TurnIntoText(column, records_);
}

void Sheet::SetTextColumn(int col, std::vector<std::string> texts) {
  Column& column = Make(col);
  column.field.reset();
  column.prices = {};
  column.texts = std::move(texts);
}

void Sheet::SetRecords(int first_row, Records records) {
  assert(first_row >= 1);
  const FixedFields fields = records.fields;
  const int replaced = static_cast<int>(fields.size());
  for (int col = 1; col <= static_cast<int>(columns_.size()); ++col) {
    Column& column = Make(col);
    if (col <= replaced) {
      KeepTexts(column, records_, first_row - 1);
    } else if (column.field) {
      TurnIntoText(column, records_);
    }
  }
  records_ = RecordBlock(first_row, std::move(records));
  for (int col = 1; col <= replaced; ++col) {
    Make(col).field = fields[static_cast<std::size_t>(col) - 1];
  }
}

std::vector<double> Sheet::ColumnNumbers(int col, int first_row, int count) const {
  return ReadRows<double>(first_row, count, [&](int row) { return CellNumber(row, col); });
}

std::vector<float> Sheet::ColumnSingles(int col, int first_row, int count) const {
  const std::span<const float> block = PriceBlock(col);
  if (block.empty()) {
    return ReadRows<float>(first_row, count, [&](int row) { return CellNumber(row, col); });
  }
  const Column& column = *Find(col);
  return ReadRows<float>(first_row, count, [&](int row) -> float {
    return column.HoldsPrice(row) ? column.PriceAt(row) : static_cast<float>(CellNumber(row, col));
  });
}

std::span<const float> Sheet::PriceBlock(int col) const {
  const Column* column = Find(col);
  if (column == nullptr) return {};
  RoundPrices(*column);
  return column->prices;
}

int Sheet::ColumnWidth(int col) const {
  const Column* column = Find(col);
  return column == nullptr ? 0 : column->width;
}

void Sheet::SetColumnWidth(int col, int twips) {
  Make(col).width = twips;
}

void Sheet::FitColumnWidths() {
  for (int col = 1; col <= MaxCol; ++col) {
    Column& column = Make(col);
    const auto longest = static_cast<int>(LongestText(column, records_));
    column.width = longest * kTwipsPerCharacter + kTwipsOfMargin;
  }
}

void Sheet::Sort(const CellRange& block, const SortKeys& keys) {
  const CellRange cells = UsedPart(block);
  if (cells.SelEndRow <= cells.SelStartRow) return;
  std::vector<SortColumn> sort_columns;
  for (const int key : keys) {
    const int col = std::abs(key);
    if (key == 0 || col < cells.SelStartCol || col > cells.SelEndCol) continue;
    const auto key_at = [this, col, first_row = cells.SelStartRow](std::uint32_t i) {
      return KeyAt(first_row + static_cast<int>(i), col);
    };
    sort_columns.push_back({.is_descending = key < 0, .key = key_at});
  }
  if (sort_columns.empty()) return;
  SortedBy = *std::find_if(keys.begin(), keys.end(), [&cells](int key) {
    return std::abs(key) >= cells.SelStartCol && std::abs(key) <= cells.SelEndCol;
  });
  const auto rows = static_cast<std::uint32_t>(cells.SelEndRow - cells.SelStartRow + 1);
  const RowOrder order = SortedOrder(rows, sort_columns);
  MoveRows(cells, order);
}

const Column* Sheet::Find(int col) const {
  if (col < 1 || static_cast<std::size_t>(col) > columns_.size()) return nullptr;
  return &columns_[static_cast<std::size_t>(col) - 1];
}

Column& Sheet::Make(int col) {
  const auto count = static_cast<std::size_t>(col);
  if (count > columns_.size()) columns_.resize(count);
  return columns_[count - 1];
}

CellKey Sheet::KeyAt(int row, int col) const {
  const Column& column = *Find(col);
  if (column.HoldsPrice(row)) {
    return {
        .kind = CellKey::Kind::kNumber, .number = SevenDigitValue(column.PriceAt(row)), .text = {}};
  }
  const StoredText stored = CellBytes(column, records_, row);
  CellKey key = KeyOfText(stored.bytes);
  if (stored.is_record && key.kind == CellKey::Kind::kText) {
    key.text = Utf8FromWindows1252(key.text);
  }
  return key;
}

// The part of a block in which something may stand: rows behind it are empty and would stay last.
CellRange Sheet::UsedPart(const CellRange& block) const {
  CellRange used = block;
  used.SelStartRow = std::max(block.SelStartRow, 1);
  used.SelStartCol = std::max(block.SelStartCol, 1);
  used.SelEndCol = std::min(block.SelEndCol, static_cast<int>(columns_.size()));
  int last_row = 0;
  for (int col = used.SelStartCol; col <= used.SelEndCol; ++col) {
    last_row = std::max(last_row, LastRow(*Find(col), records_));
  }
  used.SelEndRow = std::min(block.SelEndRow, last_row);
  return used;
}

void Sheet::MoveRows(const CellRange& block, const RowOrder& order) {
  MakeMovable(block);
  bool has_records = false;
  for (int col = block.SelStartCol; col <= block.SelEndCol; ++col) {
    Column& column = Make(col);
    if (column.field) {
      has_records = true;
    } else {
      Reorder(column, block.SelStartRow, order);
    }
  }
  if (has_records) records_.Reorder(block.SelStartRow, order);
}

// Turns the columns of a block into text that cannot be reordered as they are held: prices whose
// rows the block passes, and records of which it takes only a part.
void Sheet::MakeMovable(const CellRange& block) {
  bool takes_records = records_.Holds(block.SelStartRow) && records_.Holds(block.SelEndRow);
  for (int col = 1; col <= static_cast<int>(columns_.size()); ++col) {
    const bool is_inside = col >= block.SelStartCol && col <= block.SelEndCol;
    if (!is_inside && Find(col)->field) takes_records = false;
  }
  for (int col = block.SelStartCol; col <= block.SelEndCol; ++col) {
    Column& column = Make(col);
    const bool passes_prices = !column.prices.empty() && !(column.HoldsPrice(block.SelStartRow) &&
                                                           column.HoldsPrice(block.SelEndRow));
    if (passes_prices || (column.field && !takes_records)) TurnIntoText(column, records_);
  }
}

void LayOutFields(Sheet& sheet, FixedFields fields, int heading_rows) {
  sheet.MaxCol = static_cast<int>(fields.size());
  sheet.FixedRows = heading_rows;
  sheet.FixedCols = 0;
  int col = 0;
  for (const FixedField& field : fields) {
    ++col;
    if (field.column_width > 0) sheet.SetColumnWidth(col, field.column_width);
    if (!field.heading.empty()) sheet.SetCellText(1, col, field.heading);
    if (!field.heading2.empty()) sheet.SetCellText(2, col, field.heading2);
  }
}

void EndAtRow(Sheet& sheet, int max_row) {
  sheet.MaxRow = max_row;
  sheet.Row = max_row;
  sheet.Col = sheet.MaxCol;
  sheet.Select({.SelStartRow = sheet.MaxRow,
                .SelStartCol = sheet.MaxCol,
                .SelEndRow = sheet.MaxRow,
                .SelEndCol = sheet.MaxCol});
}

}  // namespace vistaplot
