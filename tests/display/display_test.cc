// The whole program on a real display with a window manager, which on_display.sh gives it: a user's
// way from a family to a saved chart with the keyboard alone, what shows only where a manager
// places, stacks and activates windows, and what assistive tools are told.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <functional>
#include <string>
#include <vector>

#include "support/screen_world.h"
#include "ui/chart/chart_widget.h"
#include "ui/frame/form_view.h"
#include "ui/frame/window_program.h"
#include "ui/grid/grid_area.h"

namespace vistaplot::test {
namespace {

constexpr int kDisplayDays = 2500;  ///< one a day, so nearly seven years

/// How long a step may take to show; a step that succeeds waits no longer than it must.
constexpr int kPatience = 30000;

/// Three funds of five years and more.
struct DisplayWorld : ScreenWorld {
  DisplayWorld() {
    quoteline.SetDays(SerialFromDate({2001, 1, 1}), kDisplayDays);
    quoteline.AddIssue("AAA", Line(100.0F, 0.25F, kDisplayDays));
    quoteline.AddIssue("BBB", Line(200.0F, 0.25F, kDisplayDays));
    quoteline.AddIssue("CCC", Line(300.0F, 0.25F, kDisplayDays));
  }
};

/// Runs `steps` in the program's own event loop; returns the program's exit status. Steps that give
/// up before they have ended the program end it with status 99.
int RunProgram(WindowProgram& program, const std::function<void()>& steps) {
  QTimer::singleShot(0, &program, [&] {
    if (QTest::qWaitForWindowActive(&program.Window(), kPatience)) {
      steps();
    } else {
      ADD_FAILURE() << "the manager never made the main window active";
    }
    if (testing::Test::HasFailure()) QApplication::exit(99);
  });
  return program.Run();
}

bool Wait(const std::function<bool()>& until) {
  return QTest::qWaitFor(until, kPatience);
}

/// The widget that a key pressed now goes to.
QWidget* KeyTarget() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* focus = QApplication::focusWidget()) return focus;
  return QApplication::activeWindow();
}

void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
  ASSERT_TRUE(Wait([] { return KeyTarget() != nullptr; }));
  QTest::keyClick(KeyTarget(), key, with);
}

void Type(const std::string& text) {
  ASSERT_TRUE(Wait([] { return KeyTarget() != nullptr; }));
  QTest::keyClicks(KeyTarget(), QString::fromStdString(text));
}

/// Goes down the open menu to the item of this text and chooses it.
void ChooseInMenu(const QString& text) {
  ASSERT_TRUE(Wait([] { return QApplication::activePopupWidget() != nullptr; }));
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  const auto reached = [&] {
    return menu->activeAction() != nullptr && menu->activeAction()->text().remove('&') == text;
  };
  for (int tries = 0; tries < 20 && !reached(); ++tries) Press(Qt::Key_Down);
  ASSERT_TRUE(reached()) << text.toStdString();
  Press(Qt::Key_Return);
}

/// Runs `action` once the modal window that the coming step opens is active.
void OnceModal(QObject& owner, const std::function<void(QWidget&)>& action) {
  auto* watch = new QTimer(&owner);
  QObject::connect(watch, &QTimer::timeout, &owner, [watch, action] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isActiveWindow()) return;
    watch->stop();
    action(*modal);
  });
  watch->start(20);
}

/// The program on a display; a test runs its steps in the program's own event loop.
class OnDisplay : public testing::Test {
 protected:
  int Run(const std::function<void()>& steps) { return RunProgram(program_, steps); }
  MainWindow& Main() { return program_.Window(); }
  SharedState& State() { return program_.Screens().State(); }
  ChartWidget* Chart() { return qobject_cast<ChartWidget*>(QApplication::focusWidget()); }

  DisplayWorld world_;
  WindowProgram program_{{.quoteline = world_.quoteline,
                          .settings = world_.settings,
                          .display = std::nullopt,
                          .player = nullptr}};
  Screens& screens_ = program_.Screens().AllScreens();
};

/// mm/dd/yyyy of the sheet as the mm/dd/yy of the chart.
std::string ShortDate(const std::string& date) {
  return date.size() == 10 ? date.substr(0, 6) + date.substr(8) : date;
}

class Journey : public OnDisplay {
 protected:
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
};

TEST_F(Journey, ThreeFundsOverFiveYearsWithTheKeyboardAlone) {
  const TemporaryFolder results;
  const int status = Run([&] {
    ASSERT_NO_FATAL_FAILURE(Load());
    ASSERT_NO_FATAL_FAILURE(SelectThreeFunds());
    ASSERT_NO_FATAL_FAILURE(ChartFiveYears());
    ASSERT_NO_FATAL_FAILURE(ReadAValue());
    ASSERT_NO_FATAL_FAILURE(SavePicture(results.Path("chart.png")));
    Press(Qt::Key_Q, Qt::ControlModifier);
  });
  EXPECT_EQ(status, 0);
}

class ManagedWindows : public OnDisplay {
 protected:
  void ClickTool(const char* name) {
    const auto* bar = Main().findChild<QToolBar*>();
    QWidget* tool = bar->widgetForAction(Main().findChild<QAction*>(name));
    ASSERT_NE(tool, nullptr);
    QTest::mouseClick(tool, Qt::LeftButton);
  }
};

