#include <QImage>
#include <QPainter>
#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench_program.h"
#include "charts/builders/price_chart.h"
#include "charts/builders/summary_chart.h"
#include "charts/kinds/surface.h"
#include "charts/layout/layout.h"
#include "figures.h"
#include "price_walk.h"
#include "random.h"
#include "support/temporary_folder.h"
#include "timing.h"
#include "ui/chart/chart_canvas.h"

namespace vistaplot::bench {
namespace {

constexpr int kRuns = 31;
constexpr int kWidth = 1280;
constexpr int kHeight = 900;

/// Lays a chart out and paints it into one image that is used again and again.
class Painting {
 public:
  /// Returns a number that depends on the pixels: those that are not white on every 64th line.
  int Paint(const ChartView& view) {
    const ChartPicture picture = LayoutChart(view, {kWidth, kHeight}, texts_);
    QPainter painter(&image_);
    PaintPicture(painter, picture, texts_);
    painter.end();
    int drawn = 0;
    for (int y = 0; y < kHeight; y += 64) {
      const auto* line = reinterpret_cast<const QRgb*>(image_.constScanLine(y));
      for (int x = 0; x < kWidth; ++x) drawn += line[x] == qRgb(255, 255, 255) ? 0 : 1;
    }
    return drawn;
  }

 private:
  QImage image_{kWidth, kHeight, QImage::Format_RGB32};
  PictureTexts texts_;
};

/// Funds over all days of a service that has one day more: a chart's first day is day 2.
class ChartWorld {
 public:
  ChartWorld(int funds, int days) {
    const std::string csv = folder_.Path("wide.csv");
    if (!WriteWideCsv(csv, funds * 3 / 2, days + 1, kSeed)) throw std::runtime_error("disk full");
    MakeService(folder_.Path(), csv);
    program_ = std::make_unique<BenchProgram>(folder_.Path());
    program_->Load();
    program_->SelectFunds(funds);
    program_->AllScreens().frmMain.mnuFileGraph_Click();
    program_->AllScreens().frmMain.mnuTimePeriod_Click(kAllDays);
  }

  FrmGraph& Graph() { return program_->AllScreens().frmGraph; }

  /// Builds the chart of the selected funds; returns its rows times columns.
  int Build(bool scatter) {
    SharedState& state = program_->State();
    PriceChartRequest request;
    request.end_day = state.market.calendar.MaxNumDays;
    request.scatter = scatter;
    ChartView& view = Graph().VtChart1.view;
    const auto outcome = BuildPriceChart(
        request, state.table.SheetAt(1), state.market.calendar, state.selection, view);
    if (!outcome.drawn) throw std::runtime_error(outcome.message);
    return view.rowcount() * view.ColumnCount();
  }

 private:
  test::TemporaryFolder folder_;
  std::unique_ptr<BenchProgram> program_;
};

void MeasureOne(ChartWorld& world, Painting& painting, const std::string& what, bool scatter) {
  const std::string build = "build " + what;
  const std::string paint = "paint " + what;
  Measure(build.c_str(), kRuns, [&] { return world.Build(scatter); });
  Measure(paint.c_str(), kRuns, [&] { return painting.Paint(world.Graph().VtChart1.view); });
}

/// The sheet of a test of `side` by `side` parameters (columns 2 and 3) and its result (column 5):
/// hills with noise on them.
class ResultWorld {
 public:
  explicit ResultWorld(int side) {
    Random random(kSeed, 0);
    std::vector<std::string> x;
    std::vector<std::string> y;
    std::vector<std::string> result;
    for (int column = 1; column <= side; ++column) {
      for (int row = 1; row <= side; ++row) {
        x.push_back(std::to_string(column));
        y.push_back(std::to_string(5 * row));
        const double hills = std::sin(6.0 * column / side) * std::cos(5.0 * row / side);
        result.push_back(std::to_string(12.0 * hills + 2.0 * random.Uniform()));
      }
    }
    Sheet& sheet = table_.Active();
    sheet.FixedRows = 2;
    sheet.MaxRow = side * side + 2;
    sheet.MaxCol = 5;
    for (auto [column, texts] : {std::pair{2, &x}, std::pair{3, &y}, std::pair{5, &result}}) {
      texts->insert(texts->begin(), {"", "heading"});
      sheet.SetTextColumn(column, std::move(*texts));
    }
    table_.SetSheetCount(2);
  }

  /// Builds and paints the chart over the parameters.
  int DrawCells(bool surface, Painting& painting) {
    const ParameterRequest request{.x = {"Buy", 2},
                                   .y = {"Sell", 3},
                                   .data = {"Gain", 5},
                                   .GraphFraction = 1.0F,
                                   .surface = surface,
                                   .lower_is_better = false,
                                   .display = {}};
    if (!BuildParameterChart(request, table_, view).drawn) throw std::runtime_error("not drawn");
    return painting.Paint(view);
  }

  /// Builds and paints the chart over the cases.
  int DrawCases(Painting& painting) {
    const TestCaseRequest request{.sheets = TestCaseSheets(table_, false),
                                  .statistic = "Gain",
                                  .statistic_column = 5,
                                  .scatter = true,
                                  .display = {}};
    table_.SheetAt(1).MaxRow = 6002;
    if (!BuildTestCaseChart(request, table_, view).drawn) throw std::runtime_error("not drawn");
    return painting.Paint(view);
  }

  ChartView view;

 private:
  DataTable table_;
};

void MeasureResultCharts(Painting& painting) {
  {
    ResultWorld hundred(100);
    Measure("contour 100 x 100", kRuns, [&] { return hundred.DrawCells(false, painting); });
    Measure("surface 100 x 100", kRuns, [&] { return hundred.DrawCells(true, painting); });
    Measure("turn of the surface 100 x 100", kRuns, [&] {
      StepSurface(hundred.view, 1, 0);
      return painting.Paint(hundred.view);
    });
    Measure("test-case scatter 6000", kRuns, [&] { return hundred.DrawCases(painting); });
  }
  ResultWorld thousand(1000);
  Measure("surface 1000 x 1000", 7, [&] { return thousand.DrawCells(true, painting); });
}

}  // namespace

void MeasureCharts() {
  Painting painting;
  {
    ChartWorld one(1, kDays);
    MeasureOne(one, painting, "1 x 12000 line", false);
    MeasureOne(one, painting, "1 x 12000 scatter", true);
  }
  MeasureResultCharts(painting);
  ChartWorld ten(10, 1200);
  MeasureOne(ten, painting, "10 x 1200 line", false);
  int day = 0;
  Measure("scroll step 10 x 1200 line", kRuns, [&] {
    ten.Graph().HScroll1.SetValue(600 + day++ % 2);
    return painting.Paint(ten.Graph().VtChart1.view);
  });
}

}  // namespace vistaplot::bench
