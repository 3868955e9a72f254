#include "charts/builders/point_figure_chart.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/date.h"
#include "base/number_text.h"
#include "base/text.h"
#include "charts/builders/graph_selection.h"
#include "charts/builders/time_periods.h"

namespace vistaplot {
namespace {

constexpr double kDatesPart = 0.05;  // of the chart's height, under lblboxdate

/// What the boxes are drawn from.
struct Figure {
  const PointFigure& boxes;
  const MarketCalendar& calendar;
  int first_day;

  DateSerial DateOf(const FigureBox& box) const { return calendar.DateOf(first_day + box.day); }
  std::string LastDate(const std::vector<FigureBox>& list) const {
    return list.empty() ? std::string()
                        : DateText(DateOf(list.back()), DatePattern::kMonthDayShortYear);
  }
};

void SetAxes(ChartView& view) {
  ChartAxis& columns = view.Plot.Axis[0];
  columns.AxisScale.Hide = true;
  columns.Labels.Auto = false;
  columns.Labels.VtFont.Size = 8.0;
  columns.AxisGrid.MajorPen.style = kPenNone;
  columns.AxisGrid.MinorPen.style = kPenNone;
  ChartAxis& levels = view.Plot.Axis[1];
  levels.AxisScale.Hide = false;
  levels.Labels.Auto = true;
  levels.Labels.VtFont.Size = 6.0;
  levels.CategoryScale.Auto = true;
}

void BeginChart(const PointFigureRequest& request, const std::string& symbol, ChartView& view) {
  view.ChartType = kChartXY;
  SetTitle(view, "Point & Figure", 8.0, kLocationBottomRight);
  view.title.TextLayout.Orientation = kOrientationVertical;
  view.ColumnCount(2);
  SetLegend(view, true);
  PlacePlot(view, request.display, {0.0, 0.05}, {5.9, 3.7});
  for (ChartSeries& series : view.Plot.SeriesCollection) {
    series.SeriesMarker.Show = true;
    series.showline = false;
  }
  view.SetColumnLabel(1, symbol);
  view.facts.kind = FigureKind::kBoxes;
  view.facts.unit = ValueUnit::kPrice;
  view.facts.covered_top = kDatesPart;
  view.facts.Series(1).name = TrimBlanks(symbol);
  SetAxes(view);
}

void SetPoint(ChartView& view, int row, int column, float level) {
  view.SetData(row, 1, column, false);
  view.SetData(row, 2, static_cast<double>(level), false);
}

// @param style, color  of an X or an O
void DrawBox(ChartView& view, int row, const FigureBox& box, int style, ChartColor color) {
  SetPoint(view, row, box.column, box.level);
  ChartMarker& marker = view.Plot.Series(1).DataPoints.Item(row).Marker;
  marker.Size = 6.0;
  marker.Visible = true;
  marker.style = style;
  marker.Pen.Width = 1.0;
  marker.Pen.VtColor = color;
}

void LabelBox(ChartView& view, int row, DateSerial date) {
  ChartPointLabel label;
  label.Component = kLabelName;
  label.Text = DateText(date, DatePattern::kBareShortYear);
  label.VtFont.Size = 7.0;
  label.TextLayout.Orientation = kOrientationHorizontal;
  label.LocationType = kLabelBelow;
  view.Plot.Series(1).DataPoints.Item(row).DataPointLabel = label;
}

void StateBox(const Figure& figure, const FigureBox& box, bool rises, ChartView& view) {
  view.facts.boxes.push_back({.date = DateText(figure.DateOf(box), DatePattern::kMonthDayShortYear),
                              .size = static_cast<double>(box.size),
                              .rises = rises});
}

void DrawBoxes(const Figure& figure, ChartView& view) {
  constexpr ChartColor kBlue{0, 0, 255};
  constexpr ChartColor kRed{255, 0, 0};
  int row = 0;
  int labelled_day = -1;
  for (const FigureBox& box : figure.boxes.x) {
    DrawBox(view, ++row, box, kMarkerCross, kBlue);
    StateBox(figure, box, true, view);
    if (box.day != labelled_day) LabelBox(view, row, figure.DateOf(box));
    labelled_day = box.day;
  }
  for (const FigureBox& box : figure.boxes.o) {
    DrawBox(view, ++row, box, kMarkerCircle, kRed);
    StateBox(figure, box, false, view);
  }
  if (!figure.boxes.has_price) return;
  for (int column = figure.boxes.columns + 1; column <= kMostFigureColumns; ++column) {
    SetPoint(view, ++row, column, figure.boxes.level);
    view.Plot.Series(1).DataPoints.Item(row).Marker.Visible = false;
  }
}

// What is wrong with the parameters; empty when nothing is.
std::string BoxFault(const PointFigureSettings& settings) {
  for (std::size_t i = 0; i < settings.PfBox.size(); ++i) {
    if (settings.PfBox[i] > 0.0F) continue;
    return "The box value of range " + std::to_string(i + 1) + " is " +
           NumberText(settings.PfBox[i]) + ": point and figure needs values above 0";
  }
  return {};
}

// Why no box is to be seen; empty when one is.
std::string WhyNoBox(const PointFigure& boxes, const std::string& symbol, std::size_t reversal) {
  if (!boxes.has_price) return symbol + " has no price in this window";
  if (boxes.columns > 0) return {};
  return symbol + " has not moved by " + std::to_string(reversal) +
         (reversal == 1 ? " box" : " boxes") + " in this window";
}

}  // namespace

BuildOutcome DrawPointAndFigure(const PointFigureRequest& request,
                                const Sheet& prices,
                                const MarketCalendar& calendar,
                                GraphSelection& selection,
                                ChartView& view) {
  const RedrawPause pause(view);
  view.ToDefaults();
  const DayWindow window = BarWindow(selection.TimePeriodIndex, request.end_day, calendar);
  selection.FirstDay = static_cast<std::int16_t>(window.first_day);
  BuildOutcome outcome;
  outcome.end_day = window.end_day;
  if (selection.TimePeriodIndex == kAllDays) outcome.scroll_to = calendar.MaxNumDays;
  outcome.message = BoxFault(request.settings);
  if (!outcome.message.empty()) return outcome;
  const int table_column = selection.ColumnOf(selection.CurrentFund);
  const FundPrices fund(
      prices, table_column, window.first_day, window.end_day - window.first_day + 1);
  const PointFigure boxes = ComputePointFigure(fund.Chart().Chart(), request.settings);
  if (boxes.columns > kMostFigureColumns) {
    outcome.message = "Too many columns, please select a shorter time period";
    return outcome;
  }
  const Figure figure{.boxes = boxes, .calendar = calendar, .first_day = window.first_day};
  view.rowcount(static_cast<int>(boxes.x.size() + boxes.o.size()) + kMostFigureColumns -
                boxes.columns);
  BeginChart(request, prices.CellText(1, table_column), view);
  DrawBoxes(figure, view);
  view.WhyEmpty = WhyNoBox(boxes, view.facts.Series(1).name, request.settings.ReversalBoxes());
  outcome.box_dates =
      "Last X: " + figure.LastDate(boxes.x) + " Last O: " + figure.LastDate(boxes.o);
  outcome.drawn = true;
  return outcome;
}

}  // namespace vistaplot
