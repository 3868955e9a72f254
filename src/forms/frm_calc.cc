#include "forms/frm_calc.h"

#include "controls/scaling.h"

namespace vistaplot {

FrmCalc::FrmCalc(const Context& context)
    : Form("frmCalc", "Calculations", FormStyle::kScreen, context.host) {
  Add({{&lblSigfiles, "lblSigfiles", "Signal files:", At(180, 150, 2400, 255)},
       {&lstSigfiles, "lstSigfiles", "", At(180, 420, 2400, 6480)}});
  lstSigfiles.multi_select = true;
  lstSigfiles.fixed_pitch = true;
}

void FrmCalc::Form_Load() {
  ScaleControls(*this, kDesignWidth, kDesignHeight, Host().Display());
}

}  // namespace vistaplot
