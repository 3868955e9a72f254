// What assistive tools call the widgets: never by a name that only the program understands.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <set>

#include "ui/controls/widgets.h"
#include "ui/frame/form_view.h"
#include "ui/frame/program_windows.h"

namespace vistaplot::test {
namespace {

/// A combo box is called by its chosen entry; its name is its label's or its description.
QString NameOf(QWidget& widget) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&widget);
  if (spoken == nullptr) return {};
  if (qobject_cast<QComboBox*>(&widget) == nullptr) return spoken->text(QAccessible::Name);
  const auto labels = spoken->relations(QAccessible::Label);
  const bool labelled = !labels.empty() && !labels.front().first->text(QAccessible::Name).isEmpty();
  return labelled ? widget.accessibleName() : spoken->text(QAccessible::Description);
}

std::set<QString> ControlNames(Screens& screens) {
  std::set<QString> names;
  for (const Form* form : screens.All()) {
    for (const Control* control : form->Controls()) names.insert(QtText(control->Name()));
  }
  return names;
}

/// Names of kinds, which are heard only where a form says nothing about a control.
const std::set<QString> kUnspecific = {"Entry", "Choice", "List", "Scroll bar", "Chart"};

void ExpectSpokenNames(const QWidget& window, const std::set<QString>& control_names) {
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus) continue;
    const QString name = NameOf(*widget);
    const std::string which = widget->objectName().toStdString() + " (" +
                              widget->metaObject()->className() + ") is called \"" +
                              name.toStdString() + "\"";
    EXPECT_FALSE(name.trimmed().isEmpty()) << which;
    EXPECT_FALSE(control_names.contains(name)) << which;
    EXPECT_FALSE(kUnspecific.contains(name)) << which;
    EXPECT_FALSE(name.endsWith(u':') || name.contains(u'&')) << which;
  }
}

using AccessibleNames = StartedProgram;

TEST_F(AccessibleNames, EveryWidgetThatTakesTheKeyboardHasOneOnEveryScreen) {
  const std::set<QString> control_names = ControlNames(screens);
  for (Form* form : screens.All()) {
    if (form == &frmMain) continue;
    form->Show();
    QApplication::processEvents();
    const QWidget* shown = program.Host().ViewOf(*form)->window();
    SCOPED_TRACE(form->Name());
    ExpectSpokenNames(*shown, control_names);
    if (form->Style() != FormStyle::kScreen) form->Unload();
  }
  frmTab.Show();
  for (int type = 0; type < frmTab.cboDataType.Count(); ++type) {
    frmTab.cboDataType.SetListIndex(type);
    QApplication::processEvents();
    SCOPED_TRACE(type);
    ExpectSpokenNames(window, control_names);
  }
}

TEST_F(AccessibleNames, NamesAndAccessKeysFollowTheLabels) {
  frmTab.cboDataType.SetListIndex(1);
  const FormView& view = *program.Host().ViewOf(frmTab);
  QWidget& find = *view.AdapterOf(frmTab.lists.txtIndex)->Widget();
  const auto& label = *qobject_cast<QLabel*>(view.AdapterOf(frmTab.lists.lblIndex)->Widget());
  EXPECT_EQ(NameOf(find), "Find");
  EXPECT_EQ(label.buddy(), &find);
  frmTab.lists.lblIndex.SetCaption("&Search for:");
  EXPECT_EQ(NameOf(find), "Search for");
  frmTab.lists.lblIndex.SetCaption("");
  EXPECT_EQ(NameOf(find), "Entry");
  EXPECT_EQ(label.buddy(), nullptr);
  frmTab.lists.txtIndex.SetDescription("Name or symbol");
  EXPECT_EQ(NameOf(find), "Name or symbol");
}

}  // namespace
}  // namespace vistaplot::test
