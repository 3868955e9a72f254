#include <QAbstractTableModel>
#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTableView>
#include <QToolBar>
#include <memory>
#include <stdexcept>
#include <string>

#include "app/ini_settings.h"
#include "bench_program.h"
#include "charts/builders/time_periods.h"
#include "figures.h"
#include "import/result_files.h"
#include "marketdata/quoteline_library.h"
#include "price_walk.h"
#include "support/temporary_folder.h"
#include "timing.h"
#include "ui/chart/chart_widget.h"
#include "ui/frame/window_program.h"
#include "ui/grid/grid_area.h"

namespace vistaplot::bench {
namespace {

constexpr int kRuns = 31;
constexpr QSize kWindow(1280, 960);
constexpr PixelSize kDisplay{1280, 960};

/// Paints what is marked as changed at once, as the display's next frame would.
void PaintNow(QWidget& window) {
  QEvent request(QEvent::UpdateRequest);
  QApplication::sendEvent(&window, &request);
}

/// Issues over `days` market days in a service of their own.
class Service {
 public:
  Service(int issues, int days) {
    const std::string csv = folder_.Path("wide.csv");
    if (!WriteWideCsv(csv, issues, days, kSeed)) throw std::runtime_error("disk full");
    MakeService(folder_.Path(), csv);
    for (const char* name : {"QLDEF", "QL4WIN/SQLDEF", "USERDEF"}) folder_.MakeFolder(name);
  }
  std::string Path() const { return folder_.Path(); }

 private:
  test::TemporaryFolder folder_;
};

/// The program with its windows, as the user starts it.
class Windows {
 public:
  explicit Windows(const std::string& directory)
      : quoteline_(directory), settings_(directory + "/settings.ini") {
    if (!program_.Start()) throw std::runtime_error("the program ended at once");
    QApplication::processEvents();
  }

  WindowProgram& Program() { return program_; }
  Screens& AllScreens() { return program_.Screens().AllScreens(); }

  void Load(int funds) {
    ChooseAllIssues(AllScreens().frmTab);
    AllScreens().frmTab.cmdLoadData_Click();
    SelectFunds(program_.Screens().State().table, funds);
  }

  void Draw() {
    AllScreens().frmMain.mnuFileGraph_Click();
    AllScreens().frmMain.mnuTimePeriod_Click(kAllDays);
    QApplication::processEvents();
  }

