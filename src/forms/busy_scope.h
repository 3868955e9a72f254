// The signs of a long command: hourglass pointer and action text, taken back when a scope ends.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "base/dialogs.h"
#include "base/number_text.h"
#include "controls/form.h"
#include "controls/form_host.h"
#include "controls/value_controls.h"

namespace vistaplot {

/// The pointer alone, for a command whose steps tell their action themselves.
class HourglassScope {
 public:
  explicit HourglassScope(Form& form) : form_(form) { form_.SetPointer(MousePointer::kHourglass); }
  ~HourglassScope() { form_.SetPointer(MousePointer::kDefault); }
  HourglassScope(const HourglassScope&) = delete;
  HourglassScope& operator=(const HourglassScope&) = delete;

 private:
  Form& form_;
};

/// Empties a panel when a scope ends: declared ahead of what shows text in it.
class EmptiedPanelScope {
 public:
  explicit EmptiedPanelScope(Panel& panel) : panel_(panel) {}
  ~EmptiedPanelScope() { panel_.SetCaption(""); }
  EmptiedPanelScope(const EmptiedPanelScope&) = delete;
  EmptiedPanelScope& operator=(const EmptiedPanelScope&) = delete;

 private:
  Panel& panel_;
};

/// Pointer of `form` and action text together.
class BusyScope {
 public:
  BusyScope(Form& form, Progress& progress, std::string_view action)
      : progress_(progress, action), pointer_(form) {}

 private:
  ProgressScope progress_;
  HourglassScope pointer_;
};

// Long operations as the main window shows them: the action panel and the meter panel.

class PanelProgress : public Progress {
 public:
  PanelProgress(Panel& action, Panel& meter, FormHost& host)
      : action_(action), meter_(meter), host_(host) {}

  void ShowAction(std::string_view text) override {
    action_.SetCaption(text);
    action_.SetVisible(true);
    action_.Refresh();
  }
  void HideAction() override { action_.SetVisible(false); }
  void ShowMeter(double percent) override {
    if (!meter_.Visible()) begun_ = Clock::now();
    meter_.SetCaption(TimeLeft(percent));
    meter_.SetVisible(true);
    meter_.SetPercent(RoundHalfEven(percent));
  }
  void HideMeter() override { meter_.SetVisible(false); }
  bool StopWanted() override { return host_.StopWanted(); }

 private:
  using Clock = std::chrono::steady_clock;

  /// What is left of a run that takes longer than a moment: "12 s left".
  std::string TimeLeft(double percent) const {
    constexpr double kMoment = 1.0;  // seconds
    const double elapsed = std::chrono::duration<double>(Clock::now() - begun_).count();
    if (elapsed < kMoment || percent <= 0.0 || percent >= 100.0) return {};
    return FixedText(elapsed * (100.0 - percent) / percent, 0) + " s left";
  }

  Panel& action_;
  Panel& meter_;
  FormHost& host_;
  Clock::time_point begun_;
};

}  // namespace vistaplot
