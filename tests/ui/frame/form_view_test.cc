#include "ui/frame/form_view.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <numeric>
#include <stdexcept>

#include "support/recording_dialogs.h"
#include "support/silent_host.h"
#include "ui/frame/small_form.h"

namespace vistaplot {
namespace {

using test::SmallForm;
using test::WidgetOf;

struct SmallView {
  test::SilentHost host;
  SmallForm form{host};
  EventGuard guard;
  FormView view{form, {.guard = guard}, QSize(640, 480)};

  SmallView() {
    view.show();
    view.activateWindow();
    QApplication::processEvents();
  }
};

void ClickRow(QListView& list, int row, Qt::KeyboardModifiers keys) {
  const QRect place = list.visualRect(list.model()->index(row, 0));
  QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, place.center());
}

TEST(FormView, TheUsersActionsRaiseTheControlsEvents) {
  SmallView small;
  SmallForm& form = small.form;
  auto& line = WidgetOf<QLineEdit>(small.view, form.box);
  line.setFocus();
  QTest::keyClicks(&line, "ab");
  QTest::keyClick(&line, Qt::Key_Return);  // Enter leaves nothing
  EXPECT_EQ(form.TakeLog(), "change a; change ab; ");
  QTest::keyClick(&line, Qt::Key_Tab);
  EXPECT_EQ(form.TakeLog(), "left; ");
  QTest::keyClick(small.view.findChildren<QRadioButton*>()[1], Qt::Key_Space);
  QTest::keyClick(&WidgetOf<QCheckBox>(small.view, form.check), Qt::Key_Space);
  QTest::keyClick(&WidgetOf<QComboBox>(small.view, form.combo), Qt::Key_Down);
  QTest::mouseClick(&WidgetOf<QPushButton>(small.view, form.button), Qt::LeftButton);
  QTest::keyClick(&WidgetOf<QScrollBar>(small.view, form.bar), Qt::Key_PageDown);
  EXPECT_EQ(form.TakeLog(), "option 1; ticked; type 0; go; bar 5; ");
  auto& list = WidgetOf<QListView>(small.view, form.list);
  ClickRow(list, 1, Qt::NoModifier);
  ClickRow(list, 3, Qt::ControlModifier);
  ClickRow(list, 2, Qt::ShiftModifier);
  EXPECT_EQ(form.TakeLog(), "rows 1; rows 13; rows 123; ");
}

TEST(FormView, TheWidgetsFollowTheControlsWithoutRaisingAnythingTwice) {
  SmallView small;
  SmallForm& form = small.form;
  form.box.SetText("x");
  form.check.SetChecked(true);
  form.options.SetListIndex(1);
  form.combo.SetListIndex(2);
  form.list.Select({0, 2});
  form.bar.SetValue(40);
  EXPECT_EQ(form.TakeLog(), "change x; ticked; option 1; type 2; rows 02; bar 40; ");
  EXPECT_EQ(WidgetOf<QLineEdit>(small.view, form.box).text(), "x");
  EXPECT_TRUE(WidgetOf<QCheckBox>(small.view, form.check).isChecked());
  EXPECT_TRUE(small.view.findChildren<QRadioButton*>()[1]->isChecked());
  EXPECT_EQ(WidgetOf<QComboBox>(small.view, form.combo).currentText(), "Bar");
  auto& list = WidgetOf<QListView>(small.view, form.list);
  EXPECT_EQ(list.selectionModel()->selectedRows().size(), 2);
  EXPECT_EQ(list.currentIndex().row(), 2);
  EXPECT_EQ(WidgetOf<QScrollBar>(small.view, form.bar).value(), 40);
  form.frame.SetVisible(false);
  form.button.SetEnabled(false);
  form.combo.SetEntries({"one", "two"});
  EXPECT_FALSE(small.view.findChildren<QRadioButton*>()[1]->isVisible());
  EXPECT_FALSE(WidgetOf<QPushButton>(small.view, form.button).isEnabled());
  EXPECT_EQ(WidgetOf<QComboBox>(small.view, form.combo).currentIndex(), -1);
}

TEST(FormView, AHandlerThatSetsItsOwnControlHasTheLastWord) {
  SmallView small;
  SmallForm& form = small.form;
  form.bar.Change = [&form] { form.bar.SetValue(70); };
  form.options.Click = [&form](int) { form.options.Preset(0); };
  form.check.Click = [&form] { form.check.SetChecked(false); };
  auto& slider = WidgetOf<QScrollBar>(small.view, form.bar);
  slider.setValue(30);
  EXPECT_EQ(slider.value(), 70);
  EXPECT_EQ(form.bar.Value(), 70);
  const auto buttons = small.view.findChildren<QRadioButton*>();
  QTest::keyClick(buttons[1], Qt::Key_Space);
  EXPECT_TRUE(buttons[0]->isChecked());
  EXPECT_FALSE(buttons[1]->isChecked());
  auto& tick = WidgetOf<QCheckBox>(small.view, form.check);
  QTest::keyClick(&tick, Qt::Key_Space);
  EXPECT_FALSE(tick.isChecked());
}

TEST(FormView, ABoxIsNotLeftWhileItsWindowOrAMenuTakesTheKeyboard) {
  SmallView small;
  auto& line = WidgetOf<QLineEdit>(small.view, small.form.box);
  for (const Qt::FocusReason reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason}) {
    QFocusEvent event(QEvent::FocusOut, reason);
    QApplication::sendEvent(&line, &event);
  }
  EXPECT_EQ(small.form.TakeLog(), "");
  QFocusEvent event(QEvent::FocusOut, Qt::MouseFocusReason);
  QApplication::sendEvent(&line, &event);
  EXPECT_EQ(small.form.TakeLog(), "left; ");
}