 private:
  QuotelineLibrary quoteline_;
  IniSettings settings_;
  WindowProgram program_{
      {.quoteline = quoteline_, .settings = settings_, .display = kDisplay, .player = nullptr}};
};

int ShowBareWindow() {
  QMainWindow window;
  window.setCentralWidget(new QMdiArea);
  window.menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Exit"));
  window.addToolBar(QStringLiteral("Tools"))->addAction(QStringLiteral("Graph"));
  window.resize(kWindow);
  window.show();
  QApplication::processEvents();
  return window.width();
}

void MeasureStart() {
  const Service service(20, 1201);
  Measure("window shown", kRuns, [&] {
    Windows windows(service.Path());
    return windows.Program().Window().width();
  });
  Measure("window shown", kRuns, ShowBareWindow, "bare main window");
}

void MeasureChart(int funds, int days, const std::string& what) {
  const Service service(funds * 3 / 2, days);  // every fourth issue starts late
  Windows windows(service.Path());
  windows.Load(funds);
  windows.Draw();
  QWidget& window = windows.Program().Window();
  auto* chart = window.findChild<ChartWidget*>();
  if (chart == nullptr || !chart->isVisible()) throw std::runtime_error("no chart is shown");
  ScrollBar& bar = windows.AllScreens().frmGraph.HScroll1;
  int turn = 0;
  Measure(("scroll step in the window " + what).c_str(), kRuns, [&] {
    bar.SetValue(days - 1 - turn++ % 2);
    PaintNow(window);
    return windows.AllScreens().frmGraph.VtChart1.view.rowcount();
  });
  int step = 0;
  Measure(("cross-hair move " + what).c_str(), kRuns, [&] {
    const QPointF at(100 + 29 * (step++ % 30), chart->height() / 2.0);
    QMouseEvent move(
        QEvent::MouseMove, at, chart->mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(chart, &move);
    PaintNow(window);
    return chart->ReadOutText().size();
  });
}

/// One step of the bar, from its move to the painted picture, of one fund with its indicators.
void MeasureIndicators() {
  const Service service(3, 1200);
  Windows windows(service.Path());
  windows.Load(1);
  Screens& screens = windows.AllScreens();
  IndicatorBoxes& boxes = screens.frmTab.indicators;
  QWidget& window = windows.Program().Window();
  const auto measure = [&](const char* what, ScrollBar& bar, ChartBox& chart) {
    windows.Draw();
    int turn = 0;
    Measure(what, kRuns, [&] {
      bar.SetValue(1199 - turn++ % 2);
      PaintNow(window);
      return chart.view.rowcount();
    });
  };
  for (CheckBox* box :
       {&boxes.chkMoveAvg, &boxes.chkAMA, &boxes.chkParabolic, &boxes.chkBollinger}) {
    box->SetChecked(true);
  }
  measure(
      "scroll step 1 x 1200, four overlays", screens.frmGraph.HScroll1, screens.frmGraph.VtChart1);
  boxes.chkMem.SetChecked(true);
  measure(
      "scroll step 1 x 1200, maximum entropy", screens.frmPer.HScroll1, screens.frmPer.VtChart1);
}

/// Float columns behind the toolkit's own table view: what a program without a grid would use.
class FloatColumns : public QAbstractTableModel {
 public:
  explicit FloatColumns(const Sheet& sheet) : sheet_(sheet) {}
  int rowCount(const QModelIndex& /*parent*/) const override { return sheet_.MaxRow; }
  int columnCount(const QModelIndex& /*parent*/) const override { return sheet_.MaxCol; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    return static_cast<float>(sheet_.CellNumber(index.row() + 1, index.column() + 1));
  }

 private:
  const Sheet& sheet_;
};

void MeasurePages(const char* who, QTableView& grid, QWidget& window) {
  QScrollBar& bar = *grid.verticalScrollBar();
  Measure(
      "show a page of the sheet, scrolled by a page",
      kRuns,
      [&] {
        const int next = bar.value() + bar.pageStep();
        bar.setValue(next < bar.maximum() ? next : 0);
        PaintNow(window);
        return bar.value();
      },
      who);
}

void MeasureGrid() {
  const Service service(kIssues, kDays);
  Windows windows(service.Path());
  windows.Load(1);
  windows.AllScreens().frmMain.cmdShowData_Click();
  QApplication::processEvents();
  QWidget& window = windows.Program().Window();
  auto* grid = window.findChild<GridArea*>();
  if (grid == nullptr || !grid->isVisible()) throw std::runtime_error("no grid is shown");
  MeasurePages("ours", *grid, window);

  FloatColumns model(windows.Program().Screens().State().table.SheetAt(1));
  QTableView plain;
  plain.setModel(&model);
  plain.resize(grid->size());
  plain.show();
  QApplication::processEvents();
  MeasurePages("QTableView on float columns", plain, plain);
}

/// A summary file imported while the data screen shows the sheet that it goes into.
void MeasureImport(const std::string& summary_file) {
  const Service service(20, 1201);
  Windows windows(service.Path());
  windows.AllScreens().frmMain.cmdShowData_Click();
  QApplication::processEvents();
  QWidget& window = windows.Program().Window();
  DataTable& table = windows.Program().Screens().State().table;
  Measure("import 9999 summary records of 119 bytes, their sheet shown", kRuns, [&] {
    const Status read =
        LoadZephyrineSummary({table, windows.AllScreens().frmMain.progress}, summary_file);
    if (!read) throw std::runtime_error(PlainText(read.Error()));
    PaintNow(window);
    return table.Active().CellNumber(table.Active().MaxRow, 1);
  });
  auto* grid = window.findChild<GridArea*>();
  if (grid == nullptr || !grid->isVisible()) throw std::runtime_error("no grid is shown");
  MeasurePages("ours, imported records", *grid, window);
}

}  // namespace

void MeasureWindows(const std::string& summary_file) {
  MeasureStart();
  MeasureChart(10, 1200, "10 x 1200");
  MeasureChart(1, 12000, "1 x 12000");
  MeasureIndicators();
  MeasureGrid();
  MeasureImport(summary_file);
}

}  // namespace vistaplot::bench
