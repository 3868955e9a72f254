// Parameter charts for tests, from rows of text.
#pragma once

#include <string_view>

#include "base/number_text.h"
#include "base/text.h"
#include "charts/view/chart_view.h"

namespace vistaplot {

/// Fills `view` from lines of blank-separated numbers, row 1 first; "-" leaves a cell empty.
inline void FillCellView(std::string_view lines, ChartView& view) {
  int row = 0;
  for (const std::string_view line : Split(lines, '\n')) {
    const auto cells = Split(line, ' ');
    view.rowcount(++row);
    view.ColumnCount(static_cast<int>(cells.size()));
    for (std::size_t i = 0; i < cells.size(); ++i) {
      view.SetData(row, static_cast<int>(i) + 1, LeadingNumber(cells[i]), cells[i] == "-");
    }
  }
}

}  // namespace vistaplot
