#include "ui/frame/form_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyleOptionButton>
#include <QTest>
#include <numeric>
#include <stdexcept>
#include <utility>

#include "controls/list_controls.h"
#include "controls/value_controls.h"
#include "support/recording_dialogs.h"
#include "support/silent_host.h"
#include "ui/frame/flat_style.h"

namespace vistaplot::test {
namespace {

/// A screen with one control of each kind, whose events are written down.
class SmallForm : public Form {
 public:
  explicit SmallForm(FormHost& host) : Form("frmSmall", "Small", FormStyle::kScreen, host) {
    Add({{&label, "lblFind", "Fi&nd:", At(150, 150, 900, 300)},
         {&box, "txtFind", "", At(1200, 150, 3000, 300)},
         {&frame, "fraKind", "Kind", At(150, 600, 3000, 1200)},
         {&options, "OptKind", "", At(300, 900, 2700, 750), &frame},
         {&check, "chkLog", "&Logarithmic", At(4500, 150, 3000, 300)},
         {&combo, "cboType", "", At(4500, 600, 3000, 300)},
         {&list, "lstNames", "", At(150, 2100, 9300, 3600)},
         {&button, "cmdGo", "&Go", At(4500, 1200, 1500, 450)},
         {&bar, "HScroll1", "", At(150, 6000, 9300, 300)}});
    options.SetEntries({"Families", "Funds"});
    options.Preset(0);
    combo.SetEntries({"Line", "Scatter", "Bar"});
    list.multi_select = true;
    list.SetEntries({"a", "b", "c", "d"});
    bar.SetMax(100);
    box.Change = [this] { log += "change " + box.Text() + "; "; };
    box.LostFocus = [this] { log += "left; "; };
    options.Click = [this](int index) { log += "option " + std::to_string(index) + "; "; };
    check.Click = [this] { log += check.Checked() ? "ticked; " : "cleared; "; };
    combo.Click = [this] { log += "type " + std::to_string(combo.ListIndex()) + "; "; };
    list.Click = [this] { log += "rows " + Rows() + "; "; };
    button.Click = [this] { log += "go; "; };
    bar.Change = [this] { log += "bar " + std::to_string(bar.Value()) + "; "; };
  }

  Label label;
  TextBox box;
  Frame frame;
  OptionGroup options;
  CheckBox check;
  ComboBox combo;
  ListBox list;
  Button button;
  ScrollBar bar;

  /// The events so far; forgets them.
  std::string TakeLog() { return std::exchange(log, {}); }

  std::string Rows() const {
    std::string rows;
    for (const int row : list.SelectedPositions()) rows += std::to_string(row);
    return rows;
  }

