#include "charts/kinds/cell_grid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "base/number_text.h"
#include "charts/kinds/value_range.h"

namespace vistaplot {

namespace {

constexpr int kFewestNeighbours = 3;

}  // namespace

CellGrid::CellGrid(const ChartView& view)
    : rows_(view.rowcount()),
      columns_(view.ColumnCount()),
      values_(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_)) {
  const auto step = static_cast<std::size_t>(columns_);
  for (int column = 1; column <= columns_; ++column) {
    std::size_t at = static_cast<std::size_t>(column - 1);
    for (const double value : view.ColumnData(column)) {
      if (at >= values_.size()) break;
      values_[at] = value;
      at += step;
      if (!std::isfinite(value)) continue;
      lowest_ = filled_ == 0 ? value : std::min(lowest_, value);
      highest_ = filled_ == 0 ? value : std::max(highest_, value);
      ++filled_;
    }
  }
}

int CellGrid::RankOf(double value, bool lower_is_better) const {
  const auto better = [&](double other) {
    return std::isfinite(other) && (lower_is_better ? other < value : other > value);
  };
  return 1 + static_cast<int>(std::count_if(values_.begin(), values_.end(), better));
}

std::optional<double> CellGrid::PlateauOf(GridCell cell) const {
  double sum = 0.0;
  int count = 0;
  const int last_row = std::min(rows_, cell.row + 1);
  const int last_column = std::min(columns_, cell.column + 1);
  for (int row = std::max(1, cell.row - 1); row <= last_row; ++row) {
    for (int column = std::max(1, cell.column - 1); column <= last_column; ++column) {
      if (GridCell{row, column} == cell || !Filled(row, column)) continue;
      sum += At(row, column);
      ++count;
    }
  }
  if (count < kFewestNeighbours) return std::nullopt;
  return sum / count;
}

bool CellGrid::HasPlateau() const {
  for (int row = 1; row <= rows_; ++row) {
    for (int column = 1; column <= columns_; ++column) {
      if (Filled(row, column) && PlateauOf({row, column})) return true;
    }
  }
  return false;
}

CellGrid CellGrid::Thinned(int stride) const {
  CellGrid thin;
  const std::vector<int> rows = Nodes(rows_, stride);
  const std::vector<int> columns = Nodes(columns_, stride);
  thin.rows_ = static_cast<int>(rows.size());
  thin.columns_ = static_cast<int>(columns.size());
  thin.values_.reserve(rows.size() * columns.size());
  for (const int row : rows) {
    for (const int column : columns) thin.values_.push_back(At(row, column));
  }
  return thin;
}

std::vector<int> CellGrid::Nodes(int last, int stride) {
  std::vector<int> nodes;
  for (int node = 1; node < last; node += stride) nodes.push_back(node);
  nodes.push_back(last);
  return nodes;
}

std::optional<GridCell> CellGrid::BestPlateau(bool lower_is_better) const {
  std::optional<GridCell> best;
  double best_mean = 0.0;
  for (int row = 1; row <= rows_; ++row) {
    for (int column = 1; column <= columns_; ++column) {
      if (!Filled(row, column)) continue;
      const std::optional<double> mean = PlateauOf({row, column});
      if (!mean) continue;
      const bool better = lower_is_better ? *mean < best_mean : *mean > best_mean;
      if (best && !better) continue;
      best = {row, column};
      best_mean = *mean;
    }
  }
  return best;
}

namespace {

constexpr PictureColor kMarkFill{255, 255, 255};
constexpr PictureColor kMarkEdge{20, 24, 30};

// "−0.5": limits have no more digits than the step asks for.
std::string LimitText(double limit) {
  return PlainValueText(static_cast<float>(limit));
}

bool EarlierCase(const ChartView& view, GridCell a, GridCell b) {
  const GridParameters& cells = view.facts.cells;
  return cells.CaseAt(view.ColumnCount(), a.row, a.column) <
         cells.CaseAt(view.ColumnCount(), b.row, b.column);
}

// Of equal cells the first case of the file is the better one.
bool IsBetter(const ChartView& view, const Stop& a, const Stop& b) {
  const double x = view.DataAt(a.row, a.column);
  const double y = view.DataAt(b.row, b.column);
  if (x != y) return view.facts.cells.lower_is_better ? x < y : x > y;
  return EarlierCase(view, {a.row, a.column}, {b.row, b.column});
}

std::string ParameterText(const std::string& name, const std::string& number) {
  return name.empty() ? number : name + " " + number;
}

// Every so many of `count` places whose numbers begin with `first` and rise by `step`; the first
// one is a multiple of the labels' distance where there is such a place.
std::vector<int> Labelled(double first, double step, int count, double least) {
  const int every = WholeStep(least);
  const auto is_round = [&](int place) {
    const double multiple = (first + (place - 1) * step) / (every * step);
    return std::abs(multiple - std::nearbyint(multiple)) < 1e-4;
  };
  int place = 1;
  while (place <= std::min(every, count) && !is_round(place)) ++place;
  std::vector<int> places;
  for (place = place > std::min(every, count) ? 1 : place; place <= count; place += every) {
    places.push_back(place);
  }
  return places;
}

ReadOutEntry NumberEntry(std::string name, std::string text, double value) {
  ReadOutEntry entry;
  entry.mark.alpha = 0;
  entry.label = name;
  entry.text = text;
  entry.values.push_back({std::move(name), std::move(text), value, std::nullopt});
  return entry;
}

}  // namespace

