// The whole program on a real display: a market-data service of five years and more, and a user's
// hands on the keyboard.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "formats/family_file.h"
#include "support/fake_quoteline.h"
#include "support/memory_settings.h"
#include "support/temporary_folder.h"
#include "ui/chart/chart_widget.h"
#include "ui/frame/window_program.h"
#include "ui/grid/grid_area.h"

namespace vistaplot::test {

inline constexpr int kDisplayDays = 2500;  ///< one a day, so nearly seven years

/// How long a step may take to show; a step that succeeds waits no longer than it must.
inline constexpr int kPatience = 30000;

struct DisplayWorld {
  TemporaryFolder folder;
  FakeQuoteline quoteline;
  MemorySettings settings;

  DisplayWorld() {
    quoteline.directory = folder.Path();
    quoteline.SetDays(SerialFromDate({2001, 1, 1}), kDisplayDays);
    const std::vector<std::string> symbols{"AAA", "BBB", "CCC"};
    for (int fund = 0; fund < 3; ++fund) {
      std::vector<float> prices(kDisplayDays);
      for (int day = 0; day < kDisplayDays; ++day) {
        prices[static_cast<std::size_t>(day)] =
            static_cast<float>(100 + fund * 100) + 0.25F * static_cast<float>(day);
      }
      quoteline.AddIssue(symbols[static_cast<std::size_t>(fund)], prices);
    }
    for (const char* name : {"QLDEF", "QL4WIN/SQLDEF", "USERDEF"}) folder.MakeFolder(name);
    const FamilyHeader header{.name = "TRIO", .title = "Three funds", .count = 0, .rest = {}};
    folder.Write("USERDEF/TRIO.FAM", FamilyFileBytes(header, symbols).Value());
  }
};

/// Runs `steps` in the program's own event loop; returns the program's exit status. Steps that give
/// up before they have ended the program end it with status 99.
inline int RunProgram(WindowProgram& program, const std::function<void()>& steps) {
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

inline bool Wait(const std::function<bool()>& until) {
  return QTest::qWaitFor(until, kPatience);
}

/// The widget that a key pressed now goes to.
inline QWidget* KeyTarget() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* focus = QApplication::focusWidget()) return focus;
  return QApplication::activeWindow();
}

inline void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
  ASSERT_TRUE(Wait([] { return KeyTarget() != nullptr; }));
  QTest::keyClick(KeyTarget(), key, with);
}

inline void Type(const std::string& text) {
  ASSERT_TRUE(Wait([] { return KeyTarget() != nullptr; }));
  QTest::keyClicks(KeyTarget(), QString::fromStdString(text));
}

/// Goes down the open menu to the item of this text and chooses it.
inline void ChooseInMenu(const QString& text) {
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
inline void OnceModal(QObject& owner, const std::function<void(QWidget&)>& action) {
  auto* watch = new QTimer(&owner);
  QObject::connect(watch, &QTimer::timeout, &owner, [watch, action] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isActiveWindow()) return;
    watch->stop();
    action(*modal);
  });
  watch->start(20);
}

}  // namespace vistaplot::test
