#include "table/sorting.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

#include "base/date.h"
#include "base/number_text.h"
#include "base/text.h"

namespace vistaplot {

namespace {

struct NumberedRow {
  std::uint64_t bits;  // sorts as the number does
  std::uint32_t row;
};

struct TextRow {
  std::string text;
  std::uint32_t row;
};

// A double's bits, changed so that they sort as unsigned numbers; -0 equals 0.
std::uint64_t SortableBits(double number) {
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63U;
  const auto bits = std::bit_cast<std::uint64_t>(number == 0.0 ? 0.0 : number);
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

// The serial of a date that is written month/day/year; other forms of dates are texts here.
std::optional<double> MonthFirstDate(std::string_view text) {
  const std::size_t slash = text.find('/');
  if (slash > 2 || text.find('-') != std::string_view::npos) return std::nullopt;
  const auto date = ParseDate(text);
  if (!date) return std::nullopt;
  return static_cast<double>(*date);
}

// One stable pass of a radix sort over the byte at `shift`; false when all rows share that byte.
bool RadixPass(std::vector<NumberedRow>& rows, std::vector<NumberedRow>& spare, unsigned shift) {
  std::array<std::uint32_t, 256> starts{};
  for (const NumberedRow& row : rows) ++starts[(row.bits >> shift) & 255U];
  if (starts[(rows[0].bits >> shift) & 255U] == rows.size()) return false;
  std::uint32_t start = 0;
  for (std::uint32_t& count : starts) start += std::exchange(count, start);
  spare.resize(rows.size());
  for (const NumberedRow& row : rows) spare[starts[(row.bits >> shift) & 255U]++] = row;
  return true;
}

void SortNumbers(std::vector<NumberedRow>& rows, std::vector<NumberedRow>& spare) {
  constexpr std::size_t kFewRows = 256;  // below, eight passes cost more than comparing
  const auto less = [](const NumberedRow& a, const NumberedRow& b) { return a.bits < b.bits; };
  if (std::is_sorted(rows.begin(), rows.end(), less)) return;
  if (rows.size() < kFewRows) {
    std::stable_sort(rows.begin(), rows.end(), less);
    return;
  }
  for (unsigned shift = 0; shift < 64; shift += 8) {
    if (RadixPass(rows, spare, shift)) rows.swap(spare);
  }
}

class Sorter {
 public:
  Sorter(std::uint32_t row_count, std::span<const SortColumn> columns)
      : columns_(columns), scratch_(columns.size()), order_(row_count) {
    std::iota(order_.begin(), order_.end(), 0U);
  }

  RowOrder Run() {
    SortRun(0, order_.size(), 0);
    return std::move(order_);
  }

 private:
  // Lists of one key; a run's sort is done with them before the next run of its key begins.
  struct Scratch {
    std::vector<NumberedRow> numbers;
    std::vector<NumberedRow> dates;
    std::vector<NumberedRow> spare;
    std::vector<TextRow> texts;
    std::vector<std::uint32_t> empties;
    std::vector<std::size_t> run_ends;  // where rows equal in this key end
  };

  // Sorts places begin to end - 1, equal in all keys before `level`, by that key and those behind.
  void SortRun(std::size_t begin, std::size_t end, std::size_t level) {
    if (level == columns_.size() || end - begin < 2) return;
    Scratch& scratch = scratch_[level];
    const bool is_descending = columns_[level].is_descending;
    ReadKeys(begin, end, columns_[level], scratch);
    SortNumbers(scratch.numbers, scratch.spare);
    SortNumbers(scratch.dates, scratch.spare);
    SortTexts(scratch.texts, is_descending);
    scratch.run_ends.clear();
    std::size_t place = begin;
    if (is_descending) place = StoreTexts(scratch, place);
    place = StoreNumbers(is_descending ? scratch.dates : scratch.numbers, scratch, place);
    place = StoreNumbers(is_descending ? scratch.numbers : scratch.dates, scratch, place);
    if (!is_descending) place = StoreTexts(scratch, place);
    for (const std::uint32_t row : scratch.empties) order_[place++] = row;
    scratch.run_ends.push_back(place);
    std::size_t run_begin = begin;
    for (const std::size_t run_end : scratch.run_ends) {
      SortRun(run_begin, run_end, level + 1);
      run_begin = run_end;
    }
  }

  void ReadKeys(std::size_t begin, std::size_t end, const SortColumn& column, Scratch& scratch) {
    scratch.numbers.clear();
    scratch.dates.clear();
    scratch.texts.clear();
    scratch.empties.clear();
    for (std::size_t place = begin; place < end; ++place) {
      const std::uint32_t row = order_[place];
      CellKey key = column.key(row);
      if (key.kind == CellKey::Kind::kText) {
        if (scratch.texts.empty()) scratch.texts.reserve(end - place);
        scratch.texts.push_back({std::move(key.text), row});
      } else if (key.kind == CellKey::Kind::kEmpty) {
        scratch.empties.push_back(row);
      } else {
        const std::uint64_t bits = SortableBits(key.number);
        auto& rows = key.kind == CellKey::Kind::kDate ? scratch.dates : scratch.numbers;
        rows.push_back({column.is_descending ? ~bits : bits, row});
      }
    }
  }

  static void SortTexts(std::vector<TextRow>& rows, bool is_descending) {
    std::stable_sort(rows.begin(), rows.end(), [is_descending](const TextRow& a, const TextRow& b) {
      return is_descending ? b.text < a.text : a.text < b.text;
    });
  }

  std::size_t StoreNumbers(const std::vector<NumberedRow>& rows,
                           Scratch& scratch,
                           std::size_t place) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
      order_[place++] = rows[i].row;
      const bool ends_run = i + 1 == rows.size() || rows[i].bits != rows[i + 1].bits;
      if (ends_run) scratch.run_ends.push_back(place);
    }
    return place;
  }

