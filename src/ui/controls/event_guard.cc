#include "ui/controls/event_guard.h"

#include <QCoreApplication>
#include <iostream>

namespace vistaplot {

void EventGuard::End(int status) noexcept {
  status_ = status;
  QCoreApplication::exit(status);
}

void EventGuard::Report(const std::string& what) noexcept {
  const std::string text = std::string("The command could not be finished: ").append(what);
  if (dialogs_ == nullptr) {
    std::cerr << "vistaplot: " << text << "\n";
    return;
  }
  try {
    dialogs_->ShowMessage({.text = text,
                           .title = "Error",
                           .buttons = Buttons::kOk,
                           .icon = Icon::kNone,
                           .default_answer = Answer::kOk});
  } catch (const ProgramEnded& ended) {
    End(ended.status);
  } catch (...) {
    std::cerr << "vistaplot: " << text << "\n";
  }
}

}  // namespace vistaplot