TEST(FormView, NothingThrownByAHandlerCrossesTheToolkit) {
  SmallView small;
  test::RecordingDialogs dialogs;
  small.guard.ReportTo(&dialogs);
  auto& push = WidgetOf<QPushButton>(small.view, small.form.button);
  small.form.button.Click = [] { throw std::runtime_error("disk on fire"); };
  push.click();
  ASSERT_EQ(dialogs.messages.size(), 1U);
  EXPECT_NE(dialogs.messages[0].text.find("disk on fire"), std::string::npos);
  EXPECT_FALSE(small.guard.Status());
  small.form.button.Click = [] { throw ProgramEnded{kExitFatal}; };
  push.click();
  EXPECT_EQ(small.guard.Status(), kExitFatal);
}

TEST(FormView, WidgetsFollowTheirWindowAndLinesKeepTheirHeight) {
  SmallView small;
  const auto& line = WidgetOf<QLineEdit>(small.view, small.form.box);
  const auto& list = WidgetOf<QListView>(small.view, small.form.list);
  EXPECT_EQ(list.geometry(), QRect(10, 140, 620, 240));
  const int height = line.height();
  small.view.resize(1280, 1440);
  EXPECT_EQ(list.geometry(), QRect(20, 420, 1240, 720));
  EXPECT_EQ(line.height(), height);
  EXPECT_EQ(line.x(), 160);
  EXPECT_NEAR(line.geometry().center().y(), 60, 1);  // the middle of 30 to 90
  small.form.list.SetPlace(At(0, 0, 4800, 3600));
  EXPECT_EQ(list.geometry(), QRect(0, 0, 640, 720));
}

TEST(FormView, TheKeyboardReachesEveryControlInOrder) {
  SmallView small;
  const SmallForm& form = small.form;
  auto& line = WidgetOf<QLineEdit>(small.view, form.box);
  QTest::keyClick(&small.view, Qt::Key_N, Qt::AltModifier);
  EXPECT_EQ(QApplication::focusWidget(), &line);
  std::vector<std::string> stops;
  for (int i = 0; i < 7; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    const QWidget* stop = QApplication::focusWidget();
    stops.push_back(
        (stop->objectName().isEmpty() ? stop->parentWidget() : stop)->objectName().toStdString());
  }
  const std::vector<std::string> order = {
      "OptKind", "chkLog", "cboType", "lstNames", "cmdGo", "HScroll1", "txtFind"};
  EXPECT_EQ(stops, order);
}

TEST(FormView, AllOfALongListIsSelectedAsOneRange) {
  SmallView small;
  const std::vector<std::string> entries(10000, "SYMBOL  A name of forty characters or so");
  std::vector<int> all(entries.size());
  std::iota(all.begin(), all.end(), 0);
  small.form.list.SetEntries(entries);
  const QItemSelectionModel& chosen =
      *WidgetOf<QListView>(small.view, small.form.list).selectionModel();
  const QSignalSpy changes(&chosen, &QItemSelectionModel::selectionChanged);
  small.form.list.Select(all);
  small.view.grab();
  EXPECT_EQ(chosen.selection().size(), 1) << "entry by entry it would take seconds";
  EXPECT_LE(changes.count(), 1);
}

}  // namespace
}  // namespace vistaplot
