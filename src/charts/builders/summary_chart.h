// The charts of result files: one statistic of every test case, sheet beside sheet, and the
// statistic of one sheet over the grid of two parameters.
#pragma once

#include <string>
#include <vector>

#include "charts/builders/chart_parts.h"
#include "charts/view/chart_view.h"
#include "table/data_table.h"

namespace vistaplot {

struct TestCaseRequest {
  std::vector<int> sheets;     ///< numbers of the sheets to chart, one series each
  std::string statistic;       ///< title of chart and value axis
  int statistic_column = 0;    ///< of the sheets, from 1; 0: nothing was chosen, nothing is drawn
  float GraphFraction = 1.0F;  ///< part of each sheet's rows to chart, headings counted in
  bool scatter = false;        ///< markers instead of lines
  ChartDisplay display;
};

/// The sheets that a test-case chart shows: sheet 2 alone after a summary was computed, else all
/// but the spare one at the end.
std::vector<int> TestCaseSheets(const DataTable& table, bool computed_summary);

/// Draws the statistic of each case at the case's place in its sheet, 1, 2, 3, ... Cells that are
/// no number count as 0. The last sheet of the request becomes the active one.
///
/// Refused, and the chart left empty: 12,001 grid cells or more (two columns a sheet, as many rows
/// as the longest has).
BuildOutcome BuildTestCaseChart(const TestCaseRequest& request, DataTable& table, ChartView& view);

/// What the cells stand over: a parameter by name and sheet column.
struct ParameterColumn {
  std::string name;
  int column = 0;  ///< from 1; 0: nothing was chosen, nothing is drawn
};

struct ParameterRequest {
  ParameterColumn x;  ///< grid columns, ascending
  ParameterColumn y;  ///< grid rows, descending: row 1 is the largest
  ParameterColumn data;
  float GraphFraction = 1.0F;    ///< part of the rows to chart; the grid follows all of them
  bool surface = false;          ///< 3-D surface instead of contour
  bool lower_is_better = false;  ///< of the data field: a draw-down, an ulcer index
  ChartDisplay display;
};

/// Draws the active sheet's data field over the two parameters. Parameters are taken to lie on a
/// grid whose step is the difference of the two smallest values; a row between crossings lands on
/// the nearest (halves to the even one), and a later row replaces an earlier one of its cell.
/// Without a data row, or with a step of 0 or below, the chart is empty.
///
/// Refused, and the chart left empty: more than 4,000,000 cells.
BuildOutcome BuildParameterChart(const ParameterRequest& request,
                                 const DataTable& table,
                                 ChartView& view);

/// The sheet's row that a cell of a parameter chart was made from, also after the sheet was sorted;
/// 0 for an empty cell, and where the sheet holds that case no longer.
int CaseRow(const ChartView& view, const Sheet& sheet, int row, int column);

}  // namespace vistaplot
