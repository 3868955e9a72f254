// The indicators on the parameter screen and the charts that they make.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "support/screen_world.h"

namespace vistaplot::test {
namespace {

using Texts = std::vector<std::string>;

constexpr int kAll = 9;

struct Indicators : testing::Test, ScreenWorld {
  IndicatorBoxes& boxes = frmTab.indicators;

  Indicators() {
    LoadTrio();
    SelectColumns(2, 2);
  }

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

TEST_F(Indicators, StandWithTheirDefaultsOnTheScreenOfLinesAlone) {
  Texts defaults;  // in the order of the screen
  for (const Design& design : boxes.Designs()) {
    if (const auto* box = dynamic_cast<TextBox*>(design.control)) defaults.push_back(box->Text());
  }
  EXPECT_EQ(defaults,
            (Texts{"50", "150", "0.02", "0.2", "0.0001", "20", "100", "5", "50", "50", "15"}));
  for (int graph = 0; graph < 5; ++graph) {
    frmTab.cboGraphType.SetListIndex(0);
    boxes.chkHurst.SetChecked(true);
    frmTab.cboGraphType.SetListIndex(graph);
    for (const Design& design : boxes.Designs()) {
      EXPECT_EQ(design.control->Usable(), graph <= 1) << design.name << " " << graph;
    }
    EXPECT_EQ(frmTab.optOneAll.Usable(), graph <= 3) << graph;
    EXPECT_EQ(frmTab.cmdPoint.Usable(), graph == 4) << graph;
    EXPECT_TRUE(Ticked().empty());  // another kind of graph starts without any
  }
  frmTab.cboDataType.SetListIndex(0);
  EXPECT_FALSE(boxes.chkMem.Usable() || boxes.txtMemPoles.Usable());
}

TEST_F(Indicators, TickedBoxClearsThoseThatCannotBeDrawnWithIt) {
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
    frmMain.tools.ShowSpectrumTools(true);
    step.box->SetChecked(true);
    EXPECT_EQ(Ticked(), step.ticked) << step.box->Name();
    EXPECT_EQ(frmTab.optOneAll.ListIndex(), step.one_all) << step.box->Name();
    EXPECT_FALSE(frmMain.tools.cmdSpectFwd.Visible()) << step.box->Name();
    EXPECT_FALSE(frmMain.tools.cmdClear.Visible()) << step.box->Name();
  }
  frmMain.tools.ShowSpectrumTools(true);
  boxes.chkMoveAvg.SetChecked(false);  // a box that is cleared does nothing
  EXPECT_TRUE(frmMain.tools.cmdSpectBack.Visible());
}

TEST(IndicatorNumbers, EveryNumberComesFromItsOwnBoxAndOfTickedOnesAlone) {
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

TEST_F(Indicators, OneFundOrAllStaysAsTheAnalysisNeedsIt) {
  Graph();
  boxes.chkMem.SetChecked(true);
  EXPECT_FALSE(frmGraph.Loaded());
  EXPECT_TRUE(frmMain.tools.cmdNext.Visible());
  frmTab.optOneAll.SetListIndex(0);
  EXPECT_EQ(frmTab.optOneAll.ListIndex(), 1);
  boxes.chkCorrelation.SetChecked(true);
  frmTab.optOneAll.SetListIndex(1);
  EXPECT_EQ(frmTab.optOneAll.ListIndex(), 0);
  EXPECT_FALSE(frmMain.tools.cmdPrev.Visible());
}

TEST_F(Indicators, OverlaysStandBehindTheirFundFromTheDayThatTheirPeriodsLeave) {
  SelectColumns(2, 3);
  boxes.chkMoveAvg.SetChecked(true);
  boxes.chkBollinger.SetChecked(true);
  boxes.txtMoveAvg.SetText("60 days");
  frmMain.ChooseTimePeriod(kAll);
  Graph();
  EXPECT_EQ(
      Labels(Chart()),
      (Texts{"AAA", "AAAe", "AAAb1", "AAAba", "AAAb2", "BBB", "BBBe", "BBBb1", "BBBba", "BBBb2"}));
  EXPECT_EQ(state.selection.FirstDay, 62);
  EXPECT_EQ(Chart().rowcount(), kWorldDays - 61);
  // The middle band of day 2 is the mean of the 20 days before it, 9.5 below the last of them:
  // AAA, 161 on the first day, stood at 151.5.
  EXPECT_FLOAT_EQ(static_cast<float>(Chart().DataAt(2, 4)), 151.5F / 161.0F - 1.0F);
  EXPECT_EQ(host.front, &frmGraph);
}

TEST_F(Indicators, ParametersThatMakeNoSenseAreToldOrDrawNothing) {
  // "" for a chart whose overlay is empty; 32767 and the two days that it needs more are too many.
  for (const auto& [text, message] : std::vector<std::pair<std::string, std::string>>{
           {"40000", "error: 6 Overflow"},
           {"32767", "error: 6 Overflow"},
           {"500", "Not enough history for the chosen periods"},
           {"abc", ""},
           {"0", ""},
           {"-1", ""}}) {
    SCOPED_TRACE(text);
    boxes.ClearAll();
    Graph();
    boxes.chkBollinger.SetChecked(true);
    boxes.txtBollinger.SetText(text);
    Graph();
    const bool refused = !message.empty();
    EXPECT_EQ(NewMessages(), refused ? Texts{message} : Texts{});
    EXPECT_EQ(Chart().ColumnCount(), refused ? 0 : 4);
    for (int row = 1; row <= Chart().rowcount(); ++row) {
      EXPECT_FALSE(Chart().HasPoint(row, 3)) << row;
    }
    EXPECT_EQ(Chart().HasPoint(5, 1), !refused);
  }
}

TEST_F(Indicators, HurstAndCorrelationHaveAChartBelowThePrices) {
  SelectColumns(2, 3);
  boxes.chkHurst.SetChecked(true);
  boxes.txtHurstDays.SetText("40");
  frmMain.tools.ShowSpectrumTools(true);
  Graph();
  EXPECT_EQ(host.front, &frmPer);
  EXPECT_EQ(frmPer.VtChart2.view.TitleText, "HURST EXPONENT");
  EXPECT_EQ(Labels(frmPer.VtChart2.view), (Texts{"AAA", "BBB"}));
  EXPECT_EQ(frmPer.VtChart2.view.rowcount(), frmPer.VtChart1.view.rowcount());
  EXPECT_FALSE(frmPer.VtChart3.Visible());
  EXPECT_FALSE(frmMain.tools.cmdSpectFwd.Visible());
  EXPECT_EQ(frmPer.HScroll1.Value(), kWorldDays);
  EXPECT_EQ(Chart().ColumnCount(), 0);  // frmGraph has no part in it

  boxes.chkCorrelation.SetChecked(true);
  frmPer.HScroll1.SetValue(250);
  EXPECT_EQ(frmPer.VtChart2.view.TitleText, "CORRELATION");
  EXPECT_TRUE(dialogs.messages.empty());
  // One fund is too few, also when the selection was read before the box was ticked.
  boxes.chkMoveAvg.SetChecked(true);
  SelectColumns(2, 2);
  Graph();
  boxes.chkCorrelation.SetChecked(true);
  frmPer.HScroll1.SetValue(260);
  EXPECT_EQ(dialogs.Texts(), (Texts{"Two funds must be selected to graph correlation"}));
  EXPECT_EQ(frmPer.VtChart1.view.ColumnCount(), 0);
  EXPECT_EQ(frmPer.VtChart2.view.ColumnCount(), 0);
  frmTab.cboDataType.SetListIndex(0);
  EXPECT_FALSE(frmPer.Loaded()) << "a screen of prices alone";
}

TEST_F(Indicators, MaximumEntropyScreenStepsItsDayAndTakesForecasts) {
  boxes.chkMem.SetChecked(true);
  frmMain.ChooseTimePeriod(0);
  Graph();
  const ToolBar& tools = frmMain.tools;
  EXPECT_EQ(host.front, &frmPer);
  EXPECT_TRUE(frmPer.VtChart3.Visible() && tools.cmdSpectBack.Visible() &&
              tools.cmdSpectFwd.Visible() && tools.cmdClear.Visible());
  const int days = state.selection.ChartDays;
  EXPECT_EQ(frmPer.VtChart1.view.rowcount(), days + 10);
  EXPECT_EQ(state.spectrum.SpectrumDay, days);
  frmMain.tools.cmdSpectFwd.RaiseClick();
  EXPECT_EQ(state.spectrum.SpectrumDay, days);
  frmMain.tools.cmdSpectBack.RaiseClick();
  frmMain.tools.cmdSpectBack.RaiseClick();
  EXPECT_EQ(state.spectrum.SpectrumDay, days - 2);
  EXPECT_TRUE(frmPer.VtChart3.view.HasPoint(20, 1));

  const ChartView& prices = frmPer.VtChart1.view;
  for (const int day : {days - 3, days, days + 1}) {
    PointSelection point{.Series = 1, .DataPoint = day};
    frmPer.VtChart1.RaisePointSelected(point);
  }
  EXPECT_EQ(prices.ColumnCount(), 4);  // the day behind the last one is a forecast itself
  EXPECT_TRUE(prices.HasPoint(days - 3 + 10, 3) && prices.HasPoint(days + 10, 4));
  EXPECT_FALSE(prices.HasPoint(days - 2 + 10, 3) || prices.HasPoint(days - 1, 4));
  boxes.txtMemPoles.SetText("40000");
  PointSelection point{.Series = 1, .DataPoint = days};
  frmPer.VtChart1.RaisePointSelected(point);
  EXPECT_EQ(dialogs.Texts(), (Texts{"error: 6 Overflow"}));
  frmMain.tools.cmdClear.RaiseClick();
  EXPECT_EQ(prices.ColumnCount(), 2);

  for (const bool by_selection : {false, true}) {  // refused: nothing of the old screen is left
    if (by_selection) {
      boxes.txtMemPoles.SetText("15");
      Graph();
      EXPECT_TRUE(tools.cmdSpectBack.Visible());
      SelectColumns(1, 1);
      Graph();
    } else {
      frmPer.HScroll1.SetValue(280);
    }
    EXPECT_EQ(prices.ColumnCount(), 0);
    EXPECT_FALSE(tools.cmdSpectBack.Visible());
    EXPECT_EQ(state.spectrum.SpectrumDays, 0);
  }
}

TEST_F(Indicators, ClickOnAnotherScreenOfThreeChartsIsCancelled) {
  SelectColumns(2, 3);
  boxes.chkHurst.SetChecked(true);
  Graph();
  PointSelection point{.Series = 1, .DataPoint = 2};
  frmPer.VtChart1.RaisePointSelected(point);
  EXPECT_TRUE(point.Cancel);
  EXPECT_EQ(frmPer.VtChart1.view.ColumnCount(), 2);
}

// Whatever stands in a box, a chart is drawn or one message says why not and nothing old is left.
TEST_F(Indicators, EveryBoxStandsEveryNumberInEveryPeriod) {
  SelectColumns(2, 4);
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
        dialogs.messages.clear();
        frmMain.ChooseTimePeriod(period);
        Graph();
        const bool three = boxes.AnalysisTicked();
        const ChartView& chart = three ? frmPer.VtChart1.view : Chart();
        const bool drawn = chart.ColumnCount() > 0;
        EXPECT_LE(dialogs.messages.size(), 1U);
        EXPECT_TRUE(drawn || dialogs.messages.size() == 1U);
        EXPECT_EQ(three && drawn, three && frmPer.VtChart2.view.ColumnCount() > 0);
      }
    }
    text->SetText(preset);
  }
}

}  // namespace
}  // namespace vistaplot::test
