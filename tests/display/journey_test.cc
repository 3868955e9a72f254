// A user's way from a family to a saved chart, with the keyboard alone.
#include <QImage>

#include "display/display_world.h"

namespace vistaplot {
namespace {

using namespace test;

/// mm/dd/yyyy of the sheet as the mm/dd/yy of the chart.
std::string ShortDate(const std::string& date) {
  return date.size() == 10 ? date.substr(0, 6) + date.substr(8) : date;
}

class Journey {
 public:
  Journey() : screens_(program_.Screens().AllScreens()) {}

  int Run(const std::function<void()>& steps) { return RunProgram(program_, steps); }

  void Load() {
    Press(Qt::Key_Down);  // the list of data types
    ASSERT_EQ(screens_.frmTab.cboDataType.ListIndex(), 1);
    Press(Qt::Key_N, Qt::AltModifier);
    Type("tri");
    Press(Qt::Key_L, Qt::AltModifier);
    ASSERT_TRUE(Wait([this] { return State().flags.ResultFileLoaded; }));
    EXPECT_EQ(State().table.SheetAt(1).MaxRow, kDisplayDays + 1);
  }

  void SelectThreeFunds() {
    Press(Qt::Key_2, Qt::ControlModifier);
    ASSERT_TRUE(Wait([] { return qobject_cast<GridArea*>(QApplication::focusWidget()); }));
    Press(Qt::Key_Home, Qt::ControlModifier);
    Press(Qt::Key_Space, Qt::ControlModifier);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Right, Qt::ShiftModifier);
  }

  void ChartFiveYears() {
    Press(Qt::Key_F, Qt::AltModifier);
    ChooseInMenu(QStringLiteral("Graph"));
    ASSERT_TRUE(Wait([this] { return Chart() != nullptr; }));
    Press(Qt::Key_T, Qt::AltModifier);
    ChooseInMenu(QStringLiteral("Five Years"));
    ASSERT_TRUE(Wait([this] { return State().selection.TimePeriodIndex == 8; }));
    const ChartView& view = screens_.frmGraph.VtChart1.view;
    EXPECT_EQ(view.ColumnCount(), 3);
    EXPECT_GT(view.rowcount(), 1200);
  }

  // The read-out's prices are those of the sheet's row of that day.
  void ReadAValue() {
    Press(Qt::Key_Left);
    Press(Qt::Key_Left);
    ASSERT_TRUE(Wait([this] { return !Chart()->ReadOutText().isEmpty(); }));
    const QString text = Chart()->ReadOutText();
    const std::string day = text.section(QStringLiteral(", "), 0, 0).toStdString();
    const Sheet& sheet = State().table.SheetAt(1);
    int row = sheet.MaxRow;
    while (row > 1 && ShortDate(sheet.CellText(row, 1)) != day) --row;
    ASSERT_GT(row, 1) << text.toStdString();
    for (int col = 2; col <= 4; ++col) {
      const std::string fund = sheet.CellText(1, col) + " " + sheet.CellText(row, col) + " ";
      EXPECT_TRUE(text.contains(QString::fromStdString(fund))) << text.toStdString() << fund;
    }
  }

  void SavePicture(const std::string& path) {
    OnceModal(program_, [path](QWidget&) {
      Press(Qt::Key_A, Qt::ControlModifier);
      Type(path);
      Press(Qt::Key_Return);
    });
    Press(Qt::Key_S, Qt::ControlModifier);
    QImage picture;
    ASSERT_TRUE(Wait([&] { return picture.load(QString::fromStdString(path), "PNG"); }));
    const QRgb corner = picture.pixel(0, 0);
    int drawn = 0;
    for (int x = 0; x < picture.width(); ++x) {
      drawn += picture.pixel(x, picture.height() / 2) != corner ? 1 : 0;
    }
    EXPECT_GT(drawn, 3);
  }

  SharedState& State() { return program_.Screens().State(); }

  ChartWidget* Chart() { return qobject_cast<ChartWidget*>(QApplication::focusWidget()); }

 private:
  DisplayWorld world_;
  WindowProgram program_{{.quoteline = world_.quoteline,
                          .settings = world_.settings,
                          .display = std::nullopt,
                          .player = nullptr}};
  Screens& screens_;
};

TEST(Journey, ThreeFundsOverFiveYearsWithTheKeyboardAlone) {
  Journey journey;
  const TemporaryFolder results;
  const int status = journey.Run([&] {
    ASSERT_NO_FATAL_FAILURE(journey.Load());
    ASSERT_NO_FATAL_FAILURE(journey.SelectThreeFunds());
    ASSERT_NO_FATAL_FAILURE(journey.ChartFiveYears());
    ASSERT_NO_FATAL_FAILURE(journey.ReadAValue());
    ASSERT_NO_FATAL_FAILURE(journey.SavePicture(results.Path("chart.png")));
    Press(Qt::Key_Q, Qt::ControlModifier);
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace vistaplot
