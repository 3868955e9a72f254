#include "ui/chart/chart_widget.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <stdexcept>

#include "support/chart_pictures.h"
#include "support/recording_dialogs.h"
#include "ui/chart/chart_canvas.h"
#include "ui/chart/read_out_line.h"
#include "ui/hands.h"

namespace vistaplot::test {
namespace {

constexpr int kRows = 100;

// Series s rises by s percent a day: day d of series 2 is +2(d - 1)%.
std::vector<std::vector<double>> Rising(int series, int rows) {
  std::vector<std::vector<double>> values(static_cast<std::size_t>(series));
  for (int s = 1; s <= series; ++s) {
    for (int row = 0; row < rows; ++row) {
      values[static_cast<std::size_t>(s - 1)].push_back(0.01 * s * row);
    }
  }
  return values;
}

struct ChartWorld {
  explicit ChartWorld(int series = 3, QSize size = {800, 600}) {
    Draw(series, kRows);
    box.view.SetObserver([this] { chart.ViewChanged(); });
    box.PointSelected = [this](PointSelection& selection) {
      selections.push_back(selection);
      selection.Cancel = cancel;
    };
    guard.ReportTo(&dialogs);
    chart.resize(size);
    chart.show();
    QCoreApplication::processEvents();
  }

  void Draw(int series, int rows) {
    const auto observer = [this] { chart.ViewChanged(); };
    box.view = LineChart(Rising(series, rows));
    box.view.SetObserver(observer);
    Refresh();
  }

  void Refresh() {
    box.view.Refresh();
    QCoreApplication::processEvents();
  }

  // Where a point is painted.
  QPoint PlaceOf(int series, int row) const {
    const QSizeF size = chart.ChartSize();
    const PlotScale scale =
        LayoutChart(box.view, {size.width(), size.height()}, PictureTexts()).scale;
    return QPointF(scale.X(row), scale.Y(box.view.DataAt(row, series))).toPoint();
  }

  std::string Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&chart, key, modifiers);
    return chart.ReadOutText().toStdString();
  }

  ChartBox box;
  EventGuard guard;
  RecordingDialogs dialogs;
  ChartWidget chart{box, guard, nullptr};
  std::vector<PointSelection> selections;
  bool cancel = false;
};

std::string Heading(const std::string& read_out) {
  return read_out.substr(0, read_out.find(','));
}

class ChartTest : public testing::Test, protected ChartWorld {};

TEST_F(ChartTest, WithoutSeriesItTellsTheWayToAChart) {
  box.view.ToDefaults();  // what a build leaves that is refused for its size
  box.view.TitleText = "NAV";
  box.view.rowcount(12000);
  box.view.Refresh();
  const QRect inside = QRect(QPoint(), chart.ChartSize()).adjusted(4, 4, -4, -4);
  const QImage painted = chart.grab(inside).toImage();
  QImage blank = painted;
  blank.fill(painted.pixelColor(0, 0));
  EXPECT_NE(painted, blank);
  const QRect top(0, 0, blank.width(), blank.height() / 4);  // no title, no guides
  EXPECT_EQ(painted.copy(top), blank.copy(top));
  box.view.WhyEmpty = "12,045 points";
  box.view.Refresh();
  EXPECT_NE(chart.grab(inside).toImage(), painted) << "why it was refused";
}

TEST_F(ChartTest, KeysMoveTheCrossHairByDays) {
  std::string days;
  for (const Qt::Key key : {Qt::Key_Left,
                            Qt::Key_Left,
                            Qt::Key_PageUp,
                            Qt::Key_Right,
                            Qt::Key_PageDown,
                            Qt::Key_PageDown,
                            Qt::Key_Home,
                            Qt::Key_Left,
                            Qt::Key_Escape,
                            Qt::Key_End}) {
    days += Heading(Key(key)) + " ";
  }
  EXPECT_EQ(days, "d100 d99 d79 d80 d100 d100 d1 d1  d100 ") << "it appears on the last day";
  box.view.Plot.Axis[0].CategoryScale.DivisionsPerLabel = 7;
  EXPECT_EQ(Heading(Key(Qt::Key_PageUp)), "d93");
}

