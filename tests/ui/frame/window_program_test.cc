#include "ui/frame/window_program.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QWheelEvent>

#include "ui/controls/widgets.h"
#include "ui/frame/program_windows.h"

namespace vistaplot {
namespace {

using test::Windows;

TEST(WindowProgram, StartsWithTheParameterScreenFillingTheWindow) {
  Windows windows;
  windows.Start();
  EXPECT_TRUE(windows.program.Window().isVisible());
  EXPECT_EQ(windows.program.Window().size(), QSize(1280, 960));
  EXPECT_TRUE(windows.Child(windows.screens.frmTab).isMaximized());
  EXPECT_EQ(windows.program.Host().ViewOf(windows.screens.frmGraph), nullptr);
  EXPECT_EQ(windows.program.Host().FrontScreen(), &windows.screens.frmTab);
}

TEST(WindowProgram, AFamilyIsLoadedWithTheKeyboardAlone) {
  Windows windows;
  windows.Start();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);  // the list of data types
  ASSERT_EQ(windows.screens.frmTab.cboDataType.ListIndex(), 1);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_N, Qt::AltModifier);
  QTest::keyClicks(QApplication::focusWidget(), "trio");
  EXPECT_EQ(windows.screens.frmTab.lists.lstIndex.SelectedPositions(), std::vector<int>{0});
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_L, Qt::AltModifier);
  const bool& loaded = windows.program.Screens().State().flags.ResultFileLoaded;
  EXPECT_TRUE(QTest::qWaitFor([&loaded] { return loaded; }));  // the button is seen to go down
}

TEST(WindowProgram, TheWheelOverAClosedListChoosesNothing) {
  Windows windows;
  windows.Start();
  QWidget* types = QApplication::focusWidget();
  const int chosen = windows.screens.frmTab.cboDataType.ListIndex();
  const QPointF at(5, 5);
  QWheelEvent wheel(
      at, types->mapToGlobal(at), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, /*inverted=*/false);
  QApplication::sendEvent(types, &wheel);
  EXPECT_EQ(windows.screens.frmTab.cboDataType.ListIndex(), chosen);
}