  std::size_t StoreTexts(Scratch& scratch, std::size_t place) {
    for (std::size_t i = 0; i < scratch.texts.size(); ++i) {
      order_[place++] = scratch.texts[i].row;
      const bool ends_run =
          i + 1 == scratch.texts.size() || scratch.texts[i].text != scratch.texts[i + 1].text;
      if (ends_run) scratch.run_ends.push_back(place);
    }
    return place;
  }

  std::span<const SortColumn> columns_;
  std::vector<Scratch> scratch_;
  RowOrder order_;
};

}  // namespace

CellKey KeyOfText(std::string_view text) {
  const std::string_view trimmed = TrimWhite(text);
  if (trimmed.empty()) return {};
  if (const auto number = WholeNumber(trimmed)) {
    return {.kind = CellKey::Kind::kNumber, .number = *number, .text = {}};
  }
  if (const auto date = MonthFirstDate(trimmed)) {
    return {.kind = CellKey::Kind::kDate, .number = *date, .text = {}};
  }
  return {.kind = CellKey::Kind::kText, .number = 0.0, .text = LowerCase(trimmed)};
}

RowOrder SortedOrder(std::uint32_t row_count, std::span<const SortColumn> columns) {
  return Sorter(row_count, columns).Run();
}

namespace {

CellRange SelectionOf(const Sheet& sheet) {
  if (!sheet.selection.empty()) return sheet.selection.front();
  return {.SelStartRow = sheet.MaxRow,
          .SelStartCol = sheet.MaxCol,
          .SelEndRow = sheet.MaxRow,
          .SelEndCol = sheet.MaxCol};
}

std::string NameOf(const Sheet& sheet, int col, bool by_second_row) {
  const auto heading = [&](int row) { return std::string(TrimBlanks(sheet.CellText(row, col))); };
  if (by_second_row) return heading(2);
  if (sheet.FixedRows < 2) return heading(1);
  return heading(1) + " " + heading(2);
}

}  // namespace

void SelectForSort(Sheet& sheet) {
  CellRange range = SelectionOf(sheet);
  if (range.SelStartRow != sheet.MaxRow || range.SelStartCol != sheet.MaxCol) return;
  range.SelStartRow = sheet.FixedRows + 1;
  range.SelStartCol = 1;
  sheet.Select(range);
}

CellRange SortBlock(const Sheet& sheet) {
  CellRange block = SelectionOf(sheet);
  block.SelStartRow = std::max(block.SelStartRow, sheet.FixedRows + 1);
  block.SelEndRow = std::min(block.SelEndRow, sheet.MaxRow);
  block.SelEndCol = std::min(block.SelEndCol, sheet.MaxCol);
  return block;
}

std::vector<std::string> SortKeyNames(const Sheet& sheet, bool by_second_row) {
  const CellRange selection = SelectionOf(sheet);
  std::vector<std::string> names;
  for (int col = selection.SelStartCol; col <= std::min(selection.SelEndCol, sheet.MaxCol); ++col) {
    names.push_back(NameOf(sheet, col, by_second_row));
  }
  return names;
}

}  // namespace vistaplot