TEST_F(ChartTest, ThePointerSnapsToTheNearestDayAndReadsEverySeries) {
  box.view.facts.Series(2).base = 50.0;
  Refresh();
  const double day_width = (PlaceOf(1, 41).x() - PlaceOf(1, 1).x()) / 40.0;
  const int beside = static_cast<int>(day_width * 0.3);
  QTest::mouseMove(&chart, PlaceOf(3, 41) + QPoint(beside, 30));
  EXPECT_EQ(chart.ReadOutText().toStdString(), "d41, C1 +40.00%, C2 90 +80.00%, C3 +120.00%");
  EXPECT_EQ(chart.accessibleDescription(), chart.ReadOutText());
  QStringList shown;
  for (const QLabel* label : chart.findChildren<QLabel*>()) {
    if (label->isVisible()) shown += label->text();
  }
  EXPECT_EQ(shown.join(u'|').toStdString(), "d41|C1 +40.00%|C2 90 +80.00%|C3 +120.00%");
}

TEST_F(ChartTest, TheCrossHairNeverPaintsTheChartAgainAndLeavesNothingBehind) {
  const QImage before = chart.grab().toImage();
  Key(Qt::Key_End);
  QCoreApplication::processEvents();
  const qint64 painted = chart.Painted().cacheKey();
  for (int day = 90; day > 10; day -= 7) {
    QTest::mouseMove(&chart, PlaceOf(1 + day % 3, day));
    QCoreApplication::processEvents();
  }
  EXPECT_NE(chart.grab().toImage(), before);
  Key(Qt::Key_Escape);
  EXPECT_EQ(chart.Painted().cacheKey(), painted);
  EXPECT_EQ(chart.grab().toImage(), before);
}

TEST_F(ChartTest, AClickOnAPointSelectsItAndSoDoesEnter) {
  const auto click = [this](QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&chart, button, {}, at);
  };
  click(PlaceOf(2, 60));
  ASSERT_EQ(selections.size(), 1U);
  EXPECT_EQ(selections[0].Series, 2);
  EXPECT_EQ(selections[0].DataPoint, 60);
  for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Down, Qt::Key_Return}) Key(key);
  ASSERT_EQ(selections.size(), 2U);
  EXPECT_EQ(selections[1].Series, 3);
  EXPECT_EQ(selections[1].DataPoint, 59);
  click({PlaceOf(1, 5).x(), PlaceOf(3, 95).y()});  // nothing is there
  QTest::mousePress(&chart, Qt::LeftButton, {}, PlaceOf(1, 20));
  QTest::mouseRelease(&chart, Qt::LeftButton, {}, PlaceOf(1, 60));
  click(PlaceOf(2, 60), Qt::RightButton);
  EXPECT_EQ(selections.size(), 2U);
  cancel = true;
  Key(Qt::Key_Escape);
  click(PlaceOf(1, 30));
  EXPECT_EQ(selections.size(), 3U);
  EXPECT_EQ(chart.ReadOutText(), "");
}

class CellTest : public ChartTest, public testing::WithParamInterface<FigureKind> {
 protected:
  CellTest() {
    box.view.ToDefaults();
    FillCellView("1 2 3\n4 9 6\n7 8 -", box.view);
    box.view.TitleText = "Ra";
    box.view.facts.kind = GetParam();
    box.view.facts.cells.first_y = 3.0;
    box.CellOpened = [this](int row, int column) {
      opened += std::to_string(10 * row + column) + " ";
    };
    Refresh();
  }

  QPoint PlaceOfCell(int row, int column) const {
    const QSizeF size = chart.ChartSize();
    const auto picture = LayoutChart(box.view, {size.width(), size.height()}, PictureTexts());
    const auto seen = KindOf(box.view).PlaceOf(box.view, picture, row, column);
    const PlotScale& scale = picture.scale;
    return seen ? QPointF(seen->x, seen->y).toPoint()
                : QPointF(scale.X(column), scale.Y(box.view.rowcount() + 1 - row)).toPoint();
  }

  QImage Grab() { return chart.grab().toImage(); }

  std::string opened;
};

