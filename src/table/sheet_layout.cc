#include "table/sheet_layout.h"

namespace vistaplot {

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
