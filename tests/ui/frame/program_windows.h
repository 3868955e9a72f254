// The whole program with windows, for tests without a display.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMdiSubWindow>

#include "support/screen_world.h"
#include "ui/frame/window_program.h"
#include "ui/hands.h"

namespace vistaplot::test {

/// The whole program with windows over the service of the test world.
struct Windows {
  ScreenWorld world;
  WindowProgram program{{.quoteline = world.quoteline,
                         .settings = world.settings,
                         .display = PixelSize{1280, 960},
                         .player = nullptr}};
  Screens& screens = program.Screens().AllScreens();
  FrmMain& frmMain = screens.frmMain;
  FrmTab& frmTab = screens.frmTab;
  SharedState& state = program.Screens().State();
  MainWindow& window = program.Window();

  void Start() {
    ASSERT_TRUE(program.Start());
    QApplication::processEvents();
  }

  /// Prices of the family.
  void LoadTrio() {
    frmTab.cboDataType.SetListIndex(1);
    frmTab.lists.lstIndex.Select({0});
    frmTab.lists.cmdLoadData.RaiseClick();
  }

  Form* Front() { return program.Host().FrontScreen(); }
  QMdiSubWindow& Child(const Form& form) {
    return *window.findChild<QMdiSubWindow*>(QString::fromStdString(form.Name()));
  }
  QAction& Command(const char* name) { return *window.findChild<QAction*>(name); }

  /// A key for the main window.
  void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QTest::keyClick(&window, key, with);
    QApplication::processEvents();
  }
};

/// A test of the started program.
class StartedProgram : public testing::Test, protected Windows {
 protected:
  void SetUp() override { Start(); }
};

}  // namespace vistaplot::test