TEST_P(CellTest, IsReadOffMarkedAndOpened) {
  const bool surface = GetParam() == FigureKind::kSurface;
  const auto arrows = surface ? Qt::ShiftModifier : Qt::NoModifier;
  const QImage before = Grab();
  EXPECT_EQ(Key(Qt::Key_Return), "2, 2, Ra 9, rank 1 of 8, plateau 4.428571") << "the best";
  EXPECT_NE(Grab(), before) << "marked";
  EXPECT_EQ(Key(Qt::Key_Right, arrows), "3, 2, Ra 6, rank 4 of 8, plateau 5.5");
  Key(Qt::Key_Up, arrows);
  Key(Qt::Key_Enter);
  EXPECT_TRUE(chart.findChild<ReadOutLine*>()->isVisible());
  QTest::mouseMove(&chart, PlaceOfCell(3, 1));
  EXPECT_EQ(chart.ReadOutText().toStdString(), "1, 1, Ra 7, rank 3 of 8, plateau 7");
  for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
    QTest::mouseDClick(&chart, button, {}, PlaceOfCell(3, 1));
  }
  EXPECT_EQ(opened, "22 13 31 ");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Grab(), before);
  EXPECT_EQ(Key(Qt::Key_Left).empty(), surface) << "the plain arrow turns a surface";
  EXPECT_NE(Grab(), before);
  Key(surface ? Qt::Key_Home : Qt::Key_Escape);
  EXPECT_EQ(Grab(), before);
}

INSTANTIATE_TEST_SUITE_P(Kinds,
                         CellTest,
                         testing::Values(FigureKind::kContour, FigureKind::kSurface));

TEST_F(ChartTest, AClickBesideAPointMeansTheDayThatIsReadOff) {
  Draw(1, 100);
  box.view.SetData(61, 1, 5.0, false);  // a leap, steeper than the pointer's reach
  Refresh();
  const QPoint before = PlaceOf(1, 60);
  const QPoint after = PlaceOf(1, 61);
  const QPoint on_leap(before.x() + 1, (before.y() + 2 * after.y()) / 3);
  QTest::mouseMove(&chart, on_leap);
  QTest::mouseClick(&chart, Qt::LeftButton, {}, on_leap);
  ASSERT_EQ(selections.size(), 1U);
  EXPECT_EQ(selections[0].DataPoint, 60);
  EXPECT_EQ(chart.ReadOutText().left(3), "d60");
}

TEST_F(ChartTest, MarkersLieWhereTheyBelongInAWindowToo) {
  box.view.Plot.SeriesCollection[1].SeriesMarker.Show = true;
  QWidget window;
  window.resize(900, 700);
  chart.setParent(&window);
  chart.move(40, 60);
  window.show();
  Refresh();
  const QImage alone = chart.grab().toImage();
  const QImage inside = window.grab().toImage().copy(chart.geometry());
  chart.setParent(nullptr);
  EXPECT_EQ(inside, alone);
}

TEST_F(ChartTest, WhatAHandlerThrowsIsToldAndTheChartGoesOn) {
  box.PointSelected = [](PointSelection&) { throw std::runtime_error("no such row"); };
  QTest::mouseClick(&chart, Qt::LeftButton, {}, PlaceOf(2, 60));
  ASSERT_EQ(dialogs.messages.size(), 1U);
  EXPECT_NE(dialogs.messages[0].text.find("no such row"), std::string::npos);
  EXPECT_EQ(Heading(Key(Qt::Key_Home)), "d1");
}

TEST_F(ChartTest, TheWheelScrollsByWholeNotchesAndWithCtrlChangesThePeriod) {
  std::vector<int> scrolled;
  std::vector<int> periods;
  chart.SetHooks({.scroll = [&](int notches) { scrolled.push_back(notches); },
                  .change_period = [&](int steps) { periods.push_back(steps); }});
  TurnWheel(chart, {0, -120});
  for (int part = 0; part < 5; ++part) TurnWheel(chart, {0, 48});  // a touch pad's 240
  TurnWheel(chart, {-120, 0});
  TurnWheel(chart, {0, -240}, Qt::ControlModifier);
  EXPECT_EQ(scrolled, (std::vector<int>{1, -1, -1, 1}));
  EXPECT_EQ(periods, (std::vector<int>{2}));
}

