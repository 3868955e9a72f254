// Long operations as the main window shows them: the action panel and the meter panel.
#pragma once

#include <string_view>

#include "base/number_text.h"
#include "base/progress.h"
#include "controls/simple_controls.h"

namespace vistaplot {

class PanelProgress : public Progress {
 public:
  PanelProgress(Panel& action, Panel& meter) : action_(action), meter_(meter) {}

  void ShowAction(std::string_view text) override {
    action_.SetCaption(text);
    action_.SetVisible(true);
    action_.Refresh();
  }
  void HideAction() override { action_.SetVisible(false); }
  void ShowMeter(double percent) override {
    meter_.SetVisible(true);
    meter_.SetPercent(RoundHalfEven(percent));
  }
  void HideMeter() override { meter_.SetVisible(false); }

 private:
  Panel& action_;
  Panel& meter_;
};

}  // namespace vistaplot