TEST_F(ManagedWindows, TheFrameFitsTheScreenAndFillsItOnRequest) {
  const int status = Run([this] {
    const QRect screen = Main().screen()->geometry();
    EXPECT_TRUE(screen.contains(Main().frameGeometry()));
    QTest::keyClick(&Main(), Qt::Key_3, Qt::ControlModifier);
    QTest::keyClick(&Main(), Qt::Key_F11);
    EXPECT_TRUE(Wait([&] { return Main().isFullScreen() && Main().geometry() == screen; }));
    QTest::keyClick(&Main(), Qt::Key_F11);
    EXPECT_TRUE(Wait([&] { return !Main().isFullScreen() && Main().geometry() != screen; }));
    Main().close();
  });
  EXPECT_EQ(status, 0);
}

TEST_F(ManagedWindows, TheFamilyWindowComesToTheFrontAndGivesTheFocusBack) {
  const int status = Run([this] {
    screens_.frmTab.cboDataType.SetListIndex(1);
    Main().findChild<QAction*>("mnuFamilySelect")->trigger();
    QWidget* family = program_.Host().ViewOf(screens_.frmFam);
    ASSERT_NE(family, nullptr);
    ASSERT_TRUE(Wait([&] { return family->window()->isActiveWindow(); }));
    family->window()->close();  // as the manager does for a click on its X
    EXPECT_TRUE(Wait([this] { return Main().isActiveWindow() && QApplication::focusWidget(); }));
    QTest::keyClick(&Main(), Qt::Key_Q, Qt::ControlModifier);
  });
  EXPECT_EQ(status, 0);
}

TEST_F(ManagedWindows, AMessageTakesTheKeysAndTheScreenHasThemAgainAfterwards) {
  const int status = Run([this] {
    screens_.frmTab.cboDataType.SetListIndex(1);
    QWidget* before = QApplication::focusWidget();
    QString text;
    OnceModal(program_, [&text](QWidget& box) {
      text = dynamic_cast<QMessageBox&>(box).text();
      Press(Qt::Key_Return);
    });
    ClickTool("cmdGraph");  // nothing is loaded yet
    EXPECT_TRUE(text.startsWith(QStringLiteral("Please load"))) << text.toStdString();
    EXPECT_TRUE(Wait([&] { return Main().isActiveWindow(); }));
    EXPECT_EQ(QApplication::focusWidget(), before);
    Main().close();
  });
  EXPECT_EQ(status, 0);
}

TEST_F(ManagedWindows, CellsChosenWithTheMouseReachTheClipboard) {
  const int status = Run([this] {
    screens_.frmTab.cboDataType.SetListIndex(1);
    screens_.frmTab.lists.lstIndex.Select({0});
    screens_.frmTab.lists.cmdLoadData.RaiseClick();
    ClickTool("cmdShowData");
    auto* grid = Main().findChild<GridArea*>();
    ASSERT_TRUE(Wait([&] { return grid->isVisible() && QApplication::focusWidget() == grid; }));
    const GridGeometry& cells = grid->Geometry();
    const auto at = [&](int row, int col) {
      return QPoint(cells.Left(col) + 5, cells.Top(row) + 5);
    };
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, at(2, 2));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::ShiftModifier, at(3, 3));
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(Wait([] { return !QApplication::clipboard()->text().isEmpty(); }));
    EXPECT_EQ(QApplication::clipboard()->text().trimmed().toStdString(),
              "100\t200\n100.25\t200.25");
    Main().close();
  });
  EXPECT_EQ(status, 0);
}

/// Names of what took the keyboard, and descriptions that changed, in the order of their telling.
QStringList& Told() {
  static QStringList told;
  return told;
}

void Listen(QAccessibleEvent* event) {
  QAccessibleInterface* about = event->accessibleInterface();
  if (about == nullptr) return;
  if (event->type() == QAccessible::Focus) Told() += about->text(QAccessible::Name);
  if (event->type() == QAccessible::DescriptionChanged) {
    Told() += about->text(QAccessible::Description);
  }
}

/// The last one begins so, at last.
bool Hear(const QString& beginning) {
  return Wait([&] { return !Told().isEmpty() && Told().back().startsWith(beginning); });
}

using Spoken = OnDisplay;

TEST_F(Spoken, CellsAndReadOutsAreToldAsTheKeysMove) {
  const int status = Run([&] {
    ASSERT_TRUE(Wait([] { return QAccessible::isActive(); }));
    QAccessible::installUpdateHandler(Listen);
    screens_.frmTab.cboDataType.SetListIndex(1);
    screens_.frmTab.lists.lstIndex.Select({0});
    screens_.frmTab.lists.cmdLoadData.RaiseClick();
    Press(Qt::Key_2, Qt::ControlModifier);
    ASSERT_TRUE(Wait([] { return qobject_cast<GridArea*>(QApplication::focusWidget()); }));
    EXPECT_TRUE(Hear("100, AAA, 01/01/2001, B2")) << Told().join(u'\n').toStdString();
    Press(Qt::Key_Down);
    EXPECT_TRUE(Hear("100.25, AAA, 01/02/2001, B3")) << Told().join(u'\n').toStdString();
    screens_.frmMain.mnuFileGraph.RaiseClick();
    ASSERT_TRUE(Wait([] { return qobject_cast<ChartWidget*>(QApplication::focusWidget()); }));
    Press(Qt::Key_Left);
    EXPECT_TRUE(Hear("11/05/07, AAA 724.75 ")) << Told().join(u'\n').toStdString();
    Press(Qt::Key_Left);
    EXPECT_TRUE(Hear("11/04/07, AAA 724.5 ")) << Told().join(u'\n').toStdString();
    QAccessible::installUpdateHandler(nullptr);
    Press(Qt::Key_Q, Qt::ControlModifier);
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace vistaplot::test

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