TEST_F(ChartTest, ItsHintTellsFromWhereTheHistoriesHaveEnded) {
  const auto hint = [this](int width = 2000) {
    return chart.findChild<ReadOutLine*>()->Hint(width).toStdString();
  };
  EXPECT_EQ(hint().substr(0, 18), "Point at the chart");
  EXPECT_EQ(hint(220), "Point, or press \u2190 and \u2192");
  std::vector<double> ended(kRows, 0.25);
  for (int row = 0; row < 40; ++row) ended[static_cast<std::size_t>(row)] = 0.001 * row;
  box.view = LineChart({ended});
  box.view.facts.Series(1).last_price_row = 41;
  chart.ViewChanged();
  QCoreApplication::processEvents();
  EXPECT_EQ(hint(), "Nothing changes after d41: the histories may have ended");
}

TEST_F(ChartTest, AnotherChartKeepsTheDayOrItsPlaceOrHidesTheCrossHair) {
  QTest::mouseMove(&chart, PlaceOf(1, 50));
  box.view.SetData(50, 1, 0.25, false);
  Refresh();
  EXPECT_EQ(chart.ReadOutText().toStdString(), "d50, C1 +25.00%, C2 +98.00%, C3 +147.00%");
  Draw(3, 2 * kRows - 1);  // the pointer's place shows day 99 now
  EXPECT_EQ(Heading(chart.ReadOutText().toStdString()), "d99");
  box.view.ToDefaults();
  Refresh();
  EXPECT_EQ(Key(Qt::Key_Left), "");
}

TEST(ChartWidget, OneCrossHairGoesThroughBothChartsThatShareTheirDays) {
  ChartWorld above;
  ChartWorld below(1);
  above.box.ShareDaysWith(below.box);
  struct Follower : ControlObserver {
    void ControlChanged(Control& control, ControlAspect aspect) override {
      if (aspect == ControlAspect::kPointed) {
        chart.FollowRow(static_cast<ChartBox&>(control).PointedRow());
      }
    }
    explicit Follower(ChartWidget& widget) : chart(widget) {}
    ChartWidget& chart;
  };
  Follower follow_above(above.chart);
  Follower follow_below(below.chart);
  above.box.SetObserver(&follow_above);
  below.box.SetObserver(&follow_below);
  above.Key(Qt::Key_Home);
  EXPECT_EQ(Heading(above.Key(Qt::Key_Right)), "d2");
  EXPECT_EQ(Heading(below.chart.ReadOutText().toStdString()), "d2");
  EXPECT_EQ(Heading(below.Key(Qt::Key_Right)), "d3");
  EXPECT_EQ(Heading(above.chart.ReadOutText().toStdString()), "d3");
  below.Key(Qt::Key_Escape);
  EXPECT_TRUE(above.chart.ReadOutText().isEmpty());
  above.box.SetObserver(nullptr);
  below.box.SetObserver(nullptr);
}

TEST(ChartWidget, SeriesWithoutRoomAreCountedAndTheChosenOneIsAmongTheShown) {
  ChartWorld world(10, {300, 200});
  QTest::mouseMove(&world.chart, world.PlaceOf(8, 90));
  QStringList shown;
  QWidget* line = nullptr;
  for (QLabel* label : world.chart.findChildren<QLabel*>()) {
    if (!label->isVisible()) continue;
    shown += label->text();
    line = label->parentWidget();
  }
  EXPECT_TRUE(shown.contains(QStringLiteral("C8 +712.00%"))) << shown.join(u'|').toStdString();
  EXPECT_EQ(shown.last(), QStringLiteral("+%1 more").arg(10 - (shown.size() - 2)));
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->toolTip().count(u'\n'), 10);
}

TEST_F(ChartTest, FollowsADarkDesktop) {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(30, 30, 30));
  chart.setPalette(dark);
  const QImage image = chart.grab().toImage();
  const PictureColor ground = DarkTheme().background;
  EXPECT_EQ(image.pixelColor(5, 100), QColor(ground.red, ground.green, ground.blue));
  EXPECT_EQ(image.pixelColor(5, 595), QColor(ground.red, ground.green, ground.blue));
}

}  // namespace
}  // namespace vistaplot::test
