#include "ui/frame/application.h"

#include <QApplication>
#include <QGuiApplication>
#include <QLocale>
#include <QScreen>
#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

#include "app/ini_settings.h"
#include "marketdata/quoteline_library.h"
#include "ui/frame/flat_style.h"
#include "ui/frame/window_program.h"

namespace vistaplot {

namespace {

// Remarks about a desktop that is not there (no run-time folder, ...) would mix with a script's
// errors; what ends the program is still told.
void TellOnlyFailures(QtMsgType kind, const QMessageLogContext& /*context*/, const QString& text) {
  if (kind == QtFatalMsg || kind == QtCriticalMsg) {
    std::fputs((text + QLatin1Char('\n')).toLocal8Bit().constData(), stderr);
  }
}

constexpr int kNoDisplay = 2;

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

/// The toolkit aborts where it finds no display, so it is asked for before.
bool DisplayNamed() {
  return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY") || IsSet("QT_QPA_PLATFORM");
}

void TellNoDisplay() {
  std::cerr << "vistaplot: cannot open a display\n"
               "Set DISPLAY or WAYLAND_DISPLAY, or play a script without windows:\n"
               "  vistaplot --batch SCRIPT\n"
            << std::flush;
}

/// A session without a run-time folder is common (su, containers) and nothing that users could act
/// on: the toolkit goes on with a folder of its own.
bool IsAboutRunTimeFolder(const QString& text) {
  return text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set"));
}

/// While the toolkit starts, its only fatal message is that it cannot reach the display; it would
/// abort after it.
void EndOnFatalMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type == QtFatalMsg) {
    TellNoDisplay();
    std::_Exit(kNoDisplay);
  }
  if (type == QtDebugMsg || type == QtInfoMsg || IsAboutRunTimeFolder(text)) return;
  std::cerr << text.toStdString() << '\n';
}

/// Last defence: what escapes a widget's own event handler is told, not fatal.
class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  void SetGuard(EventGuard* guard) { guard_ = guard; }

  bool notify(QObject* receiver, QEvent* event) override {
    if (guard_ == nullptr) return QApplication::notify(receiver, event);
    bool handled = true;
    try {
      handled = QApplication::notify(receiver, event);
    } catch (...) {
      const std::exception_ptr escaped = std::current_exception();
      guard_->Run([&escaped] { std::rethrow_exception(escaped); });
    }
    return handled;
  }

 private:
  EventGuard* guard_ = nullptr;
};

/// Numbers and dates look the same on every desktop, in the toolkit's own dialogs too; letters and
/// input methods stay the desktop's. To be called before the toolkit reads the environment.
void KeepPlainLocale() {
  if (const char* all = std::getenv("LC_ALL"); all != nullptr && *all != '\0') {
    const std::string locale = all;
    unsetenv("LC_ALL");
    for (const char* category : {"LC_CTYPE", "LC_MESSAGES", "LC_COLLATE", "LC_MEASUREMENT"}) {
      setenv(category, locale.c_str(), 1);
    }
  }
  for (const char* category : {"LC_NUMERIC", "LC_TIME"}) setenv(category, "C", 1);
  QLocale::setDefault(QLocale::c());
}

}  // namespace

struct OffscreenApplication::Held {
  std::string name = "vistaplot";
  std::string option = "-platform";
  std::string platform = "offscreen";
  std::array<char*, 4> arguments{name.data(), option.data(), platform.data(), nullptr};
  int count = 3;
  QGuiApplication application{count, arguments.data()};
};

OffscreenApplication::OffscreenApplication() = default;
OffscreenApplication::~OffscreenApplication() = default;

void OffscreenApplication::Ensure() {
  if (QCoreApplication::instance() != nullptr) return;
  const QtMessageHandler usual = qInstallMessageHandler(TellOnlyFailures);
  held_ = std::make_unique<Held>();
  qInstallMessageHandler(usual);
  std::setlocale(LC_NUMERIC, "C");
  QLocale::setDefault(QLocale::c());
}

int RunWindows(const Options& options, ScriptPlayer* player, int& /*argc*/, char** argv) {
  if (!DisplayNamed()) {
    TellNoDisplay();
    return kNoDisplay;
  }
  KeepPlainLocale();
  const QtMessageHandler usual = qInstallMessageHandler(EndOnFatalMessage);
  // The options are read; the toolkit would take --display for one of its own.
  int name_alone = 1;
  char* name[] = {argv[0], nullptr};
  GuardedApplication application(name_alone, name);
  qInstallMessageHandler(usual);
  std::setlocale(LC_NUMERIC, "C");
  UseFlatStyle();
  QApplication::setApplicationName(QStringLiteral("vistaplot"));
  QApplication::setQuitOnLastWindowClosed(false);
  QuotelineLibrary quoteline(options.quoteline_dir);
  IniSettings settings(options.settings_file);
  WindowProgram program(
      {.quoteline = quoteline, .settings = settings, .display = options.display, .player = player});
  application.SetGuard(&program.Guard());
  const int status = program.Run();
  application.SetGuard(nullptr);
  if (status == kExitFatal) std::cerr << FatalEndText(options) << std::flush;
  return status;
}

}  // namespace vistaplot
