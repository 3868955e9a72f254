// What assistive tools are told while the user works; needs a bus on which they would listen.
#include <QAccessible>

#include "display/display_world.h"

namespace vistaplot {
namespace {

using namespace test;

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

TEST(Spoken, CellsAndReadOutsAreToldAsTheKeysMove) {
  DisplayWorld world;
  WindowProgram program{{.quoteline = world.quoteline,
                         .settings = world.settings,
                         .display = std::nullopt,
                         .player = nullptr}};
  Screens& screens = program.Screens().AllScreens();
  const int status = RunProgram(program, [&] {
    ASSERT_TRUE(Wait([] { return QAccessible::isActive(); }));
    QAccessible::installUpdateHandler(Listen);
    screens.frmTab.cboDataType.SetListIndex(1);
    screens.frmTab.lists.lstIndex.Select({0});
    screens.frmTab.lists.cmdLoadData.RaiseClick();
    Press(Qt::Key_2, Qt::ControlModifier);
    ASSERT_TRUE(Wait([] { return qobject_cast<GridArea*>(QApplication::focusWidget()); }));
    EXPECT_TRUE(Hear("100, AAA, 01/01/2001, B2")) << Told().join(u'\n').toStdString();
    Press(Qt::Key_Down);
    EXPECT_TRUE(Hear("100.25, AAA, 01/02/2001, B3")) << Told().join(u'\n').toStdString();
    screens.frmMain.mnuFileGraph.RaiseClick();
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
}  // namespace vistaplot
