// The order in which the rows of a sheet are sorted.
//
// A cell that is a number as a whole (blanks around it dropped) sorts by its value; one that is a
// date as a whole (month/day/year, the year of two or four digits) by its day; any other cell as
// text, case ignored, blanks around it dropped. Ascending: numbers, dates, texts; descending:
// texts, dates, numbers. Empty cells, and cells of blanks alone, come last in both directions. Rows
// that are equal in every key keep their order in both directions.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "table/column.h"

namespace vistaplot {

/// What a cell sorts as.
struct CellKey {
  enum class Kind { kNumber, kDate, kText, kEmpty };

  Kind kind = Kind::kEmpty;
  double number = 0.0;  ///< a date's serial
  std::string text;     ///< trimmed, letters folded
};

CellKey KeyOfText(std::string_view text);

/// One key of a sort.
struct SortColumn {
  bool is_descending = false;
  /// The key of the row at a 0-based place. Asked once a row at most; keys behind the first one are
  /// asked only for rows that are equal in those before.
  std::function<CellKey(std::uint32_t)> key;
};

/// The order of `row_count` rows by the keys, the first one weighing most.
RowOrder SortedOrder(std::uint32_t row_count, std::span<const SortColumn> columns);

}  // namespace vistaplot