  std::string log;
};

/// The widget of a control, as what it is.
template <class Widget>
Widget& WidgetOf(const FormView& view, const Control& control) {
  return *qobject_cast<Widget*>(view.AdapterOf(control)->Widget());
}

class SmallView : public testing::Test {
 protected:
  SilentHost host;
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

TEST_F(SmallView, TheUsersActionsRaiseTheControlsEvents) {
  auto& line = WidgetOf<QLineEdit>(view, form.box);
  line.setFocus();
  QTest::keyClicks(&line, "ab");
  QTest::keyClick(&line, Qt::Key_Return);  // Enter leaves nothing
  EXPECT_EQ(form.TakeLog(), "change a; change ab; ");
  QTest::keyClick(&line, Qt::Key_Tab);
  EXPECT_EQ(form.TakeLog(), "left; ");
  QTest::keyClick(view.findChildren<QRadioButton*>()[1], Qt::Key_Space);
  QTest::keyClick(&WidgetOf<QCheckBox>(view, form.check), Qt::Key_Space);
  QTest::keyClick(&WidgetOf<QComboBox>(view, form.combo), Qt::Key_Down);
  QTest::mouseClick(&WidgetOf<QPushButton>(view, form.button), Qt::LeftButton);
  QTest::keyClick(&WidgetOf<QScrollBar>(view, form.bar), Qt::Key_PageDown);
  EXPECT_EQ(form.TakeLog(), "option 1; ticked; type 0; go; bar 5; ");
  auto& list = WidgetOf<QListView>(view, form.list);
  ClickRow(list, 1, Qt::NoModifier);
  ClickRow(list, 3, Qt::ControlModifier);
  ClickRow(list, 2, Qt::ShiftModifier);
  EXPECT_EQ(form.TakeLog(), "rows 1; rows 13; rows 123; ");
}

TEST_F(SmallView, TheWidgetsFollowTheControlsWithoutRaisingAnythingTwice) {
  form.box.SetText("x");
  form.check.SetChecked(true);
  form.options.SetListIndex(1);
  form.combo.SetListIndex(2);
  form.list.Select({0, 2});
  form.bar.SetValue(40);
  EXPECT_EQ(form.TakeLog(), "change x; ticked; option 1; type 2; rows 02; bar 40; ");
  EXPECT_EQ(WidgetOf<QLineEdit>(view, form.box).text(), "x");
  EXPECT_TRUE(WidgetOf<QCheckBox>(view, form.check).isChecked());
  EXPECT_TRUE(view.findChildren<QRadioButton*>()[1]->isChecked());
  EXPECT_EQ(WidgetOf<QComboBox>(view, form.combo).currentText(), "Bar");
  auto& list = WidgetOf<QListView>(view, form.list);
  EXPECT_EQ(list.selectionModel()->selectedRows().size(), 2);
  EXPECT_EQ(list.currentIndex().row(), 2);
  EXPECT_EQ(WidgetOf<QScrollBar>(view, form.bar).value(), 40);
  form.frame.SetVisible(false);
  form.button.SetEnabled(false);
  form.combo.SetEntries({"one", "two"});
  EXPECT_FALSE(view.findChildren<QRadioButton*>()[1]->isVisible());
  EXPECT_FALSE(WidgetOf<QPushButton>(view, form.button).isEnabled());
  EXPECT_EQ(WidgetOf<QComboBox>(view, form.combo).currentIndex(), -1);
}

TEST_F(SmallView, AHandlerThatSetsItsOwnControlHasTheLastWord) {
  form.bar.Change = [this] { form.bar.SetValue(70); };
  form.options.Click = [this](int) { form.options.Preset(0); };
  form.check.Click = [this] { form.check.SetChecked(false); };
  auto& slider = WidgetOf<QScrollBar>(view, form.bar);
  slider.setValue(30);
  EXPECT_EQ(slider.value(), 70);
  EXPECT_EQ(form.bar.Value(), 70);
  const auto buttons = view.findChildren<QRadioButton*>();
  QTest::keyClick(buttons[1], Qt::Key_Space);
  EXPECT_TRUE(buttons[0]->isChecked());
  EXPECT_FALSE(buttons[1]->isChecked());
  auto& tick = WidgetOf<QCheckBox>(view, form.check);
  QTest::keyClick(&tick, Qt::Key_Space);
  EXPECT_FALSE(tick.isChecked());
}

TEST_F(SmallView, ABoxIsNotLeftWhileItsWindowOrAMenuTakesTheKeyboard) {
  auto& line = WidgetOf<QLineEdit>(view, form.box);
  for (const Qt::FocusReason reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason}) {
    QFocusEvent event(QEvent::FocusOut, reason);
    QApplication::sendEvent(&line, &event);
  }
  EXPECT_EQ(form.TakeLog(), "");
  QFocusEvent event(QEvent::FocusOut, Qt::MouseFocusReason);
  QApplication::sendEvent(&line, &event);
  EXPECT_EQ(form.TakeLog(), "left; ");
}

TEST_F(SmallView, NothingThrownByAHandlerCrossesTheToolkit) {
  RecordingDialogs dialogs;
  guard.ReportTo(&dialogs);
  auto& push = WidgetOf<QPushButton>(view, form.button);
  form.button.Click = [] { throw std::runtime_error("disk on fire"); };
  push.click();
  ASSERT_EQ(dialogs.messages.size(), 1U);
  EXPECT_NE(dialogs.messages[0].text.find("disk on fire"), std::string::npos);
  EXPECT_FALSE(guard.Status());
  form.button.Click = [] { throw ProgramEnded{kExitFatal}; };
  push.click();
  EXPECT_EQ(guard.Status(), kExitFatal);
}

TEST_F(SmallView, WidgetsFollowTheirWindowAndLinesKeepTheirHeight) {
  const auto& line = WidgetOf<QLineEdit>(view, form.box);
  const auto& list = WidgetOf<QListView>(view, form.list);
  EXPECT_EQ(list.geometry(), QRect(10, 140, 620, 240));
  const int height = line.height();
  view.resize(1280, 1440);
  EXPECT_EQ(list.geometry(), QRect(20, 420, 1240, 720));
  EXPECT_EQ(line.height(), height);
  EXPECT_EQ(line.x(), 160);
  EXPECT_NEAR(line.geometry().center().y(), 60, 1);  // the middle of 30 to 90
  form.list.SetPlace(At(0, 0, 4800, 3600));
  EXPECT_EQ(list.geometry(), QRect(0, 0, 640, 720));
}

TEST_F(SmallView, TheKeyboardReachesEveryControlInOrder) {
  auto& line = WidgetOf<QLineEdit>(view, form.box);
  QTest::keyClick(&view, Qt::Key_N, Qt::AltModifier);
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

TEST_F(SmallView, AllOfALongListIsSelectedAsOneRange) {
  const std::vector<std::string> entries(10000, "SYMBOL  A name of forty characters or so");
  std::vector<int> all(entries.size());
  std::iota(all.begin(), all.end(), 0);
  form.list.SetEntries(entries);
  const QItemSelectionModel& chosen = *WidgetOf<QListView>(view, form.list).selectionModel();
  const QSignalSpy changes(&chosen, &QItemSelectionModel::selectionChanged);
  form.list.Select(all);
  view.grab();
  EXPECT_EQ(chosen.selection().size(), 1) << "entry by entry it would take seconds";
  EXPECT_LE(changes.count(), 1);
}

TEST(FlatStyle, ChecksAndOptionsHaveAnOutlineOnADarkDesktop) {
  const FlatStyle style;
  const QColor ground(30, 30, 30);
  QStyleOptionButton option;
  option.rect = QRect(0, 0, 16, 16);
  option.state = QStyle::State_Enabled | QStyle::State_Off;
  option.palette.setColor(QPalette::Window, ground);
  option.palette.setColor(QPalette::WindowText, QColor(230, 230, 230));
  option.palette.setColor(QPalette::Base, QColor(20, 20, 20));
  for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton}) {
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    style.drawPrimitive(element, &option, &painter, nullptr);
    int seen = 0;  // an antialiased line may spread over two pixels
    for (int x = 0; x < 16; ++x) seen += image.pixelColor(x, 8).lightness() >= 80 ? 1 : 0;
    EXPECT_GE(seen, 2) << element << ": left and right";
  }
}

}  // namespace
}  // namespace vistaplot::test
