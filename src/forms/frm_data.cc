#include "forms/frm_data.h"

#include <cstddef>
#include <optional>
#include <string>

#include "controls/form.h"
#include "forms/screens.h"

namespace vistaplot {

namespace {

/// The column of the price sheet whose heading is `symbol`; the dates in column 1 take no part.
std::optional<int> ColumnOfSymbol(const Sheet& prices, const std::string& symbol) {
  if (symbol.empty()) return std::nullopt;
  for (int col = 2; col <= prices.MaxCol; ++col) {
    if (prices.CellText(1, col) == symbol) return col;
  }
  return std::nullopt;
}

/// Makes a sheet active again when a scope ends.
class ActiveSheetScope {
 public:
  ActiveSheetScope(DataTable& table, int sheet) : table_(table), sheet_(sheet) {}
  ~ActiveSheetScope() { table_.SetActiveSheet(sheet_); }
  ActiveSheetScope(const ActiveSheetScope&) = delete;
  ActiveSheetScope& operator=(const ActiveSheetScope&) = delete;

 private:
  DataTable& table_;
  int sheet_;
};

}  // namespace

FrmData::FrmData(const Context& context)
    : Form("frmData", "Data", FormStyle::kScreen, context.host), context_(context) {
  Add({{&F1Book1, "F1Book1", "", At(0, 0, 9600, 7200)}});
  F1Book1.SetHelpTopic("Look at the data");
  F1Book1.Click = [this](int row, int col) { F1Book1_Click(row, col); };
  F1Book1.RClick = [this](int row, int col) { F1Book1_RClick(row, col); };
}

void FrmData::Form_Load() {
  ScaleControls(*this, kDesignWidth, kDesignHeight, Host().Display());
}

void FrmData::F1Book1_Click(int /*row*/, int col) {
  DataTable& table = context_.state.table;
  if (table.ActiveSheet() != kSummarySheet) return;
  const int column = col == 0 ? 1 : col;
  if (column < 1 || column >= static_cast<int>(table.SortToggle.size())) return;
  int& toggle = table.SortToggle[static_cast<std::size_t>(column)];
  // The toggle remembers the direction of the next click: +1 ascending, as every load sets it.
  toggle = toggle == 1 ? -1 : 1;
  const int key = toggle == 1 ? -column : column;
  Sheet& summary = table.Active();
  summary.Sort({.SelStartRow = summary.FixedRows + 1,
                .SelStartCol = 1,
                .SelEndRow = summary.MaxRow,
                .SelEndCol = summary.MaxCol},
               {key, 0, 0});
  table.NotifyContent(kSummarySheet);
}

void FrmData::F1Book1_RClick(int row, int /*col*/) {
  DataTable& table = context_.state.table;
  if (table.SheetCount() < kSummarySheet) return;
  const ActiveSheetScope back(table, kSummarySheet);
  table.SetActiveSheet(kPriceSheet);
  Sheet& prices = table.Active();
  const auto col = ColumnOfSymbol(prices, table.SheetAt(kSummarySheet).CellText(row, 1));
  if (!col) return;
  prices.Select(
      {.SelStartRow = 1, .SelStartCol = *col, .SelEndRow = prices.MaxRow, .SelEndCol = *col});
  table.NotifyContent(kPriceSheet);
  context_.screens.frmMain.mnuFileGraph_Click();
}

}  // namespace vistaplot
