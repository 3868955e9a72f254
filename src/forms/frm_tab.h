// The parameter screen: what to load, what to draw, and how.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "charts/builders/summary_parameters.h"
#include "controls/form.h"
#include "controls/list_controls.h"
#include "controls/simple_controls.h"
#include "controls/value_controls.h"
#include "forms/context.h"

namespace vistaplot {

/// Positions in the list of graph types of prices.
enum class PriceGraphType { kLine, kScatter, kCandleLine, kCandleBar, kPointAndFigure };

class FrmTab : public Form {
 public:
  explicit FrmTab(const Context& context);

  Label lblDataType;
  ComboBox cboDataType;
  Label lblGraphType;
  ComboBox cboGraphType;
  Label lblXParm;
  ComboBox cboXParm;
  Label lblYParm;
  ComboBox cboYParm;
  Label lblDataField;
  ComboBox cboDataField;
  Label lblPercent;
  ComboBox cboPercent;
  Button cmdFileName;
  Label lblFileName;

  Frame fraSelect;
  OptionGroup OptSelect;  ///< 0 "Families", 1 "Funds"
  Frame fraOneAll;
  OptionGroup optOneAll;  ///< 0 "All Funds", 1 "One at a time"
  Button cmdPoint;
  Label lblIndex;
  TextBox txtIndex;
  ListBox lstIndex;
  ListBox lstIndex2;
  ListBox File1;  ///< names of the signal files listed last; never shown
  Button cmdLoadData;

  CheckBox chkMoveAvg;
  CheckBox chkAMA;
  CheckBox chkParabolic;
  CheckBox chkBollinger;
  CheckBox chkHurst;
  CheckBox chkCorrelation;
  CheckBox chkMem;

  void cboDataType_Click();
  void cboGraphType_Click();
  void OptSelect_Click(int index);
  void optOneAll_Click(int index);
  void txtIndex_Change();
  void cmdFileName_Click();
  void cmdLoadData_Click();

  /// Fills lstIndex with the families of the three folders; empties lstIndex2. A folder that cannot
  /// be listed ends the program: the caller returns at once.
  void ListFamilies();
  /// Fills lstIndex with all issues of the service.
  void ListAllIssues();

  DataType ChosenDataType() const { return static_cast<DataType>(cboDataType.ListIndex()); }
  PriceGraphType ChosenPriceGraph() const {
    return static_cast<PriceGraphType>(cboGraphType.ListIndex());
  }
  bool FamiliesChosen() const { return OptSelect.ListIndex() == 0; }
  bool OneAtATime() const { return optOneAll.ListIndex() == 1; }
  /// An analysis is ticked that is drawn in a chart of its own, on the screen of three charts.
  bool AnalysisTicked() const;

 protected:
  void Form_Load() override;  ///< starts the program: service, settings, calendar, lists

 private:
  void DesignChoices();
  void DesignSelections();
  void DesignIndicators();
  void Connect();

  void ReadPointAndFigureSettings();

  void SetUpForResultFiles(DataType type);
  void SetUpForPrices();
  void ShowPriceControls(bool prices);
  void RefreshIssueList();
  void ResetTable(int spare_sheets);

  std::vector<CheckBox*> Indicators();
  void HideGraphOptions();
  void FillParameterLists(DataType type);
  void ShowParameterLists(bool shown, bool data_field);
  FieldSource Fields() const;

  std::vector<std::string> SelectedEntries() const;
  void LoadSelection();
  void ForgetLoad();
  void SummariseLoad();
  std::string LoadedText() const;  ///< what the main window says of a finished load
  std::vector<std::string> SummarySymbols() const;

  const Context& context_;
};

}  // namespace vistaplot
