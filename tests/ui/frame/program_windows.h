// The whole program with windows, for tests without a display.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMdiSubWindow>

#include "support/screen_world.h"
#include "ui/frame/window_program.h"

namespace vistaplot::test {

/// The whole program with windows over the service of the test world.
struct Windows {
  test::ScreenWorld world;
  WindowProgram program{{.quoteline = world.quoteline,
                         .settings = world.settings,
                         .display = PixelSize{1280, 960},
                         .player = nullptr}};
  Screens& screens = program.Screens().AllScreens();

  void Start() {
    ASSERT_TRUE(program.Start());
    QApplication::processEvents();
  }

  QMdiSubWindow& Child(const Form& form) {
    return *program.Window().findChild<QMdiSubWindow*>(QString::fromStdString(form.Name()));
  }

  QAction& Command(const char* name) { return *program.Window().findChild<QAction*>(name); }
};

}  // namespace vistaplot::test
