#include "ui/frame/script_stage.h"

#include <gtest/gtest.h>

#include <QThread>
#include <QTimer>
#include <QWindow>

#include "support/screen_world.h"
#include "ui/frame/window_program.h"

namespace vistaplot {
namespace {

using namespace test;

constexpr unsigned long kLongLine = 60;  // milliseconds, more than a picture stands

class PaintCounter : public QObject {
 public:
  int paints = 0;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints;
    return QObject::eventFilter(watched, event);
  }
};

/// Plays a line that shows the data screen, then the desktop asks the frame to close.
class TwoLines : public ScriptPlayer {
 public:
  WindowProgram* windows = nullptr;
  bool played = false;
  bool exposed_at_first = false;
  int grid_paints = 0;
  bool asked_to_stop = false;

  FormHost& Over(FormHost& host) override { return host; }
  Dialogs& Over(Dialogs& dialogs) override { return dialogs; }
  Output& Over(Output& output) override { return output; }

  void Play(Program& program, const std::function<bool()>& line_done) override {
    played = true;
    exposed_at_first = windows->Window().windowHandle()->isExposed();
    program.AllScreens().frmMain.cmdShowData_Click();
    PaintCounter counter;
    auto* grid = windows->Window().findChild<QWidget*>(QStringLiteral("F1Book1"));
    ASSERT_NE(grid, nullptr);
    for (QWidget* part : grid->findChildren<QWidget*>()) part->installEventFilter(&counter);
    QThread::msleep(kLongLine);
    EXPECT_TRUE(line_done());
    grid_paints = counter.paints;
    EXPECT_FALSE(windows->Window().close()) << "not in the middle of a line";
    QThread::msleep(kLongLine);
    asked_to_stop = !line_done();
  }
};

struct Staged {
  ScreenWorld world;
  TwoLines player;
  WindowProgram program{{.quoteline = world.quoteline,
                         .settings = world.settings,
                         .display = PixelSize{1280, 960},
                         .player = &player}};

  Staged() { player.windows = &program; }
};

TEST(ScriptStage, WindowsFollowTheScriptAndClosingThemEndsIt) {
  Staged staged;
  EXPECT_EQ(staged.program.Run(), kExitDone);
  EXPECT_TRUE(staged.player.exposed_at_first);
  EXPECT_GT(staged.player.grid_paints, 0);
  EXPECT_TRUE(staged.player.asked_to_stop);
}

TEST(ScriptStage, AFrameClosedBeforeTheFirstLineLeavesTheScriptOut) {
  Staged staged;
  MainWindow& window = staged.program.Window();
  QTimer::singleShot(0, &window, [&window] {
    QMetaObject::invokeMethod(
        &window, [&window] { window.close(); }, Qt::QueuedConnection);
  });
  EXPECT_EQ(staged.program.Run(), kExitDone);
  EXPECT_FALSE(staged.player.played);
}

}  // namespace
}  // namespace vistaplot
