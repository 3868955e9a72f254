#include "ui/frame/window_program.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <array>
#include <utility>

namespace vistaplot {

namespace {

/// Keys of the frame's menu commands and tools, by control name.
constexpr std::array<std::pair<std::string_view, const char*>, 14> kCommandKeys = {
    {{"mnuFilePrint", "Ctrl+P"},
     {"mnuFileExit", "Ctrl+Q"},
     {"mnuEditCopy", "Ctrl+C"},
     {"mnuWindowNext", "Ctrl+Tab"},
     {"mnuWindowPrevious", "Ctrl+Shift+Tab"},
     {"mnuWindowFullScreen", "F11"},
     {"mnuHelpManual", "F1"},
     {"mnuHelpKeys", "Shift+F1"},
     {"cmdPrev", "Alt+Left"},
     {"cmdNext", "Alt+Right"},
     {"cmdShowMain", "Ctrl+1"},
     {"cmdShowData", "Ctrl+2"},
     {"cmdShowGraph", "Ctrl+3"},
     {"cmdShowCalc", "Ctrl+4"}}};

QSize AvailableSize() {
  const QScreen* screen = QApplication::primaryScreen();
  return screen == nullptr ? QSize(1280, 960) : screen->availableGeometry().size();
}

}  // namespace

WindowProgram::WindowProgram(const WindowParts& parts)
    : display_(parts.display),
      player_(parts.player),
      program_({.quoteline = parts.quoteline,
                .settings = parts.settings,
                .dialogs = player_ == nullptr ? dialogs_ : player_->Over(dialogs_),
                .host = player_ == nullptr ? host_ : player_->Over(host_),
                .output = player_ == nullptr ? output_ : player_->Over(output_),
                .program_dir = ProgramFolder(),
                .roots = RootsFromEnvironment()}),
      window_(program_.AllScreens().frmMain, guard_) {
  guard_.ReportTo(&dialogs_);
  output_.Use(&window_, dialogs_);
  dialogs_.Use(&window_, program_.State().roots);
  host_.Use(window_, program_.AllScreens().frmMain, program_.State().table, program_.State().roots);
  connect(&window_, &MainWindow::CloseAsked, this, [this] {
    if (stage_.DeferClosing()) return;
    guard_.Run([this] { program_.AllScreens().frmMain.mnuFileExit_Click(); });
  });
  connect(&window_, &MainWindow::ToolsLeft, this, [this] {
    guard_.Run([this] { program_.AllScreens().frmMain.HideTip(); });
  });
  SetUpCharts();
  SetUpKeys();
}

WindowProgram::~WindowProgram() {
  host_.Close();
}

bool WindowProgram::Start() {
  SizeWindow();
  guard_.Run([this] { program_.Start(); });
  return !guard_.Status();
}

int WindowProgram::Run() {
  if (!Start()) return *guard_.Status();
  if (player_ != nullptr) {
    QTimer::singleShot(0, this, [this] { guard_.Run([this] { stage_.Play(*player_); }); });
  }
  QApplication::exec();
  return guard_.Status().value_or(kExitDone);
}

void WindowProgram::SizeWindow() {
  if (display_) {
    window_.resize(display_->width, display_->height);
    host_.SetDisplay(DisplayInTwips(*display_));
    return;
  }
  window_.resize(AvailableSize());
  const QSize client = window_.ClientSize();
  constexpr double kRestoredShare = 0.8;  // of the display, so that its frame has room too
  window_.resize(AvailableSize() * kRestoredShare);
  window_.setWindowState(Qt::WindowMaximized);
  host_.SetDisplay(DisplayInTwips({client.width(), client.height()}));
}

void WindowProgram::SetUpKeys() {
  for (const auto& [command, keys] : kCommandKeys) {
    window_.SetShortcut(command, QKeySequence(QString::fromLatin1(keys)));
  }
  window_.ListScreensIn("mnuWindow");
  connect(&window_.Area(), &QMdiArea::subWindowActivated, this, [this] { FollowFront(); });
  window_.AddKey(Qt::Key_F6, [this] { window_.ToggleToolFocus(); });
}

// Ctrl+S stands in the menu beside the command that it means on this screen.
void WindowProgram::FollowFront() {
  FrmMain& frmMain = program_.AllScreens().frmMain;
  const MenuItem& save = frmMain.SaveCommand();
  for (const MenuItem* command : {&frmMain.mnuFileSaveChart, &frmMain.mnuFileSaveSheet}) {
    window_.SetShortcut(command->Name(),
                        command == &save ? QKeySequence(Qt::CTRL | Qt::Key_S) : QKeySequence());
  }
}

void WindowProgram::SetUpCharts() {
  host_.SetChartServices({.change_period = [this](int steps) {
    program_.AllScreens().frmMain.ChangeTimePeriod(steps);
  }});
}

}  // namespace vistaplot
