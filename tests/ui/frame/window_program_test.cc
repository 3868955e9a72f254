#include "ui/frame/window_program.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QTextBrowser>
#include <QToolButton>
#include <set>

#include "ui/controls/widgets.h"
#include "ui/frame/manual.h"
#include "ui/frame/program_windows.h"

namespace vistaplot::test {
namespace {

class WindowTest : public StartedProgram {
 protected:
  const bool& Loaded() { return state.flags.ResultFileLoaded; }
  QToolBar& Bar() { return *window.findChild<QToolBar*>(); }
};

TEST_F(WindowTest, StartsWithTheParameterScreenFillingTheWindow) {
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.size(), QSize(1280, 960));
  EXPECT_TRUE(Child(frmTab).isMaximized());
  EXPECT_EQ(program.Host().ViewOf(screens.frmGraph), nullptr);
  EXPECT_EQ(Front(), &frmTab);
}

TEST_F(WindowTest, AFamilyIsLoadedWithTheKeyboardAlone) {
  QWidget* types = QApplication::focusWidget();
  TurnWheel(*types, {0, -120});
  EXPECT_EQ(frmTab.cboDataType.ListIndex(), 0) << "by the wheel over a closed list";
  PressHere(Qt::Key_Down);
  ASSERT_EQ(frmTab.cboDataType.ListIndex(), 1);
  PressHere(Qt::Key_N, Qt::AltModifier);
  QTest::keyClicks(QApplication::focusWidget(), "trio");
  EXPECT_EQ(frmTab.lists.lstIndex.SelectedPositions(), std::vector<int>{0});
  PressHere(Qt::Key_L, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Loaded(); }));  // the button is seen to go down
}

TEST_F(WindowTest, EveryMenuAndCommandHasALetterOfItsOwn) {
  const auto letters = [](const QWidget& holder) {
    QString found;
    for (const QAction* action : holder.actions()) {
      if (!action->isSeparator()) found += QKeySequence::mnemonic(action->text()).toString().back();
    }
    return found.toStdString();
  };
  EXPECT_EQ(letters(*window.menuBar()), "FETUWH");
  EXPECT_EQ(letters(*Command("mnuEdit").menu()), "YSAC");
  EXPECT_EQ(letters(*Command("mnuTime").menu()), "OTMSNYWHFA");
  EXPECT_EQ(letters(*Command("mnuWindow").menu()), "CTANPF");
  EXPECT_EQ(letters(*Command("mnuHelp").menu()), "MKA");
}

TEST_F(WindowTest, ToolsAreWorkedAndLeftWithTheKeyboard) {
  frmTab.cboDataType.SetListIndex(1);
  frmTab.optOneAll.SetListIndex(1);
  LoadTrio();
  EXPECT_EQ(frmMain.pnlStatus.Caption(), "TRIO: 3 issues, days 01/01/2001 to 10/27/2001");
  state.table.SheetAt(1).Select({1, 2, kWorldDays + 1, 4});
  Press(Qt::Key_F6);
  EXPECT_EQ(QApplication::focusWidget(), Bar().widgetForAction(&Command("cmdGraph")));
  PressHere(Qt::Key_Return);
  const ChartView& chart = screens.frmGraph.VtChart1.view;
  EXPECT_EQ(chart.ColumnLabelAt(1), "AAA");
  QWidget* worked = QApplication::focusWidget();
  Press(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(chart.ColumnLabelAt(1), "BBB");
  for (int i = 0; i < 2; ++i) Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(chart.ColumnLabelAt(1), "CCC");
  Press(Qt::Key_F6);
  EXPECT_TRUE(Bar().isAncestorOf(QApplication::focusWidget()));
  PressHere(Qt::Key_F6);
  EXPECT_EQ(QApplication::focusWidget(), worked);
}

TEST_F(WindowTest, TheListOfKeysNamesEveryKeyOfTheWindow) {
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
  OnNextBox<QDialog>([&listed](QDialog& box) {
    for (const QLabel* label : box.findChildren<QLabel*>()) {
      listed += label->text().split(QStringLiteral(", "));
    }
    box.reject();
  });
  Press(Qt::Key_F1, Qt::ShiftModifier);
  for (const QString& key : keys) EXPECT_TRUE(listed.contains(key)) << key.toStdString();
}

TEST_F(WindowTest, TheManualOpensAtTheFieldThatHasTheKeyboard) {
  frmTab.cboDataType.SetListIndex(1);
  QString title;
  QString text;
  const auto press = [&](QWidget& at, const Form& form, const Control& control) {
    program.Host().ViewOf(form)->AdapterOf(control)->Widget()->setFocus();
    OnNextBox<QDialog>([&](QDialog& box) {
      title = box.findChild<QListWidget*>()->currentItem()->text().trimmed();
      text = box.findChild<QTextBrowser*>()->toPlainText();
      box.reject();
    });
    QTest::keyClick(&at, Qt::Key_F1);
  };
  press(window, frmTab, frmTab.indicators.txtHurstDays);
  EXPECT_EQ(title, "Hurst exponent");
  EXPECT_TRUE(text.contains("Rescaled-range analysis") && !text.contains("Pearson")) << "only that";
  OnNextBox<QDialog>([&](QDialog& dialog) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    press(dialog, screens.frmpfp, screens.frmpfp.txtBox[0]);
    dialog.close();
  });
  frmTab.cmdPoint_Click();
  EXPECT_EQ(title, "Point and figure");

  std::multiset<QString> headings;
  for (const ManualSection& section : ManualSections()) {
    headings.insert(section.title);
    EXPECT_FALSE(section.text.contains("](formats/")) << "leads nowhere here";
  }
  for (const Form* form : screens.All()) {
    for (const Control* control : form->Controls()) {
      const QString topic = QtText(control->HelpTopic());
      EXPECT_TRUE(topic.isEmpty() || headings.count(topic) == 1) << control->Name();
    }
  }
}

