// Long operations as the main window shows them: the action panel and the meter panel.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "base/number_text.h"
#include "base/progress.h"
#include "controls/form_host.h"
#include "controls/simple_controls.h"

namespace vistaplot {

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
