// The spreadsheet: the active sheet of the data table above a tab for each sheet.
#pragma once

#include <QTabBar>
#include <QWidget>
#include <memory>
#include <vector>

#include "controls/value_controls.h"
#include "table/data_table.h"
#include "ui/controls/control_adapter.h"
#include "ui/grid/grid_area.h"

namespace vistaplot {

class GridView : public QWidget, public TableObserver {
  Q_OBJECT

 public:
  /// Observes `table` as long as it lives. The clicks are the grid's events; the user's choice of
  /// cells, sheet and column widths goes to the table. All three arguments outlive the view.
  GridView(Grid& grid, DataTable& table, EventGuard& guard, QWidget* parent);
  ~GridView() override;

  GridArea& Area() { return *area_; }
  QTabBar& Tabs() { return *tabs_; }

  void ActiveSheetChanged() override;
  void SheetsChanged() override;
  void ContentChanged(int sheet) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::vector<int> SheetsToShow() const;
  void ShowTabs();
  void StepSheet(int step);
  void Choose(int tab);

  DataTable& table_;
  EventGuard& guard_;
  GridArea* area_;
  QTabBar* tabs_;
  std::vector<int> sheets_;  ///< the sheet of each tab
};

/// Shows `control`, a Grid, over `parts.table`.
std::unique_ptr<ControlAdapter> MakeGrid(Control& control, const AdapterParts& parts);

}  // namespace vistaplot
