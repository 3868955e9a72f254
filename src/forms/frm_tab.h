// The parameter screen: what to load, what to draw, and how.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "charts/builders/summary_parameters.h"
#include "controls/form.h"
#include "controls/list_controls.h"
#include "controls/value_controls.h"
#include "forms/drawing.h"
#include "forms/indicator_boxes.h"
#include "forms/shared_state.h"

namespace vistaplot {

/// Families or single issues, the list of them, and the load button. All lists count from 0.
struct IssueLists {
  Frame fraSelect;
  OptionGroup OptSelect;  ///< 0 "Families", 1 "Funds"
  Label lblIndex;
  TextBox txtIndex;   ///< the beginning of an entry, to find it
  Label lblFindNote;  ///< below txtIndex: that no entry begins with its text; else empty
  ListBox lstIndex;   ///< of the families of the service's folders, or of all its issues
  ListBox lstIndex2;
  ListBox File1;  ///< names of the signal files listed last; never shown
  Button cmdLoadData;
};

class FrmTab : public Form {
 public:
  explicit FrmTab(const Context& context);

  Label lblDataType;
  ComboBox cboDataType;  ///< its positions are the numbers of DataType
  Label lblGraphType;
  ComboBox cboGraphType;  ///< entries by data type; see ChosenGraph
  // What charts of result files show; cboDataField for charts over two parameters alone.
  Label lblXParm;
  ComboBox cboXParm;
  Label lblYParm;
  ComboBox cboYParm;
  Label lblDataField;
  ComboBox cboDataField;
  Label lblPercent;
  ComboBox cboPercent;  ///< leading part of a result file to chart: position 0 all to 9 a tenth
  Button cmdFileName;
  Label lblFileName;  ///< path of the imported file, or folder and names of several

  Frame fraOneAll;
  OptionGroup optOneAll;  ///< 0 "All Funds", 1 "One at a time"
  Button cmdPoint;

  IssueLists lists;
  IndicatorBoxes indicators;

  /// Sets the screen up for a kind of data: clears the table and what was loaded, shows the
  /// controls that it needs, and starts with its first graph type.
  void cboDataType_Click();
  /// Sets it up for a kind of graph: its options, and no indicator ticked.
  void cboGraphType_Click();
  /// Lists families (0) or issues (1) and forgets what was loaded.
  void OptSelect_Click(int index);
  /// Shows the tools that step through the funds for one at a time (1), hides them for all (0).
  /// Correlation stays with all funds, maximum entropy with one.
  void optOneAll_Click(int index);
  /// Selects the entry of lstIndex that the typed text begins, alone.
  void txtIndex_Change();
  void cmdFileName_Click();
  /// Loads the selected families or issues into sheet 1 and their summary into sheet 2; with
  /// nothing selected it says so and leaves the table empty.
  void cmdLoadData_Click();
  /// Shows the point-and-figure parameters until the user closes them.
  void cmdPoint_Click();

  // Of an indicator's box that has just been ticked: clear those that cannot be drawn with it.
  void chkMoveAvg_Click();
  void chkAMA_Click();
  void chkParabolic_Click();
  void chkBollinger_Click();
  void chkHurst_Click();
  void chkCorrelation_Click();
  void chkMem_Click();

  /// Fills lstIndex with the families of the three folders; empties lstIndex2. A folder that cannot
  /// be listed ends the program: the caller returns at once.
  void ListFamilies();
  /// Fills lstIndex with all issues of the service.
  void ListAllIssues();

  /// Fills a list of issues again, after the service got another one; the selection is kept by
  /// symbol. Nothing while the list shows families or is hidden.
  void RelistIssues();
  /// The name of the first family listed; empty where the list shows none.
  std::string FirstFamilyName() const;

  DataType ChosenDataType() const { return static_cast<DataType>(cboDataType.ListIndex()); }
  /// The chosen kind of graph of the chosen data type; a detail file has none and counts as
  /// contour.
  GraphType ChosenGraph() const;
  bool FamiliesChosen() const { return lists.OptSelect.ListIndex() == 0; }
  bool OneAtATime() const { return optOneAll.ListIndex() == 1; }
  /// What the lists of parameters and statistics of result files depend on, as loaded now.
  FieldSource Fields() const;
  /// An analysis is ticked that is drawn in a chart of its own, on the screen of three charts.
  bool AnalysisTicked() const { return indicators.AnalysisTicked(); }

 protected:
  void Form_Load() override;  ///< starts the program: service, settings, calendar, lists

 private:
  void DesignChoices();
  void DesignSelections();
  void SetHelpTopics();
  void Connect();
  void ConnectIndicators();

  void SetUpForResultFiles(DataType type);
  void SetUpForPrices();
  void ShowPriceControls(bool prices);
  void RefreshIssueList();
  void ResetTable(int spare_sheets);

  void HideGraphOptions();
  void ShowGraphOptions(GraphType type);
  void OverlayTicked(const CheckBox& box);
  void FillParameterLists(DataType type);
  void ShowParameterLists(bool shown, bool data_field);

  void ShowFindNote();
  std::vector<std::string> SelectedEntries() const;
  void LoadSelection();
  /// Empties the sheet of prices: nothing on it can be drawn or selected until the next load.
  void ForgetLoad();
  /// The columns that were selected to be charted are gone: the next chart reads the selection.
  void ForgetSelection();
  void SummariseLoad();
  /// What the main window says of a finished load; `undefined` issues have figures that prices of 0
  /// or below made undefined.
  std::string LoadedText(int undefined) const;
  std::vector<std::string> SummarySymbols() const;

  const Context& context_;
};

}  // namespace vistaplot