TEST(WindowProgram, KeysReachScreensAndTools) {
  Windows windows;
  windows.Start();
  QTest::keyClick(&windows.program.Window(), Qt::Key_2, Qt::ControlModifier);
  EXPECT_EQ(windows.program.Host().FrontScreen(), &windows.screens.frmData);
  QTest::keyClick(&windows.program.Window(), Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(windows.program.Host().FrontScreen(), &windows.screens.frmTab);
  const QToolBar& bar = *windows.program.Window().findChild<QToolBar*>();
  QTest::keyClick(&windows.program.Window(), Qt::Key_F6);
  EXPECT_EQ(QApplication::focusWidget(), bar.widgetForAction(&windows.Command("cmdGraph")));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
  EXPECT_FALSE(bar.isAncestorOf(QApplication::focusWidget()));
}

TEST(WindowProgram, EveryMenuAndCommandHasALetterOfItsOwn) {
  Windows windows;
  windows.Start();
  const auto letters = [](const QWidget& holder) {
    QString found;
    for (const QAction* action : holder.actions()) {
      if (!action->isSeparator()) found += QKeySequence::mnemonic(action->text()).toString().back();
    }
    return found.toStdString();
  };
  const QMenuBar& bar = *windows.program.Window().menuBar();
  EXPECT_EQ(letters(bar), "FETUWH");
  EXPECT_EQ(letters(*windows.Command("mnuTime").menu()), "OTMSNYWHFA");
  EXPECT_EQ(letters(*windows.Command("mnuWindow").menu()), "CTANPF");
  EXPECT_EQ(letters(*windows.Command("mnuHelp").menu()), "KA");
}

TEST(WindowProgram, ToolsAreWorkedAndLeftWithTheKeyboard) {
  Windows windows;
  windows.Start();
  MainWindow& window = windows.program.Window();
  windows.screens.frmTab.cboDataType.SetListIndex(1);
  windows.screens.frmTab.optOneAll.SetListIndex(1);
  windows.screens.frmTab.lists.lstIndex.Select({0});
  windows.screens.frmTab.lists.cmdLoadData.RaiseClick();
  EXPECT_EQ(windows.screens.frmMain.pnlStatus.Caption(),
            "TRIO: 3 issues, days 01/01/2001 to 10/27/2001");
  windows.program.Screens().State().table.SheetAt(1).Select({1, 2, test::kWorldDays + 1, 4});
  QTest::keyClick(&window, Qt::Key_F6);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  const ChartView& chart = windows.screens.frmGraph.VtChart1.view;
  EXPECT_EQ(chart.ColumnLabelAt(1), "AAA");
  QWidget* worked = QApplication::focusWidget();
  QTest::keyClick(&window, Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(chart.ColumnLabelAt(1), "BBB");
  QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
  QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(chart.ColumnLabelAt(1), "CCC");
  QTest::keyClick(&window, Qt::Key_F6);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
  EXPECT_EQ(QApplication::focusWidget(), worked);
}

TEST(WindowProgram, TheListOfKeysNamesEveryKeyOfTheWindow) {
  Windows windows;
  windows.Start();
  MainWindow& window = windows.program.Window();
  QStringList keys;
  for (const QAction* action : window.findChildren<QAction*>()) {
    const bool has_key = !action->shortcut().isEmpty();
    if (has_key && action->associatedObjects().contains(&window)) {
      keys += action->shortcut().toString();
    }
  }
  for (const QShortcut* shortcut : window.findChildren<QShortcut*>(Qt::FindDirectChildrenOnly)) {
    keys += shortcut->key().toString();
  }
  ASSERT_GT(keys.size(), 12);
  QStringList listed;
  QTimer::singleShot(0, [&listed] {
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    for (const QLabel* label : box->findChildren<QLabel*>()) {
      listed += label->text().split(QStringLiteral(", "));
    }
    box->reject();
  });
  QTest::keyClick(&window, Qt::Key_F1);
  for (const QString& key : keys) EXPECT_TRUE(listed.contains(key)) << key.toStdString();
}

TEST(WindowProgram, KeysWorkFromAWindowOfItsOwn) {
  Windows windows;
  windows.Start();
  MainWindow& main = windows.program.Window();
  windows.screens.frmTab.cboDataType.SetListIndex(1);
  const auto press = [&](Qt::Key key, Qt::KeyboardModifiers with) {
    windows.screens.frmFam.Show();
    QWidget* family = windows.program.Host().ViewOf(windows.screens.frmFam)->window();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == family; }));
    QTest::keyClick(family->focusWidget(), key, with);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &main; })) << key;
  };
  press(Qt::Key_2, Qt::ControlModifier);
  EXPECT_EQ(windows.program.Host().FrontScreen(), &windows.screens.frmData);
  EXPECT_TRUE(QApplication::focusWidget()->inherits("QTableView"));
  press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(windows.program.Host().FrontScreen(), &windows.screens.frmTab);
  press(Qt::Key_F6, Qt::NoModifier);
  EXPECT_TRUE(QApplication::focusWidget()->inherits("QToolButton"));
  EXPECT_TRUE(windows.screens.frmFam.Shown());
}

TEST(WindowProgram, NoKeyReachesTheScreensBesideAModalWindow) {
  Windows windows;
  windows.Start();
  const auto press_all = [&] {
    QWidget* modal = QApplication::activeModalWidget();
    ASSERT_NE(modal, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([modal] { return modal->isActiveWindow(); }));
    for (const Qt::Key key : {Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_Tab, Qt::Key_Q}) {
      QTest::keyClick(modal, key, Qt::ControlModifier);
    }
    for (const Qt::Key key : {Qt::Key_F1, Qt::Key_F6, Qt::Key_F11}) QTest::keyClick(modal, key);
    EXPECT_EQ(QApplication::activeModalWidget(), modal);
    EXPECT_EQ(windows.program.Host().FrontScreen(), &windows.screens.frmTab);
    EXPECT_FALSE(windows.screens.frmData.Shown());
    EXPECT_FALSE(windows.program.Guard().Status());
    QTest::keyClick(modal, Qt::Key_Escape);
  };
  QTimer::singleShot(0, press_all);
  windows.screens.frmDir.ShowModal();
  QTimer::singleShot(0, press_all);
  windows.Command("mnuHelpAbout").trigger();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  windows.program.Window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&windows.program.Window()));
  QTest::keyClick(&windows.program.Window(), Qt::Key_2, Qt::ControlModifier);
  EXPECT_EQ(windows.program.Host().FrontScreen(), &windows.screens.frmData);
}

