// The toolkit without a display, for runs that export charts but show no window.
#pragma once

#include <memory>

class QGuiApplication;

namespace vistaplot {

/// Owned by the program's start; nothing of the toolkit is built before the first Ensure.
class OffscreenApplication {
 public:
  OffscreenApplication();
  ~OffscreenApplication();
  OffscreenApplication(const OffscreenApplication&) = delete;
  OffscreenApplication& operator=(const OffscreenApplication&) = delete;

  /// Makes sure that fonts and painters work: builds a QGuiApplication on platform "offscreen"
  /// unless one runs already. Numbers keep the C locale.
  void Ensure();

 private:
  struct Held;  ///< the application with the arguments that it refers to
  std::unique_ptr<Held> held_;
};

}  // namespace vistaplot
