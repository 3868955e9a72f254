// The main window: menus, tool bar, status panels, and the commands that drive the other screens.
#pragma once

#include <array>
#include <string_view>

#include "controls/form.h"
#include "controls/simple_controls.h"
#include "controls/value_controls.h"
#include "controls/view_controls.h"
#include "forms/context.h"
#include "forms/panel_progress.h"

namespace vistaplot {

class FrmMain : public Form {
 public:
  explicit FrmMain(const Context& context);

  MenuItem mnuFile;
  MenuItem mnuFileGraph;
  MenuItem mnuFileSaveChart;
  MenuItem mnuFileSaveSheet;
  MenuItem mnuFilePrint;
  MenuItem mnuFileExit;
  MenuItem mnuEdit;
  MenuItem mnuEditCopy;
  MenuItem mnuEditSort;
  MenuItem mnuEditSortAll;
  MenuItem mnuTime;
  std::array<MenuItem, 10> mnuTimePeriod;
  MenuItem mnuFamily;
  MenuItem mnuFamilySelect;
  MenuItem mnuWindow;
  MenuItem mnuWindowCascade;
  MenuItem mnuwindowTile;
  MenuItem mnuWindowArrange;
  MenuItem mnuWindowNext;
  MenuItem mnuWindowPrevious;
  MenuItem mnuWindowFullScreen;
  MenuItem mnuHelp;
  MenuItem mnuHelpKeys;
  MenuItem mnuHelpAbout;

  Panel pnlTool;
  Button cmdGraph;
  Button cmdSort;
  Button cmdSortAll;
  Button cmdPrev;
  Button cmdNext;
  Button cmdSpectBack;
  Button cmdSpectFwd;
  Button cmdClear;
  Button cmdShowMain;
  Button cmdShowData;
  Button cmdShowGraph;
  Button cmdShowCalc;
  TextBox TxtToolTip;
  Timer Timer1;

  Panel pnlAction;
  Panel pnlMeter;
  Panel pnlStatus;

  /// Action and meter panel, for long operations.
  PanelProgress progress{pnlAction, pnlMeter};

  void mnuFileGraph_Click();
  void mnuFileSaveChart_Click();
  void mnuFileSaveSheet_Click();
  void mnuFilePrint_Click();
  void mnuEditCopy_Click();
  void mnuTimePeriod_Click(int index);
  void cmdNext_Click();
  void cmdPrev_Click();
  void cmdShowMain_Click();
  void cmdShowData_Click();
  void cmdShowGraph_Click();
  void cmdShowCalc_Click();
  void mnuFamilySelect_Click();
  void mnuHelpAbout_Click();
  void mnuFileExit_Click();

  /// Puts the text of tip TipIndex (1 to 12) into TxtToolTip and shows it; other numbers do
  /// nothing.
  void ShowTip();
  /// The pointer left the tool bar: no tip.
  void HideTip();

  /// The command that saves what the user looks at: the sheet of the data screen, else the chart.
  const MenuItem& SaveCommand() const;

  /// Enables or disables the four sort commands.
  void EnableSorting(bool enabled);

 protected:
  void Form_Load() override;  ///< scales the window, loads the parameter screen

 private:
  void DesignMenus();
  void DesignToolBar();
  void DesignPanels();
  void ConnectMenus();
  void ConnectTools();
  void StepFund(int step);
  ChartBox& ShownChart() const;  ///< of the graph screen that is in front, or was last
  bool DataInFront() const;
  /// A box that says what failed and why; nothing when all went well.
  void Tell(const Status& status, std::string_view what);

  const Context& context_;
};

}  // namespace vistaplot