TEST(WindowProgram, MenusAndToolsFollowTheirControls) {
  Windows windows;
  windows.Start();
  EXPECT_FALSE(windows.Command("mnuTime").isEnabled());
  windows.screens.frmTab.cboDataType.SetListIndex(1);
  EXPECT_TRUE(windows.Command("mnuTime").isEnabled());
  int ticked = 0;
  for (const QAction* period : windows.program.Window().findChildren<QAction*>("mnuTimePeriod")) {
    if (period->isChecked()) ++ticked;
  }
  EXPECT_EQ(ticked, 1);
  EXPECT_FALSE(windows.Command("cmdNext").isVisible());
  windows.screens.frmTab.optOneAll.SetListIndex(1);
  EXPECT_TRUE(windows.Command("cmdNext").isVisible());
  EXPECT_EQ(windows.Command("cmdShowCalc").text(), "Calculations Screen");
  EXPECT_FALSE(windows.Command("cmdShowCalc").icon().isNull());
}

TEST(WindowProgram, ThePointerOverAToolShowsItsTip) {
  Windows windows;
  windows.Start();
  QToolBar& bar = *windows.program.Window().findChild<QToolBar*>();
  QEvent came(QEvent::Enter);
  QApplication::sendEvent(bar.widgetForAction(&windows.Command("cmdSort")), &came);
  EXPECT_EQ(windows.screens.frmMain.tools.TxtToolTip.Text(), "Sort");
  EXPECT_TRUE(windows.screens.frmMain.tools.TxtToolTip.Visible());
  QEvent left(QEvent::Leave);
  QApplication::sendEvent(&bar, &left);
  EXPECT_FALSE(windows.screens.frmMain.tools.TxtToolTip.Visible());
  windows.screens.frmMain.tools.Timer1.Tick();
  EXPECT_FALSE(windows.screens.frmMain.tools.TxtToolTip.Visible()) << "it came back";
}

TEST(WindowProgram, AListIsLoadedByADoubleClickOrEnterAndFindLeadsIntoIt) {
  Windows windows;
  windows.Start();
  FrmTab& frmTab = windows.screens.frmTab;
  frmTab.cboDataType.SetListIndex(1);
  const bool& loaded = windows.program.Screens().State().flags.ResultFileLoaded;
  auto& find = *windows.program.Window().findChild<QLineEdit*>("txtIndex");
  auto& list = *windows.program.Window().findChild<QListView*>("lstIndex");
  find.setFocus();
  QTest::keyClicks(&find, "zz");
  const QColor wrong = find.palette().color(QPalette::Text);
  EXPECT_GT(wrong.red(), wrong.green() + 80);
  EXPECT_EQ(find.accessibleDescription(), "No family begins with \"zz\"");
  QTest::keyClick(&find, Qt::Key_N, Qt::AltModifier);
  EXPECT_EQ(find.selectedText(), "zz");
  QTest::keyClicks(&find, "tr");
  EXPECT_EQ(find.palette().color(QPalette::Text), QPalette().color(QPalette::Text));
  QTest::keyClick(&find, Qt::Key_Down);
  EXPECT_EQ(QApplication::focusWidget(), &list);
  EXPECT_FALSE(loaded);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_TRUE(loaded);
  frmTab.lists.OptSelect.SetListIndex(0);
  ASSERT_FALSE(loaded);
  const QPoint entry = list.visualRect(list.model()->index(0, 0)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, entry);
  EXPECT_FALSE(loaded) << "by a single click";
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, entry);
  EXPECT_TRUE(loaded);
}

