#include "forms/frm_sheet.h"

namespace vistaplot {

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
