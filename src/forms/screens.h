// All screens of the program, each with its one instance.
#pragma once

#include <vector>

#include "forms/drawing.h"
#include "forms/frm_calc.h"
#include "forms/frm_data.h"
#include "forms/frm_fam.h"
#include "forms/frm_graph.h"
#include "forms/frm_main.h"
#include "forms/frm_pfp.h"
#include "forms/frm_sort.h"
#include "forms/frm_tab.h"
#include "forms/shared_state.h"

namespace vistaplot {

/// What the screens are made from; all of it outlives them.
struct ScreenParts {
  QuotelineApi& quoteline;
  Settings& settings;
  Dialogs& dialogs;
  FormHost& host;
  Output& output;
  SharedState& state;
};

struct Screens {
  explicit Screens(const ScreenParts& parts);
  Screens(const Screens&) = delete;
  Screens& operator=(const Screens&) = delete;

  Context context;  ///< first, as every screen keeps a reference to it

  FrmMain frmMain;
  FrmTab frmTab;
  FrmData frmData;
  FrmGraph frmGraph;
  FrmPer frmPer;
  FrmCalc frmCalc;
  FrmSort frmSort;
  FrmSheet frmSheet;
  FrmDir frmDir;
  Frmpfp frmpfp;
  FrmFam frmFam;

  Drawing drawing;

  /// In the order above.
  std::vector<Form*> All();
};

}  // namespace vistaplot
