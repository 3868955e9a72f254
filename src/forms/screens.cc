#include "forms/screens.h"

namespace vistaplot {

Screens::Screens(const ScreenParts& parts)
    : context{parts.quoteline,
              parts.settings,
              parts.dialogs,
              parts.host,
              parts.output,
              parts.state,
              *this},
      frmMain(context),
      frmTab(context),
      frmData(context),
      frmGraph(context),
      frmPer(context),
      frmCalc(context),
      frmSort(context),
      frmSheet(context),
      frmDir(context),
      frmpfp(context),
      frmFam(context),
      drawing(context) {}

std::vector<Form*> Screens::All() {
  return {&frmMain,
          &frmTab,
          &frmData,
          &frmGraph,
          &frmPer,
          &frmCalc,
          &frmSort,
          &frmSheet,
          &frmDir,
          &frmpfp,
          &frmFam};
}

}  // namespace vistaplot
