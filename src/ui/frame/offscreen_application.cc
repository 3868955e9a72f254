#include "ui/frame/offscreen_application.h"

#include <QGuiApplication>
#include <QLocale>
#include <array>
#include <clocale>
#include <cstdio>
#include <string>

namespace vistaplot {

namespace {

// Remarks about a desktop that is not there (no run-time folder, ...) would mix with a script's
// errors; what ends the program is still told.
void TellOnlyFailures(QtMsgType kind, const QMessageLogContext& /*context*/, const QString& text) {
  if (kind == QtFatalMsg || kind == QtCriticalMsg) {
    std::fputs((text + QLatin1Char('\n')).toLocal8Bit().constData(), stderr);
  }
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

}  // namespace vistaplot
