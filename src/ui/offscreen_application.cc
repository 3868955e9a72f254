#include "ui/offscreen_application.h"

#include <QGuiApplication>
#include <QLocale>
#include <array>
#include <clocale>
#include <string>

namespace vistaplot {

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
  held_ = std::make_unique<Held>();
  std::setlocale(LC_NUMERIC, "C");
  QLocale::setDefault(QLocale::c());
}

}  // namespace vistaplot
