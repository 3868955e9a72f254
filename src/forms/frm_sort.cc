#include "forms/frm_sort.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "charts/builders/summary_parameters.h"
#include "forms/busy_scope.h"
#include "forms/screens.h"
#include "table/sorting.h"

namespace vistaplot {

namespace {

constexpr int kDescending = 1;  ///< position in a pair of orders

std::string CellsText(const CellRange& block) {
  if (IsEmpty(block)) return "no rows to sort";
  return "rows " + std::to_string(block.SelStartRow) + " to " + std::to_string(block.SelEndRow) +
         ", columns " + std::to_string(block.SelStartCol) + " to " +
         std::to_string(block.SelEndCol);
}

}  // namespace

FrmSort::FrmSort(const Context& context)
    : Form("frmSort", "Sort", FormStyle::kDialog, context.host), context_(context) {
  Add({{&lblBlock, "lblBlock", "", At(180, 150, 6960, 510)}});
  DesignKey(1, lblSort1, cboSort1, fraOrder1, optOrder1);
  DesignKey(2, lblSort2, cboSort2, fraOrder2, optOrder2);
  DesignKey(3, lblSort3, cboSort3, fraOrder3, optOrder3);
  Add({{&cmdSort, "cmdSort", "Sort", At(2100, 4560, 1320, 420)},
       {&cmdCancel, "cmdCancel", "Cancel", At(3900, 4560, 1320, 420)}});
  cmdSort.Click = [this] { cmdSort_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void FrmSort::DesignKey(
    int number, Label& label, ComboBox& keys, Frame& frame, OptionGroup& order) {
  const std::string digit = std::to_string(number);
  const std::string key = "Sort Key " + digit;
  const float top = 780.0F + 1260.0F * static_cast<float>(number - 1);
  Add({{&label, "lblSort" + digit, key + ":", At(180, top + 60.0F, 1200, 255)},
       {&keys, "cboSort" + digit, "", At(1440, top, 2820, 330)},
       {&frame, "fraOrder" + digit, key + " Order", At(4440, top - 90.0F, 2700, 1140)},
       {&order, "optOrder" + digit, "", At(4590, top + 180.0F, 2400, 780), &frame}});
  order.SetEntries({"Ascending Order", "Descending Order"});
  order.Preset(0);
}

void FrmSort::ShowSortDialog() {
  DataTable& table = context_.state.table;
  const SortSheets& sheets = context_.state.sort_sheets;
  for (int number = sheets.SortFirstSheet; number <= sheets.SortLastSheet; ++number) {
    SelectForSort(table.SheetAt(number));
    table.NotifyContent(number);
  }
  Load();
  FillKeys();
  lblBlock.SetCaption(BlockText());
  ShowModal();
}

void FrmSort::FillKeys() {
  const bool kestrelix = context_.screens.frmTab.ChosenDataType() == DataType::kKestrelix;
  std::vector<std::string> names = SortKeyNames(context_.state.table.Active(), kestrelix);
  cboSort1.SetEntries(names);
  cboSort1.SetListIndex(0);
  names.emplace_back("None");
  for (ComboBox* keys : {&cboSort2, &cboSort3}) {
    keys->SetEntries(names);
    keys->SetListIndex(keys->Count() - 1);
  }
  for (OptionGroup* order : {&optOrder1, &optOrder2, &optOrder3}) order->Preset(0);
}

std::string FrmSort::BlockText() const {
  constexpr int kNamed = 4;  // more sheets are counted
  const DataTable& table = context_.state.table;
  const int first = context_.state.sort_sheets.SortFirstSheet;
  const int last = context_.state.sort_sheets.SortLastSheet;
  if (first == last) {
    const Sheet& sheet = table.SheetAt(first);
    return sheet.SheetName + ": " + CellsText(SortBlock(sheet));
  }
  std::string text = std::to_string(last - first + 1) + " sheets: ";
  for (int number = first; number <= std::min(last, first + kNamed - 1); ++number) {
    text += (number == first ? "" : ", ") + table.SheetAt(number).SheetName;
  }
  if (last - first >= kNamed) text += ", ...";
  const Sheet& active = table.Active();
  return text + "; of " + active.SheetName + " " + CellsText(SortBlock(active));
}

int FrmSort::FirstKeyColumn() const {
  const Sheet& active = context_.state.table.Active();
  return active.selection.empty() ? 1 : active.selection.front().SelStartCol;
}

// The entry "None" is told by its position: a column may be called so.
int FrmSort::KeyOf(const ComboBox& keys, const OptionGroup& order, bool may_be_none) const {
  const int entry = keys.ListIndex();
  if (entry < 0 || (may_be_none && entry == keys.Count() - 1)) return 0;
  const int column = FirstKeyColumn() + entry;
  return order.ListIndex() == kDescending ? -column : column;
}

void FrmSort::cmdSort_Click() {
  const SortKeys keys = {KeyOf(cboSort1, optOrder1, false),
                         KeyOf(cboSort2, optOrder2, true),
                         KeyOf(cboSort3, optOrder3, true)};
  Unload();
  DataTable& table = context_.state.table;
  const HourglassScope hourglass(context_.screens.frmMain);
  const SortSheets& sheets = context_.state.sort_sheets;
  for (int number = sheets.SortFirstSheet; number <= sheets.SortLastSheet; ++number) {
    Sheet& sheet = table.SheetAt(number);
    SelectForSort(sheet);
    sheet.Sort(SortBlock(sheet), keys);
    table.NotifyContent(number);
  }
}

void FrmSort::cmdCancel_Click() {
  Unload();
}

FrmSheet::FrmSheet(const Context& context)
    : Form("frmSheet", "Choose a sheet", FormStyle::kDialog, context.host), state_(context.state) {
  Add({{&lblSheet, "lblSheet", "Sheet:", At(180, 210, 900, 255)},
       {&cboSheet, "cboSheet", "", At(1140, 180, 3120, 330)},
       {&cmdOK, "cmdOK", "OK", At(720, 780, 1320, 420)},
       {&cmdCancel, "cmdCancel", "Cancel", At(2400, 780, 1320, 420)}});
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void FrmSheet::cmdOK_Click() {
  state_.sheet_choice = {.SheetDialogResult = 1, .ChosenSheetIndex = cboSheet.ListIndex()};
  Unload();
}

void FrmSheet::cmdCancel_Click() {
  state_.sheet_choice.SheetDialogResult = 2;
  Unload();
}

}  // namespace vistaplot
