// The main window: menus, tool bar, status panels, and the commands that drive the other screens.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "charts/builders/summary_parameters.h"
#include "charts/builders/time_periods.h"
#include "controls/form.h"
#include "controls/value_controls.h"
#include "forms/busy_scope.h"
#include "forms/shared_state.h"

namespace vistaplot {

/// The menu of time periods; the item of the chosen one is checked.
struct TimePeriodMenu {
  MenuItem mnuTime;
  std::array<MenuItem, kTimePeriods> mnuTimePeriod;

  /// Checks item `index` (0 to 9) and no other; draws nothing.
  void Check(int index);
};

/// The tool bar: twelve buttons, the text of their tip, and the timer that keeps it shown.
struct ToolBar {
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

  /// All buttons by tip number - 1.
  std::array<Button*, 12> Buttons();
  /// Shows or hides the buttons that step through the funds of a chart of one fund.
  void ShowFundSteps(bool shown);
  /// Shows or hides the three buttons of the maximum-entropy screen.
  void ShowSpectrumTools(bool shown);
};

class FrmMain : public Form {
 public:
  explicit FrmMain(const Context& context);

  MenuItem mnuFile;
  MenuItem mnuFileGraph;  ///< draws the chosen kind of graph; also a tool
  MenuItem mnuFileSaveChart;
  MenuItem mnuFileSaveSheet;  ///< as CSV
  MenuItem mnuFilePrint;
  MenuItem mnuFileExit;
  MenuItem mnuEdit;
  MenuItem mnuEditCopy;
  MenuItem mnuEditSort;
  MenuItem mnuEditSortAll;
  MenuItem mnuEditCase;
  TimePeriodMenu periods;
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
  MenuItem mnuHelpManual;
  MenuItem mnuHelpKeys;
  MenuItem mnuHelpAbout;

  ToolBar tools;

  Panel pnlAction;  ///< what goes on; shown only while it does
  Panel pnlMeter;   ///< its percentage, 0 to 100; shown only while a long loop runs
  Panel pnlStatus;  ///< what is loaded, or what was saved last; empty before

  /// Action and meter panel, for long operations.
  PanelProgress progress{pnlAction, pnlMeter, Host()};

  /// Draws what is loaded, up to the scroll bar's day, and shows its screen. Before any load it
  /// says what to load; a chart that is refused has its message, and the screen stays. A detail
  /// file has no graph: nothing.
  void mnuFileGraph_Click();
  // Of the screen in front: its sheet, or the chart of the graph screen that was in front last. A
  // failure is told in a box with its reason, as is that there is nothing yet.
  void mnuFileSaveChart_Click();
  void mnuFileSaveSheet_Click();
  void mnuFilePrint_Click();
  void mnuEditCopy_Click();
  void mnuEditSort_Click();     ///< sorts the active sheet, asking for keys
  void mnuEditSortAll_Click();  ///< sorts all loaded sheets, or the computed summary alone
  void mnuEditCase_Click();
  /// Chooses period `index` (0 "One Month" to 9 "All") and draws the chart again.
  void mnuTimePeriod_Click(int index);
  void cmdSort_Click();
  void cmdSortAll_Click();
  // The next or previous of the selected funds, around the ends, drawn again.
  void cmdNext_Click();
  void cmdPrev_Click();
  // The maximum-entropy screen: the spectrum of the day before or after, with its marks on the
  // charts above; and all added forecasts taken off.
  void cmdSpectBack_Click();
  void cmdSpectFwd_Click();
  void cmdClear_Click();
  // Screens to the front. The graph screen is that of three charts while an analysis is ticked; the
  // calculations screen lists the signal files anew.
  void cmdShowMain_Click();
  void cmdShowData_Click();
  void cmdShowGraph_Click();
  void cmdShowCalc_Click();
  void mnuFamilySelect_Click();
  void mnuHelpAbout_Click();
  void mnuFileExit_Click();  ///< ends the program; nothing is saved

  /// Puts the text of tip TipIndex (1 to 12) into TxtToolTip and shows it; other numbers do
  /// nothing.
  void ShowTip();
  /// The pointer left the tool bar: no tip.
  void HideTip();

  /// Tells in the status line what was saved, behind what is loaded.
  void TellSaved(const std::string& what);

  /// The command that saves what the user looks at: the sheet of the data screen, else the chart.
  const MenuItem& SaveCommand() const;

  /// Makes period `index` (0 to 9) the chosen one, in the menu and in the shared state. Everything
  /// that chooses a period comes through here; nothing is drawn.
  void ChooseTimePeriod(int index);
  /// A user's step to a period `steps` longer (or shorter, below 0), as far as there are any: the
  /// same as choosing it in the menu. Nothing when the menu cannot be used.
  void ChangeTimePeriod(int steps);

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
  void PrepareSheet(DataType type);
  void StepFund(int step);
  void StepSpectrumDay(int step);
  ChartBox& ShownChart() const;  ///< of the graph screen that is in front, or was last
  bool DataInFront() const;
  /// Asks where to save and does it; told in a box when it fails (`failure`: what did), in the
  /// status line when it is done.
  void SaveAs(FileRequest request,
              std::string_view failure,
              const std::function<Status(const std::string& path)>& save);
  bool PricesLoaded() const;
  std::vector<std::string> SheetWords() const;  ///< of the name proposed for the active sheet
  std::vector<std::string> ChartWords() const;
  std::string PrintTitle() const;
  /// A box that says what failed and why; nothing when all went well.
  void Tell(const Status& status, std::string_view what);

  const Context& context_;
};

}  // namespace vistaplot
