#include "charts/builders/summary_chart.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

#include "base/number_text.h"

namespace vistaplot {
namespace {

constexpr int kMostTestCells = 12000;
constexpr double kMostParameterCells = 4e6;
constexpr const char* kTooMuchData =
    "Too much data to graph, please choose fewer files or graph a smaller percent of the data";

// Rows of a sheet that are charted.
struct RowSpan {
  int first = 1;
  int last = 0;
  int Count() const { return std::max(0, last - first + 1); }
};

RowSpan ChartedRows(const Sheet& sheet, float fraction) {
  const double rows = static_cast<double>(sheet.MaxRow) * static_cast<double>(fraction);
  return {sheet.FixedRows + 1, RoundHalfEven(rows)};
}

BuildOutcome Drawn() {
  BuildOutcome outcome;
  outcome.drawn = true;
  return outcome;
}

BuildOutcome Refuse(ChartView& view) {
  view.ToDefaults();
  return RefusedBuild(kTooMuchData, 0);
}

void StyleTestAxis(ChartAxis& axis, const std::string& title) {
  axis.AxisScale.Hide = false;
  axis.Labels.Auto = true;
  axis.Labels.VtFont.Size = 10.0;
  axis.CategoryScale.Auto = true;
  axis.AxisTitle.Text = title;
}

// One sheet as the series of grid columns `x_column` and the one behind it.
void DrawSheet(const Sheet& sheet, const RowSpan& rows, int stat, int x_column, ChartView& view) {
  view.SetColumnLabel(x_column, sheet.SheetName);
  const std::vector<double> values = sheet.ColumnNumbers(stat, rows.first, rows.Count());
  for (int p = 1; p <= rows.Count(); ++p) {
    view.SetRowLabel(p, std::to_string(p));
    view.SetData(p, x_column, p, false);
    view.SetData(p, x_column + 1, values[static_cast<std::size_t>(p - 1)], false);
  }
}

// One parameter as the data rows hold it.
struct ParameterValues {
  std::vector<double> rows;
  // Single precision, as the search compares them.
  float smallest = 9999.0F;
  float second = 9999.0F;
  float largest = -9999.0F;

  double Step() const { return static_cast<double>(second) - static_cast<double>(smallest); }
  double Steps(double from, double to) const { return (to - from) / Step(); }
  double Count() const { return std::nearbyint(Steps(smallest, largest) + 1.0); }
};

ParameterValues ReadParameter(const Sheet& sheet, int column, const RowSpan& rows) {
  ParameterValues values;
  values.rows = sheet.ColumnNumbers(column, rows.first, rows.Count());
  for (const double number : values.rows) {
    const auto v = static_cast<float>(number);
    if (v < values.smallest) {
      values.second = values.smallest;
      values.smallest = v;
    } else if (v > values.smallest && v < values.second) {
      values.second = v;
    }
    values.largest = std::max(values.largest, v);
  }
  return values;
}

// The grid place, from 1, that lies `steps` from the first; 0 (outside) where there is none.
int GridPlace(double steps, int count) {
  if (!(steps > -1.0 && steps < count + 1.0)) return 0;
  return RoundHalfEven(steps + 1.0);
}

void StyleParameterAxis(ChartAxis& axis, const std::string& title) {
  axis.Labels.Auto = true;
  axis.Labels.VtFont.Size = 10.0;
  axis.Labels.TextLayout.Orientation = kOrientationHorizontal;
  axis.CategoryScale.Auto = true;
  axis.AxisTitle.Visible = true;
  axis.AxisTitle.VtFont.Size = 12.0;
  axis.AxisTitle.Text = title;
}

void StyleParameterChart(const ParameterRequest& request,
                         const std::string& sheet_name,
                         ChartView& view) {
  view.ChartType = request.surface ? kChartSurface : kChartContour;
  if (request.surface) {
    view.Plot.Elevation.Surface.Base = 2;
    view.Plot.Elevation.Surface.DisplayType = 1;
  }
  view.TitleText = request.data.name;
  SetLegend(view, true);
  view.Legend.VtFont.Size = 10.0;
  view.Footnote.Location.Visible = true;
  view.Footnote.Location.LocationType = kLocationBottomRight;
  view.Footnote.VtFont.Size = 10.0;
  view.Footnote.VtFont.VtColor.Set(0, 0, 255);
  view.Footnote.Text = sheet_name;
  PlacePlot(view, request.display, {0.0, 0.3}, {5.7, 3.75});
  StyleParameterAxis(view.Plot.Axis[0], request.y.name);
  view.Plot.Axis[3].AxisScale.Hide = false;
  StyleParameterAxis(view.Plot.Axis[3], request.x.name);
}

// Labels of rows or columns as cases write them; most cases write what stands there.
class GridLabels {
 public:
  explicit GridLabels(int count)
      : written_(static_cast<std::size_t>(count) + 1, std::numeric_limits<double>::quiet_NaN()) {}

  // True when place `number` (from 1) does not bear `value` yet; it does now.
  bool Changes(int number, double value) {
    if (number < 1 || number >= static_cast<int>(written_.size())) return false;
    return std::exchange(written_[static_cast<std::size_t>(number)], value) != value;
  }