TEST_F(WindowTest, KeysWorkFromAWindowOfItsOwn) {
  frmTab.cboDataType.SetListIndex(1);
  const auto press = [&](Qt::Key key, Qt::KeyboardModifiers with) {
    screens.frmFam.Show();
    QWidget* family = program.Host().ViewOf(screens.frmFam)->window();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == family; }));
    QTest::keyClick(family->focusWidget(), key, with);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; })) << key;
  };
  press(Qt::Key_2, Qt::ControlModifier);
  EXPECT_EQ(Front(), &screens.frmData);
  EXPECT_TRUE(QApplication::focusWidget()->inherits("QTableView"));
  press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(Front(), &frmTab);
  press(Qt::Key_F6, Qt::NoModifier);
  EXPECT_TRUE(QApplication::focusWidget()->inherits("QToolButton"));
  EXPECT_TRUE(screens.frmFam.Shown());
}

TEST_F(WindowTest, NoKeyReachesTheScreensBesideAModalWindow) {
  const auto press_all = [&] {
    QWidget* modal = QApplication::activeModalWidget();
    ASSERT_NE(modal, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([modal] { return modal->isActiveWindow(); }));
    for (const Qt::Key key : {Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_Tab, Qt::Key_Q}) {
      QTest::keyClick(modal, key, Qt::ControlModifier);
    }
    for (const Qt::Key key : {Qt::Key_F6, Qt::Key_F11}) QTest::keyClick(modal, key);
    EXPECT_EQ(QApplication::activeModalWidget(), modal);
    EXPECT_EQ(Front(), &frmTab);
    EXPECT_FALSE(screens.frmData.Shown());
    EXPECT_FALSE(program.Guard().Status());
    QTest::keyClick(modal, Qt::Key_Escape);
  };
  QTimer::singleShot(0, press_all);
  screens.frmDir.ShowModal();
  QTimer::singleShot(0, press_all);
  Command("mnuHelpAbout").trigger();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  Press(Qt::Key_2, Qt::ControlModifier);
  EXPECT_EQ(Front(), &screens.frmData);
}

TEST_F(WindowTest, MenusAndToolsFollowTheirControls) {
  EXPECT_FALSE(Command("mnuTime").isEnabled());
  frmTab.cboDataType.SetListIndex(1);
  EXPECT_TRUE(Command("mnuTime").isEnabled());
  const auto periods = window.findChildren<QAction*>("mnuTimePeriod");
  EXPECT_EQ(std::count_if(periods.begin(), periods.end(), [](auto* p) { return p->isChecked(); }),
            1);
  EXPECT_FALSE(Command("cmdNext").isVisible());
  frmTab.optOneAll.SetListIndex(1);
  EXPECT_TRUE(Command("cmdNext").isVisible());
  EXPECT_EQ(Command("cmdPrev").text() + Command("cmdNext").text(), "Previous FundNext Fund");
  EXPECT_EQ(Command("cmdShowCalc").text(), "Calculations Screen");
  EXPECT_FALSE(Command("cmdShowCalc").icon().isNull());
}

TEST_F(WindowTest, ThePointerOverAToolShowsItsTip) {
  const TextBox& tip = frmMain.tools.TxtToolTip;
  QEvent came(QEvent::Enter);
  QApplication::sendEvent(Bar().widgetForAction(&Command("cmdSort")), &came);
  EXPECT_EQ(tip.Text(), "Sort");
  EXPECT_TRUE(tip.Visible());
  QEvent left(QEvent::Leave);
  QApplication::sendEvent(&Bar(), &left);
  EXPECT_FALSE(tip.Visible());
  frmMain.tools.Timer1.Tick();
  EXPECT_FALSE(tip.Visible()) << "it came back";
}

TEST_F(WindowTest, AListIsLoadedByADoubleClickOrEnterAndFindLeadsIntoIt) {
  frmTab.cboDataType.SetListIndex(1);
  auto& find = *window.findChild<QLineEdit*>("txtIndex");
  auto& list = *window.findChild<QListView*>("lstIndex");
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
  EXPECT_FALSE(Loaded());
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_TRUE(Loaded());
  frmTab.lists.OptSelect.SetListIndex(0);
  ASSERT_FALSE(Loaded());
  const QPoint entry = list.visualRect(list.model()->index(0, 0)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, entry);
  EXPECT_FALSE(Loaded()) << "by a single click";
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, entry);
  EXPECT_TRUE(Loaded());
}