ParameterCells::ParameterCells(const ChartView& view)
    : grid(view), bands(BandsOf(grid.Lowest(), grid.Highest())) {
  if (grid.FilledCount() == 0) return;
  const bool lower_is_better = view.facts.cells.lower_is_better;
  best =
      grid.Best(lower_is_better, [&](GridCell a, GridCell b) { return EarlierCase(view, a, b); });
  plateau = grid.BestPlateau(lower_is_better);
}

std::string ColumnNumber(const ChartView& view, int number) {
  const GridParameters& cells = view.facts.cells;
  return NumberText(static_cast<float>(cells.first_x + (number - 1) * cells.step_x));
}

std::string RowNumber(const ChartView& view, int number) {
  const GridParameters& cells = view.facts.cells;
  return NumberText(static_cast<float>(cells.first_y - (number - 1) * cells.step_y));
}

std::vector<int> LabelledColumns(const ChartView& view, double least) {
  const GridParameters& cells = view.facts.cells;
  return Labelled(cells.first_x, cells.step_x, view.ColumnCount(), least);
}

std::vector<int> LabelledRows(const ChartView& view, double least) {
  const GridParameters& cells = view.facts.cells;
  const double lowest = cells.first_y - (view.rowcount() - 1) * cells.step_y;
  return Labelled(lowest, cells.step_y, view.rowcount(), least);
}

std::vector<LegendMark> ParameterLegend(const ChartView& view, const ChartTheme& theme) {
  const CellGrid grid(view);
  std::vector<LegendMark> legend;
  if (grid.FilledCount() == 0) return legend;
  const ValueBands bands = BandsOf(grid.Lowest(), grid.Highest());
  for (int band = bands.count - 1; band >= 0; --band) {
    const std::string text = bands.count == 1 ? LimitText(bands.first)
                                              : LimitText(bands.LowerLimit(band)) + " – " +
                                                    LimitText(bands.LowerLimit(band + 1));
    legend.push_back({LegendFigure::kBand, BandColor(bands, band, theme.dark), text});
  }
  legend.push_back({LegendFigure::kBest, kMarkFill, "best"});
  if (grid.HasPlateau()) legend.push_back({LegendFigure::kPlateau, kMarkFill, "best plateau"});
  return legend;
}

FillShape CellMark(bool best, PicturePoint at, double size) {
  FillShape mark{.points = {}, .fill = kMarkFill, .outline = kMarkEdge, .width = size / 9.0};
  const int corners = best ? 10 : 4;
  for (int i = 0; i < corners; ++i) {
    const double angle = std::numbers::pi * (2.0 * i / corners - 0.5);
    const double reach = size / 2.0 * (best ? (i % 2 == 0 ? 1.15 : 0.5) : 0.95);
    mark.points.push_back({at.x + reach * std::cos(angle), at.y + reach * std::sin(angle)});
  }
  return mark;
}

void DrawLegendMark(const LegendMark& mark, const PictureBox& box, ChartPicture& picture) {
  if (mark.figure == LegendFigure::kBand) {
    picture.Add(FillBox{box, mark.color});
    return;
  }
  const PicturePoint middle{(box.left + box.right) / 2.0, (box.top + box.bottom) / 2.0};
  picture.Add(CellMark(mark.figure == LegendFigure::kBest, middle, 0.75 * box.Height()));
}

StopList CellStops(const ChartView& view) {
  std::vector<Stop> stops;
  std::size_t best = 0;
  stops.reserve(static_cast<std::size_t>(view.rowcount()) *
                static_cast<std::size_t>(view.ColumnCount()));
  for (int column = 1; column <= view.ColumnCount(); ++column) {
    for (int row = view.rowcount(); row >= 1; --row) {
      if (!view.HasPoint(row, column)) continue;
      stops.push_back({1.0 * column, row, column, view.rowcount() + 1.0 - row});
      if (IsBetter(view, stops.back(), stops[best])) best = stops.size() - 1;
    }
  }
  StopList list(std::move(stops), true);
  if (list.Count() > 0) list.SetStart(static_cast<int>(best));
  return list;
}

ReadOut ReadCell(const ChartView& view, int row, int column, const ChartTheme& theme) {
  ReadOut read_out;
  const auto& axes = view.Plot.Axis;
  read_out.heading = ParameterText(axes[3].AxisTitle.Text, ColumnNumber(view, column)) + ", " +
                     ParameterText(axes[0].AxisTitle.Text, RowNumber(view, row));
  read_out.at = read_out.heading;
  const CellGrid grid(view);
  if (row < 1 || column < 1 || row > grid.Rows() || column > grid.Columns() ||
      !grid.Filled(row, column)) {
    return read_out;
  }
  const double value = grid.At(row, column);
  const ValueBands bands = BandsOf(grid.Lowest(), grid.Highest());
  ReadOutEntry entry = NumberEntry(view.TitleText, PlainValueText(value), value);
  entry.series = 1;
  entry.mark = BandColor(bands, bands.BandOf(value), theme.dark);
  read_out.entries.push_back(entry);
  const int rank = grid.RankOf(value, view.facts.cells.lower_is_better);
  read_out.entries.push_back(NumberEntry(
      "rank", std::to_string(rank) + " of " + std::to_string(grid.FilledCount()), rank));
  const auto plateau = grid.PlateauOf({row, column});
  read_out.entries.push_back(
      NumberEntry("plateau", plateau ? PlainValueText(*plateau) : kNoReading, plateau.value_or(0)));
  if (!plateau) read_out.entries.back().values.clear();
  return read_out;
}

}  // namespace vistaplot