TEST(WindowProgram, TheHourglassGivesWayToADialogAndComesBack) {
  Windows windows;
  windows.Start();
  FrmTab& frmTab = windows.screens.frmTab;
  frmTab.SetPointer(MousePointer::kHourglass);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  QTimer::singleShot(0, [] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    box->accept();
  });
  windows.screens.frmMain.mnuHelpAbout.RaiseClick();
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  frmTab.SetPointer(MousePointer::kDefault);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(WindowProgram, TheWheelOverAChartMovesItsScrollBarByAPartOfTheChart) {
  Windows windows;
  windows.Start();
  Screens& screens = windows.screens;
  screens.frmTab.cboDataType.SetListIndex(1);
  screens.frmTab.lists.lstIndex.Select({0});
  screens.frmTab.lists.cmdLoadData.RaiseClick();
  windows.program.Screens().State().table.SheetAt(1).Select({1, 2, 301, 2});
  screens.frmMain.periods.mnuTimePeriod[0].RaiseClick();
  screens.frmMain.mnuFileGraph.RaiseClick();
  QApplication::processEvents();
  const int rows = screens.frmGraph.VtChart1.view.rowcount();
  ASSERT_GE(rows, 20);
  auto* chart = windows.program.Window().findChild<QWidget*>("VtChart1");
  const auto turn = [chart](int eighths) {
    const QPointF at = chart->rect().center();
    QWheelEvent wheel(at,
                      chart->mapToGlobal(at),
                      {},
                      {0, eighths},
                      {},
                      {},
                      Qt::NoScrollPhase,
                      /*inverted=*/false);
    QApplication::sendEvent(chart, &wheel);
  };
  const int newest = screens.frmGraph.HScroll1.Value();
  turn(3 * 120);
  EXPECT_EQ(screens.frmGraph.HScroll1.Value(), newest - 3 * (rows / 20)) << "back in time";
  turn(-120);
  EXPECT_EQ(screens.frmGraph.HScroll1.Value(), newest - 2 * (rows / 20));
}

TEST(WindowProgram, TheMeterIsPaintedInTheMiddleOfWork) {
  Windows windows;
  windows.Start();
  auto& meter = *windows.program.Window().statusBar()->findChildren<PanelField*>().back();
  const QImage blank = meter.grab().toImage();
  Progress& progress = windows.screens.frmMain.progress;
  progress.ShowMeter(0);
  progress.ShowMeter(50);
  EXPECT_GT(meter.width(), 100);
  EXPECT_NE(meter.grab().toImage(), blank);
  progress.HideMeter();
  EXPECT_EQ(meter.grab().toImage(), blank);
}

TEST(WindowProgram, AClosedScreenComesBackAsItWas) {
  Windows windows;
  windows.Start();
  windows.screens.frmTab.cboDataType.SetListIndex(1);
  windows.Child(windows.screens.frmTab).close();
  EXPECT_FALSE(windows.screens.frmTab.Shown());
  windows.Command("cmdShowMain").trigger();
  EXPECT_TRUE(windows.Child(windows.screens.frmTab).isVisible());
  EXPECT_EQ(windows.screens.frmTab.cboDataType.ListIndex(), 1);
}

TEST(WindowProgram, TheFamilyWindowIsNotModalAndItsDatesAreCheckedOnLeaving) {
  Windows windows;
  windows.Start();
  windows.screens.frmTab.cboDataType.SetListIndex(1);
  windows.Command("mnuFamilySelect").trigger();
  const FormView* view = windows.program.Host().ViewOf(windows.screens.frmFam);
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  auto* date = view->findChild<QLineEdit*>("txtbegDate");
  ASSERT_TRUE(QTest::qWaitFor([date] { return QApplication::focusWidget() == date; }));
  date->selectAll();
  QTest::keyClicks(date, "1/15/01");
  QTest::keyClick(date, Qt::Key_Tab);
  EXPECT_EQ(windows.screens.frmFam.txtBegDate2.Text(), "15");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(view->isVisible());
}

TEST(WindowProgram, AModalFormKeepsTheCallerUntilItsButton) {
  Windows windows;
  windows.Start();
  FrmDir& chooser = windows.screens.frmDir;
  QTimer::singleShot(0, [&] {
    EXPECT_NE(QApplication::activeModalWidget(), nullptr);
    chooser.Dir1.SetText(windows.world.folder.Path());
    windows.program.Host().ViewOf(chooser)->findChild<QPushButton*>("cmdOK")->click();
  });
  chooser.ShowModal();
  EXPECT_EQ(windows.program.Screens().State().directories.ChosenDir, windows.world.folder.Path());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(WindowProgram, ClosingTheFrameEndsTheProgram) {
  Windows windows;
  QTimer::singleShot(0, [&windows] { windows.program.Window().close(); });
  EXPECT_EQ(windows.program.Run(), kExitDone);
  EXPECT_FALSE(windows.program.Window().isVisible());
}

TEST(WindowProgram, AServiceThatCannotBeOpenedEndsItWithStatusThree) {
  Windows windows;
  windows.world.quoteline.open_status = -1;
  QTimer::singleShot(0, [] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->windowTitle(), "Error");
    box->accept();
  });
  EXPECT_EQ(windows.program.Run(), kExitFatal);
}

}  // namespace
}  // namespace vistaplot
