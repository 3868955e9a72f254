// The indicators on the parameter screen and the charts that they make.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "support/screen_world.h"

namespace vistaplot {
namespace {

using test::kWorldDays;
using test::ScreenWorld;
using Texts = std::vector<std::string>;

constexpr int kAll = 9;

struct IndicatorWorld : ScreenWorld {
  FrmTab& frmTab = screens.frmTab;
  FrmMain& frmMain = screens.frmMain;
  FrmPer& frmPer = screens.frmPer;
  IndicatorBoxes& boxes = frmTab.indicators;

  IndicatorWorld() {
    LoadTrio();
    SelectColumns(2, 2);
  }

  void Graph() { frmMain.mnuFileGraph.RaiseClick(); }

  std::set<std::string> Ticked() {
    std::set<std::string> names;
    for (const CheckBox* box : boxes.CheckBoxes()) {
      if (box->Checked()) names.insert(box->Name());
    }
    return names;
  }

  Texts Labels(const ChartView& view) {
    Texts labels;
    for (int c = 1; c <= view.ColumnCount(); ++c) labels.push_back(view.ColumnLabelAt(c));
    return labels;
  }
};

TEST(Indicators, StandWithTheirDefaultsOnTheScreenOfLinesAlone) {
  IndicatorWorld world;
  Texts defaults;  // in the order of the screen
  for (const Design& design : world.boxes.Designs()) {
    if (const auto* box = dynamic_cast<TextBox*>(design.control)) defaults.push_back(box->Text());
  }
  EXPECT_EQ(defaults,
            (Texts{"50", "150", "0.02", "0.2", "0.0001", "20", "100", "5", "50", "50", "15"}));
  for (int graph = 0; graph < 5; ++graph) {
    world.frmTab.cboGraphType.SetListIndex(0);
    world.boxes.chkHurst.SetChecked(true);
    world.frmTab.cboGraphType.SetListIndex(graph);
    for (const Design& design : world.boxes.Designs()) {
      EXPECT_EQ(design.control->Usable(), graph <= 1) << design.name << " " << graph;
    }
    EXPECT_EQ(world.frmTab.optOneAll.Usable(), graph <= 3) << graph;
    EXPECT_EQ(world.frmTab.cmdPoint.Usable(), graph == 4) << graph;
    EXPECT_TRUE(world.Ticked().empty());  // another kind of graph starts without any
  }
  world.frmTab.cboDataType.SetListIndex(0);
  EXPECT_FALSE(world.boxes.chkMem.Usable() || world.boxes.txtMemPoles.Usable());
}

TEST(Indicators, TickedBoxClearsThoseThatCannotBeDrawnWithIt) {
  IndicatorWorld world;
  IndicatorBoxes& boxes = world.boxes;
  struct Step {
    CheckBox* box;
    std::set<std::string> ticked;
    int one_all;
  };
  const std::vector<Step> steps = {
      {&boxes.chkMem, {"chkMem"}, 1},
      {&boxes.chkBollinger, {"chkBollinger"}, 1},
      {&boxes.chkMoveAvg, {"chkBollinger", "chkMoveAvg"}, 1},
      {&boxes.chkAMA, {"chkAMA", "chkBollinger", "chkMoveAvg"}, 1},
      {&boxes.chkParabolic, {"chkAMA", "chkBollinger", "chkMoveAvg", "chkParabolic"}, 1},
      {&boxes.chkCorrelation, {"chkCorrelation"}, 0},
      {&boxes.chkAMA, {"chkAMA"}, 0},
      {&boxes.chkHurst, {"chkHurst"}, 0},
      {&boxes.chkParabolic, {"chkParabolic"}, 0},
      {&boxes.chkMem, {"chkMem"}, 1},
      {&boxes.chkCorrelation, {"chkCorrelation"}, 0},
      {&boxes.chkHurst, {"chkHurst"}, 0},
      {&boxes.chkMem, {"chkMem"}, 1},
      {&boxes.chkMoveAvg, {"chkMoveAvg"}, 1}};
  for (const Step& step : steps) {
    world.frmMain.tools.ShowSpectrumTools(true);
    step.box->SetChecked(true);
    EXPECT_EQ(world.Ticked(), step.ticked) << step.box->Name();
    EXPECT_EQ(world.frmTab.optOneAll.ListIndex(), step.one_all) << step.box->Name();
    EXPECT_FALSE(world.frmMain.tools.cmdSpectFwd.Visible()) << step.box->Name();
    EXPECT_FALSE(world.frmMain.tools.cmdClear.Visible()) << step.box->Name();
  }
  world.frmMain.tools.ShowSpectrumTools(true);
  boxes.chkMoveAvg.SetChecked(false);  // a box that is cleared does nothing
  EXPECT_TRUE(world.frmMain.tools.cmdSpectBack.Visible());
}

TEST(Indicators, EveryNumberComesFromItsOwnBoxAndOfTickedOnesAlone) {
  IndicatorBoxes boxes;
  double number = 1.0;
  for (const Design& design : boxes.Designs()) {
    auto* text = dynamic_cast<TextBox*>(design.control);
    if (text != nullptr) text->SetText(std::to_string(number++) + " and more");
  }
  EXPECT_FALSE(boxes.Numbers().average || boxes.Numbers().mem || boxes.Numbers().parabolic);
  for (CheckBox* box : boxes.CheckBoxes()) box->SetChecked(true);
  const IndicatorNumbers all = boxes.Numbers();  // in the order of the form
  EXPECT_EQ(all.average, 1.0);
  EXPECT_EQ(all.adaptive, 2.0);
  EXPECT_EQ(all.parabolic->start, 3.0F);
  EXPECT_EQ(all.parabolic->most, 4.0F);
  EXPECT_EQ(all.parabolic->increase, 5.0F);
  EXPECT_EQ(all.bands, 6.0);
  EXPECT_EQ(all.hurst->days, 7.0);
  EXPECT_EQ(all.hurst->subperiods, 8.0);
  EXPECT_EQ(all.correlation, 9.0);
  EXPECT_EQ(all.mem->longest_period, 10.0);
  EXPECT_EQ(all.mem->poles, 11.0);
}

TEST(Indicators, OneFundOrAllStaysAsTheAnalysisNeedsIt) {
  IndicatorWorld world;
  world.Graph();
  world.boxes.chkMem.SetChecked(true);
  EXPECT_FALSE(world.screens.frmGraph.Loaded());
  EXPECT_TRUE(world.frmMain.tools.cmdNext.Visible());
  world.frmTab.optOneAll.SetListIndex(0);
  EXPECT_EQ(world.frmTab.optOneAll.ListIndex(), 1);
  world.boxes.chkCorrelation.SetChecked(true);
  world.frmTab.optOneAll.SetListIndex(1);
  EXPECT_EQ(world.frmTab.optOneAll.ListIndex(), 0);
  EXPECT_FALSE(world.frmMain.tools.cmdPrev.Visible());
}

TEST(Indicators, OverlaysStandBehindTheirFundFromTheDayThatTheirPeriodsLeave) {
  IndicatorWorld world;
  world.SelectColumns(2, 3);
  world.boxes.chkMoveAvg.SetChecked(true);
  world.boxes.chkBollinger.SetChecked(true);
  world.boxes.txtMoveAvg.SetText("60 days");
  world.frmMain.ChooseTimePeriod(kAll);
  world.Graph();
  EXPECT_EQ(
      world.Labels(world.Chart()),
      (Texts{"AAA", "AAAe", "AAAb1", "AAAba", "AAAb2", "BBB", "BBBe", "BBBb1", "BBBba", "BBBb2"}));
  EXPECT_EQ(world.state.selection.FirstDay, 62);
  EXPECT_EQ(world.Chart().rowcount(), kWorldDays - 61);
  // The middle band of day 2 is the mean of the 20 days before it, 9.5 below the last of them:
  // AAA, 161 on the first day, stood at 151.5.
  EXPECT_FLOAT_EQ(static_cast<float>(world.Chart().DataAt(2, 4)), 151.5F / 161.0F - 1.0F);
  EXPECT_EQ(world.host.front, &world.screens.frmGraph);
}

TEST(Indicators, ParametersThatMakeNoSenseAreToldOrDrawNothing) {
  struct Case {
    const char* text;
    const char* message;  // "" for a chart whose overlay is empty
  };
  for (const Case& c : {Case{"40000", "error: 6 Overflow"},
                        Case{"32767", "error: 6 Overflow"},  // and the two days that it needs more
                        Case{"500", "Not enough history for the chosen periods"},
                        Case{"abc", ""},
                        Case{"0", ""},
                        Case{"-1", ""}}) {
    SCOPED_TRACE(c.text);
    IndicatorWorld world;
    world.Graph();
    world.boxes.chkBollinger.SetChecked(true);
    world.boxes.txtBollinger.SetText(c.text);
    world.Graph();
    const bool refused = *c.message != '\0';
    EXPECT_EQ(world.dialogs.Texts(), refused ? Texts{c.message} : Texts{});
    EXPECT_EQ(world.Chart().ColumnCount(), refused ? 0 : 4);
    for (int row = 1; row <= world.Chart().rowcount(); ++row) {
      EXPECT_FALSE(world.Chart().HasPoint(row, 3)) << row;
    }
    EXPECT_EQ(world.Chart().HasPoint(5, 1), !refused);
  }
}

TEST(Indicators, HurstAndCorrelationHaveAChartBelowThePrices) {
  IndicatorWorld world;
  world.SelectColumns(2, 3);
  world.boxes.chkHurst.SetChecked(true);
  world.boxes.txtHurstDays.SetText("40");
  world.frmMain.tools.ShowSpectrumTools(true);
  world.Graph();
  EXPECT_EQ(world.host.front, &world.frmPer);
  EXPECT_EQ(world.frmPer.VtChart2.view.TitleText, "HURST EXPONENT");
  EXPECT_EQ(world.Labels(world.frmPer.VtChart2.view), (Texts{"AAA", "BBB"}));
  EXPECT_EQ(world.frmPer.VtChart2.view.rowcount(), world.frmPer.VtChart1.view.rowcount());
  EXPECT_FALSE(world.frmPer.VtChart3.Visible());
  EXPECT_FALSE(world.frmMain.tools.cmdSpectFwd.Visible());
  EXPECT_EQ(world.frmPer.HScroll1.Value(), kWorldDays);
  EXPECT_EQ(world.Chart().ColumnCount(), 0);  // frmGraph has no part in it

  world.boxes.chkCorrelation.SetChecked(true);
  world.frmPer.HScroll1.SetValue(250);
  EXPECT_EQ(world.frmPer.VtChart2.view.TitleText, "CORRELATION");
  EXPECT_TRUE(world.dialogs.messages.empty());
  // One fund is too few, also when the selection was read before the box was ticked.
  world.boxes.chkMoveAvg.SetChecked(true);
  world.SelectColumns(2, 2);
  world.Graph();
  world.boxes.chkCorrelation.SetChecked(true);
  world.frmPer.HScroll1.SetValue(260);
  EXPECT_EQ(world.dialogs.Texts(), (Texts{"Two funds must be selected to graph correlation"}));
  EXPECT_EQ(world.frmPer.VtChart1.view.ColumnCount(), 0);
  EXPECT_EQ(world.frmPer.VtChart2.view.ColumnCount(), 0);
}

TEST(Indicators, MaximumEntropyScreenStepsItsDayAndTakesForecasts) {
  IndicatorWorld world;
  world.boxes.chkMem.SetChecked(true);
  world.frmMain.ChooseTimePeriod(0);
  world.Graph();
  const ToolBar& tools = world.frmMain.tools;
  const SharedState& state = world.state;
  EXPECT_EQ(world.host.front, &world.frmPer);
  EXPECT_TRUE(world.frmPer.VtChart3.Visible() && tools.cmdSpectBack.Visible() &&
              tools.cmdSpectFwd.Visible() && tools.cmdClear.Visible());
  const int days = state.selection.ChartDays;
  EXPECT_EQ(world.frmPer.VtChart1.view.rowcount(), days + 10);
  EXPECT_EQ(state.spectrum.SpectrumDay, days);
  world.frmMain.tools.cmdSpectFwd.RaiseClick();
  EXPECT_EQ(state.spectrum.SpectrumDay, days);
  world.frmMain.tools.cmdSpectBack.RaiseClick();
  world.frmMain.tools.cmdSpectBack.RaiseClick();
  EXPECT_EQ(state.spectrum.SpectrumDay, days - 2);
  EXPECT_TRUE(world.frmPer.VtChart3.view.HasPoint(20, 1));

  const ChartView& prices = world.frmPer.VtChart1.view;
  for (const int day : {days - 3, days, days + 1}) {
    PointSelection point{.Series = 1, .DataPoint = day};
    world.frmPer.VtChart1.RaisePointSelected(point);
  }
  EXPECT_EQ(prices.ColumnCount(), 4);  // the day behind the last one is a forecast itself
  EXPECT_TRUE(prices.HasPoint(days - 3 + 10, 3) && prices.HasPoint(days + 10, 4));
  EXPECT_FALSE(prices.HasPoint(days - 2 + 10, 3) || prices.HasPoint(days - 1, 4));
  world.boxes.txtMemPoles.SetText("40000");
  PointSelection point{.Series = 1, .DataPoint = days};
  world.frmPer.VtChart1.RaisePointSelected(point);
  EXPECT_EQ(world.dialogs.Texts(), (Texts{"error: 6 Overflow"}));
  world.frmMain.tools.cmdClear.RaiseClick();
  EXPECT_EQ(prices.ColumnCount(), 2);

  world.frmPer.HScroll1.SetValue(280);  // refused: nothing of the old screen is left to step
  EXPECT_EQ(prices.ColumnCount(), 0);
  EXPECT_FALSE(tools.cmdSpectBack.Visible());
  EXPECT_EQ(state.spectrum.SpectrumDays, 0);
}

TEST(Indicators, ClickOnAnotherScreenOfThreeChartsIsCancelled) {
  IndicatorWorld world;
  world.SelectColumns(2, 3);
  world.boxes.chkHurst.SetChecked(true);
  world.Graph();
  PointSelection point{.Series = 1, .DataPoint = 2};
  world.frmPer.VtChart1.RaisePointSelected(point);
  EXPECT_TRUE(point.Cancel);
  EXPECT_EQ(world.frmPer.VtChart1.view.ColumnCount(), 2);
}

// Whatever stands in a box, a chart is drawn or one message says why not and nothing old is left.
TEST(Indicators, EveryBoxStandsEveryNumberInEveryPeriod) {
  IndicatorWorld world;
  world.SelectColumns(2, 4);
  IndicatorBoxes& boxes = world.boxes;
  const std::vector<std::pair<CheckBox*, TextBox*>> pairs = {
      {&boxes.chkMoveAvg, &boxes.txtMoveAvg},
      {&boxes.chkAMA, &boxes.txtAMA},
      {&boxes.chkParabolic, &boxes.txtPBStart},
      {&boxes.chkParabolic, &boxes.txtPBMax},
      {&boxes.chkParabolic, &boxes.txtPBAcc},
      {&boxes.chkBollinger, &boxes.txtBollinger},
      {&boxes.chkHurst, &boxes.txtHurstDays},
      {&boxes.chkHurst, &boxes.txtHurstPeriod},
      {&boxes.chkCorrelation, &boxes.txtCorrPeriod},
      {&boxes.chkMem, &boxes.txtMemPeriod},
      {&boxes.chkMem, &boxes.txtMemPoles}};
  for (const auto& [check, text] : pairs) {
    const std::string preset = text->Text();
    boxes.ClearAll();
    check->SetChecked(true);
    for (const char* typed : {"", "1", "0", "-1", "40000", "-40000", "1e99", "abc", "299"}) {
      text->SetText(typed);
      for (const int period : {0, 3, kAll}) {
        SCOPED_TRACE(text->Name() + " \"" + typed + "\" " + std::to_string(period));
        world.dialogs.messages.clear();
        world.frmMain.ChooseTimePeriod(period);
        world.Graph();
        const bool three = boxes.AnalysisTicked();
        const ChartView& chart = three ? world.frmPer.VtChart1.view : world.Chart();
        const bool drawn = chart.ColumnCount() > 0;
        EXPECT_LE(world.dialogs.messages.size(), 1U);
        EXPECT_TRUE(drawn || world.dialogs.messages.size() == 1U);
        EXPECT_EQ(three && drawn, three && world.frmPer.VtChart2.view.ColumnCount() > 0);
      }
    }
    text->SetText(preset);
  }
}

}  // namespace
}  // namespace vistaplot
