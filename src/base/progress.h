// Signs of a long operation: the action text, the percentage meter and the pointer.
#pragma once

#include <string>
#include <string_view>

namespace vistaplot {

class Progress {
 public:
  virtual ~Progress() = default;

  /// Shows `text` in the action panel and repaints it.
  virtual void ShowAction(std::string_view text) = 0;
  virtual void HideAction() = 0;

  /// Shows the meter at `percent` (0 to 100) and repaints it when its whole number changed.
  virtual void ShowMeter(double percent) = 0;
  virtual void HideMeter() = 0;

  /// True when the user wants a long run to stop, as by Esc. Whoever asks ends its work in order.
  virtual bool StopWanted() { return false; }
};

/// Hides the action panel and the meter when a scope ends, on failure as on success.
class ProgressScope {
 public:
  ProgressScope(Progress& progress, std::string_view action) : progress_(progress) {
    progress_.ShowAction(action);
  }
  ~ProgressScope() {
    progress_.HideMeter();
    progress_.HideAction();
  }
  ProgressScope(const ProgressScope&) = delete;
  ProgressScope& operator=(const ProgressScope&) = delete;

 private:
  Progress& progress_;
};

}  // namespace vistaplot
