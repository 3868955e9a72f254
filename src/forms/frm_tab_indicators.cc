// The parameter screen's indicators, of which not all can be drawn together, and the button of the
// point-and-figure parameters.

#include "forms/frm_tab.h"
#include "forms/screens.h"

namespace vistaplot {

void FrmTab::ConnectIndicators() {
  indicators.chkMoveAvg.Click = [this] { chkMoveAvg_Click(); };
  indicators.chkAMA.Click = [this] { chkAMA_Click(); };
  indicators.chkParabolic.Click = [this] { chkParabolic_Click(); };
  indicators.chkBollinger.Click = [this] { chkBollinger_Click(); };
  indicators.chkHurst.Click = [this] { chkHurst_Click(); };
  indicators.chkCorrelation.Click = [this] { chkCorrelation_Click(); };
  indicators.chkMem.Click = [this] { chkMem_Click(); };
}

void FrmTab::cmdPoint_Click() {
  context_.screens.frmpfp.ShowParameters();
  context_.screens.frmpfp.ShowModal();
}

void FrmTab::chkMoveAvg_Click() {
  OverlayTicked(indicators.chkMoveAvg);
}

void FrmTab::chkAMA_Click() {
  OverlayTicked(indicators.chkAMA);
}

void FrmTab::chkParabolic_Click() {
  OverlayTicked(indicators.chkParabolic);
}

void FrmTab::chkBollinger_Click() {
  OverlayTicked(indicators.chkBollinger);
}

void FrmTab::OverlayTicked(const CheckBox& box) {
  if (!box.Checked()) return;
  indicators.chkMem.SetChecked(false);
  indicators.chkHurst.SetChecked(false);
  indicators.chkCorrelation.SetChecked(false);
  context_.screens.frmMain.tools.ShowSpectrumTools(false);
}

void FrmTab::chkHurst_Click() {
  if (!indicators.chkHurst.Checked()) return;
  indicators.ClearOverlays();
  indicators.chkMem.SetChecked(false);
  indicators.chkCorrelation.SetChecked(false);
  context_.screens.frmMain.tools.ShowSpectrumTools(false);
}

void FrmTab::chkCorrelation_Click() {
  if (!indicators.chkCorrelation.Checked()) return;
  indicators.ClearOverlays();
  indicators.chkMem.SetChecked(false);
  indicators.chkHurst.SetChecked(false);
  optOneAll.SetListIndex(0);
  context_.screens.frmMain.tools.ShowSpectrumTools(false);
}

void FrmTab::chkMem_Click() {
  if (!indicators.chkMem.Checked()) return;
  indicators.ClearOverlays();
  indicators.chkHurst.SetChecked(false);
  indicators.chkCorrelation.SetChecked(false);
  optOneAll.SetListIndex(1);
  context_.screens.frmGraph.Unload();
  context_.screens.frmMain.tools.ShowSpectrumTools(false);
}

}  // namespace vistaplot