 private:
  std::vector<double> written_;
};

void FillCells(const ParameterValues& x,
               const ParameterValues& y,
               const std::vector<double>& z,
               const RowSpan& charted,
               ChartView& view) {
  GridParameters& cells = view.facts.cells;
  cells.cases.assign(
      static_cast<std::size_t>(view.rowcount()) * static_cast<std::size_t>(view.ColumnCount()), 0);
  GridLabels columns(view.ColumnCount());
  GridLabels rows(view.rowcount());
  const std::size_t count = std::min(z.size(), static_cast<std::size_t>(charted.Count()));
  for (std::size_t i = 0; i < count; ++i) {
    const int column = GridPlace(x.Steps(x.smallest, x.rows[i]), view.ColumnCount());
    const int row = GridPlace(y.Steps(y.rows[i], y.largest), view.rowcount());
    if (columns.Changes(column, x.rows[i])) {
      view.SetColumnLabel(column, NumberText(static_cast<float>(x.rows[i])));
    }
    if (rows.Changes(row, y.rows[i])) {
      view.SetRowLabel(row, NumberText(static_cast<float>(y.rows[i])));
    }
    view.SetData(row, column, z[i], false);
    if (row < 1 || column < 1 || row > view.rowcount() || column > view.ColumnCount()) continue;
    cells.cases[static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(view.ColumnCount()) +
                static_cast<std::size_t>(column - 1)] = charted.first + static_cast<int>(i);
  }
}

// What drawing and read-out need of the grid.
void StateGrid(const ParameterRequest& request,
               const ParameterValues& x,
               const ParameterValues& y,
               ChartView& view) {
  view.facts.kind = request.surface ? FigureKind::kSurface : FigureKind::kContour;
  GridParameters& cells = view.facts.cells;
  cells.first_x = x.smallest;
  cells.step_x = x.Step();
  cells.first_y = y.largest;
  cells.step_y = y.Step();
  cells.x_column = request.x.column;
  cells.y_column = request.y.column;
  cells.lower_is_better = request.lower_is_better;
}

}  // namespace

std::vector<int> TestCaseSheets(const DataTable& table, bool computed_summary) {
  if (computed_summary) return {2};
  std::vector<int> sheets;
  for (int number = 1; number < table.SheetCount(); ++number) sheets.push_back(number);
  return sheets;
}

BuildOutcome BuildTestCaseChart(const TestCaseRequest& request, DataTable& table, ChartView& view) {
  if (request.statistic_column < 1) return {};
  std::vector<RowSpan> spans;
  int longest = 0;
  for (const int number : request.sheets) {
    table.SetActiveSheet(number);
    spans.push_back(ChartedRows(table.SheetAt(number), request.GraphFraction));
    longest = std::max(longest, spans.back().Count());
  }
  const auto columns = 2 * static_cast<int>(spans.size());
  const RedrawPause pause(view);
  if (static_cast<std::int64_t>(columns) * longest > kMostTestCells) return Refuse(view);

  view.ToDefaults();
  view.ChartType = kChartXY;
  view.ColumnCount(columns);
  view.rowcount(longest);
  SetTitle(view, request.statistic, 12.0, kLocationTopLeft);
  SetLegend(view, true);
  PlacePlot(view, request.display, {0.0, 0.3}, {5.5, 3.75});
  StyleSeries(view, request.scatter);
  view.Plot.UniformAxis = false;
  StyleTestAxis(view.Plot.Axis[0], "Test Case");
  StyleTestAxis(view.Plot.Axis[1], request.statistic);
  for (std::size_t j = 0; j < spans.size(); ++j) {
    DrawSheet(table.SheetAt(request.sheets[j]),
              spans[j],
              request.statistic_column,
              static_cast<int>(2 * j) + 1,
              view);
  }
  view.Refresh();
  return Drawn();
}

BuildOutcome BuildParameterChart(const ParameterRequest& request,
                                 const DataTable& table,
                                 ChartView& view) {
  if (request.x.column < 1 || request.y.column < 1 || request.data.column < 1) return {};
  const Sheet& sheet = table.Active();
  const RowSpan scanned{sheet.FixedRows + 1, sheet.MaxRow};
  const RowSpan charted = ChartedRows(sheet, request.GraphFraction);
  const ParameterValues x = ReadParameter(sheet, request.x.column, scanned);
  const ParameterValues y = ReadParameter(sheet, request.y.column, scanned);

  const RedrawPause pause(view);
  view.ToDefaults();
  StyleParameterChart(request, sheet.SheetName, view);
  if (scanned.Count() == 0 || !(x.Step() > 0.0) || !(y.Step() > 0.0)) {
    const std::string& large = x.Step() > 0.0 ? request.y.name : request.x.name;
    view.WhyEmpty = scanned.Count() == 0
                        ? "No test case in sheet " + sheet.SheetName + "."
                        : "The values of " + large + " make no grid: all are 9999 or more.";
    return Drawn();
  }
  if (!(x.Count() * y.Count() <= kMostParameterCells)) return Refuse(view);
  view.rowcount(static_cast<int>(y.Count()));
  view.ColumnCount(static_cast<int>(x.Count()));
  StateGrid(request, x, y, view);
  FillCells(x,
            y,
            sheet.ColumnNumbers(request.data.column, scanned.first, scanned.Count()),
            charted,
            view);
  return Drawn();
}

int CaseRow(const ChartView& view, const Sheet& sheet, int row, int column) {
  const GridParameters& cells = view.facts.cells;
  const int made_from = cells.CaseAt(view.ColumnCount(), row, column);
  if (made_from < 1 || view.Footnote.Text != sheet.SheetName) return 0;
  const auto fits = [&](int candidate) {
    const double x = sheet.CellNumber(candidate, cells.x_column);
    const double y = sheet.CellNumber(candidate, cells.y_column);
    return GridPlace((x - cells.first_x) / cells.step_x, view.ColumnCount()) == column &&
           GridPlace((cells.first_y - y) / cells.step_y, view.rowcount()) == row;
  };
  if (made_from <= sheet.MaxRow && fits(made_from)) return made_from;
  for (int candidate = sheet.FixedRows + 1; candidate <= sheet.MaxRow; ++candidate) {
    if (fits(candidate)) return candidate;
  }
  return 0;
}

}  // namespace vistaplot