TEST_F(WindowTest, TheHourglassGivesWayToADialogAndComesBack) {
  frmTab.SetPointer(MousePointer::kHourglass);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  OnNextBox<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    box.accept();
  });
  frmMain.mnuHelpAbout.RaiseClick();
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  OnNextBox<QDialog>([this](QDialog& /*box*/) {
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    screens.frmSort.Unload();
  });
  screens.frmSort.ShowModal();
  frmTab.SetPointer(MousePointer::kDefault);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(WindowTest, TheWheelOverAChartMovesItsScrollBarByAPartOfTheChart) {
  LoadTrio();
  state.table.SheetAt(1).Select({1, 2, 301, 2});
  frmMain.periods.mnuTimePeriod[0].RaiseClick();
  frmMain.mnuFileGraph.RaiseClick();
  QApplication::processEvents();
  const int rows = screens.frmGraph.VtChart1.view.rowcount();
  ASSERT_GE(rows, 20);
  auto& chart = *window.findChild<QWidget*>("VtChart1");
  const int newest = screens.frmGraph.HScroll1.Value();
  TurnWheel(chart, {0, 3 * 120});
  EXPECT_EQ(screens.frmGraph.HScroll1.Value(), newest - 3 * (rows / 20)) << "back in time";
  TurnWheel(chart, {0, -120});
  EXPECT_EQ(screens.frmGraph.HScroll1.Value(), newest - 2 * (rows / 20));
  TurnWheel(chart, {0, -240}, Qt::ControlModifier);
  EXPECT_EQ(state.selection.TimePeriodIndex, 2);
}

TEST_F(WindowTest, TheMeterIsPaintedInTheMiddleOfWork) {
  auto& meter = *window.statusBar()->findChildren<PanelField*>().back();
  const QImage blank = meter.grab().toImage();
  frmMain.progress.ShowMeter(0);
  frmMain.progress.ShowMeter(50);
  EXPECT_GT(meter.width(), 100);
  EXPECT_NE(meter.grab().toImage(), blank);
  frmMain.progress.HideMeter();
  EXPECT_EQ(meter.grab().toImage(), blank);
}

TEST_F(WindowTest, AClosedScreenComesBackAsItWas) {
  frmTab.cboDataType.SetListIndex(1);
  Child(frmTab).close();
  EXPECT_FALSE(frmTab.Shown());
  Command("cmdShowMain").trigger();
  EXPECT_TRUE(Child(frmTab).isVisible());
  EXPECT_EQ(frmTab.cboDataType.ListIndex(), 1);
}

TEST_F(WindowTest, TheFamilyWindowIsNotModalAndItsDatesAreCheckedOnLeaving) {
  frmTab.cboDataType.SetListIndex(1);
  Command("mnuFamilySelect").trigger();
  const FormView* view = program.Host().ViewOf(screens.frmFam);
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  auto* date = view->findChild<QLineEdit*>("txtbegDate");
  ASSERT_TRUE(QTest::qWaitFor([date] { return QApplication::focusWidget() == date; }));
  date->selectAll();
  QTest::keyClicks(date, "1/15/01");
  QTest::keyClick(date, Qt::Key_Tab);
  EXPECT_EQ(screens.frmFam.txtBegDate2.Text(), "15");
  PressHere(Qt::Key_Escape);
  EXPECT_FALSE(view->isVisible());
}

TEST_F(WindowTest, AModalFormKeepsTheCallerUntilItsButton) {
  FrmDir& chooser = screens.frmDir;
  QTimer::singleShot(0, [&] {
    EXPECT_NE(QApplication::activeModalWidget(), nullptr);
    const auto* view = program.Host().ViewOf(chooser);
    EXPECT_NE(qobject_cast<QLineEdit*>(view->focusWidget()), nullptr) << "without drives: the path";
    chooser.Dir1.SetText(world.folder.Path());
    view->findChild<QPushButton*>("cmdOK")->click();
  });
  chooser.ShowModal();
  EXPECT_EQ(state.directories.ChosenDir, world.folder.Path());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(WindowProgram, ClosingTheFrameEndsIt) {
  Windows windows;
  QTimer::singleShot(0, [&windows] { windows.window.close(); });
  EXPECT_EQ(windows.program.Run(), kExitDone);
  EXPECT_FALSE(windows.window.isVisible());
}

TEST(WindowProgram, AServiceThatCannotBeOpenedEndsItWithStatusThree) {
  Windows windows;
  windows.world.quoteline.open_status = -1;
  OnNextBox<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "Error");
    box.accept();
  });
  EXPECT_EQ(windows.program.Run(), kExitFatal);
}

}  // namespace
}  // namespace vistaplot::test
